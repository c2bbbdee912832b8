// The remembered pairs: which runs remember one, `history list` and `history clear`, and where the
// store is.
#include <filesystem>

#include "cli/cli_fixture.h"

namespace cli {
namespace {

class History : public CliTest {
  protected:
    std::string Pair(const std::string& rest) const {
        return One() + "==========" + Two() + "==========" + rest;
    }
};

TEST_F(History, EveryCommandRemembersItsPairAndFilter) {
    File("one/a", "");
    const struct {
        std::string Arguments, Value;
    } cases[] = {
        {"compare one two", "==========0"},
        {"compare --only JPG,bmp one two", "/jpg/bmp==========-1"},
        {"sync --exclude tmp one two", "/tmp==========0"},
        {"export same --exclude=o one two report", "/o==========0"},
        {"sync --dry-run one two", "==========0"},  // a remembered filter is not taken up
    };
    for (const auto& [arguments, value] : cases) {
        std::filesystem::remove_all(Path("config"));
        Cli(arguments + " --no-history");
        EXPECT_FALSE(Exists("config")) << arguments;
        SetSlot(0, Pair("/txt==========-1"));  // known already: the same slot
        Cli(arguments);
        EXPECT_EQ(Slot(0), Pair(value)) << arguments;
        EXPECT_EQ(Slot(1), "(none)") << arguments;
    }
}

TEST_F(History, IsListedUpToTheFirstEmptySlotWithNamesEscaped) {
    EXPECT_EQ(Cli("history list").Output, "");
    const std::string odd = "a\tb\nc\\d\re";
    MakeFolder(odd);
    ASSERT_EQ(Cli(Command({"compare", "--only=JPG,bmp", odd, "two"})).Status, 0);
    ASSERT_EQ(Cli("compare one two").Status, 0);
    SetSlot(3, "/a==========/b====================0");
    const Ended list = Cli("history list");
    EXPECT_EQ(list.Output, "0\t" + Path("a\\tb\\nc\\\\d\\re") + "\t" + Two() + "\t/jpg/bmp\t-1\n" +
                               "1\t" + One() + "\t" + Two() + "\t\t0\n");
    EXPECT_EQ(list.Error, "");
    EXPECT_EQ(list.Status, 0);
}

TEST_F(History, ClearAsksOnATerminalAndNeedsYesElsewhere) {
    Launch asked = Command(Words("history clear"));
    asked.Input = asked.Output = asked.Error = Sink::Terminal;
    for (const std::string answer : {"n\n", "\n", "y\n"}) {
        SetSlot(0, Pair("==========0"));
        asked.Typed = answer;
        const Ended run = Cli(asked);
        EXPECT_NE(run.Terminal.find("This operation will delete all prifiles, Continue?"),
                  std::string::npos)
            << run.Terminal;
        EXPECT_EQ(run.Status, answer == "y\n" ? 0 : 1) << answer;
        EXPECT_EQ(Slot(0) == "(none)", answer == "y\n") << answer;
    }
    SetSlot(0, Pair("==========0"));
    const Ended refused = Cli("history clear");
    EXPECT_EQ(refused.Status, 1);
    EXPECT_NE(refused.Error.find("--yes"), std::string::npos) << "nobody is asked";
    EXPECT_EQ(Slot(0), Pair("==========0"));
    const Ended run = Cli("history clear --yes");
    EXPECT_EQ(run.Status, 0);
    EXPECT_EQ(run.Output + run.Error, "");
    EXPECT_EQ(Slot(0), "(none)");
    EXPECT_EQ(Cli("history clear --yes").Status, 0) << "there is nothing to clear";
}

TEST_F(History, IsKeptBelowHomeWhereNoConfigurationFolderIsNamed) {
    const struct {
        Texts Environment;
        std::string Where;
    } cases[] = {
        {{"HOME=" + Path("home1")}, "home1/.config"},
        {{"HOME=" + Path("home2"), "XDG_CONFIG_HOME="}, "home2/.config"},
        {{"HOME=" + Path("home3"), "XDG_CONFIG_HOME=" + Path("own/deep")}, "own/deep"},
    };
    Launch launch = Command(Words("compare one two"));
    for (const auto& [environment, where] : cases) {
        launch.Environment = environment;
        EXPECT_EQ(Cli(launch).Status, 0);
        EXPECT_TRUE(Exists(where + "/varnel/SOFTWARE/SystemInfoFolderCS1993/P0/default")) << where;
    }
    OpenToAll();
    launch.Environment = {};
    launch.AsNobody = true;  // who may write nowhere else
    EXPECT_EQ(Cli(launch).Status, 0);
}

}  // namespace
}  // namespace cli
