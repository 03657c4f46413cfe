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

bool CBoundary::Read(std::string_view newPath) {
    // The path may be this object's own.
    SetPathAndLoad(std::string(newPath));
    RemoveAll();
    RebuildPolygon();
    SetStub(false);
    CStdioFile file(GetFiles());
    if (OpenData(file, GetPath(), report)) ReadFrom(file);
    SetReadStamp(file.GetStamp());
    LoadDrawing(GetFiles(), GetDataFolder(GetFiles(), kFolder), GetName());
    return !IsEmpty();
}

bool CBoundary::ReadFrom(CStdioFile& file) {
    SetStub(false);
    Adopt(ReadRecords<tagXY>(file, DecodePoint, report));
    RebuildPolygon();
    return !IsEmpty();
}

bool CBoundary::ReadAgain() {
    CStdioFile file(GetFiles());
    if (!OpenData(file, GetPath(), report)) return false;
    const bool taken = IsStub() ? Read(GetPath()) : ReadFrom(file);
    if (!taken) AddStubPoint();
    SetReadStamp(file.GetStamp());
    return true;
}

void CBoundary::MakeStub(std::string_view stubPath) {
    SetPathAndLoad(stubPath);
    AddStubPoint();
}

void CBoundary::AddStubPoint() {
    Add({0.0, 0.0});
    RebuildPolygon();
    SetStub(true);
}

const CXYArray& CBoundary::GetPolygon() const {
    static const CXYArray kNone;
    return hasPolygon ? *this : kNone;
}

bool CBoundary::FollowStored() {
    const bool flags = FollowCommon();
    return FollowDrawing(GetFiles(), GetDataFolder(GetFiles(), kFolder), GetName()) || flags;
}

bool CBoundary::ReadStored() {
    const CDrawingOptions before = *this;
    const bool flags = ReadCommon();
    LoadDrawing(GetFiles(), GetDataFolder(GetFiles(), kFolder), GetName());
    return flags || before != *this;
}

void CBoundary::SaveDrawingOptions() {
    SaveDrawing(GetFiles(), GetDataFolder(GetFiles(), kFolder), GetName());
}

bool CBoundaryList::AppendFile(std::string_view path, bool) {
    auto boundary = std::make_unique<CBoundary>(GetFiles());
    if (!boundary->Read(path)) boundary->MakeStub(path);
    Append(std::move(boundary));
    return true;
}

}  // namespace quillon
