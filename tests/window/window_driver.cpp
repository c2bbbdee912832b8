#include "window/window_driver.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "platform/win32/control_inspection.h"
#include "platform/win32/text_conversion.h"

namespace window {

namespace {

using platform::win32::Wide;

constexpr DWORD kPause = 3;               // ms between two looks
constexpr unsigned kBetweenNudges = 800;  // ms; a tooltip needs half a second of rest

// Looks for the program beside this one first.
PROCESS_INFORMATION StartProgram(const std::string& arguments) {
    std::wstring line = Wide("\"" VARNEL_EXE_NAME "\" " + arguments);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (!::CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                          &start, &process))
        throw std::runtime_error("cannot start the program");
    ::CloseHandle(process.hThread);
    return process;
}

std::string answer;  // to the last question about a control

LRESULT CALLBACK TakeAnswer(HWND window, UINT id, WPARAM word, LPARAM number) {
    if (id != WM_COPYDATA) return ::DefWindowProcW(window, id, word, number);
    const auto& reply = *reinterpret_cast<const COPYDATASTRUCT*>(number);
    answer.assign(static_cast<const char*>(reply.lpData), reply.cbData);
    return TRUE;
}

// The window that answers are sent to.
HWND MakeAsker() {
    const HWND asker = ::CreateWindowExW(0, L"Static", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                         nullptr, nullptr);
    ::SetWindowLongPtrW(asker, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&TakeAnswer));
    return asker;
}

// What the answer says of this and all that follows; nothing when it does not speak of it.
const char* Said(const std::string& key) {
    const std::size_t at = answer.find("\n" + key + "=");
    return at == std::string::npos ? "" : answer.c_str() + at + key.size() + 2;
}

}  // namespace

void WaitUntil(const std::string& what, const std::function<bool()>& condition, unsigned limit) {
    const unsigned long long start = ::GetTickCount64();
    unsigned long long nudge = start + kBetweenNudges;
    while (!condition()) {
        const unsigned long long now = ::GetTickCount64();
        if (now > start + limit) throw std::runtime_error("waited in vain for " + what);
        if (now > nudge) {
            NudgePointer();
            nudge = now + kBetweenNudges;
        }
        ::Sleep(kPause);
    }
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

HWND WaitForWindow(DWORD process, const char* windowClass, const std::string& title) {
    HWND window = nullptr;
    WaitUntil("a window " + title, [&] {
        while ((window = ::FindWindowExA(nullptr, window, windowClass, nullptr))) {
            DWORD owner = 0;
            ::GetWindowThreadProcessId(window, &owner);
            if (::IsWindowVisible(window) && (process == 0 || owner == process) &&
                TextOf(window).find(title) != std::string::npos)
                return true;
        }
        return false;
    });
    return window;
}

void EndWindow(HWND window, UINT message, WPARAM word) {
    ::PostMessageW(window, message, word, 0);
    WaitUntil("a window to close", [window] { return !::IsWindowVisible(window); });
}

void WaitForColor(POINT at, COLORREF color) {
    WaitUntil("a colour on the screen", [&] { return ColorAt(at) == color; });
}

Seen Form::Look(std::string_view name) const {
    static const HWND asker = MakeAsker();
    std::string question(name);
    COPYDATASTRUCT request{platform::win32::kInspectControl, static_cast<DWORD>(question.size()),
                           question.data()};
    answer.clear();
    ::SendMessageTimeoutW(window_, WM_COPYDATA, reinterpret_cast<WPARAM>(asker),
                          reinterpret_cast<LPARAM>(&request), SMTO_ABORTIFHUNG, kLimit, nullptr);
    if (answer.empty()) throw std::runtime_error("the window tells nothing of " + question);
    Seen seen;
    RECT& area = seen.Area;
    seen.Visible = *Said("visible") == '1';
    seen.Bold = *Said("bold") == '1';
    seen.Back = std::strtoul(Said("back"), nullptr, 16);
    seen.Value = std::atoi(Said("value"));
    std::sscanf(Said("area"), "%ld,%ld,%ld,%ld", &area.left, &area.top, &area.right, &area.bottom);
    seen.Window = reinterpret_cast<HWND>(std::strtoll(Said("window"), nullptr, 10));
    seen.Text = Said("text");
    if (seen.Window && TextOf(seen.Window) != seen.Text)
        seen.Text += ", shown as " + TextOf(seen.Window);
    return seen;
}

POINT Form::PlaceOf(std::string_view name) const {
    const Seen seen = Look(name);
    if (!seen.Visible) throw std::runtime_error(std::string(name) + " is not shown");
    return MiddleOf(seen.Area);
}

void Form::WaitForQuiet() const {
    WaitUntil("a window to take input",
              [this] { return ::IsWindowEnabled(window_) && ::GetForegroundWindow() == window_; });
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
    ::PostMessageW(window_, WM_COMMAND, static_cast<WPARAM>(Look(name).Value), 0);
}

void Form::WaitForFocus(std::string_view name) const {
    const HWND wanted = Look(name).Window;
    const DWORD thread = ::GetWindowThreadProcessId(window_, nullptr);
    WaitUntil("the keyboard to come to " + std::string(name), [&] {
        GUITHREADINFO state{};
        state.cbSize = sizeof state;
        ::GetGUIThreadInfo(thread, &state);
        return state.hwndFocus == wanted || ::GetParent(state.hwndFocus) == wanted;
    });
}

Program::Program(const std::string& arguments) : Program(StartProgram(arguments)) {}

Program::Program(const PROCESS_INFORMATION& started)
    : Form(nullptr), process_(started.hProcess), id_(started.dwProcessId) {
    ParkPointer();
    window_ = WaitForWindow(id_, "FormMain", " Varnel ,  Version 8.12");
    WaitForQuiet();
    WaitForFocus("Combo1");
    // By then the program has heard what the screen tells of a new window.
    const Seen cell = Look("sFile1(9)");
    WaitForColor({cell.Area.left, cell.Area.top}, cell.Back);
}

Program::~Program() {
    if (std::uncaught_exceptions() > 0)
        std::ofstream("window-failure.bmp", std::ios::binary)
            << PictureOf(AreaOf(::GetDesktopWindow()));
    ::TerminateProcess(process_.Get(), 99);  // does nothing to one that has ended
    ::WaitForSingleObject(process_.Get(), INFINITE);
}

unsigned Program::WaitForEnd() const {
    if (::WaitForSingleObject(process_.Get(), kLimit) != WAIT_OBJECT_0)
        throw std::runtime_error("the program does not end");
    DWORD status = 0;
    ::GetExitCodeProcess(process_.Get(), &status);
    return status;
}

unsigned Program::Close() const {
    ::PostMessageW(window_, WM_SYSCOMMAND, SC_CLOSE, 0);
    return WaitForEnd();
}

// The heading tells when a comparison is over, so it must say something else before.
void Program::Compare(unsigned limit) const {
    const std::string before = Text("LabelShow");
    Click("Command3");
    WaitUntil(
        "the result of the comparison",
        [&] { return Text("LabelShow") != before && Text("Command3") == "Compare"; }, limit);
}

}  // namespace window
