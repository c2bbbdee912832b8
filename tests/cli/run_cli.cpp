#include "cli/run_cli.h"

#include <cerrno>
#include <cstring>
#include <stdexcept>

#include <fcntl.h>
#include <pty.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace cli {

using platform::posix::Descriptor;

namespace {

constexpr uid_t kNobody = 65534;
constexpr unsigned kSecondsToLive = 100;  // far above any run; only a hang reaches it

void Check(bool worked, const char* what) {
    if (!worked) throw std::runtime_error(std::string(what) + ": " + std::strerror(errno));
}

int OpenFor(Sink sink, const Descriptor& farEnd) {
    switch (sink) {
        case Sink::File:
            return ::memfd_create("stream", MFD_CLOEXEC);
        case Sink::Terminal:
            return ::fcntl(farEnd.Get(), F_DUPFD_CLOEXEC, 0);
        case Sink::Full:
            return ::open("/dev/full", O_WRONLY | O_CLOEXEC);
        case Sink::Closed:
            break;
    }
    return -1;
}

std::vector<char*> Pointers(const std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (const std::string& text : texts) pointers.push_back(const_cast<char*>(text.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

// All that has been written, or will be: a terminal without a far end reads as an error.
std::string Read(const Descriptor& file) {
    std::string text;
    char buffer[65536];
    ::lseek(file.Get(), 0, SEEK_SET);
    for (ssize_t got; (got = ::read(file.Get(), buffer, sizeof buffer)) > 0;)
        text.append(buffer, static_cast<std::size_t>(got));
    return text;
}

}  // namespace

Running::Running(const Launch& launch) {
    int ends[2];
    Check(::openpty(&ends[0], &ends[1], nullptr, nullptr, nullptr) == 0, "openpty");
    terminal_ = Descriptor(ends[0]);
    const Descriptor farEnd(ends[1]);
    const auto typed = static_cast<ssize_t>(launch.Typed.size());
    Check(::write(ends[0], launch.Typed.data(), launch.Typed.size()) == typed, "type");
    const Sink sinks[3] = {launch.Input, launch.Output, launch.Error};
    for (int i = 0; i < 3; ++i) streams_[i] = Descriptor(OpenFor(sinks[i], farEnd));
    // Opened here: the user that it is to run as may not be able to reach it by its path.
    const Descriptor program(::open(VARNEL_CLI, O_RDONLY | O_CLOEXEC));
    pid_ = ::fork();
    Check(pid_ >= 0, "fork");
    if (pid_ == 0) Become(launch, program.Get());
    for (int i = 0; i < 3; ++i)
        if (sinks[i] == Sink::Terminal) streams_[i] = {};
}

void Running::Become(const Launch& launch, int program) const {
    for (int i = 0; i < 3; ++i)
        if (::dup2(streams_[i].Get(), i) != i) ::close(i);
    const bool ready = ::chdir(launch.WorkFolder.c_str()) == 0 &&
                       (!launch.AsNobody || ::geteuid() != 0 ||
                        (::setgid(kNobody) == 0 && ::setuid(kNobody) == 0));
    if (launch.First) launch.First();
    ::alarm(kSecondsToLive);
    std::vector<std::string> arguments = launch.Arguments, environment = launch.Environment;
    arguments.insert(arguments.begin(), "varnel-cli");
    for (char** setting = ::environ; *setting; ++setting)
        if (std::strstr(*setting, "SAN_OPTIONS=")) environment.emplace_back(*setting);
    if (ready) ::fexecve(program, Pointers(arguments).data(), Pointers(environment).data());
    ::_exit(126);
}

Ended Running::Wait() {
    Ended ended;
    ended.Terminal = Read(terminal_);
    int status = 0;
    Check(::waitpid(pid_, &status, 0) == pid_, "wait");
    ended.Status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    ended.Signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    ended.TimedOut = ended.Signal == SIGALRM;
    ended.Output = Read(streams_[1]);
    ended.Error = Read(streams_[2]);
    return ended;
}

}  // namespace cli
