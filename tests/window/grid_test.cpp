// The lists of a comparison, and the grid under the pointer and the keyboard.
#include "window/window_fixture.h"

namespace window {

namespace {

constexpr COLORREF kBlue = 0xFF0000, kRed = 0x0000FF;

class GridTest : public WindowTest {
  protected:
    void PutSixty() const {
        for (int i = 10; i < 70; ++i) Put("1/file " + std::to_string(i) + ".txt", "content");
    }
    static void WaitForTopRow(const Program& varnel, int number) {
        varnel.WaitForText("sTYPE(0)", std::to_string(number) + ".");
        const Seen bar = varnel.Look("VScroll1");
        EXPECT_EQ(bar.Value, number - 1);
        EXPECT_EQ(::SendMessageW(bar.Window, SBM_GETPOS, 0, 0), number - 1);
    }
    static void WaitForLabel(const Program& varnel, const char* name, COLORREF color) {
        varnel.WaitFor(name, [=](const Seen& label) { return label.Fore == color; });
    }
};

TEST_F(GridTest, ListsWhatDiffersAndSwitchesTheView) {
    PutSmallPair();
    const std::string o = platform::FormatFileTime(kOlder), n = platform::FormatFileTime(kNewer);
    const Program varnel(Pair());
    varnel.Compare();
    EXPECT_EQ(varnel.Text("LabelShow"), "New and Modified Files:  5");
    EXPECT_EQ(varnel.Rows(),
              (Texts{"1.|new1.txt|8|" + o + "|Copy -->|||", "2.|new2.txt|7|" + o + "|Copy -->|||",
                     "3.||||<-- Copy|only2.txt|8|" + o,
                     "4.|chg-left.txt|3|" + o + "|<-- Replace|chg-left.txt|13|" + n,
                     "5.|chg-right.txt|13|" + n + "|Replace -->|chg-right.txt|3|" + o}));
    varnel.Click("LabelChgFile");
    varnel.WaitForText("LabelShow", "Modified Files:  2");
    varnel.RunMenu("mnuAllFile");
    varnel.WaitForText("LabelShow", "Same Files:  1");
    varnel.Set("CheckShowPath2");
    varnel.WaitForText("sFile2(0)", Folder2() + "\\same.txt");
    Files.Remove("1/new1.txt");
    varnel.Compare();
    EXPECT_EQ(varnel.Text("LabelShow"), "New and Modified Files:  4");
}

TEST_F(GridTest, WheelKeysAndBarScroll) {
    PutSixty();
    const Program varnel(Pair());
    varnel.Compare();
    for (const auto& [notches, top] : {std::pair{2, 7}, {-1, 4}, {50, 36}, {-50, 1}}) {
        RollWheelAt(varnel.PlaceOf("Picture2"), notches);
        WaitForTopRow(varnel, top);
    }
    varnel.Click("sFile1(3)");  // from here on the keys scroll
    for (const auto& [key, top] : {std::pair<WORD, int>{VK_DOWN, 2},
                                   {VK_NEXT, 27},
                                   {VK_UP, 26},
                                   {VK_END, 36},
                                   {VK_PRIOR, 11},
                                   {VK_HOME, 1}}) {
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
    varnel.WaitForText("sTYPE(0)", "1.");  // while it is held
    ReleaseButtonAt({x, bar.bottom});
    WaitForTopRow(varnel, 37);
}

TEST_F(GridTest, ShowsWhatIsPointedAtAndSelected) {
    PutSixty();
    const Program varnel(Pair());
    varnel.Compare();
    varnel.Click("sSize1(2)");
    varnel.Point("sMD2(6)");
    varnel.WaitForText("TextFileName", Folder1() + "\\file 16.txt");
    varnel.Point("sTYPE(5)");
    varnel.WaitForText("TextFileName", Folder1() + "\\file 15.txt");
    const RECT pointed = varnel.Look("sTYPE(5)").Area;
    const ScreenPicture picture = varnel.WaitForColor({pointed.left, pointed.top}, kHovered);
    for (const auto& [row, color] :
         {std::pair{1, kPlain}, {2, kSelected}, {5, kHovered}, {6, kPlain}}) {
        for (const char* kind : {"sTYPE", "sFile1", "sMD1", "sMAC", "sFile2", "sMD2"}) {
            const RECT area = varnel.Look(Program::Cell(kind, row)).Area;
            EXPECT_EQ(picture.At(area.right - 2, area.bottom - 2), color) << kind << row;
        }
    }
    varnel.Point("Picture1");
    varnel.WaitForColor({pointed.left, pointed.top}, kPlain);
}

TEST_F(GridTest, LabelsLightUpAndExplainThemselves) {
    const Program varnel(Pair());
    varnel.Compare();
    for (const char* name : {"LabelNewFile", "LabelAllFile", "LabelFileFilter"}) {
        varnel.Point(name);
        WaitForLabel(varnel, name, kRed);
    }
    WaitForWindow(varnel.Id(), "tooltips_class32", "");
    varnel.Point("Label12");  // the frame below the labels
    WaitForLabel(varnel, "LabelNewFile", kBlue);
    PressButtonAt(varnel.PlaceOf("LabelNewFile"));
    varnel.WaitFor("LabelNewFile", [](const Seen& label) { return label.Bold; });
    ReleaseButtonAt(varnel.PlaceOf("LabelNewFile"));
    varnel.WaitForText("LabelShow", "New Files:  0");
}

}  // namespace

}  // namespace window
