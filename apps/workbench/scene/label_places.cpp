#include "scene/label_places.h"

#include <algorithm>

namespace quillon {
namespace {

constexpr double kSquare = 64.0;

}  // namespace

/// Calls `each` with the key of every square that a box touches, until it returns false.
template <class Each>
bool LabelPlaces::ForSquares(const ChartBox& box, Each each) {
    const auto square = [](double at) { return static_cast<long long>(std::floor(at / kSquare)); };
    for (long long row = square(box.minY); row <= square(box.maxY); ++row) {
        for (long long column = square(box.minX); column <= square(box.maxX); ++column) {
            if (!each(row * 1000003LL + column)) return false;
        }
    }
    return true;
}

bool LabelPlaces::IsFree(const ChartBox& box) const {
    return ForSquares(box, [&](long long key) {
        const auto square = squares.find(key);
        return square == squares.end() || std::none_of(square->second.begin(), square->second.end(),
                                                       [&](const ChartBox& taken) { return taken.Meets(box); });
    });
}

bool LabelPlaces::Take(std::span<const ChartBox> boxes) {
    if (!std::all_of(boxes.begin(), boxes.end(), [this](const ChartBox& box) { return IsFree(box); })) return false;
    for (const ChartBox& box : boxes) {
        ForSquares(box, [&](long long key) {
            squares[key].push_back(box);
            return true;
        });
    }
    return true;
}

}  // namespace quillon
