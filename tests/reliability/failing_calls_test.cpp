// Every system call that asks something of files fails once: the n-th one of a sync, every n.
#include <algorithm>
#include <cerrno>

#include <sys/syscall.h>

#include "reliability/pair_test.h"

namespace reliability {
namespace {

// What the system may say to a call, one after the other.
std::vector<int> ErrorsOf(long call) {
    static const std::map<std::vector<int>, std::vector<long>> kErrors = {
        {{EIO, EINTR}, {SYS_read, SYS_pread64}},
        {{ENOSPC, EINTR}, {SYS_write, SYS_pwrite64}},
        {{EIO, ENOSPC, EXDEV}, {SYS_copy_file_range}},
        {{EOPNOTSUPP}, {SYS_ioctl}},
        {{EACCES, EIO, EMFILE}, {SYS_openat}},
        {{EIO, ENOENT}, {SYS_getdents64}},
        {{EIO, EACCES}, {SYS_newfstatat}},
        {{EACCES, EINVAL}, {SYS_renameat2}},
        {{EWOULDBLOCK, ENOLCK}, {SYS_flock}},
        {{EPERM, EIO}, {SYS_linkat}},
        {{EACCES, ENOSPC}, {SYS_mkdirat}},
        {{EPERM}, {SYS_fchmod, SYS_utimensat}},
        {{EACCES}, {SYS_renameat, SYS_unlinkat, SYS_faccessat}},
    };
    for (const auto& [errors, calls] : kErrors)
        if (std::find(calls.begin(), calls.end(), call) != calls.end()) return errors;
    return {EIO};
}

bool ChangesFiles(long call) {
    constexpr long kChanges[] = {
#ifdef SYS_rename
        SYS_rename,   SYS_unlink,    SYS_rmdir,  SYS_mkdir,
#endif
        SYS_renameat, SYS_renameat2, SYS_linkat, SYS_unlinkat,
        SYS_mkdirat,  SYS_fchmod,    SYS_close,  SYS_utimensat};
    return std::find(std::begin(kChanges), std::end(kChanges), call) != std::end(kChanges);
}

std::function<void(Moment&)> Returning(std::int64_t result) {
    return [result](Moment& now) { now.Return(result); };
}

class FailingCalls : public PairTest {
  protected:
    // Runs a sync for each act that `plan` gives, and looks at what it left.
    void ExpectSurvived(const std::function<Acts(const Moment&)>& plan) {
        constexpr int kBetweenNextSyncs = 5;  // it costs as much as the run before
        int runs = 0;
        Disturb(Sync(), kEach, plan, [&](const TracedEnd& run, const Moment& moment) {
            const cli::Texts leftovers = ExpectWhole();
            if (moment.Call != SYS_unlinkat) {
                EXPECT_EQ(leftovers, cli::Texts());
            }
            ExpectHonest(run);
            if (runs++ % kBetweenNextSyncs == 0 || !leftovers.empty()) ExpectNextSyncFinishes();
        });
    }
};

TEST_F(FailingCalls, NoneOfThemLosesAnything) {
    ExpectSurvived([](const Moment& now) {
        Acts acts;
        if (!now.After)
            for (const int error : ErrorsOf(now.Call)) acts.push_back(Returning(-error));
        return acts;
    });
}

// Where times alone are looked at afterwards, a file that was not replaced may pass for one that
// was.
TEST_F(FailingCalls, ACopyThatFailedIsNoSuccessHoweverLikeTheTwoFilesAre) {
    Subjects = {
        {"right", Version{Bytes(9, 'A'), cli::kNoon + 1}, Version{Bytes(9, 'a'), cli::kNoon}},
        {"left", Version{Bytes(9, 'b'), cli::kNoon}, Version{Bytes(9, 'B'), cli::kNoon + 1}}};
    ExpectSurvived([](const Moment& now) { return now.After ? Acts{} : Acts{Returning(-EACCES)}; });
}

// As a file system far away does when its answer gets lost.
TEST_F(FailingCalls, AChangeThatWasMadeAndSaysItFailed) {
    ExpectSurvived([](const Moment& now) {
        return now.After && ChangesFiles(now.Call) ? Acts{Returning(-EIO)} : Acts{};
    });
}

TEST_F(FailingCalls, ACallThatDoesOnlyHalf) {
    ExpectSurvived([](const Moment& now) {
        const bool moves =
            now.Call == SYS_pread64 || now.Call == SYS_pwrite64 || now.Call == SYS_copy_file_range;
        return now.After && moves ? Acts{[](Moment& then) { then.Return(then.Result / 2); }}
                                  : Acts{};
    });
}

}  // namespace
}  // namespace reliability
