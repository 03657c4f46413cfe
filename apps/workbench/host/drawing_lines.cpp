#include "host/drawing_lines.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "foundation/angle_units.h"

namespace quillon {
namespace {

/// Chords of a whole circle, at the least: at 500 pixels across the middle of a chord lies a third of a pixel off.
constexpr double kLeastChords = 72;
/// Large circles are looked at in parts: their chords lie at most so far off, as far as the greatest count allows.
constexpr double kChordMetres = 0.02;
constexpr double kMostChords = 720;
constexpr double kFullTurn = 360.0;

class Placer {
public:
    explicit Placer(const DrawingPlace& at)
        : place(at), sine(std::sin(at.heading * kRadiansPerDegree)), cosine(std::cos(at.heading * kRadiansPerDegree)) {}

    void Add(const CDxfEntity& entity) {
        if (!IsDrawn(entity)) return;
        lines = &byColour[ColourOf(entity)];
        VisitEntity(entity, [this](const auto& record) { AddLines(record); });
    }
    std::map<COLORREF, DrawnLines> Take() {
        std::erase_if(byColour, [](const auto& entry) { return entry.second.points.empty(); });
        return std::move(byColour);
    }

private:
    void Begin() {
        if (!lines->points.empty()) lines->starts.push_back(static_cast<std::uint32_t>(lines->points.size()));
    }
    void Point(double x, double y) {
        x *= place.scale;
        y *= place.scale;
        lines->points.push_back({place.origin.x + x * cosine + y * sine, place.origin.y - x * sine + y * cosine});
    }

    /// Kinds without line work.
    void AddLines(const CDxfEntity&) {}
    void AddLines(const CDxfLine& line) {
        Begin();
        Point(line.start.x, line.start.y);
        Point(line.end.x, line.end.y);
    }
    void AddLines(const CDxfPolyline& line) {
        Begin();
        for (std::size_t i = 0; i < line.count; ++i) Point(line.GetPosition(i).x, line.GetPosition(i).y);
        if (line.IsClosed()) Point(line.GetPosition(0).x, line.GetPosition(0).y);
    }
    void AddLines(const CDxfCircle& circle) { AddArc(circle, 0.0, kFullTurn); }
    void AddLines(const CDxfArc& arc) {
        // The arc runs clockwise from its end bearing to its start bearing.
        double sweep = std::fmod(arc.startBearing - arc.endBearing, kFullTurn);
        if (sweep <= 0.0) sweep += kFullTurn;
        AddArc(arc, arc.endBearing, sweep);
    }
    void AddArc(const CDxfCircle& circle, double from, double sweep) {
        if (!(circle.radius > 0.0)) return;
        Begin();
        const double part = std::max(-1.0, 1.0 - kChordMetres / (circle.radius * place.scale));
        const double wanted = std::clamp(std::numbers::pi / std::acos(part), kLeastChords, kMostChords);
        const int chords = std::max(1, static_cast<int>(std::ceil(sweep / kFullTurn * wanted)));
        for (int i = 0; i <= chords; ++i) {
            const double bearing = (from + sweep * i / chords) * kRadiansPerDegree;
            Point(circle.centre.x + circle.radius * std::sin(bearing),
                  circle.centre.y + circle.radius * std::cos(bearing));
        }
    }
    void AddLines(const CDxfEllipse& ellipse) {
        Begin();
        for (const tagXY& point : ellipse.Outline()) Point(point.x, point.y);
    }
    void AddLines(const CDxfSolid& solid) {
        Begin();
        for (const tagXYZ& corner : solid.corners) Point(corner.x, corner.y);
        Point(solid.corners[0].x, solid.corners[0].y);
    }

    DrawingPlace place;
    double sine;
    double cosine;
    std::map<COLORREF, DrawnLines> byColour;
    DrawnLines* lines = nullptr;
};

}  // namespace

std::map<COLORREF, DrawnLines> PlaceDrawing(const CDxf& drawing, const DrawingPlace& place) {
    Placer placer(place);
    for (const CDxfBlock& block : drawing.blocks) {
        for (const CDxfEntity* entity : block.entities) placer.Add(*entity);
    }
    for (const CDxfEntity* entity : drawing.entities) placer.Add(*entity);
    return placer.Take();
}

}  // namespace quillon
