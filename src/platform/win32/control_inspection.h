// Lets another program of the same user read a form's controls by their fixed names, windowless
// labels and menu entries included; for tests of the window. Nothing can be changed this way.
//
// The asker sends WM_COPYDATA to the form's window: wParam its own window, dwData kInspectControl,
// lpData a name in UTF-8. Before the message returns, the asker's window is sent WM_COPYDATA with
// the same dwData and these lines in UTF-8; no answer comes for a name that nothing bears.
//
//   visible=1              with all its containers
//   value=0                checked, the list's selection, a menu's command
//   entries=2              of a list
//   area=10,20,110,36      left, top, right, bottom in pixels of the screen
//   window=65538           its own window's handle in decimal; 0 when it has none
//   text=                  caption or text: all the rest of the answer, line ends included
#pragma once

#include <windows.h>

#include "platform/forms.h"
#include "platform/win32/control_windows.h"
#include "platform/win32/menu_bar.h"
#include "platform/win32/message_table.h"

namespace platform::win32 {

inline constexpr ULONG_PTR kInspectControl = 0x56524E4C;

struct InspectedForm {
    const Form& Shown;
    HWND Window;
    const ControlWindows& Controls;
    const MenuBar& Menu;
};

// Nothing for a request that is not of this kind.
Result AnswerInspection(HWND asker, const COPYDATASTRUCT& request, const InspectedForm& form);

}  // namespace platform::win32
