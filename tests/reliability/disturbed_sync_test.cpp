// A sync is killed (SIGKILL) at its n-th moment; each system call that asks something of files
// fails once, the n-th one, every n; another run comes between; the user stops it; somebody changes
// a source, at every moment of the run, or takes a folder or a whole root away.
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

using DisturbedSync = PairTest;
using ChangingFiles = PairTest;

TEST_F(DisturbedSync, KilledFiveHundredTimesLeavesEveryFileOldOrNewAndTheNextRunFinishes) {
    const Act kill = [](const Moment& now) { ::kill(now.Process, SIGKILL); };
    EXPECT_GE(ExpectSurvived(550, [&](const Moment&) { return std::vector{kill}; }), 500 / kStride);
    EXPECT_GT(Leftovers, 0u) << "no kill hit a copy";
}

// A file system far away may do what it is asked and say that it failed, when its answer gets lost,
// or do less than it was asked.
TEST_F(DisturbedSync, LosesNothingWhicheverCallFailsOrSaysSoOrDoesOnlyHalf) {
    ExpectSurvived(SIZE_MAX, [](const Moment& now) {
        std::vector<Act> acts;
        for (const auto& [error, calls] : kErrors)
            if (now.After ? now.Result == 0 && error == EIO
                          : calls.empty() || calls.contains(now.Call))
                acts.push_back([error = error](const Moment& then) { then.Return(-error); });
        if (now.After && kMoving.contains(now.Call))
            acts.push_back([](const Moment& then) { then.Return(then.Result / 2); });
        return acts;
    });
}

// One that only tidies up must not take the other's temporary file for a leftover, be it as young
// as it may, so it does not itself copy to Folder 2. Both look for a free slot at the same time.
TEST_F(DisturbedSync, AnotherOneLeavesEveryFileWholeAndBothPairsAreRemembered) {
    const Act runOther = [](const Moment&) {
        EXPECT_LE(Cli("sync --mode=right one two/.").Status, 1);
    };
    Disturb("sync --format=json one/. two", 200, BeforeEachCall(runOther),
            [&](const cli::Ended& run, const Moment&) {
                EXPECT_EQ(run.Status, 0) << run;
                EXPECT_EQ(run.Error, "");
                EXPECT_EQ(ExpectSound(run), 0u);
                const std::string list = Cli("history list").Output;
                EXPECT_NE(list.find(One() + "/.\t" + Two() + "\t\t0\n"), list.npos) << list;
                EXPECT_NE(list.find(One() + '\t' + Two() + "/.\t\t0\n"), list.npos) << list;
            });
}

// It comes when the program first names a path, a second one at the next call. When the history is
// loaded there is nothing yet that could be stopped. A list with gaps would be taken for the whole
// one.
TEST_F(DisturbedSync, AnInterruptStopsARunWhichPrintsWhatItFoundOrDidAndASecondOneEndsIt) {
    const auto interrupted = [&](const std::string& arguments, const std::string& path,
                                 const std::vector<int>& signals) {
        MakePair();
        std::size_t sent = 0;
        return RunTraced(arguments, [&](const Moment& now) {
            if (!now.After && (sent != 0 || now.Path.find(path) != now.Path.npos))
                ::kill(now.Process, signals[sent++]);
            return sent < signals.size();
        });
    };
    Before = {{"one/a", {kNoon, "1"}}, {"one/sub/b", {kNoon, "2"}}};
    EXPECT_EQ(interrupted("sync one two", "sub", {SIGINT}).Status, 130);
    EXPECT_TRUE(Files("two").empty());
    EXPECT_EQ(interrupted("export new one two two/report", "sub", {SIGINT}).Status, 130);
    EXPECT_TRUE(Files("two").empty());
    for (const auto& [path, signal] : {std::pair{"sub", SIGINT}, {"P0/default", SIGTERM}}) {
        const cli::Ended run = interrupted("compare -q --format=json one two", path, {signal});
        EXPECT_EQ(run.Status, 130);
        EXPECT_NE(run.Output.find(R"("new": 1, "modified": 0, "same": 0, "stopped": true)"),
                  run.Output.npos);
    }
    EXPECT_EQ(interrupted("sync one two", ".varnel~", {SIGINT}),
              (cli::Ended{130, "--> OK -->    a\n", "Synchronization User Canceled.\n"}));
    EXPECT_EQ(Files("two").size(), 1u);
    EXPECT_EQ(interrupted("sync one two", ".varnel~", {SIGINT, SIGTERM}).Status, -SIGTERM);
}

TEST_F(ChangingFiles, ASourceIsCopiedAsItWasOrAsItIsOrNotAtAll) {
    const std::string before = Bytes(140'000, 'A');
    Before = {{"one/replaced", {kNoon + kHour, before}},
              {"two/replaced", {kNoon, "old"}},
              {"one/new", {kNoon, before}}};
    const std::pair<std::string, std::string> targets[] = {{"replaced", "old"}, {"new", "(none)"}};
    File("other", Bytes(140'000, 'a'));
    std::map<std::string, long> looks;  // the last moment at which a path is named
    MakePair();
    RunTraced(Sync(), [&](const Moment& now) { return looks[now.Path] = now.Index, true; });
    for (const std::string change :
         {"echo more >>$f", "truncate -s 1000 $f", "touch $f", "cp other $f",
          "cp other another && mv another $f", "rm $f", "rm $f && mkfifo $f"}) {
        SCOPED_TRACE(change);
        const Act act = [&](const Moment&) {
            EXPECT_EQ(Shell("for f in one/*; do " + change + "; done").Status, 0);
        };
        Disturb(
            Sync(), SIZE_MAX, BeforeEachCall(act), [&](const cli::Ended& run, const Moment& at) {
                for (const auto& [name, old] : targets) {
                    const std::string source = Content("one/" + name),
                                      target = Content("two/" + name);
                    const std::string path = Path("one/" + name);
                    EXPECT_TRUE(target == old || target == before || target == source) << name;
                    const bool done =
                        run.Output.find("OK -->\", \"path1\": \"" + path) != run.Output.npos;
                    // The last look at a source is the one at the result of its row.
                    EXPECT_TRUE(!done || at.Index >= looks.at(path) || target == source) << name;
                }
                for (const auto& [name, content] : Files("two")) EXPECT_NE(name[0], '.') << name;
            });
    }
}

// What is renamed away and back again can be looked at afterwards. What was made in its place
// belongs to it; what is there already stays. A root that is gone before it is listed is named.
TEST_F(ChangingFiles, AFolderOrARootThatGoesAwayTakesNothingWithIt) {
    const Version old{kNoon, "old"}, recent{kNoon + kHour, "new"};
    Before = {{"one/a/replaced", recent}, {"two/a/replaced", old}, {"two/a/left", old},
              {"one/a/right", old},       {"one/b/left", old},     {"two/b/left", recent},
              {"one/b/c/right", old}};
    for (const std::string gone : {"one/a", "two/a", "two/b", "one/b/c", "one", "two"}) {
        SCOPED_TRACE(gone);
        const Act leave = [&](const Moment&) {
            EXPECT_EQ(Shell("mv " + gone + " away").Status, 0);
        };
        Disturb(Sync(), 70, BeforeEachCall(leave), [&](const cli::Ended& run, const Moment&) {
            Shell("mkdir -p " + gone + " && cp -an " + gone + "/. away && rm -r " + gone +
                  " && mv away " + gone);
            ExpectSound();
            EXPECT_EQ(run.Output.find("\"code\": 0,"), run.Output.npos);
            const bool isListed = run.Output.find("\"total\": 5,") != run.Output.npos;
            EXPECT_TRUE(isListed || run.Error != "" || gone.find('/') != gone.npos);
            ExpectNextSyncFinishes();
        });
    }
}

}  // namespace
}  // namespace reliability
