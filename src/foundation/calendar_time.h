#pragma once

#include <cstdint>
#include <string>

namespace quillon {

struct LocalClock;

/// One instant with its parts. The epoch of `epochSeconds` is 00:00 on 2 January 2000.
///
/// The first group of members is given; `Recompute` makes the second from it. The zone is carried along and doesn't
/// enter the calculation.
struct CalendarTime {
    std::int32_t hour = 0;
    std::int32_t minute = 0;
    std::int32_t second = 0;
    std::int32_t millisecond = 0;
    std::int32_t day = 1;
    std::int32_t month = 1;  ///< 1 to 12
    std::int32_t year = 2000;

    double secondsOfDay = 0.0;
    std::int32_t weekday = 6;    ///< 1 Monday to 7 Sunday
    std::int32_t dayOfYear = 1;  ///< from 1
    bool leapYear = true;
    double epochSeconds = -86400.0;

    std::int16_t daylightBias = 0;  ///< minutes: -60 while daylight saving is in force
    std::int16_t zoneBias = 0;      ///< minutes
    std::string zoneName;           ///< at most kZoneNameLength characters

    static constexpr std::size_t kZoneNameLength = 32;

    /// A month outside 1 to 12 is taken as the nearest of them.
    void Recompute();
};

/// A reading of the platform's local clock, with its derived parts.
CalendarTime CalendarTimeOf(const LocalClock& clock);

bool IsLeapYear(int year);

/// `month` 1 to 12; 0 outside.
int DaysInMonth(int month, int year);

/// As "05 Mar 2024", English under every locale. Empty unless day is 1 to 31, month 1 to 12 and year at least 1900.
std::string DateText(int day, int month, int year);

/// The date of seconds since 00:00 on 2 January 2000. Empty before 1900 and for what is no time at all.
std::string DateText(double epochSeconds);

/// The time of day as "HH:MM:SS", whole seconds, days taken off. A negative time has a leading minus.
std::string TimeText(double epochSeconds);

}  // namespace quillon
