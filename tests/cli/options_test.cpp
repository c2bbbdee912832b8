// How arguments are read: usage errors, options and operands in any order, the file filter, the
// checks of the two folders, help and version.
#include "cli/cli_fixture.h"

namespace cli {
namespace {

using Options = CliTest;

TEST_F(Options, WrongUsageIsOneLineAndStatusTwoAndTouchesNothing) {
    MakeRows();
    const auto before = Files("");
    for (const char* arguments : {"",
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
                                  "sync --mode both one two",
                                  "sync --exclude doc one --only= two",
                                  "sync --direction left.txt one two",
                                  "sync --direction left.txt=up one two",
                                  "sync --direction =right one two",
                                  "sync --force one two",
                                  "export new one two",
                                  "export changed one two report",
                                  "export new one two report report",
                                  "export new --view=same one two report",
                                  "export new --format=tsv one two report",
                                  "export new --quiet one two report",
                                  "history",
                                  "history forget",
                                  "history list more",
                                  "history list --yes",
                                  "history clear --force"}) {
        ExpectRefusal(arguments, 2);
        EXPECT_EQ(Files(""), before) << arguments;
    }
}

TEST_F(Options, StandAnywhereUpToTwoDashesAndTheLastOneCounts) {
    MakeRows();
    File("--quiet/a", "");
    MakeFolder("--");
    EXPECT_EQ(Cli("compare one --view=chg -- two --view").Status, 2);
    EXPECT_EQ(Cli("--view chg compare one two --view=same").Output, "---/---/---   same.txt\n");
    EXPECT_EQ(Cli("compare -- --quiet --").Output, "Copy -->      a\n");
    EXPECT_EQ(Cli("compare ./--quiet ./--").Output, "Copy -->      a\n");
}

TEST_F(Options, FilterListsAreTypedAsInTheDialog) {
    for (const std::string name : {"a.txt", "b/B.TXT", "b/c/c.jpg"}) File("one/" + name, "");
    const std::string a = "Copy -->      a.txt\n", b = "Copy -->      b/B.TXT\n",
                      c = "Copy -->      b/c/c.jpg\n";
    EXPECT_EQ(Cli("compare one two --only=.txt,,*.jpg").Output, a + c);
    EXPECT_EQ(Cli("compare one two --exclude txt").Output, b + c);
    EXPECT_EQ(Cli("compare one two --exclude=").Output, a + b + c);
    // The comparison regards case and takes the file, the copy does not and refuses it.
    EXPECT_EQ(Cli("sync --exclude=txt,jpg one two").Output, "--> Fail -->  b/B.TXT\n");
}

TEST_F(Options, FilterAndFoldersAreCheckedInTheWordsOfTheWindow) {
    File("file", "");
    const std::pair<Texts, std::string> cases[] = {
        {{"sync", "--only=", "one", "two"}, "Please input the file extensions."},
        {{"compare", "", "two"}, "Please enter 'Folder 1' !"},
        {{"sync", "one", ""}, "Please enter 'Folder 2' !"},
        {{"export", "new", "one", One(), "report"}, "'Folder 1' and 'Folder 2' are same folder !"},
        {{"compare", "file", "two"}, "Folder 1 did not exist!"},
        {{"export", "new", "one", "nowhere", "report"}, "Folder 2 did not exist!"},
        {{"export", "new", "one", "two", ""}, "varnel-cli: the name of the file is empty"},
    };
    for (const auto& [arguments, message] : cases) {
        const Ended run = Cli(Command(arguments));
        EXPECT_EQ(run.Error, message + "\n");
        EXPECT_EQ(run.Output, "") << message;
        EXPECT_EQ(run.Status, 2) << message;
        EXPECT_FALSE(Exists("report")) << message;
        EXPECT_FALSE(Exists("config")) << message << " A refused pair is not remembered.";
    }
}

TEST_F(Options, HelpAndVersionGoToStandardOutput) {
    for (const std::string command : {"compare", "sync", "export", "history"}) {
        const Ended run = Cli(command + " --help");
        EXPECT_TRUE(run.Output.starts_with("Usage:\n  varnel-cli " + command + " ")) << run.Output;
        EXPECT_NE(Cli("--help").Output.find(Lines(run.Output).at(1)), std::string::npos);
        EXPECT_EQ(run.Error, "");
        EXPECT_EQ(run.Status, 0);
    }
    Expect("--version", 0, "varnel-cli 8.12\n", "");
}

}  // namespace
}  // namespace cli
