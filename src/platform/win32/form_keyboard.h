// What the keyboard does in a form beyond the control that has the focus: Tab, Enter, Esc,
// arrows among option buttons, and scrolling.
#pragma once

#include <windows.h>

#include "platform/forms.h"
#include "platform/win32/control_windows.h"

namespace platform::win32 {

class FormKeyboard {
  public:
    FormKeyboard(Form& form, HWND window, const ControlWindows& controls);

    // Handles a key message before its window gets it. True when that was all.
    bool TakeKey(const MSG& message);

    void Focus(const Control& control);
    void FocusFirst();
    void FocusFirstIn(const Control& picture);

    // The focus as it was when the window was left.
    void RememberFocus();
    void RestoreFocus();

    // Takes the focus off a control that can no longer be reached; to be called before its window
    // is disabled or hidden, which would leave the keyboard to nobody. The control gets the focus
    // back when it can be reached again and no other has it.
    void LeaveUnreachable();
    void ReturnToReachable();

  private:
    bool MoveFocus(WPARAM key);
    bool Choose(WPARAM key);
    bool PressEnter(WPARAM key);
    bool PressEsc(WPARAM key);
    bool Scroll(WPARAM key);
    Control* Focused() const;
    void ShowFocusMarks();

    Form& form_;
    HWND window_;
    const ControlWindows& controls_;
    const Control* last_ = nullptr;  // had the focus last: Tab goes on from there
    const Control* left_ = nullptr;  // had the focus until it could not be reached
    bool onForm_ = false;            // the window was left while it had the focus itself
};

}  // namespace platform::win32
