#include <windows.h>

#include "platform/file_time.h"
#include "platform/win32/file_times.h"

namespace platform {

// Beyond the years that the system knows (1601 to 30827) local time is that of the nearest, or UTC.
std::int64_t LocalOffset(std::int64_t unixSeconds) {
    const FILETIME utc = win32::ToSystem({unixSeconds + kUnixOrigin, 0});
    SYSTEMTIME utcFields;
    SYSTEMTIME localFields;
    FILETIME local;
    if (!::FileTimeToSystemTime(&utc, &utcFields) ||
        !::SystemTimeToTzSpecificLocalTimeEx(nullptr, &utcFields, &localFields) ||
        !::SystemTimeToFileTime(&localFields, &local)) {
        return 0;
    }
    return win32::FromSystem(local).Seconds - win32::FromSystem(utc).Seconds;
}

}  // namespace platform
