#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace quillon {

// The display choices of features, as stored in their settings and offered by the rows that edit them. The stored value
// is the number.

/// A drawn shape, 1 to 25; any other number draws nothing.
using VECTOR_SYMBOL = std::int32_t;
inline constexpr VECTOR_SYMBOL kVectorSymbolCount = 25;

/// Pen width in pixels of a 96 dpi screen, 1 and up.
using LINE_THICKNESS = std::int32_t;
/// The widths that the thickness row offers: enough to tell a main line from the rest, none that hides what is below.
inline constexpr std::array<LINE_THICKNESS, 8> kLineThicknesses = {1, 2, 3, 4, 5, 6, 8, 10};

using SYMBOL_SIZE = std::int32_t;
inline constexpr std::array<std::string_view, 6> m_SymbolSizeTxt = {"No Symbol", "Very Small", "Small",
                                                                    "Medium",    "Large",      "Very Large"};

using SYMBOL_LABEL_MODE = std::int32_t;
inline constexpr std::array<std::string_view, 5> m_LabelModeTxt = {"None", "Name", "Position", "Name + Position",
                                                                   "Description"};

using LABEL_POSITION = std::int32_t;
inline constexpr std::array<std::string_view, 6> m_LabelPositionTxt = {"None", "Top",   "Bottom",
                                                                       "Left", "Right", "Centre"};

/// How an area is filled: a hatch of the drawing system by its number (0 to 5), or one of two numbers of its own.
using FILL_STYLE = std::uint16_t;
inline constexpr FILL_STYLE kFillNone = 65534;
inline constexpr FILL_STYLE kFillSolid = 65535;

struct FillChoice {
    FILL_STYLE style;
    std::string_view name;
};
inline constexpr std::array<FillChoice, 8> kFillChoices = {{{kFillNone, "None"},
                                                            {kFillSolid, "Solid"},
                                                            {0, "Horizontal"},
                                                            {1, "Vertical"},
                                                            {2, "Diagonal Down"},
                                                            {3, "Diagonal Up"},
                                                            {4, "Cross"},
                                                            {5, "Diagonal Cross"}}};

}  // namespace quillon
