#include "chart/chart_painter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "chart/line_painter.h"
#include "chart/qpainter_device.h"
#include "drawing/my_dc.h"
#include "platform/text.h"
#include "scene/chart_grid.h"
#include "scene/line_clip.h"

namespace quillon {
namespace {

/// How far what is drawn may lie from what is meant, in pixels of the device.
constexpr double kTolerance = 0.4;
/// An area's edge runs below its line, and may be coarser.
constexpr double kAreaTolerance = 0.8;
constexpr std::size_t kMostAreaVertices = 6000;
/// Each row of pixels that an edge runs through costs 0.1 microseconds.
constexpr double kMostAreaPixels = 1.2e5;
constexpr std::size_t kMostSmoothAreaVertices = 1500;
/// Areas let show through what they cover, and never outshine the lines round them.
constexpr int kSolidAlpha = 84;
constexpr int kHatchAlphaByDay = 76;
constexpr int kHatchAlphaByNight = 104;
constexpr int kHatchPixels = 8;
constexpr int kBrightestAtNight = 184;
/// Cells for labels of points without a symbol.
constexpr double kLeastCell = 14.0;
constexpr double kRoomRoundLabels = 3.0;
constexpr double kLeastLegPixels = 56.0;
constexpr int kLegTextGap = 3;
constexpr double kLeastArrowLegPixels = 40.0;
/// Of the ground behind texts without a frame.
constexpr int kPatchAlpha = 208;
constexpr double kLeastCirclePixels = 1.0;

const CFont kTextFont{"Tahoma", -11, FW_NORMAL, 0};

bool IsUsable(const ChartLine& line) {
    return line.thickness > 0 && line.style != PS_NULL;
}

std::vector<PixelPoint> RingOf(PixelPoint centre, double radius) {
    // A chord departs from its arc by radius * (1 - cos(half its angle)).
    constexpr double kDeparture = 0.2;
    const double half = std::acos(std::max(0.0, 1.0 - kDeparture / radius));
    const auto count = static_cast<std::size_t>(std::clamp(std::ceil(std::numbers::pi / half), 12.0, 20000.0));
    std::vector<PixelPoint> ring(count);
    for (std::size_t i = 0; i < count; ++i) {
        const double t = 2.0 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(count);
        ring[i] = {centre.x + radius * std::sin(t), centre.y - radius * std::cos(t)};
    }
    return ring;
}

/// True if a circle's border or inside can be seen in a box of pixels.
bool Shows(const ChartBox& box, PixelPoint centre, double radius, bool isFilled) {
    if (!box.Grown(radius).Contains(centre.x, centre.y)) return false;
    const double dx = std::max(std::abs(centre.x - box.minX), std::abs(centre.x - box.maxX));
    const double dy = std::max(std::abs(centre.y - box.minY), std::abs(centre.y - box.maxY));
    return isFilled || std::hypot(dx, dy) >= radius;
}

/// A text that stands along a line: where, and the boxes that it covers.
struct TurnedText {
    PixelPoint middle;
    double angle = 0.0;  ///< on the screen, radians clockwise, within a quarter turn of level
    double width = 0.0, height = 0.0;

    std::vector<ChartBox> Boxes() const {
        const int count = std::max(1, static_cast<int>(std::ceil(width / height)));
        std::vector<ChartBox> boxes;
        for (int i = 0; i < count; ++i) {
            const double along = width * ((i + 0.5) / count - 0.5);
            const double x = middle.x + along * std::cos(angle), y = middle.y + along * std::sin(angle);
            boxes.push_back(ChartBox{x, y, x, y}.Grown(0.6 * height));
        }
        return boxes;
    }
};

}  // namespace

/// One paint.
class ChartPaint {
public:
    ChartPaint(ChartPainter& shared, QPainter& target, const ChartView& chartView, const ChartScene& chartScene,
               bool isNight)
        : owner(shared),
          painter(target),
          view(chartView),
          scene(chartScene),
          night(isNight),
          colours(ColoursOf(isNight)),
          reach(target),
          device(target),
          dc(&device) {
        dc.background = colours.ground;
        dc.labelBrush = {kFillSolid, colours.labelGround};
        dc.blackBrush = {kFillSolid, colours.labelFrame};
        dc.labelInk = colours.labelInk;
    }

    void Run();

private:
    /// A label or text that waits for its turn.
    struct Candidate {
        int priority = 0;
        const ChartTextOf* textOf = nullptr;
        std::size_t index = 0;
        const ChartText* text = nullptr;
        PixelPoint at;
        LABEL_POSITION position = 0;
        int gap = 0;
        std::optional<PixelPoint> legEnd = {};
        COLORREF colour = 0;
    };

    DrawingLimits AreaLimits() const {
        return {kAreaTolerance / reach.scale, kMostAreaVertices, kMostAreaPixels / reach.scale, 4.0};
    }
    DrawingLimits LineLimits(double width) const {
        return {kTolerance / reach.scale, MostLineVertices(width, reach), MostLinePixels(width, reach), width + 4.0};
    }
    void Ground();
    void GridLines(const ChartGrid& grid);
    void Areas();
    void Area(const ChartFill& fill, bool hasLine, const PixelLines& areas);
    void LayerLinesAndMarks(std::size_t layer);
    void Circle(const ChartCircle& circle);
    void CircleArea(const ChartCircle& circle);
    void Arrows(std::size_t layer, std::size_t path);
    void Marks(std::size_t layer, std::size_t path);
    void Symbol(const ChartMarks& style, PixelPoint at);
    void CollectLegs(std::size_t layer, std::size_t path);
    void CollectTexts(const ChartLayer& layer);
    void Labels();
    void Label(const Candidate& candidate, std::string_view text);
    void LegText(const Candidate& candidate, std::string_view text);
    void FreeText(const Candidate& candidate);
    void Turned(PixelPoint at, double angle, double room, LABEL_POSITION position, int gap, COLORREF colour,
                std::string_view text);
    void Level(std::string_view text, const tagRECT& box, COLORREF colour);
    void PlainText(const QRect& box, const std::string& text);
    void Shown();
    void GridFigures(const ChartGrid& grid);
    void ScaleBar();
    QPointF HatchOrigin() const;

    ChartPainter& owner;
    QPainter& painter;
    const ChartView& view;
    const ChartScene& scene;
    bool night;
    const ChartColours& colours;
    PaintTarget reach;
    QPainterDevice device;
    CMyDC dc;
    std::vector<Candidate> candidates;
};

void ChartPaint::Run() {
    const ChartGrid grid = GridOf(view);
    painter.save();
    painter.setClipRect(QRect(0, 0, view.Width(), view.Height()), Qt::IntersectClip);
    Ground();
    GridLines(grid);
    Areas();
    for (std::size_t layer = 0; layer < scene.layers.size(); ++layer) LayerLinesAndMarks(layer);
    Labels();
    Shown();
    GridFigures(grid);
    ScaleBar();
    painter.restore();
}

void ChartPaint::Ground() {
    painter.fillRect(QRect(0, 0, view.Width(), view.Height()), ToQColor(colours.ground));
}

void ChartPaint::GridLines(const ChartGrid& grid) {
    const double thin = 1.0 / std::max(1.0, reach.scale);
    const auto snap = [&](double v) { return std::floor(v * reach.scale) / reach.scale; };
    const QColor colour = ToQColor(colours.gridLine);
    for (const ChartGridLine& line : grid.eastings) {
        painter.fillRect(QRectF(snap(line.pixel), 0, thin, view.Height()), colour);
    }
    for (const ChartGridLine& line : grid.northings) {
        painter.fillRect(QRectF(0, snap(line.pixel), view.Width(), thin), colour);
    }
}

/// Hatches are fixed to the grid, on whole pixels of the device.
QPointF ChartPaint::HatchOrigin() const {
    const PixelPoint zero = view.ToPixel({0, 0});
    const auto place = [this](double v) { return std::round(std::fmod(v, kHatchPixels) * reach.scale) / reach.scale; };
    return {place(zero.x), place(zero.y)};
}

void ChartPaint::Area(const ChartFill& fill, bool hasLine, const PixelLines& areas) {
    const bool isHatch = fill.style <= 5;
    QColor colour = ToQColor(FeatureColour(fill.colour, night));
    colour.setAlpha(!isHatch ? kSolidAlpha : night ? kHatchAlphaByNight : kHatchAlphaByDay);
    const QBrush brush = FillBrush(fill.style, colour, reach.isRaster ? reach.scale : 1.0);
    PaintAreas(painter, brush, !hasLine && areas.points.size() <= kMostSmoothAreaVertices, areas);
}

void ChartPaint::Areas() {
    painter.setBrushOrigin(HatchOrigin());
    const ChartBox world = view.WorldBox();
    for (std::size_t layer = 0; layer < scene.layers.size(); ++layer) {
        for (std::size_t i = 0; i < scene.layers[layer].paths.size(); ++i) {
            const ChartPath& path = scene.layers[layer].paths[i];
            const PathLod& lod = owner.paths.Of(layer, i);
            if (path.fill.style == kFillNone || !lod.Box().Meets(world)) continue;
            VisibleArea(lod, view, AreaLimits(), owner.lines);
            Area(path.fill, IsUsable(path.line), owner.lines);
        }
        for (const ChartCircle& circle : scene.layers[layer].circles) CircleArea(circle);
    }
}

void ChartPaint::CircleArea(const ChartCircle& circle) {
    const double radius = circle.radius / view.MetresPerPixel();
    if (circle.fill.style == kFillNone || !IsPlace(circle.centre) || !(radius >= kLeastCirclePixels)) return;
    const PixelPoint centre = view.ToPixel(circle.centre);
    const ChartBox box = view.PixelBox(2.0);
    if (!Shows(box, centre, radius, true)) return;
    owner.lines.Clear();
    owner.lines.points = RingOf(centre, radius);
    ClipArea(box, owner.lines.points);
    owner.lines.runs.push_back({});
    Area(circle.fill, IsUsable(circle.line), owner.lines);
}

void ChartPaint::Circle(const ChartCircle& circle) {
    const double radius = circle.radius / view.MetresPerPixel();
    if (!IsUsable(circle.line) || !IsPlace(circle.centre) || !(radius >= kLeastCirclePixels)) return;
    const PixelPoint centre = view.ToPixel(circle.centre);
    const ChartBox box = view.PixelBox(circle.line.thickness + 2.0);
    if (!Shows(box, centre, radius, false)) return;
    std::vector<PixelPoint> ring = RingOf(centre, radius);
    ring.push_back(ring.front());
    ClipLine(ring, box, owner.lines);
    const CPen pen{circle.line.style, circle.line.thickness, FeatureColour(circle.line.colour, night)};
    PaintLines(painter, reach, pen, owner.lines, owner.dashes);
}

void ChartPaint::LayerLinesAndMarks(std::size_t layer) {
    const ChartLayer& source = scene.layers[layer];
    const ChartBox world = view.WorldBox(64.0);
    for (const ChartCircle& circle : source.circles) Circle(circle);
    for (std::size_t i = 0; i < source.paths.size(); ++i) {
        const ChartLine& line = source.paths[i].line;
        const PathLod& lod = owner.paths.Of(layer, i);
        if (!IsUsable(line) || !lod.Box().Meets(world)) continue;
        VisibleLine(lod, view, LineLimits(line.thickness), owner.lines);
        const CPen pen{line.style, line.thickness, FeatureColour(line.colour, night)};
        PaintLines(painter, reach, pen, owner.lines, owner.dashes);
    }
    for (std::size_t i = 0; i < source.paths.size(); ++i) {
        if (!owner.paths.Of(layer, i).Box().Meets(world)) continue;
        Arrows(layer, i);
        Marks(layer, i);
        CollectLegs(layer, i);
    }
    CollectTexts(source);
}

void ChartPaint::Arrows(std::size_t layer, std::size_t path) {
    const ChartPath& source = scene.layers[layer].paths[path];
    if (!source.arrows || !IsUsable(source.line)) return;
    VisibleLegs(owner.paths.Of(layer, path), view, kLeastArrowLegPixels, owner.legs);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ToQColor(FeatureColour(source.line.colour, night)));
    const double half = 2.5 + source.line.thickness;
    for (const PixelLeg& leg : owner.legs) {
        const double dx = leg.to.x - leg.from.x, dy = leg.to.y - leg.from.y, length = std::hypot(dx, dy);
        const QPointF middle(leg.from.x + 0.5 * dx, leg.from.y + 0.5 * dy);
        const QPointF ahead(half * dx / length, half * dy / length), across(-0.7 * ahead.y(), 0.7 * ahead.x());
        const std::array<QPointF, 3> head = {middle + 1.4 * ahead, middle - 1.4 * ahead + across,
                                             middle - 1.4 * ahead - across};
        painter.drawPolygon(head.data(), static_cast<int>(head.size()));
    }
    painter.setBrush(Qt::NoBrush);
}

void ChartPaint::Marks(std::size_t layer, std::size_t path) {
    const ChartMarks& style = scene.layers[layer].paths[path].marks;
    const bool hasSymbol = style.size > 0 && style.symbol >= 1 && style.symbol <= kVectorSymbolCount;
    const bool hasLabel = style.label && style.labelPosition != 0;
    if (!hasSymbol && !hasLabel) return;
    const int pixels = hasSymbol ? SymbolPixels(style.size) : 0;
    VisibleMarks(owner.paths.Of(layer, path), view, std::max(kLeastCell, pixels * 1.25), owner.marks);
    for (const PixelMark& mark : owner.marks) {
        if (hasSymbol) Symbol(style, mark.at);
        if (!hasLabel) continue;
        candidates.push_back({.priority = scene.layers[layer].priority,
                              .textOf = &style.label,
                              .index = mark.point,
                              .at = mark.at,
                              .position = style.labelPosition,
                              .gap = LabelGap(pixels)});
    }
}

void ChartPaint::Symbol(const ChartMarks& style, PixelPoint at) {
    const int pixels = SymbolPixels(style.size);
    const COLORREF first = FeatureColour(style.colour, night), second = FeatureColour(style.second, night);
    if (!reach.isRaster) {
        painter.setRenderHint(QPainter::Antialiasing);
        dc.DrawVectorSymbol(style.symbol, first, second, pixels, static_cast<int>(std::lround(at.x)),
                            static_cast<int>(std::lround(at.y)));
        return;
    }
    const QImage& sprite = owner.sprites.Of({.symbol = style.symbol,
                                             .pixels = pixels,
                                             .first = first,
                                             .second = second,
                                             .ground = colours.ground,
                                             .brightest = night ? kBrightestAtNight : 255,
                                             .scale = reach.scale});
    const auto place = [&](double v) { return std::round((v - SymbolReach(pixels)) * reach.scale) / reach.scale; };
    painter.drawImage(QPointF(place(at.x), place(at.y)), sprite);
}

void ChartPaint::CollectLegs(std::size_t layer, std::size_t path) {
    const ChartPath& source = scene.layers[layer].paths[path];
    if (!source.legText) return;
    VisibleLegs(owner.paths.Of(layer, path), view, kLeastLegPixels, owner.legs);
    for (const PixelLeg& leg : owner.legs) {
        candidates.push_back({.priority = scene.layers[layer].priority,
                              .textOf = &source.legText,
                              .index = leg.point,
                              .at = leg.from,
                              .gap = kLegTextGap + source.line.thickness / 2,
                              .legEnd = leg.to,
                              .colour = source.line.colour});
    }
}

void ChartPaint::CollectTexts(const ChartLayer& layer) {
    const ChartBox world = view.WorldBox();
    for (const ChartText& text : layer.texts) {
        if (!world.Contains(text.at.x, text.at.y)) continue;
        candidates.push_back({.priority = layer.priority, .text = &text, .at = view.ToPixel(text.at)});
    }
}

void ChartPaint::Labels() {
    owner.places.Clear();
    if (scene.shown) {
        // nothing is written over the point that the operator looks at
        const PixelPoint at = view.ToPixel(*scene.shown);
        owner.places.Take(ChartBox{at.x, at.y, at.x, at.y}.Grown(9.0));
    }
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const Candidate& a, const Candidate& b) { return a.priority > b.priority; });
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (const Candidate& candidate : candidates) {
        if (candidate.text) {
            FreeText(candidate);
            continue;
        }
        const std::string text = (*candidate.textOf)(candidate.index);
        if (text.empty()) continue;
        if (candidate.legEnd) {
            LegText(candidate, text);
        } else {
            Label(candidate, text);
        }
    }
}

void ChartPaint::Label(const Candidate& candidate, std::string_view text) {
    const int x = static_cast<int>(std::lround(candidate.at.x)), y = static_cast<int>(std::lround(candidate.at.y));
    const tagRECT box = dc.LabelBox(text, candidate.gap, candidate.position, x, y);
    const ChartBox wanted{double(box.left), double(box.top), double(box.right), double(box.bottom)};
    if (!wanted.Meets(view.PixelBox()) || !owner.places.Take(wanted.Grown(kRoomRoundLabels))) return;
    dc.DrawLabel(text, candidate.gap, candidate.position, x, y);
}

void ChartPaint::LegText(const Candidate& candidate, std::string_view text) {
    const double dx = candidate.legEnd->x - candidate.at.x, dy = candidate.legEnd->y - candidate.at.y;
    const PixelPoint middle{candidate.at.x + 0.5 * dx, candidate.at.y + 0.5 * dy};
    Turned(middle, std::atan2(dy, dx), std::hypot(dx, dy), 1, candidate.gap, candidate.colour, text);
}

void ChartPaint::FreeText(const Candidate& candidate) {
    const ChartText& source = *candidate.text;
    if (source.along) {
        const double room = source.room > 0 ? source.room / view.MetresPerPixel() : 1e9;
        Turned(candidate.at, *source.along - 0.5 * std::numbers::pi, room, source.position, source.gap, source.colour,
               source.text);
        return;
    }
    const int x = static_cast<int>(std::lround(candidate.at.x)), y = static_cast<int>(std::lround(candidate.at.y));
    const tagRECT box = dc.LabelBox(source.text, source.gap, source.position, x, y);
    const ChartBox wanted{double(box.left), double(box.top), double(box.right), double(box.bottom)};
    if (source.room > 0 && box.Width() > source.room / view.MetresPerPixel()) return;
    if (source.position == 0 || !owner.places.Take(wanted.Grown(kRoomRoundLabels))) return;
    if (source.framed) {
        dc.DrawLabel(source.text, source.gap, source.position, x, y);
    } else {
        Level(source.text, box, source.colour);
    }
}

void ChartPaint::Level(std::string_view text, const tagRECT& box, COLORREF colour) {
    tagRECT inner = box;
    const CFont old = dc.SelectObject(kTextFont);
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(TextColour(colour, night));
    dc.DrawText(text, inner, DT_CENTER | DT_VCENTER);
    dc.SelectObject(old);
}

void ChartPaint::Turned(PixelPoint at, double angle, double room, LABEL_POSITION position, int gap, COLORREF colour,
                        std::string_view text) {
    const FontMeasures& measures = FontMeasures::Of(kTextFont);
    TurnedText turned{at, std::remainder(angle, std::numbers::pi), 1.0 * measures.Width(text), 1.0 * measures.Height()};
    if (turned.width + 8.0 > room) return;
    const double side = position == 1 ? -1.0 : position == 2 ? 1.0 : 0.0;
    const double away = side * (0.5 * turned.height + gap);
    const double ahead = (position == 4 ? 1.0 : position == 3 ? -1.0 : 0.0) * (0.5 * turned.width + gap);
    turned.middle = {at.x - away * std::sin(turned.angle) + ahead * std::cos(angle),
                     at.y + away * std::cos(turned.angle) + ahead * std::sin(angle)};
    if (!owner.places.Take(turned.Boxes())) return;
    const QTransform before = painter.transform();
    painter.translate(turned.middle.x, turned.middle.y);
    painter.rotate(turned.angle * 180.0 / std::numbers::pi);
    painter.setFont(measures.Font());
    QColor patch = ToQColor(colours.ground);
    patch.setAlpha(kPatchAlpha);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(QRectF(-0.5 * turned.width - 2.0, -0.5 * turned.height, turned.width + 4.0, turned.height), patch);
    painter.setPen(ToQColor(TextColour(colour, night)));
    painter.drawText(QPointF(-0.5 * turned.width, measures.Ascent() - 0.5 * turned.height),
                     QString::fromStdString(Utf8FromText(text)));
    painter.setTransform(before);
}

void ChartPaint::Shown() {
    if (!scene.shown || !IsPlace(*scene.shown)) return;
    const PixelPoint at = view.ToPixel(*scene.shown);
    if (!view.PixelBox(30.0).Contains(at.x, at.y)) return;
    const double x = std::floor(at.x) + 0.5, y = std::floor(at.y) + 0.5;
    constexpr double kRing = 11.0, kInner = 6.0, kOuter = 19.0;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    for (const bool isCasing : {true, false}) {
        QPen pen(ToQColor(isCasing ? colours.shownCasing : colours.shown), isCasing ? 5.0 : 2.0);
        pen.setCapStyle(Qt::FlatCap);
        painter.setPen(pen);
        painter.drawEllipse(QPointF(x, y), kRing, kRing);
        const double longer = isCasing ? 1.5 : 0.0;
        for (const QPointF& d : {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0, -1)}) {
            painter.drawLine(QPointF(x, y) + d * (kInner - longer), QPointF(x, y) + d * (kOuter + longer));
        }
    }
}

/// Small figures of the chart itself, on a patch of its ground.
void ChartPaint::PlainText(const QRect& box, const std::string& text) {
    QColor patch = ToQColor(colours.ground);
    patch.setAlpha(kPatchAlpha);
    painter.fillRect(box, patch);
    painter.drawText(box, Qt::AlignCenter, QString::fromStdString(text));
}

void ChartPaint::GridFigures(const ChartGrid& grid) {
    const FontMeasures& measures = FontMeasures::Of(kTextFont);
    painter.setFont(measures.Font());
    painter.setPen(ToQColor(colours.gridText));
    const int high = measures.Height() + 2;
    for (const ChartGridLine& line : grid.eastings) {
        const int wide = measures.Width(line.label) + 8;
        const int x = static_cast<int>(std::lround(line.pixel)) - wide / 2;
        if (x > 100 && x + wide < view.Width()) PlainText({x, 4, wide, high}, line.label);
    }
    for (const ChartGridLine& line : grid.northings) {
        const int wide = measures.Width(line.label) + 8;
        const int y = static_cast<int>(std::lround(line.pixel)) - high / 2;
        if (y > 24 && y + high < view.Height() - 52) PlainText({4, y, wide, high}, line.label);
    }
}

void ChartPaint::ScaleBar() {
    const ChartScaleBar bar = ScaleBarOf(view, std::min(180.0, 0.4 * view.Width()));
    constexpr int kLeft = 16, kFromBottom = 18, kThick = 5;
    const int y = view.Height() - kFromBottom;
    const int length = static_cast<int>(std::lround(bar.pixels));
    const FontMeasures& measures = FontMeasures::Of(kTextFont);
    QColor patch = ToQColor(colours.ground);
    patch.setAlpha(kPatchAlpha);
    painter.fillRect(QRect(kLeft - 8, y - measures.Height() - 9, std::max(length, measures.Width(bar.label)) + 16,
                           measures.Height() + kThick + 17),
                     patch);
    const QColor ink = ToQColor(colours.scaleBar);
    painter.fillRect(QRect(kLeft, y, length, kThick), ink);
    painter.fillRect(QRect(kLeft + length / 2, y + 1, length - length / 2 - 1, kThick - 2), ToQColor(colours.ground));
    painter.setFont(measures.Font());
    painter.setPen(ink);
    painter.drawText(QPointF(kLeft, y - 5), QString::fromStdString(bar.label));
}

void ChartPainter::Paint(QPainter& painter, const ChartView& view, const ChartScene& scene, bool night) {
    paths.Update(scene);
    ChartPaint(*this, painter, view, scene, night).Run();
}

}  // namespace quillon
