// Takes texts apart.
#pragma once

#include <string>
#include <vector>

namespace cli {

using Texts = std::vector<std::string>;

// Lines without their line feeds; text after the last line feed is a line, too.
Texts Lines(const std::string& text);

// What stands between blanks.
Texts Words(const std::string& text);

}  // namespace cli
