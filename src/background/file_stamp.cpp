#include "background/file_stamp.h"

#include <array>
#include <chrono>

#include "platform/text.h"

namespace quillon {
namespace {

constexpr int kFirstYear = 1980;
constexpr int kLastYear = 2107;

constexpr std::array<const char*, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                 "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

}  // namespace

DosStamp DosStampOf(const FileStamp& stamp) {
    using namespace std::chrono;
    DosStamp dos;
    dos.length = stamp.size & 0xFFFF'FFFFU;
    const sys_seconds at{floor<seconds>(nanoseconds(stamp.modifiedNs))};
    const sys_days day = floor<days>(at);
    const year_month_day date(day);
    const int year = static_cast<int>(date.year());
    if (year < kFirstYear || year > kLastYear) return dos;
    const hh_mm_ss time(at - day);
    const auto month = static_cast<unsigned>(date.month());
    dos.date = static_cast<std::uint16_t>(static_cast<unsigned>(year - kFirstYear) << 9 | month << 5 |
                                          static_cast<unsigned>(date.day()));
    dos.time = static_cast<std::uint16_t>(time.hours().count() << 11 | time.minutes().count() << 5 |
                                          time.seconds().count() / 2);
    return dos;
}

DosStamp DosStampOf(const FileSystem& files, std::string_view path) {
    const auto stamp = files.Stamp(path);
    return stamp ? DosStampOf(*stamp) : DosStamp{};
}

bool IsStampOf(const FileSystem& files, std::string_view path, const DosStamp& stamp) {
    const auto now = files.Stamp(path);
    return now && DosStampOf(*now) == stamp;
}

std::string SizeText(std::uint64_t length) {
    constexpr std::array<const char*, 4> kUnits = {"b", "Kb", "Mb", "Gb"};
    auto size = static_cast<double>(length);
    std::size_t unit = 0;
    for (; size >= 1024.0; size *= 1.0 / 1024.0) ++unit;
    if (unit >= kUnits.size()) return {};
    std::string text = Format("%.3lf", size);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
    return text + kUnits[unit];
}

std::string DateText(const DosStamp& stamp) {
    const int month = stamp.date >> 5 & 15;
    const std::size_t index = month >= 1 && month <= 12 ? static_cast<std::size_t>(month - 1) : 0;
    return Format("%02d %s %4d", stamp.date & 31, kMonths[index], (stamp.date >> 9) + kFirstYear);
}

std::string TimeText(const DosStamp& stamp) {
    return Format("%02d:%02d:%02d", stamp.time >> 11, stamp.time >> 5 & 63, (stamp.time & 31) * 2);
}

}  // namespace quillon
