#include "window/input.h"

#include <stdexcept>
#include <vector>

#include "platform/win32/text_conversion.h"

namespace window {

namespace {

POINT pointer{};  // where it was put last; the system asks the screen, which may lag behind

void Send(std::vector<INPUT> events) {
    const auto count = static_cast<UINT>(events.size());
    if (::SendInput(count, events.data(), sizeof(INPUT)) != count)
        throw std::runtime_error("the system takes no input");
}

// A place on the screen in parts of 65536, rounded so that the system finds the pixel again.
LONG InParts(LONG pixel, int size) {
    return (pixel * 65536 + size - 1) / size;
}

// An event brings its place along: a late report of where the pointer was before cannot move it.
INPUT PointerEvent(POINT at, DWORD flags, int data = 0) {
    INPUT event{};
    event.type = INPUT_MOUSE;
    event.mi.dx = InParts(at.x, ::GetSystemMetrics(SM_CXSCREEN));
    event.mi.dy = InParts(at.y, ::GetSystemMetrics(SM_CYSCREEN));
    event.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | flags;
    event.mi.mouseData = static_cast<DWORD>(data);
    return event;
}

INPUT KeyEvent(WORD key, WORD character, DWORD flags) {
    INPUT event{};
    event.type = INPUT_KEYBOARD;
    event.ki.wVk = key;
    event.ki.wScan = character;
    event.ki.dwFlags = flags;
    return event;
}

INPUT Key(WORD key, DWORD flags) {
    // The arrows and their neighbours, which the block of digits has a second time.
    const bool extended = (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_DELETE;
    return KeyEvent(key, static_cast<WORD>(::MapVirtualKeyW(key, MAPVK_VK_TO_VSC)),
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
    MovePointer(point);
    Send({PointerEvent(point, MOUSEEVENTF_LEFTDOWN)});
}

void ReleaseButtonAt(POINT point) {
    MovePointer(point);
    Send({PointerEvent(point, MOUSEEVENTF_LEFTUP)});
}

void ClickAt(POINT point) {
    PressButtonAt(point);
    Send({PointerEvent(point, MOUSEEVENTF_LEFTUP)});
}

void RollWheelAt(POINT point, int notches) {
    MovePointer(point);
    Send({PointerEvent(point, MOUSEEVENTF_WHEEL, -notches * WHEEL_DELTA)});
}

void PressKey(WORD key, WORD held) {
    std::vector<INPUT> events{Key(key, 0), Key(key, KEYEVENTF_KEYUP)};
    if (held != 0) {
        events.insert(events.begin(), Key(held, 0));
        events.push_back(Key(held, KEYEVENTF_KEYUP));
    }
    Send(std::move(events));
}

void TypeKeys(std::string_view characters) {
    for (const wchar_t character : platform::win32::Wide(characters))
        Send({KeyEvent(0, character, KEYEVENTF_UNICODE),
              KeyEvent(0, character, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP)});
}

}  // namespace window
