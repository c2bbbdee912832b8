#include <cstdlib>
#include <ctime>

#include <gtest/gtest.h>

#include "platform/file_time.h"

// Each zone in a process of its own: the program reads its zone once. The steps come back to each
// day of two centuries, whose offset is remembered.
TEST(FileTimeTest, IsFormattedAsTheCLibraryDoes) {
    const auto formatInZone = [](const char* zone) {
        using platform::FormatFileTime;
        ::setenv("TZ", zone, 1);
        bool same = FormatFileTime({}) == "1899/12/30 00:00:00";
        for (std::time_t moment = -2'240'000'000; moment < 4'200'000'000; moment += 15'637) {
            char expected[32];
            std::strftime(expected, sizeof expected, "%Y/%m/%d %H:%M:%S", std::localtime(&moment));
            same = same && FormatFileTime({moment + platform::kUnixOrigin, 0}) == expected;
        }
        // Beyond what any file system means: a text all the same, on the right side of today.
        same = same && FormatFileTime({INT64_MIN, 0}).starts_with('-') &&
               !FormatFileTime({INT64_MAX, 999'999'999}).starts_with('-');
        std::exit(same ? 0 : 1);
    };
    for (const char* zone : {"CET-1CEST,M3.5.0,M10.5.0/3", "LHST-10:30LHDT-11,M10.1.0,M4.1.0",
                             ":America/St_Johns", ":Asia/Gaza", ":Pacific/Apia"})
        EXPECT_EXIT(formatInZone(zone), testing::ExitedWithCode(0), "") << zone;
}
