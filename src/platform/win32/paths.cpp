#include "platform/paths.h"

#include <algorithm>

#include <windows.h>

#include "platform/win32/text_conversion.h"

namespace platform {

namespace {

bool IsSeparator(char character) {
    return character == '\\' || character == '/';
}

bool IsDriveLetter(char character) {
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

// "C:" with or without more.
bool HasDrive(std::string_view path) {
    return path.size() >= 2 && path[1] == ':' && IsDriveLetter(path[0]);
}

std::string CurrentFolder() {
    std::wstring folder(::GetCurrentDirectoryW(0, nullptr), L'\0');
    folder.resize(::GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()));
    return win32::Narrow(folder);
}

// The current folder of a path's drive, as the command prompt keeps one for each.
std::string CurrentFolderOf(const std::string& drive) {
    wchar_t folder[MAX_PATH];
    const DWORD length = ::GetFullPathNameW(win32::Wide(drive).c_str(), MAX_PATH, folder, nullptr);
    if (length == 0 || length >= MAX_PATH) return WithSeparator(drive);
    std::string path = win32::Narrow({folder, length});
    if (path.size() > 3 && path.back() == Separator) path.pop_back();
    return path;
}

// Without "." segments in front.
std::string_view WithoutDots(std::string_view path) {
    while (path == "." || (path.size() > 1 && path[0] == '.' && IsSeparator(path[1]))) {
        path.remove_prefix(1);
        path.remove_prefix(std::min(path.find_first_not_of("\\/"), path.size()));
    }
    return path;
}

std::string Joined(std::string folder, std::string_view rest) {
    return rest.empty() ? folder : WithSeparator(std::move(folder)).append(rest);
}

// 'a' to 'z' in front become 'A' to 'Z'. True when the whole name is ASCII.
bool FoldAscii(std::string& name) {
    for (char& character : name) {
        if (static_cast<unsigned char>(character) >= 0x80) return false;
        if (character >= 'a' && character <= 'z') character = static_cast<char>(character - 32);
    }
    return true;
}

}  // namespace

std::string MakeAbsolute(const std::string& path) {
    if (path.empty()) return path;
    if (IsSeparator(path[0])) {
        const bool complete = path.size() > 1 && IsSeparator(path[1]);
        return complete ? path : CurrentFolder().substr(0, 2) + path;
    }
    if (!HasDrive(path)) return Joined(CurrentFolder(), WithoutDots(path));
    if (path.size() > 2 && IsSeparator(path[2])) return path;
    return Joined(CurrentFolderOf(path.substr(0, 2)),
                  WithoutDots(std::string_view(path).substr(2)));
}

// Upper case without regard to language, a character at a time, is what the file system compares.
std::string_view NameKey(std::string_view name, std::string& scratch) {
    scratch = name;
    if (FoldAscii(scratch)) return scratch;
    std::wstring wide = win32::Wide(name);
    ::LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_UPPERCASE, wide.data(),
                    static_cast<int>(wide.size()), wide.data(), static_cast<int>(wide.size()),
                    nullptr, nullptr, 0);
    scratch = win32::Narrow(wide);
    return scratch;
}

}  // namespace platform
