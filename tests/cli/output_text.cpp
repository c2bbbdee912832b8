#include "cli/output_text.h"

#include <algorithm>
#include <sstream>

namespace cli {

Texts Lines(const std::string& text) {
    std::istringstream stream(text);
    Texts lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

Texts SortedLines(const std::string& text) {
    Texts lines = Lines(text);
    std::sort(lines.begin(), lines.end());
    return lines;
}

Texts Words(const std::string& text) {
    std::istringstream stream(text);
    Texts words;
    for (std::string word; stream >> word;) words.push_back(word);
    return words;
}

Texts ScreenAfter(const std::string& bytes) {
    Texts screen;
    for (const std::string& written : Lines(bytes)) {
        std::string shown;
        std::size_t at = 0;
        for (const char character : written) {
            if (character == '\r') {
                at = 0;
                continue;
            }
            shown.resize(std::max(shown.size(), at + 1), ' ');
            shown[at++] = character;
        }
        screen.push_back(shown.substr(0, shown.find_last_not_of(' ') + 1));
    }
    while (!screen.empty() && screen.back().empty()) screen.pop_back();
    return screen;
}

}  // namespace cli
