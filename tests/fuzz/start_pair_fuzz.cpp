// The window's command line: any text, on a history of one pair.
#include <string>
#include <vector>

#include "app/form_main.h"
#include "fakes/memory_registry.h"
#include "fuzz/fuzzing.h"
#include "platform/headless/headless_host.h"

namespace {

using fuzzing::Require;

const std::string kRemembered1 = "/remembered/1";
const std::string kRemembered2 = "/remembered/2";

struct Pair {
    std::string Folder1;
    std::string Folder2;
    bool operator==(const Pair&) const = default;
};

// What the boxes show after a start with this command line.
Pair Start(const std::string& commandLine) {
    fakes::MemoryRegistry registry;
    registry.Values[std::string(app::kProfilesKey) + "\\P0"] =
        kRemembered1 + std::string(app::kProfileSeparator) + kRemembered2;
    platform::headless::Host host;
    platform::headless::Dialogs dialogs;
    platform::headless::Shell shell;
    app::FormMain form({host, platform::SystemFiles(), registry, dialogs, shell});
    form.Load(commandLine);
    Require(form.Combo1.Entries() == std::vector{kRemembered1} &&
                form.Combo2.Entries() == std::vector{kRemembered2},
            "the history is offered whatever the command line says");
    Require(dialogs.Messages.empty() && registry.Writes == 0 && registry.Creations == 0,
            "a start asks nothing and writes nothing");
    return {form.Combo1.Text(), form.Combo2.Text()};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string commandLine(fuzzing::Bytes(data, size));
    const Pair pair = Start(commandLine);
    const Pair remembered = {kRemembered1, kRemembered2};
    const std::size_t comma = commandLine.find(',');
    if (comma == std::string::npos || commandLine.find(',', comma + 1) != std::string::npos) {
        Require(pair == remembered, "a text that is no pair leaves the history's pair");
        return 0;
    }
    if (pair == remembered) return 0;
    Require(!pair.Folder1.empty(), "a pair has a Folder 1");
    const auto isPartOfIt = [&](const std::string& folder) {
        return commandLine.find(folder) != std::string::npos;
    };
    Require(isPartOfIt(pair.Folder1) && isPartOfIt(pair.Folder2), "folders are kept as typed");
    const std::string quoted = " \"" + pair.Folder1 + "\" , \"" + pair.Folder2 + "\" ";
    Require(Start(quoted) == pair, "a pair between quotes is the same pair");
    return 0;
}
