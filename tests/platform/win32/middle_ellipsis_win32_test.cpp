#include <gtest/gtest.h>

#include "platform/win32/middle_ellipsis.h"

TEST(MiddleEllipsis, KeepsBeginningAndFileNameAndCutsNoCharacterInTwo) {
    const auto shortened = [](std::wstring_view text) {
        return platform::win32::ShortenMiddle(
            text, 16, [](std::wstring_view part) { return static_cast<int>(part.size()); });
    };
    EXPECT_EQ(shortened(L"C:\\folder\\ab.txt"), L"C:\\folder\\ab.txt");
    EXPECT_EQ(shortened(L"C:\\folder\\inner\\b.txt"), L"C:\\fold...\\b.txt");
    EXPECT_EQ(shortened(L"x📁📁📁📁📁📁📁📁📁x"), L"x📁📁...📁📁📁x");
}
