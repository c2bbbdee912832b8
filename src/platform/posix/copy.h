// Copying one file on Linux so that its target is at every moment the old one or the new one.
#pragma once

#include <functional>
#include <string>

#include "platform/outcome.h"

namespace platform::posix {

// As FileSystem::CopyOver. Keeps the modification time to the nanosecond and the permission bits,
// not the owner; shares or copies blocks inside the kernel where the file system can; keeps holes.
Outcome CopyOver(const std::string& from, const std::string& to,
                 const std::function<void()>& whileCopying);

// As FileSystem::RemoveLeftover. A running copy holds a lock on its temporary file.
void RemoveLeftover(const std::string& path);

}  // namespace platform::posix
