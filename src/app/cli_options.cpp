#include "app/cli_options.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace app {

namespace {

// The commands that an option goes with.
constexpr unsigned kCompare = 1;
constexpr unsigned kSync = 2;
constexpr unsigned kExport = 4;
constexpr unsigned kHistory = 8;
constexpr unsigned kAllWork = kCompare | kSync | kExport;

// Sets one option; false when the value is none of its own.
using Setter = bool (*)(CliOptions&, const std::string& value);

struct Option {
    std::string_view Name;
    unsigned Commands;
    std::string_view ValueName;  // empty: a flag
    Setter Set;
};

template <typename Value, std::size_t N>
bool Choose(const std::array<std::pair<std::string_view, Value>, N>& choices,
            const std::string& word, Value& chosen) {
    const auto found = std::find_if(choices.begin(), choices.end(),
                                    [&](const auto& choice) { return choice.first == word; });
    if (found == choices.end()) return false;
    chosen = found->second;
    return true;
}

template <typename Value>
using Choice = std::pair<std::string_view, Value>;

bool SetView(CliOptions& options, const std::string& value) {
    constexpr std::array views = {
        Choice<const char*>{"new", "New"}, Choice<const char*>{"chg", "Chg"},
        Choice<const char*>{"newchg", "NewChg"}, Choice<const char*>{"same", "Same"}};
    const char* code = nullptr;
    if (!Choose(views, value, code)) return false;
    options.ViewCode = code;
    return true;
}

bool SetMode(CliOptions& options, const std::string& value) {
    using Mode = compare::SyncMode;
    constexpr std::array modes = {Choice<Mode>{"double", Mode::Double},
                                  Choice<Mode>{"left", Mode::Left},
                                  Choice<Mode>{"right", Mode::Right}};
    return Choose(modes, value, options.Mode);
}

bool SetFormat(CliOptions& options, const std::string& value) {
    constexpr std::array formats = {Choice<RowFormat>{"text", RowFormat::Text},
                                    Choice<RowFormat>{"tsv", RowFormat::Tsv},
                                    Choice<RowFormat>{"json", RowFormat::Json}};
    return Choose(formats, value, options.Format);
}

// A relative path may hold "=" itself; the last one ends it.
bool AddDirection(CliOptions& options, const std::string& value) {
    constexpr std::array words = {Choice<RowDirection>{"right", RowDirection::Right},
                                  Choice<RowDirection>{"left", RowDirection::Left},
                                  Choice<RowDirection>{"none", RowDirection::None}};
    const std::size_t equals = value.rfind('=');
    RowDirection direction{};
    if (equals == std::string::npos || equals == 0 ||
        !Choose(words, value.substr(equals + 1), direction))
        return false;
    options.Directions.emplace_back(value.substr(0, equals), direction);
    return true;
}

template <bool CliOptions::*Flag>
bool SetFlag(CliOptions& options, const std::string&) {
    options.*Flag = true;
    return true;
}

template <bool CliOptions::*Flag>
bool SetFilter(CliOptions& options, const std::string& value) {
    options.*Flag = true;
    options.FilterList = value;
    return true;
}

constexpr std::array kOptions = {
    Option{"--only", kAllWork, "LIST", SetFilter<&CliOptions::HasOnly>},
    Option{"--exclude", kAllWork, "LIST", SetFilter<&CliOptions::HasExclude>},
    Option{"--view", kCompare | kSync, "new|chg|newchg|same", SetView},
    Option{"--mode", kSync, "double|left|right", SetMode},
    Option{"--direction", kSync, "REL=right|left|none", AddDirection},
    Option{"--dry-run", kSync, "", SetFlag<&CliOptions::DryRun>},
    Option{"--format", kCompare | kSync, "text|tsv|json", SetFormat},
    Option{"--quiet", kCompare | kSync, "", SetFlag<&CliOptions::Quiet>},
    Option{"-q", kCompare | kSync, "", SetFlag<&CliOptions::Quiet>},
    Option{"--force", kExport, "", SetFlag<&CliOptions::Force>},
    Option{"--no-history", kAllWork, "", SetFlag<&CliOptions::NoHistory>},
    Option{"--yes", kHistory, "", SetFlag<&CliOptions::Yes>},
};

struct Words {
    std::vector<std::string> Operands;
    std::vector<std::pair<const Option*, std::string>> Options;
    bool Help = false;
    bool Version = false;
};

// Takes one option and, where it has one, its value; an error text or empty.
std::string TakeOption(const std::vector<std::string>& arguments, std::size_t& at, Words& words) {
    const std::string& word = arguments[at];
    const std::size_t equals = word.starts_with("--") ? word.find('=') : std::string::npos;
    const std::string name = word.substr(0, equals);
    if (name == "--help" || name == "--version") {
        if (equals != std::string::npos) return "option '" + name + "' takes no value";
        (name == "--help" ? words.Help : words.Version) = true;
        return {};
    }
    const auto* option = std::find_if(kOptions.begin(), kOptions.end(),
                                      [&](const Option& o) { return o.Name == name; });
    if (option == kOptions.end()) return "unknown option '" + name + "'";
    std::string value;
    if (option->ValueName.empty()) {
        if (equals != std::string::npos) return "option '" + name + "' takes no value";
    } else if (equals != std::string::npos) {
        value = word.substr(equals + 1);
    } else {
        if (at + 1 == arguments.size()) return "option '" + name + "' needs a value";
        value = arguments[++at];
    }
    words.Options.emplace_back(option, value);
    return {};
}

std::string Split(const std::vector<std::string>& arguments, Words& words) {
    bool optionsEnded = false;
    for (std::size_t at = 0; at < arguments.size(); ++at) {
        const std::string& word = arguments[at];
        if (optionsEnded || word.size() < 2 || word[0] != '-') {
            words.Operands.push_back(word);
        } else if (word == "--") {
            optionsEnded = true;
        } else if (std::string error = TakeOption(arguments, at, words); !error.empty()) {
            return error;
        }
    }
    return {};
}

struct CommandForm {
    std::string_view Name;
    unsigned Bit;
    std::size_t Operands;  // after the command's name
    std::string_view OperandNames;
};

constexpr std::array kCommands = {
    CommandForm{"compare", kCompare, 2, "FOLDER1 FOLDER2"},
    CommandForm{"sync", kSync, 2, "FOLDER1 FOLDER2"},
    CommandForm{"export", kExport, 4, "KIND FOLDER1 FOLDER2 FILE"},
    CommandForm{"history", kHistory, 1, "list | clear"},
};

std::string TakeOperands(const CommandForm& command, const std::vector<std::string>& operands,
                         CliOptions& options) {
    if (operands.size() != command.Operands + 1)
        return "'" + std::string(command.Name) + "' takes " + std::string(command.OperandNames);
    switch (command.Bit) {
        case kExport: {
            constexpr std::array<std::string_view, 4> kinds = {"new", "modified", "new-modified",
                                                               "same"};
            options.Command = CliCommand::Export;
            options.ExportKind = operands[1];
            if (std::find(kinds.begin(), kinds.end(), options.ExportKind) == kinds.end())
                return "unknown kind '" + operands[1] + "' of list";
            options.Folder1 = operands[2];
            options.Folder2 = operands[3];
            options.File = operands[4];
            if (options.File.find_first_not_of(' ') == std::string::npos)
                return "the name of the file is empty";
            return {};
        }
        case kHistory:
            if (operands[1] != "list" && operands[1] != "clear")
                return "unknown history command '" + operands[1] + "'";
            options.Command =
                operands[1] == "list" ? CliCommand::HistoryList : CliCommand::HistoryClear;
            if (options.Yes && options.Command == CliCommand::HistoryList)
                return "option '--yes' does not go with 'history list'";
            return {};
        default:
            options.Command = command.Bit == kSync ? CliCommand::Sync : CliCommand::Compare;
            options.Folder1 = operands[1];
            options.Folder2 = operands[2];
            return {};
    }
}

std::string SetOptions(const CommandForm& command, const Words& words, CliOptions& options) {
    for (const auto& [option, value] : words.Options) {
        const std::string name(option->Name);
        if (!(option->Commands & command.Bit))
            return "option '" + name + "' does not go with '" + std::string(command.Name) + "'";
        if (!option->Set(options, value))
            return "option '" + name + "' takes " + std::string(option->ValueName) + ", not '" +
                   value + "'";
    }
    if (options.HasOnly && options.HasExclude)
        return "options '--only' and '--exclude' exclude each other";
    return {};
}

}  // namespace

std::string ParseCliOptions(const std::vector<std::string>& arguments, CliOptions& options) {
    Words words;
    if (std::string error = Split(arguments, words); !error.empty()) return error;
    const CommandForm* command = nullptr;
    if (!words.Operands.empty()) {
        const std::string& name = words.Operands.front();
        command = std::find_if(kCommands.begin(), kCommands.end(),
                               [&](const CommandForm& form) { return form.Name == name; });
        if (command == kCommands.end()) return "unknown command '" + name + "'";
    }
    if (words.Help || words.Version) {
        options.Command = words.Help ? CliCommand::Help : CliCommand::Version;
        if (command) options.HelpTopic = command->Name;
        return {};
    }
    if (!command) return "no command; 'varnel-cli --help' lists them";
    if (std::string error = SetOptions(*command, words, options); !error.empty()) return error;
    return TakeOperands(*command, words.Operands, options);
}

std::string CliUsage(const std::string& topic) {
    struct Entry {
        std::string_view Command;
        std::string_view Form;
        std::string_view Meaning;
    };
    constexpr std::array entries = {
        Entry{"compare", "varnel-cli compare [OPTIONS] FOLDER1 FOLDER2",
              "Compares two folders and prints the rows of a view."},
        Entry{"sync", "varnel-cli sync [OPTIONS] FOLDER1 FOLDER2",
              "Compares two folders, copies what is new and replaces what is older."},
        Entry{"export", "varnel-cli export KIND [OPTIONS] FOLDER1 FOLDER2 FILE",
              "Writes a list to a text file. KIND: new | modified | new-modified | same"},
        Entry{"history", "varnel-cli history list | clear [--yes]",
              "Lists or forgets the remembered folder pairs."},
    };
    struct Help {
        unsigned Commands;
        std::string_view Text;
    };
    constexpr std::array options = {
        Help{kAllWork, "  --only LIST, --exclude LIST  file extensions, such as jpg,bmp\n"},
        Help{kCompare | kSync, "  --view new|chg|newchg|same   the rows to work on (newchg)\n"},
        Help{kSync, "  --mode double|left|right     both ways, Folder 1 to 2, Folder 2 to 1\n"},
        Help{kSync, "  --direction REL=right|left|none  gives one row a direction; repeatable\n"},
        Help{kSync, "  --dry-run                    prints what would be done, changes nothing\n"},
        Help{kCompare | kSync, "  --format text|tsv|json       how rows are printed (text)\n"},
        Help{kCompare | kSync, "  -q, --quiet                  no rows, the summary only\n"},
        Help{kExport, "  --force                      overwrites FILE without asking\n"},
        Help{kAllWork, "  --no-history                 does not remember the pair\n"},
        Help{kHistory, "  --yes                        clears without asking\n"},
    };
    std::string text = "Usage:\n";
    unsigned shown = 0;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (!topic.empty() && topic != entries[i].Command) continue;
        shown |= kCommands[i].Bit;
        text += "  " + std::string(entries[i].Form) + "\n      " + std::string(entries[i].Meaning) +
                "\n";
    }
    if (topic.empty()) text += "  varnel-cli --help | COMMAND --help | --version\n";
    text += "\nOptions:\n";
    for (const Help& option : options)
        if (option.Commands & shown) text += option.Text;
    return text;
}

}  // namespace app
