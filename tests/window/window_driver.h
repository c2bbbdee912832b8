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
#include "window/inspection.h"
#include "window/screen_picture.h"

namespace window {

using Texts = std::vector<std::string>;

inline constexpr unsigned kLimit = 20000;  // of a wait, in ms

// Returns when `condition` holds; throws when the limit is over.
void WaitUntil(const std::string& what, const std::function<bool()>& condition,
               unsigned limit = kLimit);

std::string TextOf(HWND window);
std::string ClassOf(HWND window);
RECT AreaOf(HWND window);  // in pixels of the screen

// The visible windows of all programs, those of `process` only if it is not 0; the front one first.
std::vector<HWND> TopWindows(DWORD process);

// One of the program's windows with controls of fixed names.
class Form {
  public:
    explicit Form(HWND window) : window_(window) {}

    HWND Window() const { return window_; }

    Seen Look(std::string_view name) const;
    std::string Text(std::string_view name) const { return Look(name).Text; }
    bool Shows(std::string_view name) const { return Look(name).Visible; }

    // The middle of a control that is shown, on the screen.
    POINT PlaceOf(std::string_view name) const;

    // The real pointer goes to the middle of the control; then the button goes down and up.
    void Point(std::string_view name) const;
    void Click(std::string_view name) const;

    // Clicks a check box or an option and waits until it has the value.
    void Set(std::string_view name, bool value = true) const;

    // Clicks into a text field, empties it and types with the keys of the keyboard.
    void Type(std::string_view name, std::string_view keys) const;

    // Replaces the text of a field by pasting.
    void Paste(std::string_view name, std::string_view text) const;

    // The program reads a command of the menu, as it does when the menu sends it.
    void RunMenu(std::string_view name) const;

    void WaitFor(std::string_view name, const std::string& what,
                 const std::function<bool(const Seen&)>& condition) const;
    void WaitForText(std::string_view name, std::string_view text) const;
    void WaitForFocus(std::string_view name) const;

    // A picture of the window that shows what is wanted, as soon as there is one.
    ScreenPicture WaitForPicture(const std::function<bool(const ScreenPicture&)>& condition) const;

    // A picture of the window once it has not changed for a while.
    ScreenPicture TakePicture() const;

  protected:
    HWND window_;
};

// A running program and its main window.
class Program : public Form {
  public:
    // Returns when the window is shown and takes the keys. The pointer is far from it.
    explicit Program(const std::string& arguments = {});
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    DWORD Id() const { return id_; }
    bool HasEnded() const;
    unsigned WaitForEnd() const;  // its exit status
    void Close() const;           // by the cross of its window; returns when it has ended

    // The program stands still in between; what is sent to it meanwhile waits.
    void Pause() const;
    void Resume() const;

    // The window of this class (of any with an empty text) and title, once it is shown.
    HWND WaitForWindow(std::string_view windowClass, std::string_view title) const;
    Form WaitForForm(std::string_view name) const { return Form(WaitForWindow(name, "")); }

    // Returns when the main window is the one in front, enabled, and no other of its own is left.
    void WaitForQuiet() const;

    // Clicks Compare and waits for the result.
    void Compare(unsigned limit = kLimit) const;

    // The rows of the grid that are not empty: the texts of the cells from left to right, a bar
    // between them.
    Texts Rows() const;
    void WaitForRows(const Texts& rows) const;
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
