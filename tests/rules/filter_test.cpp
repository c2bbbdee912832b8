// The file filter, its dialog and the line that describes it.
#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "fakes/layout_faults.h"
#include "fakes/main_window.h"
#include "rules/filter_dialog.h"

namespace rules {
namespace {

using fakes::Texts;

TEST(FileFilter, AnExtensionFollowsTheLastDotWithinTenBytes) {
    const std::pair<const char*, const char*> cases[] = {
        {"A.TXT", "TXT"},
        {"a.tar.gz", "gz"},
        {".profile", "profile"},
        {"name.", ""},
        {"", "XXXXXXXX"},
        {"a.123456789", "123456789"},
        {"a.1234567890", "XXXXXXXX"},
        {".x/ab", "x/ab"},
    };
    for (const auto& [name, extension] : cases) EXPECT_EQ(FileExtensionOf(name), extension) << name;
}

TEST(FileFilter, LooksForTheBareExtensionAnywhereInTheList) {
    const struct {
        const char* Extensions;
        const char* Name;
        bool Listed, ListedForCopy;
    } cases[] = {
        {"/txt", "a.txt", true, true},     {"/txt", "a.t", true, true},
        {"/txt", "a.txtx", false, false},  {"/txt", "A.TXT", false, true},
        {"/TXT", "a.Tx", false, true},     {"/txt", "README", false, false},
        {"/txt", "name.", true, true},     {"/jpg/bmp", "a.bmp", true, true},
        {"/jpg/bmp", "a.g/b", true, true},
    };
    for (const auto& c : cases) {
        for (const bool only : {true, false}) {
            EXPECT_EQ(PassesFileFilter({c.Extensions, only}, c.Name), c.Listed == only) << c.Name;
            EXPECT_EQ(PassesCopyFilter({c.Extensions, only}, c.Name), c.ListedForCopy == only)
                << c.Name;
            EXPECT_TRUE(PassesFileFilter({"", only}, c.Name)) << "everything passes an empty list";
            EXPECT_TRUE(PassesCopyFilter({"", only}, c.Name));
        }
    }
}

class FilterDialogTest : public fakes::MainWindowTest {
  protected:
    // Opens the dialog from the window's filter line; `user` acts in it.
    void Edit(const std::function<void()>& user) {
        host.OnModal = [&](platform::Form& opened) {
            EXPECT_EQ(&opened, &dialog.FormFilter);
            user();
        };
        form.LabelFileFilter.Click();
    }
    void Add(const std::string& typed) {
        dialog.TextAddto.Paste(typed);
        dialog.Command1.Click();
    }
    void RemoveFirst() {
        dialog.List1.Select(0);
        dialog.Command2.Click();
    }

    // As the history keeps it, and as the window's line and its tooltip say it.
    Texts Filter() const {
        const std::string pair = "/a==========" + fakes::FakeFiles::Path("2") + "==========";
        const std::string slot = registry.Values.at("SOFTWARE\\SystemInfoFolderCS1993\\P0");
        return {slot.substr(pair.size()), form.LabelFileFilter.Caption(),
                form.LabelFileFilter.ToolTip()};
    }

    FilterDialog& dialog = form.FilterDialog;
};

TEST_F(FilterDialogTest, OpensOverTheWindowWithTheFiltersEntriesAndMode) {
    EXPECT_EQ(fakes::LayoutFaults(dialog.FormFilter), Texts());
    form.Window.Bounds = {1000, 2000, 15360, 10000};
    form.Filter = {"/jpg//bmp/jpg", true};
    Edit([&] {
        EXPECT_EQ(dialog.List1.Entries(), (Texts{"jpg", "bmp"}));
        EXPECT_TRUE(dialog.OptionOnly.Value());
        EXPECT_EQ(dialog.FormFilter.Bounds.Top, 3500);
        RemoveFirst();
        dialog.OptionExc.Click();
        dialog.FormFilter.OnActivate();  // comes back to the window
        EXPECT_EQ(dialog.List1.Entries(), Texts{"bmp"});
        EXPECT_TRUE(dialog.OptionExc.Value());
        dialog.TextAddto.Type("aZ.-_ 9,\b;/m");
        EXPECT_EQ(dialog.TextAddto.Text(), "aZ9,m");
    });
    EXPECT_FALSE(dialog.TextAddto.Accepts(U'é'));
    for (const char32_t shortcut : {U'\x03', U'\x16', U'\x18'})  // copy, paste, cut
        EXPECT_TRUE(dialog.TextAddto.Accepts(shortcut));
}

TEST_F(FilterDialogTest, AddSplitsLowersAndLeavesOutWhatIsThere) {
    const std::pair<std::string, Texts> cases[] = {
        {" TXT, Doc ,,jpg,txt", {"old", "txt", " doc ", "jpg"}},
        {"old,new", {"old", "new"}},
        {" , ,", {"old", " "}},
        {std::string(10000, ',') + "last,beyond", {"old", "last"}},  // 10,001 pieces are looked at
    };
    form.Filter.FilterExtensions = "/old";
    for (const auto& [text, entries] : cases) {
        Edit([&, &text = text, &entries = entries] {
            Add(text);
            EXPECT_EQ(dialog.List1.Entries(), entries);
            EXPECT_EQ(dialog.TextAddto.Text(), text);
        });
    }
}

TEST_F(FilterDialogTest, RemoveSelectsTheEntryBefore) {
    const struct {
        int Selected;
        Texts Left;
        int SelectedAfter;
    } cases[] = {
        {-1, {"a", "b", "c"}, -1}, {0, {"b", "c"}, 0}, {1, {"a", "c"}, 0}, {2, {"a", "b"}, 1}};
    form.Filter.FilterExtensions = "/a/b/c";
    for (const auto& c : cases) {
        Edit([&] {
            dialog.List1.Select(c.Selected);
            dialog.Command2.Click();
            EXPECT_EQ(dialog.List1.Entries(), c.Left) << c.Selected;
            EXPECT_EQ(dialog.List1.ListIndex(), c.SelectedAfter) << c.Selected;
        });
    }
}

TEST_F(FilterDialogTest, OkTakesEntriesAndModeAndCancelForgetsThem) {
    form.Combo1.Edit("  /a ");
    Edit([this] {
        dialog.OptionOnly.Click();
        Add("JPG,bmp");
        dialog.CommandOK.Click();
    });
    const std::string only = "Only sync files with extensions:  .jpg .bmp";
    EXPECT_EQ(Filter(), (Texts{"/jpg/bmp==========-1", only, only}));
    Edit([this] {
        EXPECT_EQ(dialog.TextAddto.Text(), "");
        dialog.OptionExc.Click();
        Add("txt");
        dialog.Command3.Click();
    });
    EXPECT_EQ(Filter(), (Texts{"/jpg/bmp==========-1", only, only}));
    Edit([this] {
        RemoveFirst();
        dialog.OptionExc.Click();
        dialog.CommandOK.Click();
    });
    EXPECT_EQ(Filter(), (Texts{"/bmp==========0", "Sync all files excluding:  .bmp",
                               "Copy all files excluding:  .bmp"}));
    EXPECT_EQ(TakeMessages(), Texts());
    Edit([this] {
        RemoveFirst();
        dialog.OptionOnly.Click();
        dialog.CommandOK.Click();
        EXPECT_EQ(TakeMessages(), Texts{"Please input the file extensions.   "});
        EXPECT_TRUE(host.IsShown(dialog.FormFilter));
        EXPECT_EQ(form.Filter.FilterExtensions, "/bmp");
        dialog.OptionExc.Click();
        dialog.CommandOK.Click();
    });
    EXPECT_FALSE(host.IsShown(dialog.FormFilter));
    EXPECT_EQ(Filter(), (Texts{"==========0", "Sync all type of file.", "Sync all type of file."}));
}

}  // namespace
}  // namespace rules
