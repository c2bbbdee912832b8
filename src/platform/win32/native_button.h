// Push buttons, check boxes and option buttons.
#pragma once

#include "platform/win32/native_control.h"

namespace platform::win32 {

class NativeButton : public NativeControl {
  public:
    NativeButton(Control& control, FormContext& context, HWND parent, int id);

    void OnCommand(WORD code) override;
    bool ShowsGround() const override { return true; }

    // Draws the button as the one that Enter presses, or as any other.
    void ShowAsDefault(bool isDefault);

  protected:
    void UpdateContent() override;

  private:
    bool checked_ = false;  // as the window was last told
};

}  // namespace platform::win32
