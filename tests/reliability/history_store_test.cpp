// The history store: full, and in part or wholly out of reach.
#include <filesystem>

#include "cli/cli_fixture.h"

namespace reliability {
namespace {

namespace fs = std::filesystem;

using HistoryStore = cli::CliTest;

// The pair that is compared meets what cannot be read on its way to a free slot.
TEST_F(HistoryStore, AThousandPairsStayWhenAnotherComesThoughOneCannotBeRead) {
    const auto pair = [](int slot) {
        return "/a" + std::to_string(slot) + "==========/b====================0";
    };
    for (int slot = 0; slot < 1000; ++slot) SetSlot(slot, pair(slot));
    OpenToAll();
    cli::Launch launch = Command({"compare", One(), Two()});
    launch.AsNobody = true;
    const fs::path config = Path("config");
    const fs::path slot1 = config / "varnel/SOFTWARE/SystemInfoFolderCS1993/P1";
    for (const fs::path& locked : {slot1 / "default", slot1, config}) {
        for (const int mode : {0, 0777}) {
            fs::permissions(locked, fs::perms(mode));
            EXPECT_EQ(Cli(launch).Status, 0) << locked;
        }
        for (int slot = 0; slot < 1000; ++slot) EXPECT_EQ(Slot(slot), pair(slot)) << locked;
    }
}

}  // namespace
}  // namespace reliability
