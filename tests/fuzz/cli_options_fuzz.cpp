// The arguments of the command line program. Texts: the arguments.
#include <cctype>
#include <string>
#include <tuple>
#include <vector>

#include "app/cli_options.h"
#include "fuzz/fuzzing.h"

namespace {

using app::CliCommand;
using app::CliOptions;
using fuzzing::Require;
using Arguments = std::vector<std::string>;

auto Everything(const CliOptions& o) {
    return std::tie(o.Command, o.HelpTopic, o.HasOnly, o.HasExclude, o.FilterList, o.ViewCode,
                    o.Mode, o.Directions, o.DryRun, o.Format, o.Quiet, o.Force, o.NoHistory, o.Yes,
                    o.ExportKind, o.Folder1, o.Folder2, o.File);
}

std::string Lower(std::string text) {
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

// Says in one certain way what options mean.
class Wording {
  public:
    // Values are joined to their options by "=", or arguments of their own.
    explicit Wording(bool joined) : joined_(joined) {}

    Arguments Of(const CliOptions& options) {
        switch (options.Command) {
            case CliCommand::Help:
            case CliCommand::Version:
                if (!options.HelpTopic.empty()) words_.push_back(options.HelpTopic);
                Flag(options.Command == CliCommand::Help ? "--help" : "--version", true);
                break;
            case CliCommand::HistoryList:
            case CliCommand::HistoryClear:
                Flag("--yes", options.Yes);
                Operands(
                    {"history", options.Command == CliCommand::HistoryList ? "list" : "clear"});
                break;
            case CliCommand::Compare:
                ComparingOptions(options);
                PrintingOptions(options);
                Operands({"compare", options.Folder1, options.Folder2});
                break;
            case CliCommand::Sync:
                ComparingOptions(options);
                PrintingOptions(options);
                SyncOptions(options);
                Operands({"sync", options.Folder1, options.Folder2});
                break;
            case CliCommand::Export:
                ComparingOptions(options);
                Flag("--force", options.Force);
                Operands(
                    {"export", options.ExportKind, options.Folder1, options.Folder2, options.File});
                break;
        }
        return words_;
    }

  private:
    void Flag(const std::string& name, bool set) {
        if (set) words_.push_back(name);
    }
    void Value(const std::string& name, const std::string& value) {
        words_.push_back(joined_ ? name + '=' + value : name);
        if (!joined_) words_.push_back(value);
    }
    void Operands(const Arguments& operands) {
        words_.push_back("--");
        words_.insert(words_.end(), operands.begin(), operands.end());
    }
    void ComparingOptions(const CliOptions& options) {
        if (options.HasOnly) Value("--only", options.FilterList);
        if (options.HasExclude) Value("--exclude", options.FilterList);
        Flag("--no-history", options.NoHistory);
    }
    void PrintingOptions(const CliOptions& options) {
        Value("--view", Lower(options.ViewCode));
        constexpr const char* kFormats[] = {"text", "tsv", "json"};
        Value("--format", kFormats[static_cast<int>(options.Format)]);
        Flag("--quiet", options.Quiet);
    }
    void SyncOptions(const CliOptions& options) {
        constexpr const char* kDirections[] = {"=right", "=left", "=none"};
        constexpr const char* kModes[] = {"left", "right", "double"};
        for (const auto& [path, direction] : options.Directions)
            Value("--direction", path + kDirections[static_cast<int>(direction)]);
        Value("--mode", kModes[static_cast<int>(options.Mode)]);
        Flag("--dry-run", options.DryRun);
    }

    const bool joined_;
    Arguments words_;
};

// A folder, a list and a path may be any text.
void RequireTakesAnyText(const std::string& text) {
    for (const bool joined : {true, false}) {
        CliOptions wanted;
        wanted.Command = CliCommand::Sync;
        wanted.HasExclude = true;
        wanted.FilterList = wanted.Folder1 = wanted.Folder2 = text;
        if (!text.empty()) wanted.Directions.emplace_back(text, app::RowDirection::Left);
        CliOptions options;
        const std::string error = app::ParseCliOptions(Wording(joined).Of(wanted), options);
        Require(error.empty() && Everything(options) == Everything(wanted), "any text is taken");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Arguments arguments = fuzzing::Texts(fuzzing::Bytes(data, size));
    if (!arguments.empty()) RequireTakesAnyText(arguments.back());
    CliOptions options;
    const std::string error = app::ParseCliOptions(arguments, options);
    bool ofOneLine = true;
    for (const std::string& argument : arguments)
        ofOneLine = ofOneLine && argument.find('\n') == std::string::npos;
    Require(!ofOneLine || error.find('\n') == std::string::npos, "an error is one line");
    if (!error.empty()) return 0;

    Require(!(options.HasOnly && options.HasExclude), "one filter at most");
    Require(!app::CliUsage(options.HelpTopic).empty(), "there is help for each topic");
    for (const bool joined : {true, false}) {
        CliOptions again;
        Require(app::ParseCliOptions(Wording(joined).Of(options), again).empty(),
                "options said in another way are accepted");
        Require(Everything(again) == Everything(options),
                "options said in another way mean the same");
    }
    return 0;
}
