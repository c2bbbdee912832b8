#include "platform/posix/reached_path.h"

#include <cerrno>
#include <climits>
#include <cstring>

#include <fcntl.h>

namespace platform::posix {

ReachedPath::ReachedPath(int base, const char* path) : base_(base), rest_(path) {
    while (std::strlen(rest_) >= PATH_MAX) {
        std::string step(rest_, PATH_MAX - 1);
        const std::size_t end = step.rfind('/');
        if (end == std::string::npos || end == 0) {
            errno = ENAMETOOLONG;
            ok_ = false;
            return;
        }
        step.resize(end);
        Descriptor next(::openat(At(), step.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
        if (!next.IsOpen()) {
            ok_ = false;
            return;
        }
        way_ = std::move(next);
        rest_ += end;
        while (*rest_ == '/') ++rest_;
    }
    if (*rest_ == '\0' && way_.IsOpen()) rest_ = ".";
}

ReachedFile::ReachedFile(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    name_ = slash == std::string::npos ? path : path.substr(slash + 1);
    const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
    const ReachedPath reached(AT_FDCWD, folder.c_str());
    if (reached.Ok())
        folder_ =
            Descriptor(::openat(reached.At(), reached.Rest(), O_PATH | O_DIRECTORY | O_CLOEXEC));
}

Outcome Failure(std::string_view operation, std::string_view path) {
    return Failure(operation, path, std::strerror(errno));
}

Outcome Failure(std::string_view operation, std::string_view path, std::string_view reason) {
    return {std::string(operation), std::string(path), std::string(reason)};
}

}  // namespace platform::posix
