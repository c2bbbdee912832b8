#include <gtest/gtest.h>
#include <windows.h>

#include "platform/paths.h"

namespace {

using platform::MakeAbsolute;

TEST(WindowsPathsTest, DrivesAndSharesAreAbsolute) {
    char current[MAX_PATH];
    ::GetCurrentDirectoryA(MAX_PATH, current);
    const std::string drive(current, 2);
    const std::pair<std::string, std::string> cases[] = {
        {"C:\\a\\..\\b ", "C:\\a\\..\\b "},
        {"c:/a", "c:/a"},
        {"\\\\server\\share\\a", "\\\\server\\share\\a"},
        {"\\a", drive + "\\a"},
        {".\\a", platform::WithSeparator(current) + "a"},
        {drive, current},
        {drive + "a", platform::WithSeparator(current) + "a"},
        {drive + ".", current},
    };
    for (const auto& [path, absolute] : cases) EXPECT_EQ(MakeAbsolute(path), absolute) << path;
}

TEST(WindowsPathsTest, KeysDisregardCaseAsTheFileSystemDoes) {
    const auto same = [](std::string_view a, std::string_view b) {
        std::string one;
        std::string two;
        return platform::NameKey(a, one) == platform::NameKey(b, two);
    };
    const std::pair<const char*, const char*> equal[] = {{"ReadMe.TXT", "readme.txt"},
                                                         {"GRÖẞE_Ä", "GRÖẞE_ä"},
                                                         {"Ünï", "üNÏ"},
                                                         {"жЖ", "ЖЖ"},
                                                         {"ωΩ", "Ωω"}};
    for (const auto& [a, b] : equal) EXPECT_TRUE(same(a, b)) << a;
    const std::pair<const char*, const char*> different[] = {
        {"strasse", "straße"}, {"é", "e"}, {"a_", "a-"}, {"[", "{"}, {"ı", "I"}, {"é", "e\u0301"}};
    for (const auto& [a, b] : different) EXPECT_FALSE(same(a, b)) << a;
}

}  // namespace
