// An open handle of the system, closed at the end.
#pragma once

#include <utility>

#include <windows.h>

namespace platform::win32 {

class Handle {
  public:
    explicit Handle(HANDLE handle) : handle_(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}
    Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    Handle& operator=(Handle&&) = delete;
    ~Handle() {
        if (handle_) ::CloseHandle(handle_);
    }
    bool IsOpen() const { return handle_ != nullptr; }
    HANDLE Get() const { return handle_; }

  private:
    HANDLE handle_;
};

}  // namespace platform::win32
