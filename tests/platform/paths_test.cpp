#include "platform/paths.h"

#include <gtest/gtest.h>

namespace {

using platform::IsTemporaryName;
using platform::MakeAbsolute;
using platform::NameKey;
using platform::WithSeparator;

std::string Key(std::string_view name) {
    std::string scratch;
    return std::string(NameKey(name, scratch));
}

TEST(PathsTest, RelativePathsStartInTheCurrentFolder) {
    const std::string current = MakeAbsolute(".");
    ASSERT_FALSE(current.empty());
    const std::string below = WithSeparator(current);
    EXPECT_EQ(MakeAbsolute(""), "");
    EXPECT_EQ(MakeAbsolute(current), current);
    EXPECT_EQ(MakeAbsolute("./"), current);
    EXPECT_EQ(MakeAbsolute("a"), below + "a");
    EXPECT_EQ(MakeAbsolute("./a"), below + "a");
    EXPECT_EQ(MakeAbsolute(".//./a/./b/"), below + "a/./b/");
    EXPECT_EQ(MakeAbsolute("../a"), below + "../a");
    EXPECT_EQ(MakeAbsolute("..."), below + "...");
    EXPECT_EQ(MakeAbsolute(".a"), below + ".a");
    EXPECT_EQ(MakeAbsolute(" a "), below + " a ");
}

TEST(PathsTest, NamesWithTheSameKeyAreOne) {
    for (const char* name : {"", "a", "ABC.TXT", "ünï 日本 😀", "\xED\xA0\x80 half a pair"})
        EXPECT_EQ(Key(name), Key(name)) << name;
    EXPECT_NE(Key("a"), Key("b"));
    EXPECT_NE(Key("a"), Key("a "));
    EXPECT_NE(Key("日"), Key("本"));
}

TEST(PathsTest, TemporaryNamesAreExactlyThoseOfCopies) {
    EXPECT_TRUE(IsTemporaryName(".varnel~0123abcd"));
    for (const char* other :
         {"", ".varnel~", ".varnel~0123abc", ".varnel~0123abcde", ".varnel~0123ABCD",
          ".varnel~0123abcg", "varnel~0123abcd", ".varnel-0123abcd", " .varnel~0123abcd"})
        EXPECT_FALSE(IsTemporaryName(other)) << other;
}

}  // namespace
