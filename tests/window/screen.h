// The screen that the tests run on: what it shows, its pointer and its keyboard. Places are in its
// pixels.
#pragma once

#include <string_view>

#include <windows.h>

namespace window {

COLORREF ColorAt(POINT point);  // 0x00BBGGRR

// `event` (MOUSEEVENTF_...) happens where the pointer comes to; `data` is that of the event.
void MovePointer(POINT to, DWORD event = 0, int data = 0);
void NudgePointer();  // reports anew where it stands
void ClickAt(POINT point);

// One key (VK_...). It goes to the window in front. Another one may be held down meanwhile, unless
// the pointer or the keyboard has just come to another window: the screen tells that window which
// keys are down on its own keyboard - none - and that releases the held one.
void PressKey(BYTE key, BYTE held = 0);

// What keys give, each as a character: no Shift is held, which could be released too early.
void TypeKeys(std::string_view characters);  // of ASCII

}  // namespace window
