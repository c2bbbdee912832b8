// A file's last-modified time, exact, and its text in local time.
#pragma once

#include <compare>
#include <cstdint>
#include <string>

namespace platform {

// Counted from the zero date of the tables, 1899-12-30 00:00:00 UTC, which is the zero value.
// Holds the full precision that the system gives; equality is exact.
struct FileTime {
    std::int64_t Seconds = 0;
    std::int32_t Nanoseconds = 0;  // 0 to 999,999,999

    bool IsZero() const { return Seconds == 0 && Nanoseconds == 0; }
    auto operator<=>(const FileTime&) const = default;
};

// Seconds from the zero date to 1970-01-01, the origin of Unix times.
inline constexpr std::int64_t kUnixOrigin = 25569LL * 86400;

// "yyyy/mm/dd hh:mm:ss" in local time; the zero value is 1899/12/30 00:00:00 in every time zone.
std::string FormatFileTime(FileTime time);

// Appends the same text to `text`; a list of a million rows is printed without an allocation each.
void AppendFileTime(FileTime time, std::string& text);

// Seconds that local time is ahead of UTC at a Unix time. Part of the system's border.
std::int64_t LocalOffset(std::int64_t unixSeconds);

}  // namespace platform
