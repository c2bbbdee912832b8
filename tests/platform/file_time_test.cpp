#include "platform/file_time.h"

#include <gtest/gtest.h>

#include "fakes/temp_folder.h"

namespace {

using platform::FileTime;
using platform::FormatFileTime;
using platform::kUnixOrigin;
using platform::LocalOffset;

// The moment at which local time is what the text says as UTC.
FileTime AtLocal(const char* text) {
    FileTime time = fakes::Time(text);
    const std::int64_t unixSeconds = time.Seconds - kUnixOrigin;
    time.Seconds -= LocalOffset(unixSeconds - LocalOffset(unixSeconds));
    return time;
}

TEST(FileTimeTest, ZeroIsTheZeroDateInEveryTimeZone) {
    EXPECT_EQ(FormatFileTime({}), "1899/12/30 00:00:00");
}

TEST(FileTimeTest, FormatsLocalDates) {
    const struct {
        const char* Local;
        const char* Text;
    } cases[] = {
        {"1970-01-01 12:00:00 UTC", "1970/01/01 12:00:00"},
        {"1969-12-31 11:59:59.9 UTC", "1969/12/31 11:59:59"},
        {"2000-02-29 12:00:00 UTC", "2000/02/29 12:00:00"},
        {"2023-03-01 09:08:07 UTC", "2023/03/01 09:08:07"},
        {"2024-12-31 23:59:59.999999999 UTC", "2024/12/31 23:59:59"},
        {"2100-02-28 12:00:00 UTC", "2100/02/28 12:00:00"},
        {"2100-03-01 12:00:00 UTC", "2100/03/01 12:00:00"},
        {"1904-01-02 00:00:01 UTC", "1904/01/02 00:00:01"},
    };
    for (const auto& [local, text] : cases) EXPECT_EQ(FormatFileTime(AtLocal(local)), text);
}

// Every hour of three years, in an order that uses each day again.
TEST(FileTimeTest, EveryTimeHasTheOffsetOfItsOwnMoment) {
    constexpr std::int64_t kFirst = 1672531200;  // 2023-01-01
    for (std::int64_t hour = 0; hour < 24; ++hour) {
        for (std::int64_t day = 0; day < 3 * 365; ++day) {
            const std::int64_t moment = kFirst + day * 86400 + hour * 3600 + 1799;
            const std::int64_t local = moment + LocalOffset(moment);
            const std::int64_t second = (local % 86400 + 86400) % 86400;
            char expected[16];
            std::snprintf(expected, sizeof expected, "%02d:%02d:%02d",
                          static_cast<int>(second / 3600), static_cast<int>(second / 60 % 60),
                          static_cast<int>(second % 60));
            ASSERT_EQ(FormatFileTime({moment + kUnixOrigin, 0}).substr(11), expected) << moment;
        }
    }
}

TEST(FileTimeTest, ImpossibleTimesAreFormattedAllTheSame) {
    for (const std::int64_t seconds :
         {INT64_MIN, INT64_MAX, -kUnixOrigin * 100, kUnixOrigin * 1000})
        EXPECT_GE(FormatFileTime({seconds, 999'999'999}).size(), 19u) << seconds;
    std::string text = "kept ";
    platform::AppendFileTime({}, text);
    EXPECT_EQ(text, "kept 1899/12/30 00:00:00");
}

}  // namespace
