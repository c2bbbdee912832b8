// How arguments are read: usage errors, options and operands in any order, the file filter, the
// checks of the two folders, help and version.
#include <filesystem>

#include "cli/cli_fixture.h"

namespace cli {
namespace {

class Options : public CliTest {
  protected:
    // "ONE", "TWO" and "FILE" stand for the folders and an export's file.
    Texts Filled(const Texts& arguments) const {
        Texts filled;
        for (const std::string& argument : arguments) {
            filled.push_back(argument == "ONE"    ? One()
                             : argument == "TWO"  ? Two()
                             : argument == "FILE" ? Path("report.txt")
                                                  : argument);
        }
        return filled;
    }
};

std::string Joined(const Texts& arguments) {
    std::string text;
    for (const std::string& argument : arguments) text += argument + " ";
    return text;
}

TEST_F(Options, WrongUsageIsOneLineAndStatusTwoAndTouchesNothing) {
    const Texts cases[] = {
        {},
        {"frobnicate", "ONE", "TWO"},
        {""},
        {"compare"},
        {"compare", "ONE"},
        {"compare", "ONE", "TWO", "ONE"},
        {"compare", "--unknown", "ONE", "TWO"},
        {"compare", "-x", "ONE", "TWO"},
        {"compare", "--vie", "same", "ONE", "TWO"},
        {"compare", "--view", "all", "ONE", "TWO"},
        {"compare", "--view", "SAME", "ONE", "TWO"},
        {"compare", "--view=", "ONE", "TWO"},
        {"compare", "ONE", "TWO", "--view"},
        {"compare", "--format", "xml", "ONE", "TWO"},
        {"compare", "--quiet=yes", "ONE", "TWO"},
        {"compare", "--only", "txt", "--exclude", "doc", "ONE", "TWO"},
        {"compare", "--only", "txt", "--exclude=", "ONE", "TWO"},
        {"compare", "--mode", "left", "ONE", "TWO"},
        {"compare", "--dry-run", "ONE", "TWO"},
        {"compare", "--force", "ONE", "TWO"},
        {"compare", "--yes", "ONE", "TWO"},
        {"sync", "--mode", "both", "ONE", "TWO"},
        {"sync", "--exclude", "doc", "ONE", "--only", "txt", "TWO"},
        {"sync", "--direction", "left.txt", "ONE", "TWO"},
        {"sync", "--direction", "left.txt=up", "ONE", "TWO"},
        {"sync", "--direction", "=right", "ONE", "TWO"},
        {"sync", "--force", "ONE", "TWO"},
        {"sync", "ONE"},
        {"export"},
        {"export", "new", "ONE", "TWO"},
        {"export", "changed", "ONE", "TWO", "FILE"},
        {"export", "New", "ONE", "TWO", "FILE"},
        {"export", "new", "ONE", "TWO", "FILE", "FILE"},
        {"export", "new", "ONE", "TWO", ""},
        {"export", "new", "--view=same", "ONE", "TWO", "FILE"},
        {"export", "new", "--format=tsv", "ONE", "TWO", "FILE"},
        {"export", "new", "--quiet", "ONE", "TWO", "FILE"},
        {"export", "new", "--only=a", "--exclude=b", "ONE", "TWO", "FILE"},
        {"history"},
        {"history", "forget"},
        {"history", "list", "more"},
        {"history", "list", "--yes"},
        {"history", "clear", "--force"},
        {"--frob"},
        {"--version=1"},
    };
    MakeOneOfEach();
    for (const Texts& arguments : cases) {
        const Texts before = State("");
        const Ended run = Cli(Filled(arguments));
        EXPECT_EQ(run.Status, 2) << Joined(arguments);
        EXPECT_EQ(run.Output, "") << Joined(arguments);
        EXPECT_EQ(Lines(run.Error).size(), 1u) << Joined(arguments) << run.Error;
        EXPECT_EQ(State(""), before) << Joined(arguments);
    }
}

TEST_F(Options, StandAnywhereInEitherForm) {
    MakeOneOfEach();
    const Texts cases[] = {
        {"compare", "--view", "same", "ONE", "TWO"},
        {"compare", "--view=same", "ONE", "TWO"},
        {"compare", "ONE", "--view", "same", "TWO"},
        {"compare", "ONE", "TWO", "--view=same"},
        {"compare", "ONE", "--view=same", "--", "TWO"},
        {"compare", "--view=same", "--", "ONE", "TWO"},
        {"compare", "--view=chg", "ONE", "TWO", "--view=same"},  // the last one counts
    };
    for (const Texts& arguments : cases) {
        EXPECT_EQ(Cli(Filled(arguments)).Output, "---/---/---   same.txt\n") << Joined(arguments);
    }
}

TEST_F(Options, EndAtTwoDashes) {
    File("--quiet/a", "");
    MakeFolder("--");
    EXPECT_EQ(Cli({"compare", "--", "--quiet", "--"}).Output, "Copy -->      a\n");
    EXPECT_EQ(Cli({"compare", "./--quiet", "two"}).Output, "Copy -->      a\n");
    EXPECT_EQ(Cli({"compare", "--quiet", "two"}).Status, 2);
}

TEST_F(Options, FilterListsAreTypedAsInTheDialog) {
    for (const std::string name : {"a.txt", "b.TXT", "c.jpg", "d.jp", "e.", "README"}) {
        File("one/" + name, "");
    }
    const struct {
        std::string Option, List, Expected;
    } cases[] = {
        {"--only", "txt", "a.txt e."},
        {"--only", "TXT", "a.txt e."},
        {"--only", ".txt", "a.txt e."},
        {"--only", "t-x t", "a.txt e."},
        {"--only", "txt,,jpg,txt", "a.txt c.jpg d.jp e."},
        {"--only", "jp", "d.jp e."},
        {"--exclude", "txt", "README b.TXT c.jpg d.jp"},
        {"--exclude", "*.jpg", "README a.txt b.TXT"},
        {"--exclude", "", "README a.txt b.TXT c.jpg d.jp e."},
        {"--exclude", "...", "README a.txt b.TXT c.jpg d.jp e."},
    };
    for (const auto& test : cases) {
        std::string names;
        for (const std::string& line :
             SortedLines(OnPair({"compare", test.Option, test.List}).Output)) {
            names += (names.empty() ? "" : " ") + line.substr(14);
        }
        EXPECT_EQ(names, test.Expected) << test.Option << " " << test.List;
    }
}

TEST_F(Options, OnlyNeedsAList) {
    for (const std::string list : {"", "...", ","}) {
        const Ended run = OnPair({"compare", "--only=" + list});
        EXPECT_EQ(run.Error, "Please input the file extensions.\n") << list;
        EXPECT_EQ(run.Output, "") << list;
        EXPECT_EQ(run.Status, 2) << list;
        EXPECT_EQ(Slot(0), "(none)") << list;
    }
}

TEST_F(Options, TheFilterHoldsForTheCopyToo) {
    File("one/a.txt", "a");
    File("one/b.doc", "b");
    EXPECT_EQ(OnPair({"sync", "--only=doc"}).Output, "--> OK -->    b.doc\n");
    EXPECT_FALSE(Exists("two/a.txt"));

    // The comparison regards case and takes the file, the copy does not and refuses it.
    File("one/c.TXT", "c");
    const Ended run = OnPair({"sync", "--exclude=txt"});
    EXPECT_EQ(run.Output, "--> Fail -->  c.TXT\n");
    EXPECT_EQ(run.Status, 1);
    EXPECT_FALSE(Exists("two/c.TXT"));
}

TEST_F(Options, FoldersAreCheckedInTheWordsOfTheWindow) {
    File("file", "");
    const struct {
        std::string One, Two, Message;
    } cases[] = {
        {"", "", "Please enter 'Folder 1' !"},
        {"", "two", "Please enter 'Folder 1' !"},
        {"one", "", "Please enter 'Folder 2' !"},
        {"one", "one", "'Folder 1' and 'Folder 2' are same folder !"},
        {"one", One(), "'Folder 1' and 'Folder 2' are same folder !"},
        {"no/where", "no/where", "'Folder 1' and 'Folder 2' are same folder !"},
        {"nowhere", "two", "Folder 1 did not exist!"},
        {"nowhere", "nowhere else", "Folder 1 did not exist!"},
        {"one", "nowhere", "Folder 2 did not exist!"},
        {"file", "two", "Folder 1 did not exist!"},
        {"one", "file", "Folder 2 did not exist!"},
    };
    for (const auto& test : cases) {
        for (const std::string command : {"compare", "sync", "export"}) {
            Texts arguments = {command, test.One, test.Two};
            if (command == "export") arguments = {command, "new", test.One, test.Two, "report"};
            const Ended run = Cli(arguments);
            EXPECT_EQ(run.Error, test.Message + "\n") << Joined(arguments);
            EXPECT_EQ(run.Output, "") << Joined(arguments);
            EXPECT_EQ(run.Status, 2) << Joined(arguments);
        }
    }
    EXPECT_FALSE(Exists("report"));
    EXPECT_EQ(Slot(0), "(none)") << "a refused pair is not remembered";
}

TEST_F(Options, RelativeFoldersAreThoseOfTheCurrentFolder) {
    File("one/a", "");
    const Ended run = Cli({"compare", "--format=tsv", "one", "two"});
    EXPECT_EQ(Lines(run.Output).at(1),
              "11\tCopy -->\t" + One() + "/a\t2024/03/10 12:00:00\t0\t" + Two() + "/a\t00:00:00\t");
}

TEST_F(Options, ATrailingSeparatorMakesAnotherFolderOfTheSameTree) {
    File("one/a", "");
    const Ended run = Cli({"compare", "--view=same", One(), One() + "/"});
    EXPECT_EQ(run.Output, "---/---/---   a\n");
    EXPECT_EQ(run.Status, 0);
    EXPECT_EQ(Cli({"compare", One() + "/", Two() + "/"}).Output, "Copy -->      a\n");
}

TEST_F(Options, HelpAndVersionGoToStandardOutput) {
    for (const std::string command : {"", "compare", "sync", "export", "history"}) {
        const Ended run = Cli(command.empty() ? Texts{"--help"} : Texts{command, "--help"});
        EXPECT_EQ(run.Status, 0) << command;
        EXPECT_EQ(run.Error, "") << command;
        EXPECT_NE(run.Output.find("varnel-cli " + command), std::string::npos) << run.Output;
    }
    const Ended run = Cli({"--version"});
    EXPECT_EQ(run.Output, "varnel-cli 8.12\n");
    EXPECT_EQ(run.Error, "");
    EXPECT_EQ(run.Status, 0);
    EXPECT_FALSE(Exists("config")) << "nothing is remembered";
}

}  // namespace
}  // namespace cli
