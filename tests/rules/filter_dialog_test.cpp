#include "rules/filter_dialog.h"

#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/layout_faults.h"
#include "platform/headless/headless_host.h"

namespace rules {
namespace {

using Entries = std::vector<std::string>;

class FilterDialogTest : public testing::Test {
  protected:
    // Opens the dialog; `user` acts in it.
    void Edit(const std::function<void()>& user) {
        host.OnModal = [&](platform::Form&) { user(); };
        dialog.Edit(owner);
    }
    void ExpectFilter(const std::string& extensions, bool onlyMode) {
        EXPECT_EQ(filter.FilterExtensions, extensions);
        EXPECT_EQ(filter.FilterOnlyMode, onlyMode);
        EXPECT_FALSE(host.IsShown(dialog.FormFilter));
    }

    FileFilter filter;
    platform::headless::Host host;
    platform::headless::Dialogs dialogs;
    platform::Form owner{"FormMain"};
    FilterDialog dialog{filter, host, dialogs, "Varnel"};
};

TEST_F(FilterDialogTest, OpensOverTheOwnerWithTheFiltersEntriesAndMode) {
    EXPECT_EQ(fakes::LayoutFaults(dialog.FormFilter), Entries());
    owner.Bounds = {1000, 2000, 15360, 10000};
    filter = {"/jpg//bmp/jpg", true};
    Edit([&] {
        EXPECT_EQ(dialog.List1.Entries(), (Entries{"jpg", "bmp"}));
        EXPECT_TRUE(dialog.OptionOnly.Value());
        EXPECT_EQ(dialog.FormFilter.Bounds.Top, 3500);
        dialog.List1.Select(0);
        dialog.Command2.Click();
        dialog.OptionExc.Click();
        dialog.FormFilter.OnActivate();  // comes back to the window
        EXPECT_EQ(dialog.List1.Entries(), Entries{"bmp"});
        EXPECT_TRUE(dialog.OptionExc.Value());
        dialog.TextAddto.Type("aZ.-_ 9,\b;/m");
        EXPECT_EQ(dialog.TextAddto.Text(), "aZ9,m");
    });
    EXPECT_FALSE(dialog.TextAddto.Accepts(U'é'));
    for (const char32_t shortcut : {U'\x03', U'\x16', U'\x18'})  // copy, paste, cut
        EXPECT_TRUE(dialog.TextAddto.Accepts(shortcut));
}

TEST_F(FilterDialogTest, AddSplitsLowersAndLeavesOutWhatIsThere) {
    const std::pair<std::string, Entries> cases[] = {
        {" TXT, Doc ,,jpg", {"txt", " doc ", "jpg"}},
        {"txt,txt,TXT", {"txt"}},
        {"old,new", {"new"}},
        {" , ,", {" "}},
        {"", {}},
        {std::string(10000, ',') + "last,beyond", {"last"}},  // 10,001 pieces are looked at
    };
    filter.FilterExtensions = "/old";
    for (const auto& [text, added] : cases) {
        Edit([&, &text = text, &added = added] {
            dialog.TextAddto.Paste(text);
            dialog.Command1.Click();
            Entries entries = dialog.List1.Entries();
            EXPECT_EQ(entries[0], "old");
            entries.erase(entries.begin());
            EXPECT_EQ(entries, added);
            EXPECT_EQ(dialog.TextAddto.Text(), text);
        });
    }
}

TEST_F(FilterDialogTest, RemoveSelectsTheEntryBefore) {
    const struct {
        int Selected;
        Entries Left;
        int SelectedAfter;
    } cases[] = {
        {-1, {"a", "b", "c"}, -1}, {0, {"b", "c"}, 0}, {1, {"a", "c"}, 0}, {2, {"a", "b"}, 1}};
    filter.FilterExtensions = "/a/b/c";
    for (const auto& c : cases) {
        Edit([&] {
            dialog.List1.Select(c.Selected);
            dialog.Command2.Click();
            EXPECT_EQ(dialog.List1.Entries(), c.Left) << c.Selected;
            EXPECT_EQ(dialog.List1.ListIndex(), c.SelectedAfter) << c.Selected;
        });
    }
}

TEST_F(FilterDialogTest, OkStoresEntriesAndModeAndCancelForgetsThem) {
    Edit([&] {
        dialog.OptionOnly.Click();
        dialog.TextAddto.Type("JPG,bmp");
        dialog.Command1.Click();
        dialog.CommandOK.Click();
    });
    ExpectFilter("/jpg/bmp", true);
    Edit([&] {
        dialog.OptionExc.Click();
        dialog.TextAddto.Type("txt");
        dialog.Command1.Click();
        dialog.Command3.Click();
    });
    ExpectFilter("/jpg/bmp", true);
    Edit([&] {
        EXPECT_EQ(dialog.List1.Entries(), (Entries{"jpg", "bmp"}));
        EXPECT_EQ(dialog.TextAddto.Text(), "");
    });
    EXPECT_TRUE(dialogs.Messages.empty());
}

TEST_F(FilterDialogTest, OkWithoutEntriesIsForExcludingOnly) {
    filter = {"/old", true};
    Edit([&] {
        dialog.List1.Select(0);
        dialog.Command2.Click();
        dialog.CommandOK.Click();
        EXPECT_TRUE(host.IsShown(dialog.FormFilter));
        EXPECT_EQ(filter.FilterExtensions, "/old");
        dialog.OptionExc.Click();
        dialog.CommandOK.Click();
    });
    ExpectFilter("", false);
    ASSERT_EQ(dialogs.Messages.size(), 1u);
    EXPECT_EQ(dialogs.Messages[0].Text, "Please input the file extensions.   ");
}

TEST(DescribeFileFilter, NamesTheModeAndTheExtensions) {
    const struct {
        FileFilter Filter;
        const char* Caption;
        const char* ToolTip;
    } cases[] = {
        {{"/jpg/bmp", true},
         "Only sync files with extensions:  .jpg .bmp",
         "Only sync files with extensions:  .jpg .bmp"},
        {{"/jpg/bmp", false},
         "Sync all files excluding:  .jpg .bmp",
         "Copy all files excluding:  .jpg .bmp"},
        {{"", true}, "Sync all type of file.", "Sync all type of file."},
    };
    platform::Label label;
    for (const auto& c : cases) {
        DescribeFileFilter(c.Filter, label);
        EXPECT_EQ(label.Caption(), c.Caption);
        EXPECT_EQ(label.ToolTip(), c.ToolTip);
    }
}

}  // namespace
}  // namespace rules
