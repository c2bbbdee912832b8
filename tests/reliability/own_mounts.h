// Tests that need file systems of their own.
#pragma once

#include <functional>
#include <string>

namespace reliability {

enum class Held { Yes, No, NotAllowed };

// Runs `check` in a child process whose mounts nobody else sees and which go with it. As another
// user than root it is root in a user namespace of its own, where the system allows that. No when
// an expectation in it failed; the child prints which.
Held HoldsWithOwnMounts(const std::function<void()>& check);

// An empty file system in memory of so many pages of 4,096 bytes. False when it cannot be mounted.
bool MountMemory(const std::string& folder, long pages, long files = 1000);

// The same folder under a second name.
bool MountAgain(const std::string& folder, const std::string& second);

}  // namespace reliability
