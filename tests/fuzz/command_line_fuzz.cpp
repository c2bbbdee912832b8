// Both command lines. The window's, on a history of one pair, is the input itself; the lines of the
// input are the arguments of the command line program.
#include <sstream>

#include "app/cli_options.h"
#include "app/form_main.h"
#include "fakes/memory_registry.h"
#include "fuzz/fuzzing.h"
#include "platform/headless/headless_host.h"

void fuzzing::Examine(const std::string& input) {
    fakes::MemoryRegistry registry;
    registry.Values[std::string(app::kProfilesKey) + "\\P0"] = "/kept 1==========/kept 2";
    platform::headless::Host host;
    platform::headless::Dialogs dialogs;
    platform::headless::Shell shell;
    app::FormMain form({host, platform::SystemFiles(), registry, dialogs, shell});
    form.Load(input);
    const std::string& folder1 = form.Combo1.Text();
    Require(form.Combo1.Entries() == std::vector<std::string>{"/kept 1"},
            "the history is offered whatever the command line says");
    Require(folder1 == "/kept 1" || input.substr(0, input.find(',')).find(folder1) != input.npos,
            "Folder 1 is the history's, or as it was typed");

    std::istringstream lines(input);
    std::vector<std::string> arguments;
    for (std::string line; std::getline(lines, line);) arguments.push_back(line);
    app::CliOptions options;
    const std::string error = app::ParseCliOptions(arguments, options);
    Require(error.find('\n') == error.npos, "an error is one line");
    Require(!error.empty() || !options.HasOnly || !options.HasExclude, "one filter at most");
}
