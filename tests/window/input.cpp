#include "window/input.h"

#include <stdexcept>

#include "platform/win32/text_conversion.h"

namespace window {

namespace {

POINT pointer{};  // where it was put last; the system asks the screen, which may lag behind

void Send(INPUT event) {
    if (::SendInput(1, &event, sizeof event) != 1)
        throw std::runtime_error("the system takes no input");
}

// A place on the screen in parts of 65536, rounded so that the system finds the pixel again.
LONG InParts(LONG pixel, int size) {
    return (pixel * 65536 + size - 1) / size;
}

// The event brings its place along: a late report of where the pointer was before cannot move it.
void SendPointer(POINT at, DWORD flags, int data = 0) {
    INPUT event{};
    event.type = INPUT_MOUSE;
    event.mi.dx = InParts(at.x, ::GetSystemMetrics(SM_CXSCREEN));
    event.mi.dy = InParts(at.y, ::GetSystemMetrics(SM_CYSCREEN));
    event.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | flags;
    event.mi.mouseData = static_cast<DWORD>(data);
    MovePointer(at);
    Send(event);
}

void SendKey(WORD key, WORD scan, DWORD flags) {
    INPUT event{};
    event.type = INPUT_KEYBOARD;
    event.ki.wVk = key;
    event.ki.wScan = scan;
    event.ki.dwFlags = flags;
    Send(event);
}

void SendKey(WORD key, DWORD flags) {
    // The arrows and their neighbours, which the block of digits has a second time.
    const bool extended = (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_DELETE;
    SendKey(key, static_cast<WORD>(::MapVirtualKeyW(key, MAPVK_VK_TO_VSC)),
            flags | (extended ? KEYEVENTF_EXTENDEDKEY : 0));
}

}  // namespace

POINT MiddleOf(const RECT& area) {
    return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

void MovePointer(POINT to) {
    pointer = to;
    NudgePointer();
}

void NudgePointer() {
    ::SetCursorPos(pointer.x, pointer.y);
}

void ParkPointer() {
    MovePointer({::GetSystemMetrics(SM_CXSCREEN) - 1, ::GetSystemMetrics(SM_CYSCREEN) - 1});
}

void PressButtonAt(POINT point) {
    SendPointer(point, MOUSEEVENTF_LEFTDOWN);
}

void ReleaseButtonAt(POINT point) {
    SendPointer(point, MOUSEEVENTF_LEFTUP);
}

void ClickAt(POINT point) {
    PressButtonAt(point);
    ReleaseButtonAt(point);
}

void RollWheelAt(POINT point, int notches) {
    SendPointer(point, MOUSEEVENTF_WHEEL, -notches * WHEEL_DELTA);
}

void PressKey(WORD key, WORD held) {
    if (held != 0) SendKey(held, 0);
    SendKey(key, 0);
    SendKey(key, KEYEVENTF_KEYUP);
    if (held != 0) SendKey(held, KEYEVENTF_KEYUP);
}

void TypeKeys(std::string_view characters) {
    for (const wchar_t character : platform::win32::Wide(characters)) {
        SendKey(0, character, KEYEVENTF_UNICODE);
        SendKey(0, character, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
    }
}

}  // namespace window
