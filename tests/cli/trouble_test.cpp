// Folders that cannot be read, output that cannot be written, and interrupts; what a terminal
// shows.
#include <csignal>
#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "cli/cli_fixture.h"

namespace cli {
namespace {

using Trouble = CliTest;

TEST_F(Trouble, UnreadableFoldersAreNamedUpToTwentyAndTheRunGoesOn) {
    const std::string steering = "\x1b]0;t\x07\xe2\x80\xae";
    File("one/a", "a");
    for (int i = 0; i < 22; ++i) ::mkdir(("one/" + steering + std::to_string(i)).c_str(), 0);
    const Ended run = Cli("sync one two", {.First = BecomeNobody});
    EXPECT_EQ(run.Output, "--> OK -->    a\n");
    EXPECT_EQ(run.Status, 0);
    const Texts lines = Lines(run.Error);
    ASSERT_GT(lines.size(), 20u) << run.Error;
    EXPECT_TRUE(lines[19].starts_with("cannot read folder '" + One() + '/' + steering));
    EXPECT_TRUE(lines[19].ends_with("Permission denied")) << lines[19];
    EXPECT_EQ(lines[20], "cannot read 2 more folders");
    const std::string shown =
        Cli("compare -q one two", {.OnTerminal = {2}, .First = BecomeNobody}).Terminal;
    EXPECT_TRUE(shown.starts_with("\rComparing ...\r")) << "the countdown";
    EXPECT_NE(shown.find("\r             \r"), std::string::npos) << "wiped";
    EXPECT_EQ(shown.find_first_of("\x1b\x07\xe2"), std::string::npos) << shown;
}

TEST_F(Trouble, OutputThatCannotBeWrittenIsStatusTwoAndStopsNoSync) {
    void (*const spoilOutput[])() = {
        [] { ::dup2(::open("/dev/full", O_WRONLY), STDOUT_FILENO); },
        [] { ::close_range(STDIN_FILENO, STDERR_FILENO, 0); },  // files get these numbers
    };
    for (const char* arguments : {"compare -q --format=json one two", "sync --dry-run one two",
                                  "history list", "--help", "sync one two"})
        for (const auto& spoil : spoilOutput) {
            MakeRows();
            EXPECT_EQ(Cli(arguments, {.First = spoil}).Status, 2) << arguments;
        }
    EXPECT_EQ(Content("two/left.txt") + Content("one/changed.txt"), "122");
    EXPECT_EQ(Files("one").size() + Files("two").size(), 8u);
    EXPECT_EQ(Slot(0), One() + "==========" + Two() + "====================0");
}

// The system itself sends an interrupt when something in a folder is read (DN_ACCESS), made or
// renamed: so it comes at the same moment of every run. When the history is loaded there is nothing
// yet that could be stopped. A list with gaps would be taken for the whole one.
TEST_F(Trouble, AnInterruptStopsARunWhichPrintsWhatItFoundOrDidAndASecondOneEndsIt) {
    const std::string store = ".config/varnel/SOFTWARE/SystemInfoFolderCS1993/P0",
                      compared = "\"same\": 0, \"stopped\": true}}\n",
                      synced = R"("total": 1, "failed": 0, "stopped": true, "message": )"
                               R"("Synchronization User Canceled.      "}})"
                               "\n";
    const struct {
        int Signal;
        long At;
        std::string Folder, Arguments;
        int Status;
        std::string Output;
        std::size_t Copied = 0;
    } cases[] = {
        {SIGINT, DN_ACCESS, "one/sub", "compare one two --format=json", 130, compared},
        {SIGTERM, DN_ACCESS, store, "compare one two --format=json", 130, compared},
        {SIGINT, DN_ACCESS, "one/sub", "sync one two", 130, ""},
        {SIGINT, DN_ACCESS, "one/sub", "export new one two two/report", 130, ""},
        {SIGINT, DN_CREATE, "two", "sync one two --format=json", 130, synced, 1},
        {SIGINT, DN_CREATE | DN_RENAME | DN_MULTISHOT, "two", "sync one two", -SIGINT, "", 1},
    };
    SetSlot(0, "/a==========/b");
    File("one/a", "1");
    File("one/sub/b", "2");
    for (const auto& c : cases) {
        std::filesystem::remove_all("two");
        MakeFolder("two");
        const auto askForSignal = [&] {
            const int opened = ::open(c.Folder.c_str(), O_RDONLY);
            ::fcntl(opened, F_SETSIG, c.Signal);
            ::fcntl(opened, F_SETOWN, ::getpid());
            if (::fcntl(opened, F_NOTIFY, c.At) != 0) ::_exit(126);
        };
        const Ended run = Cli(c.Arguments, {.First = askForSignal});
        EXPECT_EQ(run.Status, c.Status) << c.Arguments;
        EXPECT_TRUE(run.Output.ends_with(c.Output)) << run.Output;
        EXPECT_EQ(Lines(run.Output).size(), c.Output.empty() ? 0u : 2u) << "a row and the summary";
        EXPECT_EQ(Files("two").size(), c.Copied) << c.Arguments;
    }
}

}  // namespace
}  // namespace cli
