#include "window/inspection.h"

#include <cstdlib>
#include <stdexcept>

#include "platform/win32/control_inspection.h"

namespace window {

namespace {

using platform::win32::kInspectControl;

constexpr UINT kTimeout = 20000;  // ms

// The window that answers are sent to.
class Asker {
  public:
    Asker() {
        WNDCLASSEXW windowClass{};
        windowClass.cbSize = sizeof windowClass;
        windowClass.lpfnWndProc = &Procedure;
        windowClass.hInstance = ::GetModuleHandleW(nullptr);
        windowClass.lpszClassName = L"VarnelInspector";
        ::RegisterClassExW(&windowClass);
        window_ = ::CreateWindowExW(0, windowClass.lpszClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE,
                                    nullptr, windowClass.hInstance, nullptr);
        if (!window_) throw std::runtime_error("no window to receive answers");
    }
    ~Asker() { ::DestroyWindow(window_); }
    Asker(const Asker&) = delete;
    Asker& operator=(const Asker&) = delete;

    std::string Ask(HWND form, std::string_view name) {
        std::string question(name);
        COPYDATASTRUCT request{kInspectControl, static_cast<DWORD>(question.size()),
                               question.data()};
        answer_.clear();
        if (!::SendMessageTimeoutW(form, WM_COPYDATA, reinterpret_cast<WPARAM>(window_),
                                   reinterpret_cast<LPARAM>(&request), SMTO_ABORTIFHUNG, kTimeout,
                                   nullptr))
            throw std::runtime_error("the window does not answer when asked for " + question);
        return answer_;
    }

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT id, WPARAM word, LPARAM number) {
        if (id != WM_COPYDATA) return ::DefWindowProcW(window, id, word, number);
        const auto& reply = *reinterpret_cast<const COPYDATASTRUCT*>(number);
        if (reply.dwData == kInspectControl)
            answer_.assign(static_cast<const char*>(reply.lpData), reply.cbData);
        return TRUE;
    }

    HWND window_ = nullptr;
    static inline std::string answer_;
};

int Number(const std::string& text) {
    return std::atoi(text.c_str());
}

COLORREF ColorOf(const std::string& digits) {
    return static_cast<COLORREF>(std::strtoul(digits.c_str(), nullptr, 16));
}

std::vector<int> Numbers(const std::string& text) {
    std::vector<int> numbers;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find(',', start), text.size());
        numbers.push_back(Number(text.substr(start, end - start)));
        start = end + 1;
    }
    return numbers;
}

void Note(Seen& seen, const std::string& key, const std::string& value) {
    if (key == "kind") seen.Kind = value;
    if (key == "visible") seen.Visible = value == "1";
    if (key == "enabled") seen.Enabled = value == "1";
    if (key == "bold") seen.Bold = value == "1";
    if (key == "back") seen.Back = ColorOf(value);
    if (key == "fore") seen.Fore = ColorOf(value);
    if (key == "value") seen.Value = Number(value);
    if (key == "entry") seen.Entries.push_back(value);
    if (key == "tip") seen.Tip = value;
    if (key == "window")
        seen.Window = reinterpret_cast<HWND>(std::strtoll(value.c_str(), nullptr, 10));
    const std::vector<int> numbers = Numbers(value);
    if (key == "range" && numbers.size() == 2) {
        seen.Minimum = numbers[0];
        seen.Maximum = numbers[1];
    }
    if (key == "area" && numbers.size() == 4)
        seen.Area = {numbers[0], numbers[1], numbers[2], numbers[3]};
}

}  // namespace

std::optional<Seen> Inspect(HWND form, std::string_view name) {
    static Asker asker;
    const std::string answer = asker.Ask(form, name);
    if (answer.empty()) return std::nullopt;
    Seen seen;
    for (std::size_t start = 0; start < answer.size();) {
        const std::size_t equals = answer.find('=', start);
        const std::string key = answer.substr(start, equals - start);
        if (key == "text") {  // all the rest
            seen.Text = answer.substr(equals + 1);
            break;
        }
        const std::size_t end = answer.find('\n', equals);
        Note(seen, key, answer.substr(equals + 1, end - equals - 1));
        start = end + 1;
    }
    return seen;
}

}  // namespace window
