#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/job.h"
#include "scene/chart_geometry.h"

namespace quillon {

/// Something that a search came upon.
struct FoundPlace {
    JobPoint what;     ///< the point -1 for a file; NONE for a bare place
    tagXY at;          ///< of a file its first point
    std::string text;  ///< "Waypoint Wrecks: Wreck 7", "Pipeline Export: KP 12.345"
};

/// What a typed text asks for besides names. Windows-1252.
struct FindQuery {
    std::string name;               ///< part of a name, in capitals
    std::optional<double> kp;       ///< "KP 12.345", kilometres
    std::optional<tagXY> position;  ///< "503150 5843620", easting and northing; with E and N also in groups of figures
};
FindQuery ParseFindQuery(std::string_view text);

/// Looks for a text through all that a job holds: a position, the KP on every line that has it, files and points whose
/// names hold it in whatever capitals.
///
/// The search goes on in steps, so that nobody waits for a million names. The job may change between two steps; what
/// was found may then be out of date.
class Finder {
public:
    /// What is found at most.
    static constexpr std::size_t kMostFound = 1000;

    explicit Finder(const JobRecord& record) : job(record) {}

    /// Begins a search; an empty text finds nothing.
    void Ask(std::string_view text);
    /// Looks at about so many more points. False when the search is through.
    bool Look(std::size_t points);

    const std::vector<FoundPlace>& Found() const { return found; }
    /// Whether files or points have come or gone since the search began.
    bool IsOutOfDate() const { return CountPoints() != counted; }
    /// Whether there may be more than what was found.
    bool IsCut() const { return found.size() >= kMostFound; }

private:
    bool IsThrough() const { return step == STEP::DONE || IsCut(); }
    void LookAtFiles();
    std::size_t LookAtPoints(std::size_t most);
    void LookAtPoint(const JobKind& kind, int point);
    void LookAlongLine(const JobKind& kind, int index);
    void LookAtLeg(const JobKind& kind, int point);
    bool IsShownTwice(const JobKind& kind, int which) const;
    void NextFile();
    /// How many points each file has.
    std::vector<int> CountPoints() const;

    enum class STEP { FILES, POINTS, DONE };

    const JobRecord& job;
    FindQuery query;
    std::vector<FoundPlace> found;
    STEP step = STEP::DONE;
    std::size_t kindAt = 0;  ///< where the search goes on
    int file = 0;
    int point = 0;
    std::vector<int> counted;
};

}  // namespace quillon
