// Between the system's file times (100 ns from 1601) and ours; nothing is lost on the way in.
#pragma once

#include <algorithm>
#include <cstdint>

#include <windows.h>

#include "platform/file_time.h"

namespace platform::win32 {

inline constexpr std::int64_t kTicksPerSecond = 10'000'000;
inline constexpr std::int64_t kSecondsFrom1601 = 109205LL * 86400;  // to 1899-12-30

inline FileTime FromSystem(FILETIME time) {
    // The top bit is never set in a valid time.
    const auto ticks = static_cast<std::int64_t>(
        std::uint64_t{time.dwHighDateTime & 0x7FFFFFFFu} << 32 | time.dwLowDateTime);
    return {ticks / kTicksPerSecond - kSecondsFrom1601,
            static_cast<std::int32_t>(ticks % kTicksPerSecond * 100)};
}

// The nearest time that the system can hold.
inline FILETIME ToSystem(FileTime time) {
    constexpr std::int64_t kLast = INT64_MAX / kTicksPerSecond - 1;
    const std::int64_t seconds =
        std::clamp(time.Seconds, -kSecondsFrom1601, kLast - kSecondsFrom1601) + kSecondsFrom1601;
    const auto ticks =
        static_cast<std::uint64_t>(seconds * kTicksPerSecond + time.Nanoseconds / 100);
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

}  // namespace platform::win32
