// A control that the system draws and operates: one native window kept in step with its Control.
//
// Update() compares the control with what its window was last told and tells it the differences;
// what the user does in the window is handed to the control. A window is never told what it said
// itself, so nobody's typing is written back over the cursor.
#pragma once

#include <memory>
#include <string>

#include <windows.h>

#include "platform/forms.h"
#include "platform/win32/form_context.h"
#include "platform/win32/message_table.h"

namespace platform::win32 {

class NativeControl {
  public:
    virtual ~NativeControl();
    NativeControl(const NativeControl&) = delete;
    NativeControl& operator=(const NativeControl&) = delete;

    // The native control that a window is, or is a part of; null for every other window.
    static NativeControl* Of(HWND window);

    HWND Window() const { return window_; }
    Control& Owner() const { return control_; }

    void Update();
    bool IsVisible() const { return visible_; }  // its container aside

    // After a change of scale: place and font anew.
    virtual void Rescale();

    // What the window reported to its parent; `code` is the notification's or the scroll's.
    virtual void OnCommand(WORD code);
    virtual void OnScroll(WORD code);

    // Whether the container's colour lies behind the text.
    virtual bool ShowsGround() const { return false; }

    // Whether Enter and Esc belong to the window at this moment.
    virtual bool KeepsEnterAndEsc() const { return false; }

    // Whether the pointer's wheel belongs to the window at this moment.
    virtual bool KeepsWheel() const { return false; }

  protected:
    struct Kind {
        const wchar_t* WindowClass;
        DWORD Style;
        DWORD ExtendedStyle = 0;
    };

    // `id` is the native control id, so that other programs can find the window.
    NativeControl(Control& control, FormContext& context, HWND parent, int id, const Kind& kind);

    // Tells the window what is particular to its kind.
    virtual void UpdateContent() = 0;
    virtual void Move(const RECT& area);

    // A message before the window itself handles it; a result keeps it from the window.
    virtual Result OnMessage(const WindowMessage& message);

    LRESULT Send(UINT message, WPARAM word = 0, LPARAM number = 0) const {
        return ::SendMessageW(window_, message, word, number);
    }
    std::string WindowText() const;
    // Sets the window's text unless it says just that.
    void ShowText(const std::string& text) const;

    FormContext& context_;

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM word, LPARAM number,
                                      UINT_PTR id, DWORD_PTR self);
    Result Handle(const WindowMessage& message);
    void Raise();

    HWND window_ = nullptr;
    Control& control_;

    // What the window was last told.
    RECT area_{};
    HFONT font_ = nullptr;
    bool visible_ = false;
    bool enabled_ = true;
    int zOrder_ = 0;
    Color back_ = 0;
    Color fore_ = 0;
};

// Null for a windowless control and for a picture.
std::unique_ptr<NativeControl> MakeNativeControl(Control& control, FormContext& context,
                                                 HWND parent, int id);

}  // namespace platform::win32
