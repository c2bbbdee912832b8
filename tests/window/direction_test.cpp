// The panel that gives one row another direction.
#include "window/window_fixture.h"

namespace window {

namespace {

class DirectionTest : public WindowTest {
  protected:
    // Opens the panel of a row that shows `mark`.
    static void Open(const Program& varnel, int row) {
        varnel.Click(Program::Cell("sMAC", row));
        varnel.WaitFor("Picture3", "open", [](const Seen& panel) { return panel.Visible; });
    }
    static void WaitUntilClosed(const Program& varnel) {
        varnel.WaitFor("Picture3", "closed", [](const Seen& panel) { return !panel.Visible; });
    }
    static void Choose(const Program& varnel, int row, const char* option) {
        Open(varnel, row);
        varnel.Set(option);
        varnel.Click("Command2");
        WaitUntilClosed(varnel);
    }
    static Texts TextsOf(const Program& varnel, const std::vector<const char*>& names) {
        Texts texts;
        for (const char* name : names) texts.push_back(varnel.Text(name));
        return texts;
    }
};

TEST_F(DirectionTest, OpensBelowTheRowAndAboveItFromTheFifteenthOn) {
    for (int i = 10; i < 40; ++i) Put("1/new" + std::to_string(i), "content");
    const Program varnel(Pair());
    varnel.Compare();
    POINT origin{};
    ::ClientToScreen(varnel.Window(), &origin);
    for (const int row : {0, 13, 14, 24}) {
        SCOPED_TRACE(row);
        Open(varnel, row);
        const int top = 260 + row * 240 + (row < 14 ? 2040 : -540);  // twips
        const RECT panel = varnel.Look("Picture3").Area;
        const RECT cell = varnel.Look(Program::Cell("sMAC", row)).Area;
        EXPECT_NEAR(panel.top - origin.y, top / 15.0, 1);
        if (row < 14)
            EXPECT_GE(panel.top, cell.bottom);
        else
            EXPECT_LE(panel.bottom, cell.top);
        RECT window;
        ::GetClientRect(varnel.Window(), &window);
        EXPECT_LE(panel.bottom - origin.y, window.bottom);
        varnel.WaitForPicture([&](const ScreenPicture& picture) {  // in front of the grid
            return picture.At(panel.left + 4, panel.top + 4) == ::GetSysColor(COLOR_BTNFACE);
        });
        varnel.Click("Command7");
        WaitUntilClosed(varnel);
    }
}

TEST_F(DirectionTest, ShowsBothFilesOfAModifiedPair) {
    PutSmallPair();
    const Program varnel(Pair());
    varnel.Compare();
    Open(varnel, 3);
    EXPECT_EQ(TextsOf(varnel, {"TextN1", "TextN2", "LabelN11", "LabelN21", "LabelN12", "LabelN22",
                               "LabelN13", "LabelN23", "LabelN14", "LabelN24", "Option1", "Option2",
                               "Option3"}),
              (Texts{Folder1() + "\\chg-left.txt", Folder2() + "\\chg-left.txt", "Older", "Newer",
                     kOlderText, kNewerText, "Larger", "Smaller", "3  byte", "13  byte",
                     "Replace File 2 with File 1 -->", "Replace File 1 with File 2 <--",
                     "Do not sync"}));  // sizes are compared as texts
    EXPECT_TRUE(varnel.Look("Option2").Value);
    EXPECT_TRUE(varnel.Look("Option1").Enabled);
    // Another row's label fills the same panel again.
    varnel.Click("sMAC(2)");
    varnel.WaitForText("TextN2", Folder2() + "\\only2.txt");
    EXPECT_EQ(TextsOf(varnel, {"TextN1", "LabelN11", "LabelN21", "LabelN12", "LabelN22", "LabelN14",
                               "LabelN24", "Option1", "Option2"}),
              (Texts{"", "", "New", "", kOlderText, "", "8  byte", "Copy File 1 to Folder 2 -->",
                     "Copy File 2 to Folder 1 <--"}));
    EXPECT_FALSE(varnel.Look("Option1").Enabled);
    EXPECT_TRUE(varnel.Look("Option2").Value);
}

TEST_F(DirectionTest, EveryChoiceIsWrittenIntoTheRow) {
    PutSmallPair();
    const Program varnel(Pair());
    varnel.Compare();
    const struct {
        int Row;
        const char* Option;
        const char* Mark;
    } choices[] = {
        {3, "Option1", "Replace -->"}, {3, "Option3", "---/---/---"}, {3, "Option2", "<-- Replace"},
        {0, "Option3", "---/---/---"}, {0, "Option1", "Copy -->"},    {2, "Option3", "---/---/---"},
        {2, "Option2", "<-- Copy"},    {4, "Option2", "<-- Replace"},
    };
    for (const auto& [row, option, mark] : choices) {
        SCOPED_TRACE(option);
        Choose(varnel, row, option);
        EXPECT_EQ(varnel.Text(Program::Cell("sMAC", row)), mark) << row;
    }
    // Made in the joined view, a choice is not written into the lists that it was joined from.
    varnel.Click("LabelChgFile");
    varnel.WaitForText("LabelShow", "Modified Files:  2");
    EXPECT_EQ(varnel.Text("sMAC(1)"), "Replace -->");
    // The other way round it is.
    Choose(varnel, 0, "Option3");
    varnel.Click("LabelNewChgFile");
    varnel.WaitForText("LabelShow", "New and Modified Files:  5");
    EXPECT_EQ(varnel.Text("sMAC(3)"), "---/---/---");
}

TEST_F(DirectionTest, CancelEscAndEnter) {
    PutSmallPair();
    const Program varnel(Pair());
    varnel.Compare();
    Open(varnel, 3);
    varnel.Set("Option3");
    varnel.Click("Command7");
    WaitUntilClosed(varnel);
    EXPECT_EQ(varnel.Text("sMAC(3)"), "<-- Replace");

    Open(varnel, 3);
    varnel.WaitForFocus("Option2");
    PressKey(VK_DOWN);
    varnel.WaitFor("Option3", "chosen", [](const Seen& option) { return option.Value; });
    PressKey(VK_ESCAPE);
    WaitUntilClosed(varnel);
    EXPECT_EQ(varnel.Text("sMAC(3)"), "<-- Replace");

    Open(varnel, 3);
    varnel.WaitForFocus("Option2");
    PressKey(VK_UP);
    varnel.WaitFor("Option1", "chosen", [](const Seen& option) { return option.Value; });
    PressKey(VK_RETURN);
    WaitUntilClosed(varnel);
    EXPECT_EQ(varnel.Text("sMAC(3)"), "Replace -->");
}

TEST_F(DirectionTest, ASameFileCanBeReplacedToo) {
    PutSmallPair();
    const Program varnel(Pair());
    varnel.Compare();
    varnel.Click("LabelAllFile");
    varnel.WaitForText("LabelShow", "Same Files:  1");
    Open(varnel, 0);
    EXPECT_EQ(TextsOf(varnel, {"LabelN11", "LabelN21", "LabelN13", "LabelN23"}),
              (Texts{"", "", "", ""}));
    EXPECT_TRUE(varnel.Look("Option3").Value);
    varnel.Set("Option2");
    varnel.Click("Command2");
    varnel.WaitForText("sMAC(0)", "<-- Replace");
}

TEST_F(DirectionTest, AViewThatIsLeftTakesThePanelAlong) {
    PutSmallPair();
    const Program varnel(Pair());
    varnel.Compare();
    Open(varnel, 3);
    varnel.Click("LabelNewFile");
    WaitUntilClosed(varnel);
}

TEST_F(DirectionTest, ResultsOfASyncDoNotOpenIt) {
    PutSmallPair();
    const Program varnel(Pair());
    varnel.Compare();
    varnel.Click("Command5");
    Answer(varnel);
    ASSERT_EQ(varnel.Text("sMAC(0)"), "--> OK -->");
    varnel.Click("sMAC(0)");
    varnel.WaitFor("sTYPE(0)", "selected", [](const Seen& cell) { return cell.Back == 0x008000; });
    EXPECT_FALSE(varnel.Shows("Picture3"));
}

}  // namespace

}  // namespace window
