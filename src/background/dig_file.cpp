#include "background/dig_file.h"

#include <chrono>

namespace quillon {
namespace {

constexpr int kFirstYear = 1980;
constexpr std::uint16_t kFirstDay = 1 << 5 | 1;

/// The year of the place on earth that is ahead of all others: the stamps are in UTC, and on New Year's Eve a file
/// written there is not one of the future.
int PresentYear() {
    using namespace std::chrono;
    const year_month_day today(floor<days>(system_clock::now() + hours(14)));
    return static_cast<int>(today.year());
}

}  // namespace

bool DigHeader::IsBelievable() const {
    constexpr int kSecondsOfDay = 86400;
    const int seconds = (time >> 11) * 3600 + (time >> 5 & 63) * 60 + (time & 31) * 2;
    const int month = date >> 5 & 15, day = date & 31, year = (date >> 9) + kFirstYear;
    return seconds <= kSecondsOfDay && month >= 1 && month <= 12 && day > 0 && year <= PresentYear() &&
           length < kLongest;
}

std::optional<DigHeader> DigHeaderOf(const FileSystem& files, std::string_view source) {
    const auto stamp = files.Stamp(source);
    if (!stamp) return std::nullopt;
    const DosStamp dos = DosStampOf(*stamp);
    DigHeader header{.time = dos.time, .date = dos.date, .length = stamp->size};
    if (!DigHeader{.time = dos.time, .date = dos.date}.IsBelievable()) {
        header.time = 0;
        header.date = kFirstDay;
    }
    return header;
}

}  // namespace quillon
