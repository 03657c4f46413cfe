#include "features/route.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "features/corridor_mitre.h"
#include "features/leg.h"
#include "features/record_reader.h"
#include "foundation/config_file.h"
#include "foundation/delimited_line.h"
#include "foundation/field_scanner.h"
#include "foundation/folders.h"
#include "foundation/paths.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::string_view kFolder = "Routes";
constexpr int kDecimals = 3;

/// How far the chord of a stepped arc may leave the curve, metres.
constexpr double kArcTolerance = 1.0;
/// Steps of one arc at most: more than any curve that a vessel sails needs.
constexpr int kMostSteps = 1'000'000;

void SetLeg(RouteDef& record, tagXY next) {
    const LegDef leg = MakeLeg(record.position, next);
    record.range = leg.range;
    record.bearing = leg.bearing;
    record.sine = leg.sine;
    record.cosine = leg.cosine;
    record.reverseBearing = leg.reverseBearing;
    record.kpScale = leg.range > 0.0 ? (leg.range / 1000.0) / leg.range : 1.0;
}

void AddPosition(CStdioFile& file, tagXY position) {
    CDelimitedLine line;
    line.AddNumber(position.x, kDecimals);
    line.AddNumber(position.y, kDecimals);
    file.WriteString(line.Finish());
}

/// Start, arc in steps, end.
void AddCurve(CStdioFile& file, const RouteDef& record) {
    AddPosition(file, record.curveStart);
    const double step = std::acos((record.radius - kArcTolerance) / record.radius);
    const double direction = record.direction < 0 ? -1.0 : 1.0;
    for (int i = 0; i < kMostSteps && step > 0.0 && i * step < record.sweep; ++i) {
        const double angle = record.startRadial + direction * (i * step);
        AddPosition(file, {record.radius * std::sin(angle) + record.centre.x,
                           record.radius * std::cos(angle) + record.centre.y});
    }
    AddPosition(file, record.curveEnd);
}

}  // namespace

// ---- Reading ----

bool CRoute::Read(std::string_view newPath) {
    return Read(newPath, LoadDataOrder(GetFiles(), std::string(newPath)));
}

bool CRoute::Read(std::string_view newPath, std::int32_t order) {
    // The path may be this object's own.
    SetPathAndLoad(std::string(newPath));
    dataOrder = order;
    const bool taken = ReadPoints();
    LoadDrawing(GetFiles(), GetDataFolder(GetFiles(), kFolder), GetName());
    LoadCorridor(GetFiles(), GetName());
    ComputeCorridor();
    return taken;
}

bool CRoute::ReadPoints() {
    RemoveAll();
    SetStub(false);
    firstWork = -2;
    secondWork = -1;
    CStdioFile file(GetFiles());
    const bool taken = OpenData(file, GetPath(), report) && ReadFrom(file);
    SetReadStamp(file.GetStamp());
    return taken;
}

bool CRoute::ReadFrom(CStdioFile& file) {
    SetStub(false);
    const auto decode = [this](std::string_view line, RouteDef& record) {
        return DecodeRoutePoint(line, dataOrder, record);
    };
    Adopt(ReadRecords<RouteDef>(file, decode, report));
    readOrder = dataOrder;
    FillLegs();
    RenewNames();
    return !IsEmpty();
}

bool CRoute::ReadAgain() {
    CStdioFile file(GetFiles());
    if (!OpenData(file, GetPath(), report)) return false;
    const bool taken = IsStub() ? Read(GetPath()) : ReadFrom(file);
    if (!taken) AddStubRecord();
    SetReadStamp(file.GetStamp());
    ComputeCorridor();
    return true;
}

void CRoute::RenewNames() {
    if (dataOrder != 0) return;
    for (Index i = 0; i < GetSize(); ++i) (*this)[i].name = RoutePointName(i);
}

void CRoute::FillLegs() {
    for (Index i = 0; i < GetSize(); ++i) {
        RouteDef& record = (*this)[i];
        if (i > 0) record.kp = (*this)[i - 1].range + (*this)[i - 1].kp;
        if (i + 1 < GetSize()) SetLeg(record, (*this)[i + 1].position);
    }
}

void CRoute::MakeStub(std::string_view path) {
    SetPathAndLoad(path);
    AddStubRecord();
}

void CRoute::AddStubRecord() {
    Add(RouteDef());
    SetStub(true);
}

// ---- Saving ----

void CRoute::SaveCorridorOptions() {
    if (FollowCorridor(GetFiles(), GetName())) ComputeCorridor();
    SaveCorridor(GetFiles(), GetName());
}

bool CRoute::FollowStored() {
    const bool flags = FollowCommon();
    const bool drawing = FollowDrawing(GetFiles(), GetDataFolder(GetFiles(), kFolder), GetName());
    const bool corridor = FollowCorridor(GetFiles(), GetName());
    const std::int32_t order = StoredDataOrder(GetFiles(), GetName()).value_or(dataOrder);
    const bool reordered = std::exchange(dataOrder, order) != order;
    if (reordered) ReadAgain();
    if (corridor) ComputeCorridor();
    return flags || drawing || corridor || reordered;
}

bool CRoute::ReadStored() {
    const CDrawingOptions drawing = *this;
    const CCorridor corridor = *this;
    const bool flags = ReadCommon();
    LoadDrawing(GetFiles(), GetDataFolder(GetFiles(), kFolder), GetName());
    LoadCorridor(GetFiles(), GetName());
    const std::int32_t order = LoadDataOrder(GetFiles(), GetPath());
    const bool reordered = std::exchange(dataOrder, order) != order;
    if (reordered) ReadAgain();
    ComputeCorridor();
    return flags || reordered || drawing != *this || corridor != *this;
}

void CRoute::SaveDrawingOptions() {
    SaveDrawing(GetFiles(), GetDataFolder(GetFiles(), kFolder), GetName());
}

const RouteSave& CRoute::SaveRoute() {
    CRouteRewrite rewrite(*this);
    // A file of no use keeps the order that was chosen for it.
    if (IsStub() || IsEmpty()) SaveOrder();
    lastSave = rewrite.Commit();
    SaveCommon();
    return lastSave;
}

// ---- Corridor ----

void CRoute::ComputeCorridor() {
    const Index count = GetSize();
    if (count < 2) return;
    const CorridorWidths widths{portWidth, starboardWidth};
    for (Index i = 0; i < count; ++i) {
        RouteDef& record = (*this)[i];
        const RouteDef& leg = (*this)[std::min(i, count - 2)];
        const bool end = i == 0 || i == count - 1;
        const CorridorCorner corner =
            end ? SquareCorner(record.position, leg.sine, leg.cosine, widths)
                : MitreCorner((*this)[i - 1].position, record.position, (*this)[i + 1].position, widths);
        record.portCorridorStart = corner.port;
        record.starboardCorridorStart = corner.starboard;
    }
}

// ---- Coordinate list ----

bool CRoute::WriteCoordinateList() const {
    if (GetSize() < 2) return false;
    CStdioFile file(GetFiles());
    const std::string folder = GetDataFolder(GetFiles(), kFolder);
    if (!file.OpenForWriting(folder + GetName() + "_CoordList.CSV", FILE_MODE::BINARY)) return false;
    file.SetIsResult();
    for (Index i = 0; i < GetSize(); ++i) {
        const RouteDef& record = (*this)[i];
        if (i == 0 || i == GetUpperBound() || record.radius == 0.0) {
            AddPosition(file, record.position);
        } else {
            AddCurve(file, record);
        }
    }
    return file.Commit();
}

// ---- The list ----

bool CRouteList::AppendFile(std::string_view path, bool) {
    auto route = std::make_unique<CRoute>(GetFiles());
    if (!route->Read(path)) route->MakeStub(path);
    Append(std::move(route));
    return true;
}

}  // namespace quillon
