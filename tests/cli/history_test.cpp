// The remembered pairs: which runs remember one, `history list` and `history clear`, and where the
// store is.
#include "cli/cli_fixture.h"

namespace cli {
namespace {

using History = CliTest;

TEST_F(History, EveryCommandRemembersItsPairAndFilter) {
    File("one/a", "");
    const std::string pair = One() + "==========" + Two() + "==========";
    const std::pair<std::string, std::string> cases[] = {
        {"compare --only JPG,bmp one two", "/jpg/bmp==========-1"},
        {"sync --exclude tmp one two", "/tmp==========0"},
        {"export same --exclude=o one two report", "/o==========0"},
        {"sync --dry-run one two", "==========0"},  // a remembered filter is not taken up
    };
    for (const auto& [arguments, filter] : cases) {
        SetSlot(0, pair + "/txt==========-1");
        Cli(arguments + " --no-history");
        EXPECT_EQ(Slot(0), pair + "/txt==========-1") << arguments;
        Cli(arguments);
        EXPECT_EQ(Slot(0), pair + filter) << arguments;
    }
}

TEST_F(History, IsListedUpToTheFirstEmptySlotWithNamesEscaped) {
    SetSlot(0, "/a\tb\nc\\d\re==========/b==========/jpg/bmp==========-1");
    SetSlot(1, "/c==========/d");
    SetSlot(3, "/a==========/b====================0");
    Expect("history list", 0, "0\t/a\\tb\\nc\\\\d\\re\t/b\t/jpg/bmp\t-1\n1\t/c\t/d\t\t0\n", "");
}

TEST_F(History, ClearAsksOnATerminalAndNeedsYesElsewhere) {
    SetSlot(0, "/a==========/b");
    Expect("history clear", 1, "", "varnel-cli: 'history clear' needs --yes here\n");
    for (const auto& [typed, status] : {std::pair{"\n", 1}, {"yes\n", 0}}) {
        EXPECT_EQ(Slot(0), "/a==========/b");
        const Ended run = CliOnTerminal("history clear", typed);
        EXPECT_NE(run.Terminal.find("This operation will delete all prifiles, Continue? [y/N] "),
                  std::string::npos);
        EXPECT_EQ(run.Status, status) << typed;
    }
    EXPECT_EQ(Slot(0), "(none)");
    SetSlot(0, "/a==========/b");
    Expect("history clear --yes", 0, "", "");
    EXPECT_EQ(Slot(0), "(none)");
}

TEST_F(History, IsKeptBelowHomeWhereNoConfigurationFolderIsNamed) {
    File("home/.config/varnel/SOFTWARE/SystemInfoFolderCS1993/P0/default", "/a==========/b");
    Launch launch = Command({"history", "list"});
    for (const std::string& home : {"HOME=" + Path("home"), std::string("HOME")}) {
        launch.Environment = {home, "XDG_CONFIG_HOME="};
        const Ended run = Cli(launch);
        EXPECT_EQ(run.Output, home == "HOME" ? "" : "0\t/a\t/b\t\t0\n");
        EXPECT_EQ(run.Status, 0) << home;
    }
}

}  // namespace
}  // namespace cli
