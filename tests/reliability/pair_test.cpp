#include "reliability/pair_test.h"

#include <algorithm>
#include <filesystem>

#include <sys/stat.h>

#include "cli/json_row.h"
#include "platform/paths.h"

namespace reliability {

namespace fs = std::filesystem;
using cli::kHour;
using cli::kNoon;

namespace {

constexpr const char* kOtherPair = "/a==========/b==========/txt==========-1";
constexpr std::size_t kLarge = 140'000;  // is not copied through memory where the system can do it

bool Is(const std::optional<Version>& found, const std::optional<Version>& wanted) {
    if (!found || !wanted) return found.has_value() == wanted.has_value();
    return found->Time == wanted->Time && found->Content == wanted->Content;
}

std::string Described(const std::optional<Version>& version) {
    if (!version) return "nothing";
    return std::to_string(version->Content.size()) + " bytes of time " +
           std::to_string(version->Time - kNoon);
}

}  // namespace

void PairTest::SetUp() {
    if (!CanTrace()) GTEST_SKIP() << "this system does not let a program be traced";
}

std::string PairTest::Bytes(std::size_t size, char seed) {
    std::string bytes(size, seed);
    for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(seed + i / 7 % 31);
    return bytes;
}

std::vector<Subject> PairTest::Everything() {
    const auto old = [](std::size_t size) { return Version{Bytes(size, '0'), kNoon}; };
    const auto recent = [](std::size_t size) { return Version{Bytes(size, 'A'), kNoon + kHour}; };
    return {
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

void PairTest::MakePair() {
    for (const char* folder : {"one", "two", "config"}) fs::remove_all(Path(folder));
    MakeFolder("one");
    MakeFolder("two");
    FillPair();
}

void PairTest::FillPair() {
    SetSlot(0, kOtherPair);
    for (const Subject& subject : Subjects) {
        for (const char* side : {"one", "two"}) {
            const std::optional<Version>& version = subject.Before(side);
            if (version) File(side + ("/" + subject.Name), version->Content, version->Time);
        }
    }
}

std::optional<Version> PairTest::VersionAt(const std::string& relative) const {
    struct stat status;
    if (::lstat(Path(relative).c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return {};
    return Version{Content(relative), status.st_mtim.tv_sec};
}

std::vector<std::string> PairTest::FilesBelow(const std::string& side) const {
    std::vector<std::string> files;
    const std::string root = Path(side);
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root))
        if (!entry.is_directory()) files.push_back(entry.path().string().substr(root.size() + 1));
    return files;
}

cli::Texts PairTest::ExpectWhole(const std::string& where) {
    EXPECT_EQ(Slot(0), kOtherPair) << where;
    cli::Texts leftovers;
    for (const char* side : {"one", "two"}) {
        for (const Subject& subject : Subjects) {
            const auto found = VersionAt(side + ("/" + subject.Name));
            EXPECT_TRUE(Is(found, subject.Before(side)) || Is(found, subject.Newest()))
                << where << ": " << side << "/" << subject.Name << " is " << Described(found);
        }
        for (const std::string& name : FilesBelow(side)) {
            if (std::any_of(Subjects.begin(), Subjects.end(),
                            [&](const Subject& subject) { return subject.Name == name; }))
                continue;
            EXPECT_TRUE(platform::IsTemporaryName(fs::path(name).filename().string()))
                << where << ": " << side << "/" << name;
            leftovers.push_back(side + ("/" + name));
        }
    }
    return leftovers;
}

void PairTest::ExpectSynced(const std::string& where) {
    for (const char* side : {"one", "two"}) {
        for (const Subject& subject : Subjects) {
            const auto found = VersionAt(side + ("/" + subject.Name));
            EXPECT_TRUE(Is(found, subject.Newest()))
                << where << ": " << side << "/" << subject.Name << " is " << Described(found);
        }
        EXPECT_EQ(FilesBelow(side).size(), Subjects.size()) << where << ": " << side;
    }
}

void PairTest::ExpectHonest(const cli::Ended& run, const std::string& where) {
    cli::Texts lines = cli::Lines(run.Output);
    if (!run.Output.empty() && run.Output.back() != '\n') lines.pop_back();
    int rows = 0;
    int failed = 0;
    for (const std::string& line : lines) {
        auto members = cli::ReadJsonObject(
            line.starts_with("{\"summary\": ") ? line.substr(12, line.size() - 13) : line);
        if (!members.contains("code")) {
            EXPECT_EQ(members["total"], std::to_string(rows)) << where;
            EXPECT_EQ(members["failed"], std::to_string(failed)) << where;
            EXPECT_EQ(run.Status, failed == 0 ? 0 : 1) << where;
            continue;
        }
        ++rows;
        if (members["direction"].find("Fail") != std::string::npos) {
            ++failed;
            continue;
        }
        const std::string name = members["path1"].substr(One().size() + 1);
        for (const Subject& subject : Subjects) {
            if (subject.Name != name) continue;
            for (const char* side : {"one/", "two/"})
                EXPECT_TRUE(Is(VersionAt(side + name), subject.Newest()))
                    << where << ": not done: " << line;
        }
    }
}

void PairTest::ExpectNextSyncFinishes(const std::string& where) {
    const cli::Ended run = cli::RunToEnd(Sync());
    EXPECT_EQ(run.Status, 0) << where << run.Output << run.Error;
    EXPECT_EQ(Slot(1), One() + "==========" + Two() + "====================0") << where;
    ExpectSynced(where);
}

cli::Texts PairTest::State(const std::string& relative) const {
    cli::Texts state;
    const std::string root = Path(relative);
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root)) {
        struct stat status;
        if (::lstat(entry.path().c_str(), &status) != 0) continue;
        const std::string name = entry.path().string().substr(root.size() + 1);
        state.push_back(name + ' ' + std::to_string(status.st_mode) + ' ' +
                        std::to_string(status.st_mtim.tv_sec) + ' ' +
                        std::to_string(status.st_mtim.tv_nsec) + ' ' +
                        (S_ISREG(status.st_mode) ? Content(relative + '/' + name) : ""));
    }
    std::sort(state.begin(), state.end());
    return state;
}

long PairTest::MomentsOf(const cli::Launch& launch) const {
    return Traced(launch, [](const Moment&, const TracedMemory&) { return Fate::Go(); }).Moments;
}

}  // namespace reliability
