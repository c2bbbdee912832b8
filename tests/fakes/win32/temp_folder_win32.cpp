#include <filesystem>
#include <system_error>

#include <windows.h>

#include "fakes/temp_folder.h"
#include "platform/win32/extended_path.h"
#include "platform/win32/file_times.h"
#include "platform/win32/handle.h"
#include "platform/win32/text_conversion.h"

namespace fakes {

using platform::win32::ExtendedPath;
using platform::win32::Handle;

namespace {

// Asks the system itself: what is tested here must not decide what is removed. A link goes at once,
// and what it leads to stays.
void RemoveTree(const std::wstring& folder) {
    WIN32_FIND_DATAW entry;
    const HANDLE find = ::FindFirstFileW((folder + L"\\*").c_str(), &entry);
    for (BOOL more = find != INVALID_HANDLE_VALUE; more; more = ::FindNextFileW(find, &entry)) {
        const std::wstring name = entry.cFileName, path = folder + L'\\' + name;
        if (name == L"." || name == L"..") continue;
        ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
        if (!::DeleteFileW(path.c_str()) && !::RemoveDirectoryW(path.c_str())) RemoveTree(path);
    }
    ::FindClose(find);
    ::RemoveDirectoryW(folder.c_str());
}

}  // namespace

TempFolder::~TempFolder() {
    RemoveTree(L"\\\\?\\" + platform::win32::Wide(root_));
}

void TempFolder::SetTime(std::string_view relative, platform::FileTime time) const {
    const Handle file(::CreateFileW(ExtendedPath(Path(relative)).c_str(), FILE_WRITE_ATTRIBUTES,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, 0, nullptr));
    const FILETIME written = platform::win32::ToSystem(time);
    if (!file.IsOpen() || !::SetFileTime(file.Get(), nullptr, nullptr, &written))
        throw std::system_error(static_cast<int>(::GetLastError()), std::system_category());
}

std::fstream TempFolder::Open(std::string_view relative, std::ios::openmode mode) const {
    return std::fstream(std::filesystem::path(ExtendedPath(Path(relative))),
                        mode | std::ios::binary);
}

}  // namespace fakes
