#include "window/screen.h"

namespace window {

namespace {

POINT pointer{};  // where it was put last; the system asks the screen, which may lag behind

}  // namespace

COLORREF ColorAt(POINT point) {
    const HDC screen = ::GetDC(nullptr);
    const COLORREF color = ::GetPixel(screen, point.x, point.y);
    ::ReleaseDC(nullptr, screen);
    return color;
}

// The event brings its place along, in parts of 65536 of the screen, rounded so that the system
// finds the pixel again: a late report of where the pointer was before cannot move it.
void MovePointer(POINT to, DWORD event, int data) {
    const auto parts = [](LONG pixel, int size) {
        return static_cast<DWORD>((pixel * 65536 + size - 1) / size);
    };
    pointer = to;
    NudgePointer();
    ::mouse_event(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | event,
                  parts(to.x, ::GetSystemMetrics(SM_CXSCREEN)),
                  parts(to.y, ::GetSystemMetrics(SM_CYSCREEN)), static_cast<DWORD>(data), 0);
}

void NudgePointer() {
    ::SetCursorPos(pointer.x, pointer.y);
}

void ClickAt(POINT point) {
    MovePointer(point, MOUSEEVENTF_LEFTDOWN);
    MovePointer(point, MOUSEEVENTF_LEFTUP);
}

void PressKey(BYTE key, BYTE held) {
    if (held != 0) ::keybd_event(held, 0, 0, 0);
    ::keybd_event(key, 0, 0, 0);
    ::keybd_event(key, 0, KEYEVENTF_KEYUP, 0);
    if (held != 0) ::keybd_event(held, 0, KEYEVENTF_KEYUP, 0);
}

void TypeKeys(std::string_view characters) {
    for (const char character : characters)
        for (const DWORD release : {DWORD{0}, DWORD{KEYEVENTF_KEYUP}})
            ::keybd_event(0, static_cast<BYTE>(character), KEYEVENTF_UNICODE | release, 0);
}

}  // namespace window
