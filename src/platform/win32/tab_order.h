// Where the keyboard goes in a form. The order of the form's controls is the tab order; of a
// group of option buttons only the chosen one is a stop, the arrow keys move within the group.
#pragma once

#include "platform/forms.h"

namespace platform::win32 {

enum class Direction { Forward, Backward };

// The next control that takes the keyboard, round the form's end; null when there is none.
// `from` need not be a stop itself; null starts outside.
Control* NextStop(const Form& form, const Control* from, Direction direction);

// The next option button that can be chosen in the group around `from`, round the group's end.
OptionButton* NextOption(const Form& form, const OptionButton& from, Direction direction);

// Whether the user can get at the control at this moment.
bool CanReach(const Control& control);

}  // namespace platform::win32
