#include "background/load_progress.h"

#include <algorithm>

namespace quillon {

int LoadProgress::GetThousandths() const {
    const auto whole = static_cast<double>(GetTotal());
    if (whole <= 0.0) return 0;
    return static_cast<int>(std::min(static_cast<double>(GetPosition()) * 1000.0 / whole, 1000.0));
}

}  // namespace quillon
