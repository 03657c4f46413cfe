#include "host/drawing_letters.h"

#include <algorithm>
#include <cmath>

#include "foundation/angle_units.h"

namespace quillon {
namespace {

// How a TEXT is justified.
enum HORIZONTAL { LEFT, CENTRE, RIGHT, ALIGNED, MIDDLE, FIT };
enum VERTICAL { BASELINE, BOTTOM, HALFWAY, TOP };

constexpr double kHalf = 0.5;

double AcrossOf(int horizontal) {
    return horizontal == RIGHT ? 1.0 : horizontal == CENTRE || horizontal == MIDDLE ? kHalf : 0.0;
}

LETTER_EDGE EdgeOf(int horizontal, int vertical) {
    if (horizontal == MIDDLE || vertical == HALFWAY) return LETTER_EDGE::MIDDLE;
    return vertical == TOP ? LETTER_EDGE::TOP : vertical == BOTTOM ? LETTER_EDGE::BOTTOM : LETTER_EDGE::BASELINE;
}

double BearingOf(double dx, double dy) {
    return std::atan2(dx, dy);
}

/// A line of text. Justified to anything but the left of its baseline it stands by its alignment point; between both
/// points it fills the way from one to the other.
tagXYZ PlaceLine(const CDxfText& text, double scale, ChartLetter& letter) {
    const int horizontal = text.horizontalJustify, vertical = text.verticalJustify;
    if (horizontal == ALIGNED || horizontal == FIT) {
        const double dx = text.alignment.x - text.insertion.x, dy = text.alignment.y - text.insertion.y;
        if (dx != 0.0 || dy != 0.0) {
            letter.bearing = BearingOf(dx, dy);
            letter.fit = std::hypot(dx, dy) * scale;
        }
        return text.insertion;
    }
    if (text.widthFactor > 0.0) letter.widthFactor = text.widthFactor;
    letter.across = AcrossOf(horizontal);
    letter.edge = EdgeOf(horizontal, vertical);
    return horizontal == LEFT && vertical == BASELINE ? text.insertion : text.alignment;
}

/// A paragraph hangs at one of nine places of its box, counted from the upper left, and runs along its axis if it has
/// one.
tagXYZ PlaceParagraph(const CDxfText& text, double scale, ChartLetter& letter) {
    const int place = text.generation >= 1 && text.generation <= 9 ? text.generation - 1 : 0;
    letter.across = place % 3 * kHalf;
    letter.edge = place < 3 ? LETTER_EDGE::TOP : place < 6 ? LETTER_EDGE::MIDDLE : LETTER_EDGE::BOTTOM;
    if (text.alignment.x != 0.0 || text.alignment.y != 0.0) {
        letter.bearing = BearingOf(text.alignment.x, text.alignment.y);
    }
    letter.wrap = text.widthFactor > 0.0 ? text.widthFactor * scale : 0.0;
    return text.insertion;
}

void AddLetter(DrawnLetters& drawn, const CDxf& drawing, const CDxfText& text, double scale) {
    ChartLetter letter{.text = drawing.ShownText(text),
                       .colour = ColourOf(text),
                       .height = text.height * scale,
                       .bearing = (90.0 - text.rotation) * kRadiansPerDegree};
    if (letter.text.empty() || !(letter.height > 0.0)) return;
    const tagXYZ at = (text.multiline ? PlaceParagraph : PlaceLine)(text, scale, letter);
    drawn.places.push_back({at.x * scale, at.y * scale});
    drawn.letters.push_back(std::move(letter));
}

}  // namespace

DrawnLetters LettersOf(const CDxf& drawing, double scale) {
    DrawnLetters drawn;
    const auto add = [&](const std::vector<const CDxfEntity*>& entities) {
        for (const CDxfEntity* entity : entities) {
            if (entity->type != DXF_TYPE::TEXT || !IsDrawn(*entity)) continue;
            AddLetter(drawn, drawing, entity->As<CDxfText>(), scale);
        }
    };
    for (const CDxfBlock& block : drawing.blocks) add(block.entities);
    add(drawing.entities);
    return drawn;
}

}  // namespace quillon
