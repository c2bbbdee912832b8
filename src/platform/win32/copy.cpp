#include "platform/win32/copy.h"

#include <cwchar>
#include <random>
#include <string_view>

#include <windows.h>

#include "platform/paths.h"
#include "platform/win32/copy_content.h"
#include "platform/win32/entry.h"
#include "platform/win32/extended_path.h"
#include "platform/win32/failure.h"
#include "platform/win32/file_times.h"
#include "platform/win32/handle.h"
#include "platform/win32/text_conversion.h"

namespace platform::win32 {

namespace {

constexpr int kNameAttempts = 100;

bool IsMissing(DWORD error) {
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

// A name in `folder` that is free.
std::wstring TemporaryPath(const std::wstring& folder) {
    static std::minstd_rand random{std::random_device{}()};
    std::wstring path;
    for (int attempt = 0; attempt < kNameAttempts; ++attempt) {
        wchar_t name[32];
        std::swprintf(name, 32, L".varnel~%08x", static_cast<unsigned>(random()));
        path = folder + name;
        if (::GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES) break;
    }
    return path;
}

// A copy beside its target: removed, unless it was put in the target's place.
class TemporaryFile {
  public:
    explicit TemporaryFile(std::wstring path) : path_(std::move(path)) {}
    ~TemporaryFile() {
        if (!placed_) RemoveFileAt(path_);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::wstring& Path() const { return path_; }

    // One step: whoever looks sees the old file or the new one. A target that was not there when
    // the copy began is not replaced if it is there now.
    bool PutInPlace(const std::wstring& target, bool targetExists, bool ordinary) {
        const DWORD flags = targetExists ? MOVEFILE_REPLACE_EXISTING : 0;
        placed_ = ordinary ? ::MoveFileExA(Narrow(PlainPath(path_)).c_str(),
                                           Narrow(PlainPath(target)).c_str(), flags)
                           : ::MoveFileExW(path_.c_str(), target.c_str(), flags);
        return placed_;
    }

  private:
    std::wstring path_;
    bool placed_ = false;
};

// ERROR_SUCCESS when the target may be replaced or made.
DWORD RefusalOf(const Entry& target, const std::wstring& path, const std::wstring& source) {
    if (!target.Exists()) {
        const DWORD error = ::GetLastError();
        return IsMissing(error) ? ERROR_SUCCESS : error;
    }
    if (target.IsFolder() || target.IsLink()) return ERROR_FILE_EXISTS;
    if (target.IsReadOnly()) return ERROR_ACCESS_DENIED;
    const auto identity = IdentityAt(path);
    return identity && identity == IdentityAt(source) ? ERROR_INVALID_PARAMETER : ERROR_SUCCESS;
}

// Makes what is missing of the folder that holds `path`, from the outermost inwards.
void CreateFoldersAbove(const std::wstring& path) {
    constexpr std::size_t kAfterPrefix = 4;
    for (std::size_t end = path.find(L'\\', kAfterPrefix); end != path.npos;
         end = path.find(L'\\', end + 1))
        ::CreateDirectoryW(path.substr(0, end).c_str(), nullptr);
}

// File systems round times to 2 seconds at most.
bool SameTime(FileTime a, FileTime b) {
    return a.Seconds - b.Seconds <= 2 && b.Seconds - a.Seconds <= 2;
}

// A complete copy, held open so that nobody tidies it away.
Handle Held(const TemporaryFile& copy, const FileStatus& source) {
    Handle opened(::CreateFileW(copy.Path().c_str(), GENERIC_READ,
                                FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                OPEN_EXISTING, 0, nullptr));
    if (!opened.IsOpen()) return opened;
    const FileStatus status = StatusAt(copy.Path());
    if (status.Size == source.Size && SameTime(status.Time, source.Time)) return opened;
    ::SetLastError(ERROR_WRITE_FAULT);
    return Handle(nullptr);
}

bool HasWildcard(const std::wstring& extended) {
    return PlainPath(extended).find_first_of(L"*?<>|\"") != std::wstring::npos;
}

}  // namespace

Outcome CopyOver(const std::string& from, const std::string& to,
                 const std::function<void()>& whileCopying) {
    const std::wstring source = ExtendedPath(from);
    const std::wstring target = ExtendedPath(to);
    if (HasWildcard(source) || HasWildcard(target))
        return Failure("copy", from, ERROR_INVALID_NAME);
    const FileStatus before = StatusAt(source);
    if (!before.Exists()) return Failure("open", from, ERROR_FILE_NOT_FOUND);
    const Entry old = EntryAt(target);
    if (const DWORD refusal = RefusalOf(old, target, source))
        return Failure("replace", to, refusal);
    if (!old.Exists()) CreateFoldersAbove(target);

    TemporaryFile copy(TemporaryPath(FolderOf(target)));
    const bool ordinary = ShellCanName(source) && ShellCanName(target) && ShellCanName(copy.Path());
    const CopyJob job{source, copy.Path(), ordinary && !EntryAt(source).IsLink(), before.Size};
    if (const DWORD error = CopyContent(job, whileCopying)) return Failure("copy", from, error);
    const Handle held = Held(copy, before);
    if (!held.IsOpen()) return Failure("copy", from, ::GetLastError());
    const FileStatus after = StatusAt(source);
    if (after.Size != before.Size || after.Time != before.Time)
        return Failure("copy", from, ERROR_FILE_INVALID);  // changed meanwhile
    const FileStatus now = EntryAt(target).Status;
    if (old.Exists() && (now.Size != old.Status.Size || now.Time != old.Status.Time))
        return Failure("replace", to, ERROR_FILE_INVALID);
    if (!copy.PutInPlace(target, old.Exists(), ordinary))
        return Failure("replace", to, ::GetLastError());
    return {};
}

void RemoveLeftover(const std::string& path) {
    const std::wstring extended = ExtendedPath(path);
    const Entry entry = EntryAt(extended);
    if (!entry.Exists() || entry.IsFolder() || entry.IsLink()) return;
    if (!IsTemporaryName(Narrow(NameOf(extended)))) return;
    {
        const Handle unused(
            ::CreateFileW(extended.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        if (!unused.IsOpen()) return;
    }
    RemoveFileAt(extended);
}

bool RemoveFileAt(const std::wstring& extendedPath) {
    if (::DeleteFileW(extendedPath.c_str())) return true;
    const DWORD error = ::GetLastError();
    const Entry entry = EntryAt(extendedPath);
    if (error == ERROR_ACCESS_DENIED && entry.IsReadOnly() && !entry.IsFolder()) {
        ::SetFileAttributesW(extendedPath.c_str(), FILE_ATTRIBUTE_NORMAL);
        if (::DeleteFileW(extendedPath.c_str())) return true;
        ::SetFileAttributesW(extendedPath.c_str(), entry.Attributes);
    }
    ::SetLastError(error);
    return false;
}

}  // namespace platform::win32
