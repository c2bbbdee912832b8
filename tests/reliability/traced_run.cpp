#include "reliability/traced_run.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <stdexcept>

#include <elf.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

namespace reliability {

namespace {

constexpr unsigned kSecondsToLive = 100;  // only a hang reaches it
constexpr long kMostMoments = 20'000'000;

void Check(bool worked, const char* what) {
    if (!worked) throw std::runtime_error(std::string(what) + ": error " + std::to_string(errno));
}

struct NamedCall {
    long Number;
    const char* Name;
    bool Changes = false;
};

constexpr NamedCall kFileCalls[] = {
    {SYS_read, "read"},
    {SYS_pread64, "pread"},
    {SYS_write, "write"},
    {SYS_pwrite64, "pwrite"},
    {SYS_lseek, "lseek"},
    {SYS_ioctl, "ioctl"},
    {SYS_copy_file_range, "copy_file_range"},
    {SYS_openat, "openat"},
    {SYS_close, "close", true},
    {SYS_dup, "dup"},
    {SYS_fcntl, "fcntl"},
    {SYS_flock, "flock"},
    {SYS_fstat, "fstat"},
    {SYS_newfstatat, "fstatat"},
    {SYS_faccessat, "faccessat"},
#ifdef SYS_faccessat2
    {SYS_faccessat2, "faccessat2"},
#endif
    {SYS_getdents64, "getdents"},
    {SYS_ftruncate, "ftruncate"},
    {SYS_fchmod, "fchmod", true},
    {SYS_utimensat, "utimensat", true},
    {SYS_fdatasync, "fdatasync"},
    {SYS_renameat, "renameat", true},
    {SYS_renameat2, "renameat2", true},
    {SYS_linkat, "linkat", true},
    {SYS_unlinkat, "unlinkat", true},
    {SYS_mkdirat, "mkdirat", true},
#ifdef SYS_rename
    {SYS_rename, "rename", true},
    {SYS_unlink, "unlink", true},
    {SYS_rmdir, "rmdir", true},
    {SYS_mkdir, "mkdir", true},
    {SYS_access, "access"},
#endif
};

const NamedCall* Find(long call) {
    const auto* const end = std::end(kFileCalls);
    const auto* const found = std::find_if(
        std::begin(kFileCalls), end, [call](const NamedCall& one) { return one.Number == call; });
    return found == end ? nullptr : found;
}

// Turns the call on whose way in the program stands into none at all.
bool SkipCall(pid_t pid) {
#if defined(__x86_64__)
    return ::ptrace(PTRACE_POKEUSER, pid, offsetof(user_regs_struct, orig_rax), -1L) == 0;
#elif defined(__aarch64__)
    int none = -1;
    iovec value{&none, sizeof none};
    return ::ptrace(PTRACE_SETREGSET, pid, NT_ARM_SYSTEM_CALL, &value) == 0;
#else
    static_cast<void>(pid);
    return false;
#endif
}

bool SetResult(pid_t pid, std::int64_t result) {
#if defined(__x86_64__)
    return ::ptrace(PTRACE_POKEUSER, pid, offsetof(user_regs_struct, rax), result) == 0;
#elif defined(__aarch64__)
    user_regs_struct registers;
    iovec value{&registers, sizeof registers};
    if (::ptrace(PTRACE_GETREGSET, pid, NT_PRSTATUS, &value) != 0) return false;
    registers.regs[0] = static_cast<unsigned long long>(result);
    return ::ptrace(PTRACE_SETREGSET, pid, NT_PRSTATUS, &value) == 0;
#else
    static_cast<void>(pid);
    static_cast<void>(result);
    return false;
#endif
}

std::vector<char*> Pointers(const std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (const std::string& text : texts) pointers.push_back(const_cast<char*>(text.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

// A sanitized program looks for leaks by tracing itself, which one that is traced cannot do.
std::vector<std::string> EnvironmentOf(const cli::Launch& launch) {
    std::vector<std::string> environment = launch.Environment;
    // What they find must not look like a row that failed.
    const char* options = std::getenv("ASAN_OPTIONS");
    environment.push_back("ASAN_OPTIONS=detect_leaks=0:exitcode=99:" +
                          std::string(options ? options : ""));
    environment.emplace_back("UBSAN_OPTIONS=exitcode=99:print_stacktrace=1");
    return environment;
}

// A file in memory that takes what the program says.
class Caught {
  public:
    Caught() : file_(::memfd_create("output", MFD_CLOEXEC)) { Check(file_ >= 0, "memfd"); }
    ~Caught() { ::close(file_); }
    Caught(const Caught&) = delete;
    Caught& operator=(const Caught&) = delete;

    int File() const { return file_; }
    std::string Text() const {
        std::string text(static_cast<std::size_t>(::lseek(file_, 0, SEEK_END)), '\0');
        Check(::pread(file_, text.data(), text.size(), 0) == static_cast<ssize_t>(text.size()),
              "read output");
        return text;
    }

  private:
    int file_;
};

// One program under trace.
class Tracer {
  public:
    Tracer(const cli::Launch& launch, const std::string& from, const Watch& watch)
        : from_(from), watch_(watch), counting_(from.empty()) {
        Start(launch);
    }
    ~Tracer() {
        if (!gone_) {
            ::kill(pid_, SIGKILL);
            while (!gone_) Wait();
        }
    }
    Tracer(const Tracer&) = delete;
    Tracer& operator=(const Tracer&) = delete;

    TracedEnd Run() {
        int signal = 0;
        while (!gone_) {
            ::ptrace(PTRACE_SYSCALL, pid_, nullptr, signal);
            signal = 0;
            const int status = Wait();
            if (gone_) break;
            if (WSTOPSIG(status) == (SIGTRAP | 0x80))
                AtCall();
            else if (WSTOPSIG(status) != SIGTRAP)
                signal = WSTOPSIG(status);
        }
        end_.Output = output_.Text();
        end_.Error = error_.Text();
        end_.TimedOut = end_.Signal == SIGALRM;
        return end_;
    }

  private:
    void Start(const cli::Launch& launch) {
        std::vector<std::string> arguments = launch.Arguments;
        arguments.insert(arguments.begin(), "varnel-cli");
        const std::vector<std::string> environment = EnvironmentOf(launch);
        const std::vector<char*> argumentPointers = Pointers(arguments);
        const std::vector<char*> environmentPointers = Pointers(environment);
        const int program = ::open(VARNEL_CLI, O_RDONLY | O_CLOEXEC);
        Check(program >= 0, "open " VARNEL_CLI);
        pid_ = ::fork();
        Check(pid_ >= 0, "fork");
        if (pid_ == 0) Become(launch, program, argumentPointers.data(), environmentPointers.data());
        ::close(program);
        Wait();  // for the new program's first moment
        if (!gone_) {
            ::ptrace(PTRACE_SETOPTIONS, pid_, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
        }
    }

    // In the new process.
    [[noreturn]] void Become(const cli::Launch& launch, int program, char* const* arguments,
                             char* const* environment) const {
        constexpr uid_t kNobody = 65534;
        ::dup2(::open("/dev/null", O_RDONLY), 0);
        ::dup2(output_.File(), 1);
        ::dup2(error_.File(), 2);
        if (!launch.WorkFolder.empty() && ::chdir(launch.WorkFolder.c_str()) != 0) ::_exit(126);
        if (launch.AsNobody && ::geteuid() == 0 &&
            (::setgid(kNobody) != 0 || ::setuid(kNobody) != 0))
            ::_exit(126);
        ::alarm(kSecondsToLive);
        if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) ::_exit(126);
        ::fexecve(program, arguments, environment);
        ::_exit(126);
    }

    int Wait() {
        int status = 0;
        while (::waitpid(pid_, &status, 0) == -1 && errno == EINTR) {
        }
        if (!WIFSTOPPED(status)) {
            gone_ = true;
            end_.Status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
            end_.Signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
        }
        return status;
    }

    void AtCall() {
        __ptrace_syscall_info info{};
        if (::ptrace(PTRACE_GET_SYSCALL_INFO, pid_, sizeof info, &info) <= 0) return;
        moment_.After = info.op == PTRACE_SYSCALL_INFO_EXIT;
        if (moment_.After) {
            moment_.Result = info.exit.rval;
            if (skipped_) SetResult(pid_, resultInstead_);
        } else {
            moment_.Call = static_cast<long>(info.entry.nr);
            std::copy(std::begin(info.entry.args), std::end(info.entry.args), moment_.Arguments);
            moment_.Result = 0;
            counting_ = counting_ || NamesFrom();
            end_.Calls += counting_;
        }
        if (counting_ && !skipped_) Ask();
        if (moment_.After) skipped_ = false;
    }

    void Ask() {
        moment_.Index = end_.Moments++;
        const Fate fate =
            end_.Moments > kMostMoments ? Fate::Kill() : watch_(moment_, TracedMemory(pid_));
        switch (fate.What) {
            case Fate::Goes:
                break;
            case Fate::IsKilled:
                ::kill(pid_, SIGKILL);
                end_.WasKilled = true;
                break;
            case Fate::Returns:
                if (moment_.After) {
                    SetResult(pid_, fate.Result);
                } else {
                    skipped_ = SkipCall(pid_);
                    resultInstead_ = fate.Result;
                }
                break;
        }
    }

    bool NamesFrom() const {
        if (moment_.Call != SYS_openat && moment_.Call != SYS_newfstatat) return false;
        return TracedMemory(pid_).Text(moment_.Arguments[1]).starts_with(from_);
    }

    const std::string from_;
    const Watch& watch_;
    Caught output_;
    Caught error_;
    pid_t pid_ = -1;
    bool gone_ = false;
    bool counting_;
    bool skipped_ = false;  // the call in hand is not made
    std::int64_t resultInstead_ = 0;
    Moment moment_;
    TracedEnd end_;
};

}  // namespace

std::string TracedMemory::Text(std::uint64_t address) const {
    constexpr std::size_t kPiece = 256;
    constexpr std::uint64_t kPage = 4096;
    std::string text;
    while (address != 0) {
        char piece[kPiece];
        const std::size_t size = std::min<std::uint64_t>(kPiece, kPage - address % kPage);
        iovec here{piece, size};
        iovec there{reinterpret_cast<void*>(address), size};
        const ssize_t got = ::process_vm_readv(pid_, &here, 1, &there, 1, 0);
        if (got <= 0) break;
        char* const end = std::find(piece, piece + got, '\0');
        text.append(piece, static_cast<std::size_t>(end - piece));
        if (end != piece + got) break;
        address += static_cast<std::uint64_t>(got);
    }
    return text;
}

bool CanTrace() {
    static const bool can = [] {
        cli::Launch launch;
        launch.Arguments = {"--version"};
        launch.WorkFolder = "/";
        bool refused = false;
        const auto refuseToPrint = [&](const Moment& moment, const TracedMemory&) {
            if (moment.Call != SYS_write || moment.After) return Fate::Go();
            refused = true;
            return Fate::Fail(EIO);
        };
        return RunTraced(launch, "", refuseToPrint).Status == 2 && refused;
    }();
    return can;
}

TracedEnd RunTraced(const cli::Launch& launch, const std::string& from, const Watch& watch) {
    return Tracer(launch, from, watch).Run();
}

bool ConcernsFiles(long call) {
    return Find(call) != nullptr;
}

bool ChangesFiles(long call) {
    const NamedCall* const found = Find(call);
    return found && found->Changes;
}

std::string CallName(long call) {
    const NamedCall* const found = Find(call);
    return found ? found->Name : "call " + std::to_string(call);
}

}  // namespace reliability
