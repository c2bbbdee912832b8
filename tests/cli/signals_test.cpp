// Interrupts during long runs, and the countdown on a terminal.
//
// The trees are folders of links to one folder, so that a big tree costs little to make. A run is
// caught in its middle by holding it still (a stopped process, or a terminal that takes nothing)
// and looking at how far it has come, never by its duration.
#include <filesystem>

#include <signal.h>

#include "cli/cli_fixture.h"

namespace cli {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kSummaryLines = 4;
constexpr std::size_t kFiles = 200;

bool HasDigit(const std::string& text) {
    return text.find_first_of("0123456789") != std::string::npos;
}

class Signals : public CliTest {
  protected:
    // kFiles files below `relative`, `links` times each.
    void MakeBigTree(const std::string& relative, std::size_t links) const {
        if (!Exists("source")) {
            for (std::size_t i = 0; i < kFiles; ++i)
                File("source/f" + std::to_string(i), "content");
        }
        fs::remove_all(Path(relative));
        MakeFolder(relative);
        for (std::size_t i = 0; i < links; ++i) {
            fs::create_directory_symlink(Path("source"), Path(relative + "/" + std::to_string(i)));
        }
    }

    std::size_t FilesIn(const std::string& relative) const {
        std::size_t count = 0;
        std::error_code ignored;
        for (const auto& entry : fs::recursive_directory_iterator(Path(relative), ignored)) {
            count += entry.is_regular_file(ignored) ? 1 : 0;
        }
        return count;
    }

    // A terminal that takes nothing lets the run come no farther than its first countdown.
    Ended InterruptedAtFirstCountdown(const Texts& arguments, int signal) const {
        Launch launch = Command(arguments);
        launch.Error = Sink::Terminal;
        launch.TerminalStopped = true;
        Running running(launch);
        EXPECT_TRUE(running.WaitUntil([&] { return running.CatchesInterrupts(); }));
        running.Send(signal);
        running.ResumeTerminal();
        return running.Wait();
    }

    void ExpectStoppedSync(const Ended& run, const std::string& format, std::size_t files) const {
        EXPECT_EQ(run.Status, 130);
        Texts rows = Lines(run.Output);
        if (format == "json") {
            ASSERT_FALSE(rows.empty());
            const std::string summary = rows.back();
            rows.pop_back();
            EXPECT_EQ(summary, "{\"summary\": {\"mode\": \"All\", \"total\": " +
                                   std::to_string(rows.size()) +
                                   ", \"failed\": 0, \"stopped\": true, \"message\": "
                                   "\"Synchronization User Canceled.      \"}}");
        } else {
            EXPECT_EQ(Lines(run.Error), (Texts{"Synchronization User Canceled."}));
            for (const std::string& row : rows) {
                EXPECT_EQ(row.substr(0, 14), "--> OK -->    ") << row;
                EXPECT_EQ(Content("two/" + row.substr(14)), "content") << row;
            }
        }
        EXPECT_GE(rows.size(), 1u);
        EXPECT_LT(rows.size(), files);
        EXPECT_EQ(FilesIn("two"), rows.size()) << "what was done is what was said";
    }
};

TEST_F(Signals, StopAComparisonWhichThenPrintsWhatItFound) {
    for (const int signal : {SIGINT, SIGTERM}) {
        bool caught = false;
        for (std::size_t links = 400; !caught && links <= 6400; links *= 4) {
            MakeBigTree("one", links);
            Launch launch = Command({"compare", One(), Two()});
            launch.Error = Sink::Terminal;
            Running running(launch);
            running.WaitUntil([&] { return HasDigit(running.SoFar().Terminal); });
            running.Send(signal);
            const Ended run = running.Wait();
            const Texts rows = Lines(run.Output);
            if (rows.size() == links * kFiles) continue;  // over before it could be stopped
            caught = true;
            EXPECT_EQ(run.Status, 130) << signal;
            EXPECT_GE(rows.size(), 1u);
            EXPECT_TRUE(run.Output.ends_with('\n'));
            const Texts screen = ScreenAfter(run.Terminal);
            ASSERT_EQ(screen.size(), kSummaryLines) << run.Terminal;
            EXPECT_EQ(screen[0], "New Files ( " + std::to_string(rows.size()) + " )");
        }
        EXPECT_TRUE(caught);
    }
}

TEST_F(Signals, TheSummarySaysThatTheRunWasStopped) {
    MakeBigTree("one", 50);
    const Ended run =
        InterruptedAtFirstCountdown({"compare", "--format=json", One(), Two()}, SIGINT);
    EXPECT_EQ(run.Status, 130);
    const Texts lines = Lines(run.Output);
    ASSERT_GE(lines.size(), 1u);
    EXPECT_LT(lines.size(), 50 * kFiles);
    EXPECT_EQ(lines.back(), "{\"summary\": {\"new\": " + std::to_string(lines.size() - 1) +
                                ", \"modified\": 0, \"same\": 0, \"stopped\": true}}");
}

// While the program loads its history, nothing that could be stopped runs yet.
TEST_F(Signals, OneThatComesBeforeTheComparisonIsNotForgotten) {
    constexpr int kSlots = 100;
    constexpr int kLongValue = 1 << 20;  // makes the loading last
    for (int slot = 0; slot < kSlots; ++slot) {
        SetSlot(slot, "/a==========/b" + std::to_string(slot));
        fs::resize_file(Store() + "/P" + std::to_string(slot) + "/default", kLongValue);
    }
    MakeBigTree("one", 50);
    const Ended run = InterruptedAtFirstCountdown({"compare", One(), Two()}, SIGINT);
    EXPECT_EQ(run.Status, 130);
    EXPECT_LT(Lines(run.Output).size(), 50 * kFiles);
}

TEST_F(Signals, DuringTheComparisonOfASyncOrAnExportNothingIsWritten) {
    MakeBigTree("one", 50);
    Ended run = InterruptedAtFirstCountdown({"sync", One(), Two()}, SIGINT);
    EXPECT_EQ(run.Status, 130);
    EXPECT_EQ(run.Output, "");
    EXPECT_TRUE(fs::is_empty(Two()));
    run = InterruptedAtFirstCountdown({"export", "new", One(), Two(), Path("report")}, SIGTERM);
    EXPECT_EQ(run.Status, 130);
    EXPECT_FALSE(Exists("report")) << "a list with gaps would be taken for the whole one";
}

TEST_F(Signals, StopASyncAfterTheFileInHand) {
    for (const int signal : {SIGINT, SIGTERM}) {
        const std::string format = signal == SIGINT ? "text" : "json";
        bool caught = false;
        // Should a run be over before it could be held, the next tree is bigger.
        for (std::size_t links = 50; !caught && links <= 800; links *= 4) {
            MakeBigTree("one", links);
            fs::remove_all(Two());
            MakeFolder("two");
            Running running(Command({"sync", "--format", format, One(), Two()}));
            ASSERT_TRUE(running.WaitUntil([&] { return !fs::is_empty(Two()); }));
            caught = running.Freeze() && FilesIn("two") < links * kFiles;
            running.Send(signal);
            running.Thaw();
            const Ended run = running.Wait();
            if (caught) ExpectStoppedSync(run, format, links * kFiles);
        }
        EXPECT_TRUE(caught);
    }
}

TEST_F(Signals, TheSecondOneEndsTheRunAtOnce) {
    constexpr int kLinks = 200;
    MakeBigTree("one", kLinks);
    Running running(Command({"sync", One(), Two()}));
    ASSERT_TRUE(running.WaitUntil([&] { return !fs::is_empty(Two()); }));
    ASSERT_TRUE(running.Freeze());
    running.Send(SIGINT);
    running.Send(SIGTERM);  // both are delivered before the next step of the program
    running.Thaw();
    const Ended run = running.Wait();
    EXPECT_NE(run.Status, 0);
    EXPECT_EQ(run.Output, "");
    EXPECT_EQ(run.Error, "");
    for (const auto& entry : fs::recursive_directory_iterator(Two())) {
        const std::string name = entry.path().filename();
        if (entry.is_regular_file() && name[0] != '.') {
            EXPECT_EQ(entry.file_size(), 7u) << "whole, or under another name";
        }
    }
}

TEST_F(Signals, TheCountdownIsShownOnATerminalAndWiped) {
    bool counted = false;
    for (std::size_t links = 400; !counted && links <= 6400; links *= 4) {
        MakeBigTree("one", links);
        Launch launch = Command({"compare", "-q", One(), Two()});
        launch.Error = Sink::Terminal;
        const Ended run = RunToEnd(launch);
        EXPECT_EQ(run.Status, 1);
        const std::string rows = std::to_string(links * kFiles);
        EXPECT_EQ(ScreenAfter(run.Terminal),
                  (Texts{"New Files ( " + rows + " )", "Modified Files ( 0 )",
                         "New and Modified Files ( " + rows + " )", "Same Files ( 0 )"}));
        // A quick run ends before there is a number to show.
        counted = HasDigit(run.Terminal.substr(0, run.Terminal.find("New Files")));

        launch.Error = Sink::Pipe;
        EXPECT_EQ(Lines(RunToEnd(launch).Error).size(), kSummaryLines) << "no countdown in a pipe";
    }
    EXPECT_TRUE(counted);
}

TEST_F(Signals, TheCountdownOfASyncIsWipedToo) {
    MakeBigTree("one", 10);
    Launch launch = Command({"sync", One(), Two()});
    launch.Error = Sink::Terminal;
    EXPECT_EQ(ScreenAfter(RunToEnd(launch).Terminal),
              (Texts{"Synchronization  'New and Modified Files'  completed.", "",
                     "Succeed:   2000  Files."}));
    File("one/more", "");
    File("two/more", "", kNoon + kHour);
    launch.Arguments = {"sync", "--view=same", One(), Two()};
    EXPECT_EQ(ScreenAfter(RunToEnd(launch).Terminal),
              (Texts{"No new / modified file need to be synchronized."}));
}

}  // namespace
}  // namespace cli
