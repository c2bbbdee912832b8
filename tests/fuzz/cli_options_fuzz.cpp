// The arguments of the command line program. Texts: the arguments.
#include "app/cli_options.h"
#include "fuzz/fuzzing.h"

using app::CliOptions;
using fuzzing::Require;

namespace {

// A folder, a list and a path may be any text, joined to their options or arguments of their own.
void RequireTakesAnyText(const std::string& text) {
    const std::string direction = text + "=left";
    const std::vector<std::string> wordings[] = {
        {"sync", "--exclude=" + text, "--direction=" + direction, "--", text, text},
        {"--direction", direction, "--exclude", text, "sync", "--", text, text}};
    for (const std::vector<std::string>& arguments : wordings) {
        CliOptions options;
        const std::string error = app::ParseCliOptions(arguments, options);
        if (text.empty()) return;  // no path is empty
        Require(error.empty() && options.HasExclude && options.FilterList == text &&
                    options.Folder1 == text && options.Folder2 == text &&
                    options.Directions == std::vector{std::pair(text, app::RowDirection::Left)},
                "any text is taken");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::vector<std::string> arguments = fuzzing::Texts(data, size, 1);
    RequireTakesAnyText(arguments.back());
    bool ofOneLine = true;
    for (const std::string& argument : arguments)
        ofOneLine = ofOneLine && argument.find('\n') == std::string::npos;
    CliOptions options;
    const std::string error = app::ParseCliOptions(arguments, options);
    Require(!ofOneLine || error.find('\n') == std::string::npos, "an error is one line");
    Require(!(error.empty() && options.HasOnly && options.HasExclude), "one filter at most");
    Require(!error.empty() || !app::CliUsage(options.HelpTopic).empty(), "each topic has help");
    return 0;
}
