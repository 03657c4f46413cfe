#include "host/file_kinds.h"

#include <algorithm>
#include <array>

#include "features/record_reader.h"
#include "foundation/field_scanner.h"
#include "foundation/paths.h"
#include "platform/file.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr int kLinesLookedAt = 200;

/// What the first lines of a file hold.
struct FileHead {
    bool opened = false;
    bool hasText = false;          ///< no byte 0 among them
    bool startsStructure = false;  ///< its first line is that of a block of a structure file
    int points = 0;                ///< lines with two numbers or more
    int numbers = 0;               ///< the most on a line
    bool hasWords = false;         ///< fields without a figure beside numbers
};

/// Fields parted by commas, and whether some hold nothing but words; or a position whose numbers are parted by blanks
/// or letters.
void LookAtLine(std::string_view line, FileHead& head) {
    FieldScanner fields(line);
    int numbers = 0, words = 0;
    for (int left = fields.FieldCount(); left > 0; --left) {
        const std::string_view field = Trim(fields.NextField());
        const bool startsAsNumber = !field.empty() && field.find_first_of("+-.0123456789") == 0;
        const bool hasFigure = field.find_first_of("0123456789") != std::string_view::npos;
        numbers += startsAsNumber && hasFigure ? 1 : 0;
        words += !field.empty() && !startsAsNumber ? 1 : 0;
    }
    if (numbers < 2) {
        FieldScanner loose(line);
        const double easting = loose.NextNumber(), northing = loose.NextNumber();
        if (PositionFault(easting, northing) != PASSED_OVER::NO) return;
        numbers = 2;
        words = 0;
    }
    ++head.points;
    head.numbers = std::max(head.numbers, numbers);
    head.hasWords = head.hasWords || words > 0;
}

FileHead HeadOf(FileSystem& files, std::string_view path) {
    FileHead head;
    CStdioFile file(files);
    head.opened = file.OpenForReading(path);
    if (!head.opened) return head;
    head.hasText = true;
    std::string_view line;
    for (int i = 0; i < kLinesLookedAt && file.ReadString(line); ++i) {
        if (line.find('\0') != std::string_view::npos) head.hasText = false;
        if (i == 0) head.startsStructure = line.starts_with("STRUCTURE");
        LookAtLine(line, head);
    }
    return head;
}

/// How likely a file is of a kind; 0 for not at all. A sure kind leaves no other.
using Likelihood = int;
constexpr Likelihood kSure = 100;

Likelihood Never(const FileHead&) {
    return 0;
}
bool HasPoints(const FileHead& head) {
    return head.hasText && !head.startsStructure && head.points > 0;
}
Likelihood AsBoundary(const FileHead& head) {
    return !HasPoints(head) ? 0 : head.numbers == 2 && !head.hasWords ? 6 : 1;
}
Likelihood AsWaypoint(const FileHead& head) {
    return !HasPoints(head) ? 0 : head.hasWords || head.numbers > 2 ? 6 : 3;
}
Likelihood AsRoute(const FileHead& head) {
    return !HasPoints(head) ? 0 : head.numbers == 2 ? 5 : 2;
}
Likelihood AsPipeline(const FileHead& head) {
    return !HasPoints(head) ? 0 : head.numbers == 3 ? 5 : 4;
}
/// Start and end of a line on each line.
Likelihood AsSailLine(const FileHead& head) {
    return !HasPoints(head) || head.numbers < 4 ? 0 : 7;
}
/// Radii or KPs beside the positions.
Likelihood AsRpl(const FileHead& head) {
    return !HasPoints(head) || head.numbers < 3 ? 0 : 3;
}
Likelihood AsStructure(const FileHead& head) {
    return head.hasText && head.startsStructure ? kSure : 0;
}

/// What speaks for a kind: extensions that only it has, in capitals between blanks, or the first lines.
struct KindSign {
    KIND kind;
    std::string_view extensions;
    Likelihood (*likelihood)(const FileHead& head);
};

// clang-format off
constexpr std::array<KindSign, kKindCount> kSigns = {{
    {KIND::BOUNDARY,   "", AsBoundary},
    {KIND::WAYPOINT,   "", AsWaypoint},
    {KIND::ROUTE,      "", AsRoute},
    {KIND::SAIL_LINE,  "", AsSailLine},
    {KIND::PIPELINE,   "", AsPipeline},
    {KIND::PIPE_ROUTE, "", Never},
    {KIND::RPL,        " RPL RLX ", AsRpl},
    {KIND::STRUCTURE,  "", AsStructure},
    {KIND::DTM,        " XYZ ", Never},
    {KIND::SHAPE,      " SHP ", Never},
    {KIND::DIG,        " DIG ", Never},
    {KIND::DXF,        " DXF ", Never},
}};
// clang-format on
static_assert(HasEveryKind(kSigns), "every kind says which files are its own");

int FindFile(const JobRecord& job, const JobKind& kind, std::string_view path) {
    for (int i = 0; i < kind.fileCount(job); ++i) {
        if (EqualNoCase(kind.path(job, i), path)) return i;
    }
    return -1;
}

bool HasExtension(const KindSign& sign, std::string_view path) {
    const std::string extension = ' ' + ToUpper(SplitPath(path).extension) + ' ';
    return extension.size() > 2 && sign.extensions.find(extension) != std::string_view::npos;
}

/// A folder that is named after a kind says more than numbers do: "Boundaries" for a boundary.
bool IsInFolderOf(KIND kind, std::string_view path) {
    std::string folder = ToUpper(FolderOfPath(path));
    if (!folder.empty()) folder.pop_back();
    // Without the last letter, in which the words for one and for many differ.
    std::string name = ToUpper(KindOf(kind).name);
    name.pop_back();
    const std::size_t before = folder.find_last_of("\\/");
    return folder.substr(before == std::string::npos ? 0 : before + 1).starts_with(name);
}

}  // namespace

FileKinds KindsOfFile(const JobRecord& job, FileSystem& files, std::string_view path) {
    for (const JobKind& kind : JobKinds()) {
        if (kind.id != KIND::PIPE_ROUTE && FindFile(job, kind, path) >= 0) return {{kind.id}, {}};
    }
    const FileHead head = HeadOf(files, path);
    if (!head.opened) return {{}, "it can't be opened"};
    std::vector<std::pair<Likelihood, KIND>> likely;
    for (const KindSign& sign : kSigns) {
        const Likelihood likelihood = HasExtension(sign, path) ? kSure : sign.likelihood(head);
        if (likelihood >= kSure) return {{sign.kind}, {}};
        if (likelihood > 0) likely.emplace_back(likelihood + (IsInFolderOf(sign.kind, path) ? kSure : 0), sign.kind);
    }
    std::stable_sort(likely.begin(), likely.end(), [](const auto& a, const auto& b) { return a.first > b.first; });
    FileKinds result;
    for (const auto& [likelihood, kind] : likely) result.kinds.push_back(kind);
    if (result.kinds.empty()) result.reason = "no kind of file that a job holds";
    return result;
}

std::string RefusalOf(const JobRecord& job, FileSystem& files, KIND kindId, std::string_view path) {
    const JobKind& kind = KindOf(kindId);
    const int file = FindFile(job, kind, path);
    if (file < 0) {
        CStdioFile opened(files);
        if (!opened.OpenForReading(path)) return "it can't be opened";
        return "nothing in it is a " + std::string(kind.name);
    }
    const ReadReport& report = kind.report(job, file);
    if (!report.opened && !report.fault.empty()) return report.fault;
    if (report.opened && report.taken == 0) return "nothing in it can be read as " + std::string(kind.name);
    return {};
}

}  // namespace quillon
