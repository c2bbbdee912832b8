#include "reliability/traced_run.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>

namespace reliability {

namespace {

enum class Register { CallNumber, Result };

void SetRegister(pid_t pid, Register which, std::int64_t value) {
#if defined(__x86_64__)
    const std::size_t place = which == Register::Result ? offsetof(user_regs_struct, rax)
                                                        : offsetof(user_regs_struct, orig_rax);
    ::ptrace(PTRACE_POKEUSER, pid, place, value);
#endif
}

bool ConcernsFiles(long call) {
    constexpr long kOthers[] = {
        SYS_mmap,    SYS_munmap,          SYS_mremap,    SYS_brk,          SYS_mprotect,
        SYS_madvise, SYS_futex,           SYS_getrandom, SYS_rt_sigaction, SYS_rt_sigprocmask,
        SYS_sysinfo, SYS_clock_nanosleep, SYS_geteuid,   SYS_exit_group};
    return std::find(std::begin(kOthers), std::end(kOthers), call) == std::end(kOthers);
}

// Goes from call to call of the one child process, until it is gone.
class Tracer {
  public:
    Tracer(const std::string& from, const Watch& watch)
        : from_(from), watch_(watch), counting_(from.empty()) {}

    void Follow() {
        siginfo_t event{};
        while (::waitid(P_ALL, 0, &event, WEXITED | WSTOPPED | WNOWAIT) == 0 &&
               event.si_code == CLD_TRAPPED) {
            moment_.Process = event.si_pid;
            ::waitpid(moment_.Process, nullptr, 0);
            int signal = event.si_status;
            if (signal == SIGTRAP)  // the new program's first moment
                ::ptrace(PTRACE_SETOPTIONS, moment_.Process, nullptr,
                         PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
            if (signal == (SIGTRAP | 0x80)) AtCall();
            if ((signal & 0x7f) == SIGTRAP) signal = 0;
            const bool leave = moment_.Last && !moment_.Instead;
            ::ptrace(leave ? PTRACE_DETACH : PTRACE_SYSCALL, moment_.Process, nullptr, signal);
            if (leave) return;
        }
    }

    long Calls() const { return calls_; }

  private:
    void AtCall() {
        __ptrace_syscall_info info{};
        if (::ptrace(PTRACE_GET_SYSCALL_INFO, moment_.Process, sizeof info, &info) <= 0) return;
        moment_.After = info.op == PTRACE_SYSCALL_INFO_EXIT;
        if (moment_.After) {
            moment_.Result = info.exit.rval;
        } else {
            moment_.Call = static_cast<long>(info.entry.nr);
            std::copy(std::begin(info.entry.args), std::end(info.entry.args), moment_.Arguments);
            counting_ = counting_ || NamesFrom();
            calls_ += counting_;
            if (moment_.Call == SYS_pipe2) probing_ = kCallsOfAProbe;
        }
        if (moment_.Instead) {  // this is the way out of the call that was not made
            SetRegister(moment_.Process, Register::Result, *moment_.Instead);
            moment_.Instead.reset();
        } else if (probing_ != 0) {
            probing_ -= moment_.After;
        } else if (counting_ && ConcernsFiles(moment_.Call)) {
            watch_(moment_);
            ++moment_.Index;
        }
    }

    bool NamesFrom() const {
        return (moment_.Call == SYS_openat || moment_.Call == SYS_newfstatat) &&
               moment_.Text(1).starts_with(from_);
    }

    const std::string from_;
    const Watch& watch_;
    bool counting_;
    // A sanitizer finds out whether memory may be read by writing it into a pipe of its own.
    static constexpr int kCallsOfAProbe = 4;
    int probing_ = 0;
    long calls_ = 0;
    Moment moment_;
};

}  // namespace

std::string Moment::Text(int argument) const {
    std::ifstream memory("/proc/" + std::to_string(Process) + "/mem");
    memory.seekg(static_cast<std::streamoff>(Arguments[argument]));
    std::string text;
    std::getline(memory, text, '\0');
    return text;
}

void Moment::Kill() {
    ::kill(Process, SIGKILL);
}

void Moment::Return(std::int64_t result) {
    if (After) {
        SetRegister(Process, Register::Result, result);
    } else {
        SetRegister(Process, Register::CallNumber, -1);
        Instead = result;
    }
}

bool CanTrace() {
    static const bool can = [] {
        cli::Launch launch;
        launch.Arguments = {"--version"};
        launch.WorkFolder = "/";
        const auto refuseToPrint = [](Moment& now) {
            if (now.Call == SYS_write && !now.After) now.Return(-EIO);
        };
        return RunTraced(launch, "", refuseToPrint).Status == 2;
    }();
    return can;
}

TracedEnd RunTraced(cli::Launch launch, const std::string& from, const Watch& watch) {
    launch.First = [] { ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr); };
    // A sanitized program looks for leaks by tracing itself, which one that is traced cannot do.
    // What it finds must not look like a row that failed.
    const char* const options = std::getenv("ASAN_OPTIONS");
    launch.Environment.push_back("ASAN_OPTIONS=detect_leaks=0:exitcode=99:" +
                                 std::string(options ? options : ""));
    launch.Environment.emplace_back("UBSAN_OPTIONS=exitcode=99:print_stacktrace=1");
    cli::Running run(launch);
    Tracer tracer(from, watch);
    tracer.Follow();
    return {run.Wait(), tracer.Calls()};
}

}  // namespace reliability
