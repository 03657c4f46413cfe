#pragma once

#include <QBrush>
#include <QColor>
#include <QFont>
#include <QPainter>
#include <QPen>
#include <array>
#include <optional>
#include <vector>

#include "platform/dc.h"

namespace quillon {

inline QColor ToQColor(COLORREF colour) {
    return QColor(static_cast<int>(GetRValue(colour)), static_cast<int>(GetGValue(colour)),
                  static_cast<int>(GetBValue(colour)));
}

/// Draws on whatever a painter draws on: the screen, a picture, a page. Coordinates are the painter's; its clip is
/// replaced by `SetClip`, its pen, brush and font by any call, and no other part of its state is touched.
class QPainterDevice : public CDrawDevice {
public:
    /// `pixelsPerInch` sets the size of fonts given in points: 96 on a screen, whatever its own scale.
    explicit QPainterDevice(QPainter& target, int pixelsPerInch = 96);

    int PixelsPerInch() const override { return resolution; }
    void Polyline(const CPen& pen, std::span<const tagPOINT> points) override;
    void Polygon(const CPen& pen, const CBrush& brush, int fillMode, std::span<const tagPOINT> points) override;
    void Ellipse(const CPen& pen, const CBrush& brush, const tagRECT& box) override;
    void Rectangle(const CPen& pen, const CBrush& brush, const tagRECT& box) override;
    void FillRect(const CBrush& brush, const tagRECT& box) override;
    void SetPixel(int x, int y, COLORREF colour) override;
    void Text(const CFont& font, COLORREF colour, std::optional<COLORREF> ground, int x, int y,
              std::string_view text) override;
    tagSIZE TextSize(const CFont& font, std::string_view text) const override;
    void SetClip(const tagRECT* box) override;

private:
    void UsePen(const CPen& pen);
    void UseBrush(const CBrush& brush);
    /// Fills `centred`.
    void Centre(const CPen& pen, std::span<const tagPOINT> points);

    QPainter& painter;
    int resolution;
    std::optional<CPen> lastPen;  ///< the pen that `lastMade` was made from
    QPen lastMade;
    std::vector<QPointF> centred;
};

/// The toolkit's font for one of ours, without kerning, so that a text is as wide as its letters together.
QFont ToQFont(const CFont& font);

/// How wide letters are and where they stand, worked out once for each font by each thread.
class FontMeasures {
public:
    static const FontMeasures& Of(const CFont& font);

    int Width(std::string_view text) const;
    int Height() const { return height; }
    int Ascent() const { return ascent; }
    const QFont& Font() const { return font; }

private:
    explicit FontMeasures(const CFont& source);

    CFont key;
    QFont font;
    std::array<double, 256> advances{};
    int height = 0;
    int ascent = 0;
};

QPen ToQPen(const CPen& pen);

/// A solid brush, one of the six hatches, or none. Hatch lines are `scale` device pixels wide, so that they look the
/// same on every screen; a brush of a scale other than 1 is meant for a painter scaled by as much.
QBrush FillBrush(FILL_STYLE fill, const QColor& colour, double scale = 1.0);

}  // namespace quillon
