// The screen that the tests run on: what it shows, its pointer and its keyboard. Places are in its
// pixels.
#pragma once

#include <string>
#include <string_view>

#include <windows.h>

namespace window {

COLORREF ColorAt(POINT point);  // 0x00BBGGRR

// A part of the screen as a BMP file.
std::string PictureOf(const RECT& area);

POINT MiddleOf(const RECT& area);

void MovePointer(POINT to);
void NudgePointer();  // reports anew where it stands
void ParkPointer();   // in the corner of the screen, where no window is
void PressButtonAt(POINT point);
void ReleaseButtonAt(POINT point);
void ClickAt(POINT point);
void RollWheelAt(POINT point, int notches);  // positive: towards the user, which scrolls down

// One key (VK_...). It goes to the window in front. Another one may be held down meanwhile, unless
// the pointer or the keyboard has just come to another window: the screen tells that window which
// keys are down on its own keyboard - none - and that releases the held one.
void PressKey(WORD key, WORD held = 0);

// What keys give, each as a character: no Shift is held, which could be released too early.
void TypeKeys(std::string_view characters);

}  // namespace window
