// The disk fills up while a file is copied: a small file system in memory, filled to the page.
#include <filesystem>
#include <fstream>

#include <fcntl.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include "reliability/own_mounts.h"
#include "reliability/pair_test.h"

namespace reliability {
namespace {

namespace fs = std::filesystem;
using cli::kHour;
using cli::kNoon;

constexpr long kPage = 4096;
constexpr long kDiskPages = 400;
constexpr long kNoFileLeft = -1;

struct Case {
    const char* Name;
    long Pages;      // of the file that does not fit, and a byte
    long FreePages;  // or kNoFileLeft: there is room, but not for another file
    bool OnOneDisk;  // the source stands there, too
};

constexpr Case kCases[] = {
    {"small, first byte", 20, 0, false},
    {"small, middle", 20, 10, false},
    {"small, last byte", 20, 20, false},
    {"large, first byte", 60, 0, false},
    {"large, middle", 60, 30, false},
    {"large, last byte", 60, 60, false},
    {"large, first byte, one disk", 60, 0, true},
    {"large, middle, one disk", 60, 30, true},
    {"large, last byte, one disk", 60, 60, true},
    {"no room for another file", 60, kNoFileLeft, false},
};

class DiskFull : public PairTest {
  protected:
    void SetUp() override {}

    void MakeFullDisk(const Case& test, bool replaced) {
        const auto size = static_cast<std::size_t>(test.Pages * kPage + 1);
        const Version wanted{Bytes(size, 'A'), kNoon + kHour};
        Subjects = {{"does not fit", wanted, {}},
                    {"to left", {}, Version{Bytes(test.OnOneDisk ? 0 : 9999, 'B'), kNoon}},
                    {"before/empty", Version{"", kNoon}, {}}};
        if (replaced) Subjects[0].Two = Version{Bytes(5000, 'C'), kNoon};
        for (const char* name : {"one", "two"}) fs::remove_all(Path(name));
        fs::remove_all(Path("config"));
        MakeFolder("disk");
        ::umount(Path("disk").c_str());
        ASSERT_TRUE(MountMemory(Path("disk"), kDiskPages));
        MakeFolder("disk/two");
        fs::create_directory_symlink("disk/two", Path("two"));
        MakeFolder(test.OnOneDisk ? "disk/one" : "one");
        if (test.OnOneDisk) fs::create_directory_symlink("disk/one", Path("one"));
        FillPair();
        MakeFolder("two/before");  // a new folder takes no page, but a file
        Fill(test);
    }

    void Fill(const Case& test) {
        struct statvfs disk;
        ASSERT_EQ(::statvfs(Path("disk").c_str(), &disk), 0);
        if (test.FreePages == kNoFileLeft) {
            for (std::size_t i = 1; i < disk.f_ffree; ++i)
                File("disk/ballast/" + std::to_string(i), "");
            return;
        }
        const int ballast = ::open(Path("disk/ballast").c_str(), O_CREAT | O_WRONLY, 0600);
        EXPECT_EQ(::posix_fallocate(ballast, 0,
                                    (static_cast<long>(disk.f_bfree) - test.FreePages) * kPage),
                  0);
        ::close(ballast);
    }

    void ExpectOneRowFailed(const cli::Ended& run, const std::string& where) {
        EXPECT_EQ(run.Status, 1) << where;
        for (const std::string& line : cli::Lines(run.Output)) {
            if (line.starts_with("{\"summary\"")) {
                EXPECT_NE(line.find("\"total\": 3, \"failed\": 1,"), std::string::npos)
                    << where << line;
            } else {
                EXPECT_EQ(line.find("Fail") != std::string::npos,
                          line.find("does not fit") != std::string::npos)
                    << where << line;
            }
        }
    }
};

TEST_F(DiskFull, ThatRowFailsAloneAndItsTargetIsUntouched) {
    const Held held = HoldsWithOwnMounts([this] {
        for (const Case& test : kCases) {
            for (const bool replaced : {false, true}) {
                const std::string where =
                    test.Name + std::string(replaced ? ", replaced" : ", new");
                ASSERT_NO_FATAL_FAILURE(MakeFullDisk(test, replaced));
                const cli::Ended run = cli::RunToEnd(Sync());
                if (test.FreePages == kNoFileLeft) {
                    EXPECT_EQ(run.Status, 1) << where;
                } else {
                    ExpectOneRowFailed(run, where);
                }
                ExpectHonest(run, where);
                EXPECT_EQ(ExpectWhole(where), cli::Texts()) << where;
                fs::remove_all(Path("disk/ballast"));
                ExpectNextSyncFinishes(where);
            }
        }
    });
    if (held == Held::NotAllowed) GTEST_SKIP() << "needs root or a user namespace, to mount";
    EXPECT_EQ(held, Held::Yes);
}

TEST_F(DiskFull, AFileBeyondTheLimitOfTheUserFailsAlone) {
    const auto size = static_cast<std::size_t>(60 * kPage);
    Subjects = {{"does not fit", Version{Bytes(size, 'A'), kNoon}, {}},
                {"to left", {}, Version{"fits", kNoon}},
                {"to right", Version{"fits", kNoon}, {}}};
    MakePair();
    rlimit limit;
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &limit), 0);
    const rlimit lower = {30 * kPage, limit.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &lower);
    const cli::Ended run = cli::RunToEnd(Sync());
    ::setrlimit(RLIMIT_FSIZE, &limit);
    ExpectOneRowFailed(run, "");
    EXPECT_EQ(ExpectWhole(""), cli::Texts());
    ExpectNextSyncFinishes("");
}

}  // namespace
}  // namespace reliability
