// Folders that cannot be read, and output that cannot be written.
#include <filesystem>

#include "cli/cli_fixture.h"

namespace cli {
namespace {

namespace fs = std::filesystem;

class Trouble : public CliTest {};

TEST_F(Trouble, UnreadableFoldersAreNamedUpToTwentyAndTheRunGoesOn) {
    constexpr int kLocked = 22;
    File("one/a", "a");
    for (int i = 0; i < kLocked; ++i) MakeFolder("one/locked" + std::to_string(i));
    OpenToAll();
    const auto setRights = [this](fs::perms rights) {
        for (int i = 0; i < kLocked; ++i)
            fs::permissions(Path("one/locked" + std::to_string(i)), rights);
    };
    setRights(fs::perms(0));
    Launch launch = Command(Words("compare one two"));
    launch.AsNobody = true;
    const Ended run = Cli(launch);
    launch.Arguments = Words("sync --format=json one two");
    const Ended synced = Cli(launch);
    setRights(fs::perms(0755));

    EXPECT_EQ(run.Output, "Copy -->      a\n");
    EXPECT_EQ(run.Status, 1);
    const Texts lines = Lines(run.Error);
    ASSERT_EQ(lines.size(), 25u) << run.Error;
    for (int i = 0; i < 20; ++i) {
        EXPECT_TRUE(lines[i].starts_with("cannot read folder '" + One() + "/locked")) << lines[i];
        EXPECT_TRUE(lines[i].ends_with("Permission denied")) << lines[i];
    }
    EXPECT_EQ(lines[20], "cannot read 2 more folders");
    EXPECT_EQ(Lines(synced.Error).size(), 21u) << synced.Error;
    EXPECT_EQ(synced.Status, 0);
    EXPECT_EQ(Content("two/a"), "a");
}

TEST_F(Trouble, OutputThatCannotBeWrittenIsStatusTwo) {
    MakeRows();
    ASSERT_EQ(Cli("compare one two").Status, 1);
    for (const std::string arguments :
         {"compare one two", "compare -q --format=json one two", "sync --dry-run one two",
          "sync one two", "history list", "--help", "--version"}) {
        for (const Sink sink : {Sink::Closed, Sink::Full}) {
            Launch launch = Command(Words(arguments));
            launch.Output = sink;
            EXPECT_EQ(Cli(launch).Status, 2) << arguments << static_cast<int>(sink);
            MakeRows();
        }
    }
}

// A program that opens a file while a standard stream is closed gets that stream's number, and
// would write its messages into the file.
TEST_F(Trouble, ClosedStreamsNeverEndUpInFiles) {
    for (const Sink output : {Sink::Closed, Sink::Pipe}) {
        for (const Sink error : {Sink::Closed, Sink::Pipe}) {
            MakeRows();
            Launch launch = Command(Words("sync one two"));
            launch.Input = Sink::Closed;
            launch.Output = output;
            launch.Error = error;
            Cli(launch);
            for (const auto& [name, content] : Files(""))
                EXPECT_TRUE(content == "1" || content == "22" || name.starts_with("config"))
                    << name << content;
            EXPECT_EQ(Content("one/changed.txt"), "22");
            EXPECT_EQ(Slot(0).find("OK"), std::string::npos);
        }
    }
}

}  // namespace
}  // namespace cli
