// What the program prints, does to the files on disk, refuses, asks first, and remembers.
#include <algorithm>
#include <vector>

#include <sys/stat.h>

#include "cli/cli_fixture.h"

namespace cli {
namespace {

TEST_F(CliTest, ComparePrintsTheRowsOfTheViewAndTheSummary) {
    MakeRows();
    const std::string created = "Copy -->      left.txt\n<-- Copy      sub/a=b\n",
                      captions =
                          "New Files ( 2 )\nModified Files ( 1 )\n"
                          "New and Modified Files ( 3 )\nSame Files ( 1 )\n";
    EXPECT_EQ(Cli("compare one two"),
              (Ended{1, created + "<-- Replace   changed.txt\n", captions}));
    EXPECT_EQ(Cli("--view new compare --format text one two"), (Ended{1, created, captions}));
    EXPECT_EQ(Cli("compare -q --view=same --format=tsv one two"), (Ended{1, "", captions}));
    EXPECT_EQ(Cli("compare one two --view chg --exclude jpg --format json").Output,
              R"({"code": 22, "direction": "<-- Replace", "path1": ")" + One() +
                  R"(/changed.txt", "date1": "2024/03/10 12:00:00", "size1": "1", "path2": ")" +
                  Two() +
                  R"(/changed.txt", "date2": "2024/03/10 13:00:00", "size2": "2"})"
                  "\n"
                  R"({"summary": {"new": 2, "modified": 1, "same": 0, "stopped": false}})"
                  "\n");
    EXPECT_EQ(Cli("compare --only=jpg one two").Status, 0);
}

// Letters of two to four bytes, what the formats escape, what steers a terminal, what is no UTF-8.
TEST_F(CliTest, NamesAreWrittenAsTheFormatAndATerminalNeedIt) {
    const std::string
        letters = "~\xc2\xa0\xe0\xa0\x80\xe2\x80\xaf\xed\x9f\xbf\xf0\x90\x80\x80\xf4\x8f\xbf\xbf",
        special =
            "\n\t\r\\\"\x1b\x7f\xc2\x80\xc2\x9f\xd8\x9c\xe2\x80\x8e\xe2\x80\x8f"
            "\xe2\x80\xa8\xe2\x80\xae\xe2\x81\xa6\xe2\x81\xa9"
            "\xff\xc1\xbf\xe0\x9f\xbf\xed\xb3\xbf\xf0\x8f\xbf\xbf\xf4\x90\x80\x80\xe2\x82",
        shown = R"(\x1b\x7f\xc2\x80\xc2\x9f\xd8\x9c\xe2\x80\x8e\xe2\x80\x8f)"
                R"(\xe2\x80\xa8\xe2\x80\xae\xe2\x81\xa6\xe2\x81\xa9)"
                R"(\xff\xc1\xbf\xe0\x9f\xbf\xed\xb3\xbf\xf0\x8f\xbf\xbf\xf4\x90\x80\x80\xe2\x82)";
    const std::pair<std::string, std::string> cases[] = {
        {"", R"(\x0a\x09\x0d\")" + shown + "\r\n"},
        {"| cat", '\r' + special + "\r\n"},  // the terminal itself puts the first byte there
        {"--format=tsv", R"(\n\t\r\\")" + shown + "\t"},
        {"--format=json",
         R"(\n\t\r\\\"\u001b\u007f\u0080\u009f\u061c\u200e\u200f\u2028\u202e\u2066\u2069)"
         R"(\udcff\udcc1\udcbf\udce0\udc9f\udcbf\udced\udcb3\udcbf\udcf0\udc8f\udcbf\udcbf)"
         R"(\udcf4\udc90\udc80\udc80\udce2\udc82")"},
    };
    MakeFolder("2 ");  // a blank that belongs to the name
    File("one/" + letters + special, "");
    for (const auto& [format, name] : cases) {
        const Ended run = OnTerminal("varnel-cli compare one '2 ' " + format);
        EXPECT_NE(run.Output.find(letters + name), std::string::npos) << format;
    }
}

TEST_F(CliTest, SyncWorksOnTheRowsOfModeViewAndDirection) {
    const std::string left = "--> OK -->    left.txt\n", right = "<-- OK <--    sub/a=b\n",
                      same = One() + "/same.jpg\t2024/03/10 12:00:00\t2\t" + Two() +
                             "/same.jpg\t2024/03/10 12:00:00\t2\n";
    const std::pair<std::string, std::string> cases[] = {
        {"--mode double --view newchg", left + right + "<-- OK <--    changed.txt\n"},
        {"--mode=left", left},
        {"--mode=right -q --format=json",
         R"({"summary": {"mode": "Right_to_Left", "total": 2, "failed": 0, "stopped": false, )"
         R"("message": "Synchronization completed.      \r\n\r\nSucceed:   2  Files."}})"
         "\n"},
        {"--view same --direction same.jpg=left --format tsv",
         "code\tdirection\tpath1\tdate1\tsize1\tpath2\tdate2\tsize2\n22\t<-- OK <--\t" + same},
        {"--dry-run --mode=right --direction=changed.txt=none", "<-- Copy      sub/a=b\n"},
        {"--direction changed.txt=right --direction=sub/a=b=none",
         left + "--> OK -->    changed.txt\n"},
    };
    for (const auto& [options, output] : cases) {
        MakeRows();
        const Ended run = Cli("sync one two " + options);
        EXPECT_EQ(run.Output, output) << options;
        EXPECT_EQ(run.Status, 0) << options;
    }
    EXPECT_EQ(Content("two/left.txt") + Content("two/changed.txt"), "11");
    EXPECT_EQ(Files("one").size(), 3u) << "sub/a=b was not to be copied";
    EXPECT_EQ(Cli("sync one two --view=same"),
              (Ended{0, "", "No new / modified file need to be synchronized.\n"}));
}

TEST_F(CliTest, WhatIsRefusedIsOneLineAndStatusTwoAndTouchesNothing) {
    MakeRows();
    const auto before = Files(".");
    const std::pair<std::string, std::vector<std::string>> cases[] = {
        {"", {"", "frobnicate one two", "--frob", "--version=1"}},
        {"compare one ",
         {"", "one", "two one", "two --vie same", "two --view all", "two --view", "two --quiet=yes",
          "two --mode left", "two --only txt --exclude doc", "two --only="}},
        {"sync one two --dry-run --direction ",
         {"", "left.txt", "left.txt=up", "missing.txt=right",
          "same.jpg=right",  // a row of another view
          "left.txt=left",   // what the panel does not offer
          "left.txt=none --direction=right.txt=left"}},
        {"export ",
         {"new one two", "changed one two report", "new one two one --no-history --force"}},
        {"history ", {"", "forget", "clear --force"}},
    };
    for (const auto& [start, ends] : cases)
        for (const std::string& end : ends) {
            const Ended run = Cli(start + end);
            EXPECT_EQ(run.Status, 2) << start << end;
            EXPECT_EQ(run.Output, "") << start << end;
            EXPECT_EQ(std::ranges::count(run.Error, '\n'), 1) << start << end << run.Error;
        }
    EXPECT_EQ(Cli("sync --dry-run --no-history one two").Status, 0);
    EXPECT_EQ(Files("."), before);
}

TEST_F(CliTest, OptionsEndAtTwoDashesAndHelpAndVersionGoToStandardOutput) {
    File("--quiet/a", "");
    MakeFolder("--");
    EXPECT_EQ(Cli("compare -- --quiet --").Output, "Copy -->      a\n");
    EXPECT_NE(Cli("--help").Output.find("\n  varnel-cli export"), std::string::npos);
    EXPECT_EQ(Cli("--version"), (Ended{0, "varnel-cli 8.12\n", ""}));
}

TEST_F(CliTest, AnExportListsTheRowsOfItsKindAndOverwritesByForceOrYesAlone) {
    MakeRows();
    File("old", "old");
    EXPECT_EQ(Cli("export new one two old"),
              (Ended{1, "", "varnel-cli: 'old' exists; --force overwrites it\n"}));
    EXPECT_EQ(Cli("export new one two old --force --only=nosuch").Status, 1) << "nothing to export";
    for (const std::string typed : {"n\n", "", "y\n"}) {
        EXPECT_EQ(Content("old"), "old");
        const Ended run = OnTerminal("varnel-cli export new one two old", typed);
        EXPECT_NE(run.Output.find("The same filename exist, overwrite it?"), std::string::npos);
        EXPECT_EQ(run.Status, typed == "y\n" ? 0 : 1) << typed;
    }
    for (const std::string kind : {"new", "modified", "new-modified", "same"})
        Cli("export " + kind + " one two " + kind);
    EXPECT_EQ(Shell("grep -Eo '/(left|changed|same)' new modified new-modified same | uniq").Output,
              "new:/left\nmodified:/changed\n"
              "new-modified:/left\nnew-modified:/changed\nsame:/same\n");
}

TEST_F(CliTest, PairsAreRememberedListedAndClearedAfterAQuestionOrByYes) {
    SetSlot(0, "/a\tb\nc\\d\re==========/b");
    const std::string list = "0\t/a\\tb\\nc\\\\d\\re\t/b\t\t0\n1\t" + One() + '\t' + Two() + '\t';
    const std::pair<std::string, std::string> cases[] = {
        {"compare --only JPG,bmp one two", "/jpg/bmp\t-1\n"},
        {"compare --no-history one two", "/jpg/bmp\t-1\n"},
        {"sync --dry-run one two", "\t0\n"},  // a remembered filter is not taken up
        {"export same --exclude=o one two report", "/o\t0\n"}};
    for (const auto& [arguments, filter] : cases) {
        Cli(arguments);
        EXPECT_EQ(Cli("history list"), (Ended{0, list + filter, ""}));
    }
    EXPECT_EQ(Cli("history clear"),
              (Ended{1, "", "varnel-cli: 'history clear' needs --yes here\n"}));
    EXPECT_EQ(OnTerminal("varnel-cli history clear", "\n").Status, 1);
    EXPECT_NE(Slot(1), "(none)");
    EXPECT_EQ(OnTerminal("varnel-cli history clear", "yes\n").Status, 0);
    EXPECT_TRUE(Files(".config").empty());
}

TEST_F(CliTest, UnreadableFoldersAreNamedUpToTwentyAndTheRunGoesOn) {
    const std::string steering = "\x1b]0;t\x07\xe2\x80\xae";
    File("one/a", "a");
    for (int i = 0; i < 22; ++i) ::mkdir(("one/" + steering + std::to_string(i)).c_str(), 0);
    const Ended run = Shell("exec $unprivileged varnel-cli sync one two");
    EXPECT_EQ(run.Output, "--> OK -->    a\n");
    EXPECT_EQ(run.Status, 0);
    EXPECT_TRUE(run.Error.starts_with("cannot read folder '" + One() + '/' + steering));
    const std::size_t more = run.Error.find(": Permission denied\ncannot read 2 more folders\n");
    ASSERT_NE(more, run.Error.npos) << run.Error;
    EXPECT_EQ(std::ranges::count(run.Error.substr(0, more), '\n'), 19);
    const std::string shown = OnTerminal("$unprivileged varnel-cli compare -q one two").Output;
    EXPECT_TRUE(shown.starts_with("\rComparing ...\r")) << "the countdown";
    EXPECT_NE(shown.find("\r             \r"), shown.npos) << "wiped";
    EXPECT_EQ(shown.find_first_of("\x1b\x07\xe2"), shown.npos) << shown;
}

// Files that are opened would get the numbers of closed streams.
TEST_F(CliTest, OutputThatCannotBeWrittenIsStatusTwoAndStopsNoSync) {
    for (const std::string command : {"compare -q --format=json one two", "sync --dry-run one two",
                                      "history list", "--help", "sync one two"})
        for (const std::string output : {" >/dev/full", " <&- >&- 2>&-"}) {
            MakeRows();
            EXPECT_EQ(Cli(command + output).Status, 2) << command << output;
        }
    const std::string command =
        "ulimit -f 0; exec >/dev/null 2>&1; exec varnel-cli export --force --no-history same one "
        "two ";
    File("empty", "");  // half a report would pass for a whole one
    for (const char* report : {"empty", "half"})
        EXPECT_EQ(Shell(command + report).Status, 2) << report;
    EXPECT_EQ(Content("empty") + Content("half"), "(none)");
    EXPECT_EQ(Content("two/left.txt") + Content("one/changed.txt"), "122");
    EXPECT_EQ(Files("one").size() + Files("two").size(), 8u);
    EXPECT_EQ(Slot(0), One() + "==========" + Two() + "====================0");
}

}  // namespace
}  // namespace cli
