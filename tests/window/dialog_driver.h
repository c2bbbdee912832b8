// Reads and answers the dialogs of the system that the program opens. Each function waits for its
// dialog and returns when it is gone.
#pragma once

#include <string>
#include <string_view>

#include <windows.h>

#include "window/window_driver.h"

namespace window {

// Presses a button (IDOK, IDYES, IDNO) of a message box with the real pointer. Returns what it
// said: its icon (critical, exclamation or information), its title, a colon, its text.
std::string Answer(const Program& program, int button = IDOK);

// Enters a name into the dialog of this title and accepts it; cancels if the name is empty.
// Returns the name that the dialog proposed.
std::string AnswerFileName(const Program& program, std::string_view title, std::string_view path);

// Goes down the tree of folders by the names that it shows, from below the desktop, and presses
// IDOK or IDCANCEL. Returns where the dialog stood on the screen.
RECT AnswerFolder(const Program& program, const Texts& names, int button);

}  // namespace window
