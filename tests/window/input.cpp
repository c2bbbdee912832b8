#include "window/input.h"

#include <cstring>
#include <stdexcept>
#include <vector>

#include "platform/win32/text_conversion.h"
#include "window/screen_picture.h"

namespace window {

namespace {

constexpr UINT kAnswerTimeout = 5000;  // ms

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
INPUT PointerEvent(POINT at, DWORD flags, DWORD data = 0) {
    INPUT event{};
    event.type = INPUT_MOUSE;
    event.mi.dx = InParts(at.x, ::GetSystemMetrics(SM_CXSCREEN));
    event.mi.dy = InParts(at.y, ::GetSystemMetrics(SM_CYSCREEN));
    event.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | flags;
    event.mi.mouseData = data;
    return event;
}

// The keys apart from letters and digits that keyboards have in a block of their own.
bool IsExtended(WORD key) {
    switch (key) {
        case VK_UP:
        case VK_DOWN:
        case VK_LEFT:
        case VK_RIGHT:
        case VK_HOME:
        case VK_END:
        case VK_PRIOR:
        case VK_NEXT:
        case VK_INSERT:
        case VK_DELETE:
            return true;
        default:
            return false;
    }
}

INPUT Key(WORD key, DWORD flags) {
    INPUT event{};
    event.type = INPUT_KEYBOARD;
    event.ki.wVk = key;
    event.ki.wScan = static_cast<WORD>(::MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    event.ki.dwFlags = flags | (IsExtended(key) ? KEYEVENTF_EXTENDEDKEY : 0);
    return event;
}

// The screen reports to the window below the pointer that it was moved, and with that which keys
// are down on the screen's own keyboard: none. That must not come between a held key and the other.
void AwaitReports() {
    const ScreenPicture sent({0, 0, 1, 1});
    ::SendMessageTimeoutW(::GetForegroundWindow(), WM_NULL, 0, 0, SMTO_NORMAL, kAnswerTimeout,
                          nullptr);
}

}  // namespace

POINT MiddleOf(const RECT& area) {
    return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

void MovePointer(POINT to) {
    ::SetCursorPos(to.x, to.y);
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
    MovePointer(point);
    Send({PointerEvent(point, MOUSEEVENTF_LEFTDOWN), PointerEvent(point, MOUSEEVENTF_LEFTUP)});
}

void RollWheelAt(POINT point, int notches) {
    MovePointer(point);
    Send({PointerEvent(point, MOUSEEVENTF_WHEEL, static_cast<DWORD>(-notches * WHEEL_DELTA))});
}

void PressKey(WORD key, std::initializer_list<WORD> held) {
    if (held.size() > 0) AwaitReports();
    std::vector<INPUT> events;
    for (const WORD other : held) events.push_back(Key(other, 0));
    events.push_back(Key(key, 0));
    events.push_back(Key(key, KEYEVENTF_KEYUP));
    for (const WORD other : held) events.push_back(Key(other, KEYEVENTF_KEYUP));
    Send(std::move(events));
}

void TypeKeys(std::string_view characters) {
    for (const wchar_t character : platform::win32::Wide(characters)) {
        const SHORT key = ::VkKeyScanW(character);
        if (key == -1) throw std::runtime_error("no key gives this character");
        if (HIBYTE(key) & 1)
            PressKey(LOBYTE(key), {VK_SHIFT});
        else
            PressKey(LOBYTE(key));
    }
}

void CopyText(std::string_view text) {
    const std::wstring wide = platform::win32::Wide(text);
    const std::size_t size = (wide.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, size);
    std::memcpy(::GlobalLock(memory), wide.c_str(), size);
    ::GlobalUnlock(memory);
    if (!::OpenClipboard(nullptr)) throw std::runtime_error("no clipboard");
    ::EmptyClipboard();
    ::SetClipboardData(CF_UNICODETEXT, memory);
    ::CloseClipboard();
}

}  // namespace window
