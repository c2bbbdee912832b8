// What is refused, what asks first, and what is remembered.
#include <cstdlib>

#include "cli/cli_fixture.h"

namespace cli {
namespace {

using Options = CliTest;

TEST_F(Options, WhatIsRefusedIsOneLineAndStatusTwoAndTouchesNothing) {
    MakeRows();
    const auto before = Files(".");
    const std::pair<std::string, Texts> cases[] = {
        {"", {"", "frobnicate one two", "--frob", "--version=1", "compare one", "compare one one"}},
        {"compare one two ",
         {"one", "-x", "--vie same", "--view all", "--view", "--quiet=yes", "--mode left",
          "--only txt --exclude doc", "--only="}},
        {"sync one two --dry-run --direction ",
         {"", "left.txt", "left.txt=up", "missing.txt=right",
          "same.jpg=right",  // a row of another view
          "left.txt=left",   // what the panel does not offer
          "left.txt=none --direction=right.txt=left"}},
        {"export ", {"new one two", "changed one two report", "new one none report"}},
        {"history ", {"", "forget", "list --yes", "clear --force"}},
    };
    for (const auto& [start, ends] : cases)
        for (const std::string& end : ends) {
            const Ended run = Cli(start + end);
            EXPECT_EQ(run.Status, 2) << start << end;
            EXPECT_EQ(run.Output, "") << start << end;
            EXPECT_EQ(Lines(run.Error).size(), 1u) << start << end << run.Error;
        }
    EXPECT_EQ(Cli("sync --dry-run --no-history one two").Status, 0);
    EXPECT_EQ(Files("."), before);
}

TEST_F(Options, EndAtTwoDashesAndHelpAndVersionGoToStandardOutput) {
    File("--quiet/a", "");
    MakeFolder("--");
    EXPECT_EQ(Cli("compare -- --quiet --").Output, "Copy -->      a\n");
    for (const std::string command : {"compare", "sync", "export", "history"})
        EXPECT_NE(Cli("--help").Output.find("\n  varnel-cli " + command), std::string::npos);
    Expect("--version", 0, "varnel-cli 8.12\n", "");
}

TEST_F(Options, AnExportListsTheRowsOfItsKindAndOverwritesByForceOrYesAlone) {
    MakeRows();
    File("old", std::string(4096, 'o'));
    const auto before = Files(".");
    const std::string command = "export new one two old --no-history";
    Expect(command, 1, "", "varnel-cli: 'old' exists; --force overwrites it\n");
    EXPECT_EQ(Cli(command + " --force --only=nosuch").Status, 1) << "nothing to export";
    EXPECT_EQ(Cli("export new one two one --no-history --force").Status, 2) << "a folder";
    for (const auto& [typed, status] : {std::pair{"n\n", 1}, {"\x04", 1}, {"y\n", 0}}) {
        EXPECT_EQ(Files("."), before);
        const Ended run = Cli(command, {.OnTerminal = {0, 1, 2}, .Typed = typed});
        EXPECT_NE(run.Terminal.find("The same filename exist, overwrite it?"), std::string::npos);
        EXPECT_EQ(run.Status, status) << typed;
    }
    std::string listed;
    for (const std::string kind : {"new", "modified", "new-modified", "same"}) {
        Cli("export --force " + kind + " one two old");
        listed += kind + ':';
        for (const std::string name : {"left", "changed", "same"})
            if (Content("old").find('/' + name) != std::string::npos) listed += ' ' + name;
        listed += '\n';
    }
    EXPECT_EQ(listed, "new: left\nmodified: changed\nnew-modified: left changed\nsame: same\n");
}

TEST_F(Options, PairsAreRememberedListedAndClearedAfterAQuestionOrByYes) {
    SetSlot(0, "/a\tb\nc\\d\re==========/b");
    const std::string list = "0\t/a\\tb\\nc\\\\d\\re\t/b\t\t0\n1\t" + One() + '\t' + Two() + '\t';
    const std::pair<std::string, std::string> cases[] = {
        {"compare --only JPG,bmp one two", "/jpg/bmp\t-1\n"},
        {"compare --no-history one two", "/jpg/bmp\t-1\n"},
        {"sync --dry-run one two", "\t0\n"},  // a remembered filter is not taken up
        {"export same --exclude=o one two report", "/o\t0\n"}};
    for (const auto& [arguments, filter] : cases) {
        Cli(arguments);
        Expect("history list", 0, list + filter, "");
    }
    Expect("history clear", 1, "", "varnel-cli: 'history clear' needs --yes here\n");
    for (const auto& [typed, status] : {std::pair{"\n", 1}, {"yes\n", 0}}) {
        EXPECT_NE(Slot(1), "(none)");
        const Ended run = Cli("history clear", {.OnTerminal = {0, 1, 2}, .Typed = typed});
        EXPECT_NE(run.Terminal.find("This operation will delete all prifiles, Continue? [y/N] "),
                  std::string::npos);
        EXPECT_EQ(run.Status, status) << typed;
    }
    EXPECT_TRUE(Files(".config").empty());
    ::setenv("XDG_CONFIG_HOME", Path("elsewhere").c_str(), 1);
    Cli("compare one two");
    EXPECT_EQ(Files("elsewhere").size(), 1u);
    Expect("history clear --yes", 0, "", "");
    EXPECT_TRUE(Files(".config").empty() && Files("elsewhere").empty());
}

}  // namespace
}  // namespace cli
