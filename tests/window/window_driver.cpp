#include "window/window_driver.h"

#include <exception>
#include <optional>
#include <stdexcept>

#include "platform/win32/text_conversion.h"

namespace window {

namespace {

using platform::win32::Narrow;
using platform::win32::Wide;

constexpr DWORD kPause = 3;               // ms between two looks
constexpr unsigned kBetweenNudges = 800;  // ms; a tooltip needs half a second of rest
constexpr int kPageRows = 25;

// Looks for the program beside this one first.
PROCESS_INFORMATION StartProgram(const std::string& arguments) {
    std::wstring line = Wide("\"" VARNEL_EXE_NAME "\" " + arguments);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (!::CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                          &start, &process))
        throw std::runtime_error("cannot start the program");
    return process;
}

// The control that has the keyboard in a window's thread.
HWND FocusOf(HWND window) {
    GUITHREADINFO state{};
    state.cbSize = sizeof state;
    ::GetGUIThreadInfo(::GetWindowThreadProcessId(window, nullptr), &state);
    return state.hwndFocus;
}

bool IsFirstView(const std::string& heading) {
    return heading.starts_with("New and Modified Files:") || heading.starts_with("Same Files:");
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
    const LRESULT length = ::SendMessageW(window, WM_GETTEXTLENGTH, 0, 0);
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    text.resize(static_cast<std::size_t>(
        ::SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
    return Narrow(text);
}

RECT AreaOf(HWND window) {
    RECT area{};
    ::GetWindowRect(window, &area);
    return area;
}

std::string ClassOf(HWND window) {
    wchar_t name[256] = L"";
    ::GetClassNameW(window, name, 256);
    return Narrow(name);
}

std::vector<HWND> TopWindows(DWORD process) {
    std::vector<HWND> windows;
    for (HWND window = ::GetTopWindow(nullptr); window; window = ::GetWindow(window, GW_HWNDNEXT)) {
        DWORD owner = 0;
        ::GetWindowThreadProcessId(window, &owner);
        if (::IsWindowVisible(window) && (process == 0 || owner == process))
            windows.push_back(window);
    }
    return windows;
}

HWND WaitForWindow(DWORD process, std::string_view windowClass, std::string_view title) {
    HWND found = nullptr;
    WaitUntil("a window " + std::string(windowClass) + " \"" + std::string(title) + "\"", [&] {
        for (const HWND window : TopWindows(process))
            if ((windowClass.empty() || ClassOf(window) == windowClass) &&
                TextOf(window).find(title) != std::string::npos)
                return (found = window) != nullptr;
        return false;
    });
    return found;
}

void CloseWindowOf(HWND window) {
    ::PostMessageW(window, WM_CLOSE, 0, 0);
    Form(window).WaitUntilClosed();
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

void Form::Set(std::string_view name, bool value) const {
    if (Look(name).Value == value) return;
    Click(name);
    WaitForValue(name, value);
}

void Form::Type(std::string_view name, std::string_view keys) const {
    Click(name);
    WaitForFocus(name);
    ::SendMessageW(FocusOf(window_), EM_SETSEL, 0, -1);
    TypeKeys(keys);
}

void Form::Fill(std::string_view name, std::string_view text) const {
    const HWND control = Look(name).Window;
    const HWND inner = ::GetWindow(control, GW_CHILD);
    const HWND field = inner ? inner : control;
    ::SendMessageW(field, EM_SETSEL, 0, -1);
    ::SendMessageW(field, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(Wide(text).c_str()));
    WaitForText(name, text);
}

void Form::RunMenu(std::string_view name) const {
    WaitForQuiet();
    ::PostMessageW(window_, WM_COMMAND, static_cast<WPARAM>(Look(name).Value), 0);
}

void Form::WaitFor(std::string_view name, const std::function<bool(const Seen&)>& condition) const {
    WaitUntil(std::string(name), [&] { return condition(Look(name)); });
}

void Form::WaitForValue(std::string_view name, int value) const {
    WaitFor(name, [value](const Seen& seen) { return seen.Value == value; });
}

void Form::WaitForText(std::string_view name, std::string_view text) const {
    WaitUntil(std::string(name) + " to say \"" + std::string(text) + '"',
              [&] { return Text(name) == text; });
}

void Form::WaitForFocus(std::string_view name) const {
    const HWND wanted = Look(name).Window;
    WaitUntil("the keyboard to come to " + std::string(name), [&] {
        const HWND focus = FocusOf(window_);
        return focus == wanted || (focus && ::GetParent(focus) == wanted);
    });
}

void Form::WaitUntilShown(std::string_view name, bool shown) const {
    WaitFor(name, [shown](const Seen& seen) { return seen.Visible == shown; });
}

void Form::WaitUntilClosed() const {
    WaitUntil("a window to close",
              [this] { return !::IsWindow(window_) || !::IsWindowVisible(window_); });
}

ScreenPicture Form::WaitForColor(POINT at, COLORREF color) const {
    std::optional<ScreenPicture> picture;
    WaitUntil("a colour on the screen",
              [&] { return picture.emplace(AreaOf(window_)).At(at.x, at.y) == color; });
    return *std::move(picture);
}

Program::Program(const std::string& arguments) : Program(StartProgram(arguments)) {}

Program::Program(const PROCESS_INFORMATION& started)
    : Form(nullptr),
      process_(started.hProcess),
      thread_(started.hThread),
      id_(started.dwProcessId) {
    ParkPointer();
    window_ = WaitForWindow(id_, "FormMain", " Varnel ,  Version 8.12");
    WaitForQuiet();
    WaitUntil("the keyboard", [this] { return FocusOf(window_) != nullptr; });
    // By then the program has heard what the screen tells of a new window.
    const Seen cell = Look("sFile1(9)");
    WaitForColor({cell.Area.left, cell.Area.top}, cell.Back);
}

Program::~Program() {
    if (std::uncaught_exceptions() > 0) ScreenPicture::OfAll().Save(PictureOfFailure);
    if (HasEnded()) return;
    ::TerminateProcess(process_.Get(), 99);
    ::WaitForSingleObject(process_.Get(), INFINITE);
}

bool Program::HasEnded() const {
    return ::WaitForSingleObject(process_.Get(), 0) == WAIT_OBJECT_0;
}

unsigned Program::WaitForEnd() const {
    WaitUntil("the program to end", [this] { return HasEnded(); });
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
    if (IsFirstView(Text("LabelShow"))) {
        Click("LabelNewFile");
        WaitFor("LabelShow", [](const Seen& seen) { return !IsFirstView(seen.Text); });
    }
    Click("Command3");
    WaitUntil(
        "the result of the comparison",
        [this] { return IsFirstView(Text("LabelShow")) && Text("Command3") == "Compare"; }, limit);
}

std::string Program::Cell(std::string_view kind, int row) {
    return std::string(kind) + "(" + std::to_string(row) + ")";
}

Texts Program::Rows() const {
    Texts rows;
    for (int row = 0; row < kPageRows && !Text(Cell("sTYPE", row)).empty(); ++row) {
        std::string text = Text(Cell("sTYPE", row));
        for (const char* kind : {"sFile1", "sSize1", "sMD1", "sMAC", "sFile2", "sSize2", "sMD2"})
            text += "|" + Text(Cell(kind, row));
        rows.push_back(text);
    }
    return rows;
}

}  // namespace window
