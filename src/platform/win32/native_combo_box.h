// A field with a list that drops down.
#pragma once

#include <string>
#include <vector>

#include "platform/win32/native_control.h"

namespace platform::win32 {

class NativeComboBox : public NativeControl {
  public:
    NativeComboBox(ComboBox& box, FormContext& context, HWND parent, int id);

    void OnCommand(WORD code) override;
    bool KeepsEnterAndEsc() const override { return IsDropped(); }
    bool KeepsWheel() const override { return IsDropped(); }

  protected:
    void UpdateContent() override;
    void Move(const RECT& area) override;
    Result OnMessage(const WindowMessage& message) override;

  private:
    bool IsDropped() const { return Send(CB_GETDROPPEDSTATE) != 0; }
    void Pick();

    ComboBox& box_;
    std::vector<std::string> entries_;  // as the window was last told
    bool picked_ = false;               // the user chose an entry, not yet handed on
};

}  // namespace platform::win32
