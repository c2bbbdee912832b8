#include "rules/file_filter.h"

#include <algorithm>

namespace rules {

namespace {

constexpr std::size_t kExtensionReach = 10;  // bytes from the end in which a dot counts

bool Passes(const FileFilter& filter, std::string_view extension) {
    const bool listed = filter.FilterExtensions.find(extension) != std::string::npos;
    return listed == filter.FilterOnlyMode;
}

std::string LowerAscii(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return lower;
}

}  // namespace

std::string_view FileExtensionOf(std::string_view path) {
    const std::string_view tail =
        path.substr(path.size() > kExtensionReach ? path.size() - kExtensionReach : 0);
    const std::size_t dot = tail.rfind('.');
    return dot == std::string_view::npos ? "XXXXXXXX" : tail.substr(dot + 1);
}

bool PassesFileFilter(const FileFilter& filter, std::string_view path) {
    return filter.FilterExtensions.empty() || Passes(filter, FileExtensionOf(path));
}

bool PassesCopyFilter(const FileFilter& filter, std::string_view path) {
    if (filter.FilterExtensions.empty()) return true;
    const FileFilter lower{LowerAscii(filter.FilterExtensions), filter.FilterOnlyMode};
    return Passes(lower, LowerAscii(FileExtensionOf(path)));
}

}  // namespace rules
