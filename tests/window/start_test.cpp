// Starting and ending, the keyboard and the menus.
#include "window/window_fixture.h"

namespace window {
namespace {

using StartTest = WindowTest;

TEST_F(StartTest, TakesThePairOfTheCommandLine) {
    for (const char* line :
         {"\"C:\\a größe 日本\",  \"D:\\too\"", "\"C:\\a größe 日本 , D:\\too\""}) {
        const Program varnel(line);
        EXPECT_EQ(varnel.Ask("Combo1"), "C:\\a größe 日本");
        EXPECT_EQ(varnel.Ask("Combo2"), "D:\\too");
        varnel.Click("Command3");
        EXPECT_EQ(Answer(), "Varnel: Folder 1 did not exist!    ");
    }
}

TEST_F(StartTest, TheKeyboardReachesEverything) {
    PutSmallPair();
    const Program varnel(Pair());
    PressKey(VK_RETURN);  // compares; the box of the first folder rests meanwhile
    varnel.WaitFor("LabelShow", "New and Modified Files:  5");
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
    Answer();
    varnel.WaitForFocus("Command5");
    PressKey(VK_F10);
    PressKey('F');
    PressKey('X');
    EXPECT_EQ(varnel.WaitForEnd(), 0u);
}

}  // namespace
}  // namespace window
