#include "window/inspection.h"

#include <cstdio>
#include <sstream>
#include <stdexcept>

#include "platform/win32/control_inspection.h"

namespace window {

namespace {

constexpr UINT kTimeout = 20000;  // ms

std::string answer;

LRESULT CALLBACK TakeAnswer(HWND window, UINT id, WPARAM word, LPARAM number) {
    if (id != WM_COPYDATA) return ::DefWindowProcW(window, id, word, number);
    const auto& reply = *reinterpret_cast<const COPYDATASTRUCT*>(number);
    answer.assign(static_cast<const char*>(reply.lpData), reply.cbData);
    return TRUE;
}

// The window that answers are sent to.
HWND MakeAsker() {
    const HWND asker = ::CreateWindowExW(0, L"Static", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                         nullptr, nullptr);
    ::SetWindowLongPtrW(asker, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&TakeAnswer));
    return asker;
}

void Note(Seen& seen, const std::string& key, const std::string& value) {
    const auto number = [&](int base) { return std::strtoll(value.c_str(), nullptr, base); };
    RECT& area = seen.Area;
    if (key == "kind") seen.Kind = value;
    if (key == "visible") seen.Visible = value == "1";
    if (key == "bold") seen.Bold = value == "1";
    if (key == "back") seen.Back = static_cast<COLORREF>(number(16));
    if (key == "fore") seen.Fore = static_cast<COLORREF>(number(16));
    if (key == "value") seen.Value = static_cast<int>(number(10));
    if (key == "area")
        std::sscanf(value.c_str(), "%ld,%ld,%ld,%ld", &area.left, &area.top, &area.right,
                    &area.bottom);
    if (key == "window") seen.Window = reinterpret_cast<HWND>(number(10));
    if (key == "entry") seen.Entries.push_back(value);
}

}  // namespace

Seen Inspect(HWND form, std::string_view name) {
    static const HWND asker = MakeAsker();
    std::string question(name);
    COPYDATASTRUCT request{platform::win32::kInspectControl, static_cast<DWORD>(question.size()),
                           question.data()};
    answer.clear();
    ::SendMessageTimeoutW(form, WM_COPYDATA, reinterpret_cast<WPARAM>(asker),
                          reinterpret_cast<LPARAM>(&request), SMTO_ABORTIFHUNG, kTimeout, nullptr);
    if (answer.empty()) throw std::runtime_error("the window tells nothing of " + question);
    Seen seen;
    const std::size_t text = answer.find("\ntext=") + 1;
    std::istringstream lines(answer.substr(0, text));
    for (std::string key, value; std::getline(lines, key, '=') && std::getline(lines, value);)
        Note(seen, key, value);
    seen.Text = answer.substr(text + 5);
    return seen;
}

}  // namespace window
