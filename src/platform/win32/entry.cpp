#include "platform/win32/entry.h"

#include "platform/win32/file_times.h"
#include "platform/win32/handle.h"

namespace platform::win32 {

namespace {

FileStatus StatusFrom(FILETIME written, DWORD sizeHigh, DWORD sizeLow) {
    return {FromSystem(written),
            static_cast<std::int64_t>(std::uint64_t{sizeHigh} << 32 | sizeLow)};
}

std::int64_t unansweredLookUps = 0;

void NoteUnanswered() {
    switch (::GetLastError()) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_NAME:
        case ERROR_BAD_PATHNAME:
        case ERROR_DIRECTORY:
        case ERROR_FILENAME_EXCED_RANGE:
        case ERROR_CANT_RESOLVE_FILENAME:
            return;
        default:
            ++unansweredLookUps;
    }
}

// What a path leads to.
std::optional<BY_HANDLE_FILE_INFORMATION> InformationAt(const std::wstring& path) {
    const Handle opened(::CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    BY_HANDLE_FILE_INFORMATION information;
    if (!opened.IsOpen() || !::GetFileInformationByHandle(opened.Get(), &information)) {
        NoteUnanswered();
        return std::nullopt;
    }
    return information;
}

Entry EntryInListing(const std::wstring& path) {
    WIN32_FIND_DATAW found;
    const HANDLE search = ::FindFirstFileExW(path.c_str(), FindExInfoBasic, &found,
                                             FindExSearchNameMatch, nullptr, 0);
    if (search == INVALID_HANDLE_VALUE) {
        NoteUnanswered();
        return {};
    }
    ::FindClose(search);
    return EntryFrom(found);
}

// The listing knows what a reparse point is, and also describes what may not be opened at all.
bool NeedsListing(BOOL described, const WIN32_FILE_ATTRIBUTE_DATA& data) {
    if (described) return (data.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
    const DWORD error = ::GetLastError();
    return error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
}

}  // namespace

bool Entry::IsLink() const {
    if (!Exists() || !(Attributes & FILE_ATTRIBUTE_REPARSE_POINT)) return false;
    return ReparseTag == 0 || IsReparseTagNameSurrogate(ReparseTag);
}

Entry EntryFrom(const WIN32_FIND_DATAW& found) {
    const bool tagged = (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
    return {found.dwFileAttributes, tagged ? found.dwReserved0 : 0,
            StatusFrom(found.ftLastWriteTime, found.nFileSizeHigh, found.nFileSizeLow)};
}

Entry EntryAt(const std::wstring& path) {
    WIN32_FILE_ATTRIBUTE_DATA data;
    const BOOL described = ::GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data);
    if (NeedsListing(described, data)) return EntryInListing(path);
    if (!described) {
        NoteUnanswered();
        return {};
    }
    return {data.dwFileAttributes, 0,
            StatusFrom(data.ftLastWriteTime, data.nFileSizeHigh, data.nFileSizeLow)};
}

FileStatus StatusAt(const std::wstring& path) {
    const Entry entry = EntryAt(path);
    if (!entry.Exists() || entry.IsFolder()) return {};
    if (!entry.IsLink()) return entry.Status;
    const auto target = InformationAt(path);
    if (!target || (target->dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) return {};
    return StatusFrom(target->ftLastWriteTime, target->nFileSizeHigh, target->nFileSizeLow);
}

bool IsFolderAt(const std::wstring& path) {
    const Entry entry = EntryAt(path);
    if (!entry.IsLink()) return entry.IsFolder();
    const auto target = InformationAt(path);
    return target && (target->dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY);
}

std::int64_t UnansweredLookUps() {
    return unansweredLookUps;
}

std::optional<FolderIdentity> IdentityAt(const std::wstring& path) {
    const auto information = InformationAt(path);
    if (!information) return std::nullopt;
    return FolderIdentity{
        information->dwVolumeSerialNumber,
        std::uint64_t{information->nFileIndexHigh} << 32 | information->nFileIndexLow};
}

}  // namespace platform::win32
