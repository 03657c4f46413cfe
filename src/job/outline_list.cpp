#include "job/outline_list.h"

#include <algorithm>
#include <iterator>

#include "foundation/folders.h"
#include "foundation/paths.h"
#include "foundation/settings_lines.h"
#include "platform/errors.h"
#include "platform/text.h"

namespace quillon {

/// What the list's file holds of a member.
struct OutlineEntry {
    std::string name;
    bool placed = false;
    tagXY place;
};

template <class Lines>
void EachLine(Lines& lines, RecordOf<OutlineEntry> auto& entry) {
    lines.Text("Name", entry.name);
    lines.Bool("Placed", entry.placed);
    lines.Double("Easting", entry.place.x, 3);
    lines.Double("Northing", entry.place.y, 3);
}

namespace {

constexpr std::string_view kNotInNames = "\\/:*?\"<>|";

bool IsSamePlace(const GridWaypointDef& a, const GridWaypointDef& b) {
    return a.easting == b.easting && a.northing == b.northing;
}

bool AreEqual(const GridWaypointDef& a, const GridWaypointDef& b) {
    return IsSamePlace(a, b) && a.height == b.height && a.name == b.name && a.radius == b.radius;
}

bool AreEqual(const SailLineDef& a, const SailLineDef& b) {
    return a.sol == b.sol && a.eol == b.eol;
}

template <class Records, class Is>
int FindRecord(const Records& records, Is is) {
    const auto found = std::find_if(records.begin(), records.end(), is);
    return found == records.end() ? -1 : static_cast<int>(found - records.begin());
}

/// Where a waypoint is now that stood at `index`: where its name is, else where its position is; one without a name may
/// have moved. -1 if it is gone.
int FindAgain(const CGridWaypoint& points, const GridWaypointDef& held, int index) {
    const bool there = index >= 0 && index < points.GetSize();
    if (there && points[index].name == held.name && (!held.name.empty() || IsSamePlace(points[index], held))) {
        return index;
    }
    const auto isNamed = [&held](const GridWaypointDef& point) { return point.name == held.name; };
    const auto isThere = [&held](const GridWaypointDef& point) { return IsSamePlace(point, held); };
    const int named = held.name.empty() ? -1 : FindRecord(points, isNamed);
    if (named >= 0) return named;
    const int placed = FindRecord(points, isThere);
    if (placed >= 0) return placed;
    return there && held.name.empty() && points[index].name.empty() ? index : -1;
}

/// Lines have no names: one with other ends at the old place is the same, moved.
int FindAgain(const CSailLine& lines, const SailLineDef& held, int index) {
    const auto isEqual = [&held](const SailLineDef& line) { return AreEqual(line, held); };
    const bool there = index >= 0 && index < lines.GetSize();
    if (there && isEqual(lines[index])) return index;
    const int found = FindRecord(lines, isEqual);
    return found >= 0 ? found : there ? index : -1;
}

template <class List>
std::string PathAt(const List& list, int index) {
    return list.IsValidIndex(index) ? list.GetPath(index) : std::string();
}

}  // namespace

// ---- The list ----

const COutlineList::Member& COutlineList::At(int index) const {
    if (!IsValidIndex(index)) throw InvalidArgument("list index out of range");
    return members[static_cast<std::size_t>(index)];
}

COutline& COutlineList::operator[](int index) const {
    return *At(index).object;
}

int COutlineList::Find(std::string_view name) const {
    for (int i = 0; i < GetCount(); ++i) {
        if (EqualNoCase((*this)[i].name, name)) return i;
    }
    return -1;
}

COutlineList::Member COutlineList::MakeMember(std::string_view name) const {
    Member member{.object = Make(), .place = {}, .waypoint = {}, .sailLine = {}};
    COutline& object = *member.object;
    object.name = name;
    object.waypointFiles = &sources.waypoints;
    object.sailLineFiles = &sources.sailLines;
    object.geodesy = &sources.geodesy;
    return member;
}

int COutlineList::Append(Member member) {
    NoteSources(member);
    members.push_back(std::move(member));
    current = GetCount() - 1;
    Save();
    return current;
}

void COutlineList::LoadMember(Member& member) const {
    COutline& object = *member.object;
    if (!object.Load(std::string(object.name))) {
        object.ClearWaypoint();
        object.ClearSailLine();
    }
    member.waypoint = member.sailLine = {};
    NoteSources(member);
}

void COutlineList::Load() {
    std::vector<Member> before = std::exchange(members, {});
    current = -1;
    CConfigFile file(files);
    const bool opened = file.OpenForRead(settingsName);
    const int shown = opened ? file.ReadInt(0) : -1;
    for (OutlineEntry entry; opened; entry = {}) {
        ReadLines(file, entry);
        if (entry.name.empty()) break;
        if (Find(entry.name) >= 0) continue;
        const auto held = std::find_if(before.begin(), before.end(), [&entry](const Member& member) {
            return member.object && EqualNoCase(member.object->name, entry.name);
        });
        Member member = held == before.end() ? MakeMember(entry.name) : std::move(*held);
        if (held == before.end()) LoadMember(member);
        member.place.reset();
        if (entry.placed) member.place = entry.place;
        members.push_back(std::move(member));
    }
    std::erase_if(before, [](const Member& member) { return !member.object; });
    std::move(before.begin(), before.end(), std::back_inserter(retired));
    current = IsValidIndex(shown) ? shown : GetCount() - 1;
}

bool COutlineList::ReadRestored(std::span<const std::string> paths) {
    const auto isAmong = [&paths](const std::string& path) {
        return std::any_of(paths.begin(), paths.end(),
                           [&](const std::string& other) { return EqualNoCase(path, other); });
    };
    bool read = false;
    for (Member& member : members) {
        if (!isAmong(member.object->SettingsPath())) continue;
        LoadMember(member);
        read = true;
    }
    if (!isAmong(GetSettingsPath(files, settingsName))) return read;
    Load();
    return true;
}

bool COutlineList::Save() const {
    CConfigFile file(files);
    if (!file.OpenSettingsForWrite(settingsName)) return false;
    file.WriteInt("Current", current);
    for (const Member& member : members) {
        WriteLines(file, OutlineEntry{.name = member.object->name,
                                      .placed = member.place.has_value(),
                                      .place = member.place.value_or(tagXY())});
    }
    return file.Commit();
}

void COutlineList::SetCurrent(int index) {
    if (!IsValidIndex(index) || index == current) return;
    current = index;
    Save();
}

void COutlineList::SetPlace(int index, std::optional<tagXY> place) {
    At(index).place = place;
    Save();
}

// ---- Members come and go ----

std::string COutlineList::Folder() const {
    return FolderOfPath(Make()->SettingsPath());
}

bool COutlineList::IsFree(std::string_view name, std::string& fault) const {
    if (Trim(name).empty() || Trim(name) != name || name.find_first_of(kNotInNames) != std::string_view::npos) {
        fault = Format("A name is needed, without blanks around it and without %s", std::string(kNotInNames).c_str());
        return false;
    }
    const auto probe = MakeMember(name);
    if (Find(name) < 0 && !files.Exists(probe.object->SettingsPath())) return true;
    fault = Format("%s is there already", probe.object->SettingsPath().c_str());
    return false;
}

int COutlineList::AddNew(std::string_view name, std::string_view outlineFile, std::string& fault) {
    if (!IsFree(name, fault)) return -1;
    Member member = MakeMember(name);
    COutline& object = *member.object;
    object.ClearWaypoint();
    object.ClearSailLine();
    object.UpdateAlignment();
    object.outlineFile = outlineFile;
    if (!object.LoadOutline()) {
        fault = Format("%s can't be read", object.outlineFile.c_str());
        return -1;
    }
    object.TakeExtent();
    object.UpdateZones();
    if (!object.Save()) {
        fault = Format("%s can't be written", object.SettingsPath().c_str());
        return -1;
    }
    return Append(std::move(member));
}

int COutlineList::Open(std::string_view path, std::string& fault) {
    const std::string name = SplitPath(path).name;
    if (const int held = Find(name); held >= 0 && EqualNoCase((*this)[held].SettingsPath(), path)) {
        SetCurrent(held);
        return held;
    }
    Member member = MakeMember(name);
    COutline& object = *member.object;
    if (EqualNoCase(object.SettingsPath(), path)) {
        if (object.Load(name)) return Append(std::move(member));
        fault = Format("%s can't be read", std::string(path).c_str());
        return -1;
    }
    if (!IsFree(name, fault)) return -1;
    if (!object.ReadSettings(path)) {
        fault = Format("%s can't be read", std::string(path).c_str());
        return -1;
    }
    if (!object.Save() || !object.Load(name)) {
        fault = Format("%s can't be written", object.SettingsPath().c_str());
        return -1;
    }
    return Append(std::move(member));
}

void COutlineList::RemoveAt(int index) {
    At(index);
    members.erase(members.begin() + index);
    if (current > index || current == GetCount()) --current;
    Save();
}

bool COutlineList::SetOutlineFile(int index, std::string_view path, std::string& fault) {
    COutline& object = (*this)[index];
    const std::string before = std::exchange(object.outlineFile, std::string(path));
    if (!object.LoadOutline()) {
        fault = Format("%s can't be read", object.outlineFile.c_str());
        object.outlineFile = before;
        object.LoadOutline();
        return false;
    }
    object.TakeExtent();
    if (object.Save()) return true;
    fault = Format("%s can't be written", object.SettingsPath().c_str());
    return false;
}

// ---- Targets ----

/// Where the targets are now, for the next look.
void COutlineList::NoteSources(Member& member) const {
    const COutline& object = *member.object;
    member.waypoint = {object.waypointValid ? PathAt(sources.waypoints, object.waypointFileIndex) : "",
                       {object.waypointFileIndex, object.waypointIndex}};
    member.sailLine = {object.sailLineValid ? PathAt(sources.sailLines, object.sailLineFileIndex) : "",
                       {object.sailLineFileIndex, object.sailLineIndex}};
}

/// Where a target is now; -1 if it is gone. None where it is as it was, or where its owner has chosen another since.
template <class List, class Held>
std::optional<COutlineList::Place> COutlineList::LookAgain(const List& list, const Source& seen, const Place& at,
                                                           const Held& held) {
    if (seen.path.empty() || seen.at != at) return std::nullopt;
    const int file = list.Find(seen.path);
    const int index = file < 0 ? -1 : FindAgain(list[file], held, at.index);
    if (index < 0) return Place{};
    const Place now = {file, index};
    return now == at && AreEqual(list[file][index], held) ? std::nullopt : std::optional(now);
}

bool COutlineList::FollowWaypoint(Member& member) {
    COutline& object = *member.object;
    const Place at = {object.waypointFileIndex, object.waypointIndex};
    const auto now = LookAgain(sources.waypoints, member.waypoint, at, object.waypoint);
    if (now) now->file < 0 ? object.ClearWaypoint() : object.SetWaypoint(now->file, now->index);
    return now.has_value();
}

bool COutlineList::FollowSailLine(Member& member) {
    COutline& object = *member.object;
    const Place at = {object.sailLineFileIndex, object.sailLineIndex};
    const auto now = LookAgain(sources.sailLines, member.sailLine, at, object.sailLine);
    if (now) now->file < 0 ? object.ClearSailLine() : object.SetSailLine(now->file, now->index);
    return now.has_value();
}

bool COutlineList::FollowSources() {
    bool followed = false;
    for (Member& member : members) {
        COutline& object = *member.object;
        const double convergence = object.convergence;
        const bool waypoint = FollowWaypoint(member);
        const bool sailLine = FollowSailLine(member);
        NoteSources(member);
        object.UpdateConvergence();
        const bool turned = object.convergence != convergence;
        if (!waypoint && !sailLine && !turned) continue;
        if (turned) {
            object.UpdateAlignment();
            object.UpdateZones();
        }
        object.UpdateBox();
        object.TrackedPosition();
        object.Save();
        followed = true;
    }
    return followed;
}

}  // namespace quillon
