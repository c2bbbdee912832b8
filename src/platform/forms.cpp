#include "platform/forms.h"

#include <algorithm>

namespace platform {

namespace {

int highestZOrder = 0;

const MenuItem* FindIn(const std::vector<MenuItem>& items, std::string_view name) {
    for (const MenuItem& item : items) {
        if (item.Name == name) return &item;
        if (const MenuItem* found = FindIn(item.Items, name)) return found;
    }
    return nullptr;
}

}  // namespace

void Control::SetTop(int top) {
    platform::Place moved = place_;
    moved.Top = top;
    SetPlace(moved);
}

void Control::BringToFront() {
    Set(zOrder_, ++highestZOrder);
}

bool Control::Shown() const {
    for (const Control* control = this; control; control = control->container_)
        if (!control->visible_) return false;
    return true;
}

void Control::Click() {
    if (!Reachable()) return;
    ActOnClick();
    if (OnClick) OnClick();
}

void Control::PointerMove(PointerPosition position) {
    if (Reachable() && OnPointerMove) OnPointerMove(position);
}

void Control::MouseDown() {
    if (Reachable() && OnMouseDown) OnMouseDown();
}

void Control::MouseUp() {
    if (Reachable() && OnMouseUp) OnMouseUp();
}

bool Control::TakeChanged() {
    const bool changed = changed_;
    changed_ = false;
    return changed;
}

void OptionButton::SetValue(bool value) {
    Set(value_, value);
    if (!value) return;
    for (OptionButton* other : group_)
        if (other != this) other->SetValue(false);
}

void OptionButton::Group(const std::vector<OptionButton*>& buttons) {
    for (OptionButton* button : buttons) button->group_ = buttons;
}

void TextBox::Type(std::string_view asciiKeys) {
    if (!Reachable() || readOnly_) return;
    for (const char key : asciiKeys) {
        const auto code = static_cast<unsigned char>(key);
        if (code >= ' ' && Accepts(code)) SetText(text_ + key);
    }
}

void TextBox::Paste(std::string_view text) {
    if (Reachable() && !readOnly_) SetText(text);
}

void ComboBox::AddEntry(std::string_view entry) {
    entries_.emplace_back(entry);
    MarkChanged();
}

void ComboBox::ClearEntries() {
    entries_.clear();
    listIndex_ = -1;
    SetText("");
    MarkChanged();
}

void ComboBox::Select(int index) {
    if (index < 0 || index >= static_cast<int>(entries_.size())) return;
    Set(listIndex_, index);
    SetText(entries_[static_cast<std::size_t>(index)]);
}

void ComboBox::Pick(int index) {
    if (!Reachable()) return;
    Select(index);
    if (OnClick) OnClick();
}

void ComboBox::Edit(std::string_view text) {
    if (Reachable()) SetText(text);
}

void ListBox::AddEntry(std::string_view entry) {
    entries_.emplace_back(entry);
    MarkChanged();
}

void ListBox::RemoveEntry(int index) {
    if (index < 0 || index >= static_cast<int>(entries_.size())) return;
    entries_.erase(entries_.begin() + index);
    listIndex_ = -1;
    MarkChanged();
}

void ListBox::ClearEntries() {
    entries_.clear();
    listIndex_ = -1;
    MarkChanged();
}

void ListBox::Select(int index) {
    if (index >= -1 && index < static_cast<int>(entries_.size())) Set(listIndex_, index);
}

void ScrollBar::Scroll(int value) {
    if (!Reachable()) return;
    SetValue(std::clamp(value, minimum_, std::max(minimum_, maximum_)));
    if (OnChange) OnChange();
}

void Form::Add(Control& control, std::string_view name, const Place& place, Control* container) {
    control.name_ = name;
    control.container_ = container;
    control.SetPlace(place);
    Controls.push_back(&control);
}

Control* Form::Find(std::string_view name) const {
    const auto found = std::find_if(Controls.begin(), Controls.end(), [&](const Control* control) {
        return control->Name() == name;
    });
    return found == Controls.end() ? nullptr : *found;
}

const MenuItem* Form::FindMenu(std::string_view name) const {
    return FindIn(Menu, name);
}

}  // namespace platform
