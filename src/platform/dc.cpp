#include "platform/dc.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace quillon {
namespace {

std::vector<std::string_view> Lines(std::string_view text) {
    std::vector<std::string_view> lines;
    for (;;) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        lines.push_back(line);
        if (end == std::string_view::npos) return lines;
        text.remove_prefix(end + 1);
    }
}

}  // namespace

CDrawDevice::~CDrawDevice() = default;
CDC::~CDC() = default;

CFont CFont::FromPoints(int tenths, std::string_view face, int pixelsPerInch) {
    return {std::string(face), -(tenths * pixelsPerInch + 360) / 720, FW_NORMAL, 0};
}

CDrawDevice* CDC::Detach() {
    return std::exchange(device, nullptr);
}

CPen CDC::SelectObject(const CPen& tool) {
    return std::exchange(pen, tool);
}

CBrush CDC::SelectObject(const CBrush& tool) {
    return std::exchange(brush, tool);
}

CFont CDC::SelectObject(const CFont& tool) {
    return std::exchange(font, tool);
}

COLORREF CDC::SetTextColor(COLORREF colour) {
    return std::exchange(textColour, colour);
}

COLORREF CDC::SetBkColor(COLORREF colour) {
    return std::exchange(groundColour, colour);
}

int CDC::SetBkMode(int mode) {
    return std::exchange(groundMode, mode);
}

int CDC::SetPolyFillMode(int mode) {
    return std::exchange(fillMode, mode);
}

tagPOINT CDC::MoveTo(int x, int y) {
    return std::exchange(position, tagPOINT{x, y});
}

void CDC::LineTo(int x, int y) {
    const std::array<tagPOINT, 2> ends = {MoveTo(x, y), tagPOINT{x, y}};
    if (device) device->Polyline(pen, ends);
}

void CDC::Polyline(std::span<const tagPOINT> points) {
    if (device && points.size() > 1) device->Polyline(pen, points);
}

void CDC::Polygon(std::span<const tagPOINT> points) {
    if (device && points.size() > 1) device->Polygon(pen, brush, fillMode, points);
}

void CDC::Ellipse(int left, int top, int right, int bottom) {
    if (device) device->Ellipse(pen, brush, {left, top, right, bottom});
}

void CDC::Rectangle(int left, int top, int right, int bottom) {
    if (device) device->Rectangle(pen, brush, {left, top, right, bottom});
}

void CDC::FillRect(const tagRECT& box, const CBrush& fill) {
    if (device && box.Width() > 0 && box.Height() > 0) device->FillRect(fill, box);
}

void CDC::FillSolidRect(int left, int top, int right, int bottom, COLORREF colour) {
    FillRect({left, top, right, bottom}, {kFillSolid, colour});
}

void CDC::FrameRect(const tagRECT& box, const CBrush& fill) {
    FillRect({box.left, box.top, box.right, box.top + 1}, fill);
    FillRect({box.left, box.bottom - 1, box.right, box.bottom}, fill);
    FillRect({box.left, box.top + 1, box.left + 1, box.bottom - 1}, fill);
    FillRect({box.right - 1, box.top + 1, box.right, box.bottom - 1}, fill);
}

void CDC::SetPixel(int x, int y, COLORREF colour) {
    if (device) device->SetPixel(x, y, colour);
}

void CDC::TextOut(int x, int y, std::string_view text) {
    if (!device || text.empty()) return;
    const std::optional<COLORREF> ground = groundMode == OPAQUE ? std::optional(groundColour) : std::nullopt;
    device->Text(font, textColour, ground, x, y, text);
}

int CDC::DrawText(std::string_view text, tagRECT& box, unsigned format) {
    const std::vector<std::string_view> lines = Lines(text);
    const int lineHeight = GetTextExtent(" ").height;
    const int height = lineHeight * static_cast<int>(lines.size());
    if (format & DT_CALCRECT) {
        int width = 0;
        for (const std::string_view line : lines) width = std::max(width, GetTextExtent(line).width);
        box.right = box.left + width;
        box.bottom = box.top + height;
        return height;
    }
    int y = (format & DT_VCENTER) ? box.top + (box.Height() - height) / 2 : box.top;
    for (const std::string_view line : lines) {
        const int spare = box.Width() - GetTextExtent(line).width;
        TextOut(box.left + ((format & DT_CENTER) ? spare / 2 : (format & DT_RIGHT) ? spare : 0), y, line);
        y += lineHeight;
    }
    return height;
}

tagSIZE CDC::GetTextExtent(std::string_view text) const {
    return device ? device->TextSize(font, text) : tagSIZE{};
}

void CDC::SetClip(const tagRECT& box) {
    if (device) device->SetClip(&box);
}

void CDC::ClearClip() {
    if (device) device->SetClip(nullptr);
}

}  // namespace quillon
