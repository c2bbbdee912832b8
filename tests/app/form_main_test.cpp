#include "app/form_main.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/layout_faults.h"
#include "fakes/main_window.h"

namespace app {
namespace {

using fakes::FakeFiles;
using fakes::kNew;
using fakes::Texts;
using platform::MessageIcon;

const std::string kSlash(1, platform::Separator);

class FormMainTest : public fakes::MainWindowTest {};

// A window as it is when the program starts, with one pair and its filter in the history.
struct Started {
    explicit Started(const std::string& commandLine) {
        registry.CreateKey("SOFTWARE\\SystemInfoFolderCS1993\\P0");
        registry.WriteDefault("SOFTWARE\\SystemInfoFolderCS1993\\P0",
                              "/h1==========/h2==========/txt==========-1");
        form.Load(commandLine);
    }
    FakeFiles files;
    fakes::MemoryRegistry registry;
    platform::headless::Host host;
    platform::headless::Dialogs dialogs;
    platform::headless::Shell shell;
    FormMain form{{host, files, registry, dialogs, shell}};
};

TEST(FormMainStart, TheCommandLineGoesBeforeTheHistory) {
    struct Case {
        const char* CommandLine;
        Texts Folders;
        const char* Filter;
    };
    const Texts kept{"/h1", "/h2"};
    const Case cases[] = {
        {"", kept, "/txt"},
        {"/a , /b", {"/a", "/b"}, ""},
        {"  /a x,/b  ", {"/a x", "/b"}, ""},
        {"\"/a x\",\"/b y\"", {"/a x", "/b y"}, ""},
        {" \" /a\" ,  \"\"/b\"\" ", {" /a", "\"/b\""}, ""},
        {"\"/a,/b\"", {"\"/a", "/b\""}, ""},
        {"/a,", {"/a", ""}, ""},
        {" ,/b", kept, "/txt"},
        {"\"\",/b", kept, "/txt"},
        {",", kept, "/txt"},
        {"/a", kept, "/txt"},
        {"/a,/b,/c", kept, "/txt"},
        {"/a,/b,", kept, "/txt"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.CommandLine);
        const Started program(c.CommandLine);
        EXPECT_EQ((Texts{program.form.Combo1.Text(), program.form.Combo2.Text()}), c.Folders);
        EXPECT_EQ(program.form.Combo1.Entries(), Texts{"/h1"});
        EXPECT_EQ(program.form.Combo2.Entries(), Texts{"/h2"});
        EXPECT_EQ(program.form.Filter.FilterExtensions, c.Filter);
        EXPECT_TRUE(program.dialogs.Messages.empty());
    }
}

TEST_F(FormMainTest, StandsSlightlyAboveTheMiddleOfTheScreen) {
    class Screen : public platform::headless::Host {
      public:
        Screen(int width, int height) : width_(width), height_(height) {}
        int ScreenWidth() const override { return width_; }
        int ScreenHeight() const override { return height_; }

      private:
        int width_, height_;
    };
    struct Case {
        int Width, Height;
        platform::Place Bounds;
    };
    const Case cases[] = {{28'800, 16'200, {6'720, 2'583, 15'360, 10'000}},
                          {9'600, 7'600, {-2'880, -1'000, 15'360, 10'000}}};
    for (const Case& c : cases) {
        Screen screen(c.Width, c.Height);
        FormMain small({screen, files, registry, dialogs, shell});
        small.Load("");
        EXPECT_EQ(small.Window.Bounds, c.Bounds);
    }
}

TEST_F(FormMainTest, WhatIsShownAtTheStart) {
    EXPECT_EQ(form.Window.Caption, " Varnel ,  Version 8.12");
    EXPECT_EQ(form.LabelTip1.Caption(),
              "How to start ?\r\nClick 'Browse' button to select the folder 1 and folder 2, then "
              "click 'Compare' button.");
    EXPECT_EQ(form.LabelFileFilter.Caption(), "File Filter:  Sync all type of files.");
    EXPECT_EQ(form.Command3.Caption(), "Compare");
    EXPECT_EQ(form.TextFileName.Text(), "");
    for (const platform::Button* stop : {&form.Command8, &form.Command9, &form.Command10}) {
        EXPECT_EQ(stop->Place().Top, 7100);
        EXPECT_FALSE(stop->Visible());
    }
    for (const platform::Control* hidden : std::initializer_list<const platform::Control*>{
             &form.CmdOpenFolder1, &form.CmdOpenFolder2, &form.lblComparing, &form.Picture3})
        EXPECT_FALSE(hidden->Visible()) << hidden->Name();
    EXPECT_EQ(form.CurrentViewCode(), "");
}

TEST_F(FormMainTest, TheControlsFit) {
    form.LabelNewFile.Click();
    EXPECT_EQ(fakes::LayoutFaults(form.Window), Texts());
}

TEST_F(FormMainTest, BrowsingPutsTheFolderIntoItsBox) {
    struct Case {
        const char* Picked;
        std::string Text;
    };
    const Case cases[] = {{"/picked", "/picked" + kSlash}, {nullptr, "before"}};
    struct Box {
        platform::Button* Command;
        platform::ComboBox* Combo;
    };
    for (const Box& box :
         {Box{&form.CommandBrowse1, &form.Combo1}, Box{&form.CommandBrowse2, &form.Combo2}})
        for (const Case& c : cases) {
            box.Combo->Edit("before");
            if (c.Picked) dialogs.FolderAnswers.push_back(c.Picked);
            box.Command->Click();
            EXPECT_EQ(box.Combo->Text(), c.Text);
        }
    dialogs.FolderAnswers = {"D:" + kSlash, FakeFiles::Path("1")};
    ClickMenu("mnuFolder1");
    ClickMenu("mnuFolder2");
    EXPECT_EQ(form.Combo1.Text(), "D:" + kSlash);
    EXPECT_EQ(form.Combo2.Text(), FakeFiles::Path("1") + kSlash);
    EXPECT_EQ(dialogs.Prompts, Texts(6, "Please select Folder 1:"));
    EXPECT_EQ(host.ShownForms, std::vector<const platform::Form*>{&form.Window});
}

TEST_F(FormMainTest, ThePickerOpensOnItsOwnForm) {
    class Picker : public platform::headless::Dialogs {
      public:
        const platform::headless::Host* Host = nullptr;
        Texts Owners;
        platform::Place At;
        std::optional<std::string> PickFolder(const std::string&,
                                              const platform::Form& owner) override {
            Owners.push_back(owner.Name + (Host->IsShown(owner) ? " shown" : ""));
            At = owner.Bounds;
            return std::nullopt;
        }
    } picker;
    picker.Host = &host;
    FormMain other({host, files, registry, picker, shell});
    other.Load("");
    other.CommandBrowse1.Click();
    EXPECT_EQ(picker.Owners, Texts{"FormSelFolder shown"});
    EXPECT_EQ(picker.At.Left, other.Window.Bounds.Left + 1000);
    EXPECT_EQ(picker.At.Top, other.Window.Bounds.Top + 600);
}

TEST_F(FormMainTest, OpenButtonsAppearUnderThePointerAndOpenWhatTheBoxSays) {
    struct Side {
        platform::Image* Image;
        platform::Button* Button;
        platform::ComboBox* Combo;
        const char* Menu;
    };
    const Side sides[] = {
        {&form.ImageOpenFolder1, &form.CmdOpenFolder1, &form.Combo1, "mnuOpenFolder1"},
        {&form.ImageOpenFolder2, &form.CmdOpenFolder2, &form.Combo2, "mnuOpenFolder2"}};
    for (const Side& side : sides) {
        for (const char* blank : {"", "   "}) {
            side.Combo->Edit(blank);
            side.Image->PointerMove({});
            EXPECT_FALSE(side.Button->Visible());
        }
        side.Combo->Edit(" missing ");
        side.Image->PointerMove({});
        EXPECT_TRUE(side.Button->Visible());
        EXPECT_GT(side.Button->ZOrder(), side.Image->ZOrder());
        side.Button->Click();
        ClickMenu(side.Menu);
    }
    EXPECT_EQ(shell.OpenedFolders, Texts(4, " missing "));
    form.Window.OnPointerMove({});
    EXPECT_FALSE(form.CmdOpenFolder1.Visible() || form.CmdOpenFolder2.Visible());
}

TEST_F(FormMainTest, ThePointerOnPlainGroundEndsTipsAndHovering) {
    for (const char* name : {"a", "b", "c"}) Put(std::string("1/") + name);
    form.Command3.Click();
    form.Command4.PointerMove({});
    EXPECT_NE(form.LabelTip.Caption(), "");
    form.LabelTip1.PointerMove({});
    EXPECT_EQ(form.LabelTip.Caption(), "");

    form.Command5.PointerMove({});
    form.sFile1[2].PointerMove({});
    EXPECT_EQ(form.sFile1[2].BackColor(), 0xFFFF80u);
    form.Picture1.PointerMove({});
    EXPECT_EQ(form.LabelTip.Caption(), "");
    EXPECT_EQ(form.sFile1[2].BackColor(), 0xFFFFC0u);
}

TEST_F(FormMainTest, ScrollingByKeyAndWheel) {
    for (int i = 0; i < 60; ++i) Put("1/n" + std::to_string(i));
    form.Command3.Click();
    form.Window.OnScrollKey(platform::ScrollKey::PageDown);
    form.Window.OnWheel(3);
    EXPECT_EQ(form.sTYPE[0].Caption(), "29.");
    EXPECT_EQ(form.VScroll1.Value(), 28);
    form.VScroll1.Scroll(2);
    EXPECT_EQ(form.sTYPE[24].Caption(), "27.");
    form.CheckShowPath1.Click();
    EXPECT_EQ(form.sFile1[0].Caption(), FakeFiles::Path("1/n2"));
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
    EXPECT_EQ(registry.Values.at("SOFTWARE\\SystemInfoFolderCS1993\\P0"),
              "/a==========" + FakeFiles::Path("2") + "==========/txt/doc==========-1");
}

TEST_F(FormMainTest, ClosingUnloadsWhatIsOpen) {
    host.Show(form.FilterDialog.FormFilter);
    EXPECT_TRUE(form.Window.OnCloseRequest());
    EXPECT_FALSE(host.IsShown(form.FilterDialog.FormFilter));
    host.Show(form.FilterDialog.FormFilter);
    ClickMenu("mnuExit");
    EXPECT_TRUE(host.ShownForms.empty());
    EXPECT_TRUE(dialogs.Messages.empty());
    EXPECT_TRUE(registry.Values.empty());
}

}  // namespace
}  // namespace app
