#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "platform/win32/middle_ellipsis.h"

namespace {

// Every unit is one wide.
std::wstring Shorten(std::wstring_view text, int width) {
    return platform::win32::ShortenMiddle(
        text, width, [](std::wstring_view part) { return static_cast<int>(part.size()); });
}

TEST(MiddleEllipsis, KeepsBeginningAndFileName) {
    struct {
        std::wstring Text;
        int Width;
        std::wstring Shortened;
    } const cases[] = {
        {L"C:\\a\\b.txt", 10, L"C:\\a\\b.txt"},
        {L"C:\\folder\\inner\\b.txt", 16, L"C:\\fold...\\b.txt"},
        {L"C:\\folder\\inner\\b.txt", 15, L"C:\\fol...\\b.txt"},
        {L"a-name-without-folders", 11, L"a-n...lders"},
        {L"C:\\x\\a-very-long-file-name.txt", 16, L"C:\\x\\...name.txt"},
        {L"abcdef", 3, L"..."},
        {L"abcdef", 0, L"..."},
        {L"", 0, L""},
    };
    for (const auto& [text, width, shortened] : cases) EXPECT_EQ(Shorten(text, width), shortened);
}

TEST(MiddleEllipsis, NeverCutsACharacterInTwo) {
    const std::wstring text = L"\U0001F4C1\U0001F4C1\U0001F4C1\U0001F4C1\U0001F4C1\U0001F4C1";
    for (int width = 3; width < 12; ++width) {
        const std::wstring shortened = Shorten(text, width);
        const std::size_t dots = shortened.find(L"...");
        ASSERT_NE(dots, std::wstring::npos);
        EXPECT_EQ(dots % 2, 0u) << width;
        EXPECT_EQ((shortened.size() - dots - 3) % 2, 0u) << width;
        EXPECT_LE(shortened.size(), static_cast<std::size_t>(width));
    }
}

}  // namespace
