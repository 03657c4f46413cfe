// Labels of points, texts of legs and texts that stand by themselves, as far as there is room.

#include <algorithm>
#include <cmath>
#include <numbers>

#include "chart/chart_canvas.h"
#include "platform/text.h"

namespace quillon {

const CFont kChartFont{"Tahoma", -11, FW_NORMAL, 0};

namespace {

constexpr double kRoomRoundLabels = 3.0;

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

/// How a turned text stands to its place.
struct TurnedPlace {
    PixelPoint at;
    double angle = 0.0;
    double room = 0.0;  ///< pixels
    LABEL_POSITION position = 0;
    int gap = 0;
    COLORREF colour = 0;
};

ChartBox BoxOf(const tagRECT& box) {
    return {double(box.left), double(box.top), double(box.right), double(box.bottom)};
}

void PaintTurned(ChartCanvas& canvas, const TurnedPlace& place, std::string_view text) {
    const FontMeasures& measures = FontMeasures::Of(kChartFont);
    TurnedText turned{place.at, std::remainder(place.angle, std::numbers::pi), 1.0 * measures.Width(text),
                      1.0 * measures.Height()};
    if (turned.width + 8.0 > place.room) return;
    const double side = place.position == 1 ? -1.0 : place.position == 2 ? 1.0 : 0.0;
    const double away = side * (0.5 * turned.height + place.gap);
    const double ahead = (place.position == 4   ? 1.0
                          : place.position == 3 ? -1.0
                                                : 0.0) *
                         (0.5 * turned.width + place.gap);
    turned.middle = {place.at.x - away * std::sin(turned.angle) + ahead * std::cos(place.angle),
                     place.at.y + away * std::cos(turned.angle) + ahead * std::sin(place.angle)};
    if (!canvas.store.places.Take(turned.Boxes())) return;
    QPainter& painter = canvas.painter;
    const QTransform before = painter.transform();
    painter.translate(turned.middle.x, turned.middle.y);
    painter.rotate(turned.angle * 180.0 / std::numbers::pi);
    painter.setFont(measures.Font());
    QColor patch = ToQColor(canvas.colours.ground);
    patch.setAlpha(kPatchAlpha);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(QRectF(-0.5 * turned.width - 2.0, -0.5 * turned.height, turned.width + 4.0, turned.height), patch);
    painter.setPen(ToQColor(TextColour(place.colour, canvas.night)));
    painter.drawText(QPointF(-0.5 * turned.width, measures.Ascent() - 0.5 * turned.height),
                     QString::fromStdString(Utf8FromText(text)));
    painter.setTransform(before);
}

void PaintLevel(ChartCanvas& canvas, std::string_view text, const tagRECT& box, COLORREF colour) {
    tagRECT inner = box;
    const CFont old = canvas.dc.SelectObject(kChartFont);
    canvas.dc.SetBkMode(TRANSPARENT);
    canvas.dc.SetTextColor(TextColour(colour, canvas.night));
    canvas.dc.DrawText(text, inner, DT_CENTER | DT_VCENTER);
    canvas.dc.SelectObject(old);
}

void PaintLabel(ChartCanvas& canvas, const WaitingText& waiting, std::string_view text) {
    const int x = static_cast<int>(std::lround(waiting.at.x)), y = static_cast<int>(std::lround(waiting.at.y));
    const ChartBox wanted = BoxOf(canvas.dc.LabelBox(text, waiting.gap, waiting.position, x, y));
    if (!wanted.Meets(canvas.view.PixelBox()) || !canvas.store.places.Take(wanted.Grown(kRoomRoundLabels))) return;
    canvas.dc.DrawLabel(text, waiting.gap, waiting.position, x, y);
}

void PaintLegText(ChartCanvas& canvas, const WaitingText& waiting, std::string_view text) {
    const double dx = waiting.legEnd->x - waiting.at.x, dy = waiting.legEnd->y - waiting.at.y;
    const PixelPoint middle{waiting.at.x + 0.5 * dx, waiting.at.y + 0.5 * dy};
    PaintTurned(canvas, {middle, std::atan2(dy, dx), std::hypot(dx, dy), 1, waiting.gap, waiting.colour}, text);
}

void PaintText(ChartCanvas& canvas, const WaitingText& waiting) {
    const ChartText text = waiting.texts->textOf(waiting.index);
    if (text.text.empty()) return;
    const COLORREF colour = waiting.texts->colour;
    const double room = text.room > 0 ? text.room / canvas.view.MetresPerPixel() : 1e9;
    if (text.along) {
        const double angle = *text.along - 0.5 * std::numbers::pi;
        PaintTurned(canvas, {waiting.at, angle, room, text.position, text.gap, colour}, text.text);
        return;
    }
    const int x = static_cast<int>(std::lround(waiting.at.x)), y = static_cast<int>(std::lround(waiting.at.y));
    const tagRECT box = canvas.dc.LabelBox(text.text, text.gap, text.position, x, y);
    if (box.Width() > room || text.position == 0) return;
    if (!canvas.store.places.Take(BoxOf(box).Grown(kRoomRoundLabels))) return;
    if (waiting.texts->framed) {
        canvas.dc.DrawLabel(text.text, text.gap, text.position, x, y);
    } else {
        PaintLevel(canvas, text.text, box, colour);
    }
}

void PaintWaiting(ChartCanvas& canvas, const WaitingText& waiting) {
    if (waiting.texts) return PaintText(canvas, waiting);
    const std::string text = (*waiting.textOf)(waiting.index);
    if (text.empty()) return;
    if (waiting.legEnd) {
        PaintLegText(canvas, waiting, text);
    } else {
        PaintLabel(canvas, waiting, text);
    }
}

}  // namespace

void CollectTexts(ChartCanvas& canvas, const ChartTexts& texts, int priority) {
    const ChartBox world = canvas.view.WorldBox();
    const PathLod::Level& level = texts.places->Full();
    for (const PathLod::Chunk& chunk : level.Chunks()) {
        if (!chunk.box.Meets(world)) continue;
        for (std::uint32_t i = chunk.first; i < chunk.first + chunk.count; ++i) {
            const std::uint32_t index = level.PointOf(i);
            const tagXY at = texts.places->Points()[index];
            if (!world.Contains(at.x, at.y)) continue;
            canvas.texts.push_back(
                {.priority = priority, .texts = &texts, .index = index, .at = canvas.view.ToPixel(at)});
        }
    }
}

void PaintTexts(ChartCanvas& canvas, const std::optional<tagXY>& keptFree) {
    canvas.store.places.Clear();
    if (keptFree) {
        const PixelPoint at = canvas.view.ToPixel(*keptFree);
        canvas.store.places.Take(ChartBox{at.x, at.y, at.x, at.y}.Grown(9.0));
    }
    std::stable_sort(canvas.texts.begin(), canvas.texts.end(),
                     [](const WaitingText& a, const WaitingText& b) { return a.priority > b.priority; });
    canvas.painter.setRenderHint(QPainter::Antialiasing, false);
    for (const WaitingText& waiting : canvas.texts) PaintWaiting(canvas, waiting);
}

}  // namespace quillon
