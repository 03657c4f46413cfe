#include "job/kinds.h"

#include <algorithm>
#include <type_traits>
#include <utility>

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

KindLook LookOf(const CBoundary& boundary) {
    return {.line = boundary.pen, .filled = true};
}
KindLook LookOf(const CGridWaypoint& waypoints) {
    return {.symbol = waypoints.symbol, .hasSymbol = true, .symbolColour = waypoints.colour};
}
KindLook LookOf(const CPipeline& pipeline) {
    return {.line = pipeline.linePen};
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
    } else {
        return member.ReadCommon();
    }
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
            .report = [](Record job, int file) -> const ReadReport& { return Files::At(job, file).GetReport(); },
            .isDisplayed = [](Record job, int file) { return IsShown(Files::At(job, file)); },
            .look = [](Record job, int file) { return LookOf(Files::At(job, file)); },
            .followStored = FollowStored<Files>,
            .keepUnsaved = MakeKeepUnsaved<Files>(),
            .readRestored = Files::ReadRestored};
}

constexpr std::array<JobKind, kKindCount> kKinds = {
    MakeKind<ListFiles<&JobRecord::boundaries>>(KIND::BOUNDARY, FEATURE_TYPES::BOUNDARY, "Boundary"),
    MakeKind<ListFiles<&JobRecord::waypoints>>(KIND::WAYPOINT, FEATURE_TYPES::WAYPOINT, "Waypoint"),
    MakeKind<ListFiles<&JobRecord::routes>>(KIND::ROUTE, FEATURE_TYPES::ROUTE, "Route"),
    MakeKind<ListFiles<&JobRecord::sailLines>>(KIND::SAIL_LINE, FEATURE_TYPES::SAIL_LINE, "Sail Line", "line"),
    MakeKind<ListFiles<&JobRecord::pipelines>>(KIND::PIPELINE, FEATURE_TYPES::PIPELINE, "Pipeline"),
    MakeKind<PipeRouteFile>(KIND::PIPE_ROUTE, FEATURE_TYPES::NONE, "Pipe Route"),
    MakeKind<StructureFiles>(KIND::STRUCTURE, FEATURE_TYPES::STRUCTURE, "Structure"),
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
