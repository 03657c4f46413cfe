#pragma once

#include <span>
#include <unordered_map>
#include <vector>

#include "scene/chart_geometry.h"

namespace quillon {

/// The places of a picture that labels have taken. Labels are offered in order of their rank: the first comer keeps its
/// place, and what would overlap it is left out.
class LabelPlaces {
public:
    /// True, and the boxes are taken, if none of them overlaps one taken before.
    bool Take(std::span<const ChartBox> boxes);
    bool Take(const ChartBox& box) { return Take({&box, 1}); }
    void Clear() { squares.clear(); }

private:
    bool IsFree(const ChartBox& box) const;
    template <class Each>
    static bool ForSquares(const ChartBox& box, Each each);

    std::unordered_map<long long, std::vector<ChartBox>> squares;
};

}  // namespace quillon
