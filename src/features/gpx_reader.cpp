#include "features/gpx_reader.h"

#include <algorithm>
#include <cmath>
#include <pugixml.hpp>

#include "foundation/angle_units.h"
#include "foundation/calendar_time.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr double kSecondsPerMinute = 60.0;

// ---- Times ----

/// Takes what a text begins with.
class TextTaker {
public:
    explicit TextTaker(std::string_view taken) : rest(taken) {}

    /// So many digits; -1 if they aren't there.
    int Digits(std::size_t count) {
        if (rest.size() < count) return -1;
        int number = 0;
        for (const char c : rest.substr(0, count)) {
            if (c < '0' || c > '9') return -1;
            number = number * 10 + (c - '0');
        }
        rest.remove_prefix(count);
        return number;
    }
    bool Character(char wanted) {
        if (rest.empty() || rest.front() != wanted) return false;
        rest.remove_prefix(1);
        return true;
    }
    /// Digits behind a point, as a part of one.
    double Fraction() {
        double fraction = 0.0;
        for (double place = 0.1; !rest.empty() && rest.front() >= '0' && rest.front() <= '9'; place /= 10.0) {
            fraction += place * (rest.front() - '0');
            rest.remove_prefix(1);
        }
        return fraction;
    }
    bool IsEmpty() const { return rest.empty(); }

private:
    std::string_view rest;
};

/// Minutes east of Greenwich; none if what stands there is no zone.
std::optional<int> TakeZone(TextTaker& text) {
    if (text.IsEmpty() || text.Character('Z') || text.Character('z')) return 0;
    const bool east = text.Character('+');
    if (!east && !text.Character('-')) return std::nullopt;
    const int hours = text.Digits(2);
    text.Character(':');
    const int minutes = text.IsEmpty() ? 0 : text.Digits(2);
    if (hours < 0 || hours > 14 || minutes < 0 || minutes > 59) return std::nullopt;
    return (east ? 1 : -1) * (hours * 60 + minutes);
}

// ---- Elements ----

/// The name without the prefix of a name space.
std::string_view LocalName(const pugi::xml_node& node) {
    const std::string_view name = node.name();
    const std::size_t colon = name.find(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

template <class Act>
void EachChild(const pugi::xml_node& node, std::string_view name, Act act) {
    for (const pugi::xml_node& child : node.children()) {
        if (LocalName(child) == name) act(child);
    }
}

std::string_view ChildText(const pugi::xml_node& node, std::string_view name) {
    for (const pugi::xml_node& child : node.children()) {
        if (LocalName(child) == name) return Trim(child.text().get());
    }
    return {};
}

/// Degrees as radians; none outside the limit and for what is no number.
std::optional<double> Angle(const pugi::xml_node& node, const char* attribute, double limit) {
    double degrees = 0.0;
    if (!ScanNumber(Trim(node.attribute(attribute).value()), degrees)) return std::nullopt;
    if (!(std::fabs(degrees) <= limit)) return std::nullopt;
    return degrees / kDegreesPerRadian;
}

class GpxReader {
public:
    GpxReader(std::string_view source, CGPX& target, GpxReport& made) : bytes(source), gpx(target), report(made) {}

    void Read() {
        pugi::xml_document document;
        const pugi::xml_parse_result parsed = document.load_buffer(bytes.data(), bytes.size());
        const pugi::xml_node root = document.document_element();
        if (LocalName(root) != "gpx") {
            report.fault = parsed ? "no GPX file" : FaultText(parsed);
            return;
        }
        // What stands before a break is whole.
        if (!parsed) report.fault = FaultText(parsed);
        EachChild(root, "wpt", [this](const pugi::xml_node& node) { TakeWaypoint(node); });
        EachChild(root, "trk", [this](const pugi::xml_node& node) { TakeTrack(node); });
        int routes = 0;
        EachChild(root, "rte", [&](const pugi::xml_node& node) { TakeRoute(node, ++routes); });
        report.opened = parsed || !gpx.tracks.empty() || !gpx.waypoints.empty();
    }

private:
    std::string FaultText(const pugi::xml_parse_result& parsed) const {
        return Format("line %zu: %s", LineOf(parsed.offset), parsed.description());
    }
    std::size_t LineOf(std::ptrdiff_t offset) const {
        const auto end = bytes.begin() + std::clamp<std::ptrdiff_t>(offset, 0, std::ssize(bytes));
        return static_cast<std::size_t>(std::count(bytes.begin(), end, '\n')) + 1;
    }
    static std::string NameOf(const pugi::xml_node& node, const char* kind, std::size_t number) {
        const std::string_view name = ChildText(node, "name");
        if (name.empty()) return Format("%s %zu", kind, number);
        // Names are keys in a file of lines.
        std::string text = TextFromUtf8(name);
        const auto breaks = [](char c) { return static_cast<unsigned char>(c) < ' '; };
        std::replace_if(text.begin(), text.end(), breaks, ' ');
        return text;
    }

    /// False, and counted, where there is no position.
    template <class Point>
    bool TakePoint(const pugi::xml_node& node, Point& point) {
        const std::optional<double> latitude = Angle(node, "lat", 90.0), longitude = Angle(node, "lon", 180.0);
        if (!latitude || !longitude) {
            if (report.passedOver++ == 0) report.firstPassed = LineOf(node.offset_debug());
            return false;
        }
        point.latitude = *latitude;
        point.longitude = *longitude;
        ScanNumber(ChildText(node, "ele"), point.elevation);
        if (!std::isfinite(point.elevation)) point.elevation = 0.0;
        const std::string_view time = ChildText(node, "time");
        if (time.empty()) return true;
        const std::optional<double> seconds = GpxTime(time);
        if (!seconds) ++report.badTimes;
        point.time = seconds.value_or(0.0);
        return true;
    }

    void TakePoints(const pugi::xml_node& parent, std::string_view name, GpxTrack& track) {
        const auto first = static_cast<std::uint32_t>(track.points.size());
        EachChild(parent, name, [&](const pugi::xml_node& node) {
            GpxPoint point;
            if (TakePoint(node, point)) track.points.push_back(point);
        });
        if (track.points.size() > first) track.segments.push_back(first);
    }

    void TakeTrack(const pugi::xml_node& node) {
        GpxTrack& track = gpx.tracks.emplace_back();
        track.name = NameOf(node, "Track", gpx.tracks.size());
        EachChild(node, "trkseg", [&](const pugi::xml_node& segment) { TakePoints(segment, "trkpt", track); });
    }

    void TakeRoute(const pugi::xml_node& node, int number) {
        GpxTrack& track = gpx.tracks.emplace_back();
        track.name = NameOf(node, "Route", static_cast<std::size_t>(number));
        TakePoints(node, "rtept", track);
    }

    void TakeWaypoint(const pugi::xml_node& node) {
        GpxWaypoint waypoint;
        if (!TakePoint(node, waypoint)) return;
        waypoint.name = NameOf(node, "Waypoint", gpx.waypoints.size() + 1);
        gpx.waypoints.push_back(std::move(waypoint));
    }

    std::string_view bytes;
    CGPX& gpx;
    GpxReport& report;
};

}  // namespace

std::optional<double> GpxTime(std::string_view text) {
    TextTaker taker(Trim(text));
    CalendarTime time;
    time.year = taker.Digits(4);
    if (!taker.Character('-')) return std::nullopt;
    time.month = taker.Digits(2);
    if (!taker.Character('-')) return std::nullopt;
    time.day = taker.Digits(2);
    if (!taker.Character('T') && !taker.Character(' ')) return std::nullopt;
    time.hour = taker.Digits(2);
    if (!taker.Character(':')) return std::nullopt;
    time.minute = taker.Digits(2);
    if (!taker.Character(':')) return std::nullopt;
    time.second = taker.Digits(2);
    const double fraction = taker.Character('.') || taker.Character(',') ? taker.Fraction() : 0.0;
    const std::optional<int> zone = TakeZone(taker);
    const bool isDate = time.year >= 1 && time.day >= 1 && time.day <= DaysInMonth(time.month, time.year);
    // A second of 60 is a leap second, and 24:00:00 the end of a day.
    const bool isTime = time.hour >= 0 && time.hour <= 24 && time.minute >= 0 && time.minute <= 59 &&
                        time.second >= 0 && time.second <= 60;
    if (!isDate || !isTime || !zone || !taker.IsEmpty()) return std::nullopt;
    time.Recompute();
    return time.epochSeconds + fraction - *zone * kSecondsPerMinute;
}

void ReadGpx(std::string_view bytes, CGPX& gpx, GpxReport& report) {
    GpxReader(bytes, gpx, report).Read();
}

}  // namespace quillon
