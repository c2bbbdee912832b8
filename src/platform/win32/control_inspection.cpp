#include "platform/win32/control_inspection.h"

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "platform/win32/colors.h"

namespace platform::win32 {

namespace {

constexpr UINT kAnswerTimeout = 5000;  // ms

std::string Line(std::string_view key, std::string_view value) {
    return std::string(key) + "=" + std::string(value) + "\n";
}

std::string Line(std::string_view key, long long value) {
    return Line(key, std::to_string(value));
}

std::string ColorLine(std::string_view key, Color color) {
    char digits[9];
    std::snprintf(digits, sizeof digits, "%06lX", Resolve(color));
    return Line(key, digits);
}

std::string AreaLine(const RECT& area) {
    return Line("area", std::to_string(area.left) + "," + std::to_string(area.top) + "," +
                            std::to_string(area.right) + "," + std::to_string(area.bottom));
}

const char* KindName(ControlKind kind) {
    switch (kind) {
        case ControlKind::Label:
            return "Label";
        case ControlKind::Button:
            return "Button";
        case ControlKind::TextBox:
            return "TextBox";
        case ControlKind::ComboBox:
            return "ComboBox";
        case ControlKind::CheckBox:
            return "CheckBox";
        case ControlKind::OptionButton:
            return "OptionButton";
        case ControlKind::ListBox:
            return "ListBox";
        case ControlKind::ScrollBar:
            return "ScrollBar";
        case ControlKind::Picture:
            return "Picture";
        case ControlKind::Image:
            return "Image";
    }
    return "";
}

std::string ValueLines(const Control& control) {
    if (const auto* box = dynamic_cast<const CheckBox*>(&control))
        return Line("value", box->Value());
    if (const auto* option = dynamic_cast<const OptionButton*>(&control))
        return Line("value", option->Value());
    if (const auto* bar = dynamic_cast<const ScrollBar*>(&control))
        return Line("value", bar->Value()) +
               Line("range", std::to_string(bar->Minimum()) + "," + std::to_string(bar->Maximum()));
    const std::vector<std::string>* entries = nullptr;
    std::string lines;
    if (const auto* combo = dynamic_cast<const ComboBox*>(&control)) {
        lines = Line("value", combo->ListIndex());
        entries = &combo->Entries();
    } else if (const auto* list = dynamic_cast<const ListBox*>(&control)) {
        lines = Line("value", list->ListIndex());
        entries = &list->Entries();
    }
    if (!entries) return lines;
    lines += Line("entries", static_cast<long long>(entries->size()));
    for (const std::string& entry : *entries) lines += Line("entry", entry);
    return lines;
}

long long HandleNumber(HWND window) {
    return static_cast<long long>(reinterpret_cast<LONG_PTR>(window));
}

std::string DescribeControl(const Control& control, const InspectedForm& form) {
    const NativeControl* native = form.Controls.NativeOf(control);
    return Line("kind", KindName(control.Kind())) + Line("visible", control.Shown()) +
           Line("enabled", control.Enabled()) + ColorLine("back", control.BackColor()) +
           ColorLine("fore", control.ForeColor()) + Line("bold", control.Bold()) +
           ValueLines(control) + AreaLine(form.Controls.ScreenArea(control)) +
           Line("window", HandleNumber(native ? native->Window() : nullptr)) +
           Line("tip", control.ToolTip()) + "text=" + control.ShownText();
}

std::string DescribeForm(const InspectedForm& form) {
    RECT area;
    ::GetWindowRect(form.Window, &area);
    return Line("kind", "Form") + Line("visible", ::IsWindowVisible(form.Window)) +
           Line("enabled", ::IsWindowEnabled(form.Window)) + AreaLine(area) +
           Line("window", HandleNumber(form.Window)) + "text=" + form.Shown.Caption;
}

std::string Describe(const std::string& name, const InspectedForm& form) {
    if (name == form.Shown.Name) return DescribeForm(form);
    if (const Control* control = form.Shown.Find(name)) return DescribeControl(*control, form);
    if (const MenuItem* item = form.Shown.FindMenu(name))
        return Line("kind", "Menu") + Line("value", form.Menu.CommandOf(name)) +
               "text=" + item->Caption;
    return {};
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
