// Interrupts during long runs, and the countdown on a terminal.
//
// The trees are folders of links to one folder, so that a big tree costs little to make. A run is
// caught in its middle by a terminal that takes nothing, or by looking at how far it has come,
// never by its duration. Where a run may be over before it is caught, the next tree is bigger.
#include <filesystem>

#include <signal.h>

#include "cli/cli_fixture.h"

namespace cli {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kFiles = 200;
constexpr std::size_t kMostLinks = 6400;

class Signals : public CliTest {
  protected:
    Signals() {
        for (std::size_t i = 0; i < kFiles; ++i) File("source/f" + std::to_string(i), "content");
    }

    // The files of "source" below "one", `links` times each; "two" is empty.
    void MakeBigTree(std::size_t links) const {
        for (const std::string folder : {"one", "two"}) {
            fs::remove_all(Path(folder));
            MakeFolder(folder);
        }
        for (std::size_t i = 0; i < links; ++i)
            fs::create_directory_symlink("../source", Path("one/" + std::to_string(i)));
    }

    std::size_t FilesInTwo() const {
        std::size_t count = 0;
        for (const auto& entry : fs::recursive_directory_iterator(Two()))
            count += entry.is_regular_file() ? 1 : 0;
        return count;
    }

    // A terminal that takes nothing lets the run come no farther than its first countdown.
    Launch UpToTheFirstCountdown(const std::string& arguments) const {
        Launch launch = Command(Words(arguments));
        launch.Error = Sink::Terminal;
        launch.TerminalStopped = true;
        return launch;
    }
    Ended InterruptedAtFirstCountdown(const std::string& arguments, int signal) const {
        Running running(UpToTheFirstCountdown(arguments));
        EXPECT_TRUE(running.WaitUntil([&] { return running.CatchesInterrupts(); }));
        running.Send(signal);
        running.ResumeTerminal();
        return running.Wait();
    }
};

TEST_F(Signals, StopAComparisonWhichThenPrintsWhatItFound) {
    bool stopped = false;
    for (std::size_t links = 400; !stopped && links <= kMostLinks; links *= 4) {
        MakeBigTree(links);
        Launch launch = Command(Words("compare one two"));
        launch.Error = Sink::Terminal;
        Running running(launch);
        running.WaitUntil([&] {
            return running.SoFar().Terminal.find_first_of("0123456789") != std::string::npos;
        });
        running.Send(SIGTERM);
        const Ended run = running.Wait();
        const Texts rows = Lines(run.Output);
        stopped = rows.size() < links * kFiles;
        if (!stopped) continue;
        EXPECT_EQ(run.Status, 130);
        EXPECT_GE(rows.size(), 1u);
        const std::string count = std::to_string(rows.size());
        EXPECT_EQ(ScreenAfter(run.Terminal),
                  (Texts{"New Files ( " + count + " )", "Modified Files ( 0 )",
                         "New and Modified Files ( " + count + " )", "Same Files ( 0 )"}));
    }
    EXPECT_TRUE(stopped);
}

// While the program loads its history, nothing that could be stopped runs yet.
TEST_F(Signals, OneThatComesBeforeTheComparisonIsNotForgotten) {
    constexpr int kSlots = 100;
    constexpr int kLongValue = 1 << 20;  // makes the loading last
    for (int slot = 0; slot < kSlots; ++slot)
        SetSlot(slot, std::string("/a==========/b").append(kLongValue, ' '));
    MakeBigTree(50);
    const Ended run = InterruptedAtFirstCountdown("compare --format=json one two", SIGINT);
    EXPECT_EQ(run.Status, 130);
    const Texts lines = Lines(run.Output);
    ASSERT_GE(lines.size(), 1u);
    EXPECT_LT(lines.size(), 50 * kFiles);
    EXPECT_EQ(lines.back(), R"({"summary": {"new": )" + std::to_string(lines.size() - 1) +
                                R"(, "modified": 0, "same": 0, "stopped": true}})");
}

TEST_F(Signals, DuringTheComparisonOfASyncOrAnExportNothingIsWritten) {
    MakeBigTree(50);
    Ended run = InterruptedAtFirstCountdown("sync one two", SIGINT);
    EXPECT_EQ(run.Status, 130);
    EXPECT_EQ(run.Output, "");
    EXPECT_TRUE(fs::is_empty(Two()));
    run = InterruptedAtFirstCountdown("export new one two report", SIGTERM);
    EXPECT_EQ(run.Status, 130);
    EXPECT_FALSE(Exists("report")) << "a list with gaps would be taken for the whole one";
}

TEST_F(Signals, StopASyncAfterTheFileInHand) {
    for (const std::string format : {"text", "json"}) {
        bool stopped = false;
        for (std::size_t links = 50; !stopped && links <= kMostLinks; links *= 4) {
            MakeBigTree(links);
            Running running(Command(Words("sync one two --format " + format)));
            ASSERT_TRUE(running.WaitUntil([&] { return !fs::is_empty(Two()); }));
            running.Send(SIGINT);
            const Ended run = running.Wait();
            const std::size_t done = FilesInTwo();
            stopped = done < links * kFiles;
            if (!stopped) continue;
            EXPECT_EQ(run.Status, 130);
            const Texts lines = Lines(run.Output);
            if (format == "text") {
                EXPECT_EQ(run.Error, "Synchronization User Canceled.\n");
                EXPECT_EQ(lines.size(), done) << "what was done is what was said";
                for (const std::string& line : lines)
                    EXPECT_EQ(Content("two/" + line.substr(14)), "content") << line;
            } else {
                EXPECT_EQ(lines.back(), R"({"summary": {"mode": "All", "total": )" +
                                            std::to_string(done) +
                                            R"(, "failed": 0, "stopped": true, "message": )" +
                                            R"("Synchronization User Canceled.      "}})");
            }
        }
        EXPECT_TRUE(stopped) << format;
    }
}

TEST_F(Signals, TheSecondOneEndsTheRunAtOnce) {
    MakeBigTree(50);
    Running running(UpToTheFirstCountdown("sync one two"));
    ASSERT_TRUE(running.WaitUntil([&] { return running.CatchesInterrupts(); }));
    running.Send(SIGINT);
    running.Send(SIGTERM);
    const Ended run = running.Wait();
    EXPECT_FALSE(run.TimedOut);
    EXPECT_NE(run.Signal, 0);
    EXPECT_EQ(run.Output, "");
}

TEST_F(Signals, TheCountdownIsShownOnATerminalAndWiped) {
    bool shown = false;
    for (std::size_t links = 100; !shown && links <= kMostLinks; links *= 4) {
        MakeBigTree(links);
        Launch launch = Command(Words("sync --dry-run -q one two"));
        EXPECT_EQ(Cli(launch).Error, "") << "no countdown in a pipe";
        launch.Error = Sink::Terminal;
        const Ended run = Cli(launch);
        EXPECT_EQ(ScreenAfter(run.Terminal), Texts());
        // A quick run ends before there is a number to show.
        shown = run.Terminal.find_first_of("0123456789") != std::string::npos;
    }
    EXPECT_TRUE(shown);
}

}  // namespace
}  // namespace cli
