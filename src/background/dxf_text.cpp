#include "background/dxf_text.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "platform/text.h"

namespace quillon {
namespace {

constexpr char kDegree = '\xB0';
constexpr char kPlusMinus = '\xB1';
constexpr char kDiameter = '\xD8';
constexpr char kHardBlank = '\xA0';
constexpr std::string_view kPercents = "%%";
constexpr std::string_view kUnicodeHead = "\\U+";
constexpr std::size_t kUnicodeDigits = 4;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Takes `count` hexadecimal digits from the front; false, taking nothing, if they aren't there.
bool TakeHex(std::string_view& text, std::size_t count, std::uint32_t& number) {
    if (text.size() < count) return false;
    std::uint32_t value = 0;
    for (const char c : text.substr(0, count)) {
        const char upper = ToUpper(c);
        const bool letter = upper >= 'A' && upper <= 'F';
        if (!IsDigit(c) && !letter) return false;
        value = value * 16 + static_cast<std::uint32_t>(letter ? upper - 'A' + 10 : c - '0');
    }
    number = value;
    text.remove_prefix(count);
    return true;
}

/// Takes "\U+XXXX" from the front, or two that make one letter together.
bool TakeUnicode(std::string_view& text, char32_t& letter) {
    std::string_view rest = text;
    std::uint32_t first = 0, second = 0;
    const auto take = [&rest](std::uint32_t& unit) {
        if (!rest.starts_with(kUnicodeHead)) return false;
        rest.remove_prefix(kUnicodeHead.size());
        return TakeHex(rest, kUnicodeDigits, unit);
    };
    if (!take(first) || first == 0) return false;
    letter = first;
    text = rest;
    if (first >= 0xD800 && first < 0xDC00 && take(second) && second >= 0xDC00 && second < 0xE000) {
        letter = 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
        text = rest;
    }
    return true;
}

/// The text of a drawing, letter by letter, with what all its forms have in common.
class Plain {
public:
    Plain(std::string_view source, bool utf8) : decoded(utf8 ? TextFromUtf8(source) : source), rest(decoded) {
        out.reserve(decoded.size());
    }

    std::string_view& Rest() { return rest; }
    bool IsEnd() const { return rest.empty(); }
    void Put(char c) {
        if (static_cast<unsigned char>(c) >= ' ' || c == '\n') out += c;
    }
    char Take() {
        const char c = rest.front();
        rest.remove_prefix(1);
        return c;
    }
    bool TakeLetter() {
        char32_t letter = 0;
        if (!TakeUnicode(rest, letter)) return false;
        if (letter >= ' ') AppendCodePoint(out, letter);
        return true;
    }
    /// "%%d" and its like; signs that only switch a style on or off give nothing.
    bool TakeSign() {
        if (!rest.starts_with(kPercents) || rest.size() < 3) return false;
        const char sign = ToUpper(rest[2]);
        constexpr std::string_view kSigns = "DPC%UOK";
        constexpr std::string_view kLetters = "\xB0\xB1\xD8%";
        static_assert(kLetters[0] == kDegree && kLetters[1] == kPlusMinus && kLetters[2] == kDiameter);
        const std::size_t place = kSigns.find(sign);
        if (place == std::string_view::npos) return TakeNumberedLetter();
        rest.remove_prefix(3);
        if (place < kLetters.size()) Put(kLetters[place]);
        return true;
    }
    std::string Finish() { return std::move(out); }

private:
    /// "%%065".
    bool TakeNumberedLetter() {
        const std::string_view digits = rest.substr(kPercents.size(), 3);
        if (digits.size() < 3 || !std::all_of(digits.begin(), digits.end(), IsDigit)) return false;
        const int number = Atoi(digits);
        rest.remove_prefix(kPercents.size() + digits.size());
        if (number > 0 && number < 256) Put(static_cast<char>(number));
        return true;
    }

    std::string decoded;
    std::string_view rest;
    std::string out;
};

/// The part of a code up to its semicolon, which goes with it; false if it has none.
bool TakeArgument(std::string_view& rest, std::string_view& argument) {
    const std::size_t end = rest.find(';');
    if (end == std::string_view::npos) return false;
    argument = rest.substr(0, end);
    rest.remove_prefix(end + 1);
    return true;
}

/// A fraction or a pair of limits: "1/2", "1#2", "+0.1^-0.2".
void PutStacked(Plain& plain, std::string_view stacked) {
    for (std::size_t i = 0; i < stacked.size(); ++i) {
        const char c = stacked[i];
        if (c == '\\' && i + 1 < stacked.size()) {
            plain.Put(stacked[++i]);
        } else if (c == '#' || c == '^') {
            plain.Put('/');
            if (c == '^' && i + 1 < stacked.size() && stacked[i + 1] == ' ') ++i;
        } else {
            plain.Put(c);
        }
    }
}

/// A code of a text of several lines, whose backslash has been taken.
void TakeCode(Plain& plain) {
    constexpr std::string_view kSwitches = "LlOoKk";
    constexpr std::string_view kWithArgument = "ACcfFHpQTW";
    if (plain.IsEnd()) return plain.Put('\\');
    const char code = plain.Take();
    std::string_view argument;
    if (code == 'P' || code == 'N' || code == 'X') return plain.Put('\n');
    if (code == '~') return plain.Put(kHardBlank);
    if (kSwitches.find(code) != std::string_view::npos) return;
    if (code == 'S' && TakeArgument(plain.Rest(), argument)) return PutStacked(plain, argument);
    if (kWithArgument.find(code) != std::string_view::npos && TakeArgument(plain.Rest(), argument)) return;
    if (code != '\\' && code != '{' && code != '}') plain.Put('\\');
    plain.Put(code);
}

/// "^I" is a tab, "^ " a caret; other control characters go.
void TakeCaret(Plain& plain) {
    if (plain.IsEnd()) return plain.Put('^');
    const char control = plain.Take();
    if (control == 'I') plain.Put(' ');
    if (control == 'J') plain.Put('\n');
    if (control == ' ') plain.Put('^');
}

}  // namespace

// ---- Pieces ----

void DxfTextPieces::Clear() {
    text.clear();
    start = searched = 0;
}

void DxfTextPieces::Append(std::string_view piece) {
    const std::size_t before = text.size();
    text += piece;
    // A sign may begin in the piece before.
    const std::size_t from = std::max(start, before - std::min(before, kPercents.size()));
    ReplaceSigns(from);
    searched = std::min(searched, from);
    TakeRun();
}

void DxfTextPieces::ReplaceSigns(std::size_t from) {
    std::size_t to = from;
    for (std::size_t i = from; i < text.size();) {
        const bool sign =
            i + 2 < text.size() && text[i] == '%' && text[i + 1] == '%' && (text[i + 2] == 'D' || text[i + 2] == 'P');
        text[to++] = !sign ? text[i] : text[i + 2] == 'D' ? kDegree : kPlusMinus;
        i += sign ? 3 : 1;
    }
    text.resize(to);
}

void DxfTextPieces::TakeRun() {
    const std::string_view counted = Get();
    if (!counted.starts_with("{\\") || !counted.ends_with('}')) return;
    const std::size_t semicolon = text.find(';', std::max(start, searched));
    searched = std::min(semicolon, text.size());
    if (semicolon == std::string::npos) return;
    text.pop_back();
    start = semicolon + 1;
}

// ---- What is read ----

std::string PlainName(std::string_view name, bool utf8) {
    Plain plain(name, utf8);
    while (!plain.IsEnd()) {
        if (!plain.TakeLetter()) plain.Put(plain.Take());
    }
    return plain.Finish();
}

std::string PlainText(std::string_view text, bool utf8) {
    Plain plain(text, utf8);
    while (!plain.IsEnd()) {
        if (plain.TakeSign() || plain.TakeLetter()) continue;
        const char c = plain.Take();
        if (c == '^') {
            TakeCaret(plain);
        } else {
            plain.Put(c == '\t' ? ' ' : c);
        }
    }
    return plain.Finish();
}

std::string PlainMText(std::string_view text, bool utf8) {
    Plain plain(text, utf8);
    while (!plain.IsEnd()) {
        if (plain.TakeSign() || plain.TakeLetter()) continue;
        const char c = plain.Take();
        if (c == '\\') {
            TakeCode(plain);
        } else if (c == '^') {
            TakeCaret(plain);
        } else if (c != '{' && c != '}') {
            plain.Put(c == '\t' ? ' ' : c);
        }
    }
    return plain.Finish();
}

}  // namespace quillon
