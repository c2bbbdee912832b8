// Between the program's text (UTF-8 in std::string) and the system's (UTF-16).
//
// The system's names may hold lone surrogates. They become three bytes each, so that
// Wide(Narrow(name)) == name for every name.
#pragma once

#include <string>
#include <string_view>

namespace platform::win32 {

// A byte that is no part of a character becomes U+FFFD.
std::wstring Wide(std::string_view text);

std::string Narrow(std::wstring_view text);

}  // namespace platform::win32
