#include <string_view>

#include <gtest/gtest.h>

#include "platform/win32/middle_ellipsis.h"

TEST(MiddleEllipsis, KeepsBeginningAndFileNameAndCutsNoCharacterInTwo) {
    const struct {
        const wchar_t* Text;
        int Width;
        const wchar_t* Shortened;
    } cases[] = {
        {L"C:\\a\\b.txt", 10, L"C:\\a\\b.txt"},
        {L"C:\\folder\\inner\\b.txt", 16, L"C:\\fold...\\b.txt"},
        {L"C:\\folder\\inner\\b.txt", 15, L"C:\\fol...\\b.txt"},
        {L"a-name-without-folders", 11, L"a-n...lders"},
        {L"C:\\x\\a-very-long-file-name.txt", 16, L"C:\\x\\...name.txt"},
        {L"abcdef", 0, L"..."},
        {L"\U0001F4C1\U0001F4C1\U0001F4C1\U0001F4C1", 6, L"...\U0001F4C1"},
    };
    const auto widthOf = [](std::wstring_view part) { return static_cast<int>(part.size()); };
    for (const auto& [text, width, shortened] : cases)
        EXPECT_EQ(platform::win32::ShortenMiddle(text, width, widthOf), shortened);
}
