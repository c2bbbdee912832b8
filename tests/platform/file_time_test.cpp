#include "platform/file_time.h"

#include <gtest/gtest.h>

#include "fakes/temp_folder.h"

namespace {

TEST(FileTimeTest, FormatsLocalDates) {
    EXPECT_EQ(platform::FormatFileTime({}), "1899/12/30 00:00:00") << "in every time zone";
    const std::pair<const char*, const char*> cases[] = {
        {"1904-01-02 00:00:01 UTC", "1904/01/02 00:00:01"},
        {"1969-12-31 11:59:59.9 UTC", "1969/12/31 11:59:59"},
        {"2000-02-29 12:00:00 UTC", "2000/02/29 12:00:00"},
        {"2024-12-31 23:59:59.999999999 UTC", "2024/12/31 23:59:59"},
        {"2100-03-01 12:00:00 UTC", "2100/03/01 12:00:00"},
    };
    for (const auto& [local, text] : cases) {
        // The moment at which local time is what the case says as UTC.
        platform::FileTime time = fakes::Time(local);
        const std::int64_t unixSeconds = time.Seconds - platform::kUnixOrigin;
        time.Seconds -= platform::LocalOffset(unixSeconds - platform::LocalOffset(unixSeconds));
        EXPECT_EQ(platform::FormatFileTime(time), text);
    }
    // Beyond what any file system means: a text all the same, on the right side of today.
    EXPECT_TRUE(platform::FormatFileTime({INT64_MIN, 0}).starts_with('-'));
    EXPECT_FALSE(platform::FormatFileTime({INT64_MAX, 999'999'999}).starts_with('-'));
}

}  // namespace
