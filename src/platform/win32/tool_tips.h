// The tooltips of a form's controls, windowless ones included.
#pragma once

#include <map>
#include <string>

#include <windows.h>

#include "platform/forms.h"

namespace platform::win32 {

class ToolTips {
  public:
    explicit ToolTips(HWND form) : form_(form) {}

    // `window` is the control's own, or the container's on which it takes `area`.
    void Update(const Control& control, HWND window, const RECT& area);

  private:
    struct Tip {
        std::string Text;
        RECT Area;
    };

    HWND form_;
    HWND tips_ = nullptr;  // made with the first tip; the form's window destroys it
    std::map<const Control*, Tip> shown_;
};

}  // namespace platform::win32
