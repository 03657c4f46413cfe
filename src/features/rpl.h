#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "features/file_list.h"
#include "features/rpl_curves.h"
#include "features/source_file.h"
#include "foundation/config_file.h"
#include "foundation/settings_lines.h"

namespace quillon {

/// What the settings file of a route position list holds.
struct RPLSettings {
    bool use = true;
    bool displayCorridor = false;
    double portCorridor = 100.0;
    double starboardCorridor = 100.0;
    tagPen corridorPen{.style = 5, .thickness = 0, .colour = 0x80, .fill = 0};
    tagPen linePen{.style = 0, .thickness = 2, .colour = RGB(0, 0, 255), .fill = 0};
    std::int16_t diameter = 0;  ///< inches
    double clearance = 10.0;    ///< anchor cable alarm distance, metres
    double tolerance = 25.0;    ///< added to the clearance for the second alarm level
    friend bool operator==(const RPLSettings&, const RPLSettings&) = default;
};

/// A route position list: the planned route of a cable or pipe as a designer hands it over, straight legs joined by
/// circular curves, with its tangent points, centres, KPs and corridor worked out. Its points don't change once they
/// are loaded; a new width of the corridor takes effect at the next load.
class CRPL : public CArray<RPLDef>, public RPLSettings, public CSourceFile {
public:
    explicit CRPL(FileSystem& fileSystem) : files(fileSystem) {}
    virtual ~CRPL() = default;

    /// Reads the settings, then the file. False where it can't be opened, is in no form that is known, or is an RLX
    /// file without a row. A file of any other form may give a list without points.
    bool Load(std::string_view path);
    /// As Load, but with the settings as they stand.
    bool LoadData(std::string_view path);
    /// The records alone, from an opened file.
    bool ReadFrom(CStdioFile& file, bool isRlx);
    /// Reads the records anew, with the settings as they stand. False, with the records as they were, if the file can't
    /// be opened.
    bool ReadAgain();
    /// Whether there is no data: nothing was loaded, or a file of no use.
    bool IsStub() const { return IsEmpty(); }

    void ReadSettings();
    /// What another list of that name has stored meanwhile is taken over first. Skipped if the file can't be written.
    void WriteSettings();
    /// Takes over what another list of that name has stored; false if nothing.
    bool FollowStored();
    /// Takes the settings as they are stored now, or those that hold without a file; false if nothing changed. For
    /// files that were put back.
    bool ReadStored();

    // The steps of loading.
    void ComputeCurvesFromRadii();
    void ComputeCurvesFromTangents();
    void ComputeCorridor();

    std::span<const RPLDef> GetRecords() const { return {GetData(), static_cast<std::size_t>(GetSize())}; }
    RPL_FORM GetForm() const { return form; }
    /// A list of tangent points has no corridor: its fields stay 0.
    bool HasCorridor() const { return form != RPL_FORM::TANGENT && GetSize() >= 2; }
    /// Along legs and arcs, kilometres.
    double GetLengthKm() const { return IsEmpty() ? 0.0 : (*this)[GetUpperBound()].kp; }

    const std::string& GetPath() const { return path; }
    void SetPath(std::string_view newPath) {
        path = newPath;
        stored = {};
    }

private:
    std::string SettingsName() const;
    bool IsRlx() const;
    void TakeRows(const std::vector<RplRow>& rows);
    std::span<RPLDef> Records() { return {GetData(), static_cast<std::size_t>(GetSize())}; }

    FileSystem& files;
    std::string path;
    RPL_FORM form = RPL_FORM::NONE;
    StoredLines stored;
};

/// The list keeps one file, GetSettingsPath("RPLs", "FLS"), under a head without a text, and no cursor file.
class CRPLList : public CFileList<CRPL> {
public:
    explicit CRPLList(FileSystem& fileSystem);

protected:
    /// A file that is no route position list is dropped.
    bool AppendFile(std::string_view path, bool keepUseless) override;
    std::string_view GetSection() const override { return {}; }
    bool HasCursorFile() const override { return false; }
};

}  // namespace quillon
