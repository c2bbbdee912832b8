#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace app {
namespace {

using fakes::Texts;

class MenusTest : public fakes::MainWindowTest {};

TEST_F(MenusTest, TheTree) {
    const Texts expected{
        "mnuFile &File",
        "  mnu001 -",
        "  mnuExportNew &Export New Files to a Text File",
        "  mnuExportModify &Export Modifies Files to a Text File",
        "  mnuExportNewModify &Export New and Modified Files to a Text File",
        "  mnuExportSame &Export Same Files to a Text File",
        "  mnu807 -",
        "  mnuOpen Open Text File",
        "  mnu002 -",
        "  mnuExit E&xit",
        "mnuProfile &Profile",
        "  mnu006 -",
        "  mnuFolder1 Browse Folder 1",
        "  mnuFolder2 Browse Folder 2",
        "  mnu007 -",
        "  mnuOpenFolder1 Open Folder 1",
        "  mnuOpenFolder2 Open Folder 2",
        "  mnu010 -",
        "  mnuClearProfile Clear Profiles History",
        "  mnu008 -",
        "mnuOperate &Operate",
        "  mnu003 -",
        "  mnuCompare &Compare",
        "  mnu004 -",
        "  mnuDoubleSync &Double Synchronize - Folder 1 <-> Folder 2",
        "  mnuLeftSync &Left Synchronize - Folder 1 -> Folder 2",
        "  mnuRightSync &Right Synchronize - Folder 1 <- Folder 2",
        "  mnu005 -",
        "mnuView &View",
        "  mnu011 -",
        "  mnuNewFile &New Files",
        "  mnuChangedFile &Changed Files",
        "  mnuAllFile &All Files",
        "  mnu012 -",
        "mnuHelp &Help",
        "  mnu013 -",
        "  mnuContents &How to use ?",
        "  mnu014 -",
        "  mnuAbout About",
    };
    Texts tree;
    for (const platform::MenuItem& menu : form.Window.Menu) {
        tree.push_back(menu.Name + ' ' + menu.Caption);
        for (const platform::MenuItem& item : menu.Items) {
            tree.push_back("  " + item.Name + ' ' + item.Caption);
            EXPECT_EQ(item.OnClick == nullptr, item.Caption == "-") << item.Name;
        }
    }
    EXPECT_EQ(tree, expected);
}

TEST_F(MenusTest, CommandsAreThoseOfTheButtonsAndLabels) {
    const auto put = [this] {
        for (const char* name : {"1/n", "2/m"}) Put(name);
        for (const char* name : {"1/m", "2/n"}) files.Remove(name);
    };
    struct Case {
        const char* Menu;
        const char* View;
        Texts Copies;
    };
    const Case cases[] = {
        {"mnuDoubleSync", "SyncAll", {"1/n > 2/n", "2/m > 1/m"}},
        {"mnuLeftSync", "SyncAll", {"1/n > 2/n"}},
        {"mnuRightSync", "SyncAll", {"2/m > 1/m"}},
        {"mnuNewFile", "New", {}},
        {"mnuChangedFile", "Chg", {}},
        {"mnuAllFile", "Same", {}},
    };
    for (const Case& c : cases) {
        put();
        files.Copies.clear();
        ClickMenu("mnuCompare");
        EXPECT_EQ(form.CurrentViewCode(), "NewChg");
        ClickMenu(c.Menu);
        EXPECT_EQ(form.CurrentViewCode(), c.View);
        EXPECT_EQ(files.Copies, c.Copies) << c.Menu;
    }
}

TEST_F(MenusTest, TheHistoryIsClearedAfterAQuestion) {
    form.Command3.Click();
    dialogs.YesNoAnswer = false;
    ClickMenu("mnuClearProfile");
    EXPECT_EQ(form.Combo1.Entries().size(), 1u);
    dialogs.YesNoAnswer = true;
    ClickMenu("mnuClearProfile");
    EXPECT_TRUE(form.Combo1.Entries().empty());
    EXPECT_TRUE(registry.Values.find("SOFTWARE\\SystemInfoFolderCS1993") == registry.Values.end());
}

TEST_F(MenusTest, HelpAndAbout) {
    ClickMenu("mnuContents");
    EXPECT_EQ(
        TakeMessages(),
        Texts{"How to compare and sync folder ? "
              "\r\n\r\n   \r\n"
              "Step 1.   Click the button 'Browse...' to select two folders.               "
              "\r\n\r\n   \r\n"
              "Step 2.   Click the button 'Compare', the files compare information will display "
              "in the grid.      "
              "\r\n\r\n   \r\n"
              "Step 3.   If you want to manually specify which files need to update, click the "
              "columu 'Sync Direction', and change the sync direction.    "
              "\r\n\r\n   \r\n"
              "Step 4.   Click the button 'Synchronize' to sync the files."
              "\r\n\r\n   \r\n"
              "Notice:   If the grid only display the 'new' or 'Modified' files, then only new or "
              "modified files will be synchronized.     "
              "\r\n\r\n   \r\n"
              "This software can be copied to a USB disk and run on it, no need to install."
              "\r\n   "});
    EXPECT_EQ(dialogs.Messages.back().Title, "Help Document");
    EXPECT_EQ(dialogs.Messages.back().Icon, platform::MessageIcon::Information);

    ClickMenu("mnuAbout");
    const std::string about = TakeMessages().at(0);
    EXPECT_EQ(about.substr(0, about.find("\r\n")), "Varnel ,  Version 8.12");
    EXPECT_EQ(dialogs.Messages.back().Icon, platform::MessageIcon::Information);
}

}  // namespace
}  // namespace app
