// A form's menu bar.
#pragma once

#include <vector>

#include <windows.h>

#include "platform/forms.h"

namespace platform::win32 {

class MenuBar {
  public:
    // The command of the first entry; the others follow in the order of the menu tree, separators
    // and the titles of menus left out.
    static constexpr WORD kFirstCommand = 100;

    // The window owns the menu from then on. `form` must keep its menu unchanged.
    MenuBar(const Form& form, HWND window);

    // Does what the entry is for. False when no entry has this command.
    bool Run(WORD command) const;

  private:
    HMENU Build(const std::vector<MenuItem>& items, HMENU menu);

    std::vector<const MenuItem*> entries_;
};

}  // namespace platform::win32
