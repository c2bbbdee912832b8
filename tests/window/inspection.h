// Reads the controls of Varnel's forms by their fixed names, from outside.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <windows.h>

namespace window {

// What platform/win32/control_inspection.h tells of a control, a menu entry or a form.
struct Seen {
    std::string Kind;
    bool Visible = false;  // with all its containers
    bool Bold = false;
    COLORREF Back = 0;
    COLORREF Fore = 0;
    int Value = 0;          // checked, scroll value, selected entry, or a menu entry's command
    RECT Area{};            // in pixels of the screen
    HWND Window = nullptr;  // none for what its container paints
    std::vector<std::string> Entries;
    std::string Text;
};

// Throws when nothing of the form bears the name, or the form does not answer.
Seen Inspect(HWND form, std::string_view name);

}  // namespace window
