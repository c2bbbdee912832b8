#include "platform/paths.h"

#include <gtest/gtest.h>

TEST(PathsTest, RelativePathsStartInTheCurrentFolder) {
    const std::string current = platform::MakeAbsolute("./");
    EXPECT_EQ(platform::MakeAbsolute(""), "");
    EXPECT_EQ(platform::MakeAbsolute("."), current);
    EXPECT_EQ(platform::MakeAbsolute(current), current);
    const std::pair<const char*, const char*> cases[] = {
        {".//a/./b/", "a/./b/"}, {"../a", "../a"}, {".a", ".a"}, {"...", "..."}, {" a ", " a "}};
    for (const auto& [path, below] : cases)
        EXPECT_EQ(platform::MakeAbsolute(path), platform::WithSeparator(current) + below) << path;
}
