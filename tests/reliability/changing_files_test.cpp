// Somebody changes the files while they are synchronised: a source, at every moment of the run; a
// folder or a whole root that goes away.
#include <filesystem>
#include <functional>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "cli/json_row.h"
#include "reliability/pair_test.h"

namespace reliability {
namespace {

namespace fs = std::filesystem;
using cli::kHour;
using cli::kNoon;
using cli::Texts;

struct Change {
    std::string Name;
    std::function<void(const std::string& path)> Make;
    std::string After;  // what the path then holds
};

void Write(const std::string& path, int flags, const std::string& bytes) {
    const int file = ::open(path.c_str(), O_WRONLY | flags, 0644);
    EXPECT_EQ(::write(file, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    ::close(file);
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

class ChangingFiles : public PairTest {
  protected:
    // Runs a sync for every `step`-th call on files that an undisturbed one makes, with `change`
    // made before that call. `examine` looks at what each left.
    void AtCalls(long step, const std::function<void()>& prepare,
                 const std::function<void()>& change,
                 const std::function<void(const TracedEnd&, const std::string&)>& examine) {
        prepare();
        long calls = 0;
        Traced(Sync(), [&](const Moment& now, const TracedMemory&) {
            calls += !now.After && ConcernsFiles(now.Call);
            return Fate::Go();
        });
        EXPECT_GT(calls, 50);
        for (long call = 0; call < calls && !HasFailure(); call += step * kStride) {
            prepare();
            examined_ = changedAfterIt_ = false;
            long met = 0;
            const TracedEnd run = Traced(Sync(), [&](const Moment& now, const TracedMemory& text) {
                if (now.After || !ConcernsFiles(now.Call)) return Fate::Go();
                // Only the look at the results names a target by its whole path.
                examined_ = examined_ || (now.Call == SYS_newfstatat &&
                                          text.Text(now.Arguments[1]).starts_with(Path("two/new")));
                if (met++ == call) {
                    changedAfterIt_ = examined_;
                    change();
                }
                return Fate::Go();
            });
            const std::string where = "before call " + std::to_string(call);
            EXPECT_EQ(run.Signal, 0) << where;
            EXPECT_TRUE(run.Status >= 0 && run.Status <= 2) << where << run.Status;
            examine(run, where);
        }
    }

    bool ChangedAfterTheLook() const { return changedAfterIt_; }

  private:
    bool examined_ = false;  // the results of the sync were looked at
    bool changedAfterIt_ = false;
};

constexpr std::size_t kSize = 140'000;

TEST_F(ChangingFiles, ASourceIsCopiedAsItWasOrAsItIsOrNotAtAll) {
    const std::string before = Bytes(kSize, 'A');
    const std::string other = Bytes(kSize, 'a');
    const Change changes[] = {
        {"grows", [&](auto& path) { Write(path, O_APPEND, "more"); }, before + "more"},
        {"shrinks", [](auto& path) { EXPECT_EQ(::truncate(path.c_str(), 1000), 0); },
         before.substr(0, 1000)},
        {"is written anew", [&](auto& path) { Write(path, 0, other); }, other},
        {"is touched",
         [](auto& path) { EXPECT_EQ(::utimensat(AT_FDCWD, path.c_str(), nullptr, 0), 0); }, before},
        {"disappears", [](auto& path) { fs::remove(path); }, "(none)"},
        {"gives way to another",
         [&](auto& path) {
             Write(path + "+", O_CREAT, other);
             fs::rename(path + "+", path);
         },
         other},
        {"becomes a folder",
         [](auto& path) {
             fs::remove(path);
             fs::create_directory(path);
         },
         "(none)"},
        {"becomes a pipe",
         [](auto& path) {
             fs::remove(path);
             EXPECT_EQ(::mkfifo(path.c_str(), 0666), 0);
         },
         "(none)"},
    };
    Subjects = {{"replaced", Version{before, kNoon + kHour}, Version{"old", kNoon}},
                {"new", Version{before, kNoon}, {}}};
    for (const Change& change : changes) {
        SCOPED_TRACE(change.Name);
        AtCalls(
            1, [this] { MakePair(); },
            [&] {
                for (const Subject& subject : Subjects) change.Make(Path("one/" + subject.Name));
            },
            [&](const TracedEnd& run, const std::string& where) {
                for (const Subject& subject : Subjects) {
                    const std::string name = subject.Name;
                    const std::string target = Content("two/" + name);
                    const std::string old = subject.Two ? subject.Two->Content : "(none)";
                    EXPECT_TRUE(target == old || target == before || target == change.After)
                        << where << ": two/" << name << " is torn";
                    const bool done = run.Output.find("OK -->\", \"path1\": \"" + One() + "/" +
                                                      name) != std::string::npos;
                    if (done && !ChangedAfterTheLook()) {
                        EXPECT_TRUE(target == Content("one/" + name)) << where << name;
                    }
                }
                for (const auto& entry : fs::directory_iterator(Two()))
                    EXPECT_FALSE(entry.path().filename().string().starts_with(".")) << where;
            });
        if (HasFailure()) return;
    }
}

// What is renamed away and back again can be looked at afterwards.
TEST_F(ChangingFiles, AFolderOrARootThatGoesAwayTakesNothingWithIt) {
    Subjects = {{"a/replaced", Version{"new", kNoon + kHour}, Version{"old", kNoon}},
                {"a/left", {}, Version{"1", kNoon}},
                {"a/right", Version{"2", kNoon}, {}},
                {"b/left", Version{"old", kNoon}, Version{"new", kNoon + kHour}},
                {"b/c/right", Version{"3", kNoon}, {}}};
    for (const std::string gone : {"one/a", "two/a", "two/b", "one/b/c", "one", "two"}) {
        SCOPED_TRACE(gone);
        AtCalls(
            3,
            [&] {
                fs::remove_all(Path("away"));
                MakePair();
            },
            [&] {
                std::error_code ignored;
                fs::rename(Path(gone), Path("away"), ignored);
            },
            [&](const TracedEnd& run, const std::string& where) {
                // What was made in its place belongs to it.
                if (fs::exists(Path("away"))) {
                    if (fs::exists(Path(gone))) MoveInto(Path(gone), Path("away"));
                    fs::remove_all(Path(gone));
                    fs::rename(Path("away"), Path(gone));
                }
                ExpectWhole(where);
                EXPECT_EQ(run.Output.find("\"code\": 0,"), std::string::npos) << where;
                ExpectNextSyncFinishes(where);
            });
        if (HasFailure()) return;
    }
}

TEST_F(ChangingFiles, ARootThatIsGoneBeforeItIsListedIsNamed) {
    Subjects = {{"a", Version{"a", kNoon}, {}}};
    for (const std::string gone : {"one", "two"}) {
        MakePair();
        fs::remove_all(Path("away"));
        // The last moment: when the root is opened, having been found.
        const TracedEnd run = Traced(Sync(), [&](const Moment& now, const TracedMemory& text) {
            if (!now.After && now.Call == SYS_openat &&
                text.Text(now.Arguments[1]) == Path(gone) + "/" && fs::exists(Path(gone)))
                fs::rename(Path(gone), Path("away"));
            return Fate::Go();
        });
        EXPECT_NE(run.Error.find("cannot read folder '" + Path(gone) + "/'"), std::string::npos)
            << run.Error;
        EXPECT_EQ(run.Output.find("OK"), std::string::npos) << run.Output;
    }
}

}  // namespace
}  // namespace reliability
