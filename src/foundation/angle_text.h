#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace quillon {

class FileSystem;

/// What an angle is, which settles its sign, letter, width and range. Angles are radians throughout.
enum ANGLE_TYPE : std::int32_t {
    ANGLE_SIGNED_180 = 1,  ///< + or -, up to 180 degrees
    ANGLE_BEARING = 2,     ///< 0 to 360 degrees
    ANGLE_SIGNED_90 = 3,   ///< + or -, up to 90 degrees
    ANGLE_ZENITH = 4,      ///< held as an elevation, shown as its complement to a right angle
    ANGLE_LATITUDE = 5,    ///< N or S
    ANGLE_LONGITUDE = 6,   ///< E or W
    // As their namesakes, with two decimals by default.
    ANGLE_BEARING_SHORT = 7,
    ANGLE_SIGNED_90_SHORT = 8,
    ANGLE_SIGNED_180_SHORT = 9,
};

/// The notations. ANGLE_BY_SETTINGS is none of its own: it stands for the one that the operator has chosen.
enum ANGLE_FORMAT : std::int32_t {
    ANGLE_DEGREES_MINUTES_SECONDS = 0,
    ANGLE_DEGREES_MINUTES = 1,
    ANGLE_DEGREES = 2,
    ANGLE_SIGNED_DEGREES = 3,
    ANGLE_GRADS = 4,
    ANGLE_BY_SETTINGS = 5,
};

constexpr int kAngleFormatCount = 5;
inline constexpr std::array<std::string_view, kAngleFormatCount> kAngleFormatNames = {
    "DDD MM SS.SSS Q", "DDD MM.MMMMM Q", "DDD.DDDDDDDD Q", "\261DDD.DDDDDDDD" /* plus-minus */, "GRADIANS"};

/// Asks for the default count of decimals, as does any count outside 0 to kMostAngleDecimals.
constexpr int kDefaultDecimals = -1;
constexpr int kMostAngleDecimals = 32;

/// The decimals that a type has in a format by itself; 0 for a type or format that there isn't.
int AngleDefaultDecimals(int type, int format);

/// `c` in capitals if it is one of n, s, e, w, else 0.
char HemisphereLetter(char c);

/// Degrees, minutes and seconds of an angle without its sign, and the sign as -1 or 1. Seconds that would read 60 at
/// `decimals` are carried into the minute, and minutes into the degree; nothing stops the degrees at a full circle.
/// Beyond 2147483647 degrees the degrees stay there.
void SplitAngle(double value, int& degrees, int& minutes, double& seconds, int& sign, int decimals);

/// The text of an angle in one of the five notations, in the form of all angle text here: the unit mark ahead of the
/// point, as in "52° 30'.0000N".
///
/// Empty for MISSING_VALUE, for a value that is not finite, and for a type or format that there isn't; "n/a" for -1.0,
/// whatever the type. `hemisphere` is the letter of a latitude or longitude of exactly 0 (0: N or E). In the signed
/// notation a latitude or longitude has no letter: south and west begin with "-", in the place that a leading zero of
/// north and east leaves for it.
///
/// ANGLE_BY_SETTINGS reads format, decimals and letter from the settings at every call; without `files` their defaults
/// hold. Settings that name it again stand for degrees and minutes.
std::string FormatAngle(double value, int type, int format, int decimals = kDefaultDecimals, char hemisphere = 0,
                        FileSystem* files = nullptr);

/// Moves the mark that follows the decimals ("°", "'", "\"" or "g") in front of the first point.
void UnitBeforePoint(std::string& text);

/// The largest text of a type, from which an editor knows where digits stand and how far each may go, as
/// "359°.999999999"; `limit` gets the leading digits of the first whole number beyond it ("36"). The letter is always N
/// or E, the sign always "+"; in grads the unit mark stays "°". Both empty for a type or format that there isn't.
/// Returns the length of `first`.
int AngleTemplate(int type, int format, std::string& first, int decimals, std::string& limit);

}  // namespace quillon
