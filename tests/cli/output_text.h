// Takes texts apart.
#pragma once

#include <string>
#include <vector>

namespace cli {

using Texts = std::vector<std::string>;

// Lines without their line feeds; text after the last line feed is a line, too.
Texts Lines(const std::string& text);
Texts SortedLines(const std::string& text);

// What stands between blanks.
Texts Words(const std::string& text);

// The lines that a terminal shows after these bytes, without trailing blanks and without empty
// lines at the end.
Texts ScreenAfter(const std::string& bytes);

}  // namespace cli
