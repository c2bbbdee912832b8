// Two runs at the same time: one is held at its n-th moment while the other runs from start to end.
#include <algorithm>

#include "reliability/pair_test.h"

namespace reliability {
namespace {

class TwoAtOnce : public PairTest {
  protected:
    void Hold(const cli::Launch& held, const cli::Launch& other,
              const std::function<void()>& examine) {
        const auto runOther = [&](Moment&) { EXPECT_LE(Cli(other).Status, 1); };
        Disturb(
            held, 200, [&](const Moment&) { return Acts{runOther}; },
            [&](const TracedEnd& run, const Moment&) {
                EXPECT_EQ(run.Status, 0) << run.Output << run.Error;
                ExpectHonest(run);
                examine();
            });
    }
};

TEST_F(TwoAtOnce, SyncsOfOnePairLeaveEveryFileWhole) {
    Hold(Sync(), Sync(), [this] { ExpectSynced(); });
}

// One that only tidies up must not take the other's temporary file for a leftover, be it as young
// as it may.
TEST_F(TwoAtOnce, ASyncWithNothingToDoDisturbsNoOther) {
    Subjects = {{"a", Version{"new", cli::kNoon + cli::kHour}, Version{"old", cli::kNoon}}};
    Hold(Sync(), Command({"sync", "--mode=right", One(), Two()}), [this] { ExpectSynced(); });
}

TEST_F(TwoAtOnce, BothPairsAreRemembered) {
    Subjects.clear();
    for (const char* folder : {"three", "four"}) MakeFolder(folder);
    const cli::Launch first = Command({"compare", Path("three"), Two()});
    Hold(first, Command({"compare", Path("four"), Two()}), [this] {
        cli::Texts pairs = {Slot(2), Slot(3)};
        std::sort(pairs.begin(), pairs.end());
        const std::string rest = "==========" + Two() + "====================0";
        EXPECT_EQ(pairs, (cli::Texts{Path("four") + rest, Path("three") + rest}));
    });
}

}  // namespace
}  // namespace reliability
