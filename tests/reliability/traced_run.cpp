#include "reliability/traced_run.h"

#include <csignal>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <set>

#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>

namespace reliability {

namespace {

// Without effect on other processors, which PairTest finds out.
void SetRegister([[maybe_unused]] const Moment& moment, [[maybe_unused]] std::int64_t value) {
#if defined(__x86_64__)
    const std::size_t place =
        moment.After ? offsetof(user_regs_struct, rax) : offsetof(user_regs_struct, orig_rax);
    ::ptrace(PTRACE_POKEUSER, moment.Process, place, value);
#endif
}

std::string TextAt(int process, std::uint64_t address) {
    std::ifstream memory("/proc/" + std::to_string(process) + "/mem");
    memory.seekg(static_cast<std::streamoff>(address));
    std::string text;
    std::getline(memory, text, '\0');
    return text;
}

const std::set<long> kNotOfFiles = {
    SYS_mmap,    SYS_munmap,          SYS_mremap,    SYS_brk,          SYS_mprotect,
    SYS_madvise, SYS_futex,           SYS_getrandom, SYS_rt_sigaction, SYS_rt_sigprocmask,
    SYS_sysinfo, SYS_clock_nanosleep, SYS_geteuid,   SYS_exit_group};

// Goes from call to call of the one child process, until it is gone or to be left alone.
class Tracer {
  public:
    explicit Tracer(const Watch& watch) : watch_(watch) {}

    void Follow() {
        siginfo_t event{};
        while (goesOn_ && ::waitid(P_ALL, 0, &event, WEXITED | WSTOPPED | WNOWAIT) == 0 &&
               event.si_code == CLD_TRAPPED) {
            moment_.Process = event.si_pid;
            ::waitpid(moment_.Process, nullptr, 0);
            int signal = event.si_status;
            if (signal == SIGTRAP)  // the new program's first moment
                ::ptrace(PTRACE_SETOPTIONS, moment_.Process, nullptr,
                         PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
            if (signal == (SIGTRAP | 0x80)) AtCall();
            if ((signal & 0x7f) == SIGTRAP) signal = 0;
            goesOn_ = watching_ || moment_.Instead;
            ::ptrace(goesOn_ ? PTRACE_SYSCALL : PTRACE_DETACH, moment_.Process, nullptr, signal);
        }
    }

  private:
    void AtCall() {
        __ptrace_syscall_info info{};
        if (::ptrace(PTRACE_GET_SYSCALL_INFO, moment_.Process, sizeof info, &info) <= 0) return;
        moment_.After = info.op == PTRACE_SYSCALL_INFO_EXIT;
        if (moment_.After) {
            moment_.Result = info.exit.rval;
        } else {
            moment_.Call = static_cast<long>(info.entry.nr);
            const bool names = moment_.Call == SYS_openat || moment_.Call == SYS_newfstatat;
            moment_.Path = names ? TextAt(moment_.Process, info.entry.args[1]) : "";
            counting_ = counting_ || moment_.Path.starts_with(folder_);
            if (moment_.Call == SYS_pipe2) probing_ = kCallsOfAProbe;
        }
        if (probing_ != 0) {
            probing_ -= moment_.After;
        } else if (counting_ && !moment_.Instead && !kNotOfFiles.contains(moment_.Call)) {
            watching_ = watch_(moment_);
            ++moment_.Index;
        }
        if (moment_.After && moment_.Instead) {
            SetRegister(moment_, *moment_.Instead);
            moment_.Instead.reset();
        }
    }

    const std::string folder_ = std::filesystem::current_path();
    const Watch& watch_;
    bool goesOn_ = true, watching_ = true, counting_ = false;
    // A sanitizer finds out whether memory may be read by writing it into a pipe of its own.
    static constexpr int kCallsOfAProbe = 4;
    int probing_ = 0;
    Moment moment_;
};

}  // namespace

void Moment::Return(std::int64_t result) {
    if (!After) SetRegister(*this, -1);
    Instead = result;
}

// A sanitized program looks for leaks by tracing itself, which one that is traced cannot do. What
// it finds must not look like a row that failed.
cli::Ended RunTraced(const std::string& arguments, const Watch& watch) {
    const auto beTraced = [] {
        ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        ::setenv("ASAN_OPTIONS", "detect_leaks=0:exitcode=99", 1);
        ::setenv("UBSAN_OPTIONS", "exitcode=99:print_stacktrace=1", 1);
    };
    return cli::RunCli({.Arguments = cli::Words(arguments), .First = beTraced, .Meanwhile = [&] {
                            Tracer(watch).Follow();
                        }});
}

}  // namespace reliability
