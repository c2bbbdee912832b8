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

using Clock = std::chrono::steady_clock;

void Check(bool worked, const char* what) {
    if (!worked) throw std::runtime_error(std::string(what) + ": error " + std::to_string(errno));
}

void CloseOnExec(int descriptor) {
    ::fcntl(descriptor, F_SETFD, FD_CLOEXEC);
}

void CloseAndForget(int& descriptor) {
    if (descriptor >= 0) ::close(descriptor);
    descriptor = -1;
}

struct PipeEnds {
    int Reader = -1;
    int Writer = -1;
};

PipeEnds OpenPipe() {
    int ends[2];
    Check(::pipe2(ends, O_CLOEXEC) == 0, "pipe");
    return {ends[0], ends[1]};
}

std::vector<std::string> WithSanitizerSettings(std::vector<std::string> environment) {
    for (const char* name : {"ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"}) {
        if (const char* value = ::getenv(name)) {
            environment.push_back(std::string(name) + "=" + value);
        }
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
    for (int i = 0; i < 3; ++i) {
        if (streams[i] < 0) {
            ::close(i);
        } else if (::dup2(streams[i], i) < 0) {
            ::_exit(126);
        }
    }
    for (const int signal : {SIGPIPE, SIGINT, SIGTERM}) ::signal(signal, SIG_DFL);
    if (!launch.WorkFolder.empty() && ::chdir(launch.WorkFolder.c_str()) != 0) ::_exit(126);
    if (launch.AsNobody && ::geteuid() == 0 && (::setgid(kNobody) != 0 || ::setuid(kNobody) != 0)) {
        ::_exit(126);
    }
    ::fexecve(program, arguments, environment);
    ::_exit(126);
}

// Appends what can be read now; closes the descriptor at its end.
void ReadInto(int& descriptor, std::string& text) {
    char buffer[65536];
    const ssize_t count = ::read(descriptor, buffer, sizeof buffer);
    if (count > 0) {
        text.append(buffer, static_cast<std::size_t>(count));
    } else if (count == 0 || errno != EINTR) {
        CloseAndForget(descriptor);  // a terminal without a far end reads as an error
    }
}

}  // namespace

Running::Running(const Launch& launch) : typed_(launch.Typed) {
    int streams[3] = {-1, -1, -1};
    Connect(launch, streams);
    // Above the three streams, whatever is closed there.
    const int opened = ::open(VARNEL_CLI, O_RDONLY | O_CLOEXEC);
    Check(opened >= 0, "open " VARNEL_CLI);
    const int program = ::fcntl(opened, F_DUPFD_CLOEXEC, 10);
    ::close(opened);

    std::vector<std::string> arguments = launch.Arguments;
    arguments.insert(arguments.begin(), "varnel-cli");
    const std::vector<std::string> environment = WithSanitizerSettings(launch.Environment);
    const std::vector<char*> argumentPointers = Pointers(arguments);
    const std::vector<char*> environmentPointers = Pointers(environment);

    pid_ = ::fork();
    Check(pid_ >= 0, "fork");
    if (pid_ == 0) {
        Become(launch, streams, program, argumentPointers.data(), environmentPointers.data());
    }
    ::close(program);
    for (const int stream : streams) {
        if (stream >= 0 && stream != terminalFarEnd_) ::close(stream);
    }
    if (!launch.TerminalStopped) CloseAndForget(terminalFarEnd_);
    Feed();
}

Running::~Running() {
    if (!gone_) {
        ::kill(pid_, SIGKILL);
        Reap(0);
    }
    for (int* end : {&input_, &output_, &error_, &terminal_, &terminalFarEnd_}) {
        CloseAndForget(*end);
    }
}

void Running::Connect(const Launch& launch, int (&child)[3]) {
    const Sink sinks[3] = {launch.Input, launch.Output, launch.Error};
    int* const ours[3] = {&input_, &output_, &error_};
    if (std::count(sinks, sinks + 3, Sink::Terminal) != 0) {
        Check(::openpty(&terminal_, &terminalFarEnd_, nullptr, nullptr, nullptr) == 0, "openpty");
        CloseOnExec(terminal_);
        CloseOnExec(terminalFarEnd_);
        if (launch.TerminalStopped) ::tcflow(terminalFarEnd_, TCOOFF);
    }
    for (int i = 0; i < 3; ++i) {
        switch (sinks[i]) {
            case Sink::Pipe:
            case Sink::NoReader: {
                const PipeEnds ends = OpenPipe();
                child[i] = i == 0 ? ends.Reader : ends.Writer;
                *ours[i] = i == 0 ? ends.Writer : ends.Reader;
                if (sinks[i] == Sink::NoReader) CloseAndForget(*ours[i]);
                break;
            }
            case Sink::Terminal:
                child[i] = terminalFarEnd_;
                break;
            case Sink::Full:
                child[i] = ::open("/dev/full", O_RDWR | O_CLOEXEC);
                break;
            case Sink::File:
                child[i] = ::open(launch.OutputFile.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
                break;
            case Sink::Closed:
                break;
        }
    }
}

// All that is ever typed here fits into a pipe and into a terminal's buffer.
void Running::Feed() {
    const int to = input_ >= 0 ? input_ : terminal_;
    if (!typed_.empty() && to >= 0) {
        Check(::write(to, typed_.data(), typed_.size()) == static_cast<ssize_t>(typed_.size()),
              "type");
    }
    CloseAndForget(input_);
}

void Running::TakeOutput(int milliseconds) {
    pollfd watched[3] = {{output_, POLLIN, 0}, {error_, POLLIN, 0}, {terminal_, POLLIN, 0}};
    if (::poll(watched, 3, milliseconds) <= 0) return;
    if (watched[0].revents != 0) ReadInto(output_, ended_.Output);
    if (watched[1].revents != 0) ReadInto(error_, ended_.Error);
    if (watched[2].revents != 0) ReadInto(terminal_, ended_.Terminal);
}

bool Running::WaitUntil(const std::function<bool()>& reached) {
    const Clock::time_point last = Clock::now() + kLimit;
    while (!reached()) {
        if (gone_ || Clock::now() > last) return false;
        TakeOutput(kGlance);
        Reap(WNOHANG);
    }
    return true;
}

bool Running::CatchesInterrupts() const {
    std::ifstream status("/proc/" + std::to_string(pid_) + "/status");
    const std::string name = "SigCgt:";
    for (std::string line; std::getline(status, line);) {
        if (line.compare(0, name.size(), name) != 0) continue;
        const unsigned long long caught = std::stoull(line.substr(name.size()), nullptr, 16);
        return (caught >> (SIGINT - 1) & 1) != 0 && (caught >> (SIGTERM - 1) & 1) != 0;
    }
    return false;
}

void Running::Send(int signal) const {
    if (!gone_) ::kill(pid_, signal);
}

bool Running::Freeze() {
    Send(SIGSTOP);
    return !Reap(WUNTRACED);
}

void Running::Thaw() const {
    Send(SIGCONT);
}

void Running::ResumeTerminal() {
    ::tcflow(terminalFarEnd_, TCOON);
    CloseAndForget(terminalFarEnd_);
}

// True when the program has ended.
bool Running::Reap(int options) {
    int status = 0;
    if (gone_ || ::waitpid(pid_, &status, options) != pid_ || WIFSTOPPED(status)) return gone_;
    gone_ = true;
    ended_.Status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    ended_.Signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    return true;
}

Ended Running::Wait() {
    CloseAndForget(terminalFarEnd_);
    if (!WaitUntil([this] { return gone_; })) {
        ended_.TimedOut = true;
        ::kill(pid_, SIGKILL);
        Reap(0);
    }
    while (output_ >= 0 || error_ >= 0 || terminal_ >= 0) TakeOutput(kGlance);
    return ended_;
}

Ended RunToEnd(const Launch& launch) {
    return Running(launch).Wait();
}

}  // namespace cli
