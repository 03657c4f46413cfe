// Any bytes as a boundary file: every point taken is a position, and the polygon is a copy of them.

#include "features/boundary.h"

#include "feature_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quillon::CBoundary boundary(fuzz::Files());
    fuzz::ReadBytes(boundary, {reinterpret_cast<const char*>(data), size});
    for (const quillon::tagXY& point : boundary) fuzz::Require(fuzz::IsPosition(point));
    fuzz::Require(boundary.GetPolygon().GetSize() == (boundary.GetSize() >= 3 ? boundary.GetSize() : 0));
    return 0;
}
