#include "platform/win32/form_keyboard.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/win32/tab_order.h"

namespace platform::win32 {

namespace {

bool IsHeld(int key) {
    return ::GetKeyState(key) < 0;
}

struct ScrollKeyEntry {
    WPARAM Key;
    ScrollKey Meaning;
};

constexpr ScrollKeyEntry kScrollKeys[] = {
    {VK_UP, ScrollKey::LineUp},     {VK_DOWN, ScrollKey::LineDown}, {VK_PRIOR, ScrollKey::PageUp},
    {VK_NEXT, ScrollKey::PageDown}, {VK_HOME, ScrollKey::Home},     {VK_END, ScrollKey::End},
};

// Controls that move something of their own by the keys that scroll.
bool NeedsScrollKeys(const Control& control) {
    switch (control.Kind()) {
        case ControlKind::TextBox:
        case ControlKind::ComboBox:
        case ControlKind::ListBox:
        case ControlKind::OptionButton:
            return true;
        default:
            return false;
    }
}

}  // namespace

FormKeyboard::FormKeyboard(Form& form, HWND window, const ControlWindows& controls)
    : form_(form), window_(window), controls_(controls) {}

bool FormKeyboard::TakeKey(const MSG& message) {
    const WPARAM key = message.wParam;
    return message.message == WM_KEYDOWN &&
           (MoveFocus(key) || Choose(key) || PressEnter(key) || PressEsc(key) || Scroll(key));
}

Control* FormKeyboard::Focused() const {
    const NativeControl* native = NativeControl::Of(::GetFocus());
    return native ? &native->Owner() : nullptr;
}

void FormKeyboard::Focus(const Control& control) {
    const NativeControl* native = controls_.NativeOf(control);
    if (!native) return;
    last_ = &control;
    ::SetFocus(native->Window());
}

void FormKeyboard::FocusFirst() {
    if (const Control* first = NextStop(form_, nullptr, Direction::Forward)) Focus(*first);
}

// Not on a text that can only be read: the keys should have something to do.
void FormKeyboard::FocusFirstIn(const Control& picture) {
    const Control* stop = NextStop(form_, &picture, Direction::Forward);
    while (stop && stop->Container() == &picture) {
        const auto* text = dynamic_cast<const TextBox*>(stop);
        if (!text || !text->ReadOnly()) return Focus(*stop);
        stop = NextStop(form_, stop, Direction::Forward);
    }
}

void FormKeyboard::RememberFocus() {
    const Control* focused = Focused();
    onForm_ = !focused;
    if (focused) last_ = focused;
}

void FormKeyboard::RestoreFocus() {
    if (onForm_) return;
    if (last_ && CanReach(*last_))
        Focus(*last_);
    else
        FocusFirst();
}

void FormKeyboard::LeaveUnreachable() {
    const Control* focused = Focused();
    if (!focused || CanReach(*focused)) return;
    last_ = left_ = focused;
    ::SetFocus(window_);
}

void FormKeyboard::ReturnToReachable() {
    if (!left_ || !CanReach(*left_)) return;
    const Control& control = *std::exchange(left_, nullptr);
    if (::GetFocus() == window_) Focus(control);
}

// Windows draws focus rectangles and underlines only once the keyboard is used.
void FormKeyboard::ShowFocusMarks() {
    ::SendMessageW(window_, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
}

bool FormKeyboard::MoveFocus(WPARAM key) {
    if (key != VK_TAB || IsHeld(VK_CONTROL)) return false;
    const Control* focused = Focused();
    const Direction direction = IsHeld(VK_SHIFT) ? Direction::Backward : Direction::Forward;
    const Control* next = NextStop(form_, focused ? focused : last_, direction);
    ShowFocusMarks();
    if (!next) return true;
    Focus(*next);
    if (next->Kind() == ControlKind::TextBox) ::SendMessageW(::GetFocus(), EM_SETSEL, 0, -1);
    return true;
}

bool FormKeyboard::Choose(WPARAM key) {
    const auto* option = dynamic_cast<const OptionButton*>(Focused());
    const bool onward = key == VK_DOWN || key == VK_RIGHT;
    if (!option || !(onward || key == VK_UP || key == VK_LEFT)) return false;
    ShowFocusMarks();
    OptionButton* next =
        NextOption(form_, *option, onward ? Direction::Forward : Direction::Backward);
    if (!next) return true;
    Focus(*next);
    next->Click();
    return true;
}

bool FormKeyboard::PressEnter(WPARAM key) {
    if (key != VK_RETURN) return false;
    const NativeControl* native = NativeControl::Of(::GetFocus());
    if (native && native->KeepsEnterAndEsc()) return false;
    Control* focused = Focused();
    if (focused && focused->Kind() == ControlKind::Button)
        focused->Click();
    else if (form_.DefaultButton)
        form_.DefaultButton->Click();
    return true;
}

bool FormKeyboard::PressEsc(WPARAM key) {
    if (key != VK_ESCAPE) return false;
    const NativeControl* native = NativeControl::Of(::GetFocus());
    if (native && native->KeepsEnterAndEsc()) return false;
    if (form_.CancelButton) form_.CancelButton->Click();
    return true;
}

bool FormKeyboard::Scroll(WPARAM key) {
    const Control* focused = Focused();
    if (!form_.OnScrollKey || (focused && NeedsScrollKeys(*focused))) return false;
    const auto entry = std::find_if(std::begin(kScrollKeys), std::end(kScrollKeys),
                                    [&](const ScrollKeyEntry& each) { return each.Key == key; });
    if (entry == std::end(kScrollKeys) || IsHeld(VK_CONTROL) || IsHeld(VK_SHIFT)) return false;
    form_.OnScrollKey(entry->Meaning);
    return true;
}

}  // namespace platform::win32
