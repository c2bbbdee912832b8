#include "platform/win32/failure.h"

#include "platform/win32/text_conversion.h"

namespace platform::win32 {

namespace {

std::string TextOf(DWORD error) {
    wchar_t text[512];
    DWORD length = ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                                    nullptr, error, 0, text, 512, nullptr);
    while (length > 0 && (text[length - 1] <= L' ' || text[length - 1] == L'.')) --length;
    return length > 0 ? Narrow({text, length}) : "error " + std::to_string(error);
}

}  // namespace

Outcome Failure(std::string_view operation, std::string_view path, DWORD error) {
    return {std::string(operation), std::string(path), TextOf(error)};
}

}  // namespace platform::win32
