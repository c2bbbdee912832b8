#include "platform/win32/native_list_box.h"

#include "platform/win32/text_conversion.h"

namespace platform::win32 {

NativeListBox::NativeListBox(ListBox& box, FormContext& context, HWND parent, int id)
    : NativeControl(box, context, parent, id,
                    {L"LISTBOX", LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL, WS_EX_CLIENTEDGE}),
      box_(box) {}

void NativeListBox::OnCommand(WORD code) {
    if (code == LBN_SELCHANGE) box_.Select(static_cast<int>(Send(LB_GETCURSEL)));
}

void NativeListBox::UpdateContent() {
    if (entries_ != box_.Entries()) {
        entries_ = box_.Entries();
        Send(WM_SETREDRAW, FALSE);
        Send(LB_RESETCONTENT);
        for (const std::string& entry : entries_)
            Send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(entry).c_str()));
        Send(WM_SETREDRAW, TRUE);
        ::InvalidateRect(Window(), nullptr, TRUE);
    }
    if (Send(LB_GETCURSEL) != box_.ListIndex())
        Send(LB_SETCURSEL, static_cast<WPARAM>(box_.ListIndex()));
}

}  // namespace platform::win32
