#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "background/shape.h"
#include "foundation/read_report.h"

namespace quillon {

/// Paths of files in their order, none of them twice by its exact text.
struct CPathList {
    std::vector<std::string> paths;
    std::string folder;  ///< of the path added last, without its separator

    /// The place of the path in the list, where it is put if it isn't there.
    int Add(std::string_view path);
};

/// The shape files of a job. The list owns those that are loaded; `files` names those that belong to the job, whether
/// they could be loaded or not, and is what its settings file holds.
class CShapeFileList {
public:
    explicit CShapeFileList(FileSystem& fileSystem) : fileSystem(fileSystem) {}

    /// Whoever draws a shape holds on to it.
    std::vector<std::shared_ptr<CShape>> shapes;
    CPathList files;
    std::string name;      ///< of the settings file, set by the host before anything else
    bool changed = false;  ///< set by a load; clearing it is the host's

    FileSystem& GetFiles() const { return fileSystem; }
    /// The loaded shape of a path; null if there is none.
    std::shared_ptr<CShape> Find(std::string_view path) const;
    /// What the last load made of the file of a path, counted in records.
    const ReadReport& ReportOf(std::string_view path) const;
    /// Takes in a shape whose load has ended, and notes what became of it. False, and it isn't kept, unless it was
    /// `loaded`.
    bool Take(std::shared_ptr<CShape> shape, bool loaded);
    /// Reads the file of a path anew, in the place of what was read before; its settings stay what its settings file
    /// says. False, with the shape as it was, if it can't be read.
    bool ReadAgain(std::string_view path);
    /// Takes path and shape out; nothing is saved.
    void Remove(std::string_view path);
    /// Rewrites the settings file. False if it can't be written.
    bool Save() const;
    /// The host's side at its start: takes the paths of the settings file over. Loads none of them.
    void ReadFiles();

private:
    FileSystem& fileSystem;
    std::map<std::string, ReadReport, std::less<>> reports;
};

/// Runs the load of one shape and says whether it went to its end: a dialog with a progress bar, or LoadShape itself.
using ShapeLoad = std::function<bool(CShape& shape)>;
/// Loads on this thread, without a way to stop it.
bool LoadShapeHere(CShape& shape);

/// Loads a shape file and puts it at the end of the list. False, and nothing is kept, if it can't be read or the load
/// was stopped.
bool LoadShapeFile(std::string_view path, CShapeFileList& list, const ShapeLoad& load = LoadShapeHere);
/// Loads all files of the list, in their order.
void LoadShapeFiles(CShapeFileList& list, const ShapeLoad& load = LoadShapeHere);
/// Loads a further file and records it in the list's settings file; the shape stays if that can't be written. False if
/// it can't be loaded, or if the path is that of a loaded shape with ".shp" behind it.
bool AddShapeFile(std::string_view path, CShapeFileList& list, const ShapeLoad& load = LoadShapeHere);

}  // namespace quillon
