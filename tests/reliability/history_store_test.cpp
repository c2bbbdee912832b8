// The history store: full, damaged, out of reach. No pair is lost because of another one.
#include <filesystem>
#include <functional>

#include "reliability/pair_test.h"

namespace reliability {
namespace {

namespace fs = std::filesystem;
using cli::Texts;

class HistoryStore : public PairTest {
  protected:
    void SetUp() override {}

    static std::string Pair(int i) {
        return "/a" + std::to_string(i) + "==========/b====================0";
    }
    std::string Folder(int slot) const {
        return Path("config/varnel/SOFTWARE/SystemInfoFolderCS1993/P" + std::to_string(slot));
    }
    std::string File(int slot) const { return Folder(slot) + "/default"; }
};

TEST_F(HistoryStore, AThousandPairsStayWhenAnotherOneComes) {
    for (int slot = 0; slot < 1000; ++slot) SetSlot(slot, Pair(slot));
    for (int run = 0; run < 2; ++run) EXPECT_EQ(Run({"compare", One(), Two()}).Status, 0);
    for (int slot = 0; slot < 1000; ++slot) EXPECT_EQ(Slot(slot), Pair(slot));
    EXPECT_EQ(cli::Lines(Run({"history", "list"}).Output).size(), 1000u);
}

// Each damage to the slot in the middle; the pair that is compared finds it on its way.
TEST_F(HistoryStore, DamageToOneSlotIsNoDamageToOthers) {
    struct Case {
        const char* Name;
        std::function<void()> Make;
        bool Kept;  // what stands in the slot is a value that could not be read
    };
    const Case cases[] = {
        {"emptied", [&] { SetSlot(1, ""); }, false},
        {"truncated", [&] { SetSlot(1, "/a1===="); }, false},
        {"garbage", [&] { SetSlot(1, std::string("\xff\0\x01==========\n", 14)); }, false},
        {"gone", [&] { fs::remove(File(1)); }, false},
        {"a folder",
         [&] {
             fs::remove(File(1));
             fs::create_directories(File(1) + "/x");
         },
         false},
        {"not to be read", [&] { fs::permissions(File(1), fs::perms(0)); }, true},
        {"folder not to be entered", [&] { fs::permissions(Folder(1), fs::perms(0)); }, true},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.Name);
        fs::remove_all(Path("config"));
        for (int slot = 0; slot < 3; ++slot) SetSlot(slot, Pair(slot));
        OpenToAll();
        test.Make();
        cli::Launch launch = Command({"compare", One(), Two()});
        launch.AsNobody = true;
        EXPECT_EQ(cli::RunToEnd(launch).Status, 0);
        launch.Arguments = {"history", "list"};
        EXPECT_EQ(cli::RunToEnd(launch).Status, 0);
        fs::permissions(Folder(1), fs::perms(0777));
        if (fs::is_regular_file(File(1))) fs::permissions(File(1), fs::perms(0666));
        EXPECT_EQ(Slot(0), Pair(0));
        EXPECT_EQ(Slot(2), Pair(2));
        if (test.Kept) {
            EXPECT_EQ(Slot(1), Pair(1));
        }
    }
}

TEST_F(HistoryStore, ClearingTakesWhatAKilledRunLeft) {
    SetSlot(0, Pair(0));
    fs::copy_file(File(0), File(0) + ".k1LL3d");
    EXPECT_EQ(Run({"history", "clear", "--yes"}).Status, 0);
    EXPECT_FALSE(fs::exists(Folder(0)));
}

}  // namespace
}  // namespace reliability
