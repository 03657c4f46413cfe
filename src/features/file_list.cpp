#include "features/file_list.h"

#include <limits>
#include <string>
#include <unordered_set>

#include "foundation/config_file.h"
#include "foundation/folders.h"
#include "platform/text.h"

namespace quillon {

int CFileListBase::Find(std::string_view path) const {
    for (int i = 0; i < GetCount(); ++i) {
        if (EqualNoCase(GetPath(i), path)) return i;
    }
    return -1;
}

bool CFileListBase::Add(std::string_view path) {
    if (Find(path) >= 0) return true;
    if (!AppendFile(path, false)) return false;
    Save();
    return true;
}

void CFileListBase::SetEditCursor(int fileIndex, int pointIndex) {
    const int file = fileIndex < 0 ? editState.editFileIndex : fileIndex;
    const int point = pointIndex < 0 ? editState.editPointIndex : pointIndex;
    editState = {};
    if (!IsValidIndex(file) || file > std::numeric_limits<std::int16_t>::max()) return;
    editState.editFileIndex = static_cast<std::int16_t>(file);
    if (point >= 0 && point < GetPointCount(file)) editState.editPointIndex = point;
}

bool CFileListBase::Save() const {
    CConfigFile indexes(files);
    if (HasCursorFile() && indexes.OpenSettingsForWrite(settingsName)) {
        indexes.WriteInt("Edit File Index", editState.editFileIndex);
        indexes.WriteInt("Edit Point Index", editState.editPointIndex);
        indexes.Commit();
    }
    CConfigFile paths(files);
    if (!paths.OpenSettingsForWrite(settingsName, "FLS")) return false;
    paths.WriteSection(GetSection(), GetPaths());
    return paths.Commit();
}

std::vector<CFileListBase::Changed> CFileListBase::ChangedOnDisk() const {
    std::vector<Changed> all;
    for (int i = 0; i < GetCount(); ++i) {
        const CSourceFile* const source = GetSource(i);
        const DISK_CHANGE change = source ? source->ChangeOnDisk(files, GetPath(i)) : DISK_CHANGE::NONE;
        if (change != DISK_CHANGE::NONE) all.push_back({i, change});
    }
    return all;
}

bool CFileListBase::ReadAgain(int index) {
    if (!ReadMemberAgain(index)) return false;
    if (editState.editFileIndex == index) SetEditCursor(-1, -1);
    changed = true;
    return true;
}

bool CFileListBase::ReadWhole(int index) {
    // Copied: the member goes.
    const std::string path = GetPath(index);
    if (!AppendFile(path, true)) return false;
    RemoveAt(index);
    MoveMember(GetCount() - 1, index);
    if (editState.editFileIndex == index) SetEditCursor(-1, -1);
    changed = true;
    return true;
}

// ---- The list's own files ----

bool CFileListBase::IsPathsFile(std::string_view path) const {
    return EqualNoCase(path, GetSettingsPath(files, settingsName, "FLS"));
}

bool CFileListBase::IsCursorFile(std::string_view path) const {
    return HasCursorFile() && EqualNoCase(path, GetSettingsPath(files, settingsName));
}

/// Each once, regardless of case.
std::vector<std::string> CFileListBase::StoredPaths() const {
    std::vector<std::string> stored;
    std::unordered_set<std::string> seen;
    CConfigFile file(files);
    if (!file.OpenForRead(settingsName, "FLS")) return stored;
    std::string_view line;
    file.ReadLine(line);  // the section's head
    while (file.ReadLine(line)) {
        if (!Trim(line).empty() && seen.insert(ToUpper(line)).second) stored.emplace_back(line);
    }
    return stored;
}

std::vector<int> CFileListBase::ReadPathsAgain() {
    std::unordered_set<std::string> held;
    for (const std::string& path : GetPaths()) held.insert(ToUpper(path));
    std::vector<int> came;
    int place = 0;
    for (const std::string& path : StoredPaths()) {
        const bool stays = held.contains(ToUpper(path));
        if (!stays && !AppendFile(path, true)) continue;
        int member = stays ? place : GetCount() - 1;
        // One that stays is nearly always the next.
        while (stays && !EqualNoCase(GetPath(member), path)) ++member;
        if (!stays) came.push_back(place);
        MoveMember(member, place++);
    }
    while (GetCount() > place) RemoveAt(GetCount() - 1);
    return came;
}

void CFileListBase::ReadCursorAgain() {
    CConfigFile indexes(files);
    if (!HasCursorFile()) return;
    ResetEditCursor();
    if (!indexes.OpenForRead(settingsName)) return;
    const int file = indexes.ReadInt(-1);
    const int point = indexes.ReadInt(-1);
    SetEditCursor(file, point);
}

std::vector<std::string> CFileListBase::GetPaths() const {
    std::vector<std::string> paths;
    paths.reserve(static_cast<std::size_t>(GetCount()));
    for (int i = 0; i < GetCount(); ++i) paths.push_back(GetPath(i));
    return paths;
}

void LoadFileList(CFileListBase& list) {
    list.ReadPathsAgain();
    list.ReadCursorAgain();
}

}  // namespace quillon
