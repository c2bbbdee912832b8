// Tests of what the system refuses: root may do everything.
#pragma once

#include <functional>

namespace fakes {

// Runs `check` in a child process of a user whom permissions bind. False when an expectation in it
// failed; the child prints which.
bool HoldsForOrdinaryUser(const std::function<void()>& check);

}  // namespace fakes
