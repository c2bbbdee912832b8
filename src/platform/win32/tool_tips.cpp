#include "platform/win32/tool_tips.h"

#include <commctrl.h>

#include "platform/win32/text_conversion.h"

namespace platform::win32 {

namespace {

constexpr int kWidestLine = 600;  // pixels; longer tips are broken

HWND MakeTips(HWND form) {
    const HWND tips = ::CreateWindowExW(
        WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX, CW_USEDEFAULT,
        CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, form, nullptr, nullptr, nullptr);
    ::SendMessageW(tips, TTM_SETMAXTIPWIDTH, 0, kWidestLine);
    return tips;
}

}  // namespace

void ToolTips::Update(const Control& control, HWND window, const RECT& area) {
    const std::string tip = control.Visible() ? control.ToolTip() : std::string();
    const auto shown = shown_.find(&control);
    if (shown == shown_.end() && tip.empty()) return;
    if (shown != shown_.end() && shown->second.Text == tip &&
        ::EqualRect(&shown->second.Area, &area))
        return;

    if (!tips_) tips_ = MakeTips(form_);
    std::wstring text = Wide(tip);
    TOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_SUBCLASS;
    tool.hwnd = window;
    tool.uId = reinterpret_cast<UINT_PTR>(&control);
    tool.rect = area;
    tool.lpszText = text.data();
    const auto argument = reinterpret_cast<LPARAM>(&tool);
    if (shown != shown_.end()) ::SendMessageW(tips_, TTM_DELTOOLW, 0, argument);
    if (!text.empty()) ::SendMessageW(tips_, TTM_ADDTOOLW, 0, argument);
    if (text.empty())
        shown_.erase(&control);
    else
        shown_[&control] = {tip, area};
}

}  // namespace platform::win32
