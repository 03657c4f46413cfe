#include "features/sail_line.h"

#include <utility>

#include "features/record_reader.h"
#include "features/route.h"
#include "foundation/field_scanner.h"
#include "foundation/folders.h"
#include "foundation/paths.h"

namespace quillon {
namespace {

/// Sail lines keep their drawing files with the routes.
constexpr std::string_view kFolder = "Routes";

PASSED_OVER DecodeLine(std::string_view line, int order, SailLineDef& record) {
    if (order != 0) return PASSED_OVER::UNKNOWN_ORDER;
    FieldScanner fields(line);
    for (tagXY* const end : {&record.sol, &record.eol}) {
        end->x = fields.NextNumber();
        end->y = fields.NextNumber();
        const PASSED_OVER fault = PositionFault(end->x, end->y);
        if (fault != PASSED_OVER::NO) return fault;
    }
    record.leg = MakeLeg(record.sol, record.eol);
    return PASSED_OVER::NO;
}

}  // namespace

bool CSailLine::Read(std::string_view newPath) {
    return Read(newPath, LoadDataOrder(GetFiles(), std::string(newPath)));
}

bool CSailLine::Read(std::string_view newPath, std::int32_t order) {
    SetPathAndLoad(std::string(newPath));
    dataOrder = order;
    const bool taken = ReadLines();
    LoadDrawing(GetFiles(), GetDataFolder(GetFiles(), kFolder), GetName());
    return taken;
}

bool CSailLine::ReadLines() {
    RemoveAll();
    SetStub(false);
    CStdioFile file(GetFiles());
    const bool taken = OpenData(file, GetPath(), report) && ReadFrom(file);
    SetReadStamp(file.GetStamp());
    return taken;
}

bool CSailLine::ReadFrom(CStdioFile& file) {
    SetStub(false);
    const auto decode = [this](std::string_view line, SailLineDef& record) {
        return DecodeLine(line, dataOrder, record);
    };
    Adopt(ReadRecords<SailLineDef>(file, decode, report));
    return !IsEmpty();
}

bool CSailLine::ReadAgain() {
    CStdioFile file(GetFiles());
    if (!OpenData(file, GetPath(), report)) return false;
    const bool taken = IsStub() ? Read(GetPath()) : ReadFrom(file);
    if (!taken) {
        AddEmpty();
        SetStub(true);
    }
    SetReadStamp(file.GetStamp());
    return true;
}

void CSailLine::MakeStub(std::string_view path) {
    SetPathAndLoad(path);
    AddEmpty();
    SetStub(true);
}

bool CSailLine::FollowStored() {
    const bool flags = FollowCommon();
    const bool drawing = FollowDrawing(GetFiles(), GetDataFolder(GetFiles(), kFolder), GetName());
    const std::int32_t order = StoredDataOrder(GetFiles(), GetName()).value_or(dataOrder);
    const bool reordered = std::exchange(dataOrder, order) != order;
    if (reordered) ReadAgain();
    return flags || drawing || reordered;
}

bool CSailLine::ReadStored() {
    const CDrawingOptions drawing = *this;
    const bool flags = ReadCommon();
    LoadDrawing(GetFiles(), GetDataFolder(GetFiles(), kFolder), GetName());
    const std::int32_t order = LoadDataOrder(GetFiles(), GetPath());
    const bool reordered = std::exchange(dataOrder, order) != order;
    if (reordered) ReadAgain();
    return flags || reordered || drawing != *this;
}

void CSailLine::SaveDrawingOptions() {
    SaveDrawing(GetFiles(), GetDataFolder(GetFiles(), kFolder), GetName());
}

void CSailLine::SaveOrder() const {
    SaveDataOrder(GetFiles(), GetName(), dataOrder);
}

void CSailLineList::SetEditCursor(int fileIndex, int pointIndex) {
    const std::int16_t third = editState.thirdIndex;
    CFileListBase::SetEditCursor(fileIndex, pointIndex);
    if (editState.editPointIndex >= 0) editState.thirdIndex = third;
}

bool CSailLineList::AppendFile(std::string_view path, bool) {
    auto lines = std::make_unique<CSailLine>(GetFiles());
    if (!lines->Read(path)) lines->MakeStub(path);
    Append(std::move(lines));
    return true;
}

}  // namespace quillon
