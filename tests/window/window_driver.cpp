#include "window/window_driver.h"

#include <algorithm>
#include <array>
#include <exception>
#include <stdexcept>

#include "platform/win32/text_conversion.h"
#include "window/input.h"
#include "window/screen_picture.h"

namespace window {

namespace {

using platform::win32::Narrow;
using platform::win32::Wide;

constexpr DWORD kPause = 3;  // ms between two looks
constexpr int kPicturesAtRest = 30;

constexpr std::array kCellsFromLeft = {"sTYPE", "sFile1", "sSize1", "sMD1",
                                       "sMAC",  "sFile2", "sSize2", "sMD2"};
constexpr int kPageRows = 25;

std::wstring ProgramPath() {
    std::wstring path(32768, L'\0');
    path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.find_last_of(L'\\') + 1) + Wide(VARNEL_EXE_NAME);
}

PROCESS_INFORMATION StartProgram(const std::string& arguments) {
    const std::wstring path = ProgramPath();
    std::wstring line = L"\"" + path + L"\"" + (arguments.empty() ? L"" : L" ") + Wide(arguments);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (!::CreateProcessW(path.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                          &start, &process))
        throw std::runtime_error("cannot start " + Narrow(path));
    return process;
}

// The control that has the keyboard in a window's thread.
HWND FocusOf(HWND window) {
    GUITHREADINFO state{};
    state.cbSize = sizeof state;
    ::GetGUIThreadInfo(::GetWindowThreadProcessId(window, nullptr), &state);
    return state.hwndFocus;
}

struct WindowSearch {
    DWORD Process;
    std::vector<HWND> Found;
};

BOOL CALLBACK NoteWindow(HWND window, LPARAM argument) {
    auto& search = *reinterpret_cast<WindowSearch*>(argument);
    DWORD process = 0;
    ::GetWindowThreadProcessId(window, &process);
    if (::IsWindowVisible(window) && (search.Process == 0 || process == search.Process))
        search.Found.push_back(window);
    return TRUE;
}

bool IsFirstView(const std::string& heading) {
    return heading.starts_with("New and Modified Files:") || heading.starts_with("Same Files:");
}

std::string Listed(const Texts& texts) {
    std::string list;
    for (const std::string& text : texts) list += "\n  " + text;
    return list;
}

}  // namespace

void WaitUntil(const std::string& what, const std::function<bool()>& condition, unsigned limit) {
    const unsigned long long end = ::GetTickCount64() + limit;
    while (!condition()) {
        if (::GetTickCount64() > end) throw std::runtime_error("waited in vain for " + what);
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
    RECT area;
    ::GetWindowRect(window, &area);
    return area;
}

std::string ClassOf(HWND window) {
    wchar_t name[256] = L"";
    ::GetClassNameW(window, name, 256);
    return Narrow(name);
}

std::vector<HWND> TopWindows(DWORD process) {
    WindowSearch search{process, {}};
    ::EnumWindows(&NoteWindow, reinterpret_cast<LPARAM>(&search));
    return search.Found;
}

Seen Form::Look(std::string_view name) const {
    auto seen = Inspect(window_, name);
    if (!seen) throw std::runtime_error("there is no " + std::string(name));
    return *std::move(seen);
}

POINT Form::PlaceOf(std::string_view name) const {
    const Seen seen = Look(name);
    if (!seen.Visible) throw std::runtime_error(std::string(name) + " is not shown");
    return MiddleOf(seen.Area);
}

void Form::Point(std::string_view name) const {
    MovePointer(PlaceOf(name));
}

void Form::Click(std::string_view name) const {
    ClickAt(PlaceOf(name));
}

void Form::Set(std::string_view name, bool value) const {
    if (Look(name).Value == value) return;
    Click(name);
    WaitFor(name, "the other value", [value](const Seen& seen) { return seen.Value == value; });
}

void Form::Type(std::string_view name, std::string_view keys) const {
    Click(name);
    WaitForFocus(name);
    PressKey('A', {VK_CONTROL});
    PressKey(VK_DELETE);
    TypeKeys(keys);
}

void Form::Paste(std::string_view name, std::string_view text) const {
    Type(name, "");
    CopyText(text);
    PressKey('V', {VK_CONTROL});
}

void Form::RunMenu(std::string_view name) const {
    ::PostMessageW(window_, WM_COMMAND, static_cast<WPARAM>(Look(name).Value), 0);
}

void Form::WaitFor(std::string_view name, const std::string& what,
                   const std::function<bool(const Seen&)>& condition) const {
    WaitUntil(std::string(name) + ": " + what, [&] { return condition(Look(name)); });
}

void Form::WaitForText(std::string_view name, std::string_view text) const {
    std::string last;
    try {
        WaitUntil("", [&] { return (last = Text(name)) == text; });
    } catch (const std::runtime_error&) {
        throw std::runtime_error(std::string(name) + " does not say \"" + std::string(text) +
                                 "\" but \"" + last + "\"");
    }
}

void Form::WaitForFocus(std::string_view name) const {
    const HWND wanted = Look(name).Window;
    WaitUntil("the keyboard to come to " + std::string(name), [&] {
        const HWND focus = FocusOf(window_);
        return focus == wanted || (focus && ::GetParent(focus) == wanted);
    });
}

ScreenPicture Form::WaitForPicture(
    const std::function<bool(const ScreenPicture&)>& condition) const {
    std::optional<ScreenPicture> picture;
    WaitUntil("the picture of the window",
              [&] { return condition(picture.emplace(AreaOf(window_))); });
    return *std::move(picture);
}

ScreenPicture Form::TakePicture() const {
    ScreenPicture last(AreaOf(window_));
    int same = 0;
    return WaitForPicture([&](const ScreenPicture& picture) {
        same = picture == last ? same + 1 : 0;
        last = picture;
        return same == kPicturesAtRest;
    });
}

Program::Program(const std::string& arguments) : Program(StartProgram(arguments)) {}

Program::Program(const PROCESS_INFORMATION& started)
    : Form(nullptr),
      process_(started.hProcess),
      thread_(started.hThread),
      id_(started.dwProcessId) {
    ParkPointer();
    window_ = WaitForWindow("FormMain", " Varnel ,  Version 8.12");
    WaitUntil("the window to come to the front",
              [this] { return ::GetForegroundWindow() == window_ && FocusOf(window_); });
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

void Program::Close() const {
    ::PostMessageW(window_, WM_SYSCOMMAND, SC_CLOSE, 0);
    WaitForEnd();
}

void Program::Pause() const {
    if (::SuspendThread(thread_.Get()) == static_cast<DWORD>(-1))
        throw std::runtime_error("the program cannot be paused");
}

void Program::Resume() const {
    ::ResumeThread(thread_.Get());
}

HWND Program::WaitForWindow(std::string_view windowClass, std::string_view title) const {
    HWND found = nullptr;
    const auto matches = [&](HWND window) {
        return (windowClass.empty() || ClassOf(window) == windowClass) &&
               (title.empty() || TextOf(window) == title);
    };
    WaitUntil("a window " + std::string(windowClass) + " \"" + std::string(title) + "\"", [&] {
        if (HasEnded()) throw std::runtime_error("the program has ended");
        const std::vector<HWND> windows = TopWindows(id_);
        const auto window = std::find_if(windows.begin(), windows.end(), matches);
        found = window == windows.end() ? nullptr : *window;
        return found != nullptr;
    });
    return found;
}

void Program::WaitForQuiet() const {
    WaitUntil("the main window to be in front",
              [this] { return ::IsWindowEnabled(window_) && ::GetForegroundWindow() == window_; });
}

// The heading tells when a comparison is over, so it must say something else before.
void Program::Compare(unsigned limit) const {
    if (IsFirstView(Text("LabelShow"))) {
        Click("LabelNewFile");
        WaitFor("LabelShow", "another view",
                [](const Seen& seen) { return !IsFirstView(seen.Text); });
    }
    Click("Command3");
    const auto isOver = [this] {
        if (!::IsWindowEnabled(window_))
            throw std::runtime_error("the comparison ends in a message");
        return IsFirstView(Text("LabelShow")) && Text("Command3") == "Compare";
    };
    WaitUntil("the result of the comparison", isOver, limit);
}

std::string Program::Cell(std::string_view kind, int row) {
    return std::string(kind) + "(" + std::to_string(row) + ")";
}

Texts Program::Rows() const {
    Texts rows;
    for (int row = 0; row < kPageRows; ++row) {
        std::string text;
        for (const char* kind : kCellsFromLeft) text += Text(Cell(kind, row)) + "|";
        text.pop_back();
        if (text.find_first_not_of('|') == std::string::npos) break;
        rows.push_back(text);
    }
    return rows;
}

void Program::WaitForRows(const Texts& rows) const {
    Texts last;
    try {
        WaitUntil("", [&] { return (last = Rows()) == rows; });
    } catch (const std::runtime_error&) {
        throw std::runtime_error("the rows are not" + Listed(rows) + "\nbut" + Listed(last));
    }
}

}  // namespace window
