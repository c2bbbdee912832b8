// Reads what --format json writes, strictly: a line that is not valid JSON is refused.
#pragma once

#include <map>
#include <string>

namespace cli {

// The members of one flat object; texts as bytes (a lone \udcXX is the byte XX), numbers and truth
// values as they are written. Throws std::runtime_error on anything that is not such an object, on
// control characters and on bytes that are not UTF-8.
std::map<std::string, std::string> ReadJsonObject(const std::string& line);

}  // namespace cli
