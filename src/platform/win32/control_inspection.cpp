#include "platform/win32/control_inspection.h"

#include <string>

namespace platform::win32 {

namespace {

constexpr UINT kAnswerTimeout = 5000;  // ms

}  // namespace

Result AnswerInspection(HWND asker, const COPYDATASTRUCT& request, const Form& form,
                        const ControlWindows& controls) {
    if (request.dwData != kInspectControl) return std::nullopt;
    const Control* control = form.Find({static_cast<const char*>(request.lpData), request.cbData});
    if (!control) return FALSE;
    const NativeControl* native = controls.NativeOf(*control);
    const InspectedControl seen{controls.ScreenArea(*control), native ? native->Window() : nullptr,
                                control->Shown()};
    std::string answer(reinterpret_cast<const char*>(&seen), sizeof seen);
    answer += control->ShownText();
    COPYDATASTRUCT reply{kInspectControl, static_cast<DWORD>(answer.size()), answer.data()};
    ::SendMessageTimeoutW(asker, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&reply), SMTO_ABORTIFHUNG,
                          kAnswerTimeout, nullptr);
    return TRUE;
}

}  // namespace platform::win32
