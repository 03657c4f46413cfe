#include "background/shape.h"

#include <cmath>

#include "foundation/angle_units.h"
#include "foundation/paths.h"
#include "foundation/settings_lines.h"
#include "platform/text.h"

namespace quillon {

template <class Lines>
void EachLine(Lines& lines, RecordOf<ShapeOptions> auto& options) {
    lines.Bool("Status", options.status);
    lines.Int("Style", options.pen.style);
    lines.Int("Size", options.pen.thickness);
    lines.Colour("Colour", options.pen.colour);
    lines.Int("Fill", options.pen.fill);
    lines.Int("Label Mode", options.labelMode);
    lines.Int("Label Position", options.labelPosition);
    lines.Int("Label Column", options.labelColumn);
    lines.Bool("Icon Mode", options.iconMode);
}

void ReadShapeOptions(CConfigFile& file, ShapeOptions& options) {
    ReadLines(file, options);
}

void WriteShapeOptions(CConfigFile& file, const ShapeOptions& options) {
    WriteLines(file, options);
}

CShape::CShape(FileSystem& fileSystem) : conversion(fileSystem), files(fileSystem) {
    ellipsoid.SetEllipsoid(CEllipsoid::kWgs84);
    grid.ellipsoid = &ellipsoid;
    grid.Init();
    conversion.linkedGrid = &grid;
    conversion.linkedEllipsoid = &ellipsoid;
    conversion.SetIdentity(0, conversion.option);
}

void CShape::SetPath(std::string_view newPath) {
    path = newPath;
    name = NameOfPath(path);
}

bool CShape::HasDegrees() const {
    constexpr double kMostX = 360.5, kMostY = 90.5, kMostMiss = 1e-6;
    const auto within = [](double low, double high, double most) { return low >= -most && high <= most; };
    const bool inDegrees = projection.unit == 0 || std::fabs(projection.unit - kRadiansPerDegree) < kMostMiss;
    return geographic && inDegrees && within(boundsMin[0], boundsMax[0], kMostX) &&
           within(boundsMin[1], boundsMax[1], kMostY);
}

/// A parallel of "Mercator" is that of true scale. The forms of it that are named otherwise put a scale or a sphere in
/// its place.
bool CShape::IsProjectionKnown() const {
    constexpr double kMostMiss = 1e-9;
    if (!projection.flatteningKept) return false;
    if (geographic) return HasDegrees();
    const bool named =
        EqualNoCase(projection.projection, "Transverse_Mercator") || EqualNoCase(projection.projection, "Mercator");
    return named && std::fabs(projection.unit - 1.0) < kMostMiss;
}

double CShape::GetTotalLength() const {
    double sum = 0;
    for (const ShapeRecord& record : records) {
        if (std::isfinite(record.length)) sum += record.length;
    }
    return sum;
}

void CShape::ReadSettings() {
    static_cast<ShapeOptions&>(*this) = {};
    const tagPathParts parts = SplitPath(path);
    CConfigFile file(files);
    if (file.OpenForReadIn(parts.folder, parts.name, "INI")) ReadShapeOptions(file, *this);
}

void CShape::WriteSettings() const {
    const tagPathParts parts = SplitPath(path);
    CConfigFile file(files);
    if (!file.OpenForWrite(parts.folder, parts.name, "INI")) return;
    WriteShapeOptions(file, *this);
    file.Commit();
}

}  // namespace quillon
