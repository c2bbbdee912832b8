// What a user does with the program on the screen - looks, points, clicks, types, answers dialogs -
// and what its tests share: two folders, an empty history, the main window.
//
// Places are in pixels of the screen. Whatever does not happen in time, or at all, is thrown as a
// std::runtime_error that says what it was. Nothing here waits for a time to pass: every wait is
// for something that can be seen.
#pragma once

#include <cstdlib>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <process.h>
#include <windows.h>

#include "fakes/temp_folder.h"
#include "platform/win32/control_inspection.h"
#include "platform/win32/text_conversion.h"

namespace window {

// Returns when `condition` holds; throws after 20 seconds.
void WaitUntil(const std::string& what, const std::function<bool()>& condition);

COLORREF ColorAt(POINT point);  // 0x00BBGGRR
void WaitForColor(POINT point, COLORREF color);

POINT MiddleOf(const RECT& area);

// `event` (MOUSEEVENTF_...) happens where the pointer comes to; `data` is that of the event.
void MovePointer(POINT to, DWORD event = 0, int data = 0);
void ClickAt(POINT point);

// They go to the window in front. A text (of Latin-1) comes as characters: no Shift is held, which
// the screen's reports of its own keyboard could release too early.
void PressKeys(std::initializer_list<BYTE> keys);  // VK_...
void TypeKeys(std::string_view text);

// Waits for a window whose title begins so to come to the front.
HWND WaitForWindow(const std::string& title);

// Posts the message that ends a window, and returns when it has gone.
void EndWindow(HWND window, UINT message);

// Presses a button (IDOK, IDYES, IDNO, IDCANCEL) of a dialog of the system. Returns the text of a
// message.
std::string Answer(const std::string& title, int button = IDOK);

// What is seen of a control.
struct Seen : platform::win32::InspectedControl {
    std::string Text;  // what its own window shows, if it has one
};

// One of the program's windows with controls of fixed names. All throw for a name that no control
// bears, or when the window does not answer.
struct Form {
    HWND Window = nullptr;

    Seen Look(std::string_view name) const;
    std::string Ask(std::string_view name) const { return Look(name).Text; }

    void WaitFor(std::string_view name, const std::string& text) const;
    void WaitForFocus(std::string_view name) const;
    void WaitForQuiet() const;  // until the window is in front and takes input

    // The real pointer goes to the middle of a control once it is shown. The button goes down and
    // up there once the window is quiet.
    void Point(std::string_view name, DWORD event = 0, int data = 0) const;
    void Click(std::string_view name) const;
};

inline constexpr char kHistory[] = "SOFTWARE\\SystemInfoFolderCS1993";

// Where the scale of the screen is set.
inline constexpr char kDesktop[] = "Control Panel\\Desktop", kDpi[] = "LogPixels";

// The backs of rows of the grid.
inline constexpr COLORREF kRested = 0xFFFFC0, kHovered = 0xFFFF80, kSelected = 0x008000;

// The folders "1" and "2" in a folder of the test, and the program and its main window.
class WindowTest : public testing::Test, protected Form {
  protected:
    void SetUp() override {
        if (!std::getenv("VARNEL_WINE_SESSION"))
            GTEST_SKIP() << "takes the pointer, history and scale: only in a session of its own";
        ::RegDeleteTreeA(HKEY_LOCAL_MACHINE, kHistory);
        ::RegDeleteKeyValueA(HKEY_CURRENT_USER, kDesktop, kDpi);
        Files.MakeFolder("1");
        Files.MakeFolder("2");
    }

    void TearDown() override {
        ::TerminateProcess(process_, 99);  // does nothing to one that has ended
        WaitForEnd();
    }

    // Returns when the window is seen on the screen and takes the keys. The pointer is far from it.
    void Start(const std::string& arguments = {}) {
        TearDown();
        process_ =
            reinterpret_cast<HANDLE>(::_wspawnl(_P_NOWAIT, L"Varnel.exe", L"Varnel.exe",
                                                platform::win32::Wide(arguments).c_str(), nullptr));
        MovePointer({::GetSystemMetrics(SM_CXSCREEN) - 1, ::GetSystemMetrics(SM_CYSCREEN) - 1});
        Window = WaitForWindow(" Varnel ,  Version 8.12");
        WaitForFocus("Combo1");
        // By then the program has heard what the screen tells of a new window.
        const RECT cell = Look("sFile1(9)").Area;
        WaitForColor({cell.left, cell.top}, kRested);
    }

    // The program's exit status.
    DWORD WaitForEnd() const {
        DWORD status = 0;
        ::WaitForSingleObject(process_, 20000);
        ::GetExitCodeProcess(process_, &status);
        return status;
    }

    // The heading tells when a comparison is over, so it must say something else before.
    void Compare() const {
        const std::string before = Ask("LabelShow");
        Click("Command3");
        WaitUntil("the result of the comparison",
                  [&] { return Ask("LabelShow") != before && Ask("Command3") == "Compare"; });
    }

    // "new1.txt" in 1, "only2.txt" in 2, "chg-right.txt" newer in 1, "chg-left.txt" newer in 2, and
    // "same.txt".
    void PutSmallPair() const {
        for (const char* name : {"1/new1.txt", "2/only2.txt", "2/chg-right.txt", "1/chg-left.txt",
                                 "1/same.txt", "2/same.txt"})
            Files.WriteFile(name, "as it was", fakes::At(1577934245));
        for (const char* name : {"1/chg-right.txt", "2/chg-left.txt"})
            Files.WriteFile(name, "newer");
    }

    // The two folders as one argument.
    std::string Pair() const { return '"' + Files.Path("1") + " , " + Files.Path("2") + '"'; }

    const fakes::TempFolder Files;

  private:
    HANDLE process_ = nullptr;
};

}  // namespace window
