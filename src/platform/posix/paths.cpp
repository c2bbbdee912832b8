#include "platform/paths.h"

#include <algorithm>
#include <cstdlib>
#include <memory>

#include <unistd.h>

namespace platform {

namespace {

// Without "." segments in front.
std::string_view WithoutDots(std::string_view path) {
    while (path == "." || path.starts_with("./")) {
        path.remove_prefix(1);
        path.remove_prefix(std::min(path.find_first_not_of('/'), path.size()));
    }
    return path;
}

}  // namespace

std::string MakeAbsolute(const std::string& path) {
    if (path.empty() || path.front() == Separator) return path;
    const std::unique_ptr<char, void (*)(void*)> current(::getcwd(nullptr, 0), std::free);
    if (!current) return path;
    const std::string_view rest = WithoutDots(path);
    return rest.empty() ? current.get() : WithSeparator(current.get()).append(rest);
}

std::string_view NameKey(std::string_view name, std::string&) {
    return name;
}

}  // namespace platform
