// Folders that cannot be read, and output that cannot be written.
#include <filesystem>

#include "cli/cli_fixture.h"

namespace cli {
namespace {

namespace fs = std::filesystem;

using Trouble = CliTest;

TEST_F(Trouble, UnreadableFoldersAreNamedUpToTwentyAndTheRunGoesOn) {
    File("one/a", "a");
    OpenToAll();
    for (int i = 0; i < 22; ++i) {
        MakeFolder("one/locked" + std::to_string(i));
        fs::permissions(Path("one/locked" + std::to_string(i)), fs::perms(0));
    }
    Launch launch = Command(Words("sync one two"));
    launch.AsNobody = true;
    const Ended run = Cli(launch);
    EXPECT_EQ(run.Output, "--> OK -->    a\n");
    EXPECT_EQ(run.Status, 0);
    const Texts lines = Lines(run.Error);
    ASSERT_GT(lines.size(), 21u) << run.Error;
    for (int i = 0; i < 20; ++i) {
        EXPECT_TRUE(lines[i].starts_with("cannot read folder '" + One() + "/locked")) << lines[i];
        EXPECT_TRUE(lines[i].ends_with("Permission denied")) << lines[i];
    }
    EXPECT_EQ(lines[20], "cannot read 2 more folders");
    EXPECT_TRUE(lines[21].starts_with("Synchronization")) << run.Error;
}

TEST_F(Trouble, OutputThatCannotBeWrittenIsStatusTwo) {
    SetSlot(0, "/a==========/b");
    for (const char* arguments :
         {"compare one two", "compare -q --format=json one two", "sync --dry-run one two",
          "sync one two", "history list", "--help", "--version"}) {
        for (const Sink sink : {Sink::Closed, Sink::Full}) {
            MakeRows();
            Launch launch = Command(Words(arguments));
            launch.Output = sink;
            EXPECT_EQ(Cli(launch).Status, 2) << arguments << static_cast<int>(sink);
        }
    }
}

// A program that opens a file while a standard stream is closed gets that stream's number, and
// would write its messages into the file.
TEST_F(Trouble, ClosedStreamsNeverEndUpInFiles) {
    MakeRows();
    Launch launch = Command(Words("sync one two"));
    launch.Input = launch.Output = launch.Error = Sink::Closed;
    EXPECT_EQ(Cli(launch).Status, 2);
    for (const auto& [name, content] : Files(""))
        EXPECT_TRUE(content == "1" || content == "22" || name.starts_with("config")) << content;
    EXPECT_EQ(Content("one/changed.txt"), "22");
    EXPECT_EQ(Slot(0), One() + "==========" + Two() + "====================0");
}

}  // namespace
}  // namespace cli
