// What most of these tests start from: a pair of folders with a row of every kind, small and large,
// runs of the program that are disturbed at a moment, and the demand that each path then holds one
// of its versions, whole.
#pragma once

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <set>
#include <sstream>

#include <sys/stat.h>

#include "cli/cli_fixture.h"
#include "reliability/traced_run.h"

namespace reliability {

using cli::kHour;
using cli::kNoon;

// Sanitized programs take ten times as long: they get every kStride-th moment.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr std::size_t kStride = 10;
#else
inline constexpr std::size_t kStride = 1;
#endif

using Version = std::pair<std::int64_t, std::string>;  // seconds from 1970, content
using Versions = std::map<std::string, Version>;       // by paths like "one/sub/name"

// `size` bytes that no other seed gives.
inline std::string Bytes(std::size_t size, char seed) {
    std::string bytes(size, seed);
    for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(seed + i / 7 % 31);
    return bytes;
}

// What is done to a run at one of its moments.
using Act = std::function<void(const Moment&)>;
using Plan = std::function<std::vector<Act>(const Moment&)>;

inline Plan BeforeEachCall(const Act& act) {
    return [act](const Moment& now) { return now.After ? std::vector<Act>() : std::vector{act}; };
}

class PairTest : public cli::CliTest {
  protected:
    void SetUp() override {
        const auto refuse = [](const Moment& now) { return now.Return(-EIO), true; };
        if (RunTraced("compare one two", refuse).Status != 2)
            GTEST_SKIP() << "this system does not let a program be traced";
        // The large ones are not copied through memory where it can be helped. The times are so
        // near that a look at them alone would take a replaced file for copied.
        for (const std::string side : {"one/", "two/"})
            for (const std::size_t size : {0, 200, 140'000}) {
                const std::string name = "of " + side + std::to_string(size);
                Before[side + "new/" + name] = Before[side + name] = {kNoon + 1, Bytes(size, 'A')};
                Before[(side == "one/" ? "two/" : "one/") + name] = {kNoon, Bytes(200, '0')};
            }
        Before["one/same"] = Before["two/same"] = {kNoon, "same"};
    }

    // A sanitized program looks for leaks by tracing itself, which one that is traced cannot do.
    // What it finds must not look like a row that failed.
    static cli::Ended RunTraced(const std::string& arguments, const Watch& watch) {
        const std::string options =
            "ASAN_OPTIONS=detect_leaks=0:exitcode=99 UBSAN_OPTIONS=exitcode=99";
        return Shell("export " + options + "; exec varnel-cli " + arguments,
                     [&](int process) { return Trace(process, watch); });
    }

    std::string Sync() const { return "sync --format=json " + One() + ' ' + Two(); }

    // Empties both folders and makes what Before says. The history holds another pair and this
    // one, with a filter.
    void MakePair() const {
        for (const char* folder : {"one", "two", ".config"}) cli::fs::remove_all(folder);
        for (const char* folder : {"one", "two"}) MakeFolder(folder);
        SetSlot(0, otherPair_);
        SetSlot(1, filteredPair_);
        for (const auto& [path, version] : Before) File(path, version.second, version.first);
    }

    // Every path holds its old version or its new one, content and time, and nothing else is there
    // but temporary files of killed copies: so many. What the rows say is done is done, and the
    // tally is that of the rows. The history has lost nothing.
    std::size_t ExpectSound(const cli::Ended& run = {}) const {
        EXPECT_EQ(Slot(0), otherPair_);
        EXPECT_TRUE(Slot(1) == filteredPair_ || Slot(1) == plainPair_) << Slot(1);
        Versions now = Now(), before = Before, after = After();
        std::size_t leftovers = 0;
        for (const auto& [path, version] : Before) EXPECT_TRUE(now.contains(path)) << path;
        for (const auto& [path, version] : now)
            if (path.find("/.varnel~") != path.npos)
                ++leftovers;
            else
                EXPECT_TRUE(version == before[path] || version == after[path]) << path;

        int rows = 0, failed = 0;
        std::istringstream output(run.Output);
        for (std::string row; std::getline(output, row) && row.ends_with("\"}"); ++rows) {
            const std::size_t start = row.find(One()) + One().size();
            const std::string name = row.substr(start, row.find('"', start) - start);
            const bool isDone = row.find(" OK ") != row.npos;
            failed += !isDone;
            for (const std::string side : {"one", "two"})
                EXPECT_TRUE(!isDone || now[side + name] == after[side + name]) << row;
        }
        if (!run.Output.ends_with("}}\n")) return leftovers;  // could not be written whole
        const std::string tally =
            "\"total\": " + std::to_string(rows) + ", \"failed\": " + std::to_string(failed) + ',';
        EXPECT_NE(run.Output.find(tally), run.Output.npos) << run.Output;
        EXPECT_TRUE(run.Status == (failed == 0 ? 0 : 1) || run.Status == -SIGKILL) << run.Status;
        EXPECT_TRUE(failed != 0 || run.Error != "" || now == after) << run.Output;
        return leftovers;
    }

    // An undisturbed sync does what is left to do, and cleans up.
    void ExpectNextSyncFinishes() const {
        const cli::Ended run = Cli(Sync());
        EXPECT_EQ(run.Status, 0) << run;
        EXPECT_EQ(run.Error, "");
        EXPECT_EQ(ExpectSound(run), 0u);
        EXPECT_EQ(Slot(1), plainPair_);
    }

    // Runs the program on a new pair once for each act that `plan` gives for the moments of an
    // undisturbed run: the n-th time it comes to the n-th one, which is done, and goes on alone.
    // More than `runs` of them are thinned out evenly. `examine` sees how the
    // run ended, and the moment as it was without the act. Returns how often it was called.
    std::size_t Disturb(const std::string& arguments, std::size_t runs, const Plan& plan,
                        const std::function<void(const cli::Ended&, const Moment&)>& examine) {
        std::size_t acts = 0, done = 0;
        MakePair();
        RunTraced(arguments, [&](const Moment& now) { return acts += plan(now).size(), true; });
        runs = std::min(runs, acts);
        for (std::size_t i = 0; i < runs && !HasFailure(); i += kStride) {
            std::size_t left = i * acts / runs + 1;
            Moment disturbed;
            MakePair();
            const cli::Ended run = RunTraced(arguments, [&](const Moment& now) {
                for (const Act& act : plan(now))
                    if (left != 0 && --left == 0) act(disturbed = now);
                return left != 0;
            });
            if (left != 0) continue;  // folders listed in another order may make a call less
            SCOPED_TRACE(testing::Message()
                         << "system call " << disturbed.Call << " at moment " << disturbed.Index);
            EXPECT_TRUE(std::set({-SIGKILL, 0, 1, 2}).contains(run.Status)) << run.Status;
            ++done;
            examine(run, disturbed);
        }
        EXPECT_GT(done, runs / kStride / 2);
        return done;
    }

    // Runs a sync for each act that `plan` gives, and looks at what it left.
    std::size_t ExpectSurvived(std::size_t runs, const Plan& plan) {
        return Disturb(Sync(), runs, plan, [&](const cli::Ended& run, const Moment& moment) {
            const bool mayLeaveOne = run.Status == -SIGKILL || moment.Call == SYS_unlinkat;
            const std::size_t leftovers = ExpectSound(run);
            EXPECT_LE(leftovers, mayLeaveOne ? 1u : 0u);
            Leftovers += leftovers;
            EXPECT_EQ(Cli("compare one two").Output.find(".varnel~"), std::string::npos);
            ExpectNextSyncFinishes();
            Cli("history clear --yes");
            EXPECT_TRUE(Files(".config").empty()) << "what the run left of the history";
        });
    }

    // New and replaced files both ways, empty, small and large ones, and one that is the same.
    Versions Before;
    std::size_t Leftovers = 0;  // what the runs of ExpectSurvived left

  private:
    // What both folders hold after a sync: the newer version of everything.
    Versions After() const {
        Versions after;
        for (const auto& [path, version] : Before)
            for (const std::string side : {"one", "two"}) {
                Version& newest = after[side + path.substr(side.size())];
                newest = std::max(newest, version);
            }
        return after;
    }

    Versions Now() const {
        Versions now;
        for (const std::string side : {"one/", "two/"})
            for (const auto& [name, content] : Files(side)) {
                struct stat status {};
                ::stat((side + name).c_str(), &status);
                now[side + name] = {status.st_mtim.tv_sec, content};
            }
        return now;
    }

    const std::string otherPair_ = "/a==========/b==========/txt==========-1",
                      pair_ = One() + "==========" + Two() + "==========",
                      filteredPair_ = pair_ + "/txt==========-1",
                      plainPair_ = pair_ + "==========0";
};

}  // namespace reliability
