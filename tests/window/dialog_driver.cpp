#include "window/dialog_driver.h"

#include <cstdlib>

#include "platform/win32/text_conversion.h"

namespace window {

namespace {

constexpr char kDialog[] = "#32770";
constexpr int kMessageText = 0xFFFF;
constexpr int kIconColored = 500;
constexpr int kFileName = 0x47C;

// The icons are red, yellow (or orange) and blue on the ground of the dialog, and their corners are
// empty. Empty until one is seen.
std::string KindByIcon(const RECT& icon) {
    if (ColorAt({icon.left, icon.top}) != ::GetSysColor(COLOR_BTNFACE)) return {};
    int redness = 0, greenness = 0;
    for (LONG x = icon.left; x < icon.right; ++x) {  // on a line below the middle
        const COLORREF color = ColorAt({x, (icon.top + 3 * icon.bottom) / 4});
        redness += GetRValue(color) - GetBValue(color);
        greenness += GetGValue(color) - GetBValue(color);
    }
    if (std::abs(redness) < kIconColored) return {};
    if (redness < 0) return "information";
    return greenness > redness / 2 ? "exclamation" : "critical";
}

}  // namespace

std::string Answer(const Program& program, WPARAM button) {
    const HWND dialog = WaitForWindow(program.Id(), kDialog, "");
    const HWND icon = ::FindWindowExA(dialog, nullptr, "Static", nullptr);
    const std::string said = TextOf(dialog) + ": " + TextOf(::GetDlgItem(dialog, kMessageText));
    std::string kind;
    WaitUntil("the icon of the message " + said,
              [&] { return !(kind = KindByIcon(AreaOf(icon))).empty(); });
    EndWindow(dialog, WM_COMMAND, button);
    return kind + " " + said;
}

std::string AnswerFileName(const Program& program, const std::string& title,
                           std::string_view path) {
    const HWND dialog = WaitForWindow(program.Id(), kDialog, title);
    HWND field = ::GetDlgItem(dialog, kFileName);  // on some systems within a combo box
    while (const HWND inner = ::GetWindow(field, GW_CHILD)) field = inner;
    const std::string proposed = TextOf(field);
    ::SendMessageW(field, WM_SETTEXT, 0,
                   reinterpret_cast<LPARAM>(platform::win32::Wide(path).c_str()));
    EndWindow(dialog, WM_COMMAND, path.empty() ? IDCANCEL : IDOK);
    return proposed;
}

RECT AnswerFolder(const Program& program, WPARAM button) {
    const HWND dialog = WaitForWindow(program.Id(), kDialog, "Browse for Folder");
    const RECT area = AreaOf(dialog);
    EndWindow(dialog, WM_COMMAND, button);
    return area;
}

}  // namespace window
