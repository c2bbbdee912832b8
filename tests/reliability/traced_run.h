// Runs the real program and stops it at every system call, so that a test can do something at the
// n-th moment of a run: kill it, refuse a call, change the files under it. The same run comes to
// the same moments again, whatever the machine's load.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "cli/run_cli.h"

namespace reliability {

// The way into a system call or the way out of it. Calls that ask nothing of files are left out:
// what the C library asks of memory, signals and the like depends on chance, and cannot fail in a
// way that concerns us.
struct Moment {
    long Index = 0;           // from 0
    bool After = false;       // on the way out of the call
    long Call = 0;            // its number, SYS_openat and so on
    std::string Path;         // what it opens or looks at
    std::int64_t Result = 0;  // on the way out; a negated errno where it failed

    int Process = -1;
    std::optional<std::int64_t> Instead;

    // Before a call: it is not made. After one: it was made, whatever it says.
    void Return(std::int64_t result);
};

// False: the run goes on alone from here.
using Watch = std::function<bool(Moment&)>;

// Runs the program to its end. Moments count from the first call that names something in the
// current folder, so that the start of the program is left out.
cli::Ended RunTraced(const std::string& arguments, const Watch& watch);

}  // namespace reliability
