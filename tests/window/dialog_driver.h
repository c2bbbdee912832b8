// Reads and answers the dialogs of the system that the program opens. Each function waits for its
// dialog and returns when it is gone.
#pragma once

#include <string>
#include <string_view>

#include <windows.h>

#include "window/window_driver.h"

namespace window {

// Presses a button (IDOK, IDYES, IDNO) of a message box. Returns what it said: its icon (critical,
// exclamation or information), its title, a colon, its text.
std::string Answer(const Program& program, WPARAM button = IDOK);

// Enters a name into the dialog of this title and accepts it; cancels if the name is empty.
// Returns the name that the dialog proposed.
std::string AnswerFileName(const Program& program, const std::string& title, std::string_view path);

// Presses IDOK, which takes the desktop, or IDCANCEL in the tree of folders. Returns where the
// dialog stood on the screen.
RECT AnswerFolder(const Program& program, WPARAM button);

}  // namespace window
