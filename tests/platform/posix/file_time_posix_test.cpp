#include <cstdlib>
#include <ctime>

#include <gtest/gtest.h>

#include "platform/file_time.h"

namespace {

// Ends the program, well only when moments from 1901 to 2037 come out as the C library has them.
// The steps come back to each day, whose offset is remembered.
[[noreturn]] void FormatInZone(const char* zone) {
    ::setenv("TZ", zone, 1);
    ::tzset();
    for (std::int64_t moment = -2'150'000'000; moment < 2'140'000'000; moment += 4 * 3600 + 1237) {
        const std::time_t time = moment;
        tm local{};
        char expected[32];
        std::strftime(expected, sizeof expected, "%Y/%m/%d %H:%M:%S", ::localtime_r(&time, &local));
        EXPECT_EQ(platform::FormatFileTime({moment + platform::kUnixOrigin, 0}), expected);
        if (testing::Test::HasFailure()) std::exit(1);
    }
    std::exit(0);
}

// Each zone in a process of its own: the program reads its zone once.
TEST(FileTimeZonesTest, FormatsAsTheCLibraryDoes) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    for (const char* zone :
         {"CET-1CEST,M3.5.0,M10.5.0/3", "LHST-10:30LHDT-11,M10.1.0,M4.1.0", "NPT-5:45",
          ":America/St_Johns", ":Africa/Freetown", ":Asia/Gaza", ":Pacific/Apia"})
        EXPECT_EXIT(FormatInZone(zone), testing::ExitedWithCode(0), "") << zone;
}

}  // namespace
