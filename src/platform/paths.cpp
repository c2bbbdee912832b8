#include "platform/paths.h"

namespace platform {

namespace {

constexpr std::string_view kTemporaryStart = ".varnel~";
constexpr std::size_t kTemporaryDigits = 8;

}  // namespace

bool IsTemporaryName(std::string_view name) {
    return name.size() == kTemporaryStart.size() + kTemporaryDigits &&
           name.starts_with(kTemporaryStart) &&
           name.find_first_not_of("0123456789abcdef", kTemporaryStart.size()) == name.npos;
}

}  // namespace platform
