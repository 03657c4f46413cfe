#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "platform/property_grid.h"
#include "platform/property_rows.h"

namespace quillon {

/// Widths, clearances, tolerances, sizes: what is larger was mistyped.
inline constexpr NumberRange kMetresRange{0, 100'000};
inline constexpr NumberRange kNauticalMilesRange{0, 100};
/// Between KP labels, in km.
inline constexpr NumberRange kKpIntervalRange{0, 10'000};
inline constexpr NumberRange kKpRange{-100'000, 100'000};

/// Takes a row's value into a member; false if the member had it. Whole numbers of any width are held by a row as 32
/// bits.
template <class Member>
bool Take(Member& member, const CMFCPropertyGridProperty& row) {
    Member value{};
    if constexpr (std::is_same_v<Member, bool> || std::is_same_v<Member, double> ||
                  std::is_same_v<Member, std::string> || std::is_same_v<Member, COLORREF>) {
        value = row.Get<Member>();
    } else {
        value = static_cast<Member>(row.Get<std::int32_t>());
    }
    if (value == member) return false;
    member = value;
    return true;
}

/// Gives the picker row with that id the colour that it draws its choices in.
void ColourRow(const CMFCPropertyGridCtrl& list, UINT id, COLORREF colour);

/// A row of the data orders of a kind, chosen and not typed. An order that has no text shows none.
template <std::size_t N>
void AddOrderRow(CMFCPropertyGridProperty& group, const std::array<std::string_view, N>& texts, std::int32_t order,
                 std::string_view description, UINT id) {
    const bool known = order >= 0 && order < static_cast<std::int32_t>(N);
    auto& row = group.Add<CMFCPropertyGridProperty>(
        "Data Order", std::string(known ? texts[static_cast<std::size_t>(order)] : ""), description, id);
    for (const std::string_view text : texts) row.AddOption(text);
    row.AllowEdit(false);
}

/// A row of fixed choices, chosen and not typed.
CMFCPropertyGridProperty& AddChoice(CMFCPropertyGridProperty& group, std::string_view name,
                                    std::span<const std::string_view> texts, std::string_view chosen,
                                    std::string_view description, UINT id);
void AddColour(CMFCPropertyGridProperty& group, std::string_view name, COLORREF colour, std::string_view description,
               UINT id);

/// What a row of choices offers and which of it holds. A choice that isn't there, -1 say, shows "n/a".
struct Choices {
    std::vector<std::string> texts;
    int chosen = -1;
    std::optional<std::string> shown = {};  ///< in place of the text chosen
};
/// An empty text is offered as "n/a", and each that an earlier one has with its number behind it, so that a text names
/// one choice.
Choices DistinctChoices(std::vector<std::string> texts, int chosen);
std::string ChosenText(const Choices& choices);
void SetChoices(CMFCPropertyGridProperty& row, const Choices& choices);

/// The place of the row's text among its options; -1 if it is none of them.
int ChosenOption(const CMFCPropertyGridProperty& row);

}  // namespace quillon
