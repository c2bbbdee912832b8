#include <gtest/gtest.h>

#include "platform/paths.h"

TEST(WindowsPathsTest, DrivesAndSharesAreAbsolute) {
    const std::string current = platform::MakeAbsolute("."), drive = current.substr(0, 2);
    const std::pair<std::string, std::string> cases[] = {
        {"C:\\a\\..\\b ", "C:\\a\\..\\b "},
        {"\\\\server\\share\\a", "\\\\server\\share\\a"},
        {"\\a", drive + "\\a"},
        {drive, current},
        {drive + "a", current + "\\a"}};
    for (const auto& [path, absolute] : cases) EXPECT_EQ(platform::MakeAbsolute(path), absolute);
}

TEST(WindowsPathsTest, KeysDisregardCaseAsTheFileSystemDoes) {
    const auto same = [](const char* a, const char* b) {
        std::string first, second;
        return platform::NameKey(a, first) == platform::NameKey(b, second);
    };
    EXPECT_TRUE(same("ReadMe.TXT", "readme.txt") && same("GRÖẞE_Ä жЖω", "GRÖẞE_ä ЖЖΩ"));
    EXPECT_FALSE(same("strasse", "straße") || same("é", "e") || same("[", "{") || same("ı", "I"));
}
