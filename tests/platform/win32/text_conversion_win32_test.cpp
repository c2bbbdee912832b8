#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "platform/win32/text_conversion.h"

namespace {

using platform::win32::Narrow;
using platform::win32::Wide;

TEST(TextConversion, EveryNameComesBackAsItWas) {
    EXPECT_EQ(Narrow(L"\u00e9\u65e5\U0001F4C1"), "\xC3\xA9\xE6\x97\xA5\xF0\x9F\x93\x81");
    for (const wchar_t* name : {L"", L"a", L"\u0080\u07ff\u0800\ufffd\uffff", L"\U0001F4C1 folder",
                                L"\xD83D half a pair", L"\xDCC1\xD83D the wrong way round"})
        EXPECT_EQ(Wide(Narrow(name)), name);
}

TEST(TextConversion, ReplacesBytesThatAreNoCharacter) {
    const std::pair<std::string, std::wstring> cases[] = {
        {"a\xFFz", L"a\ufffdz"},
        {"\xC3", L"\ufffd"},
        {"\xC0\xAF", L"\ufffd\ufffd"},                      // "/" in too many bytes
        {"\xE6\x97z", L"\ufffd\ufffdz"},                    // cut short
        {"\xF4\x90\x80\x80", L"\ufffd\ufffd\ufffd\ufffd"},  // beyond the last character
    };
    for (const auto& [bytes, text] : cases) EXPECT_EQ(Wide(bytes), text);
}

}  // namespace
