// Window messages and the member functions that handle them, as data.
#pragma once

#include <cstddef>
#include <optional>

#include <windows.h>

namespace platform::win32 {

// Nothing: not handled, the default goes on.
using Result = std::optional<LRESULT>;

struct WindowMessage {
    UINT Id;
    WPARAM Word;
    LPARAM Long;

    POINT Point() const {
        return {static_cast<short>(LOWORD(Long)), static_cast<short>(HIWORD(Long))};
    }
};

template <typename Window>
struct MessageEntry {
    UINT Id;
    Result (Window::*Handle)(const WindowMessage&);
};

template <typename Window, std::size_t Count>
Result Dispatch(Window& window, const MessageEntry<Window> (&table)[Count],
                const WindowMessage& message) {
    for (const MessageEntry<Window>& entry : table)
        if (entry.Id == message.Id) return (window.*entry.Handle)(message);
    return std::nullopt;
}

}  // namespace platform::win32
