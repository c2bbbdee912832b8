// Failures with the system's own words.
#pragma once

#include <string_view>

#include <windows.h>

#include "platform/outcome.h"

namespace platform::win32 {

// `error` is what GetLastError gave.
Outcome Failure(std::string_view operation, std::string_view path, DWORD error);

}  // namespace platform::win32
