// The command line program: the main window without a screen, its controls clicked by arguments.
#pragma once

#include <string>
#include <vector>

namespace app {

// Runs the program with the arguments after its name and returns its exit status: 0 done, 1
// differences, failures or a refusal, 2 wrong usage or output that could not be written, 130
// stopped.
int RunCli(const std::vector<std::string>& arguments);

}  // namespace app
