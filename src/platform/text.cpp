#include "platform/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>

#include "platform/errors.h"

namespace quillon {
namespace {

constexpr int kMostDecimals = 60;

// ---- printf without a locale ----

struct Conversion {
    bool left = false, plus = false, blank = false, alternate = false, zero = false;
    int width = 0;
    int precision = -1;
    int length = 0;  // -2 char, -1 short, 0 int, 1 long, 2 long long, 3 size_t
    char type = 0;
};

int ReadCount(const char*& p, va_list& args) {
    if (*p == '*') {
        ++p;
        return va_arg(args, int);
    }
    int count = 0;
    for (; *p >= '0' && *p <= '9'; ++p) count = count * 10 + (*p - '0');
    return count;
}

bool ReadFlag(char c, Conversion& conversion) {
    switch (c) {
        case '-':
            return conversion.left = true;
        case '+':
            return conversion.plus = true;
        case ' ':
            return conversion.blank = true;
        case '#':
            return conversion.alternate = true;
        case '0':
            return conversion.zero = true;
        default:
            return false;
    }
}

Conversion ReadConversion(const char*& p, va_list& args) {
    Conversion conversion;
    while (ReadFlag(*p, conversion)) ++p;
    conversion.width = ReadCount(p, args);
    if (conversion.width < 0) {
        conversion.left = true;
        conversion.width = -conversion.width;
    }
    if (*p == '.') conversion.precision = ReadCount(++p, args);
    for (; *p == 'l' || *p == 'h' || *p == 'z' || *p == 't'; ++p) {
        if (*p == 'l') ++conversion.length;
        if (*p == 'h') --conversion.length;
        if (*p == 'z' || *p == 't') conversion.length = 3;
    }
    if (*p) conversion.type = *p++;
    return conversion;
}

/// `prefix` is the sign; zeros go between it and the body.
void Pad(std::string& out, const Conversion& c, std::string_view prefix, std::string_view body, bool zeros) {
    const std::size_t length = prefix.size() + body.size();
    const std::size_t missing =
        static_cast<std::size_t>(c.width) > length ? static_cast<std::size_t>(c.width) - length : 0;
    if (!c.left && !zeros) out.append(missing, ' ');
    out += prefix;
    if (!c.left && zeros) out.append(missing, '0');
    out += body;
    if (c.left) out.append(missing, ' ');
}

std::string_view SignOf(bool negative, const Conversion& c) {
    if (negative) return "-";
    if (c.plus) return "+";
    return c.blank ? " " : "";
}

void FormatReal(std::string& out, const Conversion& c, double value) {
    std::array<char, 512> buffer;
    const double magnitude = std::fabs(value);
    const int precision = c.precision < 0 ? 6 : std::min(c.precision, kMostDecimals);
    const auto style = c.type == 'e'   ? std::chars_format::scientific
                       : c.type == 'g' ? std::chars_format::general
                                       : std::chars_format::fixed;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude, style, precision).ptr;
    std::string body(buffer.data(), end);
    if (c.alternate && precision == 0 && std::isfinite(value)) body.insert(std::min(body.find('e'), body.size()), ".");
    Pad(out, c, SignOf(std::signbit(value) && !std::isnan(value), c), body, c.zero && std::isfinite(value));
}

void FormatWhole(std::string& out, const Conversion& c, bool negative, unsigned long long magnitude) {
    std::array<char, 32> buffer;
    const bool hex = c.type == 'x' || c.type == 'X';
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude, hex ? 16 : 10).ptr;
    std::string digits(buffer.data(), end);
    if (magnitude == 0 && c.precision == 0) digits.clear();
    if (c.type == 'X') digits = ToUpper(digits);
    if (static_cast<int>(digits.size()) < c.precision) {
        digits.insert(0, static_cast<std::size_t>(c.precision) - digits.size(), '0');
    }
    const bool isSigned = c.type == 'd' || c.type == 'i';
    std::string prefix(isSigned ? SignOf(negative, c) : "");
    if (hex && c.alternate && magnitude != 0) prefix = {'0', c.type};
    Pad(out, c, prefix, digits, c.zero && c.precision < 0);
}

void FormatSigned(std::string& out, const Conversion& c, long long value) {
    const bool negative = value < 0;
    FormatWhole(out, c, negative,
                negative ? 0ULL - static_cast<unsigned long long>(value) : static_cast<unsigned long long>(value));
}

long long NextSigned(const Conversion& c, va_list& args) {
    switch (c.length) {
        case -2:
            return static_cast<signed char>(va_arg(args, int));
        case -1:
            return static_cast<short>(va_arg(args, int));
        case 0:
            return va_arg(args, int);
        case 1:
            return va_arg(args, long);
        case 2:
            return va_arg(args, long long);
        default:
            return va_arg(args, std::ptrdiff_t);
    }
}

unsigned long long NextUnsigned(const Conversion& c, va_list& args) {
    switch (c.length) {
        case -2:
            return static_cast<unsigned char>(va_arg(args, unsigned));
        case -1:
            return static_cast<unsigned short>(va_arg(args, unsigned));
        case 0:
            return va_arg(args, unsigned);
        case 1:
            return va_arg(args, unsigned long);
        case 2:
            return va_arg(args, unsigned long long);
        default:
            return va_arg(args, std::size_t);
    }
}

void FormatText(std::string& out, const Conversion& c, const char* text) {
    if (!text) text = "";
    // With a precision the text need not end in a NUL.
    const std::size_t length =
        c.precision < 0 ? std::strlen(text) : ::strnlen(text, static_cast<std::size_t>(c.precision));
    Pad(out, c, "", {text, length}, false);
}

void FormatOne(std::string& out, const Conversion& c, va_list& args) {
    switch (c.type) {
        case 'd':
        case 'i':
            FormatSigned(out, c, NextSigned(c, args));
            break;
        case 'u':
        case 'x':
        case 'X':
            FormatWhole(out, c, false, NextUnsigned(c, args));
            break;
        case 'f':
        case 'e':
        case 'g':
            FormatReal(out, c, va_arg(args, double));
            break;
        case 's':
            FormatText(out, c, va_arg(args, const char*));
            break;
        case 'c':
            // A character 0 writes nothing: callers pass it for "no letter".
            if (const char letter = static_cast<char>(va_arg(args, int))) Pad(out, c, "", {&letter, 1}, false);
            break;
        case '%':
            out += '%';
            break;
        default:
            break;
    }
}

// ---- Windows-1252 ----

/// Code points of the bytes 0x80 to 0x9F; the five unassigned bytes keep their own number.
constexpr std::array<char32_t, 32> kHighControls = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                                    0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

constexpr std::string_view kEscapeHead = "\xABU+";
constexpr char kEscapeTail = '\xBB';
constexpr char32_t kGuillemet = 0xAB;

char32_t CodePointOf(unsigned char byte) {
    return byte >= 0x80 && byte < 0xA0 ? kHighControls[byte - 0x80u] : byte;
}

/// The byte of a code point, or 0 if Windows-1252 has none (0 itself is handled by the caller).
unsigned char ByteOf(char32_t codePoint) {
    if (codePoint < 0x80 || (codePoint >= 0xA0 && codePoint < 0x100)) return static_cast<unsigned char>(codePoint);
    for (std::size_t i = 0; i < kHighControls.size(); ++i) {
        if (kHighControls[i] == codePoint) return static_cast<unsigned char>(0x80 + i);
    }
    return 0;
}

void AppendUtf8(std::string& out, char32_t c) {
    const auto put = [&](char32_t byte) { out += static_cast<char>(byte); };
    if (c < 0x80) {
        put(c);
    } else if (c < 0x800) {
        put(0xC0 | (c >> 6));
        put(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        put(0xE0 | (c >> 12));
        put(0x80 | ((c >> 6) & 0x3F));
        put(0x80 | (c & 0x3F));
    } else {
        put(0xF0 | (c >> 18));
        put(0x80 | ((c >> 12) & 0x3F));
        put(0x80 | ((c >> 6) & 0x3F));
        put(0x80 | (c & 0x3F));
    }
}

/// Takes one character of UTF-8 from the front; false, taking nothing, if the bytes there are no UTF-8.
bool TakeUtf8(std::string_view& text, char32_t& codePoint) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char head = byte(0);
    const std::size_t length = head < 0x80                   ? 1
                               : head >= 0xF0 && head < 0xF5 ? 4
                               : head >= 0xE0 && head < 0xF0 ? 3
                               : head >= 0xC2 && head < 0xE0 ? 2
                                                             : 0;
    if (length == 0 || text.size() < length) return false;
    char32_t c = length == 1 ? head : head & (0xFFu >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) return false;
        c = (c << 6) | (byte(i) & 0x3Fu);
    }
    constexpr std::array<char32_t, 5> kSmallest = {0, 0, 0x80, 0x800, 0x10000};
    if (c < kSmallest[length] || c > 0x10FFFF || (c >= 0xD800 && c < 0xE000)) return false;
    codePoint = c;
    text.remove_prefix(length);
    return true;
}

std::string EscapeOf(char32_t codePoint) {
    return Format("\xABU+%04X\xBB", static_cast<unsigned>(codePoint));
}

/// Takes "«U+hex»" from the front if it stands there, exactly as TextFromUtf8 would have written it.
bool TakeEscape(std::string_view& text, char32_t& codePoint) {
    if (text.substr(0, kEscapeHead.size()) != kEscapeHead) return false;
    const std::size_t tail = text.find(kEscapeTail, kEscapeHead.size());
    if (tail == std::string_view::npos) return false;
    const char* first = text.data() + kEscapeHead.size();
    const char* last = text.data() + tail;
    std::uint32_t value = 0;
    const auto read = std::from_chars(first, last, value, 16);
    if (read.ec != std::errc{} || read.ptr != last || value > 0x10FFFF || (value >= 0xD800 && value < 0xE000)) {
        return false;
    }
    const bool escaped = value == kGuillemet || (value != 0 && ByteOf(value) == 0);
    if (!escaped || text.substr(0, tail + 1) != EscapeOf(value)) return false;
    codePoint = value;
    text.remove_prefix(tail + 1);
    return true;
}

}  // namespace

std::string Format(const char* format, ...) {
    std::string out;
    va_list args;
    va_start(args, format);
    for (const char* p = format; *p;) {
        if (*p != '%') {
            out += *p++;
            continue;
        }
        const Conversion conversion = ReadConversion(++p, args);
        FormatOne(out, conversion, args);
    }
    va_end(args);
    return out;
}

void AppendFixed(std::string& text, double value, int decimals) {
    std::array<char, 512> buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed,
                                   std::clamp(decimals, 0, kMostDecimals));
    text.append(buffer.data(), end.ptr);
}

void AppendShortest(std::string& text, double value) {
    constexpr double kLeastPlain = 1e-5;
    constexpr double kMostPlain = 1e15;
    std::array<char, 32> buffer;
    const double size = std::fabs(value);
    const bool plain = size == 0.0 || (size >= kLeastPlain && size < kMostPlain);
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                   plain ? std::chars_format::fixed : std::chars_format::scientific);
    text.append(buffer.data(), end.ptr);
}

namespace {

/// Power of ten of the first digit that isn't 0 in a number without a sign.
long long DecimalExponent(std::string_view number) {
    const std::size_t e = std::min(number.find_first_of("eE"), number.size());
    const std::string_view digits = number.substr(0, e);
    const auto point = static_cast<long long>(std::min(digits.find('.'), digits.size()));
    const auto first = static_cast<long long>(std::min(digits.find_first_of("123456789"), digits.size()));
    const int exponent = e < number.size() ? Atoi(number.substr(e + 1)) : 0;
    return point - first - (first < point ? 1 : 0) + exponent;
}

}  // namespace

double Atof(std::string_view text) {
    const char* p = text.data();
    const char* const end = p + text.size();
    while (p != end && IsSpace(*p)) ++p;
    const bool negative = p != end && *p == '-';
    if (p != end && (*p == '-' || *p == '+')) ++p;
    // from_chars would take a second sign, "inf" and "nan".
    if (p == end || !((*p >= '0' && *p <= '9') || *p == '.')) return 0.0;
    double value = 0.0;
    const auto read = std::from_chars(p, end, value);
    if (read.ec == std::errc::invalid_argument) return 0.0;
    if (read.ec == std::errc::result_out_of_range) {
        // It leaves the value alone there, on whichever side it left the range.
        const bool small = DecimalExponent({p, static_cast<std::size_t>(read.ptr - p)}) < 0;
        value = small ? 0.0 : std::numeric_limits<double>::infinity();
    }
    return negative ? -value : value;
}

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::size_t PassDigits(std::string_view text, std::size_t& i) {
    const std::size_t first = i;
    while (i < text.size() && IsDigit(text[i])) ++i;
    return i - first;
}
void PassSign(std::string_view text, std::size_t& i) {
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) ++i;
}

}  // namespace

bool ScanNumber(std::string_view text, double& number) {
    std::size_t i = 0;
    PassSign(text, i);
    std::size_t digits = PassDigits(text, i);
    if (i < text.size() && text[i] == '.') digits += PassDigits(text, ++i);
    if (digits == 0) return false;
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        PassSign(text, ++i);
        if (PassDigits(text, i) == 0) return false;
    }
    if (i != text.size()) return false;
    number = Atof(text);
    return true;
}

int Atoi(std::string_view text) {
    text = TrimLeft(text);
    const bool negative = !text.empty() && text.front() == '-';
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) text.remove_prefix(1);
    long long value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') break;
        value = std::min(value * 10 + (c - '0'), static_cast<long long>(INT_MAX) + 1);
    }
    return static_cast<int>(negative ? -value : std::min(value, static_cast<long long>(INT_MAX)));
}

bool IsSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

std::string_view TrimLeft(std::string_view text) {
    std::size_t n = 0;
    while (n < text.size() && IsSpace(text[n])) ++n;
    return text.substr(n);
}

std::string_view TrimRight(std::string_view text) {
    std::size_t n = text.size();
    while (n > 0 && IsSpace(text[n - 1])) --n;
    return text.substr(0, n);
}

std::string_view Trim(std::string_view text) {
    return TrimRight(TrimLeft(text));
}

char ToUpper(char c) {
    const auto byte = static_cast<unsigned char>(c);
    if (c >= 'a' && c <= 'z') return static_cast<char>(c - 32);
    if (byte >= 0xE0 && byte != 0xF7 && byte != 0xFF) return static_cast<char>(byte - 32);
    if (byte == 0x9A || byte == 0x9C || byte == 0x9E) return static_cast<char>(byte - 16);
    return byte == 0xFF ? '\x9F' : c;
}

std::string ToUpper(std::string_view text) {
    std::string upper(text);
    for (char& c : upper) c = ToUpper(c);
    return upper;
}

bool EqualNoCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (ToUpper(a[i]) != ToUpper(b[i])) return false;
    }
    return true;
}

std::string Replace(std::string_view text, std::string_view from, std::string_view to) {
    if (from.empty()) throw InvalidArgument("nothing to replace");
    std::string out;
    for (;;) {
        const std::size_t found = text.find(from);
        out += text.substr(0, found);
        if (found == std::string_view::npos) return out;
        out += to;
        text.remove_prefix(found + from.size());
    }
}

std::string Utf8FromText(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        char32_t c = 0;
        if (!TakeEscape(text, c)) {
            c = CodePointOf(static_cast<unsigned char>(text.front()));
            text.remove_prefix(1);
        }
        AppendUtf8(out, c);
    }
    return out;
}

void AppendCodePoint(std::string& text, char32_t codePoint) {
    if (codePoint > 0x10FFFF || (codePoint >= 0xD800 && codePoint < 0xE000)) return;
    if (const unsigned char byte = ByteOf(codePoint); byte != 0 || codePoint == 0) {
        text += static_cast<char>(byte);
    } else {
        text += EscapeOf(codePoint);
    }
}

std::string TextFromUtf8(std::string_view utf8) {
    std::string out;
    while (!utf8.empty()) {
        char32_t c = 0;
        if (!TakeUtf8(utf8, c)) {
            out += utf8.front();
            utf8.remove_prefix(1);
        } else if (c == kGuillemet && utf8.starts_with("U+")) {
            // A guillemet of the text's own, which must not be read as the head of an escape.
            out += EscapeOf(c);
        } else {
            AppendCodePoint(out, c);
        }
    }
    return out;
}

}  // namespace quillon
