#include "drawing/my_dc.h"

#include <cmath>
#include <initializer_list>
#include <span>
#include <vector>

#include "foundation/angle_units.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr COLORREF kWhite = 0xFFFFFF;
constexpr COLORREF kBlack = 0x000000;
constexpr int kSymbolPenWidth = 2;
constexpr int kSmallCrossSize = 5;
constexpr int kLabelTenthsOfPoint = 80;

/// One symbol in the making: the shapes that symbols are put together from, by offsets from its pixel.
class SymbolPainter {
public:
    SymbolPainter(CMyDC& target, COLORREF firstColour, COLORREF secondColour, int pixels, int atX, int atY)
        : dc(target),
          first(firstColour),
          second(secondColour),
          size(pixels),
          h(pixels / 2),
          q(pixels / 4),
          t(pixels / 3),
          x(atX),
          y(atY) {}

    void Draw(int symbol);

private:
    using Offsets = std::initializer_list<tagPOINT>;

    void Pen(COLORREF colour) { dc.SelectObject(CPen{PS_SOLID, kSymbolPenWidth, colour}); }
    void Fill(COLORREF colour) { dc.SelectObject(CBrush{kFillSolid, colour}); }
    void Hollow() { dc.SelectObject(dc.nullBrush); }
    /// The ground of the shapes that are half filled.
    COLORREF Contrast() const { return first == kWhite ? kBlack : kWhite; }

    void Line(int fromX, int fromY, int toX, int toY) {
        dc.MoveTo(x + fromX, y + fromY);
        dc.LineTo(x + toX, y + toY);
    }
    std::vector<tagPOINT> Placed(Offsets offsets) const {
        std::vector<tagPOINT> points;
        for (const tagPOINT& p : offsets) points.push_back({x + p.x, y + p.y});
        return points;
    }
    void Path(Offsets offsets) { dc.Polyline(Placed(offsets)); }
    void Shape(Offsets offsets) { dc.Polygon(Placed(offsets)); }
    void Circle(int radius) { dc.Ellipse(x - radius, y - radius, x + radius, y + radius); }
    void Plus(int across) {
        Line(-across / 2, 0, across / 2, 0);
        Line(0, -across / 2, 0, across / 2);
    }
    void Saltire() {
        Line(-h, h, h, -h);
        Line(-h, -h, h, h);
    }
    void SmallCross(COLORREF colour) {
        Pen(colour);
        Plus(kSmallCrossSize);
    }
    void Square(int half) { Shape({{-half, -half}, {half, -half}, {half, half}, {-half, half}}); }
    void Triangle() { Shape({{0, -h}, {h, h}, {-h, h}}); }
    void Diamond() { Shape({{0, -h}, {h, 0}, {0, h}, {-h, 0}}); }

    /// The symbols that come in pairs: filled in the first colour and outlined in the second, or hollow in the first.
    template <class Outline>
    void WithSmallCross(bool filled, Outline outline) {
        const COLORREF edge = filled ? second : first;
        Pen(edge);
        if (filled) {
            Fill(first);
        } else {
            Hollow();
        }
        outline();
        SmallCross(edge);
    }
    void Sector(int fromDegree, int endDegree);
    void HalfFilledCircle();
    void HalfFilledDiamond();
    void Anchor();
    void Post();
    void Bracket();
    void Arrow();
    void Roof();
    void Stroke(int symbol);

    CMyDC& dc;
    COLORREF first, second;
    int size, h, q, t;
    int x, y;
};

void SymbolPainter::Sector(int fromDegree, int endDegree) {
    std::vector<tagPOINT> points;
    for (int degree = fromDegree; degree < endDegree; degree += 10) {
        const auto i = static_cast<std::size_t>(degree % 360);
        points.push_back({x + static_cast<int>(dc.sinTable[i] * h), y + static_cast<int>(dc.cosTable[i] * h)});
    }
    points.push_back({x, y});
    points.push_back(points.front());
    dc.Polygon(points);
}

void SymbolPainter::HalfFilledCircle() {
    Fill(Contrast());
    Circle(h);
    Fill(first);
    Sector(315, 406);
    Sector(135, 226);
}

void SymbolPainter::HalfFilledDiamond() {
    Fill(Contrast());
    Diamond();
    Fill(first);
    Shape({{0, 0}, {-h, 0}, {0, -h}});
    Shape({{0, 0}, {h, 0}, {0, h}});
}

void SymbolPainter::Anchor() {
    Line(-h, 0, h, 0);
    Line(0, -h, 0, size);
    Path({{-h, h}, {0, size}, {h, h}});
}

void SymbolPainter::Post() {
    Fill(first);
    Shape({{-q, 0}, {q, 0}, {q, -size}, {-q, -size}});
    Pen(second);
    Line(0, 0, 0, q);
}

void SymbolPainter::Bracket() {
    Hollow();
    Circle(h);
    Pen(second);
    Path({{0, -h}, {-size, -h}, {-size, h}, {0, h}});
    SmallCross(first);
}

void SymbolPainter::Arrow() {
    const int u = 2 * size / 3;
    Line(0, 0, 0, -u);
    Line(-h, -t, 0, -u);
    Line(h, -t, 0, -u);
    Pen(second);
    Line(-(t / 4), -size, 0, -u);
}

void SymbolPainter::Roof() {
    Fill(first);
    dc.Rectangle(x - h, y - h, x - q, y);
    dc.Rectangle(x + q, y - h, x + h, y);
    Pen(second);
    Line(-h, -h, h, -h);
    Line(-h, -h, 0, -size);
    Line(h, -h, 0, -size);
    SmallCross(first);
}

/// The symbols of lines alone.
void SymbolPainter::Stroke(int symbol) {
    const int reach = 3 * size / 8;
    if (symbol == 2 || symbol == 4 || symbol == 17 || symbol == 18) Plus(size);
    if (symbol == 3 || symbol == 4) Saltire();
    if (symbol == 13) Line(0, -h, 0, h);
    if (symbol == 14 || symbol == 19) Line(-h, 0, h, 0);
    if (symbol == 19) {
        Line(-q, -q, -q, q);
        Line(q, -q, q, q);
        Line(0, -reach, 0, reach);
    }
    if (symbol == 21) {
        Path({{-h, -h}, {h, -h}, {h, h}, {-h, h}, {-h, -h}, {h, h}});
        Line(-h, h, h, -h);
    }
}

void SymbolPainter::Draw(int symbol) {
    Pen(first);
    switch (symbol) {
        case 1:
            return dc.FillSolidRect(x - h, y - h, x + h, y + h, first);
        case 5:
        case 6:
            return WithSmallCross(symbol == 5, [this] { Square(h); });
        case 7:
        case 8:
            return WithSmallCross(symbol == 7, [this] { Circle(h); });
        case 9:
        case 10:
            return WithSmallCross(symbol == 9, [this] { Triangle(); });
        case 11:
        case 12:
            return WithSmallCross(symbol == 11, [this] { Diamond(); });
        case 15:
            return HalfFilledCircle();
        case 16:
            return HalfFilledDiamond();
        case 20:
            return Anchor();
        case 22:
            return Post();
        case 23:
            return Bracket();
        case 24:
            return Arrow();
        case 25:
            return Roof();
        default:
            break;
    }
    Stroke(symbol);
    if (symbol != 17 && symbol != 18) return;
    Pen(second);
    Hollow();
    if (symbol == 17) Square(q);
    if (symbol == 18) Circle(q);
}

/// "&" would read as a mark of the next letter in other places of the screen.
std::string LabelText(std::string_view text) {
    return Replace(Replace(text, "&", " and "), "  ", " ");
}

}  // namespace

CMyDC::CMyDC() : CMyDC(nullptr) {}

CMyDC::CMyDC(CDrawDevice* target) : CDC(target), sinTable(), cosTable() {
    for (std::size_t i = 0; i < sinTable.size(); ++i) {
        const double angle = static_cast<double>(i) * kRadiansPerDegree;
        sinTable[i] = std::sin(angle);
        cosTable[i] = std::cos(angle);
    }
}

void CMyDC::DrawVectorSymbol(int symbol, COLORREF first, COLORREF second, int size, int x, int y) {
    if (symbol < 1 || symbol > kVectorSymbolCount) return;
    const auto seen = [this](COLORREF colour) {
        return blackOnly ? kBlack : colour == background ? kWhite - colour : colour;
    };
    const CPen oldPen = SelectObject(blackPen);
    const CBrush oldBrush = SelectObject(nullBrush);
    SymbolPainter(*this, seen(first), seen(second), size, x, y).Draw(symbol);
    SelectObject(oldPen);
    SelectObject(oldBrush);
}

CFont CMyDC::LabelFont() const {
    return CFont::FromPoints(kLabelTenthsOfPoint, "Tahoma", PixelsPerInch());
}

tagRECT CMyDC::InnerLabelBox(std::string_view labelText, int gap, LABEL_POSITION position, int x, int y) {
    tagRECT measured;
    DrawText(labelText, measured, DT_CALCRECT);
    const int w = measured.Width(), h = measured.Height();
    const int w2 = w / 2, h2 = h / 2;
    switch (position) {
        case 1:
            return {x - w2 - 4, y - h - gap, x + w2 + 4, y - gap};
        case 2:
            return {x - w2 - 4, y + gap, x + w2 + 4, y + gap + h};
        case 3:
            return {x - w - gap - 2 * labelAir, y - h2, x - gap - 2, y + h2};
        case 4:
            return {x + gap + 2, y - h2, x + gap + w + 2 * labelAir, y + h2};
        default:
            return {x - w2 - 4, y - h2, x + w2 + 4, y + h2};
    }
}

tagRECT CMyDC::LabelBox(std::string_view text, int gap, LABEL_POSITION position, int x, int y) {
    if (position == 0) return {};
    const CFont old = SelectObject(LabelFont());
    const tagRECT box = InnerLabelBox(LabelText(text), gap, position, x, y);
    SelectObject(old);
    return {box.left - 1, box.top - 1, box.right + 1, box.bottom + 1};
}

void CMyDC::DrawLabel(std::string_view text, int gap, LABEL_POSITION position, int x, int y) {
    if (position == 0) return;
    const CFont oldFont = SelectObject(LabelFont());
    const std::string label = LabelText(text);
    tagRECT box = InnerLabelBox(label, gap, position, x, y);
    if (!blackOnly) FillRect(box, labelBrush);
    box = {box.left - 1, box.top - 1, box.right + 1, box.bottom + 1};
    const COLORREF ink = blackOnly ? kBlack : labelInk;
    FrameRect(box, blackOnly ? CBrush{kFillSolid, kBlack} : blackBrush);
    const int oldMode = SetBkMode(TRANSPARENT);
    const COLORREF oldColour = SetTextColor(ink);
    DrawText(label, box, DT_CENTER | DT_VCENTER);
    SetTextColor(oldColour);
    SetBkMode(oldMode);
    SelectObject(oldFont);
}

}  // namespace quillon
