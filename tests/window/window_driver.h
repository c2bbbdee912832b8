// Starts Varnel.exe and does with it what a user does: looks at its windows, points, clicks, waits.
//
// Whatever does not happen in time, or at all, is thrown as a std::runtime_error that says what it
// was. Nothing here waits for a time to pass: every wait is for something that can be seen.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <windows.h>

#include "platform/win32/handle.h"
#include "window/input.h"
#include "window/inspection.h"
#include "window/screen_picture.h"

namespace window {

using Texts = std::vector<std::string>;

inline constexpr unsigned kLimit = 20000;  // of a wait, in ms

// Returns when `condition` holds; throws when the limit is over. The pointer is nudged now and
// then: Wine loses a move that arrives while the program is taking in the one before.
void WaitUntil(const std::string& what, const std::function<bool()>& condition,
               unsigned limit = kLimit);

std::string TextOf(HWND window);
std::string ClassOf(HWND window);
RECT AreaOf(HWND window);  // in pixels of the screen

// The visible windows of a process, or of all if it is 0; the front one first.
std::vector<HWND> TopWindows(DWORD process);

// Waits for the window of such a process whose class is this one (any if it is empty) and whose
// title has this part.
HWND WaitForWindow(DWORD process, std::string_view windowClass, std::string_view title);

// Has another program's window closed, and returns when it is gone.
void CloseWindowOf(HWND window);

// One of the program's windows with controls of fixed names.
class Form {
  public:
    explicit Form(HWND window) : window_(window) {}

    HWND Window() const { return window_; }

    Seen Look(std::string_view name) const { return Inspect(window_, name); }
    std::string Text(std::string_view name) const { return Look(name).Text; }
    bool Shows(std::string_view name) const { return Look(name).Visible; }

    // The middle of a control that is shown, on the screen.
    POINT PlaceOf(std::string_view name) const;

    // Returns when the window is in front and takes input.
    void WaitForQuiet() const;

    // The real pointer goes to the middle of the control; the button goes down and up once the
    // window is quiet.
    void Point(std::string_view name) const { MovePointer(PlaceOf(name)); }
    void Click(std::string_view name) const;

    // Clicks a check box or an option and waits until it has the value.
    void Set(std::string_view name, bool value = true) const;

    // Replaces the text of a field: by the keyboard, or by a message, where typing is not the
    // point. The latter waits until the program has the text.
    void Type(std::string_view name, std::string_view keys) const;
    void Fill(std::string_view name, std::string_view text) const;

    // Once the window is quiet, the program reads a command of the menu, as when the menu sends it.
    void RunMenu(std::string_view name) const;

    void WaitFor(std::string_view name, const std::function<bool(const Seen&)>& condition) const;
    void WaitForValue(std::string_view name, int value) const;
    void WaitForText(std::string_view name, std::string_view text) const;
    void WaitForFocus(std::string_view name) const;
    void WaitUntilShown(std::string_view name, bool shown = true) const;
    void WaitUntilClosed() const;

    // A picture of the window, as soon as a point on the screen has this colour.
    ScreenPicture WaitForColor(POINT at, COLORREF color) const;

  protected:
    HWND window_;
};

// A running program and its main window.
class Program : public Form {
  public:
    // Returns when the window is seen on the screen and takes the keys. The pointer is far from it.
    explicit Program(const std::string& arguments = {});
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    DWORD Id() const { return id_; }
    bool HasEnded() const;
    unsigned WaitForEnd() const;  // its exit status
    unsigned Close() const;       // by the cross of its window; its exit status

    // The program stands still in between; what is sent to it meanwhile waits.
    void Pause() const { ::SuspendThread(thread_.Get()); }
    void Resume() const { ::ResumeThread(thread_.Get()); }

    // Clicks Compare and waits for the result.
    void Compare(unsigned limit = kLimit) const;

    // The rows of the grid that are not empty: the texts of the cells from left to right, a bar
    // between them.
    Texts Rows() const;
    static std::string Cell(std::string_view kind, int row);

    // Where a picture of the screen goes when an exception ends the program before its time.
    static inline std::string PictureOfFailure = "window-failure.bmp";

  private:
    explicit Program(const PROCESS_INFORMATION& started);

    platform::win32::Handle process_;
    platform::win32::Handle thread_;  // the only one that has windows
    DWORD id_;
};

}  // namespace window
