// The window at 150 %, where pixels are no whole number of its own units.
#include "window/window_fixture.h"

namespace window {
namespace {

constexpr char kDesktop[] = "Control Panel\\Desktop", kDpi[] = "LogPixels";

class ScaleTest : public WindowTest {
  protected:
    void TearDown() override {
        if (!IsSkipped()) ::RegDeleteKeyValueA(HKEY_CURRENT_USER, kDesktop, kDpi);
    }
};

TEST_F(ScaleTest, TheWindowHasItsSizeAndRowsFillTheirPixels) {
    const DWORD dpi = 144;
    ::RegSetKeyValueA(HKEY_CURRENT_USER, kDesktop, kDpi, REG_DWORD, &dpi, sizeof dpi);
    PutSmallPair();
    const Program varnel(Pair());
    const RECT window = AreaOf(varnel.Window()), box = varnel.Area("Combo1");
    EXPECT_NEAR(window.left, (::GetSystemMetrics(SM_CXSCREEN) - 1536) / 2.0, 1);
    EXPECT_NEAR(window.top, (::GetSystemMetrics(SM_CYSCREEN) - 1000) / 2.4, 1);
    EXPECT_EQ(window.right - window.left, 1536);
    EXPECT_EQ(window.bottom - window.top, 1000);
    EXPECT_NEAR(box.bottom - box.top, 34.5, 1.5);
    varnel.Compare();
    varnel.Click("sFile1(1)");
    varnel.Point("sMD2(3)");
    varnel.WaitFor("TextFileName", Files.Path("1/chg-left.txt"));
    const RECT cell = varnel.Area("sFile1(1)"), pointed = varnel.Area("sTYPE(3)");
    WaitForColor({pointed.left, pointed.top}, kHovered);
    for (LONG x = cell.left; x < cell.right; ++x) {
        EXPECT_EQ(ColorAt({x, cell.top}), kSelected) << x;
        EXPECT_EQ(ColorAt({x, cell.bottom - 1}), kSelected) << x;
        EXPECT_NE(ColorAt({x, cell.top - 1}), kSelected) << x;
        EXPECT_NE(ColorAt({x, cell.bottom}), kSelected) << x;
    }
}

}  // namespace
}  // namespace window
