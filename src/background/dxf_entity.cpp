#include "background/dxf_entity.h"

#include <cmath>
#include <numbers>

namespace quillon {

std::array<tagXY, CDxfEllipse::kOutlinePoints> CDxfEllipse::Outline() const {
    constexpr double kStep = 0.17453292519943295;  // 10 degrees
    const double major = std::hypot(majorEnd.x, majorEnd.y);
    const double minor = major * ratio;
    double bearing = major == 0.0 ? 0.0 : std::atan2(majorEnd.x, majorEnd.y);
    if (bearing < 0.0) bearing += 2.0 * std::numbers::pi;
    const double sine = std::sin(bearing);
    const double cosine = std::cos(bearing);
    std::array<tagXY, kOutlinePoints> outline;
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const double t = static_cast<double>(i) * kStep;
        const double along = std::cos(t) * major;
        const double across = std::sin(t) * minor;
        outline[i] = {centre.x + along * sine - across * cosine, centre.y + along * cosine + across * sine};
    }
    return outline;
}

std::string_view DxfKeyword(const CDxfEntity& entity) {
    switch (entity.type) {
        case DXF_TYPE::POINT:
            return "POINT";
        case DXF_TYPE::LINE:
            return "LINE";
        case DXF_TYPE::CIRCLE:
            return "CIRCLE";
        case DXF_TYPE::ARC:
            return "ARC";
        case DXF_TYPE::ELLIPSE:
            return "ELLIPSE";
        case DXF_TYPE::POLYLINE:
            return "POLYLINE";
        case DXF_TYPE::VERTEX:
            return "VERTEX";
        case DXF_TYPE::LWPOLYLINE:
            return "LWPOLYLINE";
        case DXF_TYPE::SOLID:
            return "SOLID";
        case DXF_TYPE::TEXT:
            return entity.multiline ? "MTEXT" : "TEXT";
        case DXF_TYPE::INSERT:
            return "INSERT";
        case DXF_TYPE::HATCH:
            return "HATCH";
        case DXF_TYPE::SOLID_3D:
            return "3DSOLID";
        case DXF_TYPE::ATTDEF:
            return "ATTDEF";
        case DXF_TYPE::SPLINE:
            return "SPLINE";
        case DXF_TYPE::VIEWPORT:
            return "VIEWPORT";
        case DXF_TYPE::REGION:
            return "REGION";
    }
    return {};
}

}  // namespace quillon
