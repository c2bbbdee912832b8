// Runs the real program and keeps what it says: both streams, the exit status, and what a terminal
// would show. Every run has a time limit, so a hang is a failed test.
#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace cli {

using Texts = std::vector<std::string>;

// Lines without their line feeds; text after the last line feed is a line, too.
Texts Lines(const std::string& text);

// What stands between blanks.
Texts Words(const std::string& text);

struct Launch {
    Texts Arguments = {};
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
