#include "platform/win32/shell.h"

#include <shlobj.h>
#include <windows.h>

#include "platform/win32/text_conversion.h"

namespace platform::win32 {

namespace {

// The root of a drive keeps its separator: "C:" alone is another folder.
std::string WithoutTrailingSeparator(std::string path) {
    if (path.size() > 3 && path.back() == '\\') path.pop_back();
    return path;
}

}  // namespace

void Shell::OpenFolder(const std::string& path) {
    ::ShellExecuteA(nullptr, "open", path.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}

void Shell::StartProgram(const std::string& commandLine) {
    std::wstring writable = Wide(commandLine);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESHOWWINDOW;
    start.wShowWindow = SW_SHOWNORMAL;
    PROCESS_INFORMATION process{};
    if (!::CreateProcessW(nullptr, writable.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                          &start, &process))
        return;
    ::AllowSetForegroundWindow(process.dwProcessId);
    ::CloseHandle(process.hThread);
    ::CloseHandle(process.hProcess);
}

std::string Shell::DocumentsFolder() {
    LPITEMIDLIST item = nullptr;
    if (::SHGetSpecialFolderLocation(nullptr, CSIDL_PERSONAL, &item) != S_OK) return {};
    char path[MAX_PATH * 4] = "";
    const bool found = ::SHGetPathFromIDListA(item, path);
    ::CoTaskMemFree(item);
    return found ? WithoutTrailingSeparator(path) : std::string();
}

std::string Shell::ProgramFolder() {
    std::wstring path(32768, L'\0');
    path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    const std::size_t separator = path.find_last_of(L'\\');
    if (separator == std::wstring::npos) return {};
    return WithoutTrailingSeparator(Narrow(path.substr(0, separator + 1)));
}

}  // namespace platform::win32
