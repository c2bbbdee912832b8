// Two runs at the same time: one is held at its n-th moment while the other runs from start to end.
#include <algorithm>

#include "reliability/pair_test.h"

namespace reliability {
namespace {

class TwoAtOnce : public PairTest {
  protected:
    // What `first` ends with when `second` runs to its end at one of its moments.
    TracedEnd RunInside(const cli::Launch& first, long moment, const cli::Launch& second) {
        return Traced(first, [&](const Moment& now, const TracedMemory&) {
            if (now.Index == moment) {
                const cli::Ended inner = cli::RunToEnd(second);
                EXPECT_EQ(inner.Status, 0) << "inside moment " << moment << inner.Error;
            }
            return Fate::Go();
        });
    }
};

TEST_F(TwoAtOnce, SyncsOfOnePairLeaveEveryFileWhole) {
    MakePair();
    const long moments = MomentsOf(Sync());
    const long step = std::max(moments * kStride / 200, 1L);
    for (long moment = 0; moment < moments && !HasFailure(); moment += step) {
        const std::string where = "held at moment " + std::to_string(moment);
        MakePair();
        const TracedEnd outer = RunInside(Sync(), moment, Sync());
        EXPECT_EQ(outer.Signal, 0) << where;
        EXPECT_EQ(outer.Status, 0) << where << outer.Output;
        ExpectHonest(outer, where);
        EXPECT_EQ(ExpectWhole(where), cli::Texts()) << where;
        ExpectSynced(where);
    }
}

// One that only tidies up must not take the other's temporary file for a leftover, be it as young
// as it may.
TEST_F(TwoAtOnce, ASyncWithNothingToDoDisturbsNoOther) {
    Subjects = {{"a", Version{"new", cli::kNoon + cli::kHour}, Version{"old", cli::kNoon}}};
    MakePair();
    const cli::Launch inner = Command({"sync", "--mode=right", One(), Two()});
    const long moments = MomentsOf(Sync());
    for (long moment = 0; moment < moments && !HasFailure(); ++moment) {
        const std::string where = "held at moment " + std::to_string(moment);
        MakePair();
        const TracedEnd outer = Traced(Sync(), [&](const Moment& now, const TracedMemory&) {
            if (now.Index == moment) cli::RunToEnd(inner);
            return Fate::Go();
        });
        EXPECT_EQ(outer.Status, 0) << where << outer.Output;
        ExpectSynced(where);
    }
}

TEST_F(TwoAtOnce, SyncsThatRunFreelyEndWithEveryFileWhole) {
    for (int round = 0; round < 10 && !HasFailure(); ++round) {
        MakePair();
        cli::Running first(Sync());
        cli::Running second(Sync());
        for (cli::Running* run : {&first, &second}) {
            const cli::Ended ended = run->Wait();
            EXPECT_FALSE(ended.TimedOut);
            EXPECT_LE(ended.Status, 1) << ended.Error;
        }
        ExpectSynced("after both");
    }
}

TEST_F(TwoAtOnce, BothPairsAreRemembered) {
    Subjects.clear();
    MakePair();
    MakeFolder("three");
    const cli::Launch first = Command({"compare", One(), Two()});
    const cli::Launch second = Command({"compare", Path("three"), Two()});
    const long moments = MomentsOf(first);
    for (long moment = 0; moment < moments && !HasFailure(); moment += kStride) {
        MakePair();
        RunInside(first, moment, second);
        cli::Texts pairs = {Slot(1), Slot(2)};
        std::sort(pairs.begin(), pairs.end());
        const std::string rest = "==========" + Two() + "====================0";
        EXPECT_EQ(pairs, (cli::Texts{One() + rest, Path("three") + rest}))
            << "held at moment " << moment;
    }
}

}  // namespace
}  // namespace reliability
