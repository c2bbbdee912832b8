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

const std::string kSlash(1, platform::Separator);
const std::string kSlot0 = "SOFTWARE\\SystemInfoFolderCS1993\\P0";

class FormMainTest : public fakes::MainWindowTest {};

TEST_F(FormMainTest, TheCommandLineGoesBeforeTheHistory) {
    const Texts kept{"/h1", "/h2"};
    const struct {
        const char* CommandLine;
        Texts Folders;
        const char* Filter;
    } cases[] = {
        {"", kept, "/txt"},
        {"  /a x,/b  ", {"/a x", "/b"}, ""},
        {" \" /a\" ,  \"\"/b\"\" ", {" /a", "\"/b\""}, ""},
        {"\"/a,/b\"", {"\"/a", "/b\""}, ""},
        {"/a,", {"/a", ""}, ""},
        {"\"\",/b", kept, "/txt"},
        {"/a", kept, "/txt"},
        {"/a,/b,", kept, "/txt"},
    };
    registry.CreateKey(kSlot0);
    registry.WriteDefault(kSlot0, "/h1==========/h2==========/txt==========-1");
    for (const auto& c : cases) {
        SCOPED_TRACE(c.CommandLine);
        form.Filter = {};
        form.Combo1.ClearEntries();
        form.Load(c.CommandLine);
        EXPECT_EQ((Texts{form.Combo1.Text(), form.Combo2.Text()}), c.Folders);
        EXPECT_EQ(form.Combo1.Entries(), Texts{"/h1"});
        EXPECT_EQ(form.Filter.FilterExtensions, c.Filter);
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
    EXPECT_EQ(form.Window.Caption, " Varnel ,  Version 8.12");
}

TEST_F(FormMainTest, BrowsingPutsTheFolderIntoItsBox) {
    const std::pair<std::function<void()>, platform::ComboBox*> ways[] = {
        {[this] { form.CommandBrowse1.Click(); }, &form.Combo1},
        {[this] { form.CommandBrowse2.Click(); }, &form.Combo2},
        {[this] { ClickMenu("mnuFolder1"); }, &form.Combo1},
        {[this] { ClickMenu("mnuFolder2"); }, &form.Combo2}};
    for (const auto& [browse, box] : ways) {
        box->Edit("before");
        browse();
        EXPECT_EQ(box->Text(), "before") << "cancelled";
        for (const std::string& picked : {std::string("/picked"), "D:" + kSlash}) {
            dialogs.FolderAnswers = {picked};
            browse();
            EXPECT_EQ(box->Text(), platform::WithSeparator(picked));
        }
    }
    EXPECT_EQ(dialogs.Prompts, Texts(12, "Please select Folder 1:"));
    EXPECT_EQ(host.ShownForms, std::vector<const platform::Form*>{&form.Window});
}

TEST_F(FormMainTest, OpenButtonsAppearUnderThePointerAndOpenWhatTheBoxSays) {
    const struct {
        platform::Image* Image;
        platform::Button* Button;
        platform::ComboBox* Combo;
        const char* Menu;
    } sides[] = {{&form.ImageOpenFolder1, &form.CmdOpenFolder1, &form.Combo1, "mnuOpenFolder1"},
                 {&form.ImageOpenFolder2, &form.CmdOpenFolder2, &form.Combo2, "mnuOpenFolder2"}};
    for (const auto& side : sides) {
        for (const std::string text : {"   ", " missing "}) {
            side.Combo->Edit(text);
            side.Image->PointerMove({});
            EXPECT_EQ(side.Button->Visible(), text == " missing ");
        }
        EXPECT_GT(side.Button->ZOrder(), side.Image->ZOrder());
        side.Button->Click();
        ClickMenu(side.Menu);
        side.Combo->Edit("");
    }
    EXPECT_EQ(shell.OpenedFolders, Texts(4, " missing "));
    form.Window.OnPointerMove({});
    EXPECT_FALSE(form.CmdOpenFolder1.Visible() || form.CmdOpenFolder2.Visible());
}

TEST_F(FormMainTest, ThePointerOnPlainGroundEndsTipsAndHovering) {
    for (const char* name : {"1/a", "1/b", "1/c"}) Put(name);
    form.Command3.Click();
    for (platform::Control* ground :
         std::initializer_list<platform::Control*>{&form.LabelTip1, &form.Picture1}) {
        form.Command4.PointerMove({});
        EXPECT_NE(form.LabelTip.Caption(), "");
        ground->PointerMove({});
        EXPECT_EQ(form.LabelTip.Caption(), "");
    }
    form.sFile1[2].PointerMove({});
    form.Picture1.PointerMove({});
    EXPECT_EQ(form.sFile1[2].BackColor(), 0xFFFFC0u);
}

// The panel knows its row by the row's number in the list that was shown.
TEST_F(FormMainTest, TheDirectionPanelGoesWhenAnotherViewComes) {
    for (int i = 0; i < 60; ++i) Put("1/n" + std::to_string(i));
    form.Command3.Click();
    const std::function<void()> changes[] = {
        [this] { form.LabelAllFile.Click(); }, [this] { form.LabelNewFile.Click(); },
        [this] { form.VScroll1.Scroll(3); },   [this] { form.CheckShowPath1.Click(); },
        [this] { form.Command3.Click(); },     [this] { form.Command4.Click(); }};
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

TEST_F(FormMainTest, TheMenuClearsTheHistoryHelpsAndSaysWhatThisIs) {
    form.Command3.Click();
    ClickMenu("mnuClearProfile");
    EXPECT_TRUE(form.Combo1.Entries().empty());
    ClickMenu("mnuContents");
    EXPECT_EQ(dialogs.Messages.back().Title, "Help Document");
    ClickMenu("mnuAbout");
    EXPECT_TRUE(dialogs.Messages.back().Text.starts_with("Varnel ,  Version 8.12\r\n"));
    EXPECT_EQ(dialogs.Messages.back().Icon, platform::MessageIcon::Information);
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
