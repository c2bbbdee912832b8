// What most of these tests start from: a pair of folders with a row of every kind, small and large,
// runs of the program that are disturbed at a moment, and the demand that each path then holds one
// of its versions, whole.
#pragma once

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <map>

#include <sys/stat.h>

#include "cli/cli_fixture.h"
#include "platform/paths.h"
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

// As many runs of Disturb as there are acts.
inline constexpr std::size_t kEach = SIZE_MAX;

// What is done to a run at one of its moments.
using Act = std::function<void(Moment&)>;
using Plan = std::function<std::vector<Act>(const Moment&)>;

class PairTest : public cli::CliTest {
  protected:
    void SetUp() override {
        const auto refuse = [](Moment& now) {
            now.Return(-EIO);
            return true;
        };
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

    std::string Sync() const { return "sync --format=json " + One() + ' ' + Two(); }

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

    // Every path holds its old version or its new one, content and time, and nothing else is there
    // but temporary files of killed copies: so many. The history has lost nothing.
    std::size_t ExpectWhole() const {
        EXPECT_EQ(Slot(0), otherPair_);
        EXPECT_TRUE(Slot(1) == filteredPair_ || Slot(1) == plainPair_) << Slot(1);
        Versions now = Now(), before = Before, after = After();
        std::size_t leftovers = 0;
        for (const auto& [path, version] : now)
            if (platform::IsTemporaryName(path.substr(path.rfind('/') + 1)))
                ++leftovers;
            else
                EXPECT_TRUE(version == before[path] || version == after[path])
                    << path << ": " << version.second.size() << " bytes of time " << version.first;
        for (const auto& [path, version] : Before) EXPECT_TRUE(now.contains(path)) << path;
        return leftovers;
    }

    // Whatever the rows say is done is done, and the tally is that of the rows.
    void ExpectHonest(const cli::Ended& run) const {
        Versions now = Now(), after = After();
        int rows = 0, failed = 0;
        for (const std::string& line : cli::Lines(run.Output)) {
            if (!line.ends_with('}')) continue;  // could not be written whole
            if (line.starts_with("{\"summary\": ")) {
                const std::string tally = "\"total\": " + std::to_string(rows) +
                                          ", \"failed\": " + std::to_string(failed) + ',';
                EXPECT_NE(line.find(tally), line.npos) << run.Output;
                EXPECT_EQ(run.Status, failed == 0 ? 0 : 1);
            } else if (++rows; line.find("Fail") != line.npos) {
                ++failed;
            } else {
                const std::size_t at = line.find(One()) + One().size();
                const std::string name = line.substr(at, line.find('"', at) - at);
                for (const std::string side : {"one", "two"})
                    EXPECT_TRUE(now[side + name] == after[side + name]) << "not done: " << line;
            }
        }
    }

    void ExpectSynced() const { EXPECT_TRUE(Now() == After()); }

    // An undisturbed sync does what is left to do, and cleans up.
    void ExpectNextSyncFinishes() const {
        const cli::Ended run = Cli(Sync());
        EXPECT_EQ(run.Status, 0) << run.Output << run.Error;
        EXPECT_EQ(Slot(1), plainPair_);
        ExpectSynced();
    }

    // Runs the program on a new pair once for each act that `plan` gives for the moments of an
    // undisturbed run: the n-th time it comes to the n-th one, which is done, and goes on alone.
    // More than `runs` of them are thinned out evenly. `examine` sees how the run ended, and the
    // moment as it was without the act.
    void Disturb(const std::string& arguments, std::size_t runs, const Plan& plan,
                 const std::function<void(const cli::Ended&, const Moment&)>& examine) const {
        std::size_t acts = 0, done = 0, tried = 0;
        MakePair();
        RunTraced(arguments, [&](Moment& now) { return acts += plan(now).size(), true; });
        for (std::size_t i = 0; i < std::min(runs, acts) && !HasFailure(); i += kStride) {
            std::size_t before = i * acts / std::min(runs, acts);
            std::optional<Moment> disturbed;
            MakePair();
            ++tried;
            const cli::Ended run = RunTraced(arguments, [&](Moment& now) {
                const std::vector<Act> here = plan(now);
                if (before < here.size()) {
                    disturbed = now;
                    here[before](now);
                }
                before -= here.size();
                return !disturbed;
            });
            if (!disturbed) continue;  // folders listed in another order may make a call less
            SCOPED_TRACE(testing::Message()
                         << "system call " << disturbed->Call << " at moment " << disturbed->Index);
            EXPECT_TRUE(run.Status == -SIGKILL || (run.Status >= 0 && run.Status <= 2))
                << run.Status;
            ++done;
            examine(run, *disturbed);
        }
        EXPECT_GT(done, tried / 2);
    }

    // New and replaced files both ways, empty, small and large ones, and one that is the same.
    Versions Before;

  private:
    const std::string otherPair_ = "/a==========/b==========/txt==========-1",
                      pair_ = One() + "==========" + Two() + "==========",
                      filteredPair_ = pair_ + "/txt==========-1",
                      plainPair_ = pair_ + "==========0";

    // Empties both folders and makes what Before says. The history holds another pair and this
    // one, with a filter.
    void MakePair() const {
        for (const char* folder : {"one", "two", ".config"}) std::filesystem::remove_all(folder);
        for (const char* folder : {"one", "two"}) MakeFolder(folder);
        SetSlot(0, otherPair_);
        SetSlot(1, filteredPair_);
        for (const auto& [path, version] : Before) File(path, version.second, version.first);
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
};

}  // namespace reliability
