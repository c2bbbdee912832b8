// A sync is killed (SIGKILL) at its n-th moment; each system call that asks something of files
// fails once, the n-th one, every n; another run comes between.
#include <set>

#include <sys/syscall.h>

#include "reliability/pair_test.h"

namespace reliability {
namespace {

// What the system may say, and to which calls: to every one, or to those that the program makes
// again, or puts another in their place, when they are refused so.
const std::map<int, std::set<long>> kErrors = {
    {EIO, {}},
    {EINTR, {SYS_read, SYS_pread64, SYS_write, SYS_pwrite64}},
    {ENOSPC, {SYS_pwrite64, SYS_copy_file_range}},
    {EXDEV, {SYS_copy_file_range}},
    {EACCES, {SYS_openat, SYS_newfstatat}},
    {EMFILE, {SYS_openat}},
    {EINVAL, {SYS_renameat2}},
    {EWOULDBLOCK, {SYS_flock}}};

const std::set<long> kMoving = {SYS_pread64, SYS_pwrite64, SYS_copy_file_range};

class DisturbedSync : public PairTest {
  protected:
    // Runs a sync for each act that `plan` gives, and looks at what it left.
    void ExpectSurvived(std::size_t runs, const Plan& plan) {
        int unharmed = 0;
        Disturb(Sync(), runs, plan, [&](const cli::Ended& run, const Moment& moment) {
            const bool isKilled = run.Status == -SIGKILL;
            const std::size_t leftovers = ExpectWhole();
            EXPECT_LE(leftovers, isKilled || moment.Call == SYS_unlinkat ? 1u : 0u);
            ExpectHonest(run);
            killed_ += isKilled;
            leftovers_ += leftovers;
            // The rest costs as much again.
            if (!isKilled && leftovers == 0 && ++unharmed % 5 != 0) return;
            EXPECT_EQ(Cli("compare one two").Output.find(".varnel~"), std::string::npos);
            ExpectNextSyncFinishes();
            Cli("history clear --yes");
            EXPECT_TRUE(Files(".config").empty()) << "what the run left of the history";
        });
    }

    // Holds a run at its n-th moment while another one runs from start to end.
    void ExpectBothFinish(const std::string& held, const std::string& other,
                          const std::set<std::string>& newPairs) const {
        const Act runOther = [&](Moment&) { EXPECT_LE(Cli(other).Status, 1); };
        const auto plan = [&](const Moment&) { return std::vector{runOther}; };
        Disturb(held, 200, plan, [&](const cli::Ended& run, const Moment&) {
            EXPECT_EQ(run.Status, 0) << run.Output << run.Error;
            ExpectHonest(run);
            ExpectSynced();
            EXPECT_EQ(std::set({Slot(2), Slot(3)}), newPairs);
        });
    }

    std::size_t killed_ = 0, leftovers_ = 0;
};

TEST_F(DisturbedSync, KilledFiveHundredTimesLeavesEveryFileOldOrNewAndTheNextRunFinishes) {
    constexpr std::size_t kKills = 500;
    const Act kill = [](Moment& now) { ::kill(now.Process, SIGKILL); };
    ExpectSurvived(kKills + 10 * kStride, [&](const Moment&) { return std::vector{kill}; });
    EXPECT_GE(killed_, kKills / kStride);
    EXPECT_GT(leftovers_, 0u) << "no kill hit a copy";
}

// A file system far away may do what it is asked and say that it failed, when its answer gets lost,
// or do less than it was asked.
TEST_F(DisturbedSync, LosesNothingWhicheverCallFailsOrSaysSoOrDoesOnlyHalf) {
    ExpectSurvived(kEach, [](const Moment& now) {
        std::vector<Act> acts;
        for (const auto& [error, calls] : kErrors)
            if (now.After ? now.Result == 0 && error == EIO
                          : calls.empty() || calls.contains(now.Call))
                acts.push_back([error = error](Moment& then) { then.Return(-error); });
        if (now.After && kMoving.contains(now.Call))
            acts.push_back([](Moment& then) { then.Return(then.Result / 2); });
        return acts;
    });
}

// One that only tidies up must not take the other's temporary file for a leftover, be it as young
// as it may.
TEST_F(DisturbedSync, AnotherOneLeavesEveryFileWholeAndBothPairsAreRemembered) {
    ExpectBothFinish(Sync(), Sync(), {"(none)"});
    Before = {{"one/a", {kNoon + 1, "new"}}, {"two/a", {kNoon, "old"}}};
    const std::string one = One() + "/.", two = Two() + "/.";
    const std::string between = "==========", end = "====================0";
    ExpectBothFinish("sync --format=json one " + two, "sync --mode=right " + one + " two",
                     {One() + between + two + end, one + between + Two() + end});
}

}  // namespace
}  // namespace reliability
