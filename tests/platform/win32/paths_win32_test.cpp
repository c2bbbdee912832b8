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
    const std::pair<std::string, std::string> cases[] = {
        {"\\a", drive + "\\a"}, {".\\a", platform::WithSeparator(current) + "a"},
        {drive, current},       {drive + "a", platform::WithSeparator(current) + "a"},
        {drive + ".", current},
    };
    for (const auto& [path, absolute] : cases) EXPECT_EQ(MakeAbsolute(path), absolute) << path;
}

TEST(WindowsPathsTest, KeysDisregardCaseAsTheFileSystemDoes) {
    const struct {
        const char* A;
        const char* B;
        bool Same;
    } cases[] = {
        {"ReadMe.TXT", "readme.txt", true},
        {"GRÖẞE_Ä", "GRÖẞE_ä", true},
        {"Ünï", "üNÏ", true},
        {"жЖ", "ЖЖ", true},
        {"ωΩ", "Ωω", true},
        {"strasse", "straße", false},
        {"é", "e", false},
        {"a_", "a-", false},
        {"[", "{", false},
        {"ı", "I", false},
        {"é", "e\u0301", false},
    };
    for (const auto& [a, b, same] : cases) {
        std::string keyA, keyB;
        EXPECT_EQ(platform::NameKey(a, keyA) == platform::NameKey(b, keyB), same) << a;
    }
}

}  // namespace
