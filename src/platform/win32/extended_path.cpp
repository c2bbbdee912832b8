#include "platform/win32/extended_path.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "platform/paths.h"
#include "platform/win32/text_conversion.h"

namespace platform::win32 {

namespace {

constexpr std::wstring_view kPrefix = L"\\\\?\\";
constexpr std::wstring_view kSharePrefix = L"\\\\?\\UNC\\";
constexpr std::wstring_view kDevicePrefix = L"\\\\.\\";

bool IsSeparator(wchar_t character) {
    return character == L'\\' || character == L'/';
}

bool IsShare(std::wstring_view path) {
    return path.size() > 2 && IsSeparator(path[0]) && IsSeparator(path[1]);
}

// The names of a path, "." and ".." carried out. The first `fixed` of them stay.
std::vector<std::wstring_view> NamesOf(std::wstring_view path, std::size_t fixed) {
    std::vector<std::wstring_view> names;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find_first_of(L"\\/"), path.size());
        const std::wstring_view name = path.substr(0, end);
        path.remove_prefix(std::min(end + 1, path.size()));
        if (name.empty() || name == L".") continue;
        if (name != L"..") {
            names.push_back(name);
        } else if (names.size() > fixed) {
            names.pop_back();
        }
    }
    return names;
}

}  // namespace

std::wstring ExtendedPath(const std::string& path) {
    const std::wstring wide = Wide(MakeAbsolute(path));
    if (wide.empty() || wide.starts_with(kPrefix) || wide.starts_with(kDevicePrefix)) return wide;
    const bool share = IsShare(wide);
    const std::size_t fixed = share ? 2 : 1;
    std::wstring extended(share ? kSharePrefix : kPrefix);
    const auto names = NamesOf(wide, fixed);
    for (const std::wstring_view name : names) extended.append(name) += L'\\';
    if (names.size() > fixed) extended.pop_back();
    return extended;
}

std::wstring PlainPath(const std::wstring& extended) {
    if (extended.starts_with(kSharePrefix)) return L"\\\\" + extended.substr(kSharePrefix.size());
    return extended.starts_with(kPrefix) ? extended.substr(kPrefix.size()) : extended;
}

std::wstring FolderOf(const std::wstring& extended) {
    return extended.substr(0, extended.rfind(L'\\') + 1);
}

std::wstring NameOf(const std::wstring& extended) {
    return extended.substr(extended.rfind(L'\\') + 1);
}

}  // namespace platform::win32
