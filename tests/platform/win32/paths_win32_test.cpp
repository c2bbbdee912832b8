#include <array>

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/paths.h"

namespace {

using platform::MakeAbsolute;

TEST(WindowsPathsTest, DrivesAndSharesAreAbsolute) {
    char current[MAX_PATH];
    ::GetCurrentDirectoryA(MAX_PATH, current);
    const std::string drive(current, 2);
    for (const char* whole : {"C:\\a\\..\\b ", "c:/a", "\\\\server\\share\\a"})
        EXPECT_EQ(MakeAbsolute(whole), whole);
    for (const char* relative : {".\\a", "a"})
        EXPECT_EQ(MakeAbsolute(relative), platform::WithSeparator(current) + "a");
    EXPECT_EQ(MakeAbsolute("\\a"), drive + "\\a");
    EXPECT_EQ(MakeAbsolute(drive), current);
    EXPECT_EQ(MakeAbsolute(drive + "a"), platform::WithSeparator(current) + "a");
}

TEST(WindowsPathsTest, KeysDisregardCaseAsTheFileSystemDoes) {
    const auto isSame = [](const char* a, const char* b) {
        std::string keyA, keyB;
        return platform::NameKey(a, keyA) == platform::NameKey(b, keyB);
    };
    using Names = std::array<const char*, 2>;
    for (const auto& [a, b] :
         {Names{"ReadMe.TXT", "readme.txt"}, {"GRÖẞE_Ä", "GRÖẞE_ä"}, {"жЖωΩ", "ЖЖΩω"}})
        EXPECT_TRUE(isSame(a, b)) << a;
    for (const auto& [a, b] :
         {Names{"strasse", "straße"}, {"é", "e"}, {"[", "{"}, {"ı", "I"}, {"é", "e\u0301"}})
        EXPECT_FALSE(isSame(a, b)) << a;
}

}  // namespace
