// Texts as people type them.
#pragma once

#include <string_view>

namespace platform {

// The text without the blanks around it; points into `text`.
inline std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace platform
