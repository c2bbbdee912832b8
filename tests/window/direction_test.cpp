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
    varnel.WaitForPicture([&](const ScreenPicture& picture) {
        return picture.At(panel.left + 4, panel.top + 4) == ::GetSysColor(COLOR_BTNFACE);
    });
    for (const auto& [name, text] : {std::pair{"TextN2", Folder2() + "\\chg-left.txt"},
                                     {"Option1", "Replace File 2 with File 1 -->"}}) {
        EXPECT_EQ(varnel.Text(name), text);
        EXPECT_EQ(TextOf(varnel.Look(name).Window), text);
    }
    varnel.WaitForFocus("Option2");
    PressKey(VK_DOWN);
    varnel.WaitFor("Option3", [](const Seen& option) { return option.Value == 1; });
    PressKey(VK_ESCAPE);
    varnel.WaitUntilShown("Picture3", false);
    EXPECT_EQ(varnel.Text("sMAC(3)"), "<-- Replace");

    varnel.Click("sMAC(3)");
    varnel.WaitForFocus("Option2");
    PressKey(VK_UP);
    varnel.WaitFor("Option1", [](const Seen& option) { return option.Value == 1; });
    PressKey(VK_RETURN);
    varnel.WaitUntilShown("Picture3", false);
    EXPECT_EQ(varnel.Text("sMAC(3)"), "Replace -->");

    varnel.Click("sMAC(0)");
    varnel.WaitUntilShown("Picture3");
    EXPECT_FALSE(::IsWindowEnabled(varnel.Look("Option2").Window));
    varnel.Set("Option3");
    varnel.Click("Command2");
    varnel.WaitForText("sMAC(0)", "---/---/---");

    varnel.Click("Command4");  // and the sync obeys
    EXPECT_EQ(Answer(varnel),
              "information Varnel: Synchronization  'New and Modified Files'  completed.      "
              "\r\n\r\nSucceed:   4  Files.");
    EXPECT_FALSE(Files.Exists("2/new1.txt"));
    EXPECT_EQ(Files.Read("2/chg-left.txt"), "old");
}

}  // namespace

}  // namespace window
