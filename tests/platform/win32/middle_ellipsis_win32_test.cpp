#include <string_view>

#include <gtest/gtest.h>

#include "platform/win32/middle_ellipsis.h"

TEST(MiddleEllipsis, KeepsBeginningAndFileNameAndCutsNoCharacterInTwo) {
    const auto shortened = [](std::wstring_view text, int width) {
        return platform::win32::ShortenMiddle(
            text, width, [](std::wstring_view part) { return static_cast<int>(part.size()); });
    };
    EXPECT_EQ(shortened(L"C:\\a\\b.txt", 10), L"C:\\a\\b.txt");
    EXPECT_EQ(shortened(L"C:\\folder\\inner\\b.txt", 16), L"C:\\fold...\\b.txt");
    EXPECT_EQ(shortened(L"C:\\x\\a-very-long-file-name.txt", 16), L"C:\\x\\...name.txt");
    EXPECT_EQ(shortened(L"\U0001F4C1\U0001F4C1\U0001F4C1\U0001F4C1", 6), L"...\U0001F4C1");
}
