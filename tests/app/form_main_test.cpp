#include "app/form_main.h"

#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/layout_faults.h"
#include "fakes/main_window.h"

namespace app {
namespace {

using fakes::FakeFiles;
using fakes::Texts;

class FormMainTest : public fakes::MainWindowTest {};

TEST_F(FormMainTest, TheCommandLineGoesBeforeTheHistory) {
    const Texts kept{"/h1", "/h2", "/txt"};
    const std::pair<const char*, Texts> cases[] = {
        {"", kept},
        {"  /a x,/b  ", {"/a x", "/b", ""}},
        {" \" /a\" ,  \"\"/b\"\" ", {" /a", "\"/b\"", ""}},
        {"\"/a,/b\"", {"\"/a", "/b\"", ""}},
        {"\"\",/b", kept},
        {"/a", kept},
        {"/a,/b,", kept},
    };
    const std::string slot = "SOFTWARE\\SystemInfoFolderCS1993\\P0";
    registry.CreateKey(slot);
    registry.WriteDefault(slot, "/h1==========/h2==========/txt==========-1");
    for (const auto& [commandLine, start] : cases) {
        form.Filter = {};
        form.Combo1.ClearEntries();
        form.Load(commandLine);
        EXPECT_EQ((Texts{form.Combo1.Text(), form.Combo2.Text(), form.Filter.FilterExtensions}),
                  start);
        EXPECT_EQ(form.Combo1.Entries(), Texts{"/h1"});
    }
}

TEST_F(FormMainTest, TheCompanionsJobsOfBothFoldersFollowTheHistory) {
    const fakes::TempFolder documents, program;
    for (const fakes::TempFolder* folder : {&documents, &program}) {
        folder->WriteFile("Q7DB.qdb", "/job," + folder->Path() + std::string(20, ',') + ",9");
        Put(FakeFiles::NameOf(folder->Path("Q7DB.qdb")));
    }
    shell.Documents = documents.Path();
    shell.Program = program.Path();
    form.Load("");
    EXPECT_EQ(form.Combo2.Entries(), (Texts{documents.Path(), program.Path()}));
    EXPECT_EQ(form.Combo1.Text(), "") << "offered, not picked";
}

TEST_F(FormMainTest, StandsSlightlyAboveTheMiddleOfTheScreenAndItsControlsFit) {
    EXPECT_EQ(form.Window.Bounds, (platform::Place{6'720, 2'583, 15'360, 10'000}));
    EXPECT_EQ(fakes::LayoutFaults(form.Window), Texts());
}

TEST_F(FormMainTest, EachSideIsBrowsedForShownUnderThePointerAndOpened) {
    const struct {
        platform::ComboBox& Box;
        platform::Button &Browse, &Open;
        platform::Image& Image;
        const char *BrowseMenu, *OpenMenu;
    } sides[] = {{form.Combo1, form.CommandBrowse1, form.CmdOpenFolder1, form.ImageOpenFolder1,
                  "mnuFolder1", "mnuOpenFolder1"},
                 {form.Combo2, form.CommandBrowse2, form.CmdOpenFolder2, form.ImageOpenFolder2,
                  "mnuFolder2", "mnuOpenFolder2"}};
    const std::string root = std::string("D:") + platform::Separator;
    for (const auto& side : sides) {
        side.Box.Edit("   ");
        ClickMenu(side.BrowseMenu);
        EXPECT_EQ(side.Box.Text(), "   ") << "cancelled";
        side.Image.PointerMove({});
        EXPECT_FALSE(side.Open.Visible());
        const std::string picked = std::string("/") + side.OpenMenu;
        dialogs.FolderAnswers = {root, picked};
        side.Browse.Click();
        EXPECT_EQ(side.Box.Text(), root);
        ClickMenu(side.BrowseMenu);
        EXPECT_EQ(side.Box.Text(), platform::WithSeparator(picked));
        side.Image.PointerMove({});
        EXPECT_GT(side.Open.ZOrder(), side.Image.ZOrder());
        side.Open.Click();
        ClickMenu(side.OpenMenu);
        EXPECT_EQ(shell.OpenedFolders, Texts(2, side.Box.Text()));
        shell.OpenedFolders.clear();
        form.Window.OnPointerMove({});
        EXPECT_FALSE(side.Open.Visible());
    }
    EXPECT_EQ(dialogs.Prompts, Texts(6, "Please select Folder 1:"));
    EXPECT_EQ(host.ShownForms, std::vector<const platform::Form*>{&form.Window});
}

TEST_F(FormMainTest, ThePointerOnPlainGroundEndsTips) {
    form.LabelNewFile.Click();
    for (platform::Control* ground :
         std::initializer_list<platform::Control*>{&form.LabelTip1, &form.Picture1}) {
        form.Command4.PointerMove({});
        EXPECT_NE(form.LabelTip.Caption(), "");
        ground->PointerMove({});
        EXPECT_EQ(form.LabelTip.Caption(), "");
    }
}

// The panel knows its row by the row's number in the list that was shown.
TEST_F(FormMainTest, TheDirectionPanelGoesWhenAnotherViewComes) {
    for (int i = 0; i < 60; ++i) Put("1/n" + std::to_string(i));
    form.Command3.Click();
    const std::function<void()> changes[] = {
        [this] { form.LabelAllFile.Click(); }, [this] { form.VScroll1.Scroll(3); },
        [this] { form.Command3.Click(); }, [this] { form.Command4.Click(); }};
    for (const auto& change : changes) {
        form.LabelNewFile.Click();
        form.sMAC[0].Click();
        EXPECT_TRUE(form.Picture3.Visible());
        change();
        EXPECT_FALSE(form.Picture3.Visible());
        EXPECT_EQ(form.Window.DefaultButton, &form.Command3);
    }
}

TEST_F(FormMainTest, MenuCommandsAreThoseOfTheButtonsAndLabels) {
    const struct {
        const char *Menu, *View;
        Texts Copies;
    } cases[] = {
        {"mnuDoubleSync", "SyncAll", {"1/n > 2/n", "2/m > 1/m"}},
        {"mnuLeftSync", "SyncAll", {"1/n > 2/n"}},
        {"mnuRightSync", "SyncAll", {"2/m > 1/m"}},
        {"mnuNewFile", "New", {}},
        {"mnuChangedFile", "Chg", {}},
        {"mnuAllFile", "Same", {}},
    };
    for (const auto& [menu, view, copies] : cases) {
        for (const char* name : {"1/n", "2/m"}) Put(name);
        for (const char* name : {"1/m", "2/n"}) files.Remove(name);
        files.Copies.clear();
        ClickMenu("mnuCompare");
        EXPECT_EQ(form.CurrentViewCode(), "NewChg");
        ClickMenu(menu);
        EXPECT_EQ(form.CurrentViewCode(), view);
        EXPECT_EQ(files.Copies, copies) << menu;
    }
    ClickMenu("mnuClearProfile");
    EXPECT_TRUE(form.Combo1.Entries().empty());
    EXPECT_EQ(form.Combo1.Text(), "");
}

TEST_F(FormMainTest, ClosingUnloadsWhatIsOpenAndRemembersNothing) {
    host.Show(form.FilterDialog.FormFilter);
    EXPECT_TRUE(form.Window.OnCloseRequest());
    EXPECT_FALSE(host.IsShown(form.FilterDialog.FormFilter));
    ClickMenu("mnuExit");
    EXPECT_TRUE(host.ShownForms.empty());
    EXPECT_TRUE(dialogs.Messages.empty());
    EXPECT_TRUE(registry.Values.empty());
}

}  // namespace
}  // namespace app
