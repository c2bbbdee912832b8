// The window of one form.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include <windows.h>

#include "platform/forms.h"
#include "platform/win32/control_windows.h"
#include "platform/win32/form_context.h"
#include "platform/win32/form_keyboard.h"
#include "platform/win32/menu_bar.h"
#include "platform/win32/message_table.h"
#include "platform/win32/surface.h"

namespace platform::win32 {

class FormWindow {
  public:
    // The window class has the form's name. A form with an owner is a dialog over it.
    FormWindow(Form& form, HWND owner, std::function<void()> afterEvent,
               std::function<void(Form&)> unload);
    ~FormWindow();
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;

    HWND Window() const { return window_; }
    bool Shows(const Form& form) const { return &form_ == &form && !context_.Closed; }

    void Show();

    // Brings what has changed in the form to the screen.
    void Update();

    // Hides the window for good. From here on the form is not touched.
    void Close();

    // True when the window was closed and none of its procedures is under way.
    bool CanGo() const { return context_.Closed && context_.Running == 0; }

    // Handles a key message before its window gets it. True when that was all.
    bool TakeKey(const MSG& message);

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT id, WPARAM word, LPARAM number);
    Result Handle(const WindowMessage& message);
    void MakeWindow(HWND owner);
    void FillWindow();
    void SetScale(int dpi);
    void MoveTo(const Place& bounds);

    Result OnActivate(const WindowMessage& message);
    Result OnClose(const WindowMessage& message);
    Result OnCommand(const WindowMessage& message);
    Result OnCopyData(const WindowMessage& message);
    Result OnDpiChanged(const WindowMessage& message);
    Result OnMinMaxInfo(const WindowMessage& message);
    Result OnMoved(const WindowMessage& message);
    Result OnSettingChange(const WindowMessage& message);
    Result OnWheel(const WindowMessage& message);

    static const MessageEntry<FormWindow> kHandlers[];

    Form& form_;
    std::function<void(Form&)> unload_;
    FormContext context_;
    HWND window_ = nullptr;
    bool activated_ = false;
    int wheel_ = 0;  // turned but not yet worth a row

    // As the window was last told.
    std::string caption_;
    Place bounds_;

    std::optional<MenuBar> menu_;
    std::optional<Surface> surface_;
    std::optional<ControlWindows> controls_;
    std::optional<FormKeyboard> keyboard_;
};

}  // namespace platform::win32
