// Trees in which a path is not what it seems: something else where files should come, links and
// second names, roots inside each other, hostile names.
#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "cli/cli_fixture.h"

namespace reliability {
namespace {

namespace fs = std::filesystem;
using cli::kHour;
using cli::kNoon;
using Contents = std::map<std::string, std::string>;

class OddPlaces : public cli::CliTest {};

TEST_F(OddPlaces, WhatIsInTheWayOfAFileStaysAndThatRowFails) {
    const std::string ways[] = {"folder", "link", "link to folder", "link to nothing"};
    for (const std::string& way : ways) File("one/" + way, "new", kNoon + kHour);
    File("one/file", "new", kNoon + kHour);
    File("two/folder/inside", "old");
    File("outside/file", "old");
    MakeFolder("outside/folder");
    fs::create_symlink("../outside/file", Path("two/link"));
    fs::create_symlink("../outside/folder", Path("two/link to folder"));
    fs::create_symlink("../outside/nothing", Path("two/link to nothing"));
    const std::string output = Cli("sync one two --mode=left").Output;
    EXPECT_EQ(cli::Lines(output).size(), 5u) << output;
    EXPECT_NE(output.find("--> OK -->    file\n"), std::string::npos) << output;
    for (const std::string& way : ways)
        EXPECT_NE(output.find("--> Fail -->  " + way + '\n'), std::string::npos) << output;
    EXPECT_EQ(Files("outside"), (Contents{{"file", "old"}}));
    EXPECT_EQ(Content("two/folder/inside"), "old");
    for (const std::string& way : {ways[1], ways[2], ways[3]})
        EXPECT_TRUE(fs::is_symlink(Path("two/" + way))) << way;
}

// A link to a folder is that folder: a row below it names what is reached through it.
TEST_F(OddPlaces, ThroughALinkToAFolderOnlyTheRowsOwnFileIsWritten) {
    File("one/link/new", "new");
    File("one/link/both", "newer", kNoon + kHour);
    File("outside/both", "older");
    File("outside/kept", "kept");
    fs::create_symlink("../outside", Path("two/link"));
    EXPECT_EQ(Cli("sync one two --mode=left").Status, 0);
    EXPECT_EQ(Files("outside"), (Contents{{"both", "newer"}, {"kept", "kept"}, {"new", "new"}}));
    EXPECT_TRUE(fs::is_symlink(Path("two/link")));
}

TEST_F(OddPlaces, OtherNamesAndHoldersOfAReplacedFileKeepIt) {
    File("one/x", "new", kNoon + kHour);
    File("two/x", "old");
    fs::create_hard_link(Path("two/x"), Path("other name"));
    const int held = ::open(Path("two/x").c_str(), O_RDWR);
    EXPECT_EQ(Cli("sync one two").Status, 0);
    EXPECT_EQ(Content("other name"), "old");
    EXPECT_EQ(::pwrite(held, "OLD", 3, 0), 3);
    ::close(held);
    EXPECT_EQ(Content("other name"), "OLD");
    EXPECT_EQ(Content("two/x"), "new");
}

TEST_F(OddPlaces, HostileNamesReachNothingOutside) {
    const cli::Texts names = {"..\\..\\outside",
                              "C:\\outside",
                              "\\\\host\\share",
                              "...",
                              "$(touch outside)",
                              "~",
                              "*",
                              "-rf",
                              "..\xc0\xaf..\xc0\xaf",
                              ".varnel~",
                              "\x1b]0;title\x07"};
    for (const std::string& name : names) {
        File("one/" + name, "1");
        File("two/" + name + "+/" + name, "2");
    }
    EXPECT_EQ(Cli("sync one two").Status, 0);
    EXPECT_EQ(Files("one"), Files("two"));
    EXPECT_EQ(Files("one").size(), 2 * names.size());
    const fs::directory_iterator around(Path(""));
    EXPECT_EQ(std::distance(begin(around), end(around)), 3) << "one, two and config";
}

TEST_F(OddPlaces, MessagesDoNotSteerATerminalEither) {
    const std::string name = "one/\x1b]0;t\x07\r\nall is well\xe2\x80\xae";
    MakeFolder(name);
    OpenToAll();
    fs::permissions(Path(name), fs::perms(0));
    cli::Launch launch = Command({"compare", "-q", "one", "two"});
    launch.AsNobody = true;
    EXPECT_NE(Cli(launch).Error.find(name), std::string::npos) << "a file gets the bytes";
    launch.Error = cli::Sink::Terminal;
    const std::string shown = Cli(launch).Terminal;
    for (const std::string steering : {"\x1b", "\x07", "\nall", "\xe2\x80\xae"})
        EXPECT_EQ(shown.find(steering), std::string::npos) << shown;
    EXPECT_NE(shown.find("all is well"), std::string::npos) << shown;
}

// Where the roots lie in each other each sync has a finite list: it was made before the first copy.
TEST_F(OddPlaces, ARootInsideTheOtherOneEnds) {
    for (const char* sync : {"sync one one/in", "sync one/in one"}) {
        fs::remove_all(One());
        for (const std::string name : {"a", "in/b", "in/sub/c"})
            File("one/" + name, name.substr(name.size() - 1));
        std::size_t files = 3;
        for (int round = 0; round < 3; ++round) {
            EXPECT_EQ(Cli(sync).Status, 0) << sync;
            const Contents now = Files("one");
            EXPECT_LE(now.size(), 3 * files + 3) << "round " << round;
            files = now.size();
            for (const auto& [name, content] : now) EXPECT_TRUE(name.ends_with(content)) << name;
        }
    }
}

TEST_F(OddPlaces, NoFileIsCopiedOntoItself) {
    File("one/a", "a");
    fs::create_symlink("one", Path("link"));
    fs::create_hard_link(Path("one/a"), Path("two/a"));
    for (const std::string second : {"link", "one/.", "two/../one", "two"}) {
        EXPECT_EQ(Cli("sync one " + second).Output, "");
        Cli("sync --view=same --direction a=right one " + second);  // turned by hand
        EXPECT_EQ(Files("one"), (Contents{{"a", "a"}})) << second;
        EXPECT_TRUE(fs::equivalent(Path("one/a"), Path("two/a"))) << second;
    }
}

}  // namespace
}  // namespace reliability
