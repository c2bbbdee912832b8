#include "cli/json_row.h"

#include <stdexcept>
#include <string_view>

namespace cli {

std::map<std::string, std::string> ReadJsonObject(const std::string& line) {
    std::map<std::string, std::string> members;
    std::size_t at = 0;
    const auto stands = [&](std::string_view text) {
        return line.compare(at, text.size(), text) == 0;
    };
    const auto take = [&](std::string_view text) {
        if (!stands(text)) throw std::runtime_error("no JSON object: " + line);
        at += text.size();
    };
    const auto takeUpTo = [&](std::string_view ends) {
        const std::size_t start = at;
        while (at < line.size() && ends.find(line[at]) == ends.npos) at += stands("\\") ? 2 : 1;
        return line.substr(start, at - start);
    };
    do {
        take(members.empty() ? "{\"" : ", \"");
        std::string& value = members[takeUpTo("\"")];
        take("\": ");
        const std::string_view quote = stands("\"") ? "\"" : "";
        take(quote);
        value = takeUpTo(quote.empty() ? ",}" : quote);
        take(quote);
    } while (stands(","));
    take("}");
    if (at != line.size()) throw std::runtime_error("more than a JSON object: " + line);
    return members;
}

}  // namespace cli
