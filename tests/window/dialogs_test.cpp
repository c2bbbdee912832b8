// The boxes of the folders, and what opens from the window: the menus, the filter, the dialogs of
// the system, other programs.
#include "window/window_driver.h"

namespace window {
namespace {

TEST_F(WindowTest, ABoxIsFilledByTheCommandLineByBrowsingAndByTypingAndItsFolderOpened) {
    Files.MakeFolder("opened here");
    Start("\"C:\\a größe 日本\",  \"" + Files.Path() + '"');
    Click("CommandBrowse1");
    Answer("Browse for Folder", IDCANCEL);
    EXPECT_EQ(Ask("Combo1"), "C:\\a größe 日本");
    Click("CommandBrowse1");
    Answer("Browse for Folder");
    WaitUntil("the desktop", [&] { return Ask("Combo1").ends_with("\\Desktop\\"); });
    Click("Combo2");
    PressKeys({VK_END});
    TypeKeys("\\opened here");
    Point("ImageOpenFolder2");
    Click("CmdOpenFolder2");
    EndWindow(WaitForWindow("opened here"), WM_CLOSE);
}

TEST_F(WindowTest, APairIsPickedByKeysAndPointerAndBringsItsFilter) {
    const std::string history[] = {"C:\\a==========C:\\b",
                                   "C:\\c==========C:\\d==========/txt==========-1",
                                   "C:\\e==========C:\\f"};
    for (int slot = 0; slot < 3; ++slot)
        ::RegSetKeyValueA(HKEY_LOCAL_MACHINE, (kHistory + ("\\P" + std::to_string(slot))).c_str(),
                          nullptr, REG_SZ, history[slot].c_str(),
                          static_cast<DWORD>(history[slot].size() + 1));
    Start();
    PressKeys({VK_F4, VK_DOWN, VK_ESCAPE});  // changes nothing
    PressKeys({VK_F4, VK_DOWN, VK_RETURN});  // starts no comparison
    WaitFor("LabelFileFilter", "Only sync files with extensions:  .txt");
    EXPECT_EQ(Ask("Combo1") + Ask("Combo2"), "C:\\cC:\\d");
    const Seen box = Look("Combo1");
    ClickAt({box.Area.right - 8, MiddleOf(box.Area).y});  // the arrow
    WaitUntil("the list",
              [&] { return ::SendMessageW(box.Window, CB_GETDROPPEDSTATE, 0, 0) != 0; });
    ClickAt({box.Area.left + 8, box.Area.bottom + 8});  // its first line
    WaitFor("LabelFileFilter", "Sync all type of file.");
    EXPECT_EQ(Ask("Combo1") + Ask("Combo2"), "C:\\aC:\\b");
}

TEST_F(WindowTest, TheFilterIsTypedAndTakenByEnter) {
    Start();
    Click("LabelFileFilter");
    const Form filter{WaitForWindow("Edit File filter Rules")};
    filter.WaitForFocus("OptionExc");
    EXPECT_FALSE(::IsWindowEnabled(Window));
    filter.Click("TextAddto");
    TypeKeys("b*mp,txt");
    filter.WaitFor("TextAddto", "bmp,txt");  // what no extension holds is dropped
    filter.Click("Command1");
    const Seen list = filter.Look("List1");
    ClickAt({list.Area.left + 8, list.Area.top + 8});  // the first of two lines
    filter.Click("Command2");
    WaitUntil("an entry", [&] { return ::SendMessageW(list.Window, LB_GETCOUNT, 0, 0) == 1; });
    filter.Click("OptionOnly");
    PressKeys({VK_RETURN});  // OK
    WaitFor("LabelFileFilter", "Only sync files with extensions:  .txt");
    Point("LabelFileFilter");
    WaitUntil("a tip",
              [] { return ::IsWindowVisible(::FindWindowA("tooltips_class32", nullptr)); });
    Click("LabelFileFilter");
    WaitForWindow("Edit File filter Rules");
    PressKeys({VK_ESCAPE});
    WaitForQuiet();
}

TEST_F(WindowTest, TheKeyboardReachesEverythingAndAReportIsSavedWhereTheDialogSays) {
    PutSmallPair();
    Files.WriteFile("a größe.txt", "what was there");
    Start(Pair());
    PressKeys({VK_RETURN});  // compares; the box of the first folder rests meanwhile
    WaitFor("LabelShow", "New and Modified Files:  4");
    WaitForFocus("Combo1");
    for (const char* name : {"CommandBrowse1", "Combo2", "CommandBrowse2", "Command3", "CheckSync",
                             "CheckShowPath1", "CheckShowPath2", "Command4", "Command5"}) {
        PressKeys({VK_TAB});
        WaitForFocus(name);
    }
    ::keybd_event(VK_SHIFT, 0, 0, 0);
    PressKeys({VK_TAB});
    ::keybd_event(VK_SHIFT, 0, KEYEVENTF_KEYUP, 0);
    WaitForFocus("Command4");

    // The entry of the file menu asks for the name of a file.
    const auto run = [&](int entry, const std::string& title, const std::string& name) {
        WaitForQuiet();
        PressKeys({VK_F10});
        for (int i = 0; i < entry; ++i) PressKeys({VK_DOWN});
        PressKeys({VK_RETURN});
        WaitForWindow(title);
        TypeKeys(Files.Path(name));
        PressKeys({VK_RETURN});
    };
    PressKeys({VK_F10, VK_DOWN, VK_RETURN});
    Answer("Export file name to a text file", IDCANCEL);  // exports nothing
    run(4, "Export file name to a text file", "a größe");
    EXPECT_EQ(Answer("Information", IDNO), "The same filename exist, overwrite it?");
    EXPECT_EQ(Files.Read("a größe.txt"), "what was there");
    run(4, "Export file name to a text file", "a größe");
    Answer("Information", IDYES);
    EXPECT_TRUE(Answer("File Saved").ends_with(Files.Path("a größe.txt")));
    EXPECT_EQ(Files.Read("a größe.txt")->find("what was there"), std::string::npos);
    run(5, "Select a text file", "a größe.txt");
    EndWindow(WaitForWindow("a größe"), WM_CLOSE);
    WaitForQuiet();
    PressKeys({VK_F10, 'F', 'X'});
    EXPECT_EQ(WaitForEnd(), 0u);
}

}  // namespace
}  // namespace window
