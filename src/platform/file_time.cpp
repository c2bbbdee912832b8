#include "platform/file_time.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace platform {

namespace {

constexpr std::int64_t kDay = 86400;

// Times beyond what a file system can mean are shown as these ends of time; the arithmetic stays
// within 64 bits.
constexpr std::int64_t kFarthest = 1LL << 55;

std::int64_t FloorDivide(std::int64_t value, std::int64_t divisor) {
    return value / divisor - (value % divisor < 0 ? 1 : 0);
}

// The local offset of one day, counted in UTC from 1970.
struct DayOffset {
    std::int64_t Day = INT64_MIN;
    std::int64_t Offset = 0;
    bool Whole = false;  // the offset holds for the whole day
};

// Asking the system takes a hundred times as long as the rest of the formatting. No zone has ever
// changed its offset and changed it back within four days, so a day that begins and ends with the
// same offset has one. The program formats in one thread.
std::int64_t CachedLocalOffset(std::int64_t unixSeconds) {
    constexpr std::size_t kDays = 4096;  // eleven years, 96 KB
    static std::array<DayOffset, kDays> cache;
    const std::int64_t day = FloorDivide(unixSeconds, kDay);
    DayOffset& kept = cache[static_cast<std::size_t>(day) % kDays];
    if (kept.Day != day) {
        const std::int64_t offset = LocalOffset(day * kDay);
        kept = {day, offset, offset == LocalOffset((day + 1) * kDay - 1)};
    }
    return kept.Whole ? kept.Offset : LocalOffset(unixSeconds);
}

struct Date {
    std::int64_t Year;
    int Month;  // from 1
    int Day;    // from 1
};

// The Gregorian date of a day counted from 1970-01-01. Years are taken to begin in March, so that
// the leap day comes last, and are grouped in eras of 400 with 146,097 days each.
Date DateOfDay(std::int64_t day) {
    const std::int64_t fromEra0 = day + 719468;
    const std::int64_t era = FloorDivide(fromEra0, 146097);
    const int dayOfEra = static_cast<int>(fromEra0 - era * 146097);
    const int yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const int dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int monthFromMarch = (5 * dayOfYear + 2) / 153;
    const int month = monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9;
    return {era * 400 + yearOfEra + (month <= 2 ? 1 : 0), month,
            dayOfYear - (153 * monthFromMarch + 2) / 5 + 1};
}

void PutTwoDigits(char* place, int value) {
    place[0] = static_cast<char>('0' + value / 10);
    place[1] = static_cast<char>('0' + value % 10);
}

// "yyyy"; a year that needs more has more.
void AppendYear(std::int64_t year, std::string& text) {
    if (year >= 0 && year <= 9999) {
        char digits[4];
        PutTwoDigits(digits, static_cast<int>(year) / 100);
        PutTwoDigits(digits + 2, static_cast<int>(year) % 100);
        text.append(digits, 4);
        return;
    }
    const std::string digits = std::to_string(year < 0 ? -year : year);
    if (year < 0) text += '-';
    text.append(digits.size() < 4 ? 4 - digits.size() : 0, '0');
    text += digits;
}

}  // namespace

void AppendFileTime(FileTime time, std::string& text) {
    if (time.IsZero()) {
        text += "1899/12/30 00:00:00";
        return;
    }
    const std::int64_t unixSeconds = std::clamp(time.Seconds, -kFarthest, kFarthest) - kUnixOrigin;
    const std::int64_t local = unixSeconds + CachedLocalOffset(unixSeconds);
    const std::int64_t day = FloorDivide(local, kDay);
    const int second = static_cast<int>(local - day * kDay);
    const Date date = DateOfDay(day);
    AppendYear(date.Year, text);
    char rest[] = "/mm/dd hh:mm:ss";
    PutTwoDigits(rest + 1, date.Month);
    PutTwoDigits(rest + 4, date.Day);
    PutTwoDigits(rest + 7, second / 3600);
    PutTwoDigits(rest + 10, second / 60 % 60);
    PutTwoDigits(rest + 13, second % 60);
    text.append(rest, sizeof rest - 1);
}

std::string FormatFileTime(FileTime time) {
    std::string text;
    AppendFileTime(time, text);
    return text;
}

}  // namespace platform
