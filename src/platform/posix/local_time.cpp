#include <time.h>

#include "platform/file_time.h"

namespace platform {

std::int64_t LocalOffset(std::int64_t unixSeconds) {
    static const bool zoneRead = (::tzset(), true);  // localtime_r need not do it
    static_cast<void>(zoneRead);
    const time_t seconds = unixSeconds;
    tm local{};
    return ::localtime_r(&seconds, &local) ? local.tm_gmtoff : 0;
}

}  // namespace platform
