#include "cli/run_cli.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <stdexcept>

#include <errno.h>
#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

namespace cli {

namespace {

constexpr uid_t kNobody = 65534;
constexpr std::chrono::seconds kLimit(100);  // far above any run; only a hang reaches it
constexpr int kGlance = 2;                   // milliseconds between two looks at a state
constexpr int kFirstFree = 10;  // our descriptors stand above the streams, whatever is closed there

using Clock = std::chrono::steady_clock;

void Check(bool worked, const char* what) {
    if (!worked) throw std::runtime_error(std::string(what) + ": error " + std::to_string(errno));
}

void CloseAndForget(int& descriptor) {
    if (descriptor >= 0) ::close(descriptor);
    descriptor = -1;
}

// The same file under a number that no new program inherits.
int Own(int descriptor) {
    const int own = ::fcntl(descriptor, F_DUPFD_CLOEXEC, kFirstFree);
    Check(own >= 0, "open");
    ::close(descriptor);
    return own;
}

std::vector<std::string> WithSanitizerSettings(std::vector<std::string> environment) {
    for (const char* name : {"ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"}) {
        if (const char* value = ::getenv(name))
            environment.push_back(std::string(name) + "=" + value);
    }
    return environment;
}

std::vector<char*> Pointers(const std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (const std::string& text : texts) pointers.push_back(const_cast<char*>(text.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

// In the new process: nothing here allocates or returns. The program was opened before, since the
// user that it is to run as may not be able to reach it by its path.
[[noreturn]] void Become(const Launch& launch, const int (&streams)[3], int program,
                         char* const* arguments, char* const* environment) {
    bool ready = true;
    for (int i = 0; i < 3; ++i) {
        if (streams[i] < 0)
            ::close(i);
        else
            ready &= ::dup2(streams[i], i) == i;
    }
    for (const int signal : {SIGPIPE, SIGINT, SIGTERM}) ::signal(signal, SIG_DFL);
    if (!launch.WorkFolder.empty()) ready &= ::chdir(launch.WorkFolder.c_str()) == 0;
    if (launch.AsNobody && ::geteuid() == 0)
        ready &= ::setgid(kNobody) == 0 && ::setuid(kNobody) == 0;
    if (ready) ::fexecve(program, arguments, environment);
    ::_exit(126);
}

// Appends what can be read now; closes the descriptor at its end. A terminal without a far end
// reads as an error.
void ReadInto(int& descriptor, std::string& text) {
    char buffer[65536];
    const ssize_t count = ::read(descriptor, buffer, sizeof buffer);
    if (count > 0)
        text.append(buffer, static_cast<std::size_t>(count));
    else if (count == 0 || errno != EINTR)
        CloseAndForget(descriptor);
}

}  // namespace

Running::Running(const Launch& launch) {
    const Sink sinks[3] = {launch.Input, launch.Output, launch.Error};
    if (std::count(sinks, sinks + 3, Sink::Terminal) != 0) {
        Check(::openpty(&terminal_, &terminalFarEnd_, nullptr, nullptr, nullptr) == 0, "openpty");
        terminal_ = Own(terminal_);
        terminalFarEnd_ = Own(terminalFarEnd_);
        if (launch.TerminalStopped) ::tcflow(terminalFarEnd_, TCOOFF);
        const auto typed = static_cast<ssize_t>(launch.Typed.size());
        Check(::write(terminal_, launch.Typed.data(), launch.Typed.size()) == typed, "type");
    }
    int streams[3];
    for (int i = 0; i < 3; ++i) streams[i] = OpenFor(i, sinks[i]);
    const int program = Own(::open(VARNEL_CLI, O_RDONLY));

    std::vector<std::string> arguments = launch.Arguments;
    arguments.insert(arguments.begin(), "varnel-cli");
    const std::vector<std::string> environment = WithSanitizerSettings(launch.Environment);
    const std::vector<char*> argumentPointers = Pointers(arguments);
    const std::vector<char*> environmentPointers = Pointers(environment);

    pid_ = ::fork();
    Check(pid_ >= 0, "fork");
    if (pid_ == 0)
        Become(launch, streams, program, argumentPointers.data(), environmentPointers.data());
    ::close(program);
    for (const int stream : streams) {
        if (stream >= 0 && stream != terminalFarEnd_) ::close(stream);
    }
    CloseAndForget(ends_[0]);
    if (!launch.TerminalStopped) CloseAndForget(terminalFarEnd_);
}

Running::~Running() {
    if (!gone_) {
        ::kill(pid_, SIGKILL);
        Reap(0);
    }
    for (int* end : {&ends_[1], &ends_[2], &terminal_, &terminalFarEnd_}) CloseAndForget(*end);
}

// The program's end of a stream; ours is kept.
int Running::OpenFor(int stream, Sink sink) {
    if (sink == Sink::Closed) return -1;
    if (sink == Sink::Terminal) return terminalFarEnd_;
    if (sink == Sink::Full) return Own(::open("/dev/full", O_RDWR));
    int ends[2];
    Check(::pipe(ends) == 0, "pipe");
    const bool input = stream == 0;
    ends_[stream] = Own(ends[input ? 1 : 0]);
    return Own(ends[input ? 0 : 1]);
}

void Running::TakeOutput() {
    pollfd watched[3] = {{ends_[1], POLLIN, 0}, {ends_[2], POLLIN, 0}, {terminal_, POLLIN, 0}};
    if (::poll(watched, 3, kGlance) <= 0) return;
    if (watched[0].revents != 0) ReadInto(ends_[1], ended_.Output);
    if (watched[1].revents != 0) ReadInto(ends_[2], ended_.Error);
    if (watched[2].revents != 0) ReadInto(terminal_, ended_.Terminal);
}

bool Running::WaitUntil(const std::function<bool()>& reached) {
    const Clock::time_point last = Clock::now() + kLimit;
    while (!reached()) {
        if (gone_ || Clock::now() > last) return false;
        TakeOutput();
        Reap(WNOHANG);
    }
    return true;
}

bool Running::CatchesInterrupts() const {
    std::ifstream status("/proc/" + std::to_string(pid_) + "/status");
    const std::string name = "SigCgt:";
    for (std::string line; std::getline(status, line);) {
        if (!line.starts_with(name)) continue;
        const unsigned long long caught = std::stoull(line.substr(name.size()), nullptr, 16);
        return (caught >> (SIGINT - 1) & 1) != 0 && (caught >> (SIGTERM - 1) & 1) != 0;
    }
    return false;
}

void Running::Send(int signal) const {
    if (!gone_) ::kill(pid_, signal);
}

void Running::ResumeTerminal() {
    ::tcflow(terminalFarEnd_, TCOON);
    CloseAndForget(terminalFarEnd_);
}

void Running::Reap(int options) {
    int status = 0;
    if (gone_ || ::waitpid(pid_, &status, options) != pid_) return;
    gone_ = true;
    ended_.Status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    ended_.Signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
}

Ended Running::Wait() {
    if (!WaitUntil([this] { return gone_; })) {
        ended_.TimedOut = true;
        ::kill(pid_, SIGKILL);
        Reap(0);
    }
    CloseAndForget(terminalFarEnd_);
    while (ends_[1] >= 0 || ends_[2] >= 0 || terminal_ >= 0) TakeOutput();
    return ended_;
}

Ended RunToEnd(const Launch& launch) {
    return Running(launch).Wait();
}

}  // namespace cli
