#include "window/screen.h"

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

void SendKey(WORD key, DWORD flags, WORD character = 0) {
    INPUT event{};
    event.type = INPUT_KEYBOARD;
    event.ki.wVk = key;
    event.ki.wScan = character;
    event.ki.dwFlags = flags;
    Send(event);
}

}  // namespace

COLORREF ColorAt(POINT point) {
    const HDC screen = ::GetDC(nullptr);
    const COLORREF color = ::GetPixel(screen, point.x, point.y);
    ::ReleaseDC(nullptr, screen);
    return color;
}

std::string PictureOf(const RECT& area) {
    const LONG width = area.right - area.left, height = area.bottom - area.top;
    BITMAPINFO format{};
    format.bmiHeader = {sizeof format.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    const HDC screen = ::GetDC(nullptr);
    const HDC canvas = ::CreateCompatibleDC(screen);
    void* bits = nullptr;
    const HBITMAP bitmap = ::CreateDIBSection(canvas, &format, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (!bitmap) throw std::runtime_error("no room for a picture of the screen");
    const HGDIOBJ before = ::SelectObject(canvas, bitmap);
    ::BitBlt(canvas, 0, 0, width, height, screen, area.left, area.top, SRCCOPY);
    ::GdiFlush();
    BITMAPFILEHEADER header{};
    header.bfType = 'B' | 'M' << 8;
    header.bfOffBits = sizeof header + sizeof format.bmiHeader;
    header.bfSize = header.bfOffBits + static_cast<DWORD>(width * height) * 4;
    std::string file(reinterpret_cast<const char*>(&header), sizeof header);
    file.append(reinterpret_cast<const char*>(&format.bmiHeader), sizeof format.bmiHeader);
    file.append(static_cast<const char*>(bits), header.bfSize - header.bfOffBits);
    ::SelectObject(canvas, before);
    ::DeleteObject(bitmap);
    ::DeleteDC(canvas);
    ::ReleaseDC(nullptr, screen);
    return file;
}

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
        SendKey(0, KEYEVENTF_UNICODE, character);
        SendKey(0, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP, character);
    }
}

}  // namespace window
