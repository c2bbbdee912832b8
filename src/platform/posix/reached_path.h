// Gets to a path of any length: the system takes at most 4,096 bytes at a time.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include <unistd.h>

#include "platform/outcome.h"

namespace platform::posix {

// An open descriptor, closed at the end.
class Descriptor {
  public:
    Descriptor() = default;
    explicit Descriptor(int fd) : fd_(fd) {}
    Descriptor(Descriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(fd_, other.fd_);
        return *this;
    }
    ~Descriptor() {
        if (fd_ >= 0) ::close(fd_);
    }
    int Get() const { return fd_; }
    bool IsOpen() const { return fd_ >= 0; }

  private:
    int fd_ = -1;
};

// A path as a folder to start from and a rest that the system takes. `base` is a descriptor or
// AT_FDCWD. When a folder on the way cannot be entered, Ok() is false and errno says why.
class ReachedPath {
  public:
    ReachedPath(int base, const char* path);

    bool Ok() const { return ok_; }
    int At() const { return way_.IsOpen() ? way_.Get() : base_; }
    const char* Rest() const { return rest_; }

  private:
    int base_;
    const char* rest_;
    Descriptor way_;
    bool ok_ = true;
};

// A file's folder, opened, and its name in it.
class ReachedFile {
  public:
    explicit ReachedFile(const std::string& path);

    bool Ok() const { return folder_.IsOpen(); }
    int Folder() const { return folder_.Get(); }
    const char* Name() const { return name_.c_str(); }

  private:
    Descriptor folder_;
    std::string name_;
};

// The failure of `operation` on `path`, with the text of errno.
Outcome Failure(std::string_view operation, std::string_view path);
Outcome Failure(std::string_view operation, std::string_view path, std::string_view reason);

}  // namespace platform::posix
