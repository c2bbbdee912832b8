// Starts Varnel.exe and does with it what a user does: looks at its windows, points, clicks, waits.
//
// Whatever does not happen in time, or at all, is thrown as a std::runtime_error that says what it
// was. Nothing here waits for a time to pass: every wait is for something that can be seen.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <type_traits>

#include <windows.h>

#include "platform/win32/handle.h"
#include "window/screen.h"

namespace window {

inline constexpr unsigned kLimit = 20000;  // of a wait, in ms

// Returns when `condition` holds; throws when the limit is over. The pointer is nudged now and
// then: Wine loses a move that arrives while the program is taking in the one before.
void WaitUntil(const std::string& what, const std::function<bool()>& condition,
               unsigned limit = kLimit);

std::string TextOf(HWND window);
RECT AreaOf(HWND window);  // in pixels of the screen

// Waits for the visible window of a process (any if it is 0) that has this class (any if it is
// null) and this part in its title.
HWND WaitForWindow(DWORD process, const char* windowClass, const std::string& title);

// Posts the message that ends a window, and returns when it is gone.
void EndWindow(HWND window, UINT message, WPARAM word = 0);

void WaitForColor(POINT at, COLORREF color);

// What platform/win32/control_inspection.h tells of a control or a menu entry.
struct Seen {
    bool Visible = false;  // with all its containers
    bool Bold = false;
    COLORREF Back = 0;
    int Value = 0;          // checked, scroll value, selected entry, or a menu entry's command
    RECT Area{};            // in pixels of the screen
    HWND Window = nullptr;  // none for what its container paints
    std::string Text;       // with what its window shows where that is something else
};

// One of the program's windows with controls of fixed names.
class Form {
  public:
    explicit Form(HWND window) : window_(window) {}

    HWND Window() const { return window_; }

    // Throws when nothing of the form bears the name, or the form does not answer.
    Seen Look(std::string_view name) const;
    std::string Text(std::string_view name) const { return Look(name).Text; }

    // The middle of a control that is shown, on the screen.
    POINT PlaceOf(std::string_view name) const;

    // Returns when the window is in front and takes input.
    void WaitForQuiet() const;

    // The real pointer goes to the middle of the control; the button goes down and up once the
    // window is quiet.
    void Point(std::string_view name) const { MovePointer(PlaceOf(name)); }
    void Click(std::string_view name) const;

    // Clicks a field and types into it.
    void Type(std::string_view name, std::string_view keys) const;

    // Once the window is quiet, the program reads a command of the menu, as when the menu sends it.
    void RunMenu(std::string_view name) const;

    // Waits until this is seen of a control.
    template <typename T>
    void WaitFor(std::string_view name, T Seen::*what, const std::type_identity_t<T>& value) const {
        WaitUntil(std::string(name), [&] { return Look(name).*what == value; });
    }
    void WaitForFocus(std::string_view name) const;

  protected:
    HWND window_;
};

// A running program and its main window. When an exception ends it before its time, a picture of
// the screen is left in window-failure.bmp.
class Program : public Form {
  public:
    // Returns when the window is seen on the screen and takes the keys. The pointer is far from it.
    explicit Program(const std::string& arguments = {});
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    DWORD Id() const { return id_; }
    unsigned WaitForEnd() const;  // its exit status
    unsigned Close() const;       // by the cross of its window; its exit status

    // Clicks Compare and waits for the result, whose heading must be another one than before.
    void Compare(unsigned limit = kLimit) const;

  private:
    explicit Program(const PROCESS_INFORMATION& started);

    platform::win32::Handle process_;
    DWORD id_;
};

}  // namespace window
