// How arguments are read: usage errors, options and operands in any order, the file filter, the
// checks of the two folders, help and version.
#include "cli/cli_fixture.h"

namespace cli {
namespace {

class Options : public CliTest {};

TEST_F(Options, WrongUsageIsOneLineAndStatusTwoAndTouchesNothing) {
    MakeRows();
    const auto before = Files("");
    for (const std::string arguments : {
             "",
             "frobnicate one two",
             "--frob",
             "--version=1",
             "compare",
             "compare one",
             "compare one two one",
             "compare --unknown one two",
             "compare -x one two",
             "compare --vie same one two",
             "compare --view all one two",
             "compare --view= one two",
             "compare one two --view",
             "compare --format xml one two",
             "compare --quiet=yes one two",
             "compare --only txt --exclude doc one two",
             "compare --mode left one two",
             "compare --direction left.txt=right one two",
             "compare --dry-run one two",
             "compare --force one two",
             "compare --yes one two",
             "sync one",
             "sync --mode both one two",
             "sync --exclude doc one --only= two",
             "sync --direction left.txt one two",
             "sync --direction left.txt=up one two",
             "sync --direction =right one two",
             "sync --force one two",
             "export",
             "export new one two",
             "export changed one two report",
             "export new one two report report",
             "export new --view=same one two report",
             "export new --format=tsv one two report",
             "export new --quiet one two report",
             "export new --only=a --exclude=b one two report",
             "history",
             "history forget",
             "history list more",
             "history list --yes",
             "history clear --force",
         }) {
        const Ended run = Cli(arguments);
        EXPECT_EQ(run.Status, 2) << arguments;
        EXPECT_EQ(run.Output, "") << arguments;
        EXPECT_EQ(Lines(run.Error).size(), 1u) << arguments << run.Error;
        EXPECT_EQ(Files(""), before) << arguments;
    }
}

TEST_F(Options, StandAnywhereInEitherForm) {
    MakeRows();
    File("--quiet/a", "");
    MakeFolder("--");
    const std::string same = "---/---/---   same.txt\n", copy = "Copy -->      a\n";
    const struct {
        std::string Arguments, Output;
    } cases[] = {
        {"--view same one two", same},
        {"one --view=same two", same},
        {"one two --view same", same},
        {"--view=same -- one two", same},
        {"one --view=chg two --view=same", same},  // the last one counts
        {"-- --quiet --", copy},
        {"./--quiet ./--", copy},
    };
    for (const auto& [arguments, output] : cases)
        EXPECT_EQ(Cli("compare " + arguments).Output, output) << arguments;
}

TEST_F(Options, FilterListsAreTypedAsInTheDialog) {
    for (const std::string name : {"a.txt", "b.TXT", "c.jpg", "README"}) File("one/" + name, "");
    const struct {
        std::string Option, Names;
    } cases[] = {
        {"--only=.TXT", "a.txt"},
        {"--only=txt,,*.jpg", "a.txt c.jpg"},
        {"--exclude=txt", "README b.TXT c.jpg"},
        {"--exclude=", "README a.txt b.TXT c.jpg"},
    };
    for (const auto& [option, expected] : cases) {
        std::string names;
        for (const std::string& row : SortedLines(Cli("compare one two " + option).Output))
            names += (names.empty() ? "" : " ") + row.substr(14);
        EXPECT_EQ(names, expected) << option;
    }
    // The comparison regards case and takes the file, the copy does not and refuses it.
    const Ended run = Cli("sync --exclude=txt,jpg one two");
    EXPECT_EQ(SortedLines(run.Output), (Texts{"--> Fail -->  b.TXT", "--> OK -->    README"}));
    EXPECT_EQ(Files("two").size(), 1u);
}

TEST_F(Options, FilterAndFoldersAreCheckedInTheWordsOfTheWindow) {
    File("file", "");
    const struct {
        std::string Option, One, Two, Message;
    } cases[] = {
        {"--only=", "one", "two", "Please input the file extensions."},
        {"-q", "", "two", "Please enter 'Folder 1' !"},
        {"-q", "one", "", "Please enter 'Folder 2' !"},
        {"-q", "one", One(), "'Folder 1' and 'Folder 2' are same folder !"},
        {"-q", "nowhere", "nowhere else", "Folder 1 did not exist!"},
        {"-q", "file", "two", "Folder 1 did not exist!"},
        {"-q", "one", "nowhere", "Folder 2 did not exist!"},
    };
    for (const auto& test : cases) {
        for (const std::string command : {"compare", "sync", "export"}) {
            Texts arguments = {command, test.Option, test.One, test.Two};
            if (command == "export") {
                arguments = {command, "new", test.One, test.Two, "report"};
                if (test.Option != "-q") arguments.push_back(test.Option);
            }
            const Ended run = Cli(Command(arguments));
            EXPECT_EQ(run.Error, test.Message + "\n") << command;
            EXPECT_EQ(run.Output, "") << test.Message << command;
            EXPECT_EQ(run.Status, 2) << test.Message << command;
        }
    }
    EXPECT_EQ(Cli(Command({"export", "new", "one", "two", ""})).Status, 2);
    EXPECT_FALSE(Exists("report"));
    EXPECT_FALSE(Exists("config")) << "a refused pair is not remembered";
}

TEST_F(Options, HelpAndVersionGoToStandardOutput) {
    const struct {
        std::string Arguments, Start;
    } cases[] = {
        {"--help", "Usage:\n  varnel-cli compare "},
        {"compare --help", "Usage:\n  varnel-cli compare "},
        {"sync --help", "Usage:\n  varnel-cli sync "},
        {"export --help", "Usage:\n  varnel-cli export "},
        {"history --help", "Usage:\n  varnel-cli history "},
        {"--version", "varnel-cli 8.12\n"},
    };
    for (const auto& [arguments, start] : cases) {
        const Ended run = Cli(arguments);
        EXPECT_EQ(run.Output.substr(0, start.size()), start) << arguments;
        EXPECT_EQ(run.Error, "") << arguments;
        EXPECT_EQ(run.Status, 0) << arguments;
    }
}

}  // namespace
}  // namespace cli
