#include "cli/output_text.h"

#include <iterator>
#include <sstream>

namespace cli {

Texts Lines(const std::string& text) {
    std::istringstream stream(text);
    Texts lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

Texts Words(const std::string& text) {
    std::istringstream stream(text);
    using Word = std::istream_iterator<std::string>;
    return {Word(stream), Word()};
}

}  // namespace cli
