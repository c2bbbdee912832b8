// Folders that cannot be read, entries that are no files, and output that cannot be written.
#include <algorithm>
#include <cstring>
#include <filesystem>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include "cli/cli_fixture.h"
#include "cli/json_row.h"

namespace cli {
namespace {

namespace fs = std::filesystem;

class Trouble : public CliTest {
  protected:
    ~Trouble() override {
        for (const std::string& folder : locked_) fs::permissions(Path(folder), fs::perms(0755));
    }

    void Lock(const std::string& folder) {
        MakeFolder(folder);
        locked_.push_back(folder);
    }

    Ended AsNobody(Texts arguments) {
        OpenToAll();
        for (const std::string& folder : locked_) fs::permissions(Path(folder), fs::perms(0));
        arguments.insert(arguments.end(), {One(), Two()});
        Launch launch = Command(arguments);
        launch.AsNobody = true;
        return RunToEnd(launch);
    }

    static int NamedFolders(const std::string& error) {
        int count = 0;
        for (const std::string& line : Lines(error)) {
            count += line.find("cannot read folder '") != std::string::npos &&
                     line.find(std::strerror(EACCES)) != std::string::npos;
        }
        return count;
    }

  private:
    Texts locked_;
};

TEST_F(Trouble, AFolderThatCannotBeReadIsNamedAndTheRunGoesOn) {
    File("one/readable/a", "a");
    File("one/b", "b");
    File("one/locked/inside", "secret");
    Lock("one/locked");
    const Ended run = AsNobody({"compare"});
    EXPECT_EQ(SortedLines(run.Output), (Texts{"Copy -->      b", "Copy -->      readable/a"}));
    EXPECT_EQ(NamedFolders(run.Error), 1) << run.Error;
    EXPECT_NE(run.Error.find("'" + One() + "/locked"), std::string::npos) << run.Error;
    EXPECT_EQ(Lines(run.Error).size(), 5u) << run.Error;
    EXPECT_EQ(run.Status, 1);

    const Ended json = AsNobody({"compare", "--format=json"});
    EXPECT_EQ(Lines(json.Output).size(), 3u);
    EXPECT_EQ(NamedFolders(json.Error), 1) << json.Error;

    const Ended synced = AsNobody({"sync"});
    EXPECT_EQ(NamedFolders(synced.Error), 1) << synced.Error;
    EXPECT_EQ(synced.Status, 0);
    EXPECT_EQ(Content("two/readable/a"), "a");
}

TEST_F(Trouble, AtMostTwentyUnreadableFoldersAreNamedAndTheRestCounted) {
    for (int i = 0; i < 25; ++i) Lock("one/locked" + std::to_string(i));
    const Ended run = AsNobody({"compare", "-q"});
    EXPECT_EQ(NamedFolders(run.Error), 20) << run.Error;
    const Texts lines = Lines(run.Error);
    EXPECT_EQ(lines.size(), 25u) << run.Error;  // 20 names, the count, the summary
    EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                            [](const std::string& line) {
                                return line.find("locked") == std::string::npos &&
                                       line.find('5') != std::string::npos;
                            }),
              1);
    EXPECT_EQ(run.Status, 0);
}

TEST_F(Trouble, WhatIsNoFileIsARowThatFails) {
    fs::create_symlink("nowhere", Path("one/broken"));
    fs::create_symlink("round", Path("one/round"));
    ASSERT_EQ(::mkfifo(Path("one/pipe").c_str(), 0666), 0);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const std::string place = Path("one/socket");
    ASSERT_LT(place.size(), sizeof address.sun_path);
    place.copy(address.sun_path, place.size());
    ASSERT_EQ(::bind(socket, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    ::close(socket);
    File("one/whole", "whole");
    fs::create_symlink("whole", Path("one/link"));

    EXPECT_EQ(SortedLines(OnPair({"compare"}).Output),
              (Texts{"Copy -->      broken", "Copy -->      link", "Copy -->      pipe",
                     "Copy -->      round", "Copy -->      socket", "Copy -->      whole"}));
    const Ended run = OnPair({"sync"});
    EXPECT_EQ(SortedLines(run.Output),
              (Texts{"--> Fail -->  broken", "--> Fail -->  pipe", "--> Fail -->  round",
                     "--> Fail -->  socket", "--> OK -->    link", "--> OK -->    whole"}));
    EXPECT_EQ(run.Status, 1);
    EXPECT_EQ(Files("two"),
              (std::map<std::string, std::string>{{"link", "whole"}, {"whole", "whole"}}));
}

TEST_F(Trouble, APipeIsReadNeitherAsSourceNorAsTarget) {
    for (const std::string side : {"one/", "two/"}) {
        ASSERT_EQ(::mkfifo(Path(side + "both").c_str(), 0666), 0);
    }
    SetFileTime("one/both", kNoon);
    SetFileTime("two/both", kNoon + kHour);
    File("one/file", "newer", kNoon + kHour);
    ASSERT_EQ(::mkfifo(Path("two/file").c_str(), 0666), 0);
    SetFileTime("two/file", kNoon);
    const Ended run = OnPair({"sync"});
    EXPECT_FALSE(run.TimedOut);
    const Texts rows = SortedLines(run.Output);
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[1], "<-- Fail <--  both");
    EXPECT_EQ(run.Status, 1);
}

TEST_F(Trouble, LinksToFoldersAreFollowedButNotRoundInCircles) {
    File("one/real/a", "a");
    fs::create_directory_symlink("real", Path("one/link"));
    fs::create_directory_symlink("..", Path("one/real/up"));
    fs::create_directory_symlink(".", Path("one/here"));
    const Ended run = OnPair({"compare"});
    EXPECT_EQ(SortedLines(run.Output), (Texts{"Copy -->      link/a", "Copy -->      real/a"}));
}

TEST_F(Trouble, OutputThatCannotBeWrittenIsStatusTwo) {
    MakeOneOfEach();
    ASSERT_EQ(OnPair({"compare"}).Status, 1);
    const Texts cases[] = {
        {"compare", One(), Two()},
        {"compare", "--format=tsv", One(), Two()},
        {"compare", "-q", "--format=json", One(), Two()},
        {"sync", "--dry-run", One(), Two()},
        {"history", "list"},
        {"--help"},
        {"compare", "--help"},
        {"--version"},
    };
    for (const Texts& arguments : cases) {
        for (const Sink sink : {Sink::Closed, Sink::Full, Sink::NoReader}) {
            Launch launch = Command(arguments);
            launch.Output = sink;
            const Ended run = RunToEnd(launch);
            EXPECT_EQ(run.Status, 2)
                << arguments[0] << " " << static_cast<int>(sink) << " signal " << run.Signal;
        }
    }
}

// A program that opens a file while a standard stream is closed gets that stream's number, and
// would write its messages into the file.
TEST_F(Trouble, ClosedStreamsNeverEndUpInFiles) {
    for (const Sink output : {Sink::Closed, Sink::Pipe}) {
        for (const Sink error : {Sink::Closed, Sink::Full, Sink::Pipe}) {
            fs::remove_all(One());
            fs::remove_all(Two());
            MakeOneOfEach();
            File("one/large", std::string(1 << 20, 'x'));
            Launch launch = Command({"sync", "--view=new", One(), Two()});
            launch.Input = Sink::Closed;
            launch.Output = output;
            launch.Error = error;
            const Ended run = RunToEnd(launch);
            EXPECT_EQ(run.Signal, 0);
            for (const std::string root : {"one", "two"}) {
                for (const auto& [name, content] : Files(root)) {
                    EXPECT_EQ(content.find("Succeed"), std::string::npos) << root << name;
                    EXPECT_EQ(content.find("OK"), std::string::npos) << root << name;
                }
            }
            EXPECT_TRUE(!Exists("two/large") || Content("two/large") == std::string(1 << 20, 'x'));
            EXPECT_EQ(Content("two/changed.txt"), "newer");
        }
    }
}

}  // namespace
}  // namespace cli
