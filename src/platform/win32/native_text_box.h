// A field of one line.
#pragma once

#include "platform/win32/native_control.h"

namespace platform::win32 {

class NativeTextBox : public NativeControl {
  public:
    NativeTextBox(TextBox& box, FormContext& context, HWND parent, int id);

    void OnCommand(WORD code) override;
    bool ShowsGround() const override { return !box_.Enabled(); }

  protected:
    void UpdateContent() override;
    Result OnMessage(const WindowMessage& message) override;

  private:
    TextBox& box_;
    bool telling_ = false;   // the window: what it reports meanwhile is not the user's
    bool readOnly_ = false;  // as the window was last told
};

}  // namespace platform::win32
