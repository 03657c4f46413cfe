#pragma once

#include <string>
#include <string_view>

namespace quillon {

// Text inside the library is 8-bit, Windows-1252. Numbers are written and read the same under every locale: nothing
// here looks at setlocale().

/// printf-style formatting: flags "-+ #0", width and precision (also "*"), conversions d i u x X c s f e g %. Length
/// modifiers hh, h, l, ll, z, t select the argument; "lf" and "f" both take a double. Floating point is rounded as
/// printf does in the C locale (exact, half to even on the exact binary value), with at most 60 decimals; NaN has no
/// sign. "#" is not for g. A character 0 ("%c") writes nothing.
[[gnu::format(printf, 1, 2)]] std::string Format(const char* format, ...);

/// Appends `value` with a fixed count of decimals (0 to 60; more counts as 60). Infinities and NaN become "inf", "-inf"
/// and "nan".
void AppendFixed(std::string& text, double value, int decimals);

/// Appends the fewest digits that Atof reads back as the same number; with an exponent below 1e-5 and from 1e15 on.
void AppendShortest(std::string& text, double value);

/// The number at the front of a text, after white space: sign, digits, point, exponent. 0 when there is none, an
/// infinity on overflow, 0 on underflow. Unlike strtod it takes neither "inf", "nan" nor hexadecimal digits.
double Atof(std::string_view text);

/// The number that the whole text is in plain decimal notation (sign, digits, point, exponent, nothing around it);
/// false for any other text. As Atof in what becomes of a number too large or too small.
bool ScanNumber(std::string_view text, double& number);

/// The whole number at the front of a text, after white space; 0 when there is none. Overflow stops at the bounds of
/// int.
int Atoi(std::string_view text);

/// White space of the C locale: blank, tab, line feed, vertical tab, form feed, carriage return.
bool IsSpace(char c);
std::string_view TrimLeft(std::string_view text);
std::string_view TrimRight(std::string_view text);
std::string_view Trim(std::string_view text);

/// Case is folded for the letters of Windows-1252.
char ToUpper(char c);
std::string ToUpper(std::string_view text);
bool EqualNoCase(std::string_view a, std::string_view b);

/// Replaces every occurrence of `from`, scanning once from the left. An empty `from` raises InvalidArgument.
std::string Replace(std::string_view text, std::string_view from, std::string_view to);

/// UTF-8 of a Windows-1252 text, and back. A character that Windows-1252 lacks travels as "«U+1F6A2»" (guillemets
/// around a code point) and comes back as itself, so that no file name is lost on the way: from UTF-8 to text and back
/// gives the same bytes. A guillemet that happens to stand before "U+" travels as an escape too. Bytes that are no
/// UTF-8 are taken as Windows-1252 already.
std::string Utf8FromText(std::string_view text);
std::string TextFromUtf8(std::string_view utf8);
/// The same of one code point; what is none (a half of a pair, a number too large) gives nothing.
void AppendCodePoint(std::string& text, char32_t codePoint);

}  // namespace quillon
