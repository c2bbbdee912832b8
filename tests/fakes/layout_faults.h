// Finds controls that stand on one another or stick out of what holds them.
#pragma once

#include <string>
#include <vector>

#include "platform/forms.h"

namespace fakes {

// One text a fault. Looks at the controls of `form` that are visible themselves, whether or not
// their container is; pictures may stand over other controls of the form.
inline std::vector<std::string> LayoutFaults(const platform::Form& form) {
    using platform::Control;
    using platform::Place;
    std::vector<const Control*> controls;
    for (const Control* control : form.Controls)
        if (control->Kind() != platform::ControlKind::Picture && control->Visible())
            controls.push_back(control);

    std::vector<std::string> faults;
    for (std::size_t i = 0; i < controls.size(); ++i) {
        const Place a = controls[i]->Place();
        const Control* container = controls[i]->Container();
        const Place room = container ? container->Place() : form.Bounds;
        if (a.Left < 0 || a.Top < 0 || a.Left + a.Width > room.Width ||
            a.Top + a.Height > room.Height)
            faults.push_back(controls[i]->Name() + " sticks out");
        for (std::size_t j = i + 1; j < controls.size(); ++j) {
            const Place b = controls[j]->Place();
            if (controls[j]->Container() == container && a.Left < b.Left + b.Width &&
                b.Left < a.Left + a.Width && a.Top < b.Top + b.Height && b.Top < a.Top + a.Height)
                faults.push_back(controls[i]->Name() + " and " + controls[j]->Name() + " overlap");
        }
    }
    return faults;
}

}  // namespace fakes
