#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace app {
namespace {

using fakes::Texts;

class MenusTest : public fakes::MainWindowTest {};

TEST_F(MenusTest, EveryItemButASeparatorIsACommand) {
    for (const platform::MenuItem& menu : form.Window.Menu)
        for (const platform::MenuItem& item : menu.Items)
            EXPECT_EQ(item.OnClick == nullptr, item.Caption == "-") << item.Name;
}

TEST_F(MenusTest, CommandsAreThoseOfTheButtonsAndLabels) {
    const struct {
        const char* Menu;
        const char* View;
        Texts Copies;
    } cases[] = {
        {"mnuDoubleSync", "SyncAll", {"1/n > 2/n", "2/m > 1/m"}},
        {"mnuLeftSync", "SyncAll", {"1/n > 2/n"}},
        {"mnuRightSync", "SyncAll", {"2/m > 1/m"}},
        {"mnuNewFile", "New", {}},
        {"mnuChangedFile", "Chg", {}},
        {"mnuAllFile", "Same", {}},
    };
    for (const auto& c : cases) {
        for (const char* name : {"1/n", "2/m"}) Put(name);
        for (const char* name : {"1/m", "2/n"}) files.Remove(name);
        files.Copies.clear();
        ClickMenu("mnuCompare");
        EXPECT_EQ(form.CurrentViewCode(), "NewChg");
        ClickMenu(c.Menu);
        EXPECT_EQ(form.CurrentViewCode(), c.View);
        EXPECT_EQ(files.Copies, c.Copies) << c.Menu;
    }
}

TEST_F(MenusTest, ExportsAreOfTheirLists) {
    for (const char* name : {"1/n", "1/c"}) Put(name);
    Put("2/c", fakes::kNew);
    PutBoth("same");
    form.Command3.Click();
    const std::pair<const char*, const char*> cases[] = {
        {"mnuExportNew", "New Files"},
        {"mnuExportModify", "Modified Files"},
        {"mnuExportNewModify", "New and Modified Files"},
        {"mnuExportSame", "Same Files"}};
    for (const auto& [menu, proposed] : cases) {
        ClickMenu(menu);
        EXPECT_EQ(dialogs.Requests.back().ProposedName, proposed) << menu;
    }
    ClickMenu("mnuOpen");
    EXPECT_EQ(dialogs.Requests.back().Title, "Select a text file");
}

TEST_F(MenusTest, HistoryHelpAndAbout) {
    form.Command3.Click();
    ClickMenu("mnuClearProfile");
    EXPECT_TRUE(form.Combo1.Entries().empty());
    ClickMenu("mnuContents");
    EXPECT_EQ(dialogs.Messages.back().Title, "Help Document");
    ClickMenu("mnuAbout");
    EXPECT_TRUE(dialogs.Messages.back().Text.starts_with("Varnel ,  Version 8.12\r\n"));
    EXPECT_EQ(dialogs.Messages.back().Icon, platform::MessageIcon::Information);
}

}  // namespace
}  // namespace app
