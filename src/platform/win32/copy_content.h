// The shell's copy of one file, and the system's where the shell cannot name it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include <windows.h>

namespace platform::win32 {

// True when the shell takes the path literally: it knows no path of more than 259 characters and
// drops blanks and dots at the end of names.
bool ShellCanName(const std::wstring& extendedPath);

struct CopyJob {
    std::wstring From;
    std::wstring To;  // free
    bool ByShell = true;
    std::int64_t Size = 0;
};

// Copies content, times and attributes without showing anything, and sees to it that the content is
// on the disk. ERROR_SUCCESS or the system's error; then a part of the copy may stand at `To`. What
// the shell has copied must still be compared with its source. `whileCopying` is called every 15
// milliseconds when the file is large.
DWORD CopyContent(const CopyJob& job, const std::function<void()>& whileCopying);

}  // namespace platform::win32
