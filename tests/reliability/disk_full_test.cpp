// The disk fills up while a file is copied: a small file system in memory, filled to the page.
#include <filesystem>
#include <fstream>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include "fakes/posix/ordinary_user.h"
#include "reliability/pair_test.h"

namespace reliability {
namespace {

namespace fs = std::filesystem;
using cli::kHour;
using cli::kNoon;

constexpr long kPage = 4096;
constexpr int kNotAllowed = 77;

// Mounts an empty file system in memory that nobody else sees and that goes with this process. As
// another user than root it is root in a user namespace of its own, where the system allows that.
bool MountOwnMemory(const std::string& folder) {
    const uid_t user = ::geteuid();
    const gid_t group = ::getegid();
    if (::unshare(CLONE_NEWNS | (user == 0 ? 0 : CLONE_NEWUSER)) != 0) return false;
    if (user != 0) {
        std::ofstream("/proc/self/setgroups") << "deny";
        std::ofstream("/proc/self/uid_map") << "0 " << user << " 1";
        std::ofstream("/proc/self/gid_map") << "0 " << group << " 1";
    }
    return ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           ::mount("tmpfs", folder.c_str(), "tmpfs", MS_NOSUID | MS_NODEV, "size=2m") == 0;
}

class DiskFull : public PairTest {
  protected:
    void MakePairThatDoesNotFit(long pages, bool replaced) {
        const auto size = static_cast<std::size_t>(pages * kPage + 1);
        Subjects = {{"does not fit", Version{Bytes(size, 'A'), kNoon + kHour}, {}},
                    {"to left", {}, Version{"", kNoon}},
                    {"to right", Version{"", kNoon}, {}}};
        if (replaced) Subjects[0].Two = Version{Bytes(5000, 'C'), kNoon};
        MakePair();
    }

    void LeaveFree(long pages) const {
        struct statvfs disk;
        ASSERT_EQ(::statvfs(One().c_str(), &disk), 0);
        const int ballast = ::open(Path("ballast").c_str(), O_CREAT | O_WRONLY, 0600);
        const auto taken = static_cast<long>(disk.f_bfree) - pages;
        EXPECT_EQ(::posix_fallocate(ballast, 0, taken * kPage), 0);
        ::close(ballast);
    }

    void ExpectThatRowFailedAlone(const cli::Ended& run) const {
        EXPECT_EQ(run.Status, 1);
        EXPECT_NE(run.Output.find("\"total\": 3, \"failed\": 1,"), std::string::npos) << run.Output;
        ExpectHonest(run);
        EXPECT_EQ(ExpectWhole(), cli::Texts());
    }
};

TEST_F(DiskFull, ThatRowFailsAloneAndItsTargetIsUntouched) {
    const int status = fakes::StatusOfChild([this] {
        if (!MountOwnMemory(Path(""))) ::_exit(kNotAllowed);
        for (const long pages : {20, 60}) {  // through memory, and in the kernel
            for (const long free : {0L, pages / 2, pages}) {
                for (const bool replaced : {false, true}) {
                    SCOPED_TRACE(testing::Message() << pages << ", free " << free << replaced);
                    MakePairThatDoesNotFit(pages, replaced);
                    LeaveFree(free);
                    ExpectThatRowFailedAlone(Cli(Sync()));
                    fs::remove(Path("ballast"));
                    ExpectNextSyncFinishes();
                }
            }
        }
    });
    if (status == kNotAllowed) GTEST_SKIP() << "needs root or a user namespace, to mount";
    EXPECT_EQ(status, 0);
}

TEST_F(DiskFull, AFileBeyondTheLimitOfTheUserFailsAlone) {
    MakePairThatDoesNotFit(60, false);
    cli::Launch launch = Sync();
    launch.First = [] {
        const rlimit limit = {30 * kPage, 30 * kPage};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    };
    ExpectThatRowFailedAlone(Cli(launch));
    ExpectNextSyncFinishes();
}

}  // namespace
}  // namespace reliability
