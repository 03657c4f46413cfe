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

std::shared_ptr<CShape> CShapeFileList::Find(std::string_view path) const {
    const auto found =
        std::find_if(shapes.begin(), shapes.end(), [path](const auto& shape) { return shape->GetPath() == path; });
    return found == shapes.end() ? nullptr : *found;
}

const ReadReport& CShapeFileList::ReportOf(std::string_view path) const {
    static const ReadReport kNotLoaded = [] {
        ReadReport report;
        report.opened = true;
        report.fault = "not loaded";
        return report;
    }();
    const auto found = reports.find(path);
    return found == reports.end() ? kNotLoaded : found->second;
}

bool CShapeFileList::Take(std::shared_ptr<CShape> shape, bool loaded) {
    ReadReport& report = reports[shape->GetPath()];
    report = LinesOf(shape->report);
    if (!loaded && report.fault.empty()) report.fault = "the load was stopped";
    if (!loaded) return false;
    if (shape->hasTakenColumn) shape->WriteSettings();
    shapes.push_back(std::move(shape));
    changed = true;
    return true;
}

bool CShapeFileList::ReadAgain(std::string_view path) {
    auto fresh = std::make_shared<CShape>(fileSystem);
    fresh->SetPath(path);
    if (!LoadShapeHere(*fresh)) return false;
    std::erase_if(shapes, [path](const auto& shape) { return shape->GetPath() == path; });
    return Take(std::move(fresh), true);
}

void CShapeFileList::Remove(std::string_view path) {
    const std::string gone(path);
    std::erase(files.paths, gone);
    std::erase_if(shapes, [&gone](const auto& shape) { return shape->GetPath() == gone; });
    reports.erase(gone);
}

bool LoadShapeHere(CShape& shape) {
    LoadProgress progress;
    return LoadShape(shape, progress, &shape.report);
}

bool LoadShapeFile(std::string_view path, CShapeFileList& list, const ShapeLoad& load) {
    auto shape = std::make_shared<CShape>(list.GetFiles());
    shape->SetPath(path);
    const bool loaded = load(*shape);
    return list.Take(std::move(shape), loaded);
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
