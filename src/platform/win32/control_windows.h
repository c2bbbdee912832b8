// The windows of a form's controls, and the surfaces of those that have none.
#pragma once

#include <memory>
#include <vector>

#include <windows.h>

#include "platform/forms.h"
#include "platform/win32/form_context.h"
#include "platform/win32/native_control.h"
#include "platform/win32/surface.h"
#include "platform/win32/tool_tips.h"

namespace platform::win32 {

class ControlWindows {
  public:
    // Native control ids count from here in the order of the form's controls.
    static constexpr int kFirstId = 1000;

    // The window property that holds a control's fixed name, as a global atom.
    static constexpr wchar_t kNameProperty[] = L"VarnelName";

    // `ground` is the form's own surface.
    ControlWindows(const Form& form, Surface& ground, FormContext& context);
    ~ControlWindows();

    // Brings changed controls to the screen. Returns the picture that has just appeared, or null.
    const Control* Update();
    void Rescale();

    // Null for a windowless control.
    NativeControl* NativeOf(const Control& control) const;

    // Where the control is, in pixels of the screen.
    RECT ScreenArea(const Control& control) const;

  private:
    struct Entry {
        Control* Owner;
        Surface* Container;
        std::unique_ptr<NativeControl> Native;
        bool OnScreen = false;  // a control of a form that is opened again need not have changed
    };

    Surface& SurfaceIn(const Control* container) const;
    std::unique_ptr<NativeControl> MakeWindow(Control& control, HWND parent, int id);
    void Make(std::size_t index);
    void FollowDefaultButton();
    void Refresh(const Entry& entry);
    void UpdateTip(const Entry& entry);

    const Form& form_;
    Surface& ground_;
    FormContext& context_;
    ToolTips tips_;
    std::vector<Entry> entries_;        // in the order of the form's controls
    const Control* default_ = nullptr;  // drawn as the form's default button
};

}  // namespace platform::win32
