#include "platform/win32/middle_ellipsis.h"

namespace platform::win32 {

namespace {

constexpr std::wstring_view kEllipsis = L"...";

bool IsLowSurrogate(wchar_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

// `end` moved back where it would cut a character in two.
std::size_t WholeCharacters(std::wstring_view text, std::size_t end) {
    return end > 0 && end < text.size() && IsLowSurrogate(text[end]) ? end - 1 : end;
}

std::wstring Join(std::wstring_view head, std::wstring_view tail) {
    std::wstring joined(head);
    joined += kEllipsis;
    joined += tail;
    return joined;
}

// Where the end that should stay begins: at the last separator, or in the middle of a text whose
// last component takes more than its share.
std::size_t TailStart(std::wstring_view text, int width,
                      const std::function<int(std::wstring_view)>& measure) {
    const std::size_t separator = text.find_last_of(L"\\/");
    if (separator != std::wstring_view::npos && separator > 0 &&
        measure(Join({}, text.substr(separator))) <= width * 3 / 4)
        return separator;
    std::size_t low = 0;
    std::size_t high = text.size();
    while (low < high) {  // the longest end that takes at most half of the place
        const std::size_t middle = (low + high) / 2;
        if (measure(text.substr(middle)) <= width / 2)
            high = middle;
        else
            low = middle + 1;
    }
    return low < text.size() && IsLowSurrogate(text[low]) ? low + 1 : low;
}

}  // namespace

std::wstring ShortenMiddle(std::wstring_view text, int width,
                           const std::function<int(std::wstring_view)>& measure) {
    if (measure(text) <= width) return std::wstring(text);
    const std::wstring_view tail = text.substr(TailStart(text, width, measure));
    std::size_t low = 0;
    std::size_t high = text.size() - tail.size();
    while (low < high) {
        const std::size_t middle = (low + high + 1) / 2;
        if (measure(Join(text.substr(0, middle), tail)) <= width)
            low = middle;
        else
            high = middle - 1;
    }
    std::wstring shortened = Join(text.substr(0, WholeCharacters(text, low)), tail);
    return measure(shortened) <= width ? shortened : std::wstring(kEllipsis);
}

}  // namespace platform::win32
