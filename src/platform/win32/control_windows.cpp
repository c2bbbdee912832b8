#include "platform/win32/control_windows.h"

#include <algorithm>
#include <utility>

#include "platform/win32/native_button.h"
#include "platform/win32/picture_window.h"
#include "platform/win32/text_conversion.h"

namespace platform::win32 {

// Pictures first: they carry others. Of controls that overlap the later one is nearer to the user.
ControlWindows::ControlWindows(const Form& form, Surface& ground, FormContext& context)
    : form_(form),
      ground_(ground),
      context_(context),
      tips_(ground.Window()),
      entries_(form.Controls.size()) {
    const auto isPicture = [&](std::size_t index) {
        return form.Controls[index]->Kind() == ControlKind::Picture;
    };
    for (std::size_t i = 0; i < entries_.size(); ++i)
        if (isPicture(i)) Make(i);
    for (std::size_t i = 0; i < entries_.size(); ++i)
        if (!isPicture(i)) Make(i);
    for (const Entry& entry : entries_)
        if (entry.Native)
            ::SetWindowPos(entry.Native->Window(), HWND_TOP, 0, 0, 0, 0,
                           SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

ControlWindows::~ControlWindows() {
    for (const Entry& entry : entries_) {
        if (!entry.Native) continue;
        const HANDLE name = ::RemovePropW(entry.Native->Window(), kNameProperty);
        ::GlobalDeleteAtom(static_cast<ATOM>(reinterpret_cast<UINT_PTR>(name)));
    }
}

Surface& ControlWindows::SurfaceIn(const Control* container) const {
    if (!container) return ground_;
    auto* picture = dynamic_cast<PictureWindow*>(NativeOf(*container));
    return picture ? picture->Area() : ground_;
}

std::unique_ptr<NativeControl> ControlWindows::MakeWindow(Control& control, HWND parent, int id) {
    auto* picture = dynamic_cast<Picture*>(&control);
    if (!picture) return MakeNativeControl(control, context_, parent, id);
    const bool carries =
        std::any_of(form_.Controls.begin(), form_.Controls.end(),
                    [&](const Control* each) { return each->Container() == picture; });
    return std::make_unique<PictureWindow>(*picture, context_, parent, id, carries);
}

void ControlWindows::Make(std::size_t index) {
    Control& control = *form_.Controls[index];
    Entry& entry = entries_[index];
    entry.Owner = &control;
    entry.Container = &SurfaceIn(control.Container());
    entry.Native =
        MakeWindow(control, entry.Container->Window(), kFirstId + static_cast<int>(index));
    if (!entry.Native) {
        entry.Container->Add(control);
        return;
    }
    const ATOM name = ::GlobalAddAtomW(Wide(control.Name()).c_str());
    ::SetPropW(entry.Native->Window(), kNameProperty,
               reinterpret_cast<HANDLE>(static_cast<UINT_PTR>(name)));
}

void ControlWindows::FollowDefaultButton() {
    if (default_ == form_.DefaultButton) return;
    const auto show = [this](const Control* button, bool isDefault) {
        auto* native = button ? dynamic_cast<NativeButton*>(NativeOf(*button)) : nullptr;
        if (native) native->ShowAsDefault(isDefault);
    };
    show(default_, false);
    show(default_ = form_.DefaultButton, true);
}

const Control* ControlWindows::Update() {
    FollowDefaultButton();
    const Control* appeared = nullptr;
    for (Entry& entry : entries_) {
        const bool onScreen = std::exchange(entry.OnScreen, true);
        if (!entry.Owner->TakeChanged() && onScreen) continue;
        const bool shown = entry.Native && entry.Native->IsVisible();
        Refresh(entry);
        const bool isPicture = entry.Owner->Kind() == ControlKind::Picture;
        if (isPicture && !shown && entry.Native->IsVisible()) appeared = entry.Owner;
    }
    return appeared;
}

void ControlWindows::Refresh(const Entry& entry) {
    if (entry.Native)
        entry.Native->Update();
    else
        entry.Container->Refresh(*entry.Owner);
    UpdateTip(entry);
}

void ControlWindows::UpdateTip(const Entry& entry) {
    RECT area = context_.Scaling.Pixels(entry.Owner->Place());
    if (entry.Native) ::GetClientRect(entry.Native->Window(), &area);
    tips_.Update(*entry.Owner, entry.Native ? entry.Native->Window() : entry.Container->Window(),
                 area);
}

void ControlWindows::Rescale() {
    ground_.RefreshAll();
    for (const Entry& entry : entries_) {
        if (entry.Native) entry.Native->Rescale();
        UpdateTip(entry);
    }
}

NativeControl* ControlWindows::NativeOf(const Control& control) const {
    const auto entry = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const Entry& each) { return each.Owner == &control; });
    return entry == entries_.end() ? nullptr : entry->Native.get();
}

RECT ControlWindows::ScreenArea(const Control& control) const {
    RECT area{};
    if (const NativeControl* native = NativeOf(control)) {
        ::GetWindowRect(native->Window(), &area);
        return area;
    }
    area = context_.Scaling.Pixels(control.Place());
    ::MapWindowPoints(SurfaceIn(control.Container()).Window(), HWND_DESKTOP,
                      reinterpret_cast<POINT*>(&area), 2);
    return area;
}

}  // namespace platform::win32
