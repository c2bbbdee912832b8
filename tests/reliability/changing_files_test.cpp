// Somebody changes the files while they are synchronised: a source, at every moment of the run; a
// folder or a whole root that goes away.
#include <cstdlib>

#include <sys/syscall.h>

#include "reliability/pair_test.h"

namespace reliability {
namespace {

class ChangingFiles : public PairTest {
  protected:
    static void Shell(const std::string& commands) {
        EXPECT_EQ(std::system(commands.c_str()), 0) << commands;
    }
    // The same before each call.
    static std::vector<Act> ShellBefore(const Moment& now, const std::string& commands) {
        if (now.After) return {};
        return {[commands](Moment&) { Shell(commands); }};
    }
};

TEST_F(ChangingFiles, ASourceIsCopiedAsItWasOrAsItIsOrNotAtAll) {
    const std::string before = Bytes(140'000, 'A');
    Before = {{"one/replaced", {kNoon + kHour, before}},
              {"two/replaced", {kNoon, "old"}},
              {"one/new", {kNoon, before}}};
    const std::pair<std::string, std::string> targets[] = {{"replaced", "old"}, {"new", "(none)"}};
    File("other", Bytes(140'000, 'a'));
    for (const std::string change :
         {"echo more >>$f", "truncate -s 1000 $f", "touch $f", "cp other $f",
          "cp other another && mv another $f", "rm $f", "rm $f && mkfifo $f"}) {
        SCOPED_TRACE(change);
        std::map<std::string, long> looks;  // the last moment at which a path was looked at
        const auto plan = [&](const Moment& now) {
            if (now.Call == SYS_newfstatat) looks[now.Path] = std::max(looks[now.Path], now.Index);
            return ShellBefore(now, "for f in one/*; do " + change + "; done");
        };
        Disturb(Sync(), kEach, plan, [&](const cli::Ended& run, const Moment& at) {
            for (const auto& [name, old] : targets) {
                const std::string source = Content("one/" + name), target = Content("two/" + name);
                const std::string path = Path("one/" + name);
                EXPECT_TRUE(target == old || target == before || target == source) << name;
                // The last look at a source is the one at the result of its row.
                const bool changedAfterTheLook = at.Index >= looks.at(path);
                const bool done =
                    run.Output.find("OK -->\", \"path1\": \"" + path) != run.Output.npos;
                EXPECT_TRUE(!done || changedAfterTheLook || target == source) << name;
            }
            for (const auto& [name, content] : Files("two")) EXPECT_NE(name[0], '.') << name;
        });
        if (HasFailure()) return;
    }
}

// What is renamed away and back again can be looked at afterwards. What was made in its place
// belongs to it; what is there already stays.
TEST_F(ChangingFiles, AFolderOrARootThatGoesAwayTakesNothingWithIt) {
    const Version old{kNoon, "old"}, recent{kNoon + kHour, "new"};
    Before = {{"one/a/replaced", recent}, {"two/a/replaced", old}, {"two/a/left", old},
              {"one/a/right", old},       {"one/b/left", old},     {"two/b/left", recent},
              {"one/b/c/right", old}};
    for (const std::string gone : {"one/a", "two/a", "two/b", "one/b/c", "one", "two"}) {
        SCOPED_TRACE(gone);
        const auto plan = [&](const Moment& now) {
            return ShellBefore(now, "if [ -e " + gone + " ]; then mv " + gone + " away; fi");
        };
        Disturb(Sync(), 70, plan, [&](const cli::Ended& run, const Moment&) {
            Shell("if [ -e away ]; then mkdir -p " + gone + " && cp -an " + gone +
                  "/. away && rm -r " + gone + " && mv away " + gone + "; fi");
            ExpectWhole();
            EXPECT_EQ(run.Output.find("\"code\": 0,"), std::string::npos);
            ExpectNextSyncFinishes();
        });
        if (HasFailure()) return;
    }
}

TEST_F(ChangingFiles, ARootThatIsGoneBeforeItIsListedIsNamed) {
    Before = {{"one/a", {kNoon, "a"}}};
    for (const std::string& root : {One(), Two()}) {
        // The last moment: when the root is opened, having been found.
        const auto plan = [&](const Moment& now) {
            const bool opens = now.Call == SYS_openat && now.Path == root + "/";
            return opens ? ShellBefore(now, "rm -r " + root) : std::vector<Act>();
        };
        Disturb(Sync(), 1, plan, [&](const cli::Ended& run, const Moment&) {
            EXPECT_NE(run.Error.find("cannot read folder '" + root + "/'"), run.Error.npos)
                << run.Error;
        });
    }
}

}  // namespace
}  // namespace reliability
