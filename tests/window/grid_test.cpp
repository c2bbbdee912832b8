// The grid under the pointer and the keyboard: scrolling, hovering, selecting, and its colours.
#include "window/window_fixture.h"

namespace window {

namespace {

constexpr COLORREF kBase = 0xFFFFC0, kHovered = 0xFFFF80, kSelected = 0x008000;
constexpr COLORREF kWhite = 0xFFFFFF, kDarkBlue = 0xC00000;

constexpr const char* kCells[] = {"sTYPE", "sFile1", "sSize1", "sMD1",
                                  "sMAC",  "sFile2", "sSize2", "sMD2"};

// 60 new files, "file 01.txt" and so on.
class GridTest : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        if (IsSkipped()) return;
        for (int i = 1; i <= 60; ++i) {
            const std::string number = (i < 10 ? "0" : "") + std::to_string(i);
            Put("1/file " + number + ".txt", "content");
        }
    }

    static void ExpectRow(const Program& varnel, int row, COLORREF back, COLORREF mark,
                          COLORREF text) {
        for (const char* kind : kCells) {
            const Seen cell = varnel.Look(Program::Cell(kind, row));
            EXPECT_EQ(cell.Back, back) << kind << row;
            EXPECT_EQ(cell.Fore, std::string(kind) == "sMAC" ? mark : text) << kind << row;
        }
    }
    static void WaitForBack(const Program& varnel, int row, COLORREF back) {
        varnel.WaitFor(Program::Cell("sTYPE", row), "another background",
                       [back](const Seen& cell) { return cell.Back == back; });
    }
    static void WaitForTopRow(const Program& varnel, int number) {
        varnel.WaitForText("sTYPE(0)", std::to_string(number) + ".");
        EXPECT_EQ(varnel.Look("VScroll1").Value, number - 1);
    }
    // Where the bar's own window believes to be.
    static int NativeScroll(const Program& varnel) {
        return static_cast<int>(::SendMessageW(varnel.Look("VScroll1").Window, SBM_GETPOS, 0, 0));
    }
    static COLORREF TextColor() { return ::GetSysColor(COLOR_BTNTEXT); }
};

TEST_F(GridTest, WheelScrollsThreeRowsANotch) {
    const Program varnel(Pair());
    varnel.Compare();
    EXPECT_EQ(varnel.Look("VScroll1").Maximum, 60 - 24);
    const POINT middle = varnel.PlaceOf("Picture2");
    for (const auto& [notches, top] :
         {std::pair{1, 4}, {2, 10}, {-1, 7}, {-5, 1}, {50, 36}, {-50, 1}}) {
        RollWheelAt(middle, notches);
        WaitForTopRow(varnel, top);
        EXPECT_EQ(NativeScroll(varnel), top - 1);
    }
}

TEST_F(GridTest, KeysScrollOnceTheGridWasClicked) {
    const Program varnel(Pair());
    varnel.Compare();
    varnel.Click("sFile1(3)");
    const std::pair<WORD, int> keys[] = {{VK_DOWN, 2},   {VK_DOWN, 3}, {VK_UP, 2},
                                         {VK_NEXT, 27},  {VK_END, 36}, {VK_DOWN, 36},
                                         {VK_PRIOR, 11}, {VK_HOME, 1}, {VK_UP, 1}};
    for (const auto& [key, top] : keys) {
        PressKey(key);
        WaitForTopRow(varnel, top);
    }
    PressKey(VK_END);
    WaitForTopRow(varnel, 36);
    EXPECT_EQ(varnel.Text("sFile1(24)"), "file 60.txt");
}

TEST_F(GridTest, ScrollBarIsWorkedByThePointer) {
    const Program varnel(Pair());
    varnel.Compare();
    const RECT bar = varnel.Look("VScroll1").Area;
    const int x = (bar.left + bar.right) / 2;
    const int arrow = bar.right - bar.left;
    const POINT down{x, bar.bottom - arrow / 2}, up{x, bar.top + arrow / 2};
    ClickAt(down);
    WaitForTopRow(varnel, 2);
    ClickAt(down);
    WaitForTopRow(varnel, 3);
    ClickAt(up);
    WaitForTopRow(varnel, 2);
    ClickAt({x, bar.bottom - 2 * arrow});  // between thumb and arrow: a page
    WaitForTopRow(varnel, 27);

    const POINT thumb{x, (bar.top + bar.bottom) / 2};
    ClickAt(down);
    WaitForTopRow(varnel, 28);
    PressButtonAt(thumb);
    MovePointer({x, bar.top});
    WaitForTopRow(varnel, 1);  // while it is held
    MovePointer({x, bar.bottom});
    WaitForTopRow(varnel, 37);
    ReleaseButtonAt({x, bar.top});
    WaitForTopRow(varnel, 1);
}

TEST_F(GridTest, HoverAndSelectionFollowThePointer) {
    const Program varnel(Pair());
    varnel.Compare();
    varnel.Point("sFile1(4)");
    WaitForBack(varnel, 4, kHovered);
    ExpectRow(varnel, 4, kHovered, kDarkBlue, TextColor());
    EXPECT_EQ(varnel.Text("TextFileName"), Folder1() + "\\file 05.txt");
    varnel.Point("sMD2(6)");
    WaitForBack(varnel, 6, kHovered);
    ExpectRow(varnel, 4, kBase, kDarkBlue, TextColor());
    EXPECT_EQ(varnel.Text("TextFileName"), Folder1() + "\\file 07.txt");

    varnel.Click("sSize1(6)");
    WaitForBack(varnel, 6, kSelected);
    ExpectRow(varnel, 6, kSelected, kWhite, kWhite);
    varnel.Point("sTYPE(9)");
    WaitForBack(varnel, 9, kHovered);
    ExpectRow(varnel, 6, kSelected, kWhite, kWhite);
    varnel.Click("sTYPE(9)");
    WaitForBack(varnel, 9, kSelected);
    ExpectRow(varnel, 6, kBase, kDarkBlue, TextColor());
    varnel.Click("sTYPE(9)");
    WaitForBack(varnel, 9, kHovered);
    ExpectRow(varnel, 9, kHovered, kDarkBlue, TextColor());

    varnel.Point("sTYPE(11)");
    WaitForBack(varnel, 11, kHovered);
    varnel.Point("Picture1");
    WaitForBack(varnel, 11, kBase);
}

// Hovering starts at row 0, so that row is highlighted only after another one was.
TEST_F(GridTest, TheFirstRowIsHighlightedFromTheSecondTimeOn) {
    const Program varnel(Pair());
    varnel.Compare();
    varnel.Point("sFile1(0)");
    varnel.Point("sFile1(1)");
    WaitForBack(varnel, 1, kHovered);
    EXPECT_EQ(varnel.Text("TextFileName"), Folder1() + "\\file 02.txt");
    varnel.Point("sFile1(0)");
    WaitForBack(varnel, 0, kHovered);
    EXPECT_EQ(varnel.Text("TextFileName"), Folder1() + "\\file 01.txt");
}

TEST_F(GridTest, PaintsTheColoursOfItsRows) {
    const Program varnel(Pair());
    varnel.Compare();
    varnel.Click("sFile1(2)");
    WaitForBack(varnel, 2, kSelected);
    varnel.Point("sFile2(5)");
    WaitForBack(varnel, 5, kHovered);
    const POINT inRow5 = varnel.PlaceOf("sTYPE(5)");
    const ScreenPicture picture = varnel.WaitForPicture(
        [&](const ScreenPicture& seen) { return seen.At(inRow5.x, inRow5.y) == kHovered; });
    for (const auto& [row, color] :
         {std::pair{1, kBase}, {2, kSelected}, {3, kBase}, {5, kHovered}, {24, kBase}}) {
        for (const char* kind : kCells) {
            const RECT area = varnel.Look(Program::Cell(kind, row)).Area;
            EXPECT_EQ(picture.At(area.left + 1, area.top + 1), color) << kind << row;
            EXPECT_EQ(picture.At(area.right - 2, area.bottom - 2), color) << kind << row;
            const int pixels = (area.right - area.left) * (area.bottom - area.top);
            EXPECT_GT(picture.Count(area, color), pixels / 2) << kind << row;
        }
    }
}

TEST_F(GridTest, CategoryLabelsLightUpUnderThePointer) {
    constexpr COLORREF kBlue = 0xFF0000, kRed = 0x0000FF;
    const Program varnel(Pair());
    const auto waitFor = [&](const char* name, COLORREF color, bool bold) {
        varnel.WaitFor(name, "colour or weight", [=](const Seen& label) {
            return label.Fore == color && label.Bold == bold;
        });
    };
    for (const char* name :
         {"LabelNewFile", "LabelChgFile", "LabelNewChgFile", "LabelAllFile", "LabelFileFilter"}) {
        varnel.Point(name);
        waitFor(name, kRed, false);
    }
    varnel.Point("sFile1(3)");
    varnel.Point("Command4");
    waitFor("LabelAllFile", kRed, false);  // red until the frame around the labels is passed
    varnel.Point("Label12");
    waitFor("LabelAllFile", kBlue, false);
    for (const char* name : {"LabelNewFile", "LabelChgFile", "LabelNewChgFile", "LabelFileFilter"})
        waitFor(name, kBlue, false);

    PressButtonAt(varnel.PlaceOf("LabelChgFile"));
    waitFor("LabelChgFile", kRed, true);
    ReleaseButtonAt(varnel.PlaceOf("Label11"));  // not on it: no click
    waitFor("LabelChgFile", kRed, false);
    varnel.Click("LabelNewFile");
    varnel.WaitForText("LabelShow", "New Files:  0");
}

TEST_F(GridTest, SyncButtonsExplainThemselves) {
    const Program varnel(Pair());
    varnel.Compare();
    varnel.Point("Command4");
    varnel.WaitForText("LabelTip",
                       "Double sync   'New and Modified Files'   between folder 1 and folder 2,  "
                       "the older file will be replaced with the newer one, the new files will be "
                       "copied to another folder.");
    varnel.Click("LabelNewFile");
    varnel.WaitForText("LabelShow", "New Files:  60");
    varnel.Point("Command5");
    varnel.WaitForText("LabelTip",
                       "Single sync   'New Files'   from folder 1 to folder 2,  the new files will "
                       "be copied to another folder.");
    varnel.Point("LabelTip1");
    varnel.WaitForText("LabelTip", "");
    varnel.Point("Command6");
    varnel.WaitForText("LabelTip",
                       "Single sync   'New Files'   from folder 2 to folder 1,  the new files will "
                       "be copied to another folder.");
    varnel.Point("Picture1");
    varnel.WaitForText("LabelTip", "");
}

TEST_F(GridTest, TheFilterLineHasATooltip) {
    const Program varnel(Pair());
    varnel.Compare();
    varnel.Point("LabelFileFilter");
    WaitUntil("the tooltip", [&] {
        for (const HWND window : TopWindows(varnel.Id()))
            if (ClassOf(window) == "tooltips_class32") return true;
        return false;
    });
}

}  // namespace

}  // namespace window
