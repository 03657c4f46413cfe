#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/read_report.h"
#include "frame/messages.h"
#include "job/job_record.h"

namespace quillon {

/// The kinds of things that a job holds, each read from files of its own; in the order of menus and tree.
enum class KIND : std::uint8_t {
    BOUNDARY,
    WAYPOINT,
    ROUTE,
    SAIL_LINE,
    PIPELINE,
    PIPE_ROUTE,
    RPL,
    STRUCTURE,
    DTM,
    SHAPE,
    DIG,
    DXF,
    NONE
};

inline constexpr std::size_t kKindCount = static_cast<std::size_t>(KIND::NONE);

/// How a file of a kind shows on the chart, as far as a small sample can tell.
struct KindLook {
    tagPen line = {};          ///< no line with a thickness of 0
    bool filled = false;       ///< with the fill of the line's pen
    VECTOR_SYMBOL symbol = 0;  ///< at its points
    bool hasSymbol = false;
    COLORREF symbolColour = 0;
    friend bool operator==(const KindLook&, const KindLook&) = default;
};

/// Files whose bytes were put back.
class RestoredFiles {
public:
    explicit RestoredFiles(std::span<const std::string> restored) : paths(restored) {}

    bool Has(std::string_view path) const;
    bool HasPathsOf(const CFileListBase& list) const;
    bool HasCursorOf(const CFileListBase& list) const;
    /// By their names: it may be another file's of that name.
    bool HasSettingsOf(const std::string& dataPath) const;

private:
    std::span<const std::string> paths;
};

/// What every floor above asks of a kind. Files are known by their number within the kind, from 0, and their points
/// (waypoints, legs' ends, lines) by their number within the file; InvalidArgument for what isn't there. What lies
/// under the chart as a whole has files, and no points and no edit cursor.
struct JobKind {
    KIND id;
    /// NONE for a kind that no message names.
    FEATURE_TYPES type;
    std::string_view name;  ///< "Sail Line"
    void (*load)(JobRecord& job);
    /// The list with the edit cursor. Null for a kind that is in no such list.
    CFileListBase* (*list)(JobRecord& job);
    int (*fileCount)(const JobRecord& job);
    const std::string& (*path)(const JobRecord& job, int file);
    int (*pointCount)(const JobRecord& job, int file);
    tagXY (*point)(const JobRecord& job, int file, int point);
    /// What a point goes by; empty where points have no names.
    std::string_view (*pointName)(const JobRecord& job, int file, int point);
    /// What a point without a name is called by its place in the file: "point", "line".
    std::string_view pointWord;
    /// How far along the feature a point lies, kilometres; MISSING_VALUE for kinds without KPs.
    double (*pointKp)(const JobRecord& job, int file, int point);
    /// Where points don't lie on the line that they shape, as those of curves: the KP of the place of the line nearest
    /// to a position, and where a KP lies. Null for kinds whose lines lead straight from point to point.
    double (*kpAt)(const JobRecord& job, int file, tagXY at);
    std::optional<tagXY> (*placeAtKp)(const JobRecord& job, int file, double kp);
    /// What the last reading made of the file; of a kind whose files hold no lines, of its records.
    const ReadReport& (*report)(const JobRecord& job, int file);
    /// Whether the file was of no use, so that there is nothing to draw or measure.
    bool (*isStub)(const JobRecord& job, int file);
    /// What has become of the file on the disk since it was read.
    DISK_CHANGE (*changeOnDisk)(const JobRecord& job, int file);
    /// Reads the file anew, in its place; its display choices stay. False, with what was read before, if it can't be
    /// opened.
    bool (*readAgain)(JobRecord& job, int file);
    /// What else is to be said of it, for people, a sentence each.
    std::vector<std::string> (*notes)(const JobRecord& job, int file);
    bool (*isDisplayed)(const JobRecord& job, int file);
    KindLook (*look)(const JobRecord& job, int file);
    /// Takes over what another feature has stored in settings files that they share; false if nothing.
    bool (*followStored)(JobRecord& job, int file);
    /// Writes what the panes leave unwritten, flags above all; null where they leave nothing.
    void (*keepUnsaved)(JobRecord& job, int file);
    /// Reads anew what stands in files that were put back; the numbers of the files that are others than they were.
    std::vector<int> (*readRestored)(JobRecord& job, const RestoredFiles& restored);
};

/// Every kind, in the order of their numbers.
std::span<const JobKind, kKindCount> JobKinds();

/// `kind` isn't NONE.
const JobKind& KindOf(KIND kind);
/// Null for a type that no kind has.
const JobKind* FindKind(FEATURE_TYPES type);

/// For tables of higher floors, whose rows begin with `KIND kind`: whether each kind has a row.
template <class Row, std::size_t Count>
consteval bool HasEveryKind(const std::array<Row, Count>& rows) {
    std::array<bool, kKindCount + 1> seen{};
    for (const Row& row : rows) seen[static_cast<std::size_t>(row.kind)] = true;
    for (std::size_t i = 0; i < kKindCount; ++i) {
        if (!seen[i]) return false;
    }
    return true;
}

}  // namespace quillon
