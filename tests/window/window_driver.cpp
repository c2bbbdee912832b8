#include "window/window_driver.h"

#include <cstdio>
#include <iterator>
#include <stdexcept>

#include <process.h>

#include "platform/win32/control_inspection.h"
#include "platform/win32/text_conversion.h"

namespace window {

namespace {

using platform::win32::Wide;

constexpr unsigned kLimit = 20000;        // ms
constexpr DWORD kPause = 3;               // ms between two looks
constexpr int kLooksBetweenNudges = 300;  // a tooltip needs half a second of rest

HANDLE StartProgram(const std::string& arguments) {
    return reinterpret_cast<HANDLE>(
        ::_wspawnl(_P_NOWAIT, L"Varnel.exe", L"Varnel.exe", Wide(arguments).c_str(), nullptr));
}

std::string answer;  // to the last question about a control

LRESULT CALLBACK TakeAnswer(HWND window, UINT id, WPARAM word, LPARAM number) {
    if (id != WM_COPYDATA) return ::DefWindowProcW(window, id, word, number);
    const auto& reply = *reinterpret_cast<const COPYDATASTRUCT*>(number);
    answer = '\n' + std::string(static_cast<const char*>(reply.lpData), reply.cbData);
    return TRUE;
}

// The window that answers are sent to.
HWND MakeAsker() {
    const HWND asker =
        ::CreateWindowA("Static", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    ::SetWindowLongPtrW(asker, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&TakeAnswer));
    return asker;
}

}  // namespace

void WaitUntil(const std::string& what, const std::function<bool()>& condition) {
    const unsigned long long start = ::GetTickCount64();
    for (int look = 1; !condition(); ++look) {
        if (::GetTickCount64() > start + kLimit)
            throw std::runtime_error("waited in vain for " + what);
        if (look % kLooksBetweenNudges == 0) NudgePointer();
        ::Sleep(kPause);
    }
}

void WaitForColor(POINT at, COLORREF color) {
    WaitUntil("a colour on the screen", [&] { return ColorAt(at) == color; });
}

std::string TextOf(HWND window) {
    wchar_t text[4096] = L"";
    ::SendMessageW(window, WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text));
    return platform::win32::Narrow(text);
}

RECT AreaOf(HWND window) {
    RECT area{};
    ::GetWindowRect(window, &area);
    return area;
}

POINT MiddleOf(const RECT& area) {
    return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

HWND WaitForWindow(const char* windowClass, const std::string& title) {
    HWND window = nullptr;
    WaitUntil("a window " + title, [&] {
        do window = ::FindWindowExA(nullptr, window, windowClass, nullptr);
        while (window &&
               (!::IsWindowVisible(window) || TextOf(window).find(title) == std::string::npos));
        return window != nullptr;
    });
    return window;
}

void EndWindow(HWND window, UINT message, WPARAM word) {
    ::PostMessageW(window, message, word, 0);
    WaitUntil("a window to close", [window] { return !::IsWindowVisible(window); });
}

std::string Answer(int button) {
    const HWND dialog = WaitForWindow("#32770");
    const std::string said = TextOf(dialog) + ": " + TextOf(::GetDlgItem(dialog, 0xFFFF));
    EndWindow(::GetDlgItem(dialog, button), BM_CLICK);
    return said;
}

void AnswerFileName(const std::string& title, std::string_view path) {
    const HWND dialog = WaitForWindow("#32770", title);
    HWND field = ::GetDlgItem(dialog, 0x47C);  // on some systems within a combo box
    while (const HWND inner = ::GetWindow(field, GW_CHILD)) field = inner;
    ::SendMessageW(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(Wide(path).c_str()));
    EndWindow(dialog, WM_COMMAND, IDOK);
}

std::string Form::Ask(std::string_view name, const std::string& key) const {
    static const HWND asker = MakeAsker();
    std::string question(name);
    COPYDATASTRUCT request{platform::win32::kInspectControl, static_cast<DWORD>(question.size()),
                           question.data()};
    answer.clear();
    ::SendMessageTimeoutW(window_, WM_COPYDATA, reinterpret_cast<WPARAM>(asker),
                          reinterpret_cast<LPARAM>(&request), SMTO_ABORTIFHUNG, kLimit, nullptr);
    const std::size_t at = answer.find("\n" + key + "=");
    if (at == answer.npos) throw std::runtime_error("the window tells nothing of " + question);
    const std::string said = answer.substr(at + key.size() + 2);
    if (key != "text") return said.substr(0, said.find('\n'));
    const HWND control = Control(name);
    const std::string shown = control ? TextOf(control) : said;
    return said == shown ? said : said + ", shown as " + shown;
}

RECT Form::Area(std::string_view name) const {
    RECT area{};
    std::sscanf(Ask(name, "area").c_str(), "%ld,%ld,%ld,%ld", &area.left, &area.top, &area.right,
                &area.bottom);
    return area;
}

HWND Form::Control(std::string_view name) const {
    return reinterpret_cast<HWND>(std::stoll(Ask(name, "window")));
}

void Form::WaitFor(std::string_view name, const std::string& value, const std::string& key) const {
    WaitUntil(std::string(name) + " with the " + key + " " + value,
              [&] { return Ask(name, key) == value; });
}

void Form::WaitForFocus(std::string_view name) const {
    const HWND wanted = Control(name);
    WaitUntil("the keyboard to come to " + std::string(name), [&] {
        GUITHREADINFO front{};
        front.cbSize = sizeof front;
        ::GetGUIThreadInfo(0, &front);
        return front.hwndFocus == wanted || ::GetParent(front.hwndFocus) == wanted;
    });
}

void Form::WaitForQuiet() const {
    WaitUntil("a window to take input",
              [this] { return ::IsWindowEnabled(window_) && ::GetForegroundWindow() == window_; });
}

POINT Form::PlaceOf(std::string_view name) const {
    if (Ask(name, "visible") != "1") throw std::runtime_error(std::string(name) + " is not shown");
    return MiddleOf(Area(name));
}

void Form::Click(std::string_view name) const {
    WaitForQuiet();
    ClickAt(PlaceOf(name));
}

void Form::Type(std::string_view name, std::string_view keys) const {
    Click(name);
    WaitForFocus(name);
    TypeKeys(keys);
}

void Form::RunMenu(std::string_view name) const {
    WaitForQuiet();
    ::PostMessageW(window_, WM_COMMAND, std::stoul(Ask(name, "value")), 0);
}

Program::Program(const std::string& arguments) : Program(StartProgram(arguments)) {
    MovePointer({::GetSystemMetrics(SM_CXSCREEN) - 1, ::GetSystemMetrics(SM_CYSCREEN) - 1});
    window_ = WaitForWindow("FormMain", " Varnel ,  Version 8.12");
    WaitForQuiet();
    WaitForFocus("Combo1");
    // By then the program has heard what the screen tells of a new window.
    const RECT cell = Area("sFile1(9)");
    WaitForColor({cell.left, cell.top}, 0xFFFFC0);
}

Program::~Program() {
    ::TerminateProcess(process_.Get(), 99);  // does nothing to one that has ended
    WaitForEnd();
}

DWORD Program::WaitForEnd() const {
    DWORD status = 0;
    ::WaitForSingleObject(process_.Get(), kLimit);
    ::GetExitCodeProcess(process_.Get(), &status);
    return status;
}

// The heading tells when a comparison is over, so it must say something else before.
void Program::Compare() const {
    const std::string before = Ask("LabelShow");
    Click("Command3");
    WaitUntil("the result of the comparison",
              [&] { return Ask("LabelShow") != before && Ask("Command3") == "Compare"; });
}

}  // namespace window
