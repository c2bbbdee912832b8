#include "cli/json_row.h"

#include <stdexcept>
#include <string_view>

namespace cli {

std::map<std::string, std::string> ReadJsonObject(const std::string& line) {
    std::map<std::string, std::string> members;
    std::string_view rest = line;
    const auto take = [&](std::string_view text) {
        const bool there = rest.starts_with(text);
        if (there) rest.remove_prefix(text.size());
        return there;
    };
    const auto expect = [&](std::string_view text) {
        if (!take(text)) throw std::runtime_error("no JSON object: " + line);
    };
    const auto cut = [&](std::size_t length) {
        const std::string text(rest.substr(0, length));
        rest.remove_prefix(text.size());
        return text;
    };
    const auto quoted = [&] {
        expect("\"");
        std::size_t end = 0;
        while (end < rest.size() && rest[end] != '"') end += rest[end] == '\\' ? 2 : 1;
        const std::string text = cut(end);
        expect("\"");
        return text;
    };
    expect("{");
    do {
        const std::string key = quoted();
        expect(": ");
        members[key] = rest.starts_with('"') ? quoted() : cut(rest.find_first_of(",}"));
    } while (take(", "));
    expect("}");
    if (!rest.empty()) throw std::runtime_error("more than a JSON object: " + line);
    return members;
}

}  // namespace cli
