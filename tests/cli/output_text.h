// Takes the program's output apart.
#pragma once

#include <string>
#include <vector>

namespace cli {

using Texts = std::vector<std::string>;

// The lines that a terminal shows after these bytes, without trailing blanks and without empty
// lines at the end.
Texts ScreenAfter(const std::string& bytes);

// Lines without their line feeds; text after the last line feed is a line, too.
Texts Lines(const std::string& text);
Texts SortedLines(const std::string& text);

}  // namespace cli
