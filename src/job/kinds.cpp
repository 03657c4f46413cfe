#include "job/kinds.h"

#include <algorithm>
#include <mutex>
#include <numeric>
#include <type_traits>
#include <utility>

#include "background/dig_load.h"
#include "background/dtm_load.h"
#include "background/dxf_palette.h"
#include "features/rpl_place.h"
#include "foundation/paths.h"
#include "job/shape_place.h"
#include "platform/text.h"

namespace quillon {
namespace {

// ---- What differs from kind to kind ----

tagXY PositionOf(const tagXY& point) {
    return point;
}
tagXY PositionOf(const GridWaypointDef& point) {
    return {point.easting, point.northing};
}
tagXY PositionOf(const PipelineDef& point) {
    return point.Position();
}
tagXY PositionOf(const RouteDef& point) {
    return point.position;
}
tagXY PositionOf(const RPLDef& record) {
    return record.position;
}
tagXY PositionOf(const SailLineDef& line) {
    return line.Middle();
}

tagXY PositionOf(const StructureDef& structure) {
    return structure.position;
}

template <class Point>
std::string_view NameOf(const Point& point) {
    if constexpr (requires { point.name; }) return point.name;
    return {};
}

template <class Point>
double KpOf(const Point&) {
    return MISSING_VALUE;
}
double KpOf(const PipelineDef& point) {
    return point.kp;
}
/// Of a curve, which has no KP where its legs would meet, that of its middle.
double KpOf(const RPLDef& record) {
    return record.IsCurve() ? (record.curveStartKp + record.curveEndKp) / 2.0 : record.kp;
}
/// Routes hold theirs in metres.
double KpOf(const RouteDef& point) {
    return point.kp / 1000.0;
}

bool IsShown(const CFeatureCommon& feature) {
    return feature.Status;
}
bool IsShown(const CGridWaypoint& waypoints) {
    return waypoints.display;
}
bool IsShown(const CPipeline& pipeline) {
    return pipeline.use;
}
bool IsShown(const CRPL& rpl) {
    return rpl.use;
}

KindLook LookOf(const CBoundary& boundary) {
    return {.line = boundary.pen, .filled = true};
}
KindLook LookOf(const CGridWaypoint& waypoints) {
    return {.symbol = waypoints.symbol, .hasSymbol = true, .symbolColour = waypoints.colour};
}
KindLook LookOf(const CPipeline& pipeline) {
    return {.line = pipeline.linePen};
}
KindLook LookOf(const CRPL& rpl) {
    return {.line = rpl.linePen};
}
/// Routes and sail lines.
KindLook LookOf(const CDrawingOptions& options) {
    return {.line = options.pen, .symbol = options.symbol, .hasSymbol = true, .symbolColour = options.pen.colour};
}

/// A drawing has no look of its own as small as a symbol: a square stands for it.
KindLook LookOf(const CStructure&) {
    return {.symbol = 2, .hasSymbol = true, .symbolColour = RGB(128, 128, 128)};
}

// ---- Where the files of a kind are ----

/// The members of a file list.
template <auto List>
struct ListFiles {
    static void Load(JobRecord& job) { LoadFileList(job.*List); }
    static CFileListBase* ListOf(JobRecord& job) { return &(job.*List); }
    static int Count(const JobRecord& job) { return (job.*List).GetCount(); }
    static auto& At(auto& job, int file) { return (job.*List)[file]; }
    static std::vector<int> ReadRestored(JobRecord& job, const RestoredFiles& restored);
};

/// The shapes come first: a file of no use gets a structure with the first of them.
struct StructureFiles : ListFiles<&JobRecord::structures> {
    static void Load(JobRecord& job) {
        job.structures.LoadShapes(job.structures.ShapesFolder());
        LoadFileList(job.structures);
    }
};

/// The one active pipe route, which is in no list.
struct PipeRouteFile {
    static void Load(JobRecord& job) {
        const std::string active = ReadActivePipeline(job.routes.GetFiles());
        if (!active.empty()) job.pipeRoute.Load(active);
    }
    static CFileListBase* ListOf(JobRecord&) { return nullptr; }
    static int Count(const JobRecord& job) { return job.pipeRoute.GetPath().empty() ? 0 : 1; }
    static auto& At(auto& job, int file) {
        if (file != 0 || Count(job) == 0) throw InvalidArgument("no pipe route");
        return job.pipeRoute;
    }
    static std::vector<int> ReadRestored(JobRecord& job, const RestoredFiles& restored);
};

template <class Member>
void KeepUnsaved(Member& member) {
    if constexpr (requires { member.KeepUnsaved(); }) {
        member.KeepUnsaved();
    } else {
        member.KeepCommon();
    }
}

/// Null for a kind without flags beside the data file.
template <class Files>
constexpr auto MakeKeepUnsaved() -> void (*)(JobRecord&, int) {
    using Member = std::remove_reference_t<decltype(Files::At(std::declval<JobRecord&>(), 0))>;
    if constexpr (std::is_base_of_v<CFeatureCommon, Member>) {
        return [](JobRecord& job, int file) { KeepUnsaved(Files::At(job, file)); };
    } else {
        return nullptr;
    }
}

template <class Member>
bool ReadStored(Member& member) {
    if constexpr (requires { member.ReadStored(); }) {
        return member.ReadStored();
    } else if constexpr (requires { member.ReadCommon(); }) {
        return member.ReadCommon();
    } else {
        return member.FollowStored();
    }
}

template <class Files>
bool IsStub(const JobRecord& job, int file) {
    const auto& member = Files::At(job, file);
    if constexpr (requires { member.IsStub(); }) {
        return member.IsStub();
    } else {
        return member.IsEmpty();
    }
}

template <class Files>
DISK_CHANGE ChangeOnDisk(const JobRecord& job, int file) {
    const auto& member = Files::At(job, file);
    if constexpr (std::is_base_of_v<CSourceFile, std::remove_cvref_t<decltype(member)>>) {
        return member.ChangeOnDisk(job.routes.GetFiles(), member.GetPath());
    } else {
        return DISK_CHANGE::NONE;
    }
}

template <class Files>
bool ReadAgain(JobRecord& job, int file) {
    if (CFileListBase* const list = Files::ListOf(job)) return list->ReadAgain(file);
    auto& member = Files::At(job, file);
    if constexpr (requires { member.ReadAgain(); }) return member.ReadAgain();
    return false;
}

template <class Files>
bool FollowStored(JobRecord& job, int file) {
    auto& member = Files::At(job, file);
    if constexpr (requires { member.FollowStored(); }) {
        return member.FollowStored();
    } else {
        return member.FollowCommon();
    }
}

// ---- Files that were put back ----

template <auto List>
std::vector<int> ListFiles<List>::ReadRestored(JobRecord& job, const RestoredFiles& restored) {
    auto& list = job.*List;
    std::vector<int> renewed;
    const bool members = restored.HasPathsOf(list);
    const std::vector<int> came = members ? list.ReadPathsAgain() : std::vector<int>();
    for (int i = 0; i < list.GetCount(); ++i) {
        const bool differs = std::binary_search(came.begin(), came.end(), i) ||
                             (restored.Has(list.GetPath(i)) && list.ReadWhole(i)) ||
                             (restored.HasSettingsOf(list.GetPath(i)) && ReadStored(list[i]));
        if (differs) renewed.push_back(i);
    }
    if (members) list.SetEditCursor(-1, -1);
    if (restored.HasCursorOf(list)) list.ReadCursorAgain();
    list.changed |= members || !renewed.empty();
    return renewed;
}

std::vector<int> PipeRouteFile::ReadRestored(JobRecord& job, const RestoredFiles& restored) {
    CPipeline& route = job.pipeRoute;
    const std::string active = ReadActivePipeline(job.routes.GetFiles());
    if (active.empty()) {
        if (Count(job) > 0) route.Clear();
        return {};
    }
    const bool differs = (active != route.GetPath() || restored.Has(active))
                             ? (route.Load(active), true)
                             : restored.HasSettingsOf(active) && route.ReadStored();
    return differs ? std::vector{0} : std::vector<int>();
}

/// A row of the table. The functions are named here once; a kind gives the overloads above and says where its files
/// are.
template <class Files>
constexpr JobKind MakeKind(KIND id, FEATURE_TYPES type, std::string_view name, std::string_view pointWord = "point") {
    using Record = const JobRecord&;
    return {.id = id,
            .type = type,
            .name = name,
            .load = Files::Load,
            .list = Files::ListOf,
            .fileCount = Files::Count,
            .path = [](Record job, int file) -> const std::string& { return Files::At(job, file).GetPath(); },
            .pointCount = [](Record job, int file) { return static_cast<int>(Files::At(job, file).GetSize()); },
            .point = [](Record job, int file, int point) { return PositionOf(Files::At(job, file)[point]); },
            .pointName = [](Record job, int file, int point) { return NameOf(Files::At(job, file)[point]); },
            .pointWord = pointWord,
            .pointKp = [](Record job, int file, int point) { return KpOf(Files::At(job, file)[point]); },
            .kpAt = nullptr,
            .placeAtKp = nullptr,
            .report = [](Record job, int file) -> const ReadReport& { return Files::At(job, file).GetReport(); },
            .isStub = IsStub<Files>,
            .changeOnDisk = ChangeOnDisk<Files>,
            .readAgain = ReadAgain<Files>,
            .notes = [](Record, int) { return std::vector<std::string>(); },
            .isDisplayed = [](Record job, int file) { return IsShown(Files::At(job, file)); },
            .look = [](Record job, int file) { return LookOf(Files::At(job, file)); },
            .followStored = FollowStored<Files>,
            .keepUnsaved = MakeKeepUnsaved<Files>(),
            .readRestored = Files::ReadRestored};
}

// ---- What lies under the chart ----

std::vector<int> AllOf(int count) {
    std::vector<int> numbers(static_cast<std::size_t>(count));
    std::iota(numbers.begin(), numbers.end(), 0);
    return numbers;
}

/// The files of the one depth model.
struct DtmFiles {
    static void Load(JobRecord& job) { job.dtm.ReadSettings(); }
    static int Count(const JobRecord& job) { return static_cast<int>(job.dtm.CountFiles()); }
    static const std::string& Path(const JobRecord& job, int file) { return job.dtm.fileName[Checked(job, file)]; }
    /// Of a model that nobody has tried to load yet there is nothing to tell.
    static const ReadReport& Report(const JobRecord& job, int file) {
        static const ReadReport kNothing = [] {
            ReadReport nothing;
            nothing.opened = true;
            return nothing;
        }();
        return job.dtm.IsLoaded() || job.dtm.report.imported ? job.dtm.report.lines[Checked(job, file)] : kNothing;
    }
    static bool IsStub(const JobRecord& job, int) { return job.dtm.report.imported && !job.dtm.IsLoaded(); }
    static DISK_CHANGE ChangeOnDisk(const JobRecord& job, int file) {
        const std::string& path = Path(job, file);
        if (!job.dtm.IsLoaded() || !job.dtm.SourceChanged(Checked(job, file))) return DISK_CHANGE::NONE;
        return job.dtm.GetFiles().Exists(path) ? DISK_CHANGE::RENEWED : DISK_CHANGE::GONE;
    }
    static bool ReadAgain(JobRecord& job, int file) {
        if (!job.dtm.GetFiles().Exists(Path(job, file))) return false;
        CDtm fresh(job.dtm.GetFiles());
        fresh.fileName = job.dtm.fileName;
        fresh.limits = job.dtm.limits;
        DtmProgress progress;
        LoadDtmFiles(fresh, progress);
        job.dtm.TakeModel(fresh);
        return true;
    }
    static std::vector<std::string> Notes(const JobRecord& job, int) {
        const CDtm& dtm = job.dtm;
        std::array<std::string, CDtm::kSlots> names;
        for (std::size_t i = 0; i < names.size(); ++i) names[i] = NameOfPath(dtm.fileName[i]);
        std::vector<std::string> notes = NotesOf(dtm.report, names);
        for (const std::string& fault : {RefusalText(dtm.report, names), dtm.report.cacheFault}) {
            if (!fault.empty()) notes.push_back(fault);
        }
        return notes;
    }
    static bool IsShown(const JobRecord& job, int) { return job.dtm.IsLoaded() || job.dtm.displayCoverage; }
    static bool Follow(JobRecord&, int) { return false; }
    static std::vector<int> ReadRestored(JobRecord& job, const RestoredFiles& restored) {
        if (!restored.Has(GetSettingsPath(job.routes.GetFiles(), "DTM"))) return {};
        const auto before = std::exchange(job.dtm.fileName, {});
        job.dtm.ReadSettings();
        // The host loads what is named now.
        if (job.dtm.fileName != before) job.dtm.Unload();
        return AllOf(Count(job));
    }
    static KindLook LookOf(const JobRecord& job, int file) {
        return {.line = job.dtm.pen[Checked(job, file)], .filled = true};
    }

private:
    static std::size_t Checked(const JobRecord& job, int file) {
        if (file < 0 || file >= Count(job)) throw InvalidArgument("no file of the depth model");
        return static_cast<std::size_t>(file);
    }
};

struct ShapeFiles {
    static void Load(JobRecord& job) { job.shapes.ReadFiles(); }
    static int Count(const JobRecord& job) { return static_cast<int>(job.shapes.files.paths.size()); }
    static const std::string& Path(const JobRecord& job, int file) {
        if (file < 0 || file >= Count(job)) throw InvalidArgument("no such shape file");
        return job.shapes.files.paths[static_cast<std::size_t>(file)];
    }
    static const ReadReport& Report(const JobRecord& job, int file) { return job.shapes.ReportOf(Path(job, file)); }
    static bool IsStub(const JobRecord& job, int file) {
        const auto shape = job.shapes.Find(Path(job, file));
        return shape && shape->report.taken == 0;
    }
    static DISK_CHANGE ChangeOnDisk(const JobRecord& job, int file) {
        const auto shape = job.shapes.Find(Path(job, file));
        if (!shape || IsStampOf(shape->GetFiles(), shape->GetPath(), shape->source)) return DISK_CHANGE::NONE;
        return shape->GetFiles().Exists(shape->GetPath()) ? DISK_CHANGE::RENEWED : DISK_CHANGE::GONE;
    }
    static bool ReadAgain(JobRecord& job, int file) { return job.shapes.ReadAgain(Path(job, file)); }
    static std::vector<std::string> Notes(const JobRecord& job, int file) {
        const auto shape = job.shapes.Find(Path(job, file));
        if (!shape) return {};
        std::vector<std::string> notes = NotesOf(shape->report);
        notes.push_back(PlaceText(*shape, job.geodesy));
        return notes;
    }
    static bool IsShown(const JobRecord& job, int file) {
        const auto shape = job.shapes.Find(Path(job, file));
        return shape && shape->status;
    }
    static bool Follow(JobRecord& job, int file) {
        const auto shape = job.shapes.Find(Path(job, file));
        if (!shape) return false;
        const ShapeOptions before = *shape;
        shape->ReadSettings();
        return before != static_cast<const ShapeOptions&>(*shape);
    }
    /// Shapes that came are loaded by the host.
    static std::vector<int> ReadRestored(JobRecord& job, const RestoredFiles& restored) {
        std::vector<int> renewed;
        if (restored.Has(GetSettingsPath(job.shapes.GetFiles(), job.shapes.name, "FLS"))) {
            const std::vector<std::string> before = std::exchange(job.shapes.files.paths, {});
            job.shapes.ReadFiles();
            const std::vector<std::string>& now = job.shapes.files.paths;
            for (const std::string& path : before) {
                if (std::find(now.begin(), now.end(), path) == now.end()) job.shapes.Remove(path);
            }
            renewed = AllOf(Count(job));
        }
        for (int i = 0; i < Count(job); ++i) {
            if (restored.HasSettingsOf(Path(job, i)) && Follow(job, i) &&
                !std::count(renewed.begin(), renewed.end(), i))
                renewed.push_back(i);
        }
        return renewed;
    }
    static KindLook LookOf(const JobRecord& job, int file) {
        const auto shape = job.shapes.Find(Path(job, file));
        return {.line = shape ? shape->pen : ShapeOptions().pen, .filled = true};
    }
};

/// The members of a list of drawings.
template <auto List>
struct BackgroundFiles {
    /// `read` reads a member that came, `follow` tells whether a member that stayed has other settings now.
    template <class Read, class FollowStored>
    static std::vector<int> ReadList(JobRecord& job, const RestoredFiles& restored, Read read, FollowStored follow) {
        auto& list = job.*List;
        const bool members = restored.Has(list.GetSettingsPath());
        const std::vector<int> came = members ? list.ReadPathsAgain() : std::vector<int>();
        for (const int file : came) read(list[file]);
        if (members) return AllOf(Count(job));
        std::vector<int> renewed;
        for (int i = 0; i < Count(job); ++i) {
            if (follow(list[i])) renewed.push_back(i);
        }
        return renewed;
    }
    static bool Follow(JobRecord&, int) { return false; }
    static int Count(const JobRecord& job) { return (job.*List).GetCount(); }
    static const std::string& Path(const JobRecord& job, int file) { return (job.*List)[file].fileName; }
    static const ReadReport& Report(const JobRecord& job, int file) { return (job.*List)[file].summary; }
    static DISK_CHANGE ChangeOnDisk(const JobRecord& job, int file) {
        return ChangeSince((job.*List)[file].readStamp, job.routes.GetFiles(), Path(job, file));
    }
};

struct DigFiles : BackgroundFiles<&JobRecord::digs> {
    static bool IsStub(const JobRecord& job, int file) { return job.digs[file].IsEmpty(); }
    static bool ReadAgain(JobRecord& job, int file) {
        if (!job.routes.GetFiles().Exists(Path(job, file))) return false;
        const std::scoped_lock lock(job.digMutex);
        CDig& dig = job.digs[file];
        LoadProgress progress;
        const std::uint8_t display = dig.header.display;
        LoadDigFile(dig, progress);
        if (std::exchange(dig.header.display, display) != display) dig.Save();
        return true;
    }
    static void Load(JobRecord& job) {
        LoadProgress progress;
        job.digs.LoadPaths();
        for (int i = 0; i < job.digs.GetCount(); ++i) LoadDigFile(job.digs[i], progress);
    }
    static std::vector<std::string> Notes(const JobRecord& job, int file) {
        const CDig& dig = job.digs[file];
        std::vector<std::string> notes = dig.report.Sentences();
        if (!dig.fault.empty()) notes.push_back(NameOfPath(dig.fileName) + ".DIG isn't written: " + dig.fault);
        return notes;
    }
    static std::vector<int> ReadRestored(JobRecord& job, const RestoredFiles& restored) {
        const std::scoped_lock lock(job.digMutex);
        LoadProgress progress;
        return ReadList(
            job, restored, [&](CDig& dig) { LoadDigFile(dig, progress); },
            [&](CDig& dig) {
                if (restored.Has(dig.DigPath())) return LoadDigFile(dig, progress), true;
                // The extents that its drawing is converted by stand in the drawing's settings.
                const bool converts = dig.IsFrom("DXF") && restored.HasSettingsOf(dig.fileName) &&
                                      dig.ownExtents != ReadOwnExtents(dig.GetFiles(), dig.fileName);
                return converts && (RemakeDigFile(dig, progress), true);
            });
    }
    static bool IsShown(const JobRecord& job, int file) { return job.digs[file].header.display != 0; }
    static KindLook LookOf(const JobRecord& job, int file) {
        const CDig& dig = job.digs[file];
        const int colour = dig.IsEmpty() ? kDxfWhite : dig[0].ColourIndex();
        return {.line = {.thickness = 1, .colour = kDxfPalette[static_cast<std::size_t>(colour)]}};
    }
};

struct DxfFiles : BackgroundFiles<&JobRecord::drawings> {
    static bool IsStub(const JobRecord& job, int file) { return job.drawings[file].GetEntityCount() == 0; }
    /// A new one takes its place: the chart may still be drawing out of the old one.
    static bool ReadAgain(JobRecord& job, int file) {
        auto fresh = std::make_shared<CDxf>(job.routes.GetFiles());
        fresh->fileName = Path(job, file);
        if (!ReadDxfFile(*fresh)) return false;
        const std::scoped_lock lock(job.dxfMutex);
        job.drawings.Replace(file, std::move(fresh));
        return true;
    }
    static void Load(JobRecord& job) {
        job.drawings.LoadPaths();
        for (int i = 0; i < job.drawings.GetCount(); ++i) ReadDxfFile(job.drawings[i]);
    }
    static std::vector<std::string> Notes(const JobRecord& job, int file) {
        return job.drawings[file].report.Sentences();
    }
    static std::vector<int> ReadRestored(JobRecord& job, const RestoredFiles& restored) {
        const std::scoped_lock lock(job.dxfMutex);
        return ReadList(
            job, restored, [](CDxf& dxf) { ReadDxfFile(dxf); },
            [&](CDxf& dxf) { return restored.HasSettingsOf(dxf.fileName) && (dxf.LoadSettings(), true); });
    }
    static bool IsShown(const JobRecord& job, int file) { return job.drawings[file].use; }
    static KindLook LookOf(const JobRecord& job, int file) {
        const CDxf& dxf = job.drawings[file];
        const COLORREF colour = dxf.entities.empty() ? kDxfPalette[kDxfWhite] : ColourOf(*dxf.entities.front());
        return {.line = {.thickness = 1, .colour = colour}};
    }
};

/// A row of a kind without points, whose files say all that there is by the functions of `Files`.
template <class Files>
constexpr JobKind MakeUnderlay(KIND id, std::string_view name) {
    return {.id = id,
            .type = FEATURE_TYPES::NONE,
            .name = name,
            .load = Files::Load,
            .list = [](JobRecord&) -> CFileListBase* { return nullptr; },
            .fileCount = Files::Count,
            .path = Files::Path,
            .pointCount = [](const JobRecord&, int) { return 0; },
            .point = [](const JobRecord&, int, int) -> tagXY { throw InvalidArgument("a kind without points"); },
            .pointName = [](const JobRecord&, int, int) { return std::string_view(); },
            .pointWord = "point",
            .pointKp = [](const JobRecord&, int, int) { return MISSING_VALUE; },
            .kpAt = nullptr,
            .placeAtKp = nullptr,
            .report = Files::Report,
            .isStub = Files::IsStub,
            .changeOnDisk = Files::ChangeOnDisk,
            .readAgain = Files::ReadAgain,
            .notes = Files::Notes,
            .isDisplayed = Files::IsShown,
            .look = Files::LookOf,
            .followStored = Files::Follow,
            .keepUnsaved = nullptr,
            .readRestored = Files::ReadRestored};
}

/// Curves lie beside the points that shape them.
constexpr JobKind MakeRplKind() {
    using Record = const JobRecord&;
    JobKind kind = MakeKind<ListFiles<&JobRecord::rpls>>(KIND::RPL, FEATURE_TYPES::NONE, "RPL");
    kind.kpAt = [](Record job, int file, tagXY at) { return RplKpAt(job.rpls[file].GetRecords(), at); };
    kind.placeAtKp = [](Record job, int file, double kp) { return RplPlaceAt(job.rpls[file].GetRecords(), kp); };
    return kind;
}

constexpr std::array<JobKind, kKindCount> kKinds = {
    MakeKind<ListFiles<&JobRecord::boundaries>>(KIND::BOUNDARY, FEATURE_TYPES::BOUNDARY, "Boundary"),
    MakeKind<ListFiles<&JobRecord::waypoints>>(KIND::WAYPOINT, FEATURE_TYPES::WAYPOINT, "Waypoint"),
    MakeKind<ListFiles<&JobRecord::routes>>(KIND::ROUTE, FEATURE_TYPES::ROUTE, "Route"),
    MakeKind<ListFiles<&JobRecord::sailLines>>(KIND::SAIL_LINE, FEATURE_TYPES::SAIL_LINE, "Sail Line", "line"),
    MakeKind<ListFiles<&JobRecord::pipelines>>(KIND::PIPELINE, FEATURE_TYPES::PIPELINE, "Pipeline"),
    MakeKind<PipeRouteFile>(KIND::PIPE_ROUTE, FEATURE_TYPES::NONE, "Pipe Route"),
    MakeRplKind(),
    MakeKind<StructureFiles>(KIND::STRUCTURE, FEATURE_TYPES::STRUCTURE, "Structure"),
    MakeUnderlay<DtmFiles>(KIND::DTM, "Depth Model"),
    MakeUnderlay<ShapeFiles>(KIND::SHAPE, "Shape"),
    MakeUnderlay<DigFiles>(KIND::DIG, "Digitized Data"),
    MakeUnderlay<DxfFiles>(KIND::DXF, "Drawing"),
};

consteval bool StandInOrder() {
    for (std::size_t i = 0; i < kKinds.size(); ++i) {
        if (kKinds[i].id != static_cast<KIND>(i)) return false;
    }
    return true;
}
static_assert(StandInOrder(), "every kind has its row, at the place of its number");

}  // namespace

bool RestoredFiles::Has(std::string_view path) const {
    return std::any_of(paths.begin(), paths.end(), [&](const std::string& own) { return EqualNoCase(own, path); });
}

bool RestoredFiles::HasPathsOf(const CFileListBase& list) const {
    return std::any_of(paths.begin(), paths.end(), [&](const std::string& own) { return list.IsPathsFile(own); });
}

bool RestoredFiles::HasCursorOf(const CFileListBase& list) const {
    return std::any_of(paths.begin(), paths.end(), [&](const std::string& own) { return list.IsCursorFile(own); });
}

bool RestoredFiles::HasSettingsOf(const std::string& dataPath) const {
    return std::any_of(paths.begin(), paths.end(),
                       [&](const std::string& own) { return MayHoldSettingsOf(own, dataPath); });
}

std::span<const JobKind, kKindCount> JobKinds() {
    return kKinds;
}

const JobKind& KindOf(KIND kind) {
    return kKinds[static_cast<std::size_t>(kind)];
}

const JobKind* FindKind(FEATURE_TYPES type) {
    if (type == FEATURE_TYPES::NONE) return nullptr;
    const auto found = std::find_if(kKinds.begin(), kKinds.end(), [type](const JobKind& k) { return k.type == type; });
    return found == kKinds.end() ? nullptr : &*found;
}

}  // namespace quillon
