#include "platform/win32/native_button.h"

namespace platform::win32 {

namespace {

// No automatic styles: the control decides what a click does to its value.
DWORD ButtonStyle(ControlKind kind) {
    if (kind == ControlKind::CheckBox) return BS_CHECKBOX;
    if (kind == ControlKind::OptionButton) return BS_RADIOBUTTON;
    return BS_PUSHBUTTON;
}

bool IsChecked(const Control& control) {
    if (const auto* box = dynamic_cast<const CheckBox*>(&control)) return box->Value();
    if (const auto* option = dynamic_cast<const OptionButton*>(&control)) return option->Value();
    return false;
}

}  // namespace

NativeButton::NativeButton(Control& control, FormContext& context, HWND parent, int id)
    : NativeControl(control, context, parent, id,
                    {L"BUTTON", BS_MULTILINE | ButtonStyle(control.Kind())}) {}

void NativeButton::OnCommand(WORD code) {
    if (code == BN_CLICKED) Owner().Click();
}

void NativeButton::ShowAsDefault(bool isDefault) {
    Send(BM_SETSTYLE, BS_MULTILINE | (isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON), TRUE);
}

void NativeButton::UpdateContent() {
    ShowText(Owner().ShownText());
    if (checked_ == IsChecked(Owner())) return;
    checked_ = !checked_;
    Send(BM_SETCHECK, checked_ ? BST_CHECKED : BST_UNCHECKED);
}

}  // namespace platform::win32
