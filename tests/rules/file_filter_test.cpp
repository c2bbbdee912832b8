#include "rules/file_filter.h"

#include <gtest/gtest.h>

namespace rules {
namespace {

TEST(FileFilter, AnExtensionFollowsTheLastDotWithinTenBytes) {
    const std::pair<const char*, const char*> cases[] = {
        {"A.TXT", "TXT"},
        {"a.tar.gz", "gz"},
        {".profile", "profile"},
        {"name.", ""},
        {"", "XXXXXXXX"},
        {"a.123456789", "123456789"},
        {"a.1234567890", "XXXXXXXX"},
        {".x/ab", "x/ab"},
    };
    for (const auto& [name, extension] : cases) EXPECT_EQ(FileExtensionOf(name), extension) << name;
}

TEST(FileFilter, LooksForTheBareExtensionAnywhereInTheList) {
    const struct {
        const char* Extensions;
        const char* Name;
        bool Listed, ListedForCopy;
    } cases[] = {
        {"/txt", "a.txt", true, true},     {"/txt", "a.t", true, true},
        {"/txt", "a.txtx", false, false},  {"/txt", "A.TXT", false, true},
        {"/TXT", "a.Tx", false, true},     {"/txt", "README", false, false},
        {"/txt", "name.", true, true},     {"/jpg/bmp", "a.bmp", true, true},
        {"/jpg/bmp", "a.g/b", true, true},
    };
    for (const auto& c : cases) {
        for (const bool only : {true, false}) {
            EXPECT_EQ(PassesFileFilter({c.Extensions, only}, c.Name), c.Listed == only) << c.Name;
            EXPECT_EQ(PassesCopyFilter({c.Extensions, only}, c.Name), c.ListedForCopy == only)
                << c.Name;
            EXPECT_TRUE(PassesFileFilter({"", only}, c.Name)) << "everything passes an empty list";
            EXPECT_TRUE(PassesCopyFilter({"", only}, c.Name));
        }
    }
}

}  // namespace
}  // namespace rules
