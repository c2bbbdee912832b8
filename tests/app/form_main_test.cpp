#include "app/form_main.h"

#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace app {
namespace {

using fakes::FakeFiles;
using fakes::Texts;

class FormMainTest : public fakes::MainWindowTest {};

TEST_F(FormMainTest, TheCommandLineGoesBeforeTheHistoryAndTheCompanionsJobsComeLast) {
    registry.Values["SOFTWARE\\SystemInfoFolderCS1993\\P0"] =
        "/h1==========/h2==========/txt==========-1";
    const fakes::TempFolder documents, program;
    for (const fakes::TempFolder* folder : {&documents, &program}) {
        folder->WriteFile("Q7DB.qdb", "/job," + folder->Path() + std::string(20, ',') + ",9");
        Put(FakeFiles::NameOf(folder->Path("Q7DB.qdb")));
    }
    shell.Documents = documents.Path();
    shell.Program = program.Path();
    const Texts kept{"/h1", "/h2", "/txt"};
    const std::pair<const char*, Texts> cases[] = {
        {"", kept},       {" \"/a x\",  /b  ", {"/a x", "/b", ""}}, {"\"\",/b", kept}, {"/a", kept},
        {"/a,/b,", kept},
    };
    for (const auto& [commandLine, start] : cases) {
        form.Filter = {};
        form.Load(commandLine);
        EXPECT_EQ((Texts{form.Combo1.Text(), form.Combo2.Text(), form.Filter.FilterExtensions}),
                  start);
        EXPECT_EQ(form.Combo1.Entries(), (Texts{"/h1", "/job", "/job"}));
        EXPECT_EQ(form.Combo2.Entries(), (Texts{"/h2", documents.Path(), program.Path()}));
    }
}

TEST_F(FormMainTest, AFolderIsBrowsedForShownUnderThePointerAndOpened) {
    const std::string &folder1 = form.Combo1.Text(), &folder2 = form.Combo2.Text();
    dialogs.FolderAnswers = {"/picked 1", "/picked 2"};
    form.CommandBrowse1.Click();
    form.CommandBrowse2.Click();
    form.CommandBrowse1.Click();  // cancelled
    EXPECT_EQ(folder1, platform::WithSeparator("/picked 1"));
    EXPECT_EQ(folder2, platform::WithSeparator("/picked 2"));
    EXPECT_EQ(host.ShownForms.size(), 1u);
    EXPECT_FALSE(form.CmdOpenFolder2.Visible());
    form.ImageOpenFolder1.PointerMove({});
    form.ImageOpenFolder2.PointerMove({});
    EXPECT_GT(form.CmdOpenFolder1.ZOrder(), form.ImageOpenFolder1.ZOrder());
    form.CmdOpenFolder1.Click();
    form.CmdOpenFolder2.Click();
    EXPECT_EQ(shell.OpenedFolders, (Texts{folder1, folder2}));
    form.Window.OnPointerMove({});
    form.Combo1.Edit("  ");
    form.ImageOpenFolder1.PointerMove({});
    EXPECT_FALSE(form.CmdOpenFolder1.Visible() || form.CmdOpenFolder2.Visible());
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
    }
}

TEST_F(FormMainTest, MenusDoWhatTheButtonsAndLabelsDoForgetTheHistoryAndEnd) {
    form.Command3.Click();
    EXPECT_EQ(form.Combo1.Entries().size(), 1u);
    ClickMenu("mnuClearProfile");
    EXPECT_EQ(form.Combo1.Entries().size(), 0u);
    const std::pair<const char*, const char*> menus[] = {
        {"mnuFolder1", "CommandBrowse1"},     {"mnuFolder2", "CommandBrowse2"},
        {"mnuOpenFolder1", "CmdOpenFolder1"}, {"mnuOpenFolder2", "CmdOpenFolder2"},
        {"mnuCompare", "Command3"},           {"mnuDoubleSync", "Command4"},
        {"mnuLeftSync", "Command5"},          {"mnuRightSync", "Command6"},
        {"mnuNewFile", "LabelNewFile"},       {"mnuChangedFile", "LabelChgFile"},
        {"mnuAllFile", "LabelAllFile"},
    };
    std::string clicked;
    for (const auto& [menu, control] : menus) {
        form.Window.Find(control)->OnClick = [&clicked, name = control] { clicked = name; };
        ClickMenu(menu);
        EXPECT_EQ(clicked, control) << menu;
    }
    host.Show(form.FilterDialog.FormFilter);
    ClickMenu("mnuExit");
    EXPECT_TRUE(host.ShownForms.empty());
    EXPECT_EQ(registry.Values.rbegin()->first, "SOFTWARE") << "nothing is remembered at the end";
}

}  // namespace
}  // namespace app
