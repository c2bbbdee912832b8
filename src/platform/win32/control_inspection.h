// Lets another program of the same user see a form's controls by their fixed names, windowless
// labels included; for tests of the window. Nothing can be changed this way.
//
// The asker sends WM_COPYDATA to the form's window: wParam its own window, dwData kInspectControl,
// lpData a name in UTF-8. Before the message returns, the asker's window is sent WM_COPYDATA with
// the same dwData and an InspectedControl; no answer comes for a name that nothing bears.
#pragma once

#include <windows.h>

#include "platform/forms.h"
#include "platform/win32/control_windows.h"
#include "platform/win32/message_table.h"

namespace platform::win32 {

inline constexpr ULONG_PTR kInspectControl = 0x56524E4C;

// The control's text follows, in UTF-8, up to the end of the answer.
struct InspectedControl {
    RECT Area;    // on the screen, in pixels
    HWND Window;  // its own; null when its container paints it
    BOOL Shown;   // with all its containers
};

// Nothing for a request that is not of this kind.
Result AnswerInspection(HWND asker, const COPYDATASTRUCT& request, const Form& form,
                        const ControlWindows& controls);

}  // namespace platform::win32
