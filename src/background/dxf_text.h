#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillon {

/// The text of an entity while its pieces come in. After each piece it is tidied: "%%D" and "%%P" become the degree and
/// the plus-minus sign of Windows-1252, and of a text that is one formatted run in braces ("{\fArial;Manifold}") only
/// the run stays. Pieces cost their own length, not that of the text so far.
class DxfTextPieces {
public:
    void Clear();
    void Append(std::string_view piece);
    /// Holds until the next call.
    std::string_view Get() const { return std::string_view(text).substr(start); }

private:
    void ReplaceSigns(std::size_t from);
    void TakeRun();

    std::string text;
    std::size_t start = 0;     ///< of what counts
    std::size_t searched = 0;  ///< no semicolon stands in what counts before this place
};

// A text as it is to be read, in the library's alphabet: drawings from 2007 on are UTF-8, older ones Windows-1252, and
// "\U+XXXX" is a letter in all of them. Control characters are left out.

/// A name: nothing else is changed.
std::string PlainName(std::string_view name, bool utf8);
/// One line: the signs that begin with "%%" become letters (degree, plus-minus, diameter, the letter of a number) or
/// go (underlining and the like).
std::string PlainText(std::string_view text, bool utf8);
/// Several lines: fonts, colours, heights and other formatting go, fractions become "1/2", paragraphs part by a line
/// feed.
std::string PlainMText(std::string_view text, bool utf8);

}  // namespace quillon
