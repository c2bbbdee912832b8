// Both command lines. The window's, on a history of one pair, is the input itself; the texts of the
// input are the arguments of the command line program.
#include "app/cli_options.h"
#include "app/form_main.h"
#include "fakes/memory_registry.h"
#include "fuzz/fuzzing.h"
#include "platform/headless/headless_host.h"

using fuzzing::Require;

namespace {

void RequireSoundStart(const std::string& commandLine) {
    fakes::MemoryRegistry registry;
    registry.Values[std::string(app::kProfilesKey) + "\\P0"] = "/kept 1==========/kept 2";
    platform::headless::Host host;
    platform::headless::Dialogs dialogs;
    platform::headless::Shell shell;
    app::FormMain form({host, platform::SystemFiles(), registry, dialogs, shell});
    form.Load(commandLine);
    const std::string &folder1 = form.Combo1.Text(), &offered = form.Combo1.Entries().at(0);
    Require(offered == "/kept 1", "the history is offered whatever the command line says");
    const std::size_t typed = folder1.empty() ? std::string::npos : commandLine.find(folder1);
    Require(folder1 == offered || typed < commandLine.find(','),
            "Folder 1 is the history's, or as it was typed");
}

// A folder, a list and a path may be any text.
void RequireTaken(const std::string& text) {
    app::CliOptions options;
    app::ParseCliOptions(
        {"sync", "--exclude", text, "--direction=" + text + "=left", "--", text, text}, options);
    Require(options.FilterList == text && options.Folder1 == text && options.Folder2 == text &&
                options.Directions == std::vector{std::pair(text, app::RowDirection::Left)},
            "any text is taken");
}

}  // namespace

void fuzzing::Examine(const std::string& input) {
    RequireSoundStart(input);
    const std::vector<std::string> arguments = Texts(input, 1);
    if (!arguments.back().empty()) RequireTaken(arguments.back());
    app::CliOptions options;
    const std::string error = app::ParseCliOptions(arguments, options);
    Require(!input.ends_with('\n') || error.find('\n') == std::string::npos,
            "an error is one line");
    Require(!(error.empty() && options.HasOnly && options.HasExclude), "one filter at most");
}
