#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "features/source_file.h"
#include "foundation/settings_lines.h"
#include "platform/file.h"

namespace quillon {

/// What every feature has: the data file that it is, known by its path, and two flags kept in a settings file beside
/// that file.
class CFeatureCommon : public CSourceFile {
public:
    explicit CFeatureCommon(FileSystem& fileSystem) : files(fileSystem) {}

    /// Takes the path apart and reads the flags of the file beside it; a line that is missing, or the whole file, gives
    /// displayed and not highlighted. An empty path empties all three texts.
    void SetPathAndLoad(std::string_view newPath);
    /// Writes the flags; one that another feature of the same data file has stored meanwhile is taken over first.
    /// Skipped if the file can't be written.
    void SaveCommon();
    /// Takes over what another feature of the same data file has stored; false if nothing.
    bool FollowCommon();
    /// Reads the flags as they are stored; false if they are what they were.
    bool ReadCommon();
    /// Writes the flags if they aren't what is stored. Where that failed, it is tried again when they change.
    void KeepCommon();

    const std::string& GetPath() const { return path; }
    /// Ends in a separator.
    const std::string& GetFolder() const { return folder; }
    /// Without folder and extension.
    const std::string& GetName() const { return name; }
    FileSystem& GetFiles() const { return files; }
    /// Whether what the feature holds stands in for a file of no use and is no data: not to be drawn, measured or
    /// saved.
    bool IsStub() const { return stub; }

    bool Status = true;      ///< the feature is displayed
    bool Highlight = false;  ///< the feature is shown on the cross profile

protected:
    void SetStub(bool stands) { stub = stands; }

private:
    bool HasFlagsFile() const;

    FileSystem& files;
    std::string path;
    std::string folder;
    std::string name;
    bool stub = false;
    StoredLines storedFlags;
    std::optional<std::array<bool, 2>> triedFlags;  ///< the last that KeepCommon wrote, or tried to
};

}  // namespace quillon
