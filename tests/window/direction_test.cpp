// The panel that gives one row another direction.
#include "window/window_fixture.h"

namespace window {

namespace {

class DirectionTest : public WindowTest {};

TEST_F(DirectionTest, ThePanelStandsBeforeTheGridAndIsWorkedByPointerAndKeys) {
    PutSmallPair();
    const Program varnel(Pair());
    varnel.Compare();
    varnel.Click("sMAC(3)");
    varnel.WaitUntilShown("Picture3");
    const RECT panel = varnel.Look("Picture3").Area;
    EXPECT_GE(panel.top, varnel.Look("sMAC(3)").Area.bottom);
    varnel.WaitForColor({panel.left + 4, panel.top + 4}, ::GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(TextOf(varnel.Look("TextN2").Window), Folder2() + "\\chg-left.txt");
    EXPECT_EQ(TextOf(varnel.Look("Option1").Window), "Replace File 2 with File 1 -->");
    varnel.WaitForFocus("Option2");
    PressKey(VK_DOWN);
    varnel.WaitForValue("Option3", 1);
    PressKey(VK_ESCAPE);
    varnel.WaitUntilShown("Picture3", false);
    EXPECT_EQ(varnel.Text("sMAC(3)"), "<-- Replace");

    varnel.Click("sMAC(3)");
    varnel.WaitForFocus("Option2");
    PressKey(VK_UP);
    varnel.WaitForValue("Option1", 1);
    PressKey(VK_RETURN);
    varnel.WaitForText("sMAC(3)", "Replace -->");

    varnel.Click("sMAC(0)");
    varnel.WaitUntilShown("Picture3");
    EXPECT_FALSE(::IsWindowEnabled(varnel.Look("Option2").Window));
    varnel.Set("Option3");
    varnel.Click("Command2");
    varnel.WaitForText("sMAC(0)", "---/---/---");

    varnel.Click("Command4");  // and the sync obeys
    EXPECT_TRUE(Answer(varnel).ends_with("Succeed:   4  Files."));
    EXPECT_FALSE(Files.Exists("2/new1.txt"));
    EXPECT_EQ(Files.Read("2/chg-left.txt"), "old");
}

}  // namespace

}  // namespace window
