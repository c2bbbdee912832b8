#include <gtest/gtest.h>

#include "platform/win32/text_conversion.h"

TEST(TextConversion, EveryNameComesBackAndWhatIsNoCharacterIsReplaced) {
    for (const wchar_t* name : {L"", L"\u0080\u07ff\u0800\ufffd\uffff", L"\U0001F4C1 folder",
                                L"\xD83D half a pair", L"\xDCC1\xD83D the wrong way round"})
        EXPECT_EQ(platform::win32::Wide(platform::win32::Narrow(name)), name);
    const std::pair<const char*, const wchar_t*> cases[] = {
        {"\xC3\xA9\xE6\x97\xA5\xF0\x9F\x93\x81", L"\u00e9\u65e5\U0001F4C1"},
        {"\xE0\x80\xAF", L"\ufffd\ufffd\ufffd"},                      // "/" in too many bytes
        {"\xE6\x97z", L"\ufffd\ufffdz"},                              // cut short
        {"\xF4\x90\x80\x80\xC3", L"\ufffd\ufffd\ufffd\ufffd\ufffd"},  // beyond the last character
    };
    for (const auto& [bytes, text] : cases) EXPECT_EQ(platform::win32::Wide(bytes), text);
}
