#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <new>
#include <span>
#include <vector>

#include "background/shape_library.h"
#include "platform/big_array.h"

namespace quillon {

/// The types of a shape file and of its records, as the files number them.
enum SHAPE_TYPE : int {
    SHAPE_UNREADABLE = -1,  ///< stands in the list for a record that can't be read; it has no vertices
    SHAPE_NULL = 0,
    SHAPE_POINT = 1,
    SHAPE_POLYLINE = 3,
    SHAPE_POLYGON = 5,
    SHAPE_MULTIPOINT = 8,
    SHAPE_POINT_Z = 11,
    SHAPE_POLYLINE_Z = 13,
    SHAPE_POLYGON_Z = 15,
    SHAPE_MULTIPOINT_Z = 18,
    SHAPE_POINT_M = 21,
    SHAPE_POLYLINE_M = 23,
    SHAPE_POLYGON_M = 25,
    SHAPE_MULTIPOINT_M = 28,
    SHAPE_MULTIPATCH = 31
};

/// The everyday name of a type; empty for a number that is none.
std::string_view ShapeTypeName(int type);
/// Polylines, polygons and multipatches, with and without z and m.
bool HasLength(int type);

/// One record in the coordinates of the file. The numbers stand in the arena of its shape.
class ShapeRecord {
public:
    int type = SHAPE_UNREADABLE;
    std::array<double, 4> boundsMin = {}, boundsMax = {};  ///< x, y, z, m
    /// Metres on WGS 84 along all vertices in their order, over the ends of parts too, with x and y taken as longitude
    /// and latitude in degrees. 0 for points and multipoints.
    double length = 0;

    std::size_t GetVertexCount() const { return vertices; }
    std::span<const double> X() const { return {values, vertices}; }
    std::span<const double> Y() const { return {values + vertices, vertices}; }
    /// Empty where the record has none.
    std::span<const double> Z() const { return {values + 2 * vertices, hasZ ? vertices : 0}; }
    std::span<const double> M() const { return {values + (hasZ ? 3 : 2) * vertices, hasM ? vertices : 0}; }

    /// The first vertex of each part, in ascending order; empty for points and multipoints.
    std::span<const int> PartStarts() const { return {parts, partCount}; }
    /// Of a multipatch what each part is; 5, a ring, for all others.
    std::span<const int> PartTypes() const { return {parts + partCount, partCount}; }

private:
    friend class ShapeArena;
    const double* values = nullptr;
    const int* parts = nullptr;
    std::uint32_t vertices = 0;
    std::uint32_t partCount = 0;
    bool hasZ = false;
    bool hasM = false;
};

/// Holds the numbers of many records in a few large blocks, which never move.
class ShapeArena {
public:
    /// Copies a record in. Raises std::bad_alloc when the memory is used up.
    void Store(const ShapeView& view, ShapeRecord& record);
    void Clear() { *this = {}; }

private:
    /// Blocks that double in size up to 32 MiB; a piece larger than that has one of its own.
    template <class T>
    class Pieces {
    public:
        T* Take(std::size_t count) {
            if (blocks.empty() || blocks.back().Size() - used < count) {
                constexpr std::size_t kLargest = (std::size_t{32} << 20) / sizeof(T);
                blocks.emplace_back(std::max(count, next));
                if (!blocks.back()) throw std::bad_alloc();
                next = std::min(next * 2, kLargest);
                used = 0;
            }
            T* const piece = blocks.back().Data() + used;
            used += count;
            return piece;
        }

    private:
        std::vector<BigArray<T>> blocks;
        std::size_t used = 0;
        std::size_t next = 4096;
    };

    Pieces<double> values;
    Pieces<int> parts;
};

}  // namespace quillon
