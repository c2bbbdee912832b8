// Trees in which a path is not what it seems: folders where files should come, links and second
// names, roots inside each other, loops and depths, hostile names.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "reliability/own_mounts.h"
#include "reliability/pair_test.h"

namespace reliability {
namespace {

namespace fs = std::filesystem;
using cli::kHour;
using cli::kNoon;
using cli::Texts;

class OddPlaces : public PairTest {
  protected:
    void SetUp() override {}

    cli::Ended RunSync(const std::string& option = "--mode=double") const {
        return Run({"sync", option, One(), Two()});
    }
    bool SameFile(const std::string& a, const std::string& b) const {
        return fs::equivalent(Path(a), Path(b));
    }
};

TEST_F(OddPlaces, WhatIsInTheWayOfARowStaysAndTheRowFails) {
    struct Case {
        const char* Name;
        std::function<void(const std::string& target)> Make;
    };
    const Case cases[] = {
        {"a folder with a file", [&](auto&) { File("two/x/inside", "inside"); }},
        {"an empty folder", [&](auto&) { MakeFolder("two/x"); }},
        {"a link to a file outside", [&](auto& x) { fs::create_symlink(Path("outside/f"), x); }},
        {"a link to nothing outside", [&](auto& x) { fs::create_symlink(Path("outside/n"), x); }},
        {"a link to a folder", [&](auto& x) { fs::create_directory_symlink(Path("outside"), x); }},
        {"a link to the source", [&](auto& x) { fs::create_symlink(Path("one/x"), x); }},
        {"a link to itself", [&](auto& x) { fs::create_symlink("x", x); }},
        {"a pipe", [](auto& x) { EXPECT_EQ(::mkfifo(x.c_str(), 0666), 0); }},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.Name);
        for (const char* folder : {"one", "two", "outside"}) fs::remove_all(Path(folder));
        File("one/x", "new", kNoon + kHour);
        File("one/z", "goes on");
        File("outside/f", "outside", kNoon);
        MakeFolder("two");
        test.Make(Path("two/x"));
        const Texts outside = State("outside");
        const auto kind = fs::symlink_status(Path("two/x")).type();
        const cli::Ended run = RunSync("--mode=left");
        EXPECT_EQ(run.Output.find("OK -->    x\n"), std::string::npos) << run.Output;
        EXPECT_NE(run.Output.find("--> OK -->    z\n"), std::string::npos) << run.Output;
        EXPECT_EQ(State("outside"), outside);
        EXPECT_EQ(fs::symlink_status(Path("two/x")).type(), kind);
        EXPECT_EQ(Content("one/x"), "new");
        EXPECT_EQ(RunSync().Output.find("OK -->    x\n"), std::string::npos) << "both ways";
        EXPECT_EQ(Content("one/x"), "new");
    }
}

// A link to a folder is that folder: a row below it names what is reached through it.
TEST_F(OddPlaces, ThroughALinkToAFolderOnlyTheRowsOwnFileIsWritten) {
    File("one/link/new", "new");
    File("one/link/both", "newer", kNoon + kHour);
    File("outside/both", "older");
    File("outside/kept", "kept", kNoon);
    fs::create_directory_symlink(Path("outside"), Path("two/link"));
    EXPECT_EQ(RunSync("--mode=left").Status, 0);
    EXPECT_EQ(Files("outside"), (std::map<std::string, std::string>{
                                    {"both", "newer"}, {"kept", "kept"}, {"new", "new"}}));
    EXPECT_TRUE(fs::is_symlink(Path("two/link")));
}

TEST_F(OddPlaces, OtherNamesOfAReplacedFileKeepItsOldContent) {
    File("one/x", "new", kNoon + kHour);
    File("two/x", "old");
    fs::create_hard_link(Path("two/x"), Path("two/same time"));
    File("one/same time", "old");
    fs::create_hard_link(Path("two/x"), Path("outside"));
    EXPECT_EQ(RunSync().Status, 0);
    EXPECT_EQ(Content("two/x"), "new");
    EXPECT_EQ(Content("two/same time"), "old");
    EXPECT_EQ(Content("outside"), "old");
}

TEST_F(OddPlaces, WhoHoldsATargetOpenGoesOnReadingTheOldFile) {
    File("one/x", "new", kNoon + kHour);
    File("two/x", "old");
    const int held = ::open(Path("two/x").c_str(), O_RDWR);
    ASSERT_EQ(RunSync().Status, 0);
    char bytes[8] = {};
    EXPECT_EQ(::pread(held, bytes, sizeof bytes, 0), 3);
    EXPECT_STREQ(bytes, "old");
    EXPECT_EQ(::pwrite(held, "OLD", 3, 0), 3);
    ::close(held);
    EXPECT_EQ(Content("two/x"), "new");
}

TEST_F(OddPlaces, HostileNamesReachNothingOutside) {
    const Texts names = {"..\\..\\outside\\f",
                         "C:\\outside",
                         "\\\\host\\share",
                         "...",
                         ".. ",
                         "~",
                         "$HOME",
                         "`touch outside`",
                         "$(touch outside)",
                         "-rf",
                         "*",
                         "%2e%2e%2f",
                         "..\xc0\xaf..\xc0\xaf"
                         "f",
                         "\x1b]0;title\x07",
                         "\xe2\x80\xaegnp.exe",
                         ".varnel~",
                         ".varnel~1234567",
                         ".varnel~1234567g",
                         ".varnel~123456789"};
    File("outside/f", "outside");
    for (const std::string& name : names) {
        File("one/" + name, "1");
        File("two/" + name + "+/" + name, "2");
    }
    const Texts outside = State("outside");
    EXPECT_EQ(RunSync().Status, 0);
    EXPECT_EQ(Files("one"), Files("two"));
    EXPECT_EQ(Files("one").size(), 2 * names.size());
    EXPECT_EQ(State("outside"), outside);
    Texts around;
    for (const auto& entry : fs::directory_iterator(Path("")))
        around.push_back(entry.path().filename());
    std::sort(around.begin(), around.end());
    EXPECT_EQ(around, (Texts{"config", "one", "outside", "two"}));
}

TEST_F(OddPlaces, MessagesDoNotSteerATerminalEither) {
    const std::string name = "\x1b]0;t\x07\r\nall is well\xe2\x80\xae";
    File("one/" + name + "/f", "");
    OpenToAll();
    fs::permissions(Path("one/" + name), fs::perms(0));
    cli::Launch launch = Command({"compare", "-q", One(), Two()});
    launch.AsNobody = true;
    const std::string raw = RunToEnd(launch).Error;
    EXPECT_NE(raw.find("one/" + name), std::string::npos) << "a file gets the bytes";
    launch.Error = cli::Sink::Terminal;
    const std::string shown = RunToEnd(launch).Terminal;
    for (const std::string steering : {"\x1b", "\x07", "\nall", "\xe2\x80\xae"})
        EXPECT_EQ(shown.find(steering), std::string::npos) << shown;
    EXPECT_NE(shown.find("all is well"), std::string::npos) << shown;
    fs::permissions(Path("one/" + name), fs::perms(0755));
}

// Where the roots lie in each other each sync has a finite list: it was made before the first copy.
TEST_F(OddPlaces, ARootInsideTheOtherOneEnds) {
    for (const bool firstIsInside : {false, true}) {
        for (const char* folder : {"one", "two"}) fs::remove_all(Path(folder));
        File("one/a", "a");
        File("one/in/b", "b");
        File("one/in/sub/c", "c");
        const std::string outer = One();
        const std::string inner = Path("one/in");
        const Texts roots = firstIsInside ? Texts{inner, outer} : Texts{outer, inner};
        std::size_t files = 3;
        for (int round = 0; round < 3; ++round) {
            const cli::Ended run = Run({"sync", roots[0], roots[1]});
            EXPECT_EQ(run.Status, 0) << run.Output << run.Error;
            const auto now = Files("one");
            EXPECT_LE(now.size(), 3 * files + 3) << "round " << round;
            files = now.size();
            for (const auto& [name, content] : now)
                EXPECT_EQ(content, name.substr(name.size() - 1)) << name;
        }
    }
}

TEST_F(OddPlaces, OneFolderByTwoNamesHasNothingToDo) {
    const auto expectNothing = [this](const std::string& second) {
        const Texts before = State("one");
        const cli::Ended run = Run({"sync", "--format=json", One(), second});
        EXPECT_EQ(run.Status, 0) << second << run.Error;
        EXPECT_NE(run.Output.find("\"total\": 0,"), std::string::npos) << second << run.Output;
        EXPECT_EQ(State("one"), before) << second;
        // Rows turned by hand copy no file onto itself.
        const cli::Ended forced = Run({"sync", "--view=same", "--direction", "a=right",
                                       "--direction", "sub/b=left", One(), second});
        EXPECT_EQ(State("one"), before) << second << forced.Output << forced.Error;
    };
    File("one/a", "a");
    File("one/sub/b", "b");
    fs::create_directory_symlink("one", Path("link"));
    expectNothing(Path("link"));
    expectNothing(Path("one") + "/.");
    expectNothing(Path("two/../one"));
    const Held held = HoldsWithOwnMounts([&] {
        MakeFolder("again");
        ASSERT_TRUE(MountAgain(One(), Path("again")));
        expectNothing(Path("again"));
    });
    EXPECT_NE(held, Held::No);
}

TEST_F(OddPlaces, HardLinkedFilesAreNotCopiedOntoThemselves) {
    File("one/a", "a");
    fs::create_hard_link(Path("one/a"), Path("two/a"));
    Run({"sync", "--view=same", "--direction=a=right", One(), Two()});
    EXPECT_TRUE(SameFile("one/a", "two/a"));
    EXPECT_EQ(Content("two/a"), "a");
}

}  // namespace
}  // namespace reliability
