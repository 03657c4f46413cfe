#pragma once

#include <QPainter>
#include <functional>

#include "platform/property_grid.h"

namespace quillon {

/// Draws symbol number `symbol` in a colour, centred in the rectangle. The application hands in the symbols of its
/// chart.
using SymbolPainter = std::function<void(QPainter& painter, const QRect& place, int symbol, COLORREF colour)>;

/// The picture that stands beside the text of an offered value: a colour swatch, a fill, a line in its real width, a
/// symbol, the size of one, what a label tells or where it stands.
struct RowPicture {
    ROW_KIND kind;
    RowValue value;
    /// The colour of the fill, line or symbol. Not of a colour swatch, which shows its value.
    COLORREF drawnIn = 0;
};

/// Room that a picture of this kind takes; empty for kinds without one.
QSize PictureSize(ROW_KIND kind);

/// Draws a picture on a ground whose colour is given, so that a colour too close to it gets one on which it shows.
/// `text` is the colour of the writing beside it, in which what has no colour of its own is drawn.
void DrawRowPicture(QPainter& painter, const QRect& place, const RowPicture& picture, const QColor& ground,
                    const QColor& text, const SymbolPainter& symbols);

/// A closed padlock, for rows that are locked.
void DrawPadlock(QPainter& painter, const QRect& place, const QColor& colour);

/// A small triangle that points down (or, folded, to the right).
void DrawArrow(QPainter& painter, const QPointF& centre, double size, Qt::ArrowType direction, const QColor& colour);

/// A check box in the colours of its row.
void DrawCheck(QPainter& painter, const QRect& place, bool checked, const QColor& ground, const QColor& text);

/// The colour that a picker row draws its values in; 0 for other rows.
COLORREF DrawingColour(const CMFCPropertyGridProperty& row);

}  // namespace quillon
