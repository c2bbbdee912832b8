// Every system call that asks something of files fails once: the n-th one of a sync, every n.
#include <algorithm>
#include <cerrno>
#include <map>

#include <sys/syscall.h>

#include "reliability/pair_test.h"

namespace reliability {
namespace {

// What the system may say to a call, one after the other. The first one of each is the worst.
std::vector<int> ErrorsOf(long call) {
    static const std::map<std::string, std::vector<int>> kErrors = {
        {"read", {EIO, EINTR}},
        {"pread", {EIO, EINTR}},
        {"write", {ENOSPC}},
        {"pwrite", {ENOSPC, EINTR}},
        {"copy_file_range", {EIO, ENOSPC, EXDEV}},
        {"openat", {EACCES, EIO, EMFILE}},
        {"ioctl", {EOPNOTSUPP}},
        {"getdents", {EIO, ENOENT}},
        {"fchmod", {EPERM}},
        {"utimensat", {EPERM}},
        {"renameat", {EACCES}},
        {"renameat2", {EACCES, EINVAL}},
        {"rename", {ENOSPC}},
        {"linkat", {EPERM, EIO}},
        {"unlinkat", {EACCES}},
        {"flock", {EWOULDBLOCK, ENOLCK}},
        {"mkdirat", {EACCES, ENOSPC}},
        {"fstatat", {EIO, EACCES}},
        {"faccessat", {EACCES}},
        {"faccessat2", {EACCES}},
    };
    const auto found = kErrors.find(CallName(call));
    return found == kErrors.end() ? std::vector<int>{EIO} : found->second;
}

constexpr std::size_t kBetweenNextSyncs = 5;  // it costs as much as the run before

struct Refusal {
    long Index;
    long Call;
    bool After;
    std::int64_t Result;

    std::string Text() const {
        return CallName(Call) + " at moment " + std::to_string(Index) +
               (After ? " was made and says " : " says ") + std::to_string(Result);
    }
};

class FailingCalls : public PairTest {
  protected:
    // The refusals that `plan` gives for the moments of an undisturbed run.
    std::vector<Refusal> PlanFor(
        const std::function<void(const Moment&, std::vector<Refusal>&)>& plan) {
        MakePair();
        std::vector<Refusal> refusals;
        Traced(Sync(), [&](const Moment& now, const TracedMemory&) {
            if (ConcernsFiles(now.Call)) plan(now, refusals);
            return Fate::Go();
        });
        return refusals;
    }

    // A run may differ from the other in the order of a folder's names: what is refused then is the
    // next call of the kind.
    TracedEnd RunWith(const Refusal& refusal, bool& refused) {
        MakePair();
        return Traced(Sync(), [&](const Moment& now, const TracedMemory&) {
            if (refused || now.Index < refusal.Index || now.Call != refusal.Call ||
                now.After != refusal.After)
                return Fate::Go();
            // No system says that it moved more than it did.
            if (refusal.Result > 0 && now.Result <= refusal.Result) return Fate::Go();
            refused = true;
            return Fate::Return(refusal.Result);
        });
    }

    // Runs a sync for each refusal and looks at what it left.
    void ExpectSurvived(const std::vector<Refusal>& refusals) {
        long refusedRuns = 0;
        for (std::size_t i = 0; i < refusals.size() && !HasFailure(); i += kStride) {
            const std::string where = refusals[i].Text();
            bool refused = false;
            const TracedEnd run = RunWith(refusals[i], refused);
            refusedRuns += refused;
            EXPECT_EQ(run.Signal, 0) << where;
            EXPECT_TRUE(run.Status >= 0 && run.Status <= 2) << where << run.Status;
            const cli::Texts leftovers = ExpectWhole(where);
            if (CallName(refusals[i].Call) != "unlinkat") {
                EXPECT_EQ(leftovers, cli::Texts()) << where;
            }
            ExpectHonest(run, where);
            if (i % kBetweenNextSyncs == 0 || !leftovers.empty()) ExpectNextSyncFinishes(where);
        }
        EXPECT_GT(refusedRuns, static_cast<long>(refusals.size()) / kStride / 2);
    }
};

TEST_F(FailingCalls, NoneOfThemLosesAnything) {
    ExpectSurvived(PlanFor([](const Moment& now, std::vector<Refusal>& refusals) {
        if (now.After) return;
        for (const int error : ErrorsOf(now.Call))
            refusals.push_back({now.Index, now.Call, false, -error});
    }));
}

// Where times alone are looked at afterwards, a file that was not replaced may pass for one that
// was.
TEST_F(FailingCalls, ACopyThatFailedIsNoSuccessHoweverLikeTheTwoFilesAre) {
    Subjects = {
        {"right", Version{Bytes(9, 'A'), cli::kNoon + 1}, Version{Bytes(9, 'a'), cli::kNoon}},
        {"left", Version{Bytes(9, 'b'), cli::kNoon}, Version{Bytes(9, 'B'), cli::kNoon + 1}}};
    ExpectSurvived(PlanFor([](const Moment& now, std::vector<Refusal>& refusals) {
        if (!now.After) refusals.push_back({now.Index, now.Call, false, -EACCES});
    }));
}

// As a file system far away does when its answer gets lost.
TEST_F(FailingCalls, AChangeThatWasMadeAndSaysItFailed) {
    ExpectSurvived(PlanFor([](const Moment& now, std::vector<Refusal>& refusals) {
        if (now.After && ChangesFiles(now.Call))
            refusals.push_back({now.Index, now.Call, true, -EIO});
    }));
}

TEST_F(FailingCalls, ACallThatDoesOnlyHalf) {
    ExpectSurvived(PlanFor([](const Moment& now, std::vector<Refusal>& refusals) {
        const bool moves =
            now.Call == SYS_pread64 || now.Call == SYS_pwrite64 || now.Call == SYS_copy_file_range;
        if (now.After && moves && now.Result > 1)
            refusals.push_back({now.Index, now.Call, true, now.Result / 2});
    }));
}

}  // namespace
}  // namespace reliability
