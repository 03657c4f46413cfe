#include "background/shape.h"

#include <cmath>

#include "foundation/paths.h"
#include "foundation/settings_lines.h"

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
