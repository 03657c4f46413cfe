#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace quillon {

/// Red in the low byte, then green, then blue.
using COLORREF = std::uint32_t;

constexpr COLORREF RGB(unsigned red, unsigned green, unsigned blue) {
    return (red & 0xFFu) | ((green & 0xFFu) << 8) | ((blue & 0xFFu) << 16);
}
constexpr unsigned GetRValue(COLORREF colour) {
    return colour & 0xFFu;
}
constexpr unsigned GetGValue(COLORREF colour) {
    return (colour >> 8) & 0xFFu;
}
constexpr unsigned GetBValue(COLORREF colour) {
    return (colour >> 16) & 0xFFu;
}

struct PaletteColour {
    std::string_view name;
    COLORREF colour;
};

inline constexpr int kPaletteCount = 28;

// clang-format off
/// The colours that every colour row offers. "White" is 192, 192, 192; pure white is "Bright White".
inline constexpr std::array<PaletteColour, kPaletteCount> kPalette = {{
    {"Black",           RGB(  0,   0,   0)},  //  0
    {"Red",             RGB(255,   0,   0)},  //  1
    {"Yellow",          RGB(255, 255,   0)},  //  2
    {"Green",           RGB(  0, 255,   0)},  //  3
    {"Cyan",            RGB(  0, 255, 255)},  //  4
    {"Blue",            RGB(  0,   0, 255)},  //  5
    {"Magenta",         RGB(255,   0, 255)},  //  6
    {"Bright White",    RGB(255, 255, 255)},  //  7
    {"Grey",            RGB(128, 128, 128)},  //  8
    {"White",           RGB(192, 192, 192)},  //  9
    {"Pink",            RGB(255, 128, 128)},  // 10
    {"Dark Red",        RGB(128,   0,   0)},  // 11
    {"Orange",          RGB(255, 128,   0)},  // 12
    {"Light Yellow",    RGB(255, 255, 128)},  // 13
    {"Brown",           RGB(128, 128,   0)},  // 14
    {"Lime Green",      RGB(128, 255,   0)},  // 15
    {"Light Green",     RGB(128, 255, 128)},  // 16
    {"Dark Green",      RGB(  0, 128,   0)},  // 17
    {"Emerald Green",   RGB(  0, 255, 128)},  // 18
    {"Light Cyan",      RGB(128, 255, 255)},  // 19
    {"Dark Cyan",       RGB(  0, 128, 128)},  // 20
    {"Turquoise",       RGB(  0, 128, 255)},  // 21
    {"Light Blue",      RGB(128, 128, 255)},  // 22
    {"Dark Blue",       RGB(  0,   0, 128)},  // 23
    {"Purple",          RGB(128,   0, 255)},  // 24
    {"Light Magenta",   RGB(255, 128, 255)},  // 25
    {"Dark Magenta",    RGB(128,   0, 128)},  // 26
    {"Crimson",         RGB(255,   0, 128)},  // 27
}};
// clang-format on

/// The place of a colour in the palette, or -1.
constexpr int PaletteIndex(COLORREF colour) {
    for (int i = 0; i < kPaletteCount; ++i) {
        if (kPalette[static_cast<std::size_t>(i)].colour == colour) return i;
    }
    return -1;
}

}  // namespace quillon
