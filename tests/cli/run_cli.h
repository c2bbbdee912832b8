// Runs the real program and keeps what it says: both streams, the exit status, and what a terminal
// would show. Every run has a time limit, so a hang is a failed test.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace cli {

// What a stream of the program is connected to.
enum class Sink {
    Pipe,      // captured
    Terminal,  // the run's terminal
    Closed,    // not open at all
    Full,      // a device without space
};

struct Launch {
    std::vector<std::string> Arguments;
    std::vector<std::string> Environment;  // NAME=value, all of it but the sanitizers' settings
    std::string WorkFolder;
    std::string Typed;  // what is typed on the terminal
    Sink Input = Sink::Pipe;
    Sink Output = Sink::Pipe;
    Sink Error = Sink::Pipe;
    bool AsNobody = false;         // gives up root's rights; without effect for other users
    bool TerminalStopped = false;  // writing to the terminal blocks until ResumeTerminal
};

struct Ended {
    int Status = -1;  // the exit status; -1 when a signal ended it
    int Signal = 0;
    bool TimedOut = false;
    std::string Output;
    std::string Error;
    std::string Terminal;  // every byte that went to the terminal
};

// A program that has been started and is ended, if need be by force, with this object.
class Running {
  public:
    explicit Running(const Launch& launch);
    ~Running();
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

    // Takes what the program writes until `reached` is true. False when it ended before that or
    // the time limit passed.
    bool WaitUntil(const std::function<bool()>& reached);

    // True once the program asks to be told of interrupts.
    bool CatchesInterrupts() const;

    void Send(int signal) const;
    void ResumeTerminal();

    const Ended& SoFar() const { return ended_; }
    Ended Wait();

  private:
    int OpenFor(int stream, Sink sink);
    void TakeOutput();
    void Reap(int options);

    pid_t pid_ = -1;
    bool gone_ = false;
    int ends_[3] = {-1, -1, -1};  // ours of the streams that are pipes
    int terminal_ = -1;
    int terminalFarEnd_ = -1;
    Ended ended_;
};

Ended RunToEnd(const Launch& launch);

}  // namespace cli
