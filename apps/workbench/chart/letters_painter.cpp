// The lettering of drawings: to scale, as its maker placed it.

#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "chart/chart_canvas.h"
#include "platform/text.h"

namespace quillon {
namespace {

/// Capitals lower than this can't be read, pixels.
constexpr double kLeastCapital = 4.0;
/// Far more than anybody looks at in a picture.
constexpr double kMostCapital = 4000.0;
/// Letters that can be read by all of these don't fit a screen.
constexpr std::size_t kMostLetters = 4000;
/// The size in which letters are shaped; they are drawn scaled.
constexpr int kShapedPixels = 64;
/// From one line of a paragraph to the next, in heights of its capitals.
constexpr double kLineStep = 5.0 / 3.0;

QFont ShapedFont() {
    QFont font(FontMeasures::Of(kChartFont).Font());
    font.setPixelSize(kShapedPixels);
    font.setStyleStrategy(QFont::ForceOutline);
    return font;
}

/// The lines of a text, cut between words where they are longer than `wrap`, in units of the font; 0 for never.
QStringList LinesOf(const QString& text, double wrap, const QFontMetricsF& metrics) {
    QStringList lines;
    for (const QString& whole : text.split('\n')) {
        QString line;
        for (const QString& word : whole.split(' ')) {
            const QString longer = line.isEmpty() ? word : line + ' ' + word;
            if (wrap > 0.0 && !line.isEmpty() && metrics.horizontalAdvance(longer) > wrap) {
                lines << line;
                line = word;
            } else {
                line = longer;
            }
        }
        lines << line;
    }
    return lines;
}

/// From the place to the baseline of the first line, in heights of capitals, down.
double BaselineOf(LETTER_EDGE edge, int lines) {
    constexpr double kDescender = 1.0 / 3.0;
    const double further = (lines - 1) * kLineStep;
    switch (edge) {
        case LETTER_EDGE::TOP:
            return 1.0;
        case LETTER_EDGE::MIDDLE:
            return 0.5 - 0.5 * further;
        case LETTER_EDGE::BOTTOM:
            return -further - kDescender;
        case LETTER_EDGE::BASELINE:
            break;
    }
    return -further;
}

void PaintLetter(ChartCanvas& canvas, const ChartLetter& letter, PixelPoint at, const QFont& font,
                 const QFontMetricsF& metrics) {
    const double metresPerPixel = canvas.view.MetresPerPixel();
    const double scale = letter.height / metresPerPixel / metrics.capHeight();
    const double wrap = letter.wrap / metresPerPixel / scale;
    const QStringList lines = LinesOf(QString::fromStdString(Utf8FromText(letter.text)), wrap, metrics);
    double widest = 1.0;
    for (const QString& line : lines) widest = std::max(widest, metrics.horizontalAdvance(line));
    const double across = letter.fit > 0.0 ? letter.fit / metresPerPixel / widest : scale * letter.widthFactor;
    QPainter& painter = canvas.painter;
    painter.save();
    painter.translate(at.x, at.y);
    painter.rotate((letter.bearing - 0.5 * std::numbers::pi) * 180.0 / std::numbers::pi);
    painter.scale(across, scale);
    painter.setFont(font);
    painter.setPen(ToQColor(TextColour(letter.colour, canvas.night)));
    double y = BaselineOf(letter.edge, static_cast<int>(lines.size())) * metrics.capHeight();
    for (const QString& line : lines) {
        painter.drawText(QPointF(-letter.across * metrics.horizontalAdvance(line), y), line);
        y += kLineStep * metrics.capHeight();
    }
    painter.restore();
}

}  // namespace

void PaintLetters(ChartCanvas& canvas, const ChartLetters& letters) {
    static const QFont font = ShapedFont();
    const QFontMetricsF metrics(font);
    // What begins outside can reach in.
    const ChartBox world = canvas.view.WorldBox(0.5 * std::max(canvas.view.Width(), canvas.view.Height()));
    const PathLod::Level& level = letters.places->Full();
    std::size_t painted = 0;
    canvas.painter.setRenderHint(QPainter::Antialiasing);
    canvas.painter.setRenderHint(QPainter::TextAntialiasing);
    for (const PathLod::Chunk& chunk : level.Chunks()) {
        if (!chunk.box.Meets(world)) continue;
        for (std::uint32_t i = chunk.first; i < chunk.first + chunk.count && painted < kMostLetters; ++i) {
            const std::uint32_t index = level.PointOf(i);
            const ChartLetter& letter = (*letters.letters)[index];
            const tagXY at = letters.places->Points()[index];
            const double capital = letter.height / canvas.view.MetresPerPixel();
            if (!(capital >= kLeastCapital && capital <= kMostCapital) || !world.Contains(at.x, at.y)) continue;
            PaintLetter(canvas, letter, canvas.view.ToPixel(at), font, metrics);
            ++painted;
        }
    }
}

}  // namespace quillon
