#include "platform/files.h"

#include <utility>

#include <windows.h>

#include "platform/win32/copy.h"
#include "platform/win32/entry.h"
#include "platform/win32/extended_path.h"
#include "platform/win32/failure.h"
#include "platform/win32/text_conversion.h"

namespace platform {

using win32::Entry;
using win32::Failure;

namespace {

// A path, since the system looks names up from the root anyway.
class WindowsFolder : public Folder {
  public:
    explicit WindowsFolder(std::wstring path) : path_(std::move(path)) {
        if (!path_.ends_with(L'\\')) path_ += L'\\';
    }

    Outcome List(TextArena& names, Listing& listing) override;
    FileStatus Look(const char* name) override { return win32::StatusAt(At(name)); }
    bool IsFolder(const char* name) override { return win32::IsFolderAt(At(name)); }
    std::unique_ptr<Folder> Open(const char* relativePath, Outcome& outcome) override;
    std::optional<FolderIdentity> Identity() override { return win32::IdentityAt(path_); }

  private:
    std::wstring At(const char* name) const { return path_ + win32::Wide(name); }
    void Add(const WIN32_FIND_DATAW& found, TextArena& names, Listing& listing) const;

    std::wstring path_;
};

std::unique_ptr<Folder> Opened(const std::wstring& path, std::string_view shownPath,
                               Outcome& outcome) {
    if (win32::IsFolderAt(path)) return std::make_unique<WindowsFolder>(path);
    const DWORD error = win32::EntryAt(path).Exists() ? ERROR_DIRECTORY : ::GetLastError();
    outcome = Failure("open folder", shownPath, error);
    return nullptr;
}

Outcome WindowsFolder::List(TextArena& names, Listing& listing) {
    WIN32_FIND_DATAW found;
    const HANDLE search =
        ::FindFirstFileExW((path_ + L'*').c_str(), FindExInfoBasic, &found, FindExSearchNameMatch,
                           nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (search == INVALID_HANDLE_VALUE) {
        const DWORD error = ::GetLastError();
        // An empty drive, which has not even ".".
        return error == ERROR_FILE_NOT_FOUND ? Outcome{} : Failure("list folder", "", error);
    }
    do {
        Add(found, names, listing);
    } while (::FindNextFileW(search, &found));
    const DWORD error = ::GetLastError();
    ::FindClose(search);
    return error == ERROR_NO_MORE_FILES ? Outcome{} : Failure("list folder", "", error);
}

void WindowsFolder::Add(const WIN32_FIND_DATAW& found, TextArena& names, Listing& listing) const {
    const std::wstring_view name = found.cFileName;
    if (name == L"." || name == L"..") return;
    const Entry entry = win32::EntryFrom(found);
    const std::string_view kept = names.Keep(win32::Narrow(name));
    FolderEntry added{kept.data(), static_cast<std::uint16_t>(kept.size()), EntryKind::File};
    FileStatus status;
    if (entry.IsLink()) {
        added.Kind = EntryKind::Link;
        status = win32::StatusAt(path_ + found.cFileName);  // the listing describes the link
    } else if (entry.IsFolder()) {
        added.Kind = EntryKind::Folder;
    } else {
        status = entry.Status;
    }
    listing.Entries.push_back(added);
    listing.Statuses.push_back(status);
}

std::unique_ptr<Folder> WindowsFolder::Open(const char* relativePath, Outcome& outcome) {
    return Opened(At(relativePath), relativePath, outcome);
}

class WindowsFileSystem : public FileSystem {
  public:
    WindowsFileSystem() {
        // A drive without a disk is a failure, not a question to the user.
        ::SetErrorMode(::GetErrorMode() | SEM_FAILCRITICALERRORS);
    }

    std::unique_ptr<Folder> OpenFolder(const std::string& path, Outcome& outcome) override {
        return Opened(win32::ExtendedPath(path), path, outcome);
    }

    bool FolderExists(const std::string& path) override {
        return win32::IsFolderAt(win32::ExtendedPath(path));
    }

    FileStatus Look(const std::string& path) override {
        return win32::StatusAt(win32::ExtendedPath(path));
    }

    std::int64_t UnansweredLookUps() const override { return win32::UnansweredLookUps(); }

    Outcome CreateFolder(const std::string& path) override {
        if (::CreateDirectoryW(win32::ExtendedPath(path).c_str(), nullptr)) return {};
        return Failure("create folder", path, ::GetLastError());
    }

    Outcome CopyOver(const std::string& from, const std::string& to,
                     const std::function<void()>& whileCopying) override {
        return win32::CopyOver(from, to, whileCopying);
    }

    Outcome RemoveFile(const std::string& path) override {
        if (win32::RemoveFileAt(win32::ExtendedPath(path))) return {};
        return Failure("remove file", path, ::GetLastError());
    }

    void RemoveLeftover(const std::string& path) override { win32::RemoveLeftover(path); }
};

}  // namespace

FileSystem& SystemFiles() {
    static WindowsFileSystem files;
    return files;
}

}  // namespace platform
