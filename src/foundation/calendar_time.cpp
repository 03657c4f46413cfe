#include "foundation/calendar_time.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/platform.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr double kSecondsPerDay = 86400.0;
constexpr double kSecondsPerYear = 31536000.0;  // of 365 days; leap days are counted apart
constexpr int kEpochYear = 2000;
constexpr int kLeapDaysBeforeEpoch = 485;  // by LeapDaysBefore(2000), and 1 January 2000 itself
constexpr double kLongestTime = 1e13;      // beyond it no year fits a date

constexpr std::array<int, 13> kMonthStarts = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 365};
constexpr std::array<const char*, 12> kMonthNames = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                     "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

/// Days of the year ahead of a month 1 to 13.
int MonthStart(int month, bool leapYear) {
    return kMonthStarts[static_cast<std::size_t>(month - 1)] + (leapYear && month > 2 ? 1 : 0);
}

/// Leap days of the Gregorian calendar up to the end of the year before.
std::int64_t LeapDaysBefore(std::int64_t year) {
    const std::int64_t past = year - 1;
    return past / 4 - past / 100 + past / 400;
}

double YearStart(std::int64_t year) {
    return static_cast<double>(LeapDaysBefore(year) - kLeapDaysBeforeEpoch) * kSecondsPerDay +
           static_cast<double>(year - kEpochYear) * kSecondsPerYear;
}

}  // namespace

bool IsLeapYear(int year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int DaysInMonth(int month, int year) {
    if (month < 1 || month > 12) return 0;
    return MonthStart(month + 1, IsLeapYear(year)) - MonthStart(month, IsLeapYear(year));
}

void CalendarTime::Recompute() {
    secondsOfDay = hour * 3600.0 + minute * 60.0 + second + millisecond / 1000.0;
    leapYear = IsLeapYear(year);
    dayOfYear = MonthStart(std::clamp(month, 1, 12), leapYear) + day;
    const std::int64_t days = std::int64_t{year} * 365 - 730480 + LeapDaysBefore(year) + dayOfYear;
    weekday = static_cast<std::int32_t>((days % 7 + 7) % 7) + 1;
    epochSeconds = YearStart(year) + (dayOfYear - 1) * kSecondsPerDay + secondsOfDay;
}

CalendarTime CalendarTimeOf(const LocalClock& clock) {
    CalendarTime time;
    time.hour = clock.hour;
    time.minute = clock.minute;
    time.second = clock.second;
    time.millisecond = clock.millisecond;
    time.day = clock.day;
    time.month = clock.month;
    time.year = clock.year;
    time.daylightBias = clock.daylightSaving ? -60 : 0;
    time.zoneBias = static_cast<std::int16_t>(clock.biasMinutes);
    time.zoneName = clock.zoneName.substr(0, CalendarTime::kZoneNameLength);
    time.Recompute();
    return time;
}

std::string DateText(int day, int month, int year) {
    if (day < 1 || day > 31 || month < 1 || month > 12 || year < 1900) return {};
    return Format("%02d %s %d", day, kMonthNames[static_cast<std::size_t>(month - 1)], year);
}

std::string DateText(double epochSeconds) {
    if (!(std::fabs(epochSeconds) < kLongestTime)) return {};
    // Dividing by a year without leap days comes out at the right year or beside it.
    auto year = kEpochYear + static_cast<std::int64_t>(std::floor(epochSeconds / kSecondsPerYear));
    while (epochSeconds < YearStart(year)) --year;
    while (epochSeconds >= YearStart(year + 1)) ++year;
    const int dayOfYear = static_cast<int>((epochSeconds - YearStart(year)) / kSecondsPerDay);
    const bool leapYear = IsLeapYear(static_cast<int>(year));
    int month = 1;
    while (dayOfYear >= MonthStart(month + 1, leapYear)) ++month;
    return DateText(dayOfYear - MonthStart(month, leapYear) + 1, month, static_cast<int>(year));
}

std::string TimeText(double epochSeconds) {
    if (!std::isfinite(epochSeconds)) return {};
    const int seconds = static_cast<int>(std::fmod(epochSeconds, kSecondsPerDay));
    const int positive = std::abs(seconds);
    return Format("%s%02d:%02d:%02d", seconds < 0 ? "-" : "", positive / 3600, positive / 60 % 60, positive % 60);
}

}  // namespace quillon
