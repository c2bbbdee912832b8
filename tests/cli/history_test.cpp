// The remembered pairs: what is kept where, `history list` and `history clear`, and a store that
// is damaged or out of reach.
#include <filesystem>
#include <functional>

#include "cli/cli_fixture.h"

namespace cli {
namespace {

namespace fs = std::filesystem;

class History : public CliTest {
  protected:
    std::string Pair() const { return One() + "==========" + Two(); }
};

TEST_F(History, EveryPairHasASlotWithItsFilterAndFlag) {
    MakeFolder("three");
    ASSERT_EQ(OnPair({"compare"}).Status, 0);
    EXPECT_EQ(Slot(0), Pair() + "====================0");
    ASSERT_EQ(Cli({"compare", "--only", "JPG,bmp", Two(), Path("three")}).Status, 0);
    ASSERT_EQ(Cli({"export", "same", "--exclude=o", Path("three"), One(), "report"}).Status, 1);
    ASSERT_EQ(OnPair({"sync", "--exclude", "tmp"}).Status, 0);  // known already: the same slot
    EXPECT_EQ(Slot(0), Pair() + "==========/tmp==========0");
    EXPECT_EQ(Slot(1), Two() + "==========" + Path("three") + "==========/jpg/bmp==========-1");
    EXPECT_EQ(Slot(3), "(none)");

    const Ended list = Cli({"history", "list"});
    EXPECT_EQ(list.Output, "0\t" + One() + "\t" + Two() + "\t/tmp\t0\n" + "1\t" + Two() + "\t" +
                               Path("three") + "\t/jpg/bmp\t-1\n" + "2\t" + Path("three") + "\t" +
                               One() + "\t/o\t0\n");
    EXPECT_EQ(list.Error, "");
    EXPECT_EQ(list.Status, 0);

    ASSERT_EQ(OnPair({"compare"}).Status, 0);
    EXPECT_EQ(Slot(0), Pair() + "====================0") << "a remembered filter is not taken up";
}

TEST_F(History, IsNotWrittenWhereItIsNotWanted) {
    File("one/a", "");
    for (const std::string command : {"compare", "sync"}) OnPair({command, "--no-history"});
    EXPECT_EQ(Cli({"export", "same", "--no-history", One(), Two(), Path("report")}).Status, 0);
    EXPECT_FALSE(Exists("config"));
    EXPECT_EQ(Cli({"history", "list"}).Output, "");
    EXPECT_EQ(Cli({"history", "list"}).Status, 0);
}

TEST_F(History, NamesAreEscapedInTheList) {
    const std::string odd = "a\tb\nc\\d\re";
    MakeFolder(odd);
    ASSERT_EQ(Cli({"compare", odd, "two"}).Status, 0);
    EXPECT_EQ(Cli({"history", "list"}).Output,
              "0\t" + Path("a\\tb\\nc\\\\d\\re") + "\t" + Two() + "\t\t0\n");
}

TEST_F(History, ListStopsAtTheFirstEmptySlot) {
    for (int slot = 0; slot < 102; ++slot) {
        SetSlot(slot, "/a" + std::to_string(slot) + "==========/b====================0");
    }
    const Texts all = Lines(Cli({"history", "list"}).Output);
    EXPECT_EQ(all.size(), 102u) << "also those that the window does not show";
    EXPECT_EQ(all.back(), "101\t/a101\t/b\t\t0");
    fs::remove_all(Store() + "/P1");
    EXPECT_EQ(Cli({"history", "list"}).Output, "0\t/a0\t/b\t\t0\n");
}

TEST_F(History, ANewPairTakesTheFirstFreeSlotAndNoOther) {
    for (const int filled : {1, 99, 100, 101, 150}) {
        for (int slot = 0; slot < filled; ++slot) {
            SetSlot(slot, "/a" + std::to_string(slot) + "==========/b====================0");
        }
        fs::remove_all(Store() + "/P" + std::to_string(filled));
        ASSERT_EQ(OnPair({"compare"}).Status, 0);
        EXPECT_EQ(Slot(filled), Pair() + "====================0") << filled;
        for (int slot = 0; slot < filled; ++slot) {
            EXPECT_EQ(Slot(slot), "/a" + std::to_string(slot) + "==========/b====================0")
                << filled;
        }
    }
}

TEST_F(History, ClearAsksOnATerminalAndNeedsYesElsewhere) {
    ASSERT_EQ(OnPair({"compare"}).Status, 0);
    EXPECT_EQ(Cli({"history", "clear"}).Status, 1);
    EXPECT_NE(Slot(0), "(none)");

    Launch asked = Command({"history", "clear"});
    asked.Input = asked.Output = asked.Error = Sink::Terminal;
    const std::string question = "This operation will delete all prifiles, Continue?";
    for (const std::string answer : {"n\n", "\n", "no\n"}) {
        asked.Typed = answer;
        const Ended run = RunToEnd(asked);
        EXPECT_NE(run.Terminal.find(question), std::string::npos) << run.Terminal;
        EXPECT_EQ(run.Status, 1) << answer;
        EXPECT_NE(Slot(0), "(none)") << answer;
    }
    asked.Typed = "y\n";
    EXPECT_EQ(RunToEnd(asked).Status, 0);
    EXPECT_EQ(Slot(0), "(none)");

    ASSERT_EQ(OnPair({"compare"}).Status, 0);
    ASSERT_NE(Slot(0), "(none)");
    const Ended run = Cli({"history", "clear", "--yes"});
    EXPECT_EQ(run.Status, 0);
    EXPECT_EQ(run.Output + run.Error, "");
    EXPECT_FALSE(Exists("config/varnel/SOFTWARE/SystemInfoFolderCS1993"));
    EXPECT_EQ(Cli({"history", "list"}).Output, "");
    EXPECT_EQ(Cli({"history", "clear", "--yes"}).Status, 0) << "there is nothing to clear";
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
    for (const auto& test : cases) {
        Launch launch = Command({"compare", One(), Two()});
        launch.Environment = test.Environment;
        EXPECT_EQ(RunToEnd(launch).Status, 0);
        EXPECT_TRUE(Exists(test.Where + "/varnel/SOFTWARE/SystemInfoFolderCS1993/P0/default"))
            << test.Where;
    }
    OpenToAll();
    Launch homeless = Command({"compare", One(), Two()});
    homeless.Environment = {};
    homeless.AsNobody = true;  // who may write nowhere else
    EXPECT_EQ(RunToEnd(homeless).Status, 0);
}

TEST_F(History, ADamagedStoreStopsNothing) {
    const std::string valid = "/valid==========/pair==========/txt==========-1";
    const std::string store = Store();
    const struct {
        std::string Name;
        std::function<void()> Damage;
    } cases[] = {
        {"garbage", [&] { SetSlot(0, std::string("\xff\0\x01==\n", 6)); }},
        {"a megabyte", [&] { SetSlot(0, std::string(1 << 20, '=')); }},
        {"truncated", [&] { SetSlot(0, "/a======"); }},
        {"many parts", [&] { SetSlot(0, "1==========2==========3==========4==========5"); }},
        {"a flag that is no number", [&] { SetSlot(0, "/1==========/2==========/t==========x"); }},
        {"a flag beyond 16 bits",
         [&] { SetSlot(0, "/1==========/2==========/t==========99999999999999999999"); }},
        {"empty", [&] { SetSlot(0, ""); }},
        {"a folder as value", [&] { fs::create_directories(store + "/P0/default/x"); }},
        {"a file as slot", [&] { File("config/varnel/SOFTWARE/SystemInfoFolderCS1993/P0", "x"); }},
        {"a file as store", [&] { File("config/varnel", "x"); }},
        {"a file as configuration folder", [&] { File("config", "x"); }},
        {"a link to itself",
         [&] {
             fs::create_directories(store + "/P0");
             fs::create_symlink("default", store + "/P0/default");
         }},
    };
    for (const auto& test : cases) {
        fs::remove_all(Path("config"));
        test.Damage();
        if (fs::is_directory(store)) SetSlot(1, valid);
        const Ended run = OnPair({"compare"});
        EXPECT_EQ(run.Status, 0) << test.Name;
        EXPECT_EQ(Lines(run.Error).size(), 4u) << test.Name << run.Error;
        EXPECT_EQ(Cli({"history", "list"}).Status, 0) << test.Name;
        if (fs::is_directory(store)) {
            EXPECT_EQ(Slot(1), valid) << test.Name;
        }
    }
}

TEST_F(History, AStoreThatCannotBeWrittenIsLostInSilence) {
    SetSlot(0, "/a==========/b====================0");
    OpenToAll();
    fs::permissions(Store(), fs::perms(0555));
    fs::permissions(Store() + "/P0", fs::perms(0555));
    Launch launch = Command({"compare", One(), Two()});
    launch.AsNobody = true;
    const Ended run = RunToEnd(launch);
    EXPECT_EQ(run.Status, 0);
    EXPECT_EQ(Lines(run.Error).size(), 4u) << run.Error;
    EXPECT_EQ(Slot(0), "/a==========/b====================0");
    EXPECT_EQ(Slot(1), "(none)");

    fs::permissions(Store(), fs::perms(0));
    EXPECT_EQ(RunToEnd(launch).Status, 0);
    launch.Arguments = {"history", "list"};
    EXPECT_EQ(RunToEnd(launch).Output, "");
    EXPECT_EQ(RunToEnd(launch).Status, 0);
    fs::permissions(Store(), fs::perms(0755));
}

}  // namespace
}  // namespace cli
