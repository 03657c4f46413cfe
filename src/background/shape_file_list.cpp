#include "background/shape_file_list.h"

#include <algorithm>

#include "foundation/config_file.h"
#include "platform/text.h"

namespace quillon {

int CPathList::Add(std::string_view path) {
    const auto found = std::find(paths.begin(), paths.end(), path);
    if (found != paths.end()) return static_cast<int>(found - paths.begin());
    paths.emplace_back(path);
    const std::size_t separator = path.find_last_of("\\/");
    folder = separator == std::string_view::npos ? std::string_view() : path.substr(0, separator);
    return static_cast<int>(paths.size()) - 1;
}

bool CShapeFileList::Save() const {
    CConfigFile file(fileSystem);
    if (!file.OpenSettingsForWrite(name, "FLS")) return false;
    file.WriteSection(name, files.paths);
    return file.Commit();
}

void CShapeFileList::ReadFiles() {
    CConfigFile file(fileSystem);
    std::string_view line;
    if (!file.OpenForRead(name, "FLS")) return;
    file.ReadLine(line);  // the section's head
    while (file.ReadLine(line)) {
        if (!Trim(line).empty()) files.Add(Trim(line));
    }
}

bool LoadShapeHere(CShape& shape) {
    LoadProgress progress;
    return LoadShape(shape, progress);
}

bool LoadShapeFile(std::string_view path, CShapeFileList& list, const ShapeLoad& load) {
    auto shape = std::make_unique<CShape>(list.GetFiles());
    shape->SetPath(path);
    if (!load(*shape)) return false;
    list.shapes.push_back(std::move(shape));
    list.changed = true;
    return true;
}

void LoadShapeFiles(CShapeFileList& list, const ShapeLoad& load) {
    for (const std::string& path : list.files.paths) LoadShapeFile(path, list, load);
}

bool AddShapeFile(std::string_view path, CShapeFileList& list, const ShapeLoad& load) {
    const bool loaded = std::any_of(list.shapes.begin(), list.shapes.end(),
                                    [path](const auto& shape) { return EqualNoCase(shape->GetPath() + ".shp", path); });
    if (loaded || !LoadShapeFile(path, list, load)) return false;
    list.files.Add(path);
    list.Save();
    return true;
}

}  // namespace quillon
