// Starts Varnel.exe and does with it what a user does: looks at its windows, points, clicks,
// answers dialogs.
//
// Whatever does not happen in time, or at all, is thrown as a std::runtime_error that says what it
// was. Nothing here waits for a time to pass: every wait is for something that can be seen.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include <windows.h>

#include "platform/win32/handle.h"
#include "window/screen.h"

namespace window {

// Returns when `condition` holds; throws after 20 seconds. The pointer is nudged now and then: Wine
// loses a move that arrives while the program is taking in the one before.
void WaitUntil(const std::string& what, const std::function<bool()>& condition);
void WaitForColor(POINT at, COLORREF color);

std::string TextOf(HWND window);
RECT AreaOf(HWND window);  // in pixels of the screen
POINT MiddleOf(const RECT& area);

// Waits for a visible window that has this class (any if it is null) and this part in its title.
HWND WaitForWindow(const char* windowClass, const std::string& title = {});

// Posts the message that ends a window, and returns when it is gone.
void EndWindow(HWND window, UINT message, WPARAM word = 0);

// Presses a button (IDOK, IDYES, IDNO) of a message box. Returns its title, a colon, its text.
std::string Answer(int button = IDOK);

// Enters a name into a file dialog and accepts it.
void AnswerFileName(const std::string& title, std::string_view path);

// One of the program's windows with controls of fixed names.
class Form {
  public:
    explicit Form(HWND window) : window_(window) {}

    HWND Window() const { return window_; }

    // What platform/win32/control_inspection.h tells of a control or a menu entry by this key, and
    // what its window shows where that is another text. Throws when nothing of the form bears the
    // name, or the form does not answer.
    std::string Ask(std::string_view name, const std::string& key = "text") const;
    RECT Area(std::string_view name) const;
    HWND Control(std::string_view name) const;  // null for what its container paints

    // Waits until that is told.
    void WaitFor(std::string_view name, const std::string& value,
                 const std::string& key = "text") const;
    void WaitForFocus(std::string_view name) const;
    void WaitForQuiet() const;  // until the window is in front and takes input

    // The middle of a control that is shown, on the screen. The real pointer goes there; the button
    // goes down and up once the window is quiet.
    POINT PlaceOf(std::string_view name) const;
    void Point(std::string_view name) const { MovePointer(PlaceOf(name)); }
    void Click(std::string_view name) const;
    void Type(std::string_view name, std::string_view keys) const;  // clicks a field first

    // Once the window is quiet, the program reads a command of the menu, as when the menu sends it.
    void RunMenu(std::string_view name) const;

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

    DWORD WaitForEnd() const;  // its exit status

    // Clicks Compare and waits for the result, whose heading must be another one than before.
    void Compare() const;

  private:
    explicit Program(HANDLE process) : Form(nullptr), process_(process) {}

    platform::win32::Handle process_;
};

}  // namespace window
