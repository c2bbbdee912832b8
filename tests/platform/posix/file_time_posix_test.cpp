#include <cstdio>
#include <cstdlib>
#include <ctime>

#include <gtest/gtest.h>

#include "platform/file_time.h"

namespace {

// The number of moments from 1901 to 2037 that come out other than the C library has them.
int DifferencesIn(const char* zone) {
    ::setenv("TZ", zone, 1);
    ::tzset();
    int differences = 0;
    for (std::int64_t moment = -2'150'000'000; moment < 2'140'000'000; moment += 4 * 3600 + 1237) {
        const std::time_t time = moment;
        tm local{};
        char expected[32];
        std::strftime(expected, sizeof expected, "%Y/%m/%d %H:%M:%S", ::localtime_r(&time, &local));
        if (platform::FormatFileTime({moment + platform::kUnixOrigin, 0}) == expected) continue;
        if (++differences < 5)
            std::fprintf(stderr, "%lld %s\n", static_cast<long long>(moment), expected);
    }
    return differences;
}

// Each zone in a process of its own: the program reads its zone once.
TEST(FileTimeZonesTest, FormatsAsTheCLibraryDoes) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    for (const char* zone :
         {"CET-1CEST,M3.5.0,M10.5.0/3", "LHST-10:30LHDT-11,M10.1.0,M4.1.0", "NPT-5:45",
          ":America/St_Johns", ":Africa/Freetown", ":Asia/Gaza", ":Pacific/Apia"}) {
        EXPECT_EXIT(std::exit(DifferencesIn(zone) == 0 ? 0 : 1), testing::ExitedWithCode(0), "")
            << zone;
    }
}

}  // namespace
