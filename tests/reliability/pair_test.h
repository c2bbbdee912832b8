// What most of these tests start from: a pair of folders with a row of every kind, small and large,
// runs of the program that are disturbed at a moment, and the demand that each path then holds one
// of its versions, whole.
#pragma once

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <map>
#include <ostream>

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

struct Version {
    std::int64_t Time = 0;  // seconds from 1970
    std::string Content;

    auto operator<=>(const Version&) const = default;
    friend void PrintTo(const Version& version, std::ostream* stream) {
        *stream << version.Content.size() << " bytes of time " << version.Time - kNoon;
    }
};

using Versions = std::map<std::string, Version>;  // by paths like "one/sub/name"

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
        if (RunTraced(Command({"compare", "one", "two"}), refuse).Status != 2)
            GTEST_SKIP() << "this system does not let a program be traced";
        // The large ones are not copied through memory where it can be helped. The times are so
        // near that a look at them alone would take a replaced file for copied.
        for (const std::string side : {"one/", "two/"})
            for (const std::size_t size : {0, 200, 140'000}) {
                const std::string name = "of " + side + std::to_string(size);
                const Version recent = {kNoon + 1, Bytes(size, 'A')};
                Before[side + "new/" + name] = Before[side + name] = recent;
                Before[(side == "one/" ? "two/" : "one/") + name] = {kNoon, Bytes(200, '0')};
            }
        Before["one/same"] = Before["two/same"] = {kNoon, "same"};
    }

    cli::Launch Sync() const { return Command({"sync", "--format=json", One(), Two()}); }

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
    // but temporary files of killed copies: the paths of those. The history has lost nothing.
    cli::Texts ExpectWhole() const {
        EXPECT_EQ(Slot(0), kOtherPair);
        EXPECT_TRUE(Slot(1) == Pair(kOldFilter) || Slot(1) == Pair(kNoFilter)) << Slot(1);
        Versions now = Now(), before = Before, after = After();
        cli::Texts leftovers;
        for (const auto& [path, version] : now) {
            if (platform::IsTemporaryName(path.substr(path.rfind('/') + 1)))
                leftovers.push_back(path);
            else
                EXPECT_TRUE(version == before[path] || version == after[path])
                    << path << ": " << testing::PrintToString(version);
        }
        for (const auto& [path, version] : Before) EXPECT_TRUE(now.contains(path)) << path;
        return leftovers;
    }

    // Whatever the rows say is done is done, and the tally is that of the rows.
    void ExpectHonest(const cli::Ended& run) const {
        Versions now = Now(), after = After();
        const std::string path1 = "\"path1\": \"" + One();
        int rows = 0, failed = 0;
        for (const std::string& line : cli::Lines(run.Output)) {
            const std::size_t at = line.find(path1) + path1.size();
            if (!line.ends_with('}')) continue;  // could not be written whole
            if (line.starts_with("{\"summary\": ")) {
                const std::string tally = "\"total\": " + std::to_string(rows) +
                                          ", \"failed\": " + std::to_string(failed) + ',';
                EXPECT_NE(line.find(tally), line.npos) << run.Output;
                EXPECT_EQ(run.Status, failed == 0 ? 0 : 1);
            } else if (++rows; line.find("Fail") != line.npos) {
                ++failed;
            } else {
                const std::string name = line.substr(at, line.find('"', at) - at);
                for (const std::string side : {"one", "two"})
                    EXPECT_EQ(now[side + name], after[side + name]) << "not done: " << line;
            }
        }
    }

    void ExpectSynced() const { EXPECT_EQ(Now(), After()); }

    // An undisturbed sync does what is left to do, and cleans up.
    void ExpectNextSyncFinishes() const {
        const cli::Ended run = Cli(Sync());
        EXPECT_EQ(run.Status, 0) << run.Output << run.Error;
        EXPECT_EQ(Slot(1), Pair(kNoFilter));
        ExpectSynced();
    }

    // Runs the program on a new pair once for each act that `plan` gives for a moment of an
    // undisturbed run; more than `runs` of them are thinned out evenly. The act takes place at that
    // moment, or at the next one of its kind where the system lists folders in another order.
    // `examine` sees how the run ended, and the moment as it was without the act.
    void Disturb(const cli::Launch& launch, std::size_t runs, const Plan& plan,
                 const std::function<void(const cli::Ended&, const Moment&)>& examine) const {
        MakePair();
        std::vector<std::pair<Moment, Act>> planned;
        RunTraced(launch, [&](Moment& now) {
            for (const Act& act : plan(now)) planned.emplace_back(now, act);
            return true;
        });
        const std::size_t most = std::min(runs, planned.size());
        std::size_t disturbed = 0;
        for (std::size_t i = 0; i < most && !HasFailure(); i += kStride) {
            const auto& [moment, act] = planned[i * planned.size() / most];
            SCOPED_TRACE(testing::Message()
                         << "run " << i << (moment.After ? ", after" : ", before")
                         << " system call " << moment.Call << " at moment " << moment.Index);
            MakePair();
            std::optional<Moment> disturbedAt;
            const cli::Ended run = RunTraced(launch, [&](Moment& now) {
                // A run on another chance gets there a call later.
                if (now.Index < moment.Index || now.Call != moment.Call ||
                    now.After != moment.After)
                    return true;
                disturbedAt = now;
                act(now);
                return false;
            });
            if (!disturbedAt) continue;  // a run on another chance makes a call less
            ++disturbed;
            EXPECT_TRUE(run.Signal == SIGKILL || (run.Status >= 0 && run.Status <= 2))
                << run.Status << " or " << run.Signal;
            examine(run, *disturbedAt);
        }
        EXPECT_GT(disturbed, most / kStride / 2);
    }

    // New and replaced files both ways, empty, small and large ones, and one that is the same.
    Versions Before;

  private:
    static constexpr const char* kOtherPair = "/a==========/b==========/txt==========-1";
    static constexpr const char* kOldFilter = "/txt==========-1";
    static constexpr const char* kNoFilter = "==========0";

    std::string Pair(const std::string& filter) const {
        return One() + "==========" + Two() + "==========" + filter;
    }

    // Empties both folders and makes what Before says. The history holds another pair and this
    // one, with a filter.
    void MakePair() const {
        for (const char* folder : {"one", "two", "config"})
            std::filesystem::remove_all(Path(folder));
        for (const char* folder : {"one", "two"}) MakeFolder(folder);
        SetSlot(0, kOtherPair);
        SetSlot(1, Pair(kOldFilter));
        for (const auto& [path, version] : Before) File(path, version.Content, version.Time);
    }

    Versions Now() const {
        Versions now;
        for (const std::string side : {"one/", "two/"})
            for (const auto& [name, content] : Files(side)) {
                struct stat status {};
                ::stat(Path(side + name).c_str(), &status);
                now[side + name] = {status.st_mtim.tv_sec, content};
            }
        return now;
    }
};

}  // namespace reliability
