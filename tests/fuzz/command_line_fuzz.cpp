// Both command lines. The window's, on a history of one pair, is the input itself; the texts of the
// input are the arguments of the command line program.
#include <algorithm>

#include "app/cli_options.h"
#include "app/form_main.h"
#include "fakes/memory_registry.h"
#include "fuzz/fuzzing.h"
#include "platform/headless/headless_host.h"

using fuzzing::Require;
using Texts = std::vector<std::string>;

namespace {

const Texts kRemembered = {"/remembered/1", "/remembered/2"};

// What the boxes show after a start of the window with this command line.
Texts Start(const std::string& commandLine) {
    fakes::MemoryRegistry registry;
    registry.Values[std::string(app::kProfilesKey) + "\\P0"] =
        kRemembered[0] + std::string(app::kProfileSeparator) + kRemembered[1];
    platform::headless::Host host;
    platform::headless::Dialogs dialogs;
    platform::headless::Shell shell;
    app::FormMain form({host, platform::SystemFiles(), registry, dialogs, shell});
    form.Load(commandLine);
    Require(Texts{form.Combo1.Entries().at(0), form.Combo2.Entries().at(0)} == kRemembered,
            "the history is offered whatever the command line says");
    Require(dialogs.Messages.empty() && registry.Values.size() == 1,
            "a start asks nothing and writes nothing");
    return {form.Combo1.Text(), form.Combo2.Text()};
}

void RequireSoundStart(const std::string& commandLine) {
    const Texts pair = Start(commandLine);
    if (pair == kRemembered) return;
    Require(std::count(commandLine.begin(), commandLine.end(), ',') == 1,
            "a text that is no pair leaves the history's pair");
    Require(!pair[0].empty() && commandLine.find(pair[0]) != std::string::npos &&
                commandLine.find(pair[1]) != std::string::npos,
            "folders are kept as typed, and a pair has a Folder 1");
    Require(Start(" \"" + pair[0] + "\" , \"" + pair[1] + "\" ") == pair,
            "a pair between quotes is the same pair");
}

// A folder, a list and a path may be any text, joined to their options or arguments of their own.
void RequireTakesAnyText(const std::string& text) {
    const std::string direction = text + "=left";
    for (const Texts& arguments :
         {Texts{"sync", "--exclude=" + text, "--direction=" + direction, "--", text, text},
          {"--direction", direction, "--exclude", text, "sync", "--", text, text}}) {
        app::CliOptions options;
        const std::string error = app::ParseCliOptions(arguments, options);
        Require(text.empty() ||  // no path is empty
                    (error.empty() && options.HasExclude && options.FilterList == text &&
                     options.Folder1 == text && options.Folder2 == text &&
                     options.Directions == std::vector{std::pair(text, app::RowDirection::Left)}),
                "any text is taken");
    }
}

}  // namespace

void fuzzing::Examine(const std::string& input) {
    RequireSoundStart(input);
    const auto arguments = fuzzing::Texts(input, 1);
    RequireTakesAnyText(arguments.back());
    app::CliOptions options;
    const std::string error = app::ParseCliOptions(arguments, options);
    Require(!input.ends_with('\n') || error.find('\n') == std::string::npos,
            "an error is one line");
    Require(!(error.empty() && options.HasOnly && options.HasExclude), "one filter at most");
    Require(!error.empty() || !app::CliUsage(options.HelpTopic).empty(), "each topic has help");
}
