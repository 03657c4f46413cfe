#include "foundation/angle_text.h"

#include <algorithm>
#include <climits>
#include <cmath>

#include "foundation/angle_display.h"
#include "foundation/angle_units.h"
#include "foundation/values.h"
#include "platform/text.h"

namespace quillon {

namespace {

constexpr double kHalfPi = 1.5707963267948966;
constexpr double kGradsPerRadian = 63.66197723677778;

/// What the type alone settles.
struct TypeDef {
    int degreeDigits;
    bool isSigned;
    std::string_view letters;  // for positive and zero, then for negative; empty for a type without a letter
    int largestDegrees;
    int largestGrads;
    bool twoDecimals;
};

// clang-format off
constexpr std::array<TypeDef, 9> kTypes = {{
    // digits signed letters  largest  grads  two decimals
    { 3,      true,  "",      179,     199,   false },
    { 3,      false, "",      359,     399,   false },
    { 2,      true,  "",       89,      99,   false },
    { 3,      false, "",      179,     199,   false },
    { 2,      false, "NS",     89,      99,   false },
    { 3,      false, "EW",    179,     199,   false },
    { 3,      false, "",      359,     399,   true  },
    { 2,      true,  "",       89,      99,   true  },
    { 3,      true,  "",      179,     199,   true  },
}};
// clang-format on

const TypeDef* FindType(int type) {
    return type >= ANGLE_SIGNED_180 && type <= ANGLE_SIGNED_180_SHORT ? &kTypes[static_cast<std::size_t>(type - 1)]
                                                                      : nullptr;
}

bool IsNotation(int format) {
    return format >= 0 && format < kAngleFormatCount;
}

int ResolveDecimals(int decimals, int type, int format) {
    return decimals < 0 || decimals > kMostAngleDecimals ? AngleDefaultDecimals(type, format) : decimals;
}

int DegreeDigits(const TypeDef& def, int format) {
    if (format == ANGLE_GRADS) return 3;
    // One place more for the sign of south and west, which have no letter in this notation.
    if (format == ANGLE_SIGNED_DEGREES && !def.letters.empty()) return def.degreeDigits + 1;
    return def.degreeDigits;
}

/// Width of a number whose whole part takes `digits`.
int WidthOf(int digits, int decimals) {
    return decimals == 0 ? digits : digits + decimals + 1;
}

/// Asked of the text itself, so that what is shown and what is carried can't differ.
bool ReadsSixty(double value, int decimals) {
    constexpr int kFinest = 21;  // a double near 60 has 15; also for a negative count, which asks for all there are
    if (decimals < 0 || decimals > kFinest) decimals = kFinest;
    return value > 59.0 && Atof(Format("%.*lf", decimals, value)) >= 60.0;
}

char LetterOf(const TypeDef& def, double value, char hemisphere) {
    if (def.letters.empty()) return 0;
    if (value == 0.0 && hemisphere != 0) return hemisphere;
    return def.letters[value < 0.0 ? 1 : 0];
}

/// Formats 0 and 1. Minutes can read 60 although the seconds behind them don't (59.9997 of a minute is 59.98 seconds),
/// so in degrees and minutes the carry is looked at once more.
std::string Sexagesimal(double value, int digits, bool withSeconds, int decimals, char letter) {
    int degrees = 0, minutes = 0, sign = 0;
    double seconds = 0.0;
    SplitAngle(value, degrees, minutes, seconds, sign, decimals);
    const int width = WidthOf(2, decimals);
    if (withSeconds) {
        return Format("%0*d\xB0 %02d' %0*.*lf\"%c", digits, degrees, minutes, width, decimals, seconds, letter);
    }
    double wholeMinutes = minutes + seconds / 60.0;
    if (ReadsSixty(wholeMinutes, decimals)) {
        wholeMinutes = 0.0;
        if (degrees < INT_MAX) ++degrees;
    }
    return Format("%0*d\xB0 %0*.*lf'%c", digits, degrees, width, decimals, wholeMinutes, letter);
}

std::string Decimal(double value, const TypeDef& def, int format, int decimals, char letter) {
    const int width = WidthOf(DegreeDigits(def, format), decimals);
    const double degrees = std::fabs(value) * kDegreesPerRadian;
    if (format == ANGLE_GRADS) {
        return Format("%0*.*lfg%c", width, decimals, std::fabs(value) * kGradsPerRadian, letter);
    }
    if (format == ANGLE_DEGREES) return Format("%0*.*lf\xB0%c", width, decimals, degrees, letter);
    // The "+" holds the place of the sign.
    if (def.isSigned) return Format("%+0*.*lf\xB0", width, decimals, degrees);
    const bool southOrWest = !def.letters.empty() && value < 0.0;
    return Format("%0*.*lf\xB0", width, decimals, southOrWest ? -degrees : degrees);
}

void ApplySign(std::string& text, bool negative, int format) {
    if (format == ANGLE_SIGNED_DEGREES) {
        if (negative) text.front() = '-';
        return;
    }
    text.insert(text.begin(), negative ? '-' : '+');
}

}  // namespace

int AngleDefaultDecimals(int type, int format) {
    constexpr std::array<int, kAngleFormatCount> kByFormat = {5, 7, 9, 9, 9};
    const TypeDef* def = FindType(type);
    if (!def) return 0;
    if (def->twoDecimals) return 2;
    return IsNotation(format) ? kByFormat[static_cast<std::size_t>(format)] : 0;
}

char HemisphereLetter(char c) {
    const char letter = ToUpper(c);
    return letter == 'N' || letter == 'S' || letter == 'E' || letter == 'W' ? letter : '\0';
}

void SplitAngle(double value, int& degrees, int& minutes, double& seconds, int& sign, int decimals) {
    const double product = value * kDegreesPerRadian;
    sign = product < 0.0 ? -1 : 1;
    minutes = 0;
    seconds = 0.0;
    const double x = std::fabs(product);
    if (!(x < INT_MAX)) {
        degrees = INT_MAX;
        return;
    }
    degrees = static_cast<int>(std::floor(x));
    const double y = (x - degrees) * 60.0;
    minutes = static_cast<int>(std::floor(y));
    seconds = (y - minutes) * 60.0;
    if (!ReadsSixty(seconds, decimals)) return;
    seconds = 0.0;
    if (++minutes < 60) return;
    minutes = 0;
    ++degrees;
}

std::string FormatAngle(double value, int type, int format, int decimals, char hemisphere, FileSystem* files) {
    if (format == ANGLE_BY_SETTINGS) {
        ReadAngleDisplay(type, format, decimals, hemisphere, files);
        if (format == ANGLE_BY_SETTINGS) format = ANGLE_DEGREES_MINUTES;
    }
    if (IsMissing(value) || !std::isfinite(value)) return "";
    if (value == -1.0) return "n/a";
    const TypeDef* def = FindType(type);
    if (!def || !IsNotation(format)) return "";
    decimals = ResolveDecimals(decimals, type, format);
    if (type == ANGLE_ZENITH) value = kHalfPi - value;
    const char letter = LetterOf(*def, value, HemisphereLetter(hemisphere));
    std::string text =
        format <= ANGLE_DEGREES_MINUTES
            ? Sexagesimal(value, DegreeDigits(*def, format), format == ANGLE_DEGREES_MINUTES_SECONDS, decimals, letter)
            : Decimal(value, *def, format, decimals, letter);
    if (def->isSigned) ApplySign(text, value < 0.0, format);
    UnitBeforePoint(text);
    return text;
}

void UnitBeforePoint(std::string& text) {
    const std::size_t point = text.find('.');
    if (point == std::string::npos) return;
    const std::size_t mark = text.find_first_not_of("0123456789", point + 1);
    if (mark == std::string::npos) return;
    const char unit = text[mark];
    if (std::string_view("\xB0'\"g").find(unit) == std::string_view::npos) return;
    text.erase(mark, 1);
    text.insert(point, 1, unit);
}

int AngleTemplate(int type, int format, std::string& first, int decimals, std::string& limit) {
    first.clear();
    limit.clear();
    const TypeDef* def = FindType(type);
    if (!def || !IsNotation(format)) return 0;
    decimals = ResolveDecimals(decimals, type, format);
    const bool grads = format == ANGLE_GRADS;
    const int digits = grads ? 3 : def->degreeDigits;
    const int largest = grads ? def->largestGrads : def->largestDegrees;
    // The nines are written out: 60 - 10^-15 as a double would already read 60.
    std::string nines = decimals == 0 ? "" : "." + std::string(static_cast<std::size_t>(decimals), '9');
    if (def->isSigned) first = "+";
    first += Format("%0*d", digits, largest);
    if (format == ANGLE_DEGREES_MINUTES_SECONDS) first += "\xB0 59' 59" + nines + '"';
    if (format == ANGLE_DEGREES_MINUTES) first += "\xB0 59" + nines + '\'';
    if (format >= ANGLE_DEGREES) first += nines + '\xB0';
    if (!def->letters.empty()) first += def->letters.front();
    UnitBeforePoint(first);

    limit = Format("%0*d", digits, largest + 1);
    limit.resize(limit.find_last_not_of('0') + 1);
    return static_cast<int>(first.size());
}

}  // namespace quillon
