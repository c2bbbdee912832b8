#include "platform/win32/text_conversion.h"

#include <cstddef>

namespace platform::win32 {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

// How many bytes a character takes that begins with `lead`; 0 when none begins so.
std::size_t LengthAfterLead(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead < 0xE0) return 2;
    if (lead >= 0xE0 && lead < 0xF0) return 3;
    if (lead >= 0xF0 && lead < 0xF5) return 4;
    return 0;
}

// Takes one character off the front of `text`.
char32_t TakeCharacter(std::string_view& text) {
    constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = LengthAfterLead(lead);
    char32_t character = length < 2 ? lead : lead & (0x7Fu >> length);
    bool whole = length > 0 && length <= text.size();
    for (std::size_t i = 1; whole && i < length; ++i) {
        const auto next = static_cast<unsigned char>(text[i]);
        whole = (next & 0xC0) == 0x80;
        character = character << 6 | (next & 0x3F);
    }
    if (!whole || character < kSmallest[length] || character > 0x10FFFF) {
        text.remove_prefix(1);
        return kReplacement;
    }
    text.remove_prefix(length);
    return character;
}

void Append(std::string& text, char32_t character) {
    const auto tail = [&](int shift) {
        text += static_cast<char>(0x80 | (character >> shift & 0x3F));
    };
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0 | character >> 6);
        tail(0);
    } else if (character < 0x10000) {
        text += static_cast<char>(0xE0 | character >> 12);
        tail(6);
        tail(0);
    } else {
        text += static_cast<char>(0xF0 | character >> 18);
        tail(12);
        tail(6);
        tail(0);
    }
}

}  // namespace

std::wstring Wide(std::string_view text) {
    std::wstring wide;
    wide.reserve(text.size());
    while (!text.empty()) {
        const char32_t character = TakeCharacter(text);
        if (character < 0x10000) {
            wide += static_cast<wchar_t>(character);
        } else {
            wide += static_cast<wchar_t>(0xD800 + ((character - 0x10000) >> 10));
            wide += static_cast<wchar_t>(0xDC00 + ((character - 0x10000) & 0x3FF));
        }
    }
    return wide;
}

std::string Narrow(std::wstring_view text) {
    std::string narrow;
    narrow.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto unit = static_cast<char32_t>(text[i]);
        const bool pair = IsHighSurrogate(unit) && i + 1 < text.size() &&
                          IsLowSurrogate(static_cast<char32_t>(text[i + 1]));
        if (!pair) {
            Append(narrow, unit);
            continue;
        }
        const auto low = static_cast<char32_t>(text[++i]);
        Append(narrow, 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00));
    }
    return narrow;
}

}  // namespace platform::win32
