// Long runs: stopping them, closing during them, and that nothing else gets in between.
#include "window/window_fixture.h"

namespace window {

namespace {

// How many files a heading or a label speaks of.
int NumberIn(const std::string& text) {
    const std::size_t digit = text.find_first_of("0123456789");
    return digit == std::string::npos ? -1 : std::stoi(text.substr(digit));
}

class RunTest : public WindowTest {
  protected:
    void PutMany(int count, const char* content) const {
        for (int i = 0; i < count; ++i)
            Put("1/" + std::to_string(i / 100) + "/" + std::to_string(i), content);
    }
    // Returns with the program standing still in the middle of a comparison.
    static void PauseWithin(const Program& varnel) {
        varnel.Click("Command3");
        varnel.WaitForText("Command3", "Stop");
        varnel.Pause();
    }
    // The files in 2, each of which must be whole. A copy under way has a name of its own.
    int Copied(bool mayBeUnderWay) const {
        int copied = 0;
        for (const std::string& folder : Files.Names("2")) {
            for (const std::string& name : Files.Names("2/" + folder)) {
                if (mayBeUnderWay && name.starts_with(".varnel~")) continue;
                EXPECT_EQ(Files.Read("2/" + folder + "/" + name), "content") << folder << name;
                EXPECT_FALSE(name.starts_with(".varnel~")) << name;
                ++copied;
            }
        }
        return copied;
    }
    static constexpr int kToCompare = 8000, kToCopy = 800;
};

TEST_F(RunTest, AComparisonDropsOtherCommandsAndStops) {
    PutMany(kToCompare, "");
    const Program varnel(Pair());
    std::vector<POINT> places;
    for (const char* name : {"LabelNewFile", "LabelFileFilter", "CommandBrowse1", "Command4"})
        places.push_back(varnel.PlaceOf(name));
    const POINT stop = varnel.PlaceOf("Command3");
    const auto about = static_cast<WPARAM>(varnel.Look("mnuAbout").Value);
    for (const bool stopped : {true, false}) {
        PauseWithin(varnel);
        for (const POINT place : places) ClickAt(place);
        ::PostMessageW(varnel.Window(), WM_COMMAND, about, 0);
        if (stopped) ClickAt(stop);
        varnel.Resume();
        varnel.WaitFor("LabelShow", [&](const Seen& heading) {
            return stopped ? !heading.Text.empty() : NumberIn(heading.Text) == kToCompare;
        });
        varnel.WaitForText("Command3", "Compare");
        const int found = NumberIn(varnel.Text("LabelShow"));
        EXPECT_EQ(found < kToCompare, stopped);
        EXPECT_EQ(NumberIn(varnel.Text("LabelNewFile")), found);
        EXPECT_EQ(TopWindows(varnel.Id()).size(), 1u);
        EXPECT_TRUE(Files.Names("2").empty());
    }
    varnel.RunMenu("mnuAbout");
    EXPECT_TRUE(Answer(varnel).starts_with("information About Varnel: Varnel ,  Version 8.12"));
    PauseWithin(varnel);
    ::PostMessageW(varnel.Window(), WM_SYSCOMMAND, SC_CLOSE, 0);
    varnel.Resume();
    EXPECT_EQ(varnel.WaitForEnd(), 0u);
}

TEST_F(RunTest, ASyncShowsWhereItIsDropsOtherCommandsAndStops) {
    PutMany(kToCopy, "content");
    const Program varnel(Pair());
    varnel.Compare();
    varnel.Click("Command5");
    WaitUntil("some copies", [&] { return Copied(true) > 0; });
    varnel.Click("Command3");
    varnel.Click("LabelNewFile");
    varnel.RunMenu("mnuAbout");
    varnel.Click("sMAC(4)");
    RollWheelAt(varnel.PlaceOf("Picture2"), 1);
    const RECT row = varnel.Look("sFile1(7)").Area;
    MovePointer(MiddleOf(row));
    varnel.WaitForColor({row.left, row.top}, kHovered);
    EXPECT_FALSE(::IsHungAppWindow(varnel.Window()));
    EXPECT_TRUE(varnel.Shows("Command9")) << "the sync must still run";
    EXPECT_EQ(varnel.Text("Command3"), "Compare");
    EXPECT_EQ(varnel.Text("sTYPE(0)"), "1.");
    EXPECT_EQ(NumberIn(varnel.Text("LabelShow")), kToCopy);
    EXPECT_FALSE(varnel.Shows("Picture3"));
    EXPECT_EQ(TopWindows(varnel.Id()).size(), 1u);
    varnel.Click("Command9");
    EXPECT_EQ(Answer(varnel), "exclamation Varnel: Synchronization User Canceled.      ");
    const int copied = Copied(false);
    EXPECT_LT(copied, kToCopy);
    EXPECT_EQ(NumberIn(varnel.Text("LabelAllFile")), copied);
    EXPECT_FALSE(varnel.Shows("Command9"));
    varnel.Compare();
    EXPECT_EQ(NumberIn(varnel.Text("LabelNewFile")), kToCopy - copied);

    varnel.Click("Command4");
    WaitUntil("some copies", [&] { return Copied(true) > copied; });
    EXPECT_EQ(varnel.Close(), 0u);
    EXPECT_LT(Copied(false), kToCopy);
}

}  // namespace

}  // namespace window
