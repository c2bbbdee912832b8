#include "platform/win32/native_combo_box.h"

#include <utility>

#include "platform/win32/text_conversion.h"

namespace platform::win32 {

namespace {

constexpr int kShownEntries = 16;
constexpr int kMostTries = 3;

// A choice is handed on when the window is done with it: the rules may rewrite the list then.
constexpr UINT kPicked = WM_APP + 1;

}  // namespace

NativeComboBox::NativeComboBox(ComboBox& box, FormContext& context, HWND parent, int id)
    : NativeControl(box, context, parent, id,
                    {L"COMBOBOX", CBS_DROPDOWN | CBS_AUTOHSCROLL | WS_VSCROLL}),
      box_(box) {
    Send(CB_LIMITTEXT, 0);  // no limit
}

void NativeComboBox::OnCommand(WORD code) {
    switch (code) {
        case CBN_EDITCHANGE:
            box_.Edit(WindowText());
            break;
        case CBN_SELCHANGE:
            if (IsDropped()) break;  // only looked at; CBN_SELENDOK follows if it is chosen
            [[fallthrough]];
        case CBN_SELENDOK:
            if (!std::exchange(picked_, true)) ::PostMessageW(Window(), kPicked, 0, 0);
            break;
        case CBN_KILLFOCUS:
            Send(CB_SETEDITSEL, 0, MAKELPARAM(-1, 0));  // no mark stays behind
            break;
        case CBN_CLOSEUP:
            if (!picked_) ::PostMessageW(Window(), kPicked, 0, 0);
            break;
        default:
            break;
    }
}

Result NativeComboBox::OnMessage(const WindowMessage& message) {
    if (message.Id != kPicked) return std::nullopt;
    if (std::exchange(picked_, false))
        Pick();
    else
        ShowText(box_.Text());  // the list was left: what it had put into the field goes
    return 0;
}

void NativeComboBox::Pick() {
    const auto index = static_cast<int>(Send(CB_GETCURSEL));
    if (index >= 0) box_.Pick(index);
    context_.AfterEvent();
}

void NativeComboBox::UpdateContent() {
    if (picked_) return;  // the user's choice comes first
    if (entries_ != box_.Entries()) {
        entries_ = box_.Entries();
        Send(CB_RESETCONTENT);
        for (const std::string& entry : entries_)
            Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(entry).c_str()));
    }
    ShowText(box_.Text());
}

// The height of the field is set by way of its text line; the window's own height is that of the
// dropped list. Not every system reports the line as it takes it, so the outcome is measured.
void NativeComboBox::Move(const RECT& area) {
    const int height = area.bottom - area.top;
    const auto line = static_cast<int>(Send(CB_GETITEMHEIGHT, 0));
    ::SetWindowPos(Window(), nullptr, area.left, area.top, area.right - area.left,
                   height + kShownEntries * line, SWP_NOZORDER | SWP_NOACTIVATE);
    auto field = static_cast<int>(Send(CB_GETITEMHEIGHT, static_cast<WPARAM>(-1)));
    for (int tries = 0; tries < kMostTries; ++tries) {
        RECT closed;
        ::GetWindowRect(Window(), &closed);
        const int missing = height - (closed.bottom - closed.top);
        if (missing == 0) return;
        Send(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), field += missing);
    }
}

}  // namespace platform::win32
