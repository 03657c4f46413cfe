#include "background/load_shape.h"

#include "foundation/paths.h"
#include "frame/messages.h"
#include "platform/text.h"

namespace quillon {

CLoadShape::CLoadShape(Platform& owner, CShape& target, CWnd* parent)
    : CLoadDlg(owner, progress, UM_SHAPE_THREAD, kLoadDlgSize, parent), shape(target) {}

std::string CLoadShape::Caption() const {
    return "Loading Shape File " + NameOfPath(shape.GetPath()) + ".........";
}

/// The bar counts records in 16 bits; the text has the right figures.
void CLoadShape::OnTick() {
    const std::uint64_t count = progress.GetTotal(), copied = progress.GetPosition();
    if (count > 0) {
        Bar().SetRange(1, static_cast<int>(count & 0xFFFF));
        Bar().SetPos(static_cast<int>(std::min<std::uint64_t>(copied, 0xFFFF)));
    }
    Text().SetWindowText(Format("Copied %llu of %llu Entities", static_cast<unsigned long long>(copied),
                                static_cast<unsigned long long>(count)));
}

ShapeLoad LoadShapeInWindow(Platform& owner, CWnd* parent) {
    return [&owner, parent](CShape& shape) { return CLoadShape(owner, shape, parent).DoModal() == IDOK; };
}

}  // namespace quillon
