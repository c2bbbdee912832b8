// The pointer and the keyboard of the screen that the tests run on.
#pragma once

#include <initializer_list>
#include <string_view>

#include <windows.h>

namespace window {

POINT MiddleOf(const RECT& area);

// The pointer, in pixels of the screen.
void MovePointer(POINT to);
void ParkPointer();  // in the corner of the screen, where no window is
void PressButtonAt(POINT point);
void ReleaseButtonAt(POINT point);
void ClickAt(POINT point);
void RollWheelAt(POINT point, int notches);  // positive: towards the user, which scrolls down

// One key (VK_...), with others held down meanwhile. It goes to the window in front.
void PressKey(WORD key, std::initializer_list<WORD> held = {});

// The keys that give these characters on the keyboard.
void TypeKeys(std::string_view characters);

// Puts a text on the clipboard.
void CopyText(std::string_view text);

}  // namespace window
