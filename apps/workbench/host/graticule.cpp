#include "host/graticule.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "foundation/angle_units.h"
#include "foundation/range_bearing.h"
#include "platform/text.h"

namespace quillon {
namespace {

/// Seconds between lines: what divides a degree or a right angle evenly.
constexpr std::array<double, 20> kSteps = {0.1, 0.2, 0.5, 1,    2,    5,    10,   20,    30,    60,
                                           120, 300, 600, 1200, 1800, 3600, 7200, 18000, 36000, 108000};
constexpr double kSecondsPerDegree = 3600.0;
constexpr double kLinesAcross = 6.0;
/// Places at which the geographic extent of a box is looked at, a side.
constexpr int kSamples = 17;
/// Points of a line across the box: at 2000 pixels a chord is off a circle of the box's size by a fifth of a pixel.
constexpr int kPointsALine = 64;
/// A line every degree round the earth is more than fits; of a step too small for a box there are none.
constexpr double kMostLines = 400;
/// A view is worked out with as much again on every side, so that panning seldom waits.
constexpr double kRoom = 0.5;
/// Zoomed in or out by more, another step may be due.
constexpr double kScaleChange = 1.3;
constexpr COLORREF kInk = RGB(96, 128, 160);

struct GeographicBox {
    double south = 90, north = -90, west = 0, east = 0;  ///< degrees; west and east run on over 180
    bool isEmpty = true;

    void Add(const tagLatLon& at) {
        // Near the meridian seen first, however the turns are counted.
        const double longitude = isEmpty ? at.longitude : west + std::remainder(at.longitude - west, 360.0);
        south = std::min(south, at.latitude);
        north = std::max(north, at.latitude);
        west = isEmpty ? longitude : std::min(west, longitude);
        east = isEmpty ? longitude : std::max(east, longitude);
        isEmpty = false;
    }
};

GeographicBox ExtentOver(const CJobGeodesy& geodesy, const ChartBox& box) {
    GeographicBox extent;
    for (int row = 0; row < kSamples; ++row) {
        for (int column = 0; column < kSamples; ++column) {
            const double x = column / (kSamples - 1.0), y = row / (kSamples - 1.0);
            const auto at =
                geodesy.ToGeographic({box.minX + x * (box.maxX - box.minX), box.minY + y * (box.maxY - box.minY)});
            if (at) extent.Add(*at);
        }
    }
    return extent;
}

double StepFor(double degrees) {
    const double wanted = degrees * kSecondsPerDegree / kLinesAcross;
    const auto step = std::find_if(kSteps.begin(), kSteps.end(), [wanted](double s) { return s >= wanted; });
    return (step == kSteps.end() ? kSteps.back() : *step) / kSecondsPerDegree;
}

class GraticuleMaker {
public:
    GraticuleMaker(const CJobGeodesy& jobGeodesy, const ChartBox& drawn) : geodesy(jobGeodesy), box(drawn) {}

    void Run(const ItemMaker::Stop& stop) {
        extent = ExtentOver(geodesy, box);
        if (extent.isEmpty) return;
        // One step for both: cells are as square as the latitude lets them be.
        const double height = extent.north - extent.south, width = extent.east - extent.west;
        step = StepFor(std::max(height, std::min(width, height * 4)));
        if (std::max(height, width) / step > kMostLines) return;
        for (double line = First(extent.west); line <= extent.east && !stop; line += step) AddLine(line, false);
        for (double line = First(extent.south); line <= extent.north && !stop; line += step) AddLine(line, true);
    }
    GraticuleLines lines;

private:
    double First(double from) const { return std::ceil(from / step - 1e-9) * step; }

    tagLatLon At(double line, bool isParallel, double along) const {
        return isParallel ? tagLatLon{line, along} : tagLatLon{along, line};
    }
    void AddLine(double line, bool isParallel) {
        const double from = isParallel ? extent.west : extent.south, to = isParallel ? extent.east : extent.north;
        bool joined = false;
        for (int i = 0; i <= kPointsALine; ++i) {
            const auto at = geodesy.FromGeographic(At(line, isParallel, from + (to - from) * i / kPointsALine));
            if (!at) {
                joined = false;
                continue;
            }
            if (!joined && !lines.points.empty())
                lines.starts.push_back(static_cast<std::uint32_t>(lines.points.size()));
            lines.points.push_back(*at);
            joined = true;
        }
        for (double cell = First(from) + step / 2; cell < to; cell += step) AddLabel(line, isParallel, cell);
    }
    /// In the middle between two crossings.
    void AddLabel(double line, bool isParallel, double along) {
        const double near = step / 100;
        const auto at = geodesy.FromGeographic(At(line, isParallel, along));
        const auto on = geodesy.FromGeographic(At(line, isParallel, along + near));
        if (!at || !on) return;
        double bearing = 0.0;
        RangeBearing(*at, *on, &bearing, nullptr);
        lines.labels.push_back({*at, bearing, GraticuleText(line, step, isParallel)});
    }

    const CJobGeodesy& geodesy;
    ChartBox box;
    GeographicBox extent;
    double step = 0.0;
};

std::shared_ptr<const ChartLayer> LayerOf(GraticuleLines lines) {
    auto layer = std::make_shared<ChartLayer>();
    layer->id = GraticuleLayer::kLayer;
    ChartPath path;
    path.path = MakePath(std::move(lines.points), {.starts = std::move(lines.starts)});
    path.line = {kInk, 1, PS_SOLID};
    path.canBeHit = false;
    path.extends = false;
    layer->items.push_back(std::move(path));
    std::vector<tagXY> places;
    for (const GraticuleLines::Label& label : lines.labels) places.push_back(label.at);
    ChartTexts texts;
    texts.places = MakePath(std::move(places), {.every = 1});
    const auto labels = std::make_shared<const std::vector<GraticuleLines::Label>>(std::move(lines.labels));
    texts.textOf = [labels](std::size_t index) {
        const GraticuleLines::Label& label = (*labels)[index];
        return ChartText{.text = label.text, .along = label.along, .position = 1, .gap = 1};
    };
    texts.colour = kInk;
    texts.extends = false;
    layer->items.push_back(std::move(texts));
    return layer;
}

}  // namespace

std::string GraticuleText(double degrees, double stepDegrees, bool isLatitude) {
    if (!isLatitude) degrees = std::remainder(degrees, 360.0);
    const auto tenths = std::llround(std::fabs(degrees) * kSecondsPerDegree * 10);
    const auto step = std::llround(stepDegrees * kSecondsPerDegree * 10);
    std::string text = Format(isLatitude ? "%02lld\xB0" : "%03lld\xB0", tenths / 36000);
    if (step % 36000 != 0) text += Format(" %02lld'", tenths / 600 % 60);
    if (step % 600 != 0) text += Format(step % 10 == 0 ? " %02lld\"" : " %02lld.%lld\"", tenths / 10 % 60, tenths % 10);
    const bool isNegative = degrees < 0 && tenths != 0;
    if (tenths == 0 || (!isLatitude && tenths == 180 * 36000LL)) return text;
    return text + (isLatitude ? (isNegative ? "S" : "N") : (isNegative ? "W" : "E"));
}

GraticuleLines MakeGraticule(const CJobGeodesy& geodesy, const ChartBox& box, const ItemMaker::Stop& stop) {
    GraticuleMaker maker(geodesy, box);
    if (geodesy.IsChosen() && !box.IsEmpty()) maker.Run(stop);
    return std::move(maker.lines);
}

// ---- The layer ----

void GraticuleLayer::SetGrid(const CJobGeodesy* geodesy) {
    grid = geodesy && geodesy->IsChosen() ? geodesy->Copy() : nullptr;
    layer.reset();
    asked = {};
    if (ticket != 0) maker.Drop(std::exchange(ticket, 0));
    Ask();
}

void GraticuleLayer::SetView(const ChartView& shown) {
    view = shown;
    Ask();
}

void GraticuleLayer::Ask() {
    if (!grid || !view) return;
    const ChartBox seen = view->WorldBox();
    const double change = view->MetresPerPixel() / askedScale;
    const bool covered = !asked.IsEmpty() && asked.minX <= seen.minX && asked.minY <= seen.minY &&
                         asked.maxX >= seen.maxX && asked.maxY >= seen.maxY;
    if (covered && change < kScaleChange && change > 1 / kScaleChange) return;
    askedScale = view->MetresPerPixel();
    asked = view->WorldBox(kRoom * std::max(view->Width(), view->Height()));
    if (ticket != 0) maker.Drop(ticket);
    ticket = maker.Ask([geodesy = grid, box = asked](const ItemMaker::Stop& stop) -> std::shared_ptr<const void> {
        return LayerOf(MakeGraticule(*geodesy, box, stop));
    });
}

std::optional<ChartLayer> GraticuleLayer::Layer() {
    for (const ItemMaker::Made& made : maker.Take()) {
        if (made.ticket != ticket) continue;
        layer = std::static_pointer_cast<const ChartLayer>(made.data);
        ticket = 0;
    }
    return grid && layer ? std::optional(*layer) : std::nullopt;
}

}  // namespace quillon
