#include "rules/file_filter.h"

#include <gtest/gtest.h>

namespace rules {
namespace {

TEST(FileExtensionOf, IsWhatFollowsTheLastDotWithinTenBytes) {
    struct Case {
        const char* Name;
        const char* Extension;
    };
    const Case cases[] = {
        {"a.txt", "txt"},
        {"A.TXT", "TXT"},
        {"a.tar.gz", "gz"},
        {".profile", "profile"},
        {"name.", ""},
        {".", ""},
        {"", "XXXXXXXX"},
        {"README", "XXXXXXXX"},
        {"a.123456789", "123456789"},
        {"a.1234567890", "XXXXXXXX"},
        {".x/ab", "x/ab"},
        {"caf\xe9.\xff", "\xff"},
    };
    for (const Case& c : cases) EXPECT_EQ(FileExtensionOf(c.Name), c.Extension) << c.Name;
}

TEST(PassesFileFilter, LooksForTheBareExtensionAnywhereInTheList) {
    struct Case {
        const char* Extensions;
        const char* Name;
        bool Listed;
    };
    const Case cases[] = {
        {"/txt", "a.txt", true},     {"/txt", "a.tx", true},      {"/txt", "a.t", true},
        {"/txt", "a.txtx", false},   {"/txt", "A.TXT", false},    {"/txt", "README", false},
        {"/txt", "name.", true},     {"/jpg/bmp", "a.bmp", true}, {"/jpg/bmp", "a.gb", false},
        {"/jpg/bmp", "a.g/b", true},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(PassesFileFilter({c.Extensions, true}, c.Name), c.Listed) << c.Name;
        EXPECT_EQ(PassesFileFilter({c.Extensions, false}, c.Name), !c.Listed) << c.Name;
    }
}

TEST(PassesFileFilter, EverythingPassesAnEmptyList) {
    for (const bool only : {true, false}) {
        EXPECT_TRUE(PassesFileFilter({"", only}, "a.txt"));
        EXPECT_TRUE(PassesCopyFilter({"", only}, "README"));
    }
}

TEST(PassesCopyFilter, IgnoresCaseOnBothSides) {
    for (const char* name : {"a.txt", "A.TXT", "a.Tx"}) {
        EXPECT_TRUE(PassesCopyFilter({"/txt", true}, name)) << name;
        EXPECT_TRUE(PassesCopyFilter({"/TXT", true}, name)) << name;
        EXPECT_FALSE(PassesCopyFilter({"/txt", false}, name)) << name;
    }
    EXPECT_FALSE(PassesCopyFilter({"/jpg", true}, "A.TXT"));
}

}  // namespace
}  // namespace rules
