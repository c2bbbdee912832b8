// The boxes of the folders and what opens from the window: the filter, the dialogs of the system,
// other programs.
#include "platform/registry.h"
#include "window/window_fixture.h"

namespace window {
namespace {

class DialogsTest : public WindowTest {
  protected:
    static void WaitForList(HWND combo, LRESULT dropped) {
        WaitUntil("the list of a box",
                  [&] { return ::SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0) == dropped; });
    }
    // Clicks the second line of a list that begins there.
    static void ClickSecondLine(POINT list, LRESULT height) {
        ClickAt({list.x + 20, list.y + static_cast<LONG>(height) * 3 / 2});
    }
    // The dialog of the filter, when it has the keyboard.
    static Form OpenFilter(const Program& varnel, const char* mode) {
        varnel.Click("LabelFileFilter");
        const Form filter(WaitForWindow(varnel.Id(), "FormFilter", "Edit File filter Rules"));
        filter.WaitForFocus(mode);
        return filter;
    }
    static void WaitForEntries(const Form& filter, LRESULT count) {
        const HWND list = filter.Look("List1").Window;
        WaitUntil("the entries", [&] { return ::SendMessageW(list, LB_GETCOUNT, 0, 0) == count; });
    }
};

TEST_F(DialogsTest, BrowsingFillsTheBoxUnlessCancelled) {
    const Program varnel("C:\\a , C:\\b");
    varnel.RunMenu("mnuFolder2");
    AnswerFolder(varnel, IDCANCEL);
    varnel.Click("CommandBrowse1");
    const RECT shown = AnswerFolder(varnel, IDOK), main = AreaOf(varnel.Window());
    EXPECT_NEAR(shown.left - main.left, 1000 / 15.0, 1);
    EXPECT_NEAR(shown.top - main.top, 600 / 15.0, 1);
    WaitUntil("the desktop", [&] { return varnel.Text("Combo1").ends_with("\\Desktop\\"); });
    EXPECT_EQ(varnel.Text("Combo2"), "C:\\b");
}

TEST_F(DialogsTest, TheButtonUnderThePointerOpensTheFolder) {
    Files.MakeFolder("opened here");
    const Program varnel("C:\\a , ");
    varnel.Point("ImageOpenFolder1");
    varnel.WaitFor("CmdOpenFolder1", &Seen::Visible, true);
    MovePointer({AreaOf(varnel.Window()).left + 10, varnel.PlaceOf("Command3").y});
    varnel.WaitFor("CmdOpenFolder1", &Seen::Visible, false);
    varnel.Type("Combo2", Files.Path("opened here"));
    varnel.WaitFor("Combo2", &Seen::Text, Files.Path("opened here"));
    varnel.Point("ImageOpenFolder2");
    varnel.WaitFor("CmdOpenFolder2", &Seen::Visible, true);
    varnel.Click("CmdOpenFolder2");
    EndWindow(WaitForWindow(0, nullptr, "opened here"), WM_CLOSE);
}

TEST_F(DialogsTest, APairIsPickedByPointerAndKeysAndBringsItsFilter) {
    const char* pairs[] = {"C:\\a==========C:\\b",
                           "C:\\c==========C:\\d==========/txt==========-1"};
    const auto history = platform::OpenSystemRegistry();
    for (int slot = 0; slot < 2; ++slot) {
        const std::string key = kHistory + ("\\P" + std::to_string(slot));
        history->CreateKey(key);
        history->WriteDefault(key, pairs[slot]);
    }
    const Program varnel;
    const Seen box = varnel.Look("Combo1");
    ClickAt({box.Area.right - 8, MiddleOf(box.Area).y});  // the arrow
    WaitForList(box.Window, true);
    ClickSecondLine({box.Area.left, box.Area.bottom},
                    ::SendMessageW(box.Window, CB_GETITEMHEIGHT, 0, 0));
    varnel.WaitFor("LabelFileFilter", &Seen::Text, "Only sync files with extensions:  .txt");
    EXPECT_EQ(varnel.Text("Combo1") + varnel.Text("Combo2"), "C:\\cC:\\d");
    ParkPointer();

    PressKey(VK_F4);
    WaitForList(box.Window, true);
    PressKey(VK_UP);
    PressKey(VK_RETURN);  // starts no comparison
    varnel.WaitFor("LabelFileFilter", &Seen::Text, "Sync all type of file.");
    EXPECT_EQ(varnel.Text("Combo1") + varnel.Text("Combo2"), "C:\\aC:\\b");
    EXPECT_TRUE(::IsWindowEnabled(varnel.Window()));

    PressKey(VK_F4);
    WaitForList(box.Window, true);
    PressKey(VK_DOWN);
    PressKey(VK_ESCAPE);  // leaves the list and changes nothing
    WaitForList(box.Window, false);
    varnel.WaitFor("Combo1", &Seen::Text, "C:\\a");
    EXPECT_EQ(varnel.Text("Combo2"), "C:\\b");
}

TEST_F(DialogsTest, TheFilterIsTypedAndTakenByEnter) {
    const Program varnel;
    const Form filter = OpenFilter(varnel, "OptionExc");
    EXPECT_FALSE(::IsWindowEnabled(varnel.Window()));
    filter.Click("OptionOnly");
    filter.WaitFor("OptionOnly", &Seen::Value, 1);
    PressKey(VK_RETURN);  // OK
    EXPECT_EQ(Answer(varnel), "exclamation Varnel: Please input the file extensions.   ");
    filter.Type("TextAddto", "B.m p_*/?;:9,");
    PressKey(VK_BACK);  // like whatever no extension holds
    TypeKeys("txt,PNG");
    filter.WaitFor("TextAddto", &Seen::Text, "Bmp9,txt,PNG");
    filter.Click("Command1");
    WaitForEntries(filter, 3);
    const Seen list = filter.Look("List1");
    ClickSecondLine({list.Area.left, list.Area.top + 2},
                    ::SendMessageW(list.Window, LB_GETITEMHEIGHT, 0, 0));
    filter.WaitFor("List1", &Seen::Value, 1);
    filter.Click("Command2");
    WaitForEntries(filter, 2);
    EXPECT_EQ(::SendMessageW(list.Window, LB_GETCURSEL, 0, 0), 0);
    filter.Click("OptionOnly");
    PressKey(VK_RETURN);
    varnel.WaitFor("LabelFileFilter", &Seen::Text, "Only sync files with extensions:  .bmp9 .png");
    varnel.Point("LabelFileFilter");
    WaitForWindow(varnel.Id(), "tooltips_class32", "");
    WaitForEntries(OpenFilter(varnel, "OptionOnly"), 2);
    PressKey(VK_ESCAPE);
    varnel.WaitForQuiet();
}

TEST_F(DialogsTest, AReportIsSavedWhereTheDialogSays) {
    const std::string question = "exclamation Information: The same filename exist, overwrite it?";
    const std::string saved = "information File Saved: Same files name has export to file: ";
    PutSmallPair();
    const Program varnel(Pair());
    varnel.Compare();
    const auto save = [&](const std::string& path) {
        varnel.RunMenu("mnuExportSame");
        return AnswerFileName(varnel, "Export file name to a text file", path);
    };
    EXPECT_EQ(save(""), "Same Files");  // cancelled
    save(Files.Path("größe"));
    EXPECT_EQ(Answer(varnel), saved + Files.Path("größe.txt"));
    Files.WriteFile("old.txt", "what was there");
    save(Files.Path("old.txt"));
    EXPECT_EQ(Answer(varnel, IDNO), question);
    EXPECT_EQ(Files.Read("old.txt"), "what was there");
    save(Files.Path("old.txt"));
    EXPECT_EQ(Answer(varnel, IDYES), question);
    EXPECT_EQ(Answer(varnel), saved + Files.Path("old.txt"));
    EXPECT_EQ(Files.Read("old.txt"), Files.Read("größe.txt"));
}

TEST_F(DialogsTest, ATextFileOpensInNotepad) {
    Files.WriteFile("a report.txt", "some text");
    const Program varnel;
    varnel.RunMenu("mnuOpen");
    AnswerFileName(varnel, "Select a text file", Files.Path("a report.txt"));
    EndWindow(WaitForWindow(0, "Notepad", "a report"), WM_CLOSE);
}

}  // namespace
}  // namespace window
