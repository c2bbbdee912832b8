// The grid and the panel of a row's direction, under the pointer and the keyboard.
#include "window/window_fixture.h"

namespace window {
namespace {

class GridTest : public WindowTest {
  protected:
    static void WaitForTopRow(const Program& varnel, int number) {
        varnel.WaitFor("sTYPE(0)", &Seen::Text, std::to_string(number) + ".");
        EXPECT_EQ(::SendMessageW(varnel.Look("VScroll1").Window, SBM_GETPOS, 0, 0), number - 1);
    }
};

TEST_F(GridTest, WheelKeysAndBarScroll) {
    for (int i = 0; i < 60; ++i) Files.WriteFile("1/" + std::to_string(i), "content");
    const Program varnel(Pair());
    varnel.Compare();
    for (const auto& [notches, top] : {std::pair{2, 7}, {-1, 4}, {50, 36}, {-50, 1}}) {
        RollWheelAt(varnel.PlaceOf("Picture2"), notches);
        WaitForTopRow(varnel, top);
    }
    varnel.Click("sFile1(3)");  // from here on the keys scroll
    const std::pair<WORD, int> keys[] = {{VK_DOWN, 2}, {VK_NEXT, 27},  {VK_UP, 26},
                                         {VK_END, 36}, {VK_PRIOR, 11}, {VK_HOME, 1}};
    for (const auto& [key, top] : keys) {
        PressKey(key);
        WaitForTopRow(varnel, top);
    }
    const RECT bar = varnel.Look("VScroll1").Area;
    const LONG x = (bar.left + bar.right) / 2, arrow = bar.right - bar.left;
    for (const auto& [y, top] : {std::pair{bar.bottom - arrow / 2, 2},
                                 {bar.bottom - 2 * arrow, 27},  // between thumb and arrow: a page
                                 {bar.top + arrow / 2, 26}}) {
        ClickAt({x, y});
        WaitForTopRow(varnel, top);
    }
    PressButtonAt({x, (bar.top + bar.bottom) / 2});  // on the thumb
    MovePointer({x, bar.top});
    varnel.WaitFor("sTYPE(0)", &Seen::Text, "1.");  // while it is held
    ReleaseButtonAt({x, bar.bottom});
    WaitForTopRow(varnel, 37);
}

TEST_F(GridTest, ThePanelStandsBeforeTheGridAndIsWorkedByPointerAndKeys) {
    PutSmallPair();
    const Program varnel(Pair());
    varnel.Compare();
    varnel.Click("sMAC(3)");
    varnel.WaitForFocus("Option2");
    const RECT panel = varnel.Look("Picture3").Area;
    WaitForColor({panel.left + 4, panel.top + 4}, ::GetSysColor(COLOR_BTNFACE));
    PressKey(VK_DOWN);
    varnel.WaitFor("Option3", &Seen::Value, 1);
    PressKey(VK_ESCAPE);
    varnel.WaitFor("Picture3", &Seen::Visible, false);
    EXPECT_EQ(varnel.Text("sMAC(3)"), "<-- Replace");

    varnel.Click("sMAC(3)");
    varnel.WaitForFocus("Option2");
    PressKey(VK_UP);
    varnel.WaitFor("Option1", &Seen::Value, 1);
    PressKey(VK_RETURN);
    varnel.WaitFor("sMAC(3)", &Seen::Text, "Replace -->");

    varnel.Click("sMAC(0)");
    varnel.WaitFor("Picture3", &Seen::Visible, true);
    EXPECT_FALSE(::IsWindowEnabled(varnel.Look("Option2").Window));
    varnel.Click("Option3");
    varnel.Click("Command2");
    varnel.WaitFor("sMAC(0)", &Seen::Text, "---/---/---");
}

}  // namespace
}  // namespace window
