// The program is killed (SIGKILL) at the n-th moment of a sync.
#include <algorithm>

#include <sys/syscall.h>

#include "cli/json_row.h"
#include "reliability/pair_test.h"

namespace reliability {
namespace {

class Killed : public PairTest {
  protected:
    // False when the run came to its end first.
    bool KillAt(long moment) {
        MakePair();
        return Traced(Sync(),
                      [moment](const Moment& now, const TracedMemory&) {
                          return now.Index == moment ? Fate::Kill() : Fate::Go();
                      })
            .WasKilled;
    }

    void ExpectLeftoversAreNotCompared(const std::string& where) {
        for (const std::string& line :
             cli::Lines(cli::RunToEnd(Command({"compare", One(), Two()})).Output))
            EXPECT_EQ(line.find(".varnel~"), std::string::npos) << where << line;
    }
};

TEST_F(Killed, FiveHundredTimesEveryFileIsOldOrNewAndTheNextRunFinishes) {
    constexpr long kKills = 500 / kStride;
    constexpr long kStep = 7919;  // a prime: every moment comes once
    MakePair();
    const long moments = MomentsOf(Sync());
    ExpectSynced("undisturbed");
    ASSERT_GT(moments, 600);
    long killed = 0;
    std::size_t withLeftovers = 0;
    for (long attempt = 0; killed < kKills && attempt < moments && !HasFailure(); ++attempt) {
        const long moment = attempt * kStep % moments;
        const std::string where = "killed at moment " + std::to_string(moment);
        killed += KillAt(moment);  // one of the last moments may be over
        const cli::Texts leftovers = ExpectWhole(where);
        EXPECT_LE(leftovers.size(), 1u) << where;
        withLeftovers += leftovers.size();
        if (!leftovers.empty()) ExpectLeftoversAreNotCompared(where);
        ExpectNextSyncFinishes(where);
    }
    EXPECT_EQ(killed, kKills);
    EXPECT_GT(withLeftovers, 0u) << "no kill hit a copy";
}

// A large file is copied in several steps.
TEST_F(Killed, InTheMiddleOfLargeFiles) {
    constexpr std::size_t kSize = 20'000'000;
    Subjects = {{"new", Version{Bytes(kSize, 'A'), cli::kNoon}, {}},
                {"replaced", Version{Bytes(kSize, 'B'), cli::kNoon},
                 Version{Bytes(kSize, 'C'), cli::kNoon + cli::kHour}}};
    MakePair();
    std::vector<long> moments;
    Traced(Sync(), [&](const Moment& now, const TracedMemory&) {
        if (now.Call == SYS_copy_file_range || now.Call == SYS_pwrite64)
            moments.push_back(now.Index);
        return Fate::Go();
    });
    ASSERT_GE(moments.size(), 8u) << "two steps and more for each file";
    for (std::size_t i = 0; i < moments.size(); i += std::max(moments.size() / 8, std::size_t{1})) {
        const std::string where = "killed at moment " + std::to_string(moments[i]);
        EXPECT_TRUE(KillAt(moments[i])) << where;
        EXPECT_EQ(ExpectWhole(where).size(), 1u) << where;
        ExpectNextSyncFinishes(where);
    }
}

}  // namespace
}  // namespace reliability
