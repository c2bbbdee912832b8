#include "cli/run_cli.h"

#include <iterator>
#include <sstream>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/posix/reached_path.h"

namespace cli {

namespace {

using platform::posix::Descriptor;

constexpr unsigned kSecondsToLive = 100;  // far above any run; only a hang reaches it

// All that has been written, or will be: a terminal without a far end reads as an error.
std::string Read(const Descriptor& file) {
    std::string text;
    char buffer[65536];
    ::lseek(file.Get(), 0, SEEK_SET);
    for (ssize_t got; (got = ::read(file.Get(), buffer, sizeof buffer)) > 0;)
        text.append(buffer, static_cast<std::size_t>(got));
    return text;
}

// In the new process, whose streams all are on the terminal.
[[noreturn]] void Become(const Launch& launch, int program, const Descriptor (&streams)[3]) {
    for (int i = 0; i < 3; ++i)
        if (!launch.OnTerminal.contains(i)) ::dup2(streams[i].Get(), i);
    std::vector<char*> arguments = {const_cast<char*>("varnel-cli")};
    for (const std::string& argument : launch.Arguments)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    if (launch.First) launch.First();
    ::alarm(kSecondsToLive);
    ::fexecve(program, arguments.data(), ::environ);
    ::_exit(126);
}

}  // namespace

Texts Lines(const std::string& text) {
    std::istringstream stream(text);
    Texts lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

Texts Words(const std::string& text) {
    std::istringstream stream(text);
    using Word = std::istream_iterator<std::string>;
    return {Word(stream), Word()};
}

Ended RunCli(const Launch& launch) {
    Descriptor streams[3];
    for (Descriptor& stream : streams) stream = Descriptor(::memfd_create("", MFD_CLOEXEC));
    // Opened here: the user that it is to run as may not be able to reach it by its path.
    const Descriptor program(::open(VARNEL_CLI, O_RDONLY | O_CLOEXEC));
    int nearEnd = -1, status = -1;
    const pid_t process = ::forkpty(&nearEnd, nullptr, nullptr, nullptr);
    if (process == 0) Become(launch, program.Get(), streams);
    const Descriptor terminal(nearEnd);
    EXPECT_GE(::write(nearEnd, launch.Typed.data(), launch.Typed.size()), 0);
    if (launch.Meanwhile) launch.Meanwhile();
    const std::string shown = Read(terminal);
    ::waitpid(process, &status, 0);
    return {WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status), Read(streams[1]),
            Read(streams[2]), shown};
}

}  // namespace cli
