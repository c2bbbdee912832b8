// The boxes of the folders and what opens from the window: the filter, the dialogs of the system,
// other programs.
#include <cstring>

#include "window/window_fixture.h"

namespace window {
namespace {

using DialogsTest = WindowTest;

// Clicks the second line of a list that begins there.
void ClickSecondLine(LONG left, LONG top, LRESULT height) {
    ClickAt({left + 20, top + static_cast<LONG>(height) * 3 / 2});
}

TEST_F(DialogsTest, ABoxIsFilledByBrowsingOrTypingAndItsFolderOpened) {
    Files.MakeFolder("opened here");
    const std::string folder = Files.Path("opened here");
    const Program varnel;
    const auto tree = [] { return WaitForWindow("#32770", "Browse for Folder"); };
    varnel.Click("CommandBrowse1");
    EXPECT_NEAR(AreaOf(tree()).left - AreaOf(varnel.Window()).left, 1000 / 15.0, 1);
    EndWindow(tree(), WM_COMMAND, IDOK);
    WaitUntil("the desktop", [&] { return varnel.Ask("Combo1").ends_with("\\Desktop\\"); });
    varnel.RunMenu("mnuFolder1");
    EndWindow(tree(), WM_COMMAND, IDCANCEL);
    varnel.Type("Combo2", folder);
    varnel.WaitFor("Combo2", folder);
    EXPECT_NE(varnel.Ask("Combo1"), "") << "cancelled";
    varnel.Point("ImageOpenFolder2");
    varnel.WaitFor("CmdOpenFolder2", "1", "visible");
    varnel.Click("CmdOpenFolder2");
    EndWindow(WaitForWindow(nullptr, "opened here"), WM_CLOSE);
}

TEST_F(DialogsTest, APairIsPickedByPointerAndKeysAndBringsItsFilter) {
    const std::pair<const char*, const char*> history[] = {
        {"\\P0", "C:\\a==========C:\\b"},
        {"\\P1", "C:\\c==========C:\\d==========/txt==========-1"}};
    for (const auto& [slot, pair] : history)
        ::RegSetKeyValueA(HKEY_LOCAL_MACHINE, (std::string(kHistory) + slot).c_str(), nullptr,
                          REG_SZ, pair, static_cast<DWORD>(std::strlen(pair) + 1));
    const Program varnel;
    const RECT area = varnel.Area("Combo1");
    const HWND box = varnel.Control("Combo1");
    const auto waitForList = [box](LRESULT dropped) {
        WaitUntil("the list of a box",
                  [&] { return ::SendMessageW(box, CB_GETDROPPEDSTATE, 0, 0) == dropped; });
    };
    ClickAt({area.right - 8, MiddleOf(area).y});  // the arrow
    waitForList(true);
    ClickSecondLine(area.left, area.bottom, ::SendMessageW(box, CB_GETITEMHEIGHT, 0, 0));
    varnel.WaitFor("LabelFileFilter", "Only sync files with extensions:  .txt");
    EXPECT_EQ(varnel.Ask("Combo1") + varnel.Ask("Combo2"), "C:\\cC:\\d");

    varnel.Point("Command4");  // off the list
    const auto goUpAndPress = [&](BYTE key) {
        PressKey(VK_F4);
        waitForList(true);
        PressKey(VK_UP);
        PressKey(key);
        waitForList(false);
    };
    goUpAndPress(VK_ESCAPE);  // changes nothing
    varnel.WaitFor("Combo1", "C:\\c");
    goUpAndPress(VK_RETURN);  // starts no comparison
    varnel.WaitFor("LabelFileFilter", "Sync all type of file.");
    EXPECT_EQ(varnel.Ask("Combo1") + varnel.Ask("Combo2"), "C:\\aC:\\b");
    EXPECT_TRUE(::IsWindowEnabled(varnel.Window()));
}

TEST_F(DialogsTest, TheFilterIsTypedAndTakenByEnter) {
    const Program varnel;
    varnel.Click("LabelFileFilter");
    const Form filter(WaitForWindow("FormFilter", "Edit File filter Rules"));
    filter.WaitForFocus("OptionExc");
    EXPECT_FALSE(::IsWindowEnabled(varnel.Window()));
    filter.Click("OptionOnly");
    PressKey(VK_RETURN);  // OK
    EXPECT_EQ(Answer(), "Varnel: Please input the file extensions.   ");
    filter.Type("TextAddto", "b*mp,txt");
    filter.WaitFor("TextAddto", "bmp,txt");  // what no extension holds is dropped
    filter.Click("Command1");
    filter.WaitFor("List1", "2", "entries");
    const HWND list = filter.Control("List1");
    const RECT area = AreaOf(list);
    ClickSecondLine(area.left, area.top + 2, ::SendMessageW(list, LB_GETITEMHEIGHT, 0, 0));
    filter.WaitFor("List1", "1", "value");
    filter.Click("Command2");
    WaitUntil("the entry to go", [list] { return ::SendMessageW(list, LB_GETCOUNT, 0, 0) == 1; });
    filter.Click("OptionOnly");
    PressKey(VK_RETURN);
    varnel.WaitFor("LabelFileFilter", "Only sync files with extensions:  .bmp");
    varnel.Point("LabelFileFilter");
    WaitForWindow("tooltips_class32");
    varnel.Click("LabelFileFilter");
    WaitForWindow("FormFilter");
    PressKey(VK_ESCAPE);
    varnel.WaitForQuiet();
}

TEST_F(DialogsTest, AReportIsSavedWhereTheDialogSaysAndOpensInNotepad) {
    PutSmallPair();
    Files.WriteFile("a größe.txt", "what was there");
    const Program varnel(Pair());
    varnel.Compare();
    const auto save = [&] {
        varnel.RunMenu("mnuExportSame");
        AnswerFileName("Export file name to a text file", Files.Path("a größe"));
    };
    varnel.RunMenu("mnuExportSame");
    EndWindow(WaitForWindow("#32770"), WM_COMMAND, IDCANCEL);  // exports nothing
    save();
    EXPECT_EQ(Answer(IDNO), "Information: The same filename exist, overwrite it?");
    EXPECT_EQ(Files.Read("a größe.txt"), "what was there");
    save();
    Answer(IDYES);
    EXPECT_EQ(Answer(),
              "File Saved: Same files name has export to file: " + Files.Path("a größe.txt"));
    EXPECT_EQ(Files.Read("a größe.txt")->find("what was there"), std::string::npos);
    varnel.RunMenu("mnuOpen");
    AnswerFileName("Select a text file", Files.Path("a größe.txt"));
    EndWindow(WaitForWindow("Notepad", "a größe"), WM_CLOSE);
}

}  // namespace
}  // namespace window
