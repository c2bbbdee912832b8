#include "platform/paths.h"

#include <gtest/gtest.h>

namespace {

using platform::MakeAbsolute;

TEST(PathsTest, RelativePathsStartInTheCurrentFolder) {
    const std::string current = MakeAbsolute(".");
    ASSERT_FALSE(current.empty());
    EXPECT_EQ(MakeAbsolute(""), "");
    EXPECT_EQ(MakeAbsolute(current), current);
    EXPECT_EQ(MakeAbsolute("./"), current);
    const std::pair<const char*, const char*> cases[] = {
        {"a", "a"},     {"./a", "a"},  {".//./a/./b/", "a/./b/"}, {"../a", "../a"}, {".a", ".a"},
        {"...", "..."}, {" a ", " a "}};
    for (const auto& [path, below] : cases)
        EXPECT_EQ(MakeAbsolute(path), platform::WithSeparator(current) + below) << path;
}

TEST(PathsTest, TemporaryNamesAreExactlyThoseOfCopies) {
    EXPECT_TRUE(platform::IsTemporaryName(".varnel~0123abcd"));
    for (const char* other :
         {"", ".varnel~", ".varnel~0123abc", ".varnel~0123abcde", ".varnel~0123ABCD",
          ".varnel~0123abcg", "varnel~0123abcd", ".varnel-0123abcd", " .varnel~0123abcd"})
        EXPECT_FALSE(platform::IsTemporaryName(other)) << other;
}

}  // namespace
