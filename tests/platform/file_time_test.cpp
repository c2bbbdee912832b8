#include "platform/file_time.h"

#include <gtest/gtest.h>

#include "fakes/temp_folder.h"

namespace {

using platform::FormatFileTime;
using platform::kUnixOrigin;
using platform::LocalOffset;

TEST(FileTimeTest, FormatsLocalDates) {
    EXPECT_EQ(FormatFileTime({}), "1899/12/30 00:00:00") << "in every time zone";
    const std::pair<const char*, const char*> cases[] = {
        {"1904-01-02 00:00:01 UTC", "1904/01/02 00:00:01"},
        {"1969-12-31 11:59:59.9 UTC", "1969/12/31 11:59:59"},
        {"1970-01-01 12:00:00 UTC", "1970/01/01 12:00:00"},
        {"2000-02-29 12:00:00 UTC", "2000/02/29 12:00:00"},
        {"2024-12-31 23:59:59.999999999 UTC", "2024/12/31 23:59:59"},
        {"2100-02-28 12:00:00 UTC", "2100/02/28 12:00:00"},
        {"2100-03-01 12:00:00 UTC", "2100/03/01 12:00:00"},
    };
    for (const auto& [local, text] : cases) {
        // The moment at which local time is what the case says as UTC.
        platform::FileTime time = fakes::Time(local);
        const std::int64_t unixSeconds = time.Seconds - kUnixOrigin;
        time.Seconds -= LocalOffset(unixSeconds - LocalOffset(unixSeconds));
        EXPECT_EQ(FormatFileTime(time), text);
    }
}

TEST(FileTimeTest, ImpossibleTimesAreFormattedAllTheSame) {
    for (const std::int64_t seconds :
         {INT64_MIN, INT64_MAX, -kUnixOrigin * 100, kUnixOrigin * 1000})
        EXPECT_GE(FormatFileTime({seconds, 999'999'999}).size(), 19u) << seconds;
}

}  // namespace
