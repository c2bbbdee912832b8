#include "cli/run_cli.h"

#include <cerrno>
#include <cstdlib>
#include <system_error>

#include <fcntl.h>
#include <pty.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace cli {

using platform::posix::Descriptor;

namespace {

constexpr uid_t kNobody = 65534;
constexpr unsigned kSecondsToLive = 100;  // far above any run; only a hang reaches it

void Check(bool worked, const char* what) {
    if (!worked) throw std::system_error(errno, std::generic_category(), what);
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
    Check(::write(ends[0], launch.Typed.data(), launch.Typed.size()) >= 0, "type");
    for (Descriptor& stream : streams_) stream = Descriptor(::memfd_create("stream", MFD_CLOEXEC));
    // Opened here: the user that it is to run as may not be able to reach it by its path.
    const Descriptor program(::open(VARNEL_CLI, O_RDONLY | O_CLOEXEC));
    pid_ = ::fork();
    Check(pid_ >= 0, "fork");
    if (pid_ == 0) Become(launch, program.Get(), farEnd.Get());
}

void Running::Become(const Launch& launch, int program, int terminal) const {
    const Sink sinks[] = {launch.Input, launch.Output, launch.Error};
    for (int i = 0; i < 3; ++i)
        ::dup2(sinks[i] == Sink::Terminal ? terminal : streams_[i].Get(), i);
    const bool ready = ::chdir(launch.WorkFolder.c_str()) == 0 &&
                       (!launch.AsNobody || ::geteuid() != 0 ||
                        (::setgid(kNobody) == 0 && ::setuid(kNobody) == 0));
    if (launch.First) launch.First();
    ::alarm(kSecondsToLive);
    std::vector<char*> arguments = {const_cast<char*>("varnel-cli")};
    for (const std::string& argument : launch.Arguments)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    for (const std::string& setting : launch.Environment)
        ::putenv(const_cast<char*>(setting.c_str()));
    if (ready) ::fexecve(program, arguments.data(), ::environ);
    ::_exit(126);
}

Ended Running::Wait() {
    Ended ended;
    ended.Terminal = Read(terminal_);
    int status = 0;
    Check(::waitpid(pid_, &status, 0) == pid_, "wait");
    ended.Status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    ended.Signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    ended.Output = Read(streams_[1]);
    ended.Error = Read(streams_[2]);
    return ended;
}

}  // namespace cli
