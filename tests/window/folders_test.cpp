// The folder boxes: picking folders, opening them, the history of pairs across starts.
#include "window/window_fixture.h"

namespace window {

namespace {

class FoldersTest : public WindowTest {
  protected:
    static std::string Stored(const std::string& folder1, const std::string& folder2,
                              const std::string& filter = "==========0") {
        return folder1 + "==========" + folder2 + "==========" + filter;
    }
    static void WaitForList(HWND combo, LRESULT dropped) {
        WaitUntil("the list of a box",
                  [&] { return ::SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0) == dropped; });
    }
};

TEST_F(FoldersTest, BrowsingFillsTheBoxesUnlessCancelled) {
    const Program varnel("C:\\a , C:\\b");
    varnel.RunMenu("mnuFolder2");
    AnswerFolder(varnel, {"My Computer", " (C:)"}, IDCANCEL);
    varnel.Click("CommandBrowse1");
    const RECT shown = AnswerFolder(varnel, {"My Computer", " (C:)"}, IDOK);
    const RECT main = AreaOf(varnel.Window());
    EXPECT_NEAR(shown.left - main.left, 1000 / 15.0, 1);
    EXPECT_NEAR(shown.top - main.top, 600 / 15.0, 1);
    varnel.WaitForText("Combo1", "C:\\");
    EXPECT_EQ(TextOf(varnel.Look("Combo1").Window), "C:\\");
    EXPECT_EQ(varnel.Text("Combo2"), "C:\\b");
}

TEST_F(FoldersTest, TheButtonUnderThePointerOpensTheFolder) {
    Files.MakeFolder("opened here");
    const Program varnel("C:\\a , ");
    varnel.Click("ImageOpenFolder2");  // its box is empty
    varnel.Point("ImageOpenFolder1");
    varnel.WaitUntilShown("CmdOpenFolder1");
    EXPECT_FALSE(varnel.Shows("CmdOpenFolder2"));
    MovePointer({AreaOf(varnel.Window()).left + 10, varnel.PlaceOf("Command3").y});
    varnel.WaitUntilShown("CmdOpenFolder1", false);
    varnel.Type("Combo2", Files.Path("opened here"));
    varnel.WaitForText("Combo2", Files.Path("opened here"));
    varnel.Point("ImageOpenFolder2");
    varnel.WaitUntilShown("CmdOpenFolder2");
    varnel.Click("CmdOpenFolder2");
    CloseWindowOf(WaitForWindow(0, "", "opened here"));
}

TEST_F(FoldersTest, PairsAreKeptAcrossStartsUntilTheyAreCleared) {
    {
        const Program varnel(Pair());
        varnel.Compare();
        EXPECT_EQ(HistoryValue(0), Stored(Folder1(), Folder2()));
        EXPECT_EQ(varnel.Look("Combo2").Entries, Texts{Folder2()});
    }
    const std::string question =
        "exclamation Varnel: This operation will delete all prifiles, Continue?";
    const Program varnel;
    EXPECT_EQ(TextOf(varnel.Look("Combo2").Window), Folder2());
    varnel.RunMenu("mnuClearProfile");
    EXPECT_EQ(Answer(varnel, IDNO), question);
    varnel.RunMenu("mnuClearProfile");
    EXPECT_EQ(varnel.Look("Combo1").Entries, Texts{Folder1()});
    EXPECT_EQ(Answer(varnel, IDYES), question);
    varnel.WaitForText("Combo1", "");
    EXPECT_EQ(TextOf(varnel.Look("Combo1").Window) + HistoryValue(0), "");
}

TEST_F(FoldersTest, PickingAPairBringsItsFilterBack) {
    SetHistoryValue(0, Stored("C:\\a", "C:\\b"));
    SetHistoryValue(1, Stored("C:\\c", "C:\\d", "/txt==========-1"));
    SetHistoryValue(2, "C:\\short==========C:\\form");
    const Program varnel;
    const Seen box = varnel.Look("Combo1");
    // With the pointer: the arrow, then the second line of the list.
    ClickAt({box.Area.right - 8, MiddleOf(box.Area).y});
    WaitForList(box.Window, true);
    const auto line = static_cast<LONG>(::SendMessageW(box.Window, CB_GETITEMHEIGHT, 0, 0));
    ClickAt({box.Area.left + 20, box.Area.bottom + line + line / 2});
    varnel.WaitForText("Combo1", "C:\\c");
    varnel.WaitForText("LabelFileFilter", "Only sync files with extensions:  .txt");
    EXPECT_EQ(TextOf(varnel.Look("Combo2").Window), "C:\\d");
    ParkPointer();

    // With the keyboard; a pair in the short form has no filter.
    PressKey(VK_F4);
    WaitForList(box.Window, true);
    PressKey(VK_DOWN);
    PressKey(VK_RETURN);  // starts no comparison
    varnel.WaitForText("Combo1", "C:\\short");
    varnel.WaitForText("LabelFileFilter", "Sync all type of file.");
    EXPECT_TRUE(::IsWindowEnabled(varnel.Window()));

    // Esc leaves the list and changes nothing.
    PressKey(VK_F4);
    WaitForList(box.Window, true);
    PressKey(VK_UP);
    PressKey(VK_ESCAPE);
    WaitForList(box.Window, false);
    WaitUntil("the old text", [&] { return TextOf(box.Window) == "C:\\short"; });
    EXPECT_EQ(varnel.Text("Combo2"), "C:\\form");
}

}  // namespace

}  // namespace window
