// The grid and the panel of a row's direction, under the pointer and the keyboard.
#include "window/window_fixture.h"

namespace window {
namespace {

using GridTest = WindowTest;

TEST_F(GridTest, WheelKeysAndBarScroll) {
    for (int i = 0; i < 60; ++i) Files.WriteFile("1/" + std::to_string(i), "content");
    const Program varnel(Pair());
    varnel.Compare();
    const HWND bar = varnel.Control("VScroll1");
    const auto waitForTopRow = [&](int number) {
        varnel.WaitFor("sTYPE(0)", std::to_string(number) + ".");
        WaitUntil("the bar", [&] { return ::SendMessageW(bar, SBM_GETPOS, 0, 0) == number - 1; });
    };
    for (const auto& [turned, top] : {std::pair{-2, 7}, {1, 4}, {50, 1}}) {
        MovePointer(varnel.PlaceOf("Picture2"), MOUSEEVENTF_WHEEL, turned * WHEEL_DELTA);
        waitForTopRow(top);
    }
    MovePointer(varnel.PlaceOf("LabelAllFile"), MOUSEEVENTF_LEFTDOWN);
    MovePointer(varnel.PlaceOf("Picture2"), MOUSEEVENTF_LEFTUP);  // no click on either
    varnel.Click("sFile1(3)");                                    // from here on the keys scroll
    const std::pair<BYTE, int> keys[] = {{VK_END, 36},  {VK_HOME, 1}, {VK_DOWN, 2},
                                         {VK_NEXT, 27}, {VK_UP, 26},  {VK_PRIOR, 1}};
    for (const auto& [key, top] : keys) {
        PressKey(key);
        waitForTopRow(top);
    }
    const RECT area = AreaOf(bar);
    const LONG x = MiddleOf(area).x, arrow = area.right - area.left;
    ClickAt({x, area.bottom - arrow / 2});
    waitForTopRow(2);
    ClickAt({x, area.bottom - 2 * arrow});  // between thumb and arrow: a page
    waitForTopRow(27);
    MovePointer(MiddleOf(area), MOUSEEVENTF_LEFTDOWN);  // on the thumb
    MovePointer({x, area.bottom});
    varnel.WaitFor("sTYPE(0)", "37.");  // while it is held
    MovePointer({x, area.bottom}, MOUSEEVENTF_LEFTUP);
    waitForTopRow(37);
}

TEST_F(GridTest, ThePanelStandsBeforeTheGridAndIsWorkedByPointerAndKeys) {
    PutSmallPair();
    const Program varnel(Pair());
    varnel.Compare();
    varnel.Click("sMAC(3)");
    varnel.WaitForFocus("Option2");
    const RECT panel = varnel.Area("Picture3");
    WaitForColor({panel.left + 4, panel.top + 4}, ::GetSysColor(COLOR_BTNFACE));
    PressKey(VK_UP);
    varnel.WaitFor("Option1", "1", "value");
    PressKey(VK_RETURN);
    varnel.WaitFor("sMAC(3)", "Replace -->");

    varnel.Click("sMAC(0)");
    varnel.WaitFor("Picture3", "1", "visible");
    EXPECT_FALSE(::IsWindowEnabled(varnel.Control("Option2")));
    varnel.Click("Option3");
    varnel.Click("Command2");
    varnel.WaitFor("sMAC(0)", "---/---/---");
    varnel.Click("LabelAllFile");
    varnel.WaitFor("LabelShow", "Same Files:  1");
}

}  // namespace
}  // namespace window
