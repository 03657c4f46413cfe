#include "background/shape_record.h"

namespace quillon {
namespace {

double* Append(double* to, std::span<const double> values) {
    return std::copy(values.begin(), values.end(), to);
}

}  // namespace

std::string_view ShapeTypeName(int type) {
    switch (type) {
        case SHAPE_UNREADABLE:
            return "unreadable";
        case SHAPE_NULL:
            return "null";
        case SHAPE_POINT:
            return "point";
        case SHAPE_POLYLINE:
            return "polyline";
        case SHAPE_POLYGON:
            return "polygon";
        case SHAPE_MULTIPOINT:
            return "multipoint";
        case SHAPE_POINT_Z:
            return "point Z";
        case SHAPE_POLYLINE_Z:
            return "polyline Z";
        case SHAPE_POLYGON_Z:
            return "polygon Z";
        case SHAPE_MULTIPOINT_Z:
            return "multipoint Z";
        case SHAPE_POINT_M:
            return "point M";
        case SHAPE_POLYLINE_M:
            return "polyline M";
        case SHAPE_POLYGON_M:
            return "polygon M";
        case SHAPE_MULTIPOINT_M:
            return "multipoint M";
        case SHAPE_MULTIPATCH:
            return "multipatch";
        default:
            return {};
    }
}

bool HasLength(int type) {
    switch (type) {
        case SHAPE_POLYLINE:
        case SHAPE_POLYGON:
        case SHAPE_POLYLINE_Z:
        case SHAPE_POLYGON_Z:
        case SHAPE_POLYLINE_M:
        case SHAPE_POLYGON_M:
        case SHAPE_MULTIPATCH:
            return true;
        default:
            return false;
    }
}

void ShapeArena::Store(const ShapeView& view, ShapeRecord& record) {
    record.type = view.type;
    record.boundsMin = view.boundsMin;
    record.boundsMax = view.boundsMax;
    record.vertices = static_cast<std::uint32_t>(view.x.size());
    record.partCount = static_cast<std::uint32_t>(view.partStarts.size());
    record.hasZ = !view.z.empty();
    record.hasM = !view.m.empty();
    if (!view.x.empty()) {
        double* const piece = values.Take(view.x.size() + view.y.size() + view.z.size() + view.m.size());
        Append(Append(Append(Append(piece, view.x), view.y), view.z), view.m);
        record.values = piece;
    }
    if (!view.partStarts.empty()) {
        int* const piece = parts.Take(2 * view.partStarts.size());
        std::copy(view.partTypes.begin(), view.partTypes.end(),
                  std::copy(view.partStarts.begin(), view.partStarts.end(), piece));
        record.parts = piece;
    }
}

}  // namespace quillon
