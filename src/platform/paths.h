// The few rules for paths that differ from system to system. A path is UTF-8 (on Linux: bytes).
#pragma once

#include <string>
#include <string_view>

namespace platform {

#ifdef _WIN32
inline constexpr char Separator = '\\';
#else
inline constexpr char Separator = '/';
#endif

// `path` ending in a separator: added where it is missing.
inline std::string WithSeparator(std::string path) {
    if (path.empty() || path.back() != Separator) path += Separator;
    return path;
}

// `path` made absolute from the current folder; "." segments in front are dropped, the rest stays
// as typed.
std::string MakeAbsolute(const std::string& path);

// The form of a file name that two names share when the file system takes them for the same one:
// the name itself where case matters, a case-folded one on Windows. `scratch` may be used to hold
// the result.
std::string_view NameKey(std::string_view name, std::string& scratch);

// True for the names under which copies are written before they replace their target.
bool IsTemporaryName(std::string_view name);

}  // namespace platform
