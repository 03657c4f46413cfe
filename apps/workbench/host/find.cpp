#include "host/find.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "foundation/paths.h"
#include "host/identify.h"
#include "platform/text.h"

namespace quillon {
namespace {

/// The thin blank between groups of figures, as it comes from the status line's position.
constexpr std::string_view kThinBlank = "\xABU+202F\xBB";

const std::array<char, 256>& Capitals() {
    static const std::array<char, 256> table = [] {
        std::array<char, 256> made{};
        for (std::size_t i = 0; i < made.size(); ++i) made[i] = ToUpper(static_cast<char>(i));
        return made;
    }();
    return table;
}

/// `part` is in capitals and not empty.
bool Holds(std::string_view text, std::string_view part) {
    const auto& capitals = Capitals();
    const auto isEqual = [&](char a, char b) { return capitals[static_cast<unsigned char>(a)] == b; };
    return std::search(text.begin(), text.end(), part.begin(), part.end(), isEqual) != text.end();
}

bool IsPlainNumber(std::string_view text, double& number) {
    return !text.empty() && ScanNumber(text, number) && std::abs(number) <= kFarthestPlace;
}

std::optional<double> ParseKp(std::string_view capitals) {
    if (!capitals.starts_with("KP")) return std::nullopt;
    double kp = 0.0;
    return IsPlainNumber(Trim(capitals.substr(2)), kp) ? std::optional(kp) : std::nullopt;
}

/// The figures behind a letter, their groups put together.
std::string Joined(std::string_view text) {
    std::string joined;
    for (const char c : Trim(text)) {
        if (c != ' ' && c != ',') joined += c;
    }
    return joined;
}

std::optional<tagXY> PositionOf(std::string_view easting, std::string_view northing) {
    tagXY position;
    if (!IsPlainNumber(easting, position.x) || !IsPlainNumber(northing, position.y)) return std::nullopt;
    return position;
}

/// "E 503 150.000   N 5 843 620.000" or "503150E 5843620N".
std::optional<tagXY> ParseLetteredPosition(std::string_view capitals) {
    const std::size_t e = capitals.find('E'), n = capitals.find('N');
    if (e == std::string_view::npos || n == std::string_view::npos || n < e) return std::nullopt;
    if (Trim(capitals.substr(0, e)).empty()) {
        return PositionOf(Joined(capitals.substr(e + 1, n - e - 1)), Joined(capitals.substr(n + 1)));
    }
    if (!Trim(capitals.substr(n + 1)).empty()) return std::nullopt;
    return PositionOf(Joined(capitals.substr(0, e)), Joined(capitals.substr(e + 1, n - e - 1)));
}

std::optional<tagXY> ParsePosition(std::string_view capitals) {
    const std::size_t gap = capitals.find_first_of(" ,;\t");
    if (gap == std::string_view::npos) return std::nullopt;
    const std::size_t behind = capitals.find_first_not_of(" ,;\t", gap);
    if (behind == std::string_view::npos) return std::nullopt;
    return PositionOf(capitals.substr(0, gap), capitals.substr(behind));
}

}  // namespace

FindQuery ParseFindQuery(std::string_view text) {
    FindQuery query;
    query.name = ToUpper(std::string(Trim(Replace(text, kThinBlank, ""))));
    query.kp = ParseKp(query.name);
    query.position = ParseLetteredPosition(query.name);
    if (!query.position) query.position = ParsePosition(query.name);
    return query;
}

void Finder::Ask(std::string_view text) {
    query = ParseFindQuery(text);
    found.clear();
    counted = CountPoints();
    kindAt = 0;
    file = point = 0;
    step = query.name.empty() ? STEP::DONE : STEP::FILES;
    if (query.position) {
        found.push_back({{}, *query.position, Format("E %.3lf  N %.3lf", query.position->x, query.position->y)});
    }
}

bool Finder::Look(std::size_t points) {
    if (step == STEP::FILES) {
        LookAtFiles();
        step = STEP::POINTS;
    }
    while (points > 0 && !IsThrough()) points -= std::min(points, LookAtPoints(points));
    return !IsThrough();
}

void Finder::LookAtFiles() {
    for (const JobKind& kind : JobKinds()) {
        for (int i = 0; i < kind.fileCount(job) && !IsCut(); ++i) {
            if (kind.pointCount(job, i) == 0 || !Holds(NameOfPath(kind.path(job, i)), query.name)) continue;
            found.push_back({{kind.id, i, -1}, kind.point(job, i, 0), FileText(job, kind.id, i)});
        }
    }
}

void Finder::NextFile() {
    ++file;
    point = 0;
}

/// The pipe route is mostly one of the pipelines: its KPs are found once.
bool Finder::IsShownTwice(const JobKind& kind, int which) const {
    return kind.id == KIND::PIPE_ROUTE && job.pipelines.Find(kind.path(job, which)) >= 0;
}

std::vector<int> Finder::CountPoints() const {
    std::vector<int> counts;
    for (const JobKind& kind : JobKinds()) {
        counts.push_back(-1);
        for (int i = 0; i < kind.fileCount(job); ++i) counts.push_back(kind.pointCount(job, i));
    }
    return counts;
}

/// Goes on in the file at hand, or to the next one; how many points that took, at least 1.
std::size_t Finder::LookAtPoints(std::size_t most) {
    if (kindAt >= JobKinds().size()) {
        step = STEP::DONE;
        return 1;
    }
    const JobKind& kind = JobKinds()[kindAt];
    if (file >= kind.fileCount(job)) {
        ++kindAt;
        file = point = 0;
        return 1;
    }
    const int first = point;
    const int end = static_cast<int>(std::min<std::size_t>(static_cast<std::size_t>(kind.pointCount(job, file)),
                                                           static_cast<std::size_t>(first) + most));
    const bool hasKps =
        query.kp && first < end && !IsMissing(kind.pointKp(job, file, first)) && !IsShownTwice(kind, file);
    for (; point < end && !IsCut(); ++point) {
        LookAtPoint(kind, point);
        if (hasKps) LookAtLeg(kind, point);
    }
    const std::size_t looked = static_cast<std::size_t>(point - first) + 1;
    if (point >= kind.pointCount(job, file)) NextFile();
    return looked;
}

void Finder::LookAtPoint(const JobKind& kind, int index) {
    const std::string_view name = kind.pointName(job, file, index);
    if (name.size() < query.name.size() || !Holds(name, query.name)) return;
    const JobPoint what{kind.id, file, index};
    found.push_back({what, kind.point(job, file, index), FileText(job, kind.id, file) + ": " + PointText(job, what)});
}

/// A line with curves is looked at once, as a whole.
void Finder::LookAlongLine(const JobKind& kind, int index) {
    const auto place = index == 0 ? kind.placeAtKp(job, file, *query.kp) : std::nullopt;
    if (place) found.push_back({{}, *place, FileText(job, kind.id, file) + ": " + KpPlaceText(*query.kp)});
}

/// The leg that ends in the point; the first point alone is looked at as a leg of no length.
void Finder::LookAtLeg(const JobKind& kind, int index) {
    if (kind.placeAtKp) return LookAlongLine(kind, index);
    const int before = std::max(index - 1, 0);
    const double kp = *query.kp, from = kind.pointKp(job, file, before), to = kind.pointKp(job, file, index);
    const auto [least, most] = std::minmax(from, to);
    if (kp < least || kp > most || (kp == from && index > 0)) return;
    const tagXY a = kind.point(job, file, before), b = kind.point(job, file, index);
    const double part = from == to ? 1.0 : (kp - from) / (to - from);
    found.push_back({{},
                     {a.x + part * (b.x - a.x), a.y + part * (b.y - a.y)},
                     FileText(job, kind.id, file) + ": " + KpPlaceText(kp)});
}

}  // namespace quillon
