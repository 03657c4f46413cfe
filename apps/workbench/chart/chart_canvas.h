#pragma once

#include <QPainter>
#include <vector>

#include "chart/line_painter.h"
#include "chart/qpainter_device.h"
#include "chart/symbol_sprites.h"
#include "drawing/my_dc.h"
#include "scene/chart_colours.h"
#include "scene/chart_scene.h"
#include "scene/chart_view.h"
#include "scene/label_places.h"
#include "scene/visible_path.h"

namespace quillon {

/// What painters keep from one paint to the next: symbols drawn before, and room for what they work out. For one
/// thread.
struct PaintStore {
    SymbolSprites sprites;
    LabelPlaces places;
    LineStore lines;
    std::vector<PixelMark> marks;
    std::vector<PixelLeg> legs;
};

/// A label or text that waits for its turn.
struct WaitingText {
    int priority = 0;
    const ChartTextOf* textOf = nullptr;  ///< of a point or leg; else one of `texts`
    const ChartTexts* texts = nullptr;
    std::size_t index = 0;
    PixelPoint at;
    LABEL_POSITION position = 0;
    int gap = 0;
    std::optional<PixelPoint> legEnd = {};
    COLORREF colour = 0;
};

/// What the painters of all types of items share during one paint.
struct ChartCanvas {
    ChartCanvas(PaintStore& kept, QPainter& target, const ChartView& chartView, bool isNight);

    QColor ColourOf(COLORREF colour) const { return ToQColor(FeatureColour(colour, night)); }
    CPen PenOf(const ChartLine& line) const { return {line.style, line.thickness, FeatureColour(line.colour, night)}; }

    PaintStore& store;
    QPainter& painter;
    const ChartView& view;
    bool night;
    const ChartColours& colours;
    PaintTarget reach;
    QPainterDevice device;
    CMyDC dc;
    std::vector<WaitingText> texts;
};

inline bool IsUsable(const ChartLine& line) {
    return line.thickness > 0 && line.style != PS_NULL;
}

/// The font of texts without a frame, and of the chart's own figures.
extern const CFont kChartFont;
/// Of the ground behind texts without a frame.
inline constexpr int kPatchAlpha = 208;

// One painter per type of item; what it draws in which pass.

void PaintImage(ChartCanvas& canvas, const ChartImage& image);

void PaintAreas(ChartCanvas& canvas, const ChartPath& path);
void PaintAreas(ChartCanvas& canvas, const ChartRings& rings);
void PaintLines(ChartCanvas& canvas, const ChartPath& path);
void PaintLines(ChartCanvas& canvas, const ChartRings& rings);
/// Symbols and arrow heads; labels and texts of legs begin to wait.
void PaintMarks(ChartCanvas& canvas, const ChartPath& path, int priority);
void PaintLetters(ChartCanvas& canvas, const ChartLetters& letters);
void CollectTexts(ChartCanvas& canvas, const ChartTexts& texts, int priority);

/// Draws what waits, as far as there is room: by priority, then in its order. Nothing is written over `keptFree`.
void PaintTexts(ChartCanvas& canvas, const std::optional<tagXY>& keptFree);

/// Fills areas, one run each, as the operator chose.
void PaintFill(ChartCanvas& canvas, const ChartFill& fill, bool hasLine, const PixelLines& areas);

}  // namespace quillon
