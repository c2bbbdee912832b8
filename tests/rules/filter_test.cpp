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

TEST(FileFilter, LooksForTheBareExtensionAnywhereInTheList) {
    const struct {
        const char* Extensions;
        const char* Name;
        bool Listed, ListedForCopy;
    } cases[] = {
        {"/txt", "a.txt", true, true},
        {"/txt", "a.t", true, true},
        {"/txt", "a.txtx", false, false},
        {"/txt", "A.TXT", false, true},
        {"/TXT", "a.Tx", false, true},
        {"/txt", "name.", true, true},
        {"/tar", "a.tar.gz", false, false},
        {"/jpg/bmp", "a.bmp", true, true},
        {"/jpg/bmp", "a.g/b", true, true},
        {"/123456789", "a.123456789", true, true},
        {"/1234567890", "a.1234567890", false, false},  // further from the end than is looked
        {"/XXXXXXXX", "none", true, true},
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
        host.OnModal = [&](platform::Form&) { user(); };
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
    void ExpectDescribed(const std::string& line, const std::string& toolTip) {
        EXPECT_EQ(form.LabelFileFilter.Caption(), line);
        EXPECT_EQ(form.LabelFileFilter.ToolTip(), toolTip);
    }

    FilterDialog& dialog = form.FilterDialog;
};

TEST_F(FilterDialogTest, ListsTheFiltersEntriesUntilTheyAreRemoved) {
    EXPECT_EQ(fakes::LayoutFaults(dialog.FormFilter), Texts());
    form.Filter = {"/jpg//bmp/jpg/a/b", true};
    Edit([&] {
        EXPECT_TRUE(host.IsShown(dialog.FormFilter));
        EXPECT_GT(dialog.FormFilter.Bounds.Top, form.Window.Bounds.Top);
        EXPECT_EQ(dialog.List1.Entries(), (Texts{"jpg", "bmp", "a", "b"}));
        EXPECT_TRUE(dialog.OptionOnly.Value());
        dialog.Command2.Click();  // none is selected
        for (const auto& [entry, selectedAfter] : {std::pair{3, 2}, {1, 0}, {0, 0}}) {
            dialog.List1.Select(entry);
            dialog.Command2.Click();
            EXPECT_EQ(dialog.List1.ListIndex(), selectedAfter);
        }
        dialog.OptionExc.Click();
        dialog.FormFilter.OnActivate();  // comes back to the window
        EXPECT_EQ(dialog.List1.Entries(), Texts{"a"});
        EXPECT_TRUE(dialog.OptionExc.Value());
    });
}

TEST_F(FilterDialogTest, AddTakesLettersAndDigitsSplitsLowersAndLeavesOutWhatIsThere) {
    form.Filter.FilterExtensions = "/old";
    Edit([&] {
        dialog.TextAddto.Type("aZ.-_ 9,\b;/m");
        EXPECT_EQ(dialog.TextAddto.Text(), "aZ9,m");
        Add(" TXT, Doc ,,jpg,txt");
        EXPECT_EQ(dialog.List1.Entries(), (Texts{"old", "txt", " doc ", "jpg"}));
        Add("old,new");
        EXPECT_EQ(dialog.List1.Entries().back(), "new");
        Add(std::string(10000, ',') + "last,beyond");  // 10,001 pieces are looked at
        EXPECT_EQ(dialog.List1.Entries().back(), "last");
    });
    EXPECT_FALSE(dialog.TextAddto.Accepts(U'é'));
    for (const char32_t shortcut : {U'\x03', U'\x16', U'\x18'})  // copy, paste, cut
        EXPECT_TRUE(dialog.TextAddto.Accepts(shortcut));
}

TEST_F(FilterDialogTest, OkTakesEntriesAndModeAndCancelForgetsThem) {
    form.Combo1.Edit("  /a ");
    Edit([this] {
        dialog.OptionOnly.Click();
        Add("JPG,bmp");
        dialog.CommandOK.Click();
    });
    Edit([this] {
        EXPECT_EQ(dialog.TextAddto.Text(), "");
        dialog.OptionExc.Click();
        Add("txt");
        dialog.Command3.Click();
    });
    const std::string only = "Only sync files with extensions:  .jpg .bmp";
    ExpectDescribed(only, only);
    EXPECT_EQ(registry.Values.rbegin()->second,
              "/a==========" + fakes::FakeFiles::Path("2") + "==========/jpg/bmp==========-1");
    Edit([this] {
        RemoveFirst();
        dialog.OptionExc.Click();
        dialog.CommandOK.Click();
    });
    ExpectDescribed("Sync all files excluding:  .bmp", "Copy all files excluding:  .bmp");
    Edit([this] {
        RemoveFirst();
        dialog.OptionOnly.Click();
        dialog.CommandOK.Click();
        EXPECT_EQ(TakeMessages(), Texts{"Please input the file extensions.   "});
        EXPECT_EQ(form.Filter.FilterExtensions, "/bmp");
        dialog.OptionExc.Click();
        dialog.CommandOK.Click();
        EXPECT_FALSE(host.IsShown(dialog.FormFilter));
    });
    ExpectDescribed("Sync all type of file.", "Sync all type of file.");
}

}  // namespace
}  // namespace rules
