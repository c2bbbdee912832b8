// Runs the real program and keeps what it says: both streams, the exit status, and what a terminal
// would show. Every run has a time limit, so a hang is a failed test.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <sys/types.h>

#include "platform/posix/reached_path.h"

namespace cli {

// What a stream of the program is connected to.
enum class Sink {
    File,      // kept; as input it is empty
    Terminal,  // the run's terminal
};

struct Launch {
    std::vector<std::string> Arguments;
    std::vector<std::string> Environment;  // on top of ours: NAME=value; NAME alone takes it out
    std::string WorkFolder;
    std::string Typed;  // what is typed on the terminal
    Sink Input = Sink::File, Output = Sink::File, Error = Sink::File;
    bool AsNobody = false;        // gives up root's rights; without effect for other users
    std::function<void()> First;  // what the new process does before it becomes the program
};

struct Ended {
    int Status = -1;  // the exit status; -1 when a signal ended it
    int Signal = 0;
    std::string Output;
    std::string Error;
    std::string Terminal;  // every byte that went to the terminal
};

// A program that has been started and is to be waited for, once.
class Running {
  public:
    explicit Running(const Launch& launch);
    Ended Wait();

  private:
    // In the new process.
    [[noreturn]] void Become(const Launch& launch, int program, int terminal) const;

    pid_t pid_ = -1;
    platform::posix::Descriptor streams_[3];
    platform::posix::Descriptor terminal_;
};

}  // namespace cli
