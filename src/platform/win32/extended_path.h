// Paths as the system takes them without a limit on their length and without rewriting their names.
#pragma once

#include <string>

namespace platform::win32 {

// The extended-length form ("\\?\C:\...", "\\?\UNC\server\share\...") of a path that may be
// relative and may hold "/", ".", ".." and doubled separators. A blank or a dot at the end of a
// name stays. Without a separator at its end, except that of a drive or a share.
std::wstring ExtendedPath(const std::string& path);

// The ordinary form of an extended-length path.
std::wstring PlainPath(const std::wstring& extended);

// The folder that holds the entry, and the entry's name in it.
std::wstring FolderOf(const std::wstring& extended);
std::wstring NameOf(const std::wstring& extended);

}  // namespace platform::win32
