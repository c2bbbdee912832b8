#include "window/dialog_driver.h"

#include <cstdlib>
#include <stdexcept>

#include <commctrl.h>

#include "platform/win32/text_conversion.h"

namespace window {

namespace {

constexpr char kDialog[] = "#32770";
constexpr unsigned kBetweenClicks = 2000;  // ms
constexpr int kMessageText = 0xFFFF;
constexpr int kIconColored = 10000;
constexpr int kFileName = 0x47C;
constexpr int kFolderTree = 14145;
constexpr int kFolderName = 14149;

HWND FindMessage(const Program& program) {
    for (const HWND window : TopWindows(program.Id()))
        if (ClassOf(window) == kDialog && ::GetDlgItem(window, kMessageText)) return window;
    return nullptr;
}

HWND IconOf(HWND message) {
    HWND child = ::GetWindow(message, GW_CHILD);
    while (child && (ClassOf(child) != "Static" ||
                     (::GetWindowLongW(child, GWL_STYLE) & SS_TYPEMASK) != SS_ICON))
        child = ::GetWindow(child, GW_HWNDNEXT);
    return child;
}

// The icons are red, yellow (or orange) and blue on the ground of the dialog, and their corners are
// empty. Empty until one is seen.
std::string KindByIcon(HWND icon) {
    const RECT area = AreaOf(icon);
    const ScreenPicture picture(area);
    if (picture.At(area.left, area.top) != ::GetSysColor(COLOR_BTNFACE)) return {};
    int redness = 0, greenness = 0;
    for (LONG y = area.top; y < area.bottom; ++y) {
        for (LONG x = area.left; x < area.right; ++x) {
            const COLORREF color = picture.At(x, y);
            redness += GetRValue(color) - GetBValue(color);
            greenness += GetGValue(color) - GetBValue(color);
        }
    }
    if (std::abs(redness) < kIconColored) return {};
    if (redness < 0) return "information";
    return greenness > redness / 2 ? "exclamation" : "critical";
}

// More than once if need be: a dialog that has just come may move from under the pointer.
void Press(HWND dialog, int button) {
    unsigned long long next = 0;
    WaitUntil("a dialog to close", [&] {
        const unsigned long long now = ::GetTickCount64();
        if (::GetForegroundWindow() == dialog && now >= next) {
            ClickAt(MiddleOf(AreaOf(::GetDlgItem(dialog, button))));
            next = now + kBetweenClicks;
        }
        return !::IsWindow(dialog) || !::IsWindowVisible(dialog);
    });
}

}  // namespace

std::string Answer(const Program& program, int button) {
    HWND dialog = nullptr;
    WaitUntil("a message", [&] { return (dialog = FindMessage(program)) != nullptr; });
    const std::string said = TextOf(dialog) + ": " + TextOf(::GetDlgItem(dialog, kMessageText));
    std::string kind;
    WaitUntil("the icon of the message " + said,
              [&] { return !(kind = KindByIcon(IconOf(dialog))).empty(); });
    Press(dialog, button);
    return kind + " " + said;
}

std::string AnswerFileName(const Program& program, std::string_view title, std::string_view path) {
    const HWND dialog = WaitForWindow(program.Id(), kDialog, title);
    HWND field = ::GetDlgItem(dialog, kFileName);  // on some systems within a combo box
    while (const HWND inner = ::GetWindow(field, GW_CHILD)) field = inner;
    const std::string proposed = TextOf(field);
    ::SendMessageW(field, WM_SETTEXT, 0,
                   reinterpret_cast<LPARAM>(platform::win32::Wide(path).c_str()));
    Press(dialog, path.empty() ? IDCANCEL : IDOK);
    return proposed;
}

RECT AnswerFolder(const Program& program, const Texts& names, int button) {
    const HWND dialog = WaitForWindow(program.Id(), kDialog, "Browse for Folder");
    const RECT area = AreaOf(dialog);
    const HWND tree = ::GetDlgItem(dialog, kFolderTree);
    const auto next = [&](WPARAM relation, LRESULT item) {
        return ::SendMessageW(tree, TVM_GETNEXTITEM, relation, item);
    };
    LRESULT item = next(TVGN_ROOT, 0);
    for (const std::string& name : names) {
        ::SendMessageW(tree, TVM_EXPAND, TVE_EXPAND, item);
        for (item = next(TVGN_CHILD, item); item; item = next(TVGN_NEXT, item)) {
            ::SendMessageW(tree, TVM_SELECTITEM, TVGN_CARET, item);
            if (TextOf(::GetDlgItem(dialog, kFolderName)) == name) break;
        }
        if (!item) throw std::runtime_error("the tree has no " + name);
    }
    Press(dialog, button);
    return area;
}

}  // namespace window
