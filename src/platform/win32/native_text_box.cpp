#include "platform/win32/native_text_box.h"

namespace platform::win32 {

NativeTextBox::NativeTextBox(TextBox& box, FormContext& context, HWND parent, int id)
    : NativeControl(box, context, parent, id, {L"EDIT", ES_AUTOHSCROLL, WS_EX_CLIENTEDGE}),
      box_(box) {
    Send(EM_SETLIMITTEXT, 0);  // no limit
}

void NativeTextBox::OnCommand(WORD code) {
    if (code == EN_CHANGE && !telling_) box_.SetText(WindowText());
}

void NativeTextBox::UpdateContent() {
    telling_ = true;
    ShowText(box_.Text());
    telling_ = false;
    if (readOnly_ != box_.ReadOnly()) Send(EM_SETREADONLY, readOnly_ = box_.ReadOnly());
}

Result NativeTextBox::OnMessage(const WindowMessage& message) {
    if (message.Id == WM_CHAR && !box_.Accepts(static_cast<char32_t>(message.Word))) return 0;
    return std::nullopt;
}

}  // namespace platform::win32
