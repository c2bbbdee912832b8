// Long runs: stopping them, closing during them, and that nothing else gets in between.
#include <algorithm>

#include "window/window_fixture.h"

namespace window {

namespace {

// How many files a heading or a label speaks of.
int NumberIn(const std::string& text) {
    const std::size_t digit = text.find_first_of("0123456789");
    return digit == std::string::npos ? -1 : std::stoi(text.substr(digit));
}

// A comparison of many files; no test changes them.
class LongComparisonTest : public WindowTest {
  protected:
    static constexpr int kFiles = 12000;

    static void SetUpTestSuite() {
        tree_ = new fakes::TempFolder;
        for (int folder = 0; folder < kFiles / 100; ++folder)
            for (int file = 0; file < 100; ++file)
                tree_->WriteFile(std::to_string(folder) + "/" + std::to_string(file), "");
    }
    static void TearDownTestSuite() {
        delete tree_;
        tree_ = nullptr;
    }
    std::string LongPair() const { return tree_->Path() + " , " + Folder2(); }

    // Returns with the program standing still in the middle of a comparison.
    static void PauseWithin(const Program& varnel) {
        varnel.Click("Command3");
        varnel.WaitForText("Command3", "Stop");
        varnel.Pause();
    }
    static void WaitForResult(const Program& varnel) {
        varnel.WaitFor("LabelShow", "the result",
                       [](const Seen& heading) { return !heading.Text.empty(); });
        varnel.WaitForText("Command3", "Compare");
    }

    static inline fakes::TempFolder* tree_ = nullptr;
};

TEST_F(LongComparisonTest, StopKeepsWhatWasFound) {
    const Program varnel(LongPair());
    const POINT stop = varnel.PlaceOf("Command3");
    PauseWithin(varnel);
    ClickAt(stop);
    varnel.Resume();
    WaitForResult(varnel);
    const int found = NumberIn(varnel.Text("LabelShow"));
    EXPECT_LT(found, kFiles);
    EXPECT_EQ(NumberIn(varnel.Text("LabelNewFile")), found);
    EXPECT_TRUE(varnel.Shows("LabelAllFile"));
    EXPECT_FALSE(varnel.Shows("lblComparing"));

    varnel.Compare();
    EXPECT_EQ(varnel.Text("LabelNewFile"), "New Files ( " + std::to_string(kFiles) + " ) ");
    // Long lists are scrolled by whole pages.
    EXPECT_EQ(varnel.Look("VScroll1").Maximum, kFiles / 25 - 1);
    const RECT bar = varnel.Look("VScroll1").Area;
    ClickAt({(bar.left + bar.right) / 2, bar.bottom - (bar.right - bar.left) / 2});
    varnel.WaitForText("sTYPE(0)", "26.");
}

TEST_F(LongComparisonTest, ShowsThatItRuns) {
    const Program varnel(LongPair());
    PauseWithin(varnel);
    varnel.Resume();
    EXPECT_TRUE(varnel.Shows("lblComparing"));
    EXPECT_FALSE(varnel.Shows("LabelAllFile"));
    EXPECT_FALSE(::IsHungAppWindow(varnel.Window()));
    WaitForResult(varnel);
    EXPECT_EQ(varnel.Text("LabelShow"), "New and Modified Files:  " + std::to_string(kFiles));
}

TEST_F(LongComparisonTest, OtherCommandsAreDropped) {
    const Program varnel(LongPair());
    std::vector<POINT> places;
    for (const char* name : {"LabelNewFile", "LabelFileFilter", "CommandBrowse1", "Command4"})
        places.push_back(varnel.PlaceOf(name));
    std::vector<WPARAM> commands;
    for (const char* name :
         {"mnuAbout", "mnuClearProfile", "mnuExportNew", "mnuOpen", "mnuCompare"})
        commands.push_back(static_cast<WPARAM>(varnel.Look(name).Value));
    PauseWithin(varnel);
    for (const POINT place : places) ClickAt(place);
    for (const WPARAM command : commands) ::PostMessageW(varnel.Window(), WM_COMMAND, command, 0);
    varnel.Resume();
    WaitForResult(varnel);
    EXPECT_EQ(TopWindows(varnel.Id()).size(), 1u);
    EXPECT_TRUE(Files.Names("2").empty());
    varnel.RunMenu("mnuAbout");
    EXPECT_EQ(Answer(varnel).Title, "About Varnel");
}

TEST_F(LongComparisonTest, ClosingEndsIt) {
    const Program varnel(LongPair());
    PauseWithin(varnel);
    ::PostMessageW(varnel.Window(), WM_SYSCOMMAND, SC_CLOSE, 0);
    varnel.Resume();
    EXPECT_EQ(varnel.WaitForEnd(), 0u);
    EXPECT_NE(HistoryValue(0), "");
}

// Copies of many files.
class LongSyncTest : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        if (IsSkipped()) return;
        for (int i = 1000; i < 1000 + kFiles; ++i)
            Put("1/" + std::to_string(i % 50) + "/" + std::to_string(i), "content");
    }
    // The files in 2, each of which must be whole. A copy under way has a name of its own.
    int Copied() const {
        int copied = 0;
        for (const std::string& folder : Files.Names("2")) {
            for (const std::string& name : Files.Names("2/" + folder)) {
                if (name.starts_with(kUnderWay)) continue;
                EXPECT_EQ(Files.Read("2/" + folder + "/" + name), "content") << folder << name;
                ++copied;
            }
        }
        return copied;
    }
    void ExpectNothingUnderWay() const {
        for (const std::string& folder : Files.Names("2"))
            for (const std::string& name : Files.Names("2/" + folder))
                EXPECT_FALSE(name.starts_with(kUnderWay)) << name;
    }
    static constexpr const char* kUnderWay = ".varnel~";
    static constexpr int kFiles = 800;
};

TEST_F(LongSyncTest, StopLeavesWholeFiles) {
    const Program varnel(Pair());
    varnel.Compare();
    const struct {
        const char* Start;
        const char* Stop;
    } commands[] = {{"Command5", "Command9"}, {"Command4", "Command10"}};
    for (const auto& [start, stop] : commands) {
        SCOPED_TRACE(start);
        const int before = Copied();
        varnel.Click(start);
        varnel.WaitFor(stop, "shown", [](const Seen& button) { return button.Visible; });
        for (const char* hidden : {"Command4", "Command5", "Command6"})
            EXPECT_FALSE(varnel.Shows(hidden)) << hidden;
        WaitUntil("some copies", [&] { return Copied() > before; });
        EXPECT_FALSE(::IsHungAppWindow(varnel.Window()));
        varnel.Click(stop);
        EXPECT_EQ(Answer(varnel), (ShownMessage{MessageKind::Exclamation, "Varnel",
                                                "Synchronization User Canceled.      "}));
        varnel.WaitForQuiet();
        ExpectNothingUnderWay();
        EXPECT_LT(Copied(), kFiles);
        EXPECT_EQ(NumberIn(varnel.Text("LabelAllFile")), Copied() - before);
        EXPECT_EQ(NumberIn(varnel.Text("LabelNewChgFile")), 0);
        EXPECT_FALSE(varnel.Shows(stop));
        EXPECT_TRUE(varnel.Shows(start));
        varnel.Compare();
        EXPECT_EQ(NumberIn(varnel.Text("LabelNewFile")), kFiles - Copied());
    }
}

TEST_F(LongSyncTest, OnlyHoveringActsMeanwhile) {
    const Program varnel(Pair());
    varnel.Compare();
    varnel.Click("Command5");
    varnel.WaitFor("Command9", "shown", [](const Seen& button) { return button.Visible; });
    varnel.Click("Command3");
    varnel.Click("LabelNewFile");
    varnel.RunMenu("mnuAbout");
    varnel.Click("sMAC(4)");
    RollWheelAt(varnel.PlaceOf("Picture2"), 1);
    varnel.Point("sFile1(7)");
    varnel.WaitFor("sFile1(7)", "highlighted",
                   [](const Seen& cell) { return cell.Back == 0xFFFF80; });
    const RECT row = varnel.Look("sFile1(7)").Area;
    varnel.WaitForPicture([&](const ScreenPicture& picture) {  // and the screen follows
        return picture.At(row.left + 1, row.top + 1) == 0xFFFF80;
    });
    EXPECT_TRUE(varnel.Shows("Command9")) << "the sync must still run";
    EXPECT_EQ(varnel.Text("Command3"), "Compare");
    EXPECT_EQ(varnel.Text("sTYPE(0)"), "1.");
    EXPECT_TRUE(varnel.Text("LabelShow").starts_with("New and Modified Files:"));
    EXPECT_FALSE(varnel.Shows("Picture3"));
    EXPECT_EQ(TopWindows(varnel.Id()).size(), 1u);
    varnel.Click("Command9");
    EXPECT_EQ(Answer(varnel).Text, "Synchronization User Canceled.      ");
}

TEST_F(LongSyncTest, ClosingEndsItWithoutAMessage) {
    const Program varnel(Pair());
    varnel.Compare();
    varnel.Click("Command4");
    WaitUntil("some copies", [&] { return Copied() > 0; });
    ::PostMessageW(varnel.Window(), WM_SYSCOMMAND, SC_CLOSE, 0);
    EXPECT_EQ(varnel.WaitForEnd(), 0u);
    ExpectNothingUnderWay();
    EXPECT_GT(Copied(), 0);
    EXPECT_LT(Copied(), kFiles);
}

}  // namespace

}  // namespace window
