// One name in a folder as the system describes it. All paths are extended-length ones.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include <windows.h>

#include "platform/files.h"

namespace platform::win32 {

// The entry itself: a link is not followed.
struct Entry {
    DWORD Attributes = INVALID_FILE_ATTRIBUTES;
    DWORD ReparseTag = 0;
    FileStatus Status;  // meaningless for a folder

    bool Exists() const { return Attributes != INVALID_FILE_ATTRIBUTES; }
    bool IsFolder() const { return Exists() && (Attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }
    bool IsReadOnly() const { return Exists() && (Attributes & FILE_ATTRIBUTE_READONLY) != 0; }

    // Stands for something elsewhere: a link or a junction. A file or a folder that is kept in a
    // cloud is none.
    bool IsLink() const;
};

Entry EntryFrom(const WIN32_FIND_DATAW& found);

// What stands at a path. When nothing does, GetLastError tells why.
Entry EntryAt(const std::wstring& path);

// The status of a file, links followed; nothing that is kept in a cloud is fetched.
FileStatus StatusAt(const std::wstring& path);

bool IsFolderAt(const std::wstring& path);  // links followed

// How many of these questions have met an error that does not say that nothing is there.
std::int64_t UnansweredLookUps();

// Of a file or a folder, links followed.
std::optional<FolderIdentity> IdentityAt(const std::wstring& path);

}  // namespace platform::win32
