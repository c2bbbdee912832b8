#include "platform/win32/control_inspection.h"

#include <string>
#include <string_view>

namespace platform::win32 {

namespace {

constexpr UINT kAnswerTimeout = 5000;  // ms

std::string Line(std::string_view key, std::string_view value) {
    return std::string(key) + "=" + std::string(value) + "\n";
}

std::string Line(std::string_view key, long long value) {
    return Line(key, std::to_string(value));
}

std::string AreaLine(const RECT& area) {
    return Line("area", std::to_string(area.left) + "," + std::to_string(area.top) + "," +
                            std::to_string(area.right) + "," + std::to_string(area.bottom));
}

std::string ValueLines(const Control& control) {
    if (const auto* box = dynamic_cast<const CheckBox*>(&control))
        return Line("value", box->Value());
    if (const auto* option = dynamic_cast<const OptionButton*>(&control))
        return Line("value", option->Value());
    if (const auto* list = dynamic_cast<const ListBox*>(&control))
        return Line("value", list->ListIndex()) +
               Line("entries", static_cast<long long>(list->Entries().size()));
    return {};
}

long long HandleNumber(HWND window) {
    return static_cast<long long>(reinterpret_cast<LONG_PTR>(window));
}

std::string Describe(const std::string& name, const InspectedForm& form) {
    if (const MenuItem* item = form.Shown.FindMenu(name))
        return Line("value", form.Menu.CommandOf(name)) + "text=" + item->Caption;
    const Control* control = form.Shown.Find(name);
    if (!control) return {};
    const NativeControl* native = form.Controls.NativeOf(*control);
    return Line("visible", control->Shown()) + ValueLines(*control) +
           AreaLine(form.Controls.ScreenArea(*control)) +
           Line("window", HandleNumber(native ? native->Window() : nullptr)) +
           "text=" + control->ShownText();
}

}  // namespace

Result AnswerInspection(HWND asker, const COPYDATASTRUCT& request, const InspectedForm& form) {
    if (request.dwData != kInspectControl) return std::nullopt;
    const std::string name(static_cast<const char*>(request.lpData), request.cbData);
    std::string answer = Describe(name, form);
    if (answer.empty()) return FALSE;
    COPYDATASTRUCT reply{kInspectControl, static_cast<DWORD>(answer.size()), answer.data()};
    ::SendMessageTimeoutW(asker, WM_COPYDATA, reinterpret_cast<WPARAM>(form.Window),
                          reinterpret_cast<LPARAM>(&reply), SMTO_ABORTIFHUNG, kAnswerTimeout,
                          nullptr);
    return TRUE;
}

}  // namespace platform::win32
