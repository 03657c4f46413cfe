#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "foundation/values.h"

namespace quillon {

struct CDxfLayer;
struct CDxfLinetype;

/// The kind of an entity. TEXT and MTEXT are of one kind.
enum class DXF_TYPE : std::uint8_t {
    POINT = 1,
    LINE = 2,
    CIRCLE = 4,
    ARC = 8,
    ELLIPSE = 16,
    POLYLINE = 17,
    VERTEX = 18,
    LWPOLYLINE = 20,
    SOLID = 24,
    TEXT = 32,
    INSERT = 33,
    HATCH = 40,
    SOLID_3D = 64,
    ATTDEF = 65,
    SPLINE = 66,
    VIEWPORT = 68,
    REGION = 72
};

/// The fields that an entity mostly has in common with many others; held once for all that have the same.
struct DxfAttributes {
    std::string_view layerName;
    std::string_view linetypeName;
    int colour = 0;  ///< as in the file: 0 and 256 stand for the layer's
    double thickness = 0.0;
    double linetypeScale = 1.0;
    bool visible = true;
    const CDxfLayer* layer = nullptr;        ///< none if the tables hadn't named it before the entity
    const CDxfLinetype* linetype = nullptr;  ///< the same
    friend bool operator==(const DxfAttributes&, const DxfAttributes&) = default;
};

/// What every entity of a drawing has. The derived records follow their `type`; `As` gives the one that is asked for.
/// Entities are plain memory of the drawing that holds them: texts and pointers live as long as it does. Coordinates
/// are the drawing's own, taken as metres of a grid.
struct CDxfEntity {
    const DxfAttributes* attributes = nullptr;  ///< never null in an entity of a drawing
    const char* handleText = nullptr;
    std::uint16_t handleLength = 0;
    DXF_TYPE type = DXF_TYPE::POINT;
    bool multiline = false;  ///< a text with inline codes (MTEXT)
    int flags = 0;           ///< polylines, vertices and the kinds without geometry; bit 0 of a polyline: closed

    std::string_view GetHandle() const { return {handleText, handleLength}; }
    /// The record of the entity's type; the caller has looked at `type`.
    template <class Record>
    const Record& As() const {
        return static_cast<const Record&>(*this);
    }
};

struct CDxfPoint : CDxfEntity {
    tagXYZ position;
};

struct CDxfLine : CDxfEntity {
    tagXYZ start;
    tagXYZ end;
};

struct CDxfCircle : CDxfEntity {
    tagXYZ centre;
    double radius = 0.0;
};

/// Runs from the end bearing to the start bearing, clockwise. Degrees clockwise from north, where the file counts
/// anticlockwise from east: what is the arc's start in the file is its far end here.
struct CDxfArc : CDxfCircle {
    double startBearing = 0.0;
    double endBearing = 360.0;
};

struct CDxfEllipse : CDxfEntity {
    tagXYZ centre;
    tagXYZ majorEnd;     ///< relative to the centre
    double ratio = 0.0;  ///< of the minor axis to the major
    double start = 0.0;  ///< parameters, radians; they play no part in the outline
    double end = 0.0;

    static constexpr std::size_t kOutlinePoints = 37;
    /// The whole ellipse in steps of 10 degrees of its parameter, the last point the first again.
    std::array<tagXY, kOutlinePoints> Outline() const;
};

struct CDxfVertex : CDxfEntity {
    tagXYZ position;
    double bulge = 0.0;
};

/// POLYLINE and LWPOLYLINE. The vertices of a LWPOLYLINE are positions and nothing else.
struct CDxfPolyline : CDxfEntity {
    std::size_t count = 0;  ///< never 0 in an entity of a drawing
    const CDxfVertex* vertices = nullptr;
    const tagXY* positions = nullptr;

    bool IsClosed() const { return (flags & 1) != 0; }
    tagXY GetPosition(std::size_t index) const {
        if (positions) return positions[index];
        return {vertices[index].position.x, vertices[index].position.y};
    }
    /// The records of a POLYLINE; empty for a LWPOLYLINE.
    std::span<const CDxfVertex> GetVertices() const { return {vertices, vertices ? count : 0}; }
};

struct CDxfSolid : CDxfEntity {
    std::array<tagXYZ, 4> corners;  ///< in the order in which an outline runs through them
};

struct CDxfText : CDxfEntity {
    std::string_view text;  ///< as in the file but for degree and plus-minus signs; see CDxf::ShownText
    std::string_view styleName;
    tagXYZ insertion;
    tagXYZ alignment;
    double height = 0.0;
    double width = 0.0;
    double widthFactor = 0.0;
    double rotation = 0.0;      ///< degrees, as in the file
    double obliqueAngle = 0.0;  ///< degrees
    int horizontalJustify = 0;
    int verticalJustify = 0;
    int generation = 0;
};

struct CDxfInsert : CDxfEntity {
    tagXYZ position;
    tagXYZ scale{1.0, 1.0, 1.0};
    double rotation = 0.0;  ///< degrees, as in the file
};

struct CDxfHatch : CDxfEntity {
    bool solid = false;
};

/// The name that a kind has in the file.
std::string_view DxfKeyword(const CDxfEntity& entity);

/// Calls `take(record)` with the entity as the record of its type.
template <class Take>
decltype(auto) VisitEntity(const CDxfEntity& entity, Take take) {
    switch (entity.type) {
        case DXF_TYPE::POINT:
            return take(entity.As<CDxfPoint>());
        case DXF_TYPE::LINE:
            return take(entity.As<CDxfLine>());
        case DXF_TYPE::CIRCLE:
            return take(entity.As<CDxfCircle>());
        case DXF_TYPE::ARC:
            return take(entity.As<CDxfArc>());
        case DXF_TYPE::ELLIPSE:
            return take(entity.As<CDxfEllipse>());
        case DXF_TYPE::VERTEX:
            return take(entity.As<CDxfVertex>());
        case DXF_TYPE::POLYLINE:
        case DXF_TYPE::LWPOLYLINE:
            return take(entity.As<CDxfPolyline>());
        case DXF_TYPE::SOLID:
            return take(entity.As<CDxfSolid>());
        case DXF_TYPE::TEXT:
            return take(entity.As<CDxfText>());
        case DXF_TYPE::INSERT:
            return take(entity.As<CDxfInsert>());
        case DXF_TYPE::HATCH:
            return take(entity.As<CDxfHatch>());
        case DXF_TYPE::SOLID_3D:
        case DXF_TYPE::ATTDEF:
        case DXF_TYPE::SPLINE:
        case DXF_TYPE::VIEWPORT:
        case DXF_TYPE::REGION:
            break;
    }
    return take(entity);
}

}  // namespace quillon
