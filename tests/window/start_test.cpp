// Starting and ending, the keyboard and the menus.
#include <array>

#include "window/window_fixture.h"

namespace window {
namespace {

using StartTest = WindowTest;

TEST_F(StartTest, TakesThePairOfTheCommandLine) {
    const std::array<const char*, 3> cases[] = {
        {"\"C:\\with blanks\",  \"D:\\too\"", "C:\\with blanks", "D:\\too"},
        {"\"C:\\as one , D:\\argument\"", "C:\\as one", "D:\\argument"},
    };
    for (const auto& [commandLine, folder1, folder2] : cases) {
        const Program varnel(commandLine);
        EXPECT_EQ(varnel.Text("Combo1"), folder1);
        EXPECT_EQ(varnel.Text("Combo2"), folder2);
        varnel.Click("Command3");
        EXPECT_EQ(Answer(varnel), "critical Varnel: Folder 1 did not exist!    ");
        EXPECT_EQ(varnel.Close(), 0u);
    }
}

TEST_F(StartTest, TheKeyboardReachesEverythingAndStaysWhereItWas) {
    PutSmallPair();
    const Program varnel(Pair());
    PressKey(VK_RETURN);  // compares; the box of the first folder rests meanwhile
    varnel.WaitFor("LabelShow", &Seen::Text, "New and Modified Files:  5");
    varnel.WaitForFocus("Combo1");
    for (const char* name :
         {"CommandBrowse1", "Combo2", "CommandBrowse2", "Command3", "CheckSync", "CheckShowPath1",
          "CheckShowPath2", "Command4", "Command5", "Command6"}) {
        PressKey(VK_TAB);
        varnel.WaitForFocus(name);
    }
    PressKey(VK_TAB, VK_SHIFT);
    varnel.WaitForFocus("Command5");
    PressKey(VK_SPACE);  // synchronises; the button is hidden meanwhile
    Answer(varnel);
    varnel.WaitForFocus("Command5");
}

TEST_F(StartTest, MenusOpenByTheKeyboard) {
    const Program varnel;
    ::PostMessageW(varnel.Window(), WM_SYSCHAR, 'h', 1 << 29);  // Alt+H
    PressKey('H');
    const std::string help = Answer(varnel);
    EXPECT_TRUE(help.starts_with("information Help Document: How to compare")) << help;
    varnel.WaitForQuiet();
    PressKey(VK_F10);
    PressKey('F');
    PressKey('X');
    EXPECT_EQ(varnel.WaitForEnd(), 0u);
}

}  // namespace
}  // namespace window
