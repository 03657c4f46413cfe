#include "foundation/calendar_time.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cmath>
#include <limits>

#include "platform/platform.h"
#include "platform/text.h"
#include "support/comma_locale.h"

namespace quillon {
namespace {

namespace chrono = std::chrono;

CalendarTime TimeOf(int year, int month, int day, int hour = 0, int minute = 0, int second = 0, int millisecond = 0) {
    LocalClock clock;
    clock.year = year;
    clock.month = month;
    clock.day = day;
    clock.hour = hour;
    clock.minute = minute;
    clock.second = second;
    clock.millisecond = millisecond;
    return CalendarTimeOf(clock);
}

/// The calendar of the standard library, day by day through four centuries and their odd hundreds.
TEST(CalendarTime, AgreesWithTheCalendarOnEveryDay) {
    const std::array months = {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const chrono::sys_days epoch = chrono::year(2000) / 1 / 2;
    for (chrono::sys_days day = chrono::year(1800) / 1 / 1; day < chrono::year(2201) / 1 / 1; day += chrono::days(1)) {
        const chrono::year_month_day date = day;
        const int year = int(date.year());
        const int month = static_cast<int>(unsigned(date.month()));
        const int dayOfMonth = static_cast<int>(unsigned(date.day()));
        const double seconds = 86400.0 * static_cast<double>((day - epoch).count());
        const CalendarTime time = TimeOf(year, month, dayOfMonth);
        ASSERT_EQ(time.epochSeconds, seconds) << year << ' ' << month << ' ' << dayOfMonth;
        ASSERT_EQ(time.weekday, static_cast<int>(chrono::weekday(day).iso_encoding()));
        ASSERT_EQ(time.dayOfYear, (day - chrono::sys_days(date.year() / 1 / 1)).count() + 1);
        ASSERT_EQ(time.leapYear, date.year().is_leap());
        if (dayOfMonth == 1) {
            const chrono::year_month_day_last end = date.year() / date.month() / chrono::last;
            ASSERT_EQ(DaysInMonth(month, year), static_cast<int>(unsigned(end.day())));
        }
        const std::string text =
            year < 1900 ? "" : Format("%02d %s %d", dayOfMonth, months[static_cast<std::size_t>(month - 1)], year);
        ASSERT_EQ(DateText(seconds), text);
        ASSERT_EQ(DateText(seconds + 86399.999), text);
    }
}

TEST(CalendarTime, CarriesTheZone) {
    LocalClock clock;
    clock.biasMinutes = -60;
    clock.daylightSaving = true;
    clock.zoneName = "Central European Summer Time, as it is called";
    const CalendarTime summer = CalendarTimeOf(clock);
    EXPECT_EQ(summer.daylightBias, -60);
    EXPECT_EQ(summer.zoneBias, -60);
    EXPECT_EQ(summer.zoneName, "Central European Summer Time, as");
    clock.daylightSaving = false;
    EXPECT_EQ(CalendarTimeOf(clock).daylightBias, 0);
}

TEST(CalendarTime, RefusesDatesThatAreNone) {
    EXPECT_EQ(DateText(5, 3, 2024), "05 Mar 2024");
    EXPECT_EQ(DateText(31, 12, 1900), "31 Dec 1900");
    for (const auto& [day, month, year] : {std::array{32, 1, 2000}, std::array{0, 1, 2000}, std::array{1, 0, 2000},
                                           std::array{1, 13, 2000}, std::array{1, 1, 1899}, std::array{-1, -1, -1}}) {
        EXPECT_EQ(DateText(day, month, year), "") << day << ' ' << month << ' ' << year;
    }
    for (const double seconds : {1e300, -1e300, std::numeric_limits<double>::infinity(), std::nan("")}) {
        EXPECT_EQ(DateText(seconds), "");
    }
}

TEST(CalendarTime, ShowsTheTimeOfDay) {
    struct Row {
        double seconds;
        const char* text;
    };
    for (const Row& row : {
             Row{0, "00:00:00"},
             Row{86399.9, "23:59:59"},
             Row{86400 + 3661, "01:01:01"},
             Row{-3661, "-01:01:01"},
             Row{-86400 - 1, "-00:00:01"},
             Row{-86400, "00:00:00"},  // nothing is left to be negative
             Row{std::numeric_limits<double>::infinity(), ""},
             Row{std::nan(""), ""},
         }) {
        EXPECT_EQ(TimeText(row.seconds), row.text) << row.seconds;
    }
}

}  // namespace
}  // namespace quillon
