// Both command lines. The window's, on a history of one pair, is the input itself; the lines of the
// input are the arguments of the command line program.
#include <cassert>
#include <sstream>

#include "app/cli_options.h"
#include "app/form_main.h"
#include "fakes/memory_registry.h"
#include "platform/headless/headless_host.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    fakes::MemoryRegistry registry;
    registry.Values[std::string(app::kProfilesKey) + "\\P0"] = "/kept 1==========/kept 2";
    platform::headless::Host host;
    platform::headless::Dialogs dialogs;
    platform::headless::Shell shell;
    app::FormMain form({host, platform::SystemFiles(), registry, dialogs, shell});
    form.Load(input);
    const std::string& folder1 = form.Combo1.Text();
    const std::string typed = input.substr(0, input.find(','));
    assert(form.Combo1.Entries().size() == 1);  // the history is offered whatever it says
    assert(folder1 == "/kept 1" || typed.find(folder1) != typed.npos);

    std::istringstream lines(input);
    std::vector<std::string> arguments;
    for (std::string line; std::getline(lines, line);) arguments.push_back(line);
    app::CliOptions options;
    const std::string error = app::ParseCliOptions(arguments, options);
    assert(error.find('\n') == error.npos);
    assert(!error.empty() || !options.HasOnly || !options.HasExclude);
    return 0;
}
