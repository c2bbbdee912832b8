// Checks in a child process, whose rights are its own.
#pragma once

#include <functional>

namespace fakes {

// Runs `check` in a child process of a user whom permissions bind: root may do everything. False
// when an expectation in it failed; the child prints which.
bool HoldsForOrdinaryUser(const std::function<void()>& check);

}  // namespace fakes
