// The history store: full, out of reach, and after a killed run.
#include <filesystem>

#include "cli/cli_fixture.h"

namespace reliability {
namespace {

namespace fs = std::filesystem;

class HistoryStore : public cli::CliTest {
  protected:
    HistoryStore() {
        for (int slot = 0; slot < 3; ++slot) SetSlot(slot, Pair(slot));
    }
    static std::string Pair(int slot) {
        return "/a" + std::to_string(slot) + "==========/b====================0";
    }

    const fs::path Slot1 = Path("config/varnel/SOFTWARE/SystemInfoFolderCS1993/P1");
    const fs::path Value1 = Slot1 / "default";
};

// The pair that is compared meets it on its way to a free slot.
TEST_F(HistoryStore, APairThatCannotBeReadIsKeptAndHidesNoOther) {
    for (const fs::path& locked : {Value1, Slot1}) {
        OpenToAll();
        fs::permissions(locked, fs::perms(0));
        cli::Launch launch = Command({"compare", One(), Two()});
        launch.AsNobody = true;
        EXPECT_EQ(Cli(launch).Status, 0);
        fs::permissions(locked, fs::perms(0777));
        for (int slot = 0; slot < 3; ++slot) EXPECT_EQ(Slot(slot), Pair(slot));
    }
}

TEST_F(HistoryStore, AThousandPairsStayWhenAnotherOneComes) {
    for (int slot = 0; slot < 1000; ++slot) SetSlot(slot, Pair(slot));
    for (int run = 0; run < 2; ++run) EXPECT_EQ(Cli("compare one two").Status, 0);
    for (int slot = 0; slot < 1000; ++slot) EXPECT_EQ(Slot(slot), Pair(slot));
}

TEST_F(HistoryStore, ClearingTakesWhatAKilledRunLeft) {
    fs::copy_file(Value1, Value1.string() + ".k1LL3d");
    EXPECT_EQ(Cli("history clear --yes").Status, 0);
    EXPECT_FALSE(fs::exists(Slot1));
}

}  // namespace
}  // namespace reliability
