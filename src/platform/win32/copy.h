// Copying one file on Windows so that its target is at every moment the old one or the new one.
#pragma once

#include <functional>
#include <string>

#include "platform/outcome.h"

namespace platform::win32 {

// As FileSystem::CopyOver. The shell copies, and keeps times and attributes; what it cannot name
// (paths of more than 259 characters, names that end in a dot or a blank) the system copies.
Outcome CopyOver(const std::string& from, const std::string& to,
                 const std::function<void()>& whileCopying);

// As FileSystem::RemoveLeftover. A running copy holds its temporary file open.
void RemoveLeftover(const std::string& path);

// Removes a file, read-only or not. On failure it is as it was, and GetLastError tells why.
bool RemoveFileAt(const std::wstring& extendedPath);

}  // namespace platform::win32
