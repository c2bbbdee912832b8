#include "platform/win32/tab_order.h"

#include <algorithm>
#include <cstddef>

namespace platform::win32 {

namespace {

using Controls = std::vector<Control*>;

// Option buttons that follow each other in one container are a group.
bool InOneGroup(const Control& a, const Control& b) {
    return a.Kind() == ControlKind::OptionButton && b.Kind() == ControlKind::OptionButton &&
           a.Container() == b.Container();
}

Controls GroupAround(const Form& form, const Control& option) {
    const Controls& all = form.Controls;
    const auto self = std::find(all.begin(), all.end(), &option);
    auto first = self;
    while (first != all.begin() && InOneGroup(**(first - 1), option)) --first;
    auto last = self;
    while (last != all.end() && InOneGroup(**last, option)) ++last;
    return {first, last};
}

bool IsChosen(const Control* control) {
    const auto* option = dynamic_cast<const OptionButton*>(control);
    return option && option->Value();
}

// The option that stands for its group: the chosen one, else the first.
bool StandsForGroup(const Form& form, const Control& option) {
    const Controls group = GroupAround(form, option);
    const auto chosen = std::find_if(group.begin(), group.end(), [](const Control* each) {
        return IsChosen(each) && CanReach(*each);
    });
    if (chosen != group.end()) return *chosen == &option;
    return *std::find_if(group.begin(), group.end(),
                         [](const Control* each) { return CanReach(*each); }) == &option;
}

bool IsStop(const Form& form, const Control& control) {
    if (!CanReach(control)) return false;
    switch (control.Kind()) {
        case ControlKind::Button:
        case ControlKind::TextBox:
        case ControlKind::ComboBox:
        case ControlKind::CheckBox:
        case ControlKind::ListBox:
            return true;
        case ControlKind::OptionButton:
            return StandsForGroup(form, control);
        default:
            return false;
    }
}

// The first control after `from`, going round, that is `wanted`.
template <typename Wanted>
Control* NextAfter(const Controls& controls, const Control* from, Direction direction,
                   Wanted wanted) {
    const std::size_t count = controls.size();
    const std::size_t step = direction == Direction::Forward ? 1 : count - 1;
    const auto found = std::find(controls.begin(), controls.end(), from);
    auto index = static_cast<std::size_t>(found - controls.begin());
    if (found == controls.end()) index = direction == Direction::Forward ? count - 1 : 0;
    for (std::size_t tried = 0; tried < count; ++tried) {
        index = (index + step) % count;
        if (wanted(*controls[index])) return controls[index];
    }
    return nullptr;
}

}  // namespace

bool CanReach(const Control& control) {
    return control.Enabled() && control.Shown();
}

Control* NextStop(const Form& form, const Control* from, Direction direction) {
    return NextAfter(form.Controls, from, direction,
                     [&](const Control& control) { return IsStop(form, control); });
}

OptionButton* NextOption(const Form& form, const OptionButton& from, Direction direction) {
    return static_cast<OptionButton*>(
        NextAfter(GroupAround(form, from), &from, direction, CanReach));
}

}  // namespace platform::win32
