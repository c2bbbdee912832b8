#include <cstdlib>
#include <ctime>

#include <gtest/gtest.h>

#include "platform/file_time.h"

namespace {

// Ends the program, well only when moments of two centuries come out as the C library has them.
// The steps come back to each day, whose offset is remembered.
[[noreturn]] void FormatInZone(const char* zone) {
    ::setenv("TZ", zone, 1);
    ::tzset();
    for (std::int64_t moment = -2'240'000'000; moment < 4'200'000'000; moment += 4 * 3600 + 1237) {
        const std::time_t time = moment;
        tm local{};
        char expected[32];
        std::strftime(expected, sizeof expected, "%Y/%m/%d %H:%M:%S", ::localtime_r(&time, &local));
        EXPECT_EQ(platform::FormatFileTime({moment + platform::kUnixOrigin, 0}), expected);
        if (testing::Test::HasFailure()) std::exit(1);
    }
    EXPECT_EQ(platform::FormatFileTime({}), "1899/12/30 00:00:00");
    // Beyond what any file system means: a text all the same, on the right side of today.
    EXPECT_TRUE(platform::FormatFileTime({INT64_MIN, 0}).starts_with('-'));
    EXPECT_FALSE(platform::FormatFileTime({INT64_MAX, 999'999'999}).starts_with('-'));
    std::exit(testing::Test::HasFailure() ? 1 : 0);
}

// Each zone in a process of its own: the program reads its zone once.
TEST(FileTimeTest, IsFormattedAsTheCLibraryDoes) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    for (const char* zone :
         {"CET-1CEST,M3.5.0,M10.5.0/3", "LHST-10:30LHDT-11,M10.1.0,M4.1.0", "NPT-5:45",
          ":America/St_Johns", ":Africa/Freetown", ":Asia/Gaza", ":Pacific/Apia"})
        EXPECT_EXIT(FormatInZone(zone), testing::ExitedWithCode(0), "") << zone;
}

}  // namespace
