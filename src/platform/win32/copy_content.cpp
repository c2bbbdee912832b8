#include "platform/win32/copy_content.h"

#include <algorithm>

#include <objbase.h>
#include <shellapi.h>

#include "platform/win32/extended_path.h"
#include "platform/win32/handle.h"
#include "platform/win32/text_conversion.h"

namespace platform::win32 {

namespace {

constexpr std::int64_t kLarge = 16 * 1024 * 1024;  // may take long enough to be noticed
constexpr DWORD kPace = 15;                        // milliseconds between calls of whileCopying

// The shell's functions take text in the process's code page.
bool IsShellText(const std::string& text) {
    if (::GetACP() != CP_UTF8)
        return std::none_of(text.begin(), text.end(), [](char c) { return (c & 0x80) != 0; });
    // Half of a surrogate pair has no place in UTF-8.
    for (std::size_t at = 0; (at = text.find('\xED', at)) != text.npos; ++at)
        if (at + 1 < text.size() && (text[at + 1] & 0x20)) return false;
    return true;
}

// Without companions: the folder of pictures beside a saved web page is no part of the page.
DWORD CopyByShell(const CopyJob& job) {
    std::string from = Narrow(PlainPath(job.From));
    std::string to = Narrow(PlainPath(job.To));
    from += '\0';  // a list ends with an empty text
    to += '\0';
    SHFILEOPSTRUCTA operation{};
    operation.wFunc = FO_COPY;
    operation.pFrom = from.c_str();
    operation.pTo = to.c_str();
    operation.fFlags = FOF_SILENT | FOF_NOCONFIRMATION | FOF_NOCONFIRMMKDIR | FOF_NOERRORUI |
                       FOF_NO_CONNECTED_ELEMENTS;
    const int error = ::SHFileOperationA(&operation);
    if (error != 0) return static_cast<DWORD>(error);
    return operation.fAnyOperationsAborted ? ERROR_CANCELLED : ERROR_SUCCESS;
}

DWORD CopyBySystem(const CopyJob& job) {
    const BOOL copied = ::CopyFileExW(job.From.c_str(), job.To.c_str(), nullptr, nullptr, nullptr,
                                      COPY_FILE_FAIL_IF_EXISTS);
    return copied ? ERROR_SUCCESS : ::GetLastError();
}

DWORD FlushFile(const wchar_t* path) {
    const Handle file(::CreateFileW(path, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE,
                                    nullptr, OPEN_EXISTING, 0, nullptr));
    return file.IsOpen() && ::FlushFileBuffers(file.Get()) ? ERROR_SUCCESS : ::GetLastError();
}

// A file whose content is still in memory when the power goes would be left with its name, size
// and time, but empty.
DWORD FlushCopy(const CopyJob& job) {
    constexpr DWORD kKept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE;
    const wchar_t* path = job.To.c_str();
    const DWORD attributes = ::GetFileAttributesW(path);
    if (attributes == INVALID_FILE_ATTRIBUTES) return ::GetLastError();
    if (!(attributes & FILE_ATTRIBUTE_READONLY)) return FlushFile(path);
    // Writable for this moment. Whether it is hidden, the source knows: to some file systems every
    // name that begins with a dot is.
    const DWORD original = ::GetFileAttributesW(job.From.c_str()) & kKept;
    ::SetFileAttributesW(path, FILE_ATTRIBUTE_NORMAL);
    const DWORD error = FlushFile(path);
    ::SetFileAttributesW(path, original | FILE_ATTRIBUTE_READONLY);
    return error;
}

DWORD Copy(const CopyJob& job) {
    const DWORD error = job.ByShell ? CopyByShell(job) : CopyBySystem(job);
    return error == ERROR_SUCCESS ? FlushCopy(job) : error;
}

// A copy in a thread of its own; the end of this object waits for it.
class BackgroundCopy {
  public:
    explicit BackgroundCopy(const CopyJob& job)
        : job_(job), thread_(::CreateThread(nullptr, 0, Run, this, 0, nullptr)) {}
    ~BackgroundCopy() { Wait(INFINITE); }
    BackgroundCopy(const BackgroundCopy&) = delete;
    BackgroundCopy& operator=(const BackgroundCopy&) = delete;

    bool Started() const { return thread_.IsOpen(); }
    bool Wait(DWORD milliseconds) const {
        return !Started() || ::WaitForSingleObject(thread_.Get(), milliseconds) != WAIT_TIMEOUT;
    }
    DWORD Result() const { return result_; }

  private:
    static DWORD WINAPI Run(void* object) {
        auto* self = static_cast<BackgroundCopy*>(object);
        const HRESULT ready =
            ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE);
        self->result_ = Copy(self->job_);
        if (SUCCEEDED(ready)) ::CoUninitialize();
        return 0;
    }

    const CopyJob& job_;
    DWORD result_ = ERROR_SUCCESS;
    Handle thread_;
};

}  // namespace

bool ShellCanName(const std::wstring& extendedPath) {
    const std::wstring path = PlainPath(extendedPath);
    const std::string text = Narrow(path);
    if (text.size() >= MAX_PATH || !IsShellText(text)) return false;
    if (path.find(L" \\") != path.npos || path.find(L".\\") != path.npos) return false;
    // The system drops a blank or a dot at the end, and reads the names of devices as such.
    wchar_t read[MAX_PATH];
    const DWORD length = ::GetFullPathNameW(path.c_str(), MAX_PATH, read, nullptr);
    return length < MAX_PATH && path == std::wstring_view(read, length);
}

DWORD CopyContent(const CopyJob& job, const std::function<void()>& whileCopying) {
    if (job.Size < kLarge) return Copy(job);
    const BackgroundCopy copy(job);
    if (!copy.Started()) return Copy(job);
    while (!copy.Wait(kPace))
        if (whileCopying) whileCopying();
    return copy.Result();
}

}  // namespace platform::win32
