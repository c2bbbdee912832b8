// Interrupts, and the countdown on a terminal. The system itself sends an interrupt when the
// program does something in a folder: so it comes at the same moment of every run.
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include "cli/cli_fixture.h"

namespace cli {
namespace {

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
        return RunToEnd(launch);
    }
};

TEST_F(Signals, StopAComparisonWhichThenPrintsWhatItFound) {
    for (const int signal : {SIGINT, SIGTERM}) {
        const Ended run = RunInterrupted(DN_ACCESS, "one/sub", "compare one two", signal);
        EXPECT_EQ(run.Status, 130);
        EXPECT_EQ(run.Output, "Copy -->      a\n");
        EXPECT_TRUE(run.Error.starts_with("New Files ( 1 )\n")) << run.Error;
    }
    // When the history is loaded there is nothing yet that could be stopped.
    const Ended run = RunInterrupted(DN_ACCESS, "config/varnel/SOFTWARE/SystemInfoFolderCS1993/P0",
                                     "compare one two -q --format=json");
    EXPECT_EQ(run.Status, 130);
    EXPECT_EQ(run.Output, R"({"summary": {"new": 1, "modified": 0, "same": 0, "stopped": true}})"
                          "\n");
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
    Ended run = RunInterrupted(DN_CREATE, "two", "sync one two");
    EXPECT_EQ(run.Status, 130);
    EXPECT_EQ(run.Output, "--> OK -->    a\n");
    EXPECT_EQ(run.Error, "Synchronization User Canceled.\n");
    EXPECT_EQ(Files("two"), (std::map<std::string, std::string>{{"a", "1"}}));
    MakeFolder("two/sub");
    run = RunInterrupted(DN_CREATE, "two/sub", "sync one two -q --format=json");
    EXPECT_EQ(run.Output,
              R"({"summary": {"mode": "All", "total": 1, "failed": 0, "stopped": true, )"
              R"("message": "Synchronization User Canceled.      "}})"
              "\n");
}

TEST_F(Signals, TheSecondOneEndsTheRunAtOnce) {
    const Ended run = RunInterrupted(DN_CREATE | DN_RENAME | DN_MULTISHOT, "two", "sync one two");
    EXPECT_EQ(run.Signal, SIGINT);
    EXPECT_EQ(run.Output, "");
}

TEST_F(Signals, TheCountdownIsShownOnATerminalAndWiped) {
    const std::string shown = CliOnTerminal("sync --dry-run -q one two").Terminal;
    const std::string first = "\rComparing ...\r";
    EXPECT_TRUE(shown.starts_with(first)) << shown;
    EXPECT_EQ(shown.find_first_not_of("0123456789 \r", first.size()), std::string::npos) << shown;
    EXPECT_TRUE(shown.ends_with("\r             \r")) << shown;
    Expect("sync --dry-run -q one two", 0, "", "");
}

}  // namespace
}  // namespace cli
