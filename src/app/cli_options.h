// The words of the command line program: commands, options, operands.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "compare/compare_table.h"

namespace app {

enum class CliCommand { Compare, Sync, Export, HistoryList, HistoryClear, Help, Version };
enum class RowFormat { Text, Tsv, Json };
enum class RowDirection { Right, Left, None };

struct CliOptions {
    CliCommand Command = CliCommand::Help;
    std::string HelpTopic;  // a command's name, or empty

    bool HasOnly = false;
    bool HasExclude = false;
    std::string FilterList;

    std::string ViewCode = "NewChg";
    compare::SyncMode Mode = compare::SyncMode::Double;
    std::vector<std::pair<std::string, RowDirection>> Directions;  // by relative path
    bool DryRun = false;
    RowFormat Format = RowFormat::Text;
    bool Quiet = false;
    bool Force = false;
    bool NoHistory = false;
    bool Yes = false;

    std::string ExportKind;  // "new", "modified", "new-modified" or "same"
    std::string Folder1;
    std::string Folder2;
    std::string File;
};

// Reads the arguments after the program's name. Wrong usage is an error text of one line; empty
// when all is well.
std::string ParseCliOptions(const std::vector<std::string>& arguments, CliOptions& options);

// What --help prints; of one command when `topic` names it.
std::string CliUsage(const std::string& topic);

}  // namespace app
