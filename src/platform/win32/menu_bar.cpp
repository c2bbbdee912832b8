#include "platform/win32/menu_bar.h"

#include "platform/win32/text_conversion.h"

namespace platform::win32 {

MenuBar::MenuBar(const Form& form, HWND window) {
    if (!form.Menu.empty()) ::SetMenu(window, Build(form.Menu, ::CreateMenu()));
}

HMENU MenuBar::Build(const std::vector<MenuItem>& items, HMENU menu) {
    for (const MenuItem& item : items) {
        const std::wstring caption = Wide(item.Caption);
        if (item.Caption == "-") {
            ::AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
        } else if (!item.Items.empty()) {
            const HMENU opened = Build(item.Items, ::CreatePopupMenu());
            ::AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(opened), caption.c_str());
        } else {
            ::AppendMenuW(menu, MF_STRING, kFirstCommand + entries_.size(), caption.c_str());
            entries_.push_back(&item);
        }
    }
    return menu;
}

bool MenuBar::Run(WORD command) const {
    if (command < kFirstCommand || command >= kFirstCommand + entries_.size()) return false;
    const MenuItem& item = *entries_[static_cast<std::size_t>(command - kFirstCommand)];
    if (item.OnClick) item.OnClick();
    return true;
}

}  // namespace platform::win32
