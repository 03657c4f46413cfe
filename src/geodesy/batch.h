#pragma once

#include <cstddef>
#include <span>

#include "geodesy/grid.h"

namespace quillon {

/// The position that the grid's formula gives, UTM for type 13; what `CGrid::Forward` says of special cases holds.
void ForwardByFormula(const CGrid& grid, double* easting, double* northing, double lat, double lon);

/// The inverse of the formula, from UTM for type 13; NaN and false outside the grid.
bool InverseByFormula(const CGrid& grid, double easting, double northing, double* lat, double* lon);

/// The loops over arrays, compiled once for each instruction set. A kernel takes a grid that is ready (ellipsoid,
/// Init); positions out of the reach of its mathematics it hands to the one-point form. Whatever the set, a position
/// comes out the same to the last bit: no operation is contracted, and no position hangs on the ones beside it.
struct BatchKernels {
    const char* name;
    void (*forward)(const CGrid& grid, const double* lat, const double* lon, double* east, double* north,
                    std::size_t count);
    void (*inverse)(const CGrid& grid, const double* east, const double* north, double* lat, double* lon,
                    std::size_t count);
    void (*distance)(const CEllipsoid& ellipsoid, const double* lat1, const double* lon1, const double* lat2,
                     const double* lon2, double* distances, std::size_t count);
    /// The legs of a path of `count` + 1 vertices.
    void (*legs)(const CEllipsoid& ellipsoid, const double* lat, const double* lon, double* distances,
                 std::size_t count);
};

/// Those of this program that the processor runs, the fastest first. Found once.
std::span<const BatchKernels* const> BatchKernelsHere();

}  // namespace quillon
