#include "window/dialog_driver.h"

#include <algorithm>
#include <ostream>
#include <stdexcept>

#include <commctrl.h>

#include "platform/win32/text_conversion.h"
#include "window/input.h"
#include "window/screen_picture.h"

namespace window {

namespace {

constexpr int kMessageText = 0xFFFF;
constexpr int kFileName = 0x47C;
constexpr int kFolderTree = 14145;
constexpr int kFolderName = 14149;

HWND FindMessage(const Program& program) {
    const std::vector<HWND> windows = TopWindows(program.Id());
    const auto found = std::find_if(windows.begin(), windows.end(), [](HWND window) {
        return ClassOf(window) == "#32770" && ::GetDlgItem(window, kMessageText);
    });
    return found == windows.end() ? nullptr : *found;
}

HWND IconOf(HWND message) {
    HWND child = ::GetWindow(message, GW_CHILD);
    while (child && (ClassOf(child) != "Static" ||
                     (::GetWindowLongW(child, GWL_STYLE) & SS_TYPEMASK) != SS_ICON))
        child = ::GetWindow(child, GW_HWNDNEXT);
    return child;
}

// The icons are red, yellow (or orange) and blue.
MessageKind KindByIcon(HWND icon) {
    if (!icon) return MessageKind::Unknown;
    const RECT area = AreaOf(icon);
    const ScreenPicture picture(area);
    int red = 0, yellow = 0, blue = 0;
    for (int y = area.top; y < area.bottom; ++y) {
        for (int x = area.left; x < area.right; ++x) {
            const COLORREF color = picture.At(x, y);
            const int r = GetRValue(color), g = GetGValue(color), b = GetBValue(color);
            red += r > 150 && g < 90 && b < 90;
            yellow += r > 200 && g >= 90 && b < 110;
            blue += b > 120 && r < 110;
        }
    }
    const int most = std::max({red, yellow, blue});
    if (most < 40) return MessageKind::Unknown;
    if (most == red) return MessageKind::Critical;
    return most == yellow ? MessageKind::Exclamation : MessageKind::Information;
}

void WaitUntilGone(HWND dialog) {
    WaitUntil("a dialog to close",
              [&] { return !::IsWindow(dialog) || !::IsWindowVisible(dialog); });
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const ShownMessage& message) {
    constexpr const char* kNames[] = {"critical", "exclamation", "information", "unknown"};
    return out << kNames[static_cast<int>(message.Kind)] << " message \"" << message.Title
               << "\": \"" << message.Text << '"';
}

bool ShowsMessage(const Program& program) {
    return FindMessage(program) != nullptr;
}

ShownMessage Answer(const Program& program, int button) {
    HWND dialog = nullptr;
    WaitUntil("a message", [&] {
        if (program.HasEnded()) throw std::runtime_error("the program has ended");
        return (dialog = FindMessage(program)) != nullptr;
    });
    const HWND pressed = ::GetDlgItem(dialog, button);
    if (!pressed) throw std::runtime_error("the message has no such button: " + TextOf(dialog));
    ShownMessage message{MessageKind::Unknown, TextOf(dialog),
                         TextOf(::GetDlgItem(dialog, kMessageText))};
    WaitUntil("the icon of the message \"" + message.Text + "\"", [&] {
        message.Kind = KindByIcon(IconOf(dialog));
        return message.Kind != MessageKind::Unknown;
    });
    ClickAt(MiddleOf(AreaOf(pressed)));
    WaitUntilGone(dialog);
    return message;
}

// A combo box around it comes with some systems.
HWND FileNameDialog::NameField() const {
    HWND field = ::GetDlgItem(window_, kFileName);
    while (const HWND inner = field ? ::GetWindow(field, GW_CHILD) : nullptr) field = inner;
    if (!field) throw std::runtime_error("the dialog has no field for a name");
    return field;
}

std::string FileNameDialog::ProposedName() const {
    return TextOf(NameField());
}

void FileNameDialog::Choose(std::string_view path) const {
    ::SendMessageW(NameField(), WM_SETTEXT, 0,
                   reinterpret_cast<LPARAM>(platform::win32::Wide(path).c_str()));
    Press(IDOK);
}

void FileNameDialog::Cancel() const {
    Press(IDCANCEL);
}

void FileNameDialog::Press(int button) const {
    ClickAt(MiddleOf(AreaOf(::GetDlgItem(window_, button))));
    WaitUntilGone(window_);
}

FolderDialog::FolderDialog(const Program& program)
    : program_(program), window_(program.WaitForWindow("#32770", "Browse for Folder")) {}

bool FolderDialog::Says(std::string_view prompt) const {
    for (HWND child = ::GetWindow(window_, GW_CHILD); child;
         child = ::GetWindow(child, GW_HWNDNEXT))
        if (TextOf(child) == prompt) return true;
    return false;
}

void FolderDialog::Select(const Texts& names) const {
    const HWND tree = ::GetDlgItem(window_, kFolderTree);
    const HWND field = ::GetDlgItem(window_, kFolderName);
    const auto next = [&](WPARAM relation, LRESULT item) {
        return ::SendMessageW(tree, TVM_GETNEXTITEM, relation, item);
    };
    LRESULT item = next(TVGN_ROOT, 0);
    for (const std::string& name : names) {
        ::SendMessageW(tree, TVM_EXPAND, TVE_EXPAND, item);
        item = next(TVGN_CHILD, item);
        std::string seen;
        while (item) {
            ::SendMessageW(tree, TVM_SELECTITEM, TVGN_CARET, item);
            seen += " " + TextOf(field);
            if (TextOf(field) == name) break;
            item = next(TVGN_NEXT, item);
        }
        if (!item) throw std::runtime_error("the tree has no " + name + " but" + seen);
    }
}

void FolderDialog::Press(int button) const {
    ClickAt(MiddleOf(AreaOf(::GetDlgItem(window_, button))));
    WaitUntilGone(window_);
}

}  // namespace window
