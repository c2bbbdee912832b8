// Finds controls that stand on one another or stick out of what holds them.
#pragma once

#include <string>
#include <vector>

#include "platform/forms.h"

namespace fakes {

// One text a fault. Looks at the controls of `form` that are visible themselves, whether or not
// their container is; pictures may stand over other controls of the form.
inline std::vector<std::string> LayoutFaults(const platform::Form& form) {
    std::vector<std::string> faults;
    for (auto next = form.Controls.begin(); next != form.Controls.end(); ++next) {
        const platform::Control& one = **next;
        if (!one.Visible() || one.Kind() == platform::ControlKind::Picture) continue;
        const platform::Place a = one.Place();
        const platform::Place room = one.Container() ? one.Container()->Place() : form.Bounds;
        if (a.Left < 0 || a.Top < 0 || a.Left + a.Width > room.Width ||
            a.Top + a.Height > room.Height)
            faults.push_back(one.Name() + " sticks out");
        for (auto other = form.Controls.begin(); other != next; ++other) {
            const platform::Place b = (*other)->Place();
            if ((*other)->Visible() && (*other)->Kind() != platform::ControlKind::Picture &&
                (*other)->Container() == one.Container() && a.Left < b.Left + b.Width &&
                b.Left < a.Left + a.Width && a.Top < b.Top + b.Height && b.Top < a.Top + a.Height)
                faults.push_back(one.Name() + " and " + (*other)->Name() + " overlap");
        }
    }
    return faults;
}

}  // namespace fakes
