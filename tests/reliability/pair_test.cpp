#include "reliability/pair_test.h"

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <ostream>

#include <sys/stat.h>

#include "cli/json_row.h"
#include "platform/paths.h"

namespace reliability {

namespace fs = std::filesystem;
using cli::kHour;
using cli::kNoon;

namespace {

constexpr const char* kOtherPair = "/a==========/b==========/txt==========-1";
constexpr const char* kOldFilter = "/txt==========-1";
constexpr const char* kNoFilter = "==========0";
constexpr std::size_t kLarge = 140'000;  // is not copied through memory where the system can do it

}  // namespace

void PrintTo(const Version& version, std::ostream* stream) {
    *stream << version.Content.size() << " bytes of time " << version.Time - kNoon;
}

void PairTest::SetUp() {
    if (!CanTrace()) GTEST_SKIP() << "this system does not let a program be traced";
    const auto old = [](std::size_t size) { return Version{Bytes(size, '0'), kNoon}; };
    const auto recent = [](std::size_t size) { return Version{Bytes(size, 'A'), kNoon + kHour}; };
    Subjects = {
        {"new right", recent(100), {}},
        {"new/deep/er/right", recent(50), {}},
        {"new large right", recent(kLarge), {}},
        {"new empty right", recent(0), {}},
        {"to/left", {}, recent(70)},
        {"to/large left", {}, recent(kLarge)},
        {"replaced right", recent(200), old(200)},
        {"both/large right", recent(kLarge), old(kLarge + 1)},
        {"both/emptied right", recent(0), old(100)},
        {"both/left", old(10), recent(20)},
        {"both/large left", old(kLarge), recent(kLarge)},
        {"both/same", old(5), old(5)},
    };
}

std::string PairTest::Bytes(std::size_t size, char seed) {
    std::string bytes(size, seed);
    for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(seed + i / 7 % 31);
    return bytes;
}

void PairTest::MakePair() {
    for (const char* folder : {"one", "two", "config", "away"}) fs::remove_all(Path(folder));
    MakeFolder("one");
    MakeFolder("two");
    SetSlot(0, kOtherPair);
    SetSlot(1, Remembered(kOldFilter));
    for (const auto& [name, one, two] : Subjects) {
        if (one) File("one/" + name, one->Content, one->Time);
        if (two) File("two/" + name, two->Content, two->Time);
    }
}

Versions PairTest::VersionsIn(const std::string& folder) const {
    Versions versions;
    for (const auto& [name, content] : Files(folder)) {
        struct stat status {};
        ::stat((Path(folder) + '/' + name).c_str(), &status);
        versions[name] = {content, status.st_mtim.tv_sec};
    }
    return versions;
}

std::string PairTest::Remembered(const std::string& filter) const {
    return One() + "==========" + Two() + "==========" + filter;
}

Versions PairTest::Newest() const {
    Versions newest;
    for (const Subject& subject : Subjects) newest[subject.Name] = subject.Newest();
    return newest;
}

cli::Texts PairTest::ExpectWhole() const {
    EXPECT_EQ(Slot(0), kOtherPair);
    EXPECT_TRUE(Slot(1) == Remembered(kOldFilter) || Slot(1) == Remembered(kNoFilter)) << Slot(1);
    cli::Texts leftovers;
    for (const std::string side : {"one", "two"}) {
        Versions found = VersionsIn(side);
        for (const Subject& subject : Subjects) {
            const Versions::node_type node = found.extract(subject.Name);
            const auto version = node ? std::optional(node.mapped()) : std::nullopt;
            EXPECT_TRUE(version == (side == "one" ? subject.One : subject.Two) ||
                        version == subject.Newest())
                << side << '/' << subject.Name << ": " << testing::PrintToString(version);
        }
        for (const auto& [name, version] : found) {
            EXPECT_TRUE(platform::IsTemporaryName(fs::path(name).filename().string()))
                << side << '/' << name;
            leftovers.push_back(side + '/' + name);
        }
    }
    return leftovers;
}

void PairTest::ExpectSynced() const {
    for (const char* side : {"one", "two"}) EXPECT_EQ(VersionsIn(side), Newest()) << side;
}

void PairTest::ExpectHonest(const cli::Ended& run) const {
    const Versions newest = Newest();
    Versions one = VersionsIn("one");
    Versions two = VersionsIn("two");
    int rows = 0;
    int failed = 0;
    for (const std::string& line : cli::Lines(run.Output)) {
        if (!line.ends_with('}')) continue;  // could not be written whole
        const bool isSummary = line.starts_with("{\"summary\": ");
        auto members = cli::ReadJsonObject(isSummary ? line.substr(12, line.size() - 13) : line);
        if (isSummary) {
            EXPECT_EQ(members["total"], std::to_string(rows));
            EXPECT_EQ(members["failed"], std::to_string(failed));
            EXPECT_EQ(run.Status, failed == 0 ? 0 : 1);
            continue;
        }
        ++rows;
        if (members["direction"].find("Fail") != std::string::npos) {
            ++failed;
            continue;
        }
        const std::string name = members["path1"].substr(One().size() + 1);
        EXPECT_EQ(one[name], newest.at(name)) << "not done: " << line;
        EXPECT_EQ(two[name], newest.at(name)) << "not done: " << line;
    }
}

void PairTest::ExpectNextSyncFinishes() const {
    const cli::Ended run = Cli(Sync());
    EXPECT_EQ(run.Status, 0) << run.Output << run.Error;
    EXPECT_EQ(Slot(1), Remembered(kNoFilter));
    ExpectSynced();
}

void PairTest::Disturb(const cli::Launch& launch, std::size_t runs,
                       const std::function<Acts(const Moment&)>& plan,
                       const std::function<void(const TracedEnd&, const Moment&)>& examine) {
    MakePair();
    std::vector<std::pair<Moment, Acts::value_type>> planned;
    RunTraced(launch, Path(""), [&](Moment& now) {
        for (const auto& act : plan(now)) planned.emplace_back(now, act);
    });
    const std::size_t most = std::min(runs, planned.size());
    std::size_t disturbed = 0;
    for (std::size_t i = 0; i < most && !HasFailure(); i += kStride) {
        const auto& [moment, act] = planned[i * planned.size() / most];
        SCOPED_TRACE("run " + std::to_string(i) + (moment.After ? ", after" : ", before") +
                     " system call " + std::to_string(moment.Call) + " at moment " +
                     std::to_string(moment.Index));
        MakePair();
        std::optional<Moment> disturbedAt;
        const TracedEnd run = RunTraced(launch, Path(""), [&](Moment& now) {
            // A run on another chance gets there a call later.
            if (disturbedAt || now.Index < moment.Index || now.Call != moment.Call ||
                now.After != moment.After)
                return;
            disturbedAt = now;
            act(now);
            now.Last = true;
        });
        if (!disturbedAt) continue;  // a run on another chance makes a call less
        ++disturbed;
        if (run.Signal != SIGKILL) {
            EXPECT_TRUE(run.Status >= 0 && run.Status <= 2) << run.Status << " or " << run.Signal;
        }
        examine(run, *disturbedAt);
    }
    EXPECT_GT(disturbed, most / kStride / 2);
}

}  // namespace reliability
