// Runs the real program and stops it at every system call, so that a test can do something at the
// n-th moment of a run: kill it, refuse a call, change the files under it. The same run comes to
// the same moments again, whatever the machine's load.
//
// A moment is the way into a system call or the way out of it. They count from the first call that
// names the folder given as `from`, so that the start of the program is left out.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "cli/run_cli.h"

namespace reliability {

struct Moment {
    long Index = 0;      // from 0
    bool After = false;  // on the way out of the call
    long Call = 0;       // its number, SYS_openat and so on
    std::uint64_t Arguments[6] = {};
    std::int64_t Result = 0;  // on the way out; a negated errno where it failed
};

// What the program meets at a moment.
struct Fate {
    enum Kind { Goes, IsKilled, Returns };
    Kind What = Goes;
    std::int64_t Result = 0;  // of Returns

    static Fate Go() { return {}; }
    static Fate Kill() { return {IsKilled, 0}; }
    // Before a call: it is not made. After one: it was made, whatever it says.
    static Fate Return(std::int64_t result) { return {Returns, result}; }
    static Fate Fail(int error) { return Return(-error); }
};

struct TracedEnd : cli::Ended {
    long Moments = 0;
    long Calls = 0;
    bool WasKilled = false;  // by Fate::Kill
};

// The text at an address of the program at the moment that is being looked at.
class TracedMemory {
  public:
    explicit TracedMemory(int pid) : pid_(pid) {}
    std::string Text(std::uint64_t address) const;

  private:
    int pid_;
};

using Watch = std::function<Fate(const Moment&, const TracedMemory&)>;

// False where the system does not let a program be traced, or where this is not written for its
// processor.
bool CanTrace();

// Runs the program to its end; output and error are kept, other sinks of the launch are ignored.
TracedEnd RunTraced(const cli::Launch& launch, const std::string& from, const Watch& watch);

// True for calls that ask something of files: what else the C library does cannot fail in a way
// that concerns us.
bool ConcernsFiles(long call);

// True for calls that change something: failing after they were made is a case of its own.
bool ChangesFiles(long call);

// "openat", for messages.
std::string CallName(long call);

}  // namespace reliability
