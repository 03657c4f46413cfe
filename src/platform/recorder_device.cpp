#include "platform/recorder_device.h"

#include <cstdlib>
#include <utility>

#include "platform/text.h"

namespace quillon {
namespace {

std::string ColourText(COLORREF colour) {
    return Format("#%02X%02X%02X", GetRValue(colour), GetGValue(colour), GetBValue(colour));
}

std::string PenText(const CPen& pen) {
    if (pen.style == PS_NULL) return " no pen";
    static constexpr const char* kStyles[] = {"", " dash", " dot", " dashdot", " dashdotdot"};
    const bool known = pen.style >= PS_SOLID && pen.style <= PS_DASHDOTDOT;
    return Format(" pen%s %d ", known ? kStyles[pen.style] : " ?", pen.width) + ColourText(pen.colour);
}

std::string BrushText(const CBrush& brush) {
    if (brush.fill == kFillNone) return "";
    if (brush.fill == kFillSolid) return Format(" brush %s", ColourText(brush.colour).c_str());
    return Format(" brush hatch %d ", brush.fill) + ColourText(brush.colour);
}

std::string PointsText(std::span<const tagPOINT> points) {
    std::string text;
    for (const tagPOINT& p : points) text += Format(" %d,%d", p.x, p.y);
    return text;
}

std::string BoxText(const tagRECT& box) {
    return Format(" %d,%d %d,%d", box.left, box.top, box.right, box.bottom);
}

}  // namespace

std::string RecorderDevice::Take() {
    std::string all;
    for (const std::string& call : std::exchange(calls, {})) all += call + "\n";
    return all;
}

void RecorderDevice::Polyline(const CPen& pen, std::span<const tagPOINT> points) {
    calls.push_back(std::string("line").append(PointsText(points)).append(PenText(pen)));
}

void RecorderDevice::Polygon(const CPen& pen, const CBrush& brush, int fillMode, std::span<const tagPOINT> points) {
    std::string call = std::string("polygon").append(PointsText(points)).append(PenText(pen)).append(BrushText(brush));
    if (fillMode == WINDING && brush.fill != kFillNone) call += " winding";
    calls.push_back(std::move(call));
}

void RecorderDevice::Ellipse(const CPen& pen, const CBrush& brush, const tagRECT& box) {
    calls.push_back(std::string("ellipse").append(BoxText(box)).append(PenText(pen)).append(BrushText(brush)));
}

void RecorderDevice::Rectangle(const CPen& pen, const CBrush& brush, const tagRECT& box) {
    calls.push_back(std::string("rectangle").append(BoxText(box)).append(PenText(pen)).append(BrushText(brush)));
}

void RecorderDevice::FillRect(const CBrush& brush, const tagRECT& box) {
    calls.push_back(std::string("fill").append(BoxText(box)).append(BrushText(brush)));
}

void RecorderDevice::SetPixel(int x, int y, COLORREF colour) {
    calls.push_back(Format("pixel %d,%d ", x, y) + ColourText(colour));
}

void RecorderDevice::Text(const CFont& font, COLORREF colour, std::optional<COLORREF> ground, int x, int y,
                          std::string_view text) {
    std::string call = Format("text %d,%d \"", x, y);
    call.append(text);
    call += Format("\" %s %d", font.face.c_str(), font.height);
    if (font.weight != FW_NORMAL) call += Format(" weight %d", font.weight);
    if (font.escapement != 0) call += Format(" turned %d", font.escapement);
    call += Format(" %s", ColourText(colour).c_str());
    if (ground) call += Format(" on %s", ColourText(*ground).c_str());
    calls.push_back(std::move(call));
}

tagSIZE RecorderDevice::TextSize(const CFont& font, std::string_view text) const {
    const int height = std::abs(font.height);
    return {static_cast<int>(text.size()) * ((height + 1) / 2), font.height < 0 ? height + 2 : height};
}

void RecorderDevice::SetClip(const tagRECT* box) {
    calls.push_back(box ? std::string("clip").append(BoxText(*box)) : "no clip");
}

}  // namespace quillon
