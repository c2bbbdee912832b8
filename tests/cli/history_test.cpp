// The remembered pairs: which runs remember one, `history list` and `history clear`, and where the
// store is.
#include <filesystem>

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
    for (const auto& [arguments, value] : cases) {
        std::filesystem::remove_all(Path("config"));
        Cli(arguments + " --no-history");
        EXPECT_FALSE(Exists("config")) << arguments;
        SetSlot(0, pair + "/txt==========-1");  // known already: the same slot
        Cli(arguments);
        EXPECT_EQ(Slot(0), pair + value) << arguments;
        EXPECT_EQ(Slot(1), "(none)") << arguments;
    }
}

TEST_F(History, IsListedUpToTheFirstEmptySlotWithNamesEscaped) {
    Expect("history list", 0, "", "");
    SetSlot(0, "/a\tb\nc\\d\re==========/b==========/jpg/bmp==========-1");
    SetSlot(1, "/c==========/d");
    SetSlot(3, "/a==========/b====================0");
    Expect("history list", 0, "0\t/a\\tb\\nc\\\\d\\re\t/b\t/jpg/bmp\t-1\n1\t/c\t/d\t\t0\n", "");
}

TEST_F(History, ClearAsksOnATerminalAndNeedsYesElsewhere) {
    for (const auto& [typed, status] : {std::pair{"n\n", 1}, {"\n", 1}, {"y\n", 0}}) {
        SetSlot(0, "/a==========/b");
        const Ended run = CliOnTerminal("history clear", typed);
        EXPECT_NE(run.Terminal.find("This operation will delete all prifiles, Continue?"),
                  std::string::npos)
            << run.Terminal;
        EXPECT_EQ(run.Status, status) << typed;
        EXPECT_EQ(Slot(0), status == 0 ? "(none)" : "/a==========/b") << typed;
    }
    SetSlot(0, "/a==========/b");
    Expect("history clear", 1, "", "varnel-cli: 'history clear' needs --yes here\n");
    EXPECT_EQ(Slot(0), "/a==========/b");
    for (int time = 0; time < 2; ++time) {
        Expect("history clear --yes", 0, "", "");
        EXPECT_EQ(Slot(0), "(none)");
    }
}

TEST_F(History, IsKeptBelowHomeWhereNoConfigurationFolderIsNamed) {
    const std::pair<Texts, std::string> cases[] = {
        {{"HOME=" + Path("home1")}, "home1/.config"},
        {{"HOME=" + Path("home2"), "XDG_CONFIG_HOME="}, "home2/.config"},
        {{"HOME=" + Path("home3"), "XDG_CONFIG_HOME=" + Path("own/deep")}, "own/deep"},
        {{}, "one/.."}};  // who has no home remembers nothing
    OpenToAll();
    Launch launch = Command(Words("compare one two"));
    launch.AsNobody = true;  // who may write nowhere else
    for (const auto& [environment, where] : cases) {
        launch.Environment = environment;
        EXPECT_EQ(Cli(launch).Status, 0);
        EXPECT_EQ(Exists(where + "/varnel/SOFTWARE/SystemInfoFolderCS1993/P0/default"),
                  !environment.empty())
            << where;
    }
}

}  // namespace
}  // namespace cli
