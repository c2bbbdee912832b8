#include "window/window_driver.h"

#include <optional>
#include <stdexcept>

namespace window {

namespace {

using platform::win32::InspectedControl;

constexpr unsigned kLimit = 20000;        // ms
constexpr DWORD kPause = 3;               // ms between two looks
constexpr int kLooksBetweenNudges = 300;  // a tooltip needs half a second of rest

POINT pointer{};  // where it was put last; the system asks the screen, which may lag behind

std::optional<Seen> seen;  // the answer to the last question about a control

LRESULT CALLBACK TakeAnswer(HWND window, UINT id, WPARAM word, LPARAM number) {
    if (id != WM_COPYDATA) return ::DefWindowProcW(window, id, word, number);
    const auto& reply = *reinterpret_cast<const COPYDATASTRUCT*>(number);
    const auto* control = static_cast<const InspectedControl*>(reply.lpData);
    seen = Seen{*control,
                {reinterpret_cast<const char*>(control + 1), reply.cbData - sizeof *control}};
    return TRUE;
}

std::string TextOf(HWND window) {
    wchar_t text[4096] = L"";
    ::SendMessageW(window, WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text));
    return platform::win32::Narrow(text);
}

}  // namespace

// The pointer is nudged now and then: Wine loses a move that arrives while the program is taking in
// the one before.
void WaitUntil(const std::string& what, const std::function<bool()>& condition) {
    const unsigned long long start = ::GetTickCount64();
    for (int look = 1; !condition(); ++look) {
        if (::GetTickCount64() > start + kLimit)
            throw std::runtime_error("waited in vain for " + what);
        if (look % kLooksBetweenNudges == 0) ::SetCursorPos(pointer.x, pointer.y);
        ::Sleep(kPause);
    }
}

COLORREF ColorAt(POINT point) {
    static const HDC screen = ::GetDC(nullptr);
    return ::GetPixel(screen, point.x, point.y);
}

void WaitForColor(POINT point, COLORREF color) {
    WaitUntil("a colour on the screen", [&] { return ColorAt(point) == color; });
}

POINT MiddleOf(const RECT& area) {
    return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

// The event brings its place along, in parts of 65536 of the screen, rounded so that the system
// finds the pixel again: a late report of where the pointer was before cannot move it.
void MovePointer(POINT to, DWORD event, int data) {
    const auto parts = [](LONG pixel, int size) {
        return static_cast<DWORD>((pixel * 65536 + size - 1) / size);
    };
    pointer = to;
    ::SetCursorPos(to.x, to.y);
    ::mouse_event(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | event,
                  parts(to.x, ::GetSystemMetrics(SM_CXSCREEN)),
                  parts(to.y, ::GetSystemMetrics(SM_CYSCREEN)), static_cast<DWORD>(data), 0);
}

void ClickAt(POINT point) {
    MovePointer(point, MOUSEEVENTF_LEFTDOWN);
    MovePointer(point, MOUSEEVENTF_LEFTUP);
}

void PressKeys(std::initializer_list<BYTE> keys) {
    for (const BYTE key : keys)
        for (const DWORD release : {DWORD{0}, DWORD{KEYEVENTF_KEYUP}})
            ::keybd_event(key, 0, release, 0);
}

void TypeKeys(std::string_view text) {
    for (const wchar_t character : platform::win32::Wide(text))
        for (const DWORD release : {DWORD{0}, DWORD{KEYEVENTF_KEYUP}})
            ::keybd_event(0, static_cast<BYTE>(character), KEYEVENTF_UNICODE | release, 0);
}

HWND WaitForWindow(const std::string& title) {
    HWND window = nullptr;
    WaitUntil("a window " + title,
              [&] { return TextOf(window = ::GetForegroundWindow()).starts_with(title); });
    return window;
}

void EndWindow(HWND window, UINT message) {
    ::PostMessageW(window, message, 0, 0);
    WaitUntil("a window to close", [window] { return !::IsWindowVisible(window); });
}

std::string Answer(const std::string& title, int button) {
    const HWND dialog = WaitForWindow(title);
    const std::string said = TextOf(::GetDlgItem(dialog, 0xFFFF));
    EndWindow(::GetDlgItem(dialog, button), BM_CLICK);
    return said;
}

Seen Form::Look(std::string_view name) const {
    static const HWND asker =
        ::CreateWindowA("Static", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    ::SetWindowLongPtrW(asker, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&TakeAnswer));
    std::string question(name);
    COPYDATASTRUCT request{platform::win32::kInspectControl, static_cast<DWORD>(question.size()),
                           question.data()};
    seen.reset();
    ::SendMessageTimeoutW(Window, WM_COPYDATA, reinterpret_cast<WPARAM>(asker),
                          reinterpret_cast<LPARAM>(&request), SMTO_ABORTIFHUNG, kLimit, nullptr);
    if (!seen) throw std::runtime_error("the window tells nothing of " + question);
    if (seen->Window) seen->Text = TextOf(seen->Window);
    return *seen;
}

void Form::WaitFor(std::string_view name, const std::string& text) const {
    WaitUntil(std::string(name) + " to say " + text, [&] { return Ask(name) == text; });
}

void Form::WaitForFocus(std::string_view name) const {
    const HWND wanted = Look(name).Window;
    WaitUntil("the keyboard to come to " + std::string(name), [&] {
        GUITHREADINFO front{};
        front.cbSize = sizeof front;
        ::GetGUIThreadInfo(0, &front);
        return front.hwndFocus == wanted || ::GetParent(front.hwndFocus) == wanted;
    });
}

void Form::WaitForQuiet() const {
    WaitUntil("a window to take input",
              [this] { return ::IsWindowEnabled(Window) && ::GetForegroundWindow() == Window; });
}

void Form::Point(std::string_view name, DWORD event, int data) const {
    WaitUntil(std::string(name) + " to be shown", [&] { return Look(name).Shown; });
    MovePointer(MiddleOf(Look(name).Area), event, data);
}

void Form::Click(std::string_view name) const {
    WaitForQuiet();
    Point(name, MOUSEEVENTF_LEFTDOWN);
    Point(name, MOUSEEVENTF_LEFTUP);
}

}  // namespace window
