// Checks in a child process, whose rights and mounts are its own.
#pragma once

#include <functional>

namespace fakes {

// 0 when every expectation in `check` held; the child prints which did not. Otherwise 1, or what
// `check` ends the child with.
int StatusOfChild(const std::function<void()>& check);

// Runs `check` in a child process of a user whom permissions bind: root may do everything. False
// when an expectation in it failed.
bool HoldsForOrdinaryUser(const std::function<void()>& check);

}  // namespace fakes
