// A list of which one entry can be selected.
#pragma once

#include <string>
#include <vector>

#include "platform/win32/native_control.h"

namespace platform::win32 {

class NativeListBox : public NativeControl {
  public:
    NativeListBox(ListBox& box, FormContext& context, HWND parent, int id);

    void OnCommand(WORD code) override;
    bool KeepsWheel() const override { return true; }

  protected:
    void UpdateContent() override;

  private:
    ListBox& box_;
    std::vector<std::string> entries_;  // as the window was last told
};

}  // namespace platform::win32
