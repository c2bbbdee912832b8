#include <gtest/gtest.h>

#include "platform/paths.h"

TEST(WindowsPathsTest, DrivesAndSharesAreAbsolute) {
    using platform::MakeAbsolute;
    const std::string current = MakeAbsolute("."), drive = current.substr(0, 2);
    for (const char* whole : {"C:\\a\\..\\b ", "c:/a", "\\\\server\\share\\a"})
        EXPECT_EQ(MakeAbsolute(whole), whole);
    EXPECT_EQ(MakeAbsolute("\\a"), drive + "\\a");
    EXPECT_EQ(MakeAbsolute(drive), current);
    EXPECT_EQ(MakeAbsolute(drive + "a"), platform::WithSeparator(current) + "a");
}

TEST(WindowsPathsTest, KeysDisregardCaseAsTheFileSystemDoes) {
    const auto same = [](const char* a, const char* b) {
        std::string first, second;
        return platform::NameKey(a, first) == platform::NameKey(b, second);
    };
    EXPECT_TRUE(same("ReadMe.TXT", "readme.txt") && same("GRÖẞE_Ä жЖω", "GRÖẞE_ä ЖЖΩ"));
    EXPECT_FALSE(same("strasse", "straße") || same("é", "e") || same("[", "{") || same("ı", "I"));
}
