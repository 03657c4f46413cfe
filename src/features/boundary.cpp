#include "features/boundary.h"

#include "features/record_reader.h"
#include "foundation/field_scanner.h"
#include "foundation/folders.h"

namespace quillon {
namespace {

constexpr std::string_view kFolder = "Boundaries";

PASSED_OVER DecodePoint(std::string_view line, tagXY& point) {
    FieldScanner fields(line);
    point.x = fields.NextNumber();
    point.y = fields.NextNumber();
    return PositionFault(point.x, point.y);
}

}  // namespace

bool CBoundary::Read(std::string_view newPath, ReadReport* report) {
    RemoveAll();
    RebuildPolygon();
    SetPathAndLoad(newPath);
    CStdioFile file(GetFiles());
    if (file.OpenForReading(GetPath())) ReadFrom(file, report);
    LoadDrawing(GetFiles(), GetDataFolder(GetFiles(), kFolder), GetName());
    return !IsEmpty();
}

bool CBoundary::ReadFrom(CStdioFile& file, ReadReport* report) {
    if (report) report->opened = true;
    Adopt(ReadRecords<tagXY>(file, DecodePoint, report));
    RebuildPolygon();
    return !IsEmpty();
}

void CBoundary::MakeStub(std::string_view stubPath) {
    SetPathAndLoad(stubPath);
    Add({0.0, 0.0});
    RebuildPolygon();
}

void CBoundary::SaveDrawingOptions() const {
    SaveDrawing(GetFiles(), GetDataFolder(GetFiles(), kFolder), GetName());
}

void CBoundary::RebuildPolygon() {
    polygon.RemoveAll();
    if (GetSize() >= 3) polygon = *this;
}

bool CBoundaryList::AppendFile(std::string_view path, bool) {
    auto boundary = std::make_unique<CBoundary>(GetFiles());
    if (!boundary->Read(path)) boundary->MakeStub(path);
    Append(std::move(boundary));
    return true;
}

}  // namespace quillon
