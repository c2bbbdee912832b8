// Comparing, looking through the grid, synchronising: what the window shows and the files on disk.
#include <cstdio>

#include <share.h>

#include "window/window_driver.h"

namespace window {
namespace {

TEST_F(WindowTest, DoubleSyncDoesWhatTheGridSaysAndLeavesWhatItCannotAsItWas) {
    std::string deep = "Größe & Maß";
    while (Files.Path(deep).size() < 300) deep += "/a folder with a long name";
    deep += "/файл 😀 100%.txt";
    PutSmallPair();
    Files.WriteFile("1/" + deep, "as it was");
    Start(Pair());
    Compare();
    Point("sFile1(1)");
    WaitFor("TextFileName", Files.Path("1/" + deep));
    Click("sMAC(3)");
    WaitForFocus("Option2");
    PressKeys({VK_UP, VK_RETURN});  // the other direction, OK
    WaitFor("sMAC(3)", "Replace -->");
    Click("sMAC(0)");
    Click("Option3");
    EXPECT_FALSE(::IsWindowEnabled(Look("Option2").Window));
    Click("Command2");
    WaitFor("sMAC(0)", "---/---/---");

    std::FILE* const held = ::_fsopen(Files.Path("2/chg-right.txt").c_str(), "r", _SH_DENYRW);
    Click("Command4");
    EXPECT_TRUE(Answer("Varnel").ends_with("Succeed:   3  Files.\r\nFail:   1  Files."));
    std::fclose(held);
    EXPECT_EQ(Files.Read("1/chg-right.txt"), "newer");
    for (const std::string name : {"chg-left.txt", "chg-right.txt", "only2.txt", deep.c_str()})
        EXPECT_EQ(Files.Read("2/" + name), "as it was") << name;
    for (const std::string name : {"chg-left.txt", "new1.txt", "only2.txt", deep.c_str()})
        EXPECT_EQ(Files.Read("1/" + name), "as it was") << name;
    EXPECT_EQ(Files.Names("1").size(), 6u) << "no leftovers";
    EXPECT_EQ(Files.Names("2").size(), 5u) << "no leftovers";
    Start();  // on the pair of before
    Compare();
    EXPECT_EQ(Ask("LabelShow"), "New and Modified Files:  2");  // times came along
}

TEST_F(WindowTest, ASyncKeepsTheWindowAliveAndIsStoppedOrClosed) {
    constexpr std::size_t kFiles = 800;
    for (std::size_t i = 0; i < kFiles; ++i) Files.WriteFile("1/" + std::to_string(i), "content");
    std::size_t copied = 0;
    const auto waitForCopies = [&] {
        WaitUntil("copies", [&] { return Files.Names("2").size() > copied + 2; });
    };
    const auto expectWholeCopies = [&] {
        const auto names = Files.Names("2");
        EXPECT_LT(copied = names.size(), kFiles);
        for (const std::string& name : names) EXPECT_EQ(Files.Read("2/" + name), "content");
        EXPECT_FALSE(names.at(0).starts_with(".varnel~")) << "of a copy that was under way";
    };
    Start(Pair());
    Compare();
    Click("Command5");
    waitForCopies();
    Point("sFile1(7)");
    const RECT row = Look("sFile1(7)").Area, countdown = Look("lblComparing").Area;
    WaitForColor({row.left, row.top}, kHovered);
    const auto line = [&countdown] {  // through the countdown, as the screen has it
        COLORREF sum = 0;
        for (LONG x = countdown.left; x < countdown.right; ++x)
            sum += ColorAt({x, MiddleOf(countdown).y});
        return sum;
    };
    for (int change = 0; change < 8; ++change)  // the pointer, as it comes to rest, makes some
        WaitUntil("the countdown to go on", [&, before = line()] { return line() != before; });
    Click("Command9");
    EXPECT_EQ(Answer("Varnel"), "Synchronization User Canceled.      ");
    expectWholeCopies();
    EXPECT_EQ(Ask("LabelAllFile"), "Sync Total ( " + std::to_string(copied) + " ) ");

    Compare();
    Click("Command4");
    waitForCopies();
    EndWindow(Window, WM_CLOSE);
    EXPECT_EQ(WaitForEnd(), 0u);
    expectWholeCopies();
}

// At 150 % pixels are no whole number of the window's own units.
TEST_F(WindowTest, RowsFillTheirPixelsAndAreScrolledByWheelKeysAndBar) {
    constexpr DWORD kDotsPerInch = 144;
    for (int i = 0; i < 60; ++i) Files.WriteFile("1/" + std::to_string(i), "content");
    ::RegSetKeyValueA(HKEY_CURRENT_USER, kDesktop, kDpi, REG_DWORD, &kDotsPerInch, 4);
    Start(Pair());
    ::RegDeleteKeyValueA(HKEY_CURRENT_USER, kDesktop, kDpi);
    RECT window, box = Look("Combo1").Area;
    ::GetWindowRect(Window, &window);
    EXPECT_NEAR(window.left, (::GetSystemMetrics(SM_CXSCREEN) - 1536) / 2.0, 1);
    EXPECT_NEAR(window.top, (::GetSystemMetrics(SM_CYSCREEN) - 1000) / 2.4, 1);
    EXPECT_EQ(window.right - window.left, 1536);
    EXPECT_EQ(window.bottom - window.top, 1000);
    EXPECT_NEAR(box.bottom - box.top, 34.5, 1.5);

    Compare();
    Point("sFile1(3)");
    const RECT cell = Look("sFile1(3)").Area;
    WaitForColor({cell.left, cell.top}, kHovered);
    Click("sFile1(3)");  // from here on the keys scroll
    WaitForColor({cell.left, cell.top}, kSelected);
    for (LONG x = cell.left; x < cell.right; ++x) {
        EXPECT_EQ(ColorAt({x, cell.top}), kSelected) << x;
        EXPECT_EQ(ColorAt({x, cell.bottom - 1}), kSelected) << x;
        EXPECT_NE(ColorAt({x, cell.top - 1}), kSelected) << x;
        EXPECT_NE(ColorAt({x, cell.bottom}), kSelected) << x;
    }

    const auto waitForTopRow = [&](int number) {
        WaitFor("sTYPE(0)", std::to_string(number) + ".");
        const HWND bar = Look("VScroll1").Window;
        WaitUntil("the bar", [&] { return ::SendMessageW(bar, SBM_GETPOS, 0, 0) == number - 1; });
    };
    for (const auto& [turned, top] : {std::pair{-2, 7}, {1, 4}, {50, 1}}) {
        Point("Picture2", MOUSEEVENTF_WHEEL, turned * WHEEL_DELTA);
        waitForTopRow(top);
    }
    Point("LabelAllFile", MOUSEEVENTF_LEFTDOWN);
    Point("Picture2", MOUSEEVENTF_LEFTUP);  // no click on either
    const std::pair<BYTE, int> keys[] = {{VK_END, 36},  {VK_HOME, 1}, {VK_DOWN, 2},
                                         {VK_NEXT, 27}, {VK_UP, 26},  {VK_PRIOR, 1}};
    for (const auto& [key, top] : keys) {
        PressKeys({key});
        waitForTopRow(top);
    }
    const RECT bar = Look("VScroll1").Area;
    const LONG x = MiddleOf(bar).x, arrow = bar.right - bar.left;
    ClickAt({x, bar.bottom - arrow / 2});
    waitForTopRow(2);
    ClickAt({x, bar.bottom - 2 * arrow});  // between thumb and arrow: a page
    waitForTopRow(27);
    Point("VScroll1", MOUSEEVENTF_LEFTDOWN);  // on the thumb
    MovePointer({x, bar.bottom});
    WaitFor("sTYPE(0)", "37.");  // while it is held
    MovePointer({x, bar.bottom}, MOUSEEVENTF_LEFTUP);
    waitForTopRow(37);
}

}  // namespace
}  // namespace window
