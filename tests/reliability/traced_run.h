// Stops a program at every system call, so that a test can do something at the n-th moment of a
// run: kill it, refuse a call, change the files under it. The same run comes to the same moments
// again, whatever the machine's load.
#pragma once

#include <csignal>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <set>
#include <string>

#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>

namespace reliability {

// The way into a system call or the way out of it. Calls that ask nothing of files are left out:
// what the C library asks of memory, signals and the like depends on chance, and cannot fail in a
// way that concerns us.
struct Moment {
    int Process = -1;
    long Index = 0;           // from 0
    bool After = false;       // on the way out of the call
    long Call = 0;            // its number, SYS_openat and so on
    std::string Path;         // what it opens or looks at
    std::int64_t Result = 0;  // on the way out; a negated errno where it failed

    // Before a call: it is not made. After one: it was made, whatever it says. Without effect on
    // other processors, which PairTest finds out.
    void Return([[maybe_unused]] std::int64_t result) const {
#if defined(__x86_64__)
        if (!After) ::ptrace(PTRACE_POKEUSER, Process, offsetof(user_regs_struct, orig_rax), -1L);
        ::ptrace(PTRACE_POKEUSER, Process, offsetof(user_regs_struct, rax), result);
#endif
    }
};

// A sanitizer finds out whether memory may be read by writing it into a pipe of its own.
inline constexpr int kCallsOfAProbe = 4;

inline const std::set<long> kNotOfFiles = {
    SYS_mmap,    SYS_munmap,          SYS_mremap,    SYS_brk,          SYS_mprotect,
    SYS_madvise, SYS_futex,           SYS_getrandom, SYS_rt_sigaction, SYS_rt_sigprocmask,
    SYS_sysinfo, SYS_clock_nanosleep, SYS_geteuid,   SYS_exit_group};

// Where the process stands now.
inline void Look(Moment& moment) {
    __ptrace_syscall_info info{};
    ::ptrace(PTRACE_GET_SYSCALL_INFO, moment.Process, sizeof info, &info);
    moment.After = info.op == PTRACE_SYSCALL_INFO_EXIT;
    if (moment.After) {
        moment.Result = info.exit.rval;
        return;
    }
    moment.Call = static_cast<long>(info.entry.nr);
    moment.Path.clear();
    if (moment.Call != SYS_openat && moment.Call != SYS_newfstatat) return;
    std::ifstream memory("/proc/" + std::to_string(moment.Process) + "/mem");
    memory.seekg(static_cast<std::streamoff>(info.entry.args[1]));
    std::getline(memory, moment.Path, '\0');
}

// False: the run goes on alone from here.
using Watch = std::function<bool(const Moment&)>;

// Follows a process that asked to be traced to its end; returns its status as waitpid() does.
// Moments count from the first call that names something in the current folder, so that the start
// of the program is left out.
inline int Trace(int process, const Watch& watch) {
    const std::string folder = std::filesystem::current_path() / "";
    Moment moment;
    moment.Process = process;
    bool counting = false, watching = true;
    int status = 0, probing = 0;
    while (::waitpid(process, &status, 0) == process && WIFSTOPPED(status)) {
        int signal = WSTOPSIG(status);
        if (signal == SIGTRAP)  // a new program's first moment
            ::ptrace(PTRACE_SETOPTIONS, process, nullptr, PTRACE_O_TRACESYSGOOD);
        if (signal == (SIGTRAP | 0x80)) {
            Look(moment);
            counting = counting || moment.Path.starts_with(folder);
            if (moment.Call == SYS_pipe2) probing = kCallsOfAProbe;
            if (probing != 0) {
                probing -= moment.After;
            } else if (counting && !kNotOfFiles.contains(moment.Call)) {
                watching = watch(moment);
                ++moment.Index;
            }
        }
        if ((signal & 0x7f) == SIGTRAP) signal = 0;
        ::ptrace(watching ? PTRACE_SYSCALL : PTRACE_DETACH, process, nullptr, signal);
    }
    return status;
}

}  // namespace reliability
