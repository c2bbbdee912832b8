// Folders that cannot be read, output that cannot be written, interrupts, and the countdown.
#include <csignal>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "cli/cli_fixture.h"

namespace cli {
namespace {

using Trouble = CliTest;

TEST_F(Trouble, UnreadableFoldersAreNamedUpToTwentyAndTheRunGoesOn) {
    File("one/a", "a");
    OpenToAll();
    for (int i = 0; i < 22; ++i) ::mkdir((One() + "/locked" + std::to_string(i)).c_str(), 0);
    Launch launch = Command({"sync", "one", "two"});
    launch.AsNobody = true;
    const Ended run = Cli(launch);
    EXPECT_EQ(run.Output, "--> OK -->    a\n");
    EXPECT_EQ(run.Status, 0);
    const Texts lines = Lines(run.Error);
    ASSERT_GT(lines.size(), 21u) << run.Error;
    EXPECT_TRUE(lines[19].starts_with("cannot read folder '" + One() + "/locked")) << lines[19];
    EXPECT_TRUE(lines[19].ends_with("Permission denied")) << lines[19];
    EXPECT_EQ(lines[20], "cannot read 2 more folders");
    EXPECT_TRUE(lines[21].starts_with("Synchronization")) << run.Error;
}

TEST_F(Trouble, OutputThatCannotBeWrittenIsStatusTwoAndStopsNoSync) {
    void (*const spoilOutput[])() = {
        [] { ::dup2(::open("/dev/full", O_WRONLY), STDOUT_FILENO); },
        [] { ::close_range(STDIN_FILENO, STDERR_FILENO, 0); },  // files get these numbers
    };
    for (const char* arguments : {"compare -q --format=json one two", "sync --dry-run one two",
                                  "history list", "--help", "sync one two"}) {
        for (const auto& spoil : spoilOutput) {
            MakeRows();
            Launch launch = Command(Words(arguments));
            launch.First = spoil;
            EXPECT_EQ(Cli(launch).Status, 2) << arguments;
        }
    }
    using Contents = std::map<std::string, std::string>;
    EXPECT_EQ(
        Files("one"),
        (Contents{
            {"changed.txt", "22"}, {"left.txt", "1"}, {"same.jpg", "1"}, {"sub/right.txt", "22"}}));
    EXPECT_EQ(Slot(0), One() + "==========" + Two() + "====================0");
}

// The system itself sends an interrupt when the program does something in a folder: so it comes at
// the same moment of every run.
class Signals : public CliTest {
  protected:
    Signals() {
        File("one/a", "1");
        File("one/sub/b", "2");
    }

    // Something is read (DN_ACCESS), made or renamed in the folder.
    Ended RunInterrupted(long at, const std::string& folder, const std::string& arguments,
                         int signal = SIGINT) const {
        Launch launch = Command(Words(arguments));
        launch.First = [&] {
            const int opened = ::open(Path(folder).c_str(), O_RDONLY);
            ::fcntl(opened, F_SETSIG, signal);
            ::fcntl(opened, F_SETOWN, ::getpid());
            EXPECT_EQ(::fcntl(opened, F_NOTIFY, at), 0);
        };
        return Running(launch).Wait();
    }
};

// When the history is loaded there is nothing yet that could be stopped.
TEST_F(Signals, StopAComparisonWhichThenPrintsWhatItFound) {
    SetSlot(0, "/a==========/b");
    for (const auto& [folder, signal] :
         {std::pair{"one/sub", SIGINT},
          {"config/varnel/SOFTWARE/SystemInfoFolderCS1993/P0", SIGTERM}}) {
        const Ended run =
            RunInterrupted(DN_ACCESS, folder, "compare one two --format=json", signal);
        EXPECT_EQ(run.Status, 130) << folder;
        EXPECT_EQ(Lines(run.Output).size(), 2u) << "a row and the summary";
        EXPECT_TRUE(run.Output.ends_with(R"("modified": 0, "same": 0, "stopped": true}})"
                                         "\n"));
    }
}

TEST_F(Signals, DuringTheComparisonOfASyncOrAnExportNothingIsWritten) {
    for (const char* arguments : {"sync one two", "export new one two two/report"}) {
        const Ended run = RunInterrupted(DN_ACCESS, "one/sub", arguments);
        EXPECT_EQ(run.Status, 130) << arguments;
        EXPECT_EQ(run.Output, "") << arguments;
        EXPECT_TRUE(Files("two").empty()) << "A list with gaps would be taken for the whole one.";
    }
}

TEST_F(Signals, StopASyncAfterTheFileInHand) {
    const Ended run = RunInterrupted(DN_CREATE, "two", "sync one two --format=json");
    EXPECT_EQ(run.Status, 130);
    EXPECT_EQ(Lines(run.Output).size(), 2u) << "a row and the summary";
    EXPECT_NE(run.Output.find(R"("total": 1, "failed": 0, "stopped": true, "message": )"
                              R"("Synchronization User Canceled.      "}})"),
              std::string::npos);
    EXPECT_EQ(Files("two"), (std::map<std::string, std::string>{{"a", "1"}}));
}

TEST_F(Signals, TheSecondOneEndsTheRunAtOnce) {
    const Ended run = RunInterrupted(DN_CREATE | DN_RENAME | DN_MULTISHOT, "two", "sync one two");
    EXPECT_EQ(run.Signal, SIGINT);
    EXPECT_EQ(run.Output, "");
}

TEST_F(Signals, TheCountdownIsShownOnATerminalAndWiped) {
    const std::string shown = CliOnTerminal("sync --dry-run -q one two").Terminal;
    EXPECT_TRUE(shown.starts_with("\rComparing ...\r")) << shown;
    EXPECT_TRUE(shown.ends_with("\r             \r")) << shown;
}

}  // namespace
}  // namespace cli
