// The program is killed (SIGKILL) at the n-th moment of a sync.
#include <csignal>

#include "reliability/pair_test.h"

namespace reliability {
namespace {

class Killed : public PairTest {};

TEST_F(Killed, FiveHundredTimesEveryFileIsOldOrNewAndTheNextRunFinishes) {
    constexpr std::size_t kKills = 500;
    std::size_t killed = 0;
    std::size_t withLeftovers = 0;
    const auto plan = [](const Moment&) { return Acts{&Moment::Kill}; };
    Disturb(Sync(), kKills + 10 * kStride, plan, [&](const TracedEnd& run, const Moment&) {
        killed += run.Signal == SIGKILL;
        const cli::Texts leftovers = ExpectWhole();
        EXPECT_LE(leftovers.size(), 1u);
        withLeftovers += leftovers.size();
        if (!leftovers.empty()) {
            const cli::Ended comparison = Cli(Command({"compare", One(), Two()}));
            EXPECT_EQ(comparison.Output.find(".varnel~"), std::string::npos);
        }
        ExpectNextSyncFinishes();
    });
    EXPECT_GE(killed, kKills / kStride);
    EXPECT_GT(withLeftovers, 0u) << "no kill hit a copy";
}

}  // namespace
}  // namespace reliability
