#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace quillon {

/// The characters that edit controls are handed beside those one can see.
constexpr char kCtrlC = 3;
constexpr char kBackspace = 8;
constexpr char kTab = 9;
constexpr char kEnter = 13;
constexpr char kCtrlV = 22;
constexpr char kCtrlX = 24;
constexpr char kEscape = 27;

constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// What a one-line edit control holds: its text and the selection from `from` to `to`, both counted in characters from
/// the front. Without a selection both are the caret.
struct tagEditText {
    std::string text;
    std::size_t from = 0;
    std::size_t to = 0;

    bool HasSelection() const { return from != to; }
    std::string_view Selected() const { return std::string_view(text).substr(from, to - from); }
    void SetCaret(std::size_t position) { from = to = std::min(position, text.size()); }
    void SelectAll() {
        from = 0;
        to = text.size();
    }
    /// Puts the selection in order and inside the text, whatever a caller made of it.
    void Clamp() {
        to = std::min(to, text.size());
        from = std::min(from, text.size());
        if (from > to) std::swap(from, to);
    }
    friend bool operator==(const tagEditText&, const tagEditText&) = default;
};

}  // namespace quillon
