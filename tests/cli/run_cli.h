// Runs the real program and keeps what it says: both streams, the exit status, and what a terminal
// would show. Every run has a time limit, so a hang is a failed test.
#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace cli {

struct Launch {
    std::vector<std::string> Arguments = {};
    std::set<int> OnTerminal = {};     // of its three streams; the others are files, empty as input
    std::string Typed = {};            // on the terminal
    std::function<void()> First = {};  // what the new process does before it is the program
    std::function<void()> Meanwhile = {};  // what is done here before its end is waited for
};

struct Ended {
    int Status = 0;  // the exit status; below 0 the signal that ended it
    std::string Output, Error;
    std::string Terminal;  // every byte that went to the terminal
};

// From its start to its end.
Ended RunCli(const Launch& launch);

}  // namespace cli
