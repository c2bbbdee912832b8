// Where everything stands in the main window, in twips.
#pragma once

#include "app/form_main.h"

namespace app {

// Puts all controls on the window under their fixed names, in tab order.
void PlaceControls(FormMain& form, rules::RowDirection& direction);

}  // namespace app
