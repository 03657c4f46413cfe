#include "features/pipeline.h"

#include <cmath>
#include <numbers>

#include "features/corridor_mitre.h"
#include "features/leg.h"
#include "features/record_reader.h"
#include "foundation/angle_units.h"
#include "foundation/field_scanner.h"
#include "foundation/paths.h"
#include "foundation/settings_lines.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::string_view kSettingsSuffix = "_PIPELINE";
constexpr std::string_view kActiveName = "Active Pipeline";

/// How far a label stands off its line, in drawing units.
constexpr double kLabelOffset = 10.0;

/// A label every metre of a thousand kilometres; an interval that asks for more labels is a slip of the hand.
constexpr std::size_t kMostLabels = 1'000'000;

/// The pens and switches of a line that is missing from the settings file. They differ from those that hold without a
/// file.
PipelineSettings MissingLines() {
    PipelineSettings settings;
    settings.use = false;
    settings.portCorridor = 0.0;
    settings.starboardCorridor = 0.0;
    settings.corridorPen = {.style = 0, .thickness = 1, .colour = 0, .fill = 0};
    settings.linePen = settings.corridorPen;
    settings.clearance = 0.0;
    settings.tolerance = 0.0;
    settings.labelKps = true;
    settings.kpInterval = 0.0;
    return settings;
}

PipelineSettings WithoutFile() {
    PipelineSettings settings;
    settings.corridorPen = {.style = 5, .thickness = 0, .colour = 0x80, .fill = 0};
    return settings;
}

/// Fills the fields that the data order names. A missing KP is 0.
PASSED_OVER DecodePoint(std::string_view line, int order, PipelineDef& point) {
    if (order < 0 || order > 2) return PASSED_OVER::UNKNOWN_ORDER;
    FieldScanner fields(line);
    if (order == 1) point.kp = fields.NextNumber();
    point.easting = fields.NextNumber();
    point.northing = fields.NextNumber();
    if (order == 2) point.kp = fields.NextNumber();
    if (IsMissing(point.kp)) point.kp = 0.0;
    return PositionFault(point.easting, point.northing);
}

}  // namespace

template <class Lines>
void EachLine(Lines& lines, RecordOf<PipelineSettings> auto& settings) {
    lines.Int("Data Order", settings.dataOrder);
    lines.Bool("Use", settings.use);
    lines.Int("Diameter", settings.diameter);
    lines.Bool("Display Corridor", settings.displayCorridor);
    lines.Double("Port Corridor", settings.portCorridor, 3);
    lines.Double("Stdb Corridor", settings.starboardCorridor, 3);
    lines.Pen("Corridor Pen", settings.corridorPen);
    lines.Double("Clearance", settings.clearance, 3);
    lines.Double("Tolerance", settings.tolerance, 3);
    lines.Pen("Pipeline Pen", settings.linePen);
    lines.Double("Start KP", settings.startKp, 3);
    lines.Bool("Increasing KPs", settings.increasingKps);
    lines.Bool("Label KPs", settings.labelKps);
    lines.Double("KP Interval", settings.kpInterval, 3);
}

// ---- Reading ----

bool CPipeline::Load(std::string_view newPath) {
    SetPath(newPath);
    ReadSettings();
    return LoadData(path);
}

bool CPipeline::LoadData(std::string_view newPath) {
    if (newPath != path) SetPath(newPath);
    Forget();
    CStdioFile file(files);
    const bool taken = OpenData(file, path, report) && ReadFrom(file);
    SetReadStamp(file.GetStamp());
    return taken;
}

bool CPipeline::ReadAgain() {
    CStdioFile file(files);
    if (!OpenData(file, path, report)) return false;
    if (IsStub()) ReadSettings();
    ReadFrom(file);
    SetReadStamp(file.GetStamp());
    return true;
}

bool CPipeline::ReadFrom(CStdioFile& file) {
    tagXY last{MISSING_VALUE, MISSING_VALUE};
    const auto decode = [&](std::string_view line, PipelineDef& point) {
        const PASSED_OVER fault = DecodePoint(line, dataOrder, point);
        if (fault != PASSED_OVER::NO) return fault;
        if (point.Position() == last) return PASSED_OVER::REPEATED_POSITION;
        last = point.Position();
        return PASSED_OVER::NO;
    };
    Adopt(ReadRecords<PipelineDef>(file, decode, report));
    ComputeLegs();
    ComputeKps();
    ComputeCorridor();
    report.labelsCut = kpListingCut;
    return !IsEmpty();
}

void CPipeline::Clear() {
    path.clear();
    Forget();
    SetReadStamp({});
}

void CPipeline::Forget() {
    RemoveAll();
    kpListing.RemoveAll();
    kpListingCut = false;
}

// ---- Settings ----

std::string CPipeline::SettingsName() const {
    return SplitPath(path).name + std::string(kSettingsSuffix);
}

void CPipeline::SetPath(std::string_view newPath) {
    path = newPath;
    stored = {};
}

void CPipeline::ReadSettings() {
    PipelineSettings& settings = *this;
    settings = WithoutFile();
    CConfigFile file(files);
    if (file.OpenForRead(SettingsName())) {
        settings = MissingLines();
        ReadLines(file, settings);
    }
    NoteLines(settings, stored);
}

void CPipeline::WriteSettings() {
    const PipelineSettings& settings = *this;
    if (path.empty()) return;
    FollowStored();
    CConfigFile file(files);
    if (!file.OpenSettingsForWrite(SettingsName())) return;
    WriteLines(file, settings);
    if (file.Commit()) NoteLines(settings, stored);
}

bool CPipeline::FollowStored() {
    PipelineSettings& settings = *this;
    CConfigFile file(files);
    const std::int32_t order = dataOrder;
    if (path.empty() || !file.OpenForRead(SettingsName()) || !FollowFile(file, settings, stored)) return false;
    if (dataOrder != order) {
        ReadAgain();
    } else {
        ComputeKps();
        ComputeCorridor();
    }
    return true;
}

bool CPipeline::ReadStored() {
    const PipelineSettings before = *this;
    ReadSettings();
    if (before == static_cast<const PipelineSettings&>(*this)) return false;
    if (dataOrder != before.dataOrder) {
        ReadAgain();
    } else {
        ComputeKps();
        ComputeCorridor();
    }
    return true;
}

void CPipeline::WriteActive() const {
    CConfigFile file(files);
    if (!file.OpenSettingsForWrite(kActiveName)) return;
    file.WriteText("Path", path);
    file.Commit();
}

std::string ReadActivePipeline(FileSystem& files) {
    CConfigFile file(files);
    return file.OpenForRead(kActiveName) ? file.ReadText() : std::string();
}

// ---- What is worked out ----

void CPipeline::ComputeLegs() {
    for (Index i = 0; i + 1 < GetSize(); ++i) {
        PipelineDef& from = (*this)[i];
        const PipelineDef& to = (*this)[i + 1];
        const LegDef leg = MakeLeg(from.Position(), to.Position());
        from.range = leg.range;
        from.bearing = leg.bearing;
        from.sine = leg.sine;
        from.cosine = leg.cosine;
        from.reverseBearing = leg.reverseBearing;
        from.kpRate = leg.range == 0.0 ? 0.0 : (to.kp - from.kp) / leg.range;
    }
}

void CPipeline::ComputeKps() {
    if (dataOrder == 0 && GetSize() >= 2) {
        (*this)[0].kp = startKp;
        const double direction = increasingKps ? 1.0 : -1.0;
        for (Index i = 1; i < GetSize(); ++i) {
            (*this)[i].kp = (*this)[i - 1].kp + direction * ((*this)[i - 1].range / 1000.0);
        }
    }
    ComputeKpListing();
}

void CPipeline::ComputeKpListing() {
    kpListing.RemoveAll();
    kpListingCut = false;
    if (!labelKps || GetSize() < 2 || !(kpInterval > 0.0)) return;
    const double first = (*this)[0].kp / kpInterval;
    double label = (increasingKps ? std::ceil(first) : std::floor(first)) * kpInterval;
    std::vector<KPListingDef> listed;
    for (Index i = 0; i + 1 < GetSize() && !kpListingCut; ++i) {
        kpListingCut = !ListLeg((*this)[i], (*this)[i + 1], label, listed);
    }
    kpListing.Adopt(std::move(listed));
}

bool CPipeline::ListLeg(const PipelineDef& from, const PipelineDef& to, double& label,
                        std::vector<KPListingDef>& listed) const {
    const double normal = from.bearing + std::numbers::pi / 2;
    const double step = increasingKps ? kpInterval : -kpInterval;
    KPListingDef entry;
    entry.offsetX = static_cast<std::int32_t>(std::sin(normal) * kLabelOffset);
    entry.offsetY = static_cast<std::int32_t>(std::cos(normal) * -kLabelOffset);
    entry.rotation = 90 - static_cast<std::int32_t>(normal * kDegreesPerRadian);
    if (entry.rotation < 0) entry.rotation += 360;
    while (increasingKps ? label < to.kp : label > to.kp) {
        // A KP so large that the interval is lost in it would never be passed.
        if (listed.size() >= kMostLabels || label + step == label) return false;
        // A label rounded to just short of the first KP may stand in a leg without a length in KPs.
        const double length = to.kp - from.kp;
        const double fraction = length == 0.0 ? 0.0 : (label - from.kp) / length;
        entry.kp = label;
        entry.position = {from.easting + fraction * (to.easting - from.easting),
                          from.northing + fraction * (to.northing - from.northing)};
        entry.text = KpText(label);
        listed.push_back(entry);
        label += step;
    }
    return true;
}

std::string KpText(double kp) {
    std::string text = Format("%.3lf", kp);
    while (text.back() == ' ' || text.back() == '0') text.pop_back();
    if (text.back() == '.') text.pop_back();
    // What rounds to nothing has no sign.
    return text == "-0" ? "0" : text;
}

void CPipeline::ComputeCorridor() {
    const Index count = GetSize();
    if (count < 2) return;
    const CorridorWidths widths{portCorridor, starboardCorridor};
    for (Index i = 0; i < count; ++i) {
        PipelineDef& point = (*this)[i];
        const PipelineDef& leg = (*this)[std::min(i, count - 2)];
        const bool end = i == 0 || i == count - 1;
        const CorridorCorner corner =
            end ? SquareCorner(point.Position(), leg.sine, leg.cosine, widths)
                : MitreCorner((*this)[i - 1].Position(), point.Position(), (*this)[i + 1].Position(), widths);
        point.portCorridor = corner.port;
        point.starboardCorridor = corner.starboard;
    }
}

// ---- The list ----

CPipelineList::CPipelineList(FileSystem& fileSystem) : CFileList(fileSystem) {
    SetSettingsName("Pipelines");
}

bool CPipelineList::AppendFile(std::string_view path, bool keepUseless) {
    auto pipeline = std::make_unique<CPipeline>(GetFiles());
    if (!pipeline->Load(path) && !keepUseless) return false;
    Append(std::move(pipeline));
    return true;
}

}  // namespace quillon
