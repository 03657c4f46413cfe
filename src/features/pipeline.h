#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "features/file_list.h"
#include "features/source_file.h"
#include "foundation/config_file.h"
#include "foundation/settings_lines.h"
#include "foundation/values.h"

namespace quillon {

/// One point of a pipeline. Metres of the job's grid, kilometres for KPs, radians clockwise from grid north.
struct PipelineDef {
    double easting = 0.0;
    double northing = 0.0;
    double range = 0.0;    ///< of the leg to the next point; 0 on the last
    double bearing = 0.0;  ///< of that leg; 0 on the last point and on a leg of no length
    double sine = 0.0;
    double cosine = 0.0;
    double reverseBearing = 0.0;
    double kp = 0.0;
    double kpRate = 0.0;  ///< kilometres of KP per metre of the leg
    tagXY portCorridor;
    tagXY starboardCorridor;

    tagXY Position() const { return {easting, northing}; }
};

/// One KP label along a pipeline.
struct KPListingDef {
    double kp = 0.0;
    tagXY position;
    std::int32_t offsetX = 0;  ///< of the label, along the leg's normal, in drawing units
    std::int32_t offsetY = 0;  ///< positive downwards
    std::string text;
    std::int32_t rotation = 0;  ///< whole degrees, 0 to 359
};

class CPipelineArray : public CArray<PipelineDef> {};
class CKPListingArray : public CArray<KPListingDef> {};

inline constexpr std::array<std::string_view, 3> kPipelineOrderTxt = {"Easting, Northing", "KP, Easting, Northing",
                                                                      "Easting, Northing, KP"};

/// What the settings file of a pipeline holds.
struct PipelineSettings {
    std::int32_t dataOrder = 0;
    bool use = true;
    std::int16_t diameter = 0;  ///< inches
    bool displayCorridor = false;
    double portCorridor = 100.0;
    double starboardCorridor = 100.0;
    tagPen corridorPen;
    double clearance = 10.0;  ///< anchor cable alarm distance, metres
    double tolerance = 25.0;  ///< added to the clearance for the second alarm level
    tagPen linePen{.style = 0, .thickness = 2, .colour = RGB(0, 0, 255), .fill = 0};
    double startKp = 0.0;  ///< of the first point, where KPs are computed
    bool increasingKps = true;
    bool labelKps = false;
    double kpInterval = 1.0;  ///< kilometres between labels
    friend bool operator==(const PipelineSettings&, const PipelineSettings&) = default;
};

/// A pipeline laid on the sea bed: its points, what is worked out for every leg, its KP labels and its corridor.
///
/// The steps are separate, so that a change of a setting needs no new reading of the file: call the step that hangs on
/// what was changed.
class CPipeline : public CPipelineArray, public PipelineSettings, public CSourceFile {
public:
    explicit CPipeline(FileSystem& fileSystem) : files(fileSystem) {}
    virtual ~CPipeline() = default;

    /// Reads the settings, then the file by their data order, and computes everything. True if at least one point was
    /// taken.
    bool Load(std::string_view path);
    /// As Load, but with the settings as they stand.
    bool LoadData(std::string_view path);
    /// The points alone, from an opened file, and what is worked out from them. True if one was taken.
    bool ReadFrom(CStdioFile& file);
    /// Reads the points anew, with the settings as they stand. False, with the points as they were, if the file can't
    /// be opened.
    bool ReadAgain();
    /// Whether there is no data: nothing was loaded, or a file of no use.
    bool IsStub() const { return IsEmpty(); }
    /// Forgets the path, the points and the labels. The settings stay.
    void Clear();

    void ReadSettings();
    /// What another pipeline of that name (as the pipe route is) has stored meanwhile is taken over first. Skipped if
    /// the file can't be written.
    void WriteSettings();
    /// Takes over what another pipeline of that name has stored, with all that hangs on it; false if nothing.
    bool FollowStored();
    /// Reads everything but the data anew, as at a start, with all that hangs on it; the data only where their order is
    /// another. False if all is what it was.
    bool ReadStored();
    /// Notes this pipeline as the active one.
    void WriteActive() const;

    void ComputeLegs();
    /// KPs by length, for the data order without them; then the labels.
    void ComputeKps();
    void ComputeKpListing();
    void ComputeCorridor();

    const std::string& GetPath() const { return path; }
    /// Without a look at the file or its settings.
    void SetPath(std::string_view newPath);
    const CKPListingArray& GetKpListing() const { return kpListing; }
    /// Whether the interval asks for more labels than are listed: after a million, or where it is lost in the size of
    /// the KPs, the listing ends.
    bool IsKpListingCut() const { return kpListingCut; }

private:
    void Forget();
    std::string SettingsName() const;
    /// False if the listing ends in this leg.
    bool ListLeg(const PipelineDef& from, const PipelineDef& to, double& label,
                 std::vector<KPListingDef>& listed) const;

    FileSystem& files;
    std::string path;
    CKPListingArray kpListing;
    bool kpListingCut = false;
    StoredLines stored;
};

/// The path that the active pipeline file names; empty if there is none.
std::string ReadActivePipeline(FileSystem& files);

/// The text of a KP on a label: 3 decimals, without zeros at the end.
std::string KpText(double kp);

/// The list keeps one file, GetSettingsPath("Pipelines", "FLS"), under a head without a text, and no cursor file.
class CPipelineList : public CFileList<CPipeline> {
public:
    explicit CPipelineList(FileSystem& fileSystem);

protected:
    /// A file without a usable point is dropped.
    bool AppendFile(std::string_view path, bool keepUseless) override;
    std::string_view GetSection() const override { return {}; }
    bool HasCursorFile() const override { return false; }
};

}  // namespace quillon
