#include <windows.h>

#include "platform/file_time.h"
#include "platform/win32/file_times.h"

namespace platform {

namespace {

// The rules that held in a year. Kept for the next question: asking for them is slow.
const TIME_ZONE_INFORMATION& RulesOf(WORD year) {
    static WORD keptYear = 0;
    static TIME_ZONE_INFORMATION rules;
    if (year != keptYear) {
        if (!::GetTimeZoneInformationForYear(year, nullptr, &rules)) rules = {};
        keptYear = year;
    }
    return rules;
}

}  // namespace

// Beyond the years that the system knows (1601 to 30827) local time is that of the nearest, or UTC.
std::int64_t LocalOffset(std::int64_t unixSeconds) {
    const FILETIME utc = win32::ToSystem({unixSeconds + kUnixOrigin, 0});
    SYSTEMTIME utcFields;
    SYSTEMTIME localFields;
    FILETIME local;
    if (!::FileTimeToSystemTime(&utc, &utcFields) ||
        !::SystemTimeToTzSpecificLocalTime(&RulesOf(utcFields.wYear), &utcFields, &localFields) ||
        !::SystemTimeToFileTime(&localFields, &local)) {
        return 0;
    }
    return win32::FromSystem(local).Seconds - win32::FromSystem(utc).Seconds;
}

}  // namespace platform
