#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "foundation/values.h"

namespace quillon {

/// Points that stay where they are and what they are for as long as somebody holds this: positions in metres that lie
/// at equal distances in memory, be it in an array of their own or in the records that they belong to. Nothing is
/// copied.
class ChartPoints {
public:
    ChartPoints() = default;
    /// Points of an array of their own.
    ChartPoints(std::shared_ptr<const std::vector<tagXY>> array)  // NOLINT(google-explicit-constructor)
        : base(reinterpret_cast<const std::byte*>(array->data())), count(array->size()), owner(std::move(array)) {}
    ChartPoints(std::vector<tagXY> array)  // NOLINT(google-explicit-constructor)
        : ChartPoints(std::make_shared<const std::vector<tagXY>>(std::move(array))) {}
    /// The easting and, right behind it, the northing of each of `size` records; `first` is the address of the first
    /// easting, and `recordOwner` keeps the records.
    ChartPoints(std::shared_ptr<const void> recordOwner, const void* first, std::size_t size, std::size_t recordBytes)
        : base(static_cast<const std::byte*>(first)), stride(recordBytes), count(size), owner(std::move(recordOwner)) {}
    /// Points that are lent: the caller keeps them.
    static ChartPoints Lent(std::span<const tagXY> points) {
        return {nullptr, points.data(), points.size(), sizeof(tagXY)};
    }

    std::size_t size() const { return count; }
    bool empty() const { return count == 0; }
    tagXY operator[](std::size_t index) const {
        tagXY point;
        std::memcpy(&point, base + index * stride, sizeof point);
        return point;
    }

private:
    const std::byte* base = nullptr;
    std::size_t stride = sizeof(tagXY);
    std::size_t count = 0;
    std::shared_ptr<const void> owner;
};

}  // namespace quillon
