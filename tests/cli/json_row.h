// Reads what --format json writes.
#pragma once

#include <map>
#include <string>

namespace cli {

// The members of one flat object, texts with their escapes as they are written. Throws on anything
// that is not such an object.
std::map<std::string, std::string> ReadJsonObject(const std::string& line);

}  // namespace cli
