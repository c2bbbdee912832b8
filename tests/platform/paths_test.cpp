#include "platform/paths.h"

#include <gtest/gtest.h>

TEST(PathsTest, RelativePathsStartInTheCurrentFolder) {
    const std::string current = platform::WithSeparator(platform::MakeAbsolute("."));
    for (const auto& [path, below] :
         {std::pair{".//a/./b/", "a/./b/"}, {"../a", "../a"}, {".a", ".a"}, {"...", "..."}})
        EXPECT_EQ(platform::MakeAbsolute(path), current + below) << path;
}
