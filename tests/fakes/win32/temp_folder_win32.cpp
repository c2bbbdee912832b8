#include <algorithm>
#include <system_error>

#include <windows.h>

#include "fakes/temp_folder.h"
#include "platform/win32/file_times.h"
#include "platform/win32/handle.h"
#include "platform/win32/text_conversion.h"

namespace fakes {

using platform::win32::Handle;

namespace {

void Check(bool done, std::string_view what) {
    if (!done) {
        throw std::system_error(static_cast<int>(::GetLastError()), std::system_category(),
                                std::string(what));
    }
}

// The extended-length form: no path is too long, and every name is taken as it is.
std::wstring Extended(const std::string& path) {
    return L"\\\\?\\" + platform::win32::Wide(path);
}

Handle Open(const std::string& path, DWORD access, DWORD disposition) {
    return Handle(::CreateFileW(Extended(path).c_str(), access,
                                FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                disposition, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

std::vector<WIN32_FIND_DATAW> Entries(const std::wstring& folder) {
    std::vector<WIN32_FIND_DATAW> entries;
    WIN32_FIND_DATAW entry;
    const HANDLE find = ::FindFirstFileW((folder + L"\\*").c_str(), &entry);
    if (find == INVALID_HANDLE_VALUE) return entries;
    do {
        const std::wstring_view name = entry.cFileName;
        if (name != L"." && name != L"..") entries.push_back(entry);
    } while (::FindNextFileW(find, &entry));
    ::FindClose(find);
    return entries;
}

// A link is removed, and what it leads to stays.
void RemoveTree(const std::wstring& folder) {
    for (const WIN32_FIND_DATAW& entry : Entries(folder)) {
        const std::wstring path = folder + L'\\' + entry.cFileName;
        const bool isLink = entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT;
        ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
        if (!(entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) {
            ::DeleteFileW(path.c_str());
        } else if (isLink) {
            ::RemoveDirectoryW(path.c_str());
        } else {
            RemoveTree(path);
        }
    }
    ::RemoveDirectoryW(folder.c_str());
}

void MakeFoldersAbove(const std::string& path) {
    std::wstring wide = Extended(path);
    for (std::size_t end = wide.find(L'\\', 7); end != wide.npos; end = wide.find(L'\\', end + 1))
        ::CreateDirectoryW(wide.substr(0, end).c_str(), nullptr);
}

}  // namespace

TempFolder::TempFolder() {
    static int count = 0;
    wchar_t base[MAX_PATH + 1];
    Check(::GetTempPathW(MAX_PATH + 1, base) != 0, "temporary folder");
    do {
        root_ = platform::win32::Narrow(base) + "varnel-test-" +
                std::to_string(::GetCurrentProcessId()) + "-" + std::to_string(++count);
    } while (::GetFileAttributesW(Extended(root_).c_str()) != INVALID_FILE_ATTRIBUTES);
    Check(::CreateDirectoryW(Extended(root_).c_str(), nullptr), root_);
}

TempFolder::~TempFolder() {
    RemoveTree(Extended(root_));
}

void TempFolder::WriteFile(std::string_view relative, std::string_view content) const {
    const std::string path = Path(relative);
    MakeFoldersAbove(path);
    const Handle file = Open(path, GENERIC_WRITE, CREATE_ALWAYS);
    DWORD written = 0;
    Check(file.IsOpen() && ::WriteFile(file.Get(), content.data(),
                                       static_cast<DWORD>(content.size()), &written, nullptr),
          path);
}

void TempFolder::MakeFolder(std::string_view relative) const {
    const std::string path = Path(relative);
    MakeFoldersAbove(path);
    Check(::CreateDirectoryW(Extended(path).c_str(), nullptr) ||
              ::GetLastError() == ERROR_ALREADY_EXISTS,
          path);
}

void TempFolder::SetTime(std::string_view relative, platform::FileTime time) const {
    const std::string path = Path(relative);
    const Handle file = Open(path, FILE_WRITE_ATTRIBUTES, OPEN_EXISTING);
    const FILETIME written = platform::win32::ToSystem(time);
    Check(file.IsOpen() && ::SetFileTime(file.Get(), nullptr, nullptr, &written), path);
}

void TempFolder::SetReadOnly(std::string_view relative, bool readOnly) const {
    const std::string path = Path(relative);
    Check(::SetFileAttributesW(Extended(path).c_str(),
                               readOnly ? FILE_ATTRIBUTE_READONLY : FILE_ATTRIBUTE_NORMAL),
          path);
}

void TempFolder::Remove(std::string_view relative) const {
    Check(::DeleteFileW(Extended(Path(relative)).c_str()), relative);
}

std::optional<std::string> TempFolder::Read(std::string_view relative) const {
    const Handle file = Open(Path(relative), GENERIC_READ, OPEN_EXISTING);
    LARGE_INTEGER size{};
    BY_HANDLE_FILE_INFORMATION status{};
    if (!file.IsOpen() || !::GetFileInformationByHandle(file.Get(), &status) ||
        (status.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) || !::GetFileSizeEx(file.Get(), &size))
        return std::nullopt;
    std::string content(static_cast<std::size_t>(size.QuadPart), '\0');
    DWORD got = 0;
    Check(
        ::ReadFile(file.Get(), content.data(), static_cast<DWORD>(content.size()), &got, nullptr) &&
            got == content.size(),
        relative);
    return content;
}

bool TempFolder::Exists(std::string_view relative) const {
    return ::GetFileAttributesW(Extended(Path(relative)).c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::vector<std::string> TempFolder::Names(std::string_view relative) const {
    std::vector<std::string> names;
    for (const WIN32_FIND_DATAW& entry : Entries(Extended(Path(relative))))
        names.push_back(platform::win32::Narrow(entry.cFileName));
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace fakes
