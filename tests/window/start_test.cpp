// The window as it starts: its pair of folders, its place, its texts, its keyboard.
#include "window/window_fixture.h"

namespace window {

namespace {

class StartTest : public WindowTest {};

TEST_F(StartTest, TakesThePairOfTheCommandLine) {
    const struct {
        const char* CommandLine;
        const char* Folder1;
        const char* Folder2;
    } cases[] = {
        {"C:\\a , D:\\b", "C:\\a", "D:\\b"},
        {"\"C:\\with blanks\",  \"D:\\too\"", "C:\\with blanks", "D:\\too"},
        {"\"C:\\as one , D:\\argument\"", "C:\\as one", "D:\\argument"},
        {"C:\\a", "", ""},
        {"C:\\a,D:\\b,E:\\c", "", ""},
        {"", "", ""},
    };
    for (const auto& [commandLine, folder1, folder2] : cases) {
        SCOPED_TRACE(commandLine);
        const Program varnel(commandLine);
        const Seen box1 = varnel.Look("Combo1"), box2 = varnel.Look("Combo2");
        EXPECT_EQ(box1.Text, folder1);
        EXPECT_EQ(box2.Text, folder2);
        EXPECT_EQ(TextOf(box1.Window), folder1);
        EXPECT_EQ(TextOf(box2.Window), folder2);
    }
}

TEST_F(StartTest, StandsAboveTheMiddleOfTheScreen) {
    const Program varnel;
    const RECT area = varnel.Look("FormMain").Area;
    const int screenWidth = ::GetSystemMetrics(SM_CXSCREEN);
    const int screenHeight = ::GetSystemMetrics(SM_CYSCREEN);
    EXPECT_EQ(area.right - area.left, 15360 / 15);
    EXPECT_NEAR(area.bottom - area.top, 10000 / 15.0, 0.5);
    EXPECT_EQ(area.left, (screenWidth - 1024) / 2);
    EXPECT_NEAR(area.top, (screenHeight - 10000 / 15.0) / 2.4, 1);
}

TEST_F(StartTest, SaysHowToStart) {
    const Program varnel;
    EXPECT_EQ(varnel.Text("LabelTip1"),
              "How to start ?\r\nClick 'Browse' button to select the folder 1 and folder 2, then "
              "click 'Compare' button.");
    const std::pair<const char*, const char*> texts[] = {
        {"Command3", "Compare"},
        {"CheckSync", "sync after compare"},
        {"CheckShowPath1", "Show Path"},
        {"CheckShowPath2", "Show Path"},
        {"LabelNewFile", "New Files ( 0 )"},
        {"LabelChgFile", "Modified Files ( 0 )"},
        {"LabelNewChgFile", "New and Modified Files ( 0 )"},
        {"LabelAllFile", "Unchanged Files ( 0 )"},
        {"LabelFileFilter", "File Filter:  Sync all type of files."},
        {"LabelShow", ""},
        {"LabelTip", ""},
        {"TextFileName", ""},
    };
    for (const auto& [name, text] : texts) {
        EXPECT_EQ(varnel.Text(name), text) << name;
        EXPECT_TRUE(varnel.Shows(name)) << name;
    }
    for (const char* hidden : {"Command8", "Command9", "Command10", "Picture3", "lblComparing",
                               "CmdOpenFolder1", "CmdOpenFolder2"})
        EXPECT_FALSE(varnel.Shows(hidden)) << hidden;
    EXPECT_TRUE(varnel.Rows().empty());
}

TEST_F(StartTest, GridAndStopButtonsStandWhereTheyMust) {
    const Program varnel;
    POINT origin{};
    ::ClientToScreen(varnel.Window(), &origin);
    const RECT grid = varnel.Look("Picture2").Area;
    EXPECT_EQ(grid.top - origin.y, 1560 / 15);
    EXPECT_EQ(grid.left - origin.x, 120 / 15);
    for (const char* stop : {"Command8", "Command9", "Command10"})
        EXPECT_NEAR(varnel.Look(stop).Area.top - origin.y, 7100 / 15.0, 0.5) << stop;
    for (const int row : {0, 1, 24}) {
        const RECT cell = varnel.Look(Program::Cell("sFile1", row)).Area;
        EXPECT_NEAR(cell.top - grid.top, (260 + row * 240) / 15.0, 1.5) << row;
    }
}

TEST_F(StartTest, TabGoesFromLeftToRightAndDown) {
    const Program varnel;
    varnel.WaitForFocus("Combo1");
    for (const char* next :
         {"CommandBrowse1", "Combo2", "CommandBrowse2", "Command3", "CheckSync", "CheckShowPath1",
          "CheckShowPath2", "Command4", "Command5", "Command6", "TextFileName", "Combo1"}) {
        PressKey(VK_TAB);
        varnel.WaitForFocus(next);
    }
    PressKey(VK_TAB, {VK_SHIFT});
    varnel.WaitForFocus("TextFileName");
}

TEST_F(StartTest, SpaceAndEnterPressWhatHasTheKeyboard) {
    const Program varnel;
    varnel.Click("Combo2");
    varnel.WaitForFocus("Combo2");
    PressKey(VK_RETURN);  // in a folder box it compares
    EXPECT_EQ(Answer(varnel).Text, "Please enter 'Folder 1' !    ");
    varnel.WaitForFocus("Combo2");
    for (const char* next : {"CommandBrowse2", "Command3", "CheckSync"}) {
        PressKey(VK_TAB);
        varnel.WaitForFocus(next);
    }
    PressKey(VK_SPACE);
    varnel.WaitFor("CheckSync", "the tick", [](const Seen& box) { return box.Value == 1; });
    PressKey(VK_TAB, {VK_SHIFT});
    varnel.WaitForFocus("Command3");
    PressKey(VK_SPACE);
    EXPECT_EQ(Answer(varnel).Text, "Please enter 'Folder 1' !    ");
}

// A box and a button that rest while a command runs have the keyboard again afterwards.
TEST_F(StartTest, TheKeyboardStaysWhereItWas) {
    PutSmallPair();
    const Program varnel(Pair());
    varnel.WaitForFocus("Combo1");
    PressKey(VK_RETURN);
    varnel.WaitForText("LabelShow", "New and Modified Files:  5");
    varnel.WaitForFocus("Combo1");
    for (const char* next : {"CommandBrowse1", "Combo2", "CommandBrowse2", "Command3", "CheckSync",
                             "CheckShowPath1", "CheckShowPath2", "Command4", "Command5"}) {
        PressKey(VK_TAB);
        varnel.WaitForFocus(next);
    }
    PressKey(VK_SPACE);
    EXPECT_EQ(Answer(varnel).Kind, MessageKind::Information);
    varnel.WaitForFocus("Command5");
}

TEST_F(StartTest, MenusOpenByTheKeyboard) {
    const Program varnel;
    PressKey('H', {VK_MENU});
    PressKey('H');
    const ShownMessage help = Answer(varnel);
    EXPECT_EQ(help.Title, "Help Document");
    EXPECT_EQ(help.Kind, MessageKind::Information);
    EXPECT_TRUE(help.Text.starts_with("How to compare and sync folder ? \r\n\r\n   \r\nStep 1."))
        << help.Text;
    EXPECT_TRUE(help.Text.ends_with("no need to install.\r\n   ")) << help.Text;

    PressKey('H', {VK_MENU});
    PressKey(VK_UP);  // the last entry
    PressKey(VK_RETURN);
    const ShownMessage about = Answer(varnel);
    EXPECT_EQ(about.Kind, MessageKind::Information);
    EXPECT_TRUE(about.Text.starts_with("Varnel ,  Version 8.12")) << about.Text;

    PressKey('F', {VK_MENU});
    PressKey('X');
    EXPECT_EQ(varnel.WaitForEnd(), 0u);
}

TEST_F(StartTest, ClosesByItsCross) {
    const Program varnel;
    ::PostMessageW(varnel.Window(), WM_SYSCOMMAND, SC_CLOSE, 0);
    EXPECT_EQ(varnel.WaitForEnd(), 0u);
}

}  // namespace

}  // namespace window
