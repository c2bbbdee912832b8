// What a command line program asks of its terminal and its signals.
#pragma once

#include <string>
#include <string_view>

namespace platform {

enum class Stream { Input, Output, Error };

bool IsTerminal(Stream stream);

// Writes all of it, as bytes. False when the system refuses.
bool WriteAll(Stream stream, std::string_view bytes);

// From now on the first interrupt or termination request is remembered and the second one ends
// the program at once. A file that grows beyond what its user is allowed is a failure like others.
void CatchInterrupts();
bool InterruptRequested();

// One line from standard input without its line end; empty at its end.
std::string ReadLine();

// A clock for pacing, in milliseconds; cheap, and exact to about 20.
long long CoarseMilliseconds();

}  // namespace platform
