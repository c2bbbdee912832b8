// Somebody changes the files while they are synchronised: a source, at every moment of the run; a
// folder or a whole root that goes away.
#include <filesystem>
#include <fstream>

#include <sys/stat.h>
#include <sys/syscall.h>

#include "reliability/pair_test.h"

namespace reliability {
namespace {

namespace fs = std::filesystem;
using cli::kHour;
using cli::kNoon;

class ChangingFiles : public PairTest {};

// The same act before every call on files.
Acts BeforeCalls(const Moment& now, const std::function<void(Moment&)>& act) {
    return now.After ? Acts{} : Acts{act};
}

TEST_F(ChangingFiles, ASourceIsCopiedAsItWasOrAsItIsOrNotAtAll) {
    const std::string before = Bytes(140'000, 'A');
    const std::string other = Bytes(140'000, 'a');
    const struct {
        const char* Name;
        std::function<void(const std::string& path)> Make;
        std::string After;  // what the path then holds
    } changes[] = {
        {"grows", [](auto& path) { std::ofstream(path, std::ios::app) << "more"; },
         before + "more"},
        {"shrinks", [](auto& path) { fs::resize_file(path, 1000); }, before.substr(0, 1000)},
        {"is written anew", [&](auto& path) { std::fstream(path) << other; }, other},
        {"is touched",
         [](auto& path) { fs::last_write_time(path, fs::file_time_type::clock::now()); }, before},
        {"gives way to another",
         [&](auto& path) {
             std::ofstream(path + "+") << other;
             fs::rename(path + "+", path);
         },
         other},
        {"disappears", [](auto& path) { fs::remove(path); }, "(none)"},
        {"becomes a pipe",
         [](auto& path) {
             fs::remove(path);
             EXPECT_EQ(::mkfifo(path.c_str(), 0666), 0);
         },
         "(none)"},
    };
    Subjects = {{"replaced", Version{before, kNoon + kHour}, Version{"old", kNoon}},
                {"new", Version{before, kNoon}, {}}};
    for (const auto& [changeName, make, after] : changes) {
        SCOPED_TRACE(changeName);
        std::map<std::string, long> looks;  // the last moment at which a path was looked at
        const auto change = [&, make = make](Moment&) {
            for (const Subject& subject : Subjects) make(Path("one/" + subject.Name));
        };
        const auto plan = [&](const Moment& now) {
            if (now.Call == SYS_newfstatat) looks[now.Text(1)] = now.Index;
            return BeforeCalls(now, change);
        };
        Disturb(Sync(), kEach, plan, [&, after = after](const TracedEnd& run, const Moment& at) {
            for (const auto& [name, one, two] : Subjects) {
                const std::string target = Content("two/" + name);
                EXPECT_TRUE(target == (two ? two->Content : "(none)") || target == before ||
                            target == after)
                    << "two/" << name << " is torn";
                // The last look at a source is the one at the result of its row.
                const bool changedAfterTheLook = at.Index >= looks.at(Path("one/" + name));
                const bool done = run.Output.find("OK -->\", \"path1\": \"" + One() + "/" + name) !=
                                  std::string::npos;
                EXPECT_TRUE(!done || changedAfterTheLook || target == Content("one/" + name))
                    << name;
            }
            for (const auto& entry : fs::directory_iterator(Two()))
                EXPECT_FALSE(entry.path().filename().string().starts_with("."));
        });
        if (HasFailure()) return;
    }
}

// What is there already stays.
void MoveInto(const fs::path& from, const fs::path& to) {
    for (const fs::directory_entry& entry : fs::directory_iterator(from)) {
        const fs::path target = to / entry.path().filename();
        if (!fs::exists(target))
            fs::rename(entry.path(), target);
        else if (entry.is_directory())
            MoveInto(entry.path(), target);
    }
}

// What is renamed away and back again can be looked at afterwards.
TEST_F(ChangingFiles, AFolderOrARootThatGoesAwayTakesNothingWithIt) {
    Subjects = {{"a/replaced", Version{"new", kNoon + kHour}, Version{"old", kNoon}},
                {"a/left", {}, Version{"1", kNoon}},
                {"a/right", Version{"2", kNoon}, {}},
                {"b/left", Version{"old", kNoon}, Version{"new", kNoon + kHour}},
                {"b/c/right", Version{"3", kNoon}, {}}};
    for (const std::string name : {"one/a", "two/a", "two/b", "one/b/c", "one", "two"}) {
        SCOPED_TRACE(name);
        const fs::path gone = Path(name);
        const fs::path away = Path("away");
        const auto moveAway = [&](Moment&) {
            std::error_code ignored;
            fs::rename(gone, away, ignored);
        };
        const auto plan = [&](const Moment& now) { return BeforeCalls(now, moveAway); };
        Disturb(Sync(), 70, plan, [&](const TracedEnd& run, const Moment&) {
            if (fs::exists(away)) {
                // What was made in its place belongs to it.
                if (fs::exists(gone)) MoveInto(gone, away);
                fs::remove_all(gone);
                fs::rename(away, gone);
            }
            ExpectWhole();
            EXPECT_EQ(run.Output.find("\"code\": 0,"), std::string::npos);
            ExpectNextSyncFinishes();
        });
        if (HasFailure()) return;
    }
}

TEST_F(ChangingFiles, ARootThatIsGoneBeforeItIsListedIsNamed) {
    Subjects = {{"a", Version{"a", kNoon}, {}}};
    for (const std::string& root : {One(), Two()}) {
        // The last moment: when the root is opened, having been found.
        const auto plan = [&](const Moment& now) {
            const bool opens = !now.After && now.Call == SYS_openat && now.Text(1) == root + "/";
            return opens ? Acts{[&](Moment&) { fs::rename(root, Path("away")); }} : Acts{};
        };
        Disturb(Sync(), 1, plan, [&](const TracedEnd& run, const Moment&) {
            EXPECT_NE(run.Error.find("cannot read folder '" + root + "/'"), std::string::npos)
                << run.Error;
        });
    }
}

}  // namespace
}  // namespace reliability
