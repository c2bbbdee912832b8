// How arguments are read, and what is refused before anything is done.
#include "cli/cli_fixture.h"

namespace cli {
namespace {

using Options = CliTest;

TEST_F(Options, WrongUsageIsOneLineAndStatusTwoAndTouchesNothing) {
    MakeRows();
    const auto before = Files("");
    const std::pair<std::string, Texts> cases[] = {
        {"", {"", "frobnicate one two", "--frob", "--version=1", "compare one"}},
        {"compare one two ",
         {"one", "-x", "--vie same", "--view all", "--view=", "--view", "--format xml",
          "--quiet=yes", "--only txt --exclude doc", "--mode left", "--direction left.txt=right",
          "--dry-run", "--force", "--yes"}},
        {"sync one two ",
         {"--mode both", "--direction left.txt", "--direction left.txt=up", "--force", "--yes"}},
        {"export ", {"new one two", "changed one two report", "new one two report report"}},
        {"export new one two report ", {"--view=same", "--format=tsv", "--quiet", "--dry-run"}},
        {"history ", {"", "forget", "list more", "list --yes", "clear --force"}},
    };
    for (const auto& [start, ends] : cases)
        for (const std::string& end : ends) ExpectRefusal(start + end, 2);
    EXPECT_EQ(Files(""), before);
}

TEST_F(Options, StandAnywhereUpToTwoDashesAndTheLastOneCounts) {
    MakeRows();
    File("--quiet/a", "");
    MakeFolder("--");
    EXPECT_EQ(Cli("--view chg compare one two --view=same").Output, "---/---/---   same.jpg\n");
    EXPECT_EQ(Cli("compare -- --quiet --").Output, "Copy -->      a\n");
}

TEST_F(Options, FilterAndFoldersAreCheckedInTheWordsOfTheWindow) {
    const std::pair<Texts, std::string> cases[] = {
        {{"sync", "--only=", "one", "two"}, "Please input the file extensions."},
        {{"compare", "", "two"}, "Please enter 'Folder 1' !"},
        {{"sync", "one", ""}, "Please enter 'Folder 2' !"},
        {{"export", "new", "one", One(), "report"}, "'Folder 1' and 'Folder 2' are same folder !"},
        {{"export", "new", "one", "two", ""}, "varnel-cli: the name of the file is empty"},
    };
    for (const auto& [arguments, message] : cases) {
        const Ended run = Cli(Command(arguments));
        EXPECT_EQ(run.Error, message + "\n");
        EXPECT_EQ(run.Output, "") << message;
        EXPECT_EQ(run.Status, 2) << message;
    }
    EXPECT_TRUE(Files("").empty()) << "A refused pair is not remembered, no report written.";
}

TEST_F(Options, HelpAndVersionGoToStandardOutput) {
    for (const std::string command : {"compare", "sync", "export", "history"}) {
        const std::string usage = "Usage:\n  varnel-cli " + command + " ";
        EXPECT_TRUE(Cli(command + " --help").Output.starts_with(usage)) << command;
        EXPECT_NE(Cli("--help").Output.find(usage.substr(6)), std::string::npos) << command;
    }
    Expect("--version", 0, "varnel-cli 8.12\n", "");
}

}  // namespace
}  // namespace cli
