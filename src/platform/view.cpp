#include "platform/view.h"

namespace quillon {

void CView::OnLButtonDown(tagPOINT) {}

}  // namespace quillon
