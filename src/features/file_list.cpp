#include "features/file_list.h"

#include <limits>
#include <string>
#include <unordered_set>

#include "foundation/config_file.h"
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

std::vector<std::string> CFileListBase::GetPaths() const {
    std::vector<std::string> paths;
    paths.reserve(static_cast<std::size_t>(GetCount()));
    for (int i = 0; i < GetCount(); ++i) paths.push_back(GetPath(i));
    return paths;
}

void LoadFileList(CFileListBase& list) {
    CConfigFile paths(list.GetFiles());
    if (paths.OpenForRead(list.GetSettingsName(), "FLS")) {
        std::string_view line;
        paths.ReadLine(line);  // the section's head
        // In capitals, so that no path costs a look at every member.
        std::unordered_set<std::string> held;
        for (const std::string& path : list.GetPaths()) held.insert(ToUpper(path));
        while (paths.ReadLine(line)) {
            if (Trim(line).empty() || held.contains(ToUpper(line))) continue;
            const int before = list.GetCount();
            list.AppendFile(line, true);
            for (int i = before; i < list.GetCount(); ++i) held.insert(ToUpper(list.GetPath(i)));
        }
    }
    CConfigFile indexes(list.GetFiles());
    if (!list.HasCursorFile() || !indexes.OpenForRead(list.GetSettingsName())) return;
    const int file = indexes.ReadInt(-1);
    const int point = indexes.ReadInt(-1);
    list.SetEditCursor(file, point);
}

}  // namespace quillon
