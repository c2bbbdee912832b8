// The bytes of one open file into another.
#pragma once

#include <functional>

#include <sys/stat.h>

namespace platform::posix {

// Copies what `source` (of status `before`) holds into the empty file `target`. False with errno
// set when a byte could not be read or written, or when there were fewer than `before` says.
bool CopyContent(int source, int target, const struct stat& before,
                 const std::function<void()>& whileCopying);

}  // namespace platform::posix
