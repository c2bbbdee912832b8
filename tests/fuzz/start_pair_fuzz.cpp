// The window's command line: any text, on a history of one pair.
#include <algorithm>

#include "app/form_main.h"
#include "fakes/memory_registry.h"
#include "fuzz/fuzzing.h"
#include "platform/headless/headless_host.h"

using fuzzing::Require;
using Pair = std::pair<std::string, std::string>;

namespace {

const Pair kRemembered = {"/remembered/1", "/remembered/2"};

// What the boxes show after a start with this command line.
Pair Start(const std::string& commandLine) {
    fakes::MemoryRegistry registry;
    registry.Values[std::string(app::kProfilesKey) + "\\P0"] =
        kRemembered.first + std::string(app::kProfileSeparator) + kRemembered.second;
    const auto before = registry.Values;
    platform::headless::Host host;
    platform::headless::Dialogs dialogs;
    platform::headless::Shell shell;
    app::FormMain form({host, platform::SystemFiles(), registry, dialogs, shell});
    form.Load(commandLine);
    Require(form.Combo1.Entries() == std::vector{kRemembered.first} &&
                form.Combo2.Entries() == std::vector{kRemembered.second},
            "the history is offered whatever the command line says");
    Require(dialogs.Messages.empty() && registry.Values == before,
            "a start asks nothing and writes nothing");
    return {form.Combo1.Text(), form.Combo2.Text()};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string commandLine = fuzzing::Text(data, size);
    const Pair pair = Start(commandLine);
    if (pair == kRemembered) return 0;
    Require(std::count(commandLine.begin(), commandLine.end(), ',') == 1,
            "a text that is no pair leaves the history's pair");
    Require(!pair.first.empty() && commandLine.find(pair.first) != std::string::npos &&
                commandLine.find(pair.second) != std::string::npos,
            "folders are kept as typed, and a pair has a Folder 1");
    Require(Start(" \"" + pair.first + "\" , \"" + pair.second + "\" ") == pair,
            "a pair between quotes is the same pair");
    return 0;
}
