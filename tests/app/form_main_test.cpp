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

class FormMainTest : public fakes::MainWindowTest {
  protected:
    void PutManyAndCompare() {
        for (int i = 0; i < 60; ++i) Put("1/n" + std::to_string(i));
        form.Command3.Click();
    }
};

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

TEST_F(FormMainTest, WhatIsShownAtTheStart) {
    EXPECT_EQ(form.Window.Caption, " Varnel ,  Version 8.12");
    EXPECT_EQ(form.Window.Bounds, (platform::Place{6'720, 2'583, 15'360, 10'000}))
        << "slightly above the middle of the screen";
    EXPECT_EQ(form.LabelTip1.Caption(),
              "How to start ?\r\nClick 'Browse' button to select the folder 1 and folder 2, then "
              "click 'Compare' button.");
    EXPECT_EQ(form.LabelFileFilter.Caption(), "File Filter:  Sync all type of files.");
    for (const char* hidden : {"Command8", "Command9", "Command10", "CmdOpenFolder1",
                               "CmdOpenFolder2", "lblComparing", "Picture3"})
        EXPECT_FALSE(form.Window.Find(hidden)->Visible()) << hidden;
    EXPECT_EQ(form.Command8.Place().Top, 7100);
    EXPECT_EQ(form.CurrentViewCode(), "");
    EXPECT_EQ(fakes::LayoutFaults(form.Window), Texts());
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
    PutManyAndCompare();
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

TEST_F(FormMainTest, ScrollingByKeyWheelAndBar) {
    PutManyAndCompare();
    form.Window.OnScrollKey(platform::ScrollKey::PageDown);
    form.Window.OnWheel(3);
    EXPECT_EQ(form.VScroll1.Value(), 28);
    form.VScroll1.Scroll(2);
    EXPECT_EQ(form.sTYPE[24].Caption(), "27.");
    form.CheckShowPath1.Click();
    EXPECT_EQ(form.sFile1[0].Caption(), FakeFiles::Path("1/n2"));
}

// The panel knows its row by the row's number in the list that was shown.
TEST_F(FormMainTest, TheDirectionPanelGoesWhenAnotherViewComes) {
    PutManyAndCompare();
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

TEST_F(FormMainTest, TheFilterLineOpensTheDialogAndKeepsThePair) {
    host.OnModal = [this](platform::Form& dialog) {
        EXPECT_EQ(&dialog, &form.FilterDialog.FormFilter);
        form.FilterDialog.OptionOnly.Click();
        form.FilterDialog.TextAddto.Type("Txt,doc");
        form.FilterDialog.Command1.Click();
        form.FilterDialog.CommandOK.Click();
    };
    form.Combo1.Edit("  /a ");
    form.LabelFileFilter.Click();
    EXPECT_EQ(form.LabelFileFilter.Caption(), "Only sync files with extensions:  .txt .doc");
    EXPECT_EQ(registry.Values.at(kSlot0),
              "/a==========" + FakeFiles::Path("2") + "==========/txt/doc==========-1");
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
