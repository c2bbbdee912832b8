#include "platform/win32/native_scroll_bar.h"

#include <algorithm>

namespace platform::win32 {

NativeScrollBar::NativeScrollBar(ScrollBar& bar, FormContext& context, HWND parent, int id)
    : NativeControl(bar, context, parent, id, {L"SCROLLBAR", SBS_VERT}), bar_(bar) {}

// Where the user wants the bar; nothing when the bar is only let go.
std::optional<int> NativeScrollBar::Target(WORD code) const {
    switch (code) {
        case SB_LINEUP:
            return bar_.Value() - bar_.SmallChange();
        case SB_LINEDOWN:
            return bar_.Value() + bar_.SmallChange();
        case SB_PAGEUP:
            return bar_.Value() - bar_.LargeChange();
        case SB_PAGEDOWN:
            return bar_.Value() + bar_.LargeChange();
        case SB_TOP:
            return bar_.Minimum();
        case SB_BOTTOM:
            return bar_.Maximum();
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION: {
            SCROLLINFO info{};
            info.cbSize = sizeof info;
            info.fMask = SIF_TRACKPOS;
            ::GetScrollInfo(Window(), SB_CTL, &info);
            return info.nTrackPos;
        }
        default:
            return std::nullopt;
    }
}

void NativeScrollBar::OnScroll(WORD code) {
    const std::optional<int> target = Target(code);
    if (target) {
        const int value =
            std::clamp(*target, bar_.Minimum(), std::max(bar_.Minimum(), bar_.Maximum()));
        if (value != bar_.Value()) bar_.Scroll(value);
    }
    // While the thumb is held it stays where the hand is; afterwards where its value is.
    if (code == SB_THUMBTRACK && shown_)
        shown_->Value = bar_.Value();
    else
        shown_.reset();
    if (!context_.Closed) UpdateContent();
}

void NativeScrollBar::UpdateContent() {
    const Range range{bar_.Minimum(), bar_.Maximum(), bar_.LargeChange(), bar_.Value()};
    if (shown_ == range) return;
    shown_ = range;
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL | SIF_DISABLENOSCROLL;
    info.nMin = range.Minimum;
    info.nMax = range.Maximum + range.Page - 1;  // a full page lies behind the last value
    info.nPage = static_cast<UINT>(range.Page);
    info.nPos = range.Value;
    ::SetScrollInfo(Window(), SB_CTL, &info, TRUE);
    // Not every system greys a bar without room that is not visible yet.
    ::EnableWindow(Window(), bar_.Enabled() && range.Minimum < range.Maximum);
}

}  // namespace platform::win32
