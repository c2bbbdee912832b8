#include <gtest/gtest.h>

#include "platform/paths.h"

namespace {

using platform::MakeAbsolute;

TEST(WindowsPathsTest, DrivesAndSharesAreAbsolute) {
    const std::string current = MakeAbsolute("."), drive = current.substr(0, 2);
    for (const char* whole : {"C:\\a\\..\\b ", "c:/a", "\\\\server\\share\\a"})
        EXPECT_EQ(MakeAbsolute(whole), whole);
    EXPECT_EQ(MakeAbsolute(".\\a"), platform::WithSeparator(current) + "a");
    EXPECT_EQ(MakeAbsolute("\\a"), drive + "\\a");
    EXPECT_EQ(MakeAbsolute(drive), current);
    EXPECT_EQ(MakeAbsolute(drive + "a"), platform::WithSeparator(current) + "a");
}

std::string KeyOf(std::string_view name) {
    std::string scratch;
    return std::string(platform::NameKey(name, scratch));
}

TEST(WindowsPathsTest, KeysDisregardCaseAsTheFileSystemDoes) {
    const std::pair<const char*, const char*>
        same[] = {{"ReadMe.TXT", "readme.txt"}, {"GRÖẞE_Ä", "GRÖẞE_ä"}, {"жЖωΩ", "ЖЖΩω"}},
        different[] = {{"strasse", "straße"}, {"é", "e"}, {"[", "{"}, {"ı", "I"}, {"é", "e\u0301"}};
    for (const auto& [a, b] : same) EXPECT_EQ(KeyOf(a), KeyOf(b));
    for (const auto& [a, b] : different) EXPECT_NE(KeyOf(a), KeyOf(b));
}

}  // namespace
