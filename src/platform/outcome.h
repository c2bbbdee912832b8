// What came of asking the system for something.
#pragma once

#include <string>

namespace platform {

// Success is empty; a failure carries what was tried, on what, and the system's own reason.
struct Outcome {
    std::string Operation;  // "open folder", "copy", ...
    std::string Path;
    std::string Reason;

    bool Ok() const { return Operation.empty(); }
};

}  // namespace platform
