// Makes forms visible: a native window for each, kept in step with its controls.
#pragma once

#include <memory>
#include <vector>

#include <windows.h>

#include "platform/forms.h"
#include "platform/win32/form_window.h"

namespace platform::win32 {

class Host : public FormHost {
  public:
    Host();
    ~Host() override;

    void DoEvents() override;

    // A form without controls has nothing to show: it only lends its place to a dialog.
    void Show(Form& form) override;
    void ShowModal(Form& form) override;
    void Unload(Form& form) override;

    int ScreenWidth() const override;
    int ScreenHeight() const override;

    // Hands out what the user does until the form has been unloaded.
    void RunUntilUnloaded(const Form& form);

    // Brings every form's changes to the screen.
    void BringUpToDate();

    // The window that a dialog opens on: the active form's, else the one shown last; null without.
    HWND DialogOwner() const;

  private:
    FormWindow* Find(const Form& form) const;
    FormWindow& Open(Form& form, HWND owner);
    void HandOutWaiting();
    void HandOut(const MSG& message);
    void Bury();

    std::vector<std::unique_ptr<FormWindow>> windows_;  // in the order of showing
    unsigned long long lastTick_ = 0;
};

}  // namespace platform::win32
