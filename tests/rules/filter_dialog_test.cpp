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
    bool IsOpen() const { return host.IsShown(dialog.FormFilter); }

    FileFilter filter;
    platform::headless::Host host;
    platform::headless::Dialogs dialogs;
    platform::Form owner{"FormMain"};
    FilterDialog dialog{filter, host, dialogs, "Varnel"};
};

TEST_F(FilterDialogTest, OpensOverTheOwnerWithTheFiltersEntriesAndMode) {
    owner.Bounds = {1000, 2000, 15360, 10000};
    filter = {"/jpg//bmp/jpg", true};
    Edit([&] {
        EXPECT_EQ(dialog.List1.Entries(), (Entries{"jpg", "bmp"}));
        EXPECT_TRUE(dialog.OptionOnly.Value());
        EXPECT_EQ(dialog.FormFilter.Bounds.Top, 3500);
    });
    filter.FilterOnlyMode = false;
    Edit([&] { EXPECT_TRUE(dialog.OptionExc.Value()); });
}

TEST_F(FilterDialogTest, ComingBackToTheWindowUndoesNothing) {
    filter = {"/jpg/bmp", true};
    Edit([&] {
        dialog.List1.Select(0);
        dialog.Command2.Click();
        dialog.OptionExc.Click();
        dialog.FormFilter.OnActivate();
        EXPECT_EQ(dialog.List1.Entries(), Entries{"bmp"});
        EXPECT_TRUE(dialog.OptionExc.Value());
    });
}

TEST_F(FilterDialogTest, TakesOnlyLettersDigitsAndCommasAsTyped) {
    Edit([&] {
        dialog.TextAddto.Type("aZ.-_ 9,\b;/m");
        EXPECT_EQ(dialog.TextAddto.Text(), "aZ9,m");
    });
    EXPECT_FALSE(dialog.TextAddto.Accepts(U'é'));
    for (const char32_t shortcut : {U'\x03', U'\x16', U'\x18'})  // copy, paste, cut
        EXPECT_TRUE(dialog.TextAddto.Accepts(shortcut));
}

TEST_F(FilterDialogTest, AddSplitsLowersAndLeavesOutWhatIsThere) {
    struct Case {
        const char* Text;
        Entries Added;
    };
    const Case cases[] = {
        {" TXT, Doc ,,jpg", {"txt", " doc ", "jpg"}},
        {"txt,txt,TXT", {"txt"}},
        {"old,new", {"new"}},
        {" , ,", {" "}},
        {"", {}},
    };
    for (const Case& c : cases) {
        filter.FilterExtensions = "/old";
        Edit([&] {
            dialog.TextAddto.Paste(c.Text);
            dialog.Command1.Click();
            Entries expected{"old"};
            expected.insert(expected.end(), c.Added.begin(), c.Added.end());
            EXPECT_EQ(dialog.List1.Entries(), expected) << c.Text;
            EXPECT_EQ(dialog.TextAddto.Text(), c.Text);
        });
    }
}

TEST_F(FilterDialogTest, AddLooksAtTenThousandAndOnePieces) {
    std::string text(10000, ',');  // 10,000 empty pieces
    text += "last,beyond";
    Edit([&] {
        dialog.TextAddto.Paste(text);
        dialog.Command1.Click();
        EXPECT_EQ(dialog.List1.Entries(), Entries{"last"});
    });
}

TEST_F(FilterDialogTest, RemoveSelectsTheEntryBefore) {
    struct Case {
        int Selected;
        Entries Left;
        int SelectedAfter;
    };
    const Case cases[] = {
        {-1, {"a", "b", "c"}, -1},
        {0, {"b", "c"}, 0},
        {1, {"a", "c"}, 0},
        {2, {"a", "b"}, 1},
    };
    filter.FilterExtensions = "/a/b/c";
    for (const Case& c : cases) {
        Edit([&] {
            dialog.List1.Select(c.Selected);
            dialog.Command2.Click();
            EXPECT_EQ(dialog.List1.Entries(), c.Left) << c.Selected;
            EXPECT_EQ(dialog.List1.ListIndex(), c.SelectedAfter) << c.Selected;
        });
    }
}

TEST_F(FilterDialogTest, OkStoresEntriesAndModeAndCloses) {
    Edit([&] {
        dialog.OptionOnly.Click();
        dialog.TextAddto.Type("JPG,bmp");
        dialog.Command1.Click();
        dialog.CommandOK.Click();
        EXPECT_FALSE(IsOpen());
    });
    EXPECT_EQ(filter.FilterExtensions, "/jpg/bmp");
    EXPECT_TRUE(filter.FilterOnlyMode);
    EXPECT_TRUE(dialogs.Messages.empty());
}

TEST_F(FilterDialogTest, OkWithoutEntriesIsForExcludingOnly) {
    filter = {"/old", true};
    Edit([&] {
        dialog.List1.Select(0);
        dialog.Command2.Click();
        dialog.CommandOK.Click();
        EXPECT_TRUE(IsOpen());
        ASSERT_EQ(dialogs.Messages.size(), 1u);
        EXPECT_EQ(dialogs.Messages[0].Text, "Please input the file extensions.   ");
        EXPECT_EQ(dialogs.Messages[0].Icon, platform::MessageIcon::Exclamation);
        EXPECT_EQ(dialogs.Messages[0].Title, "Varnel");
        EXPECT_EQ(filter.FilterExtensions, "/old");

        dialog.OptionExc.Click();
        dialog.CommandOK.Click();
        EXPECT_FALSE(IsOpen());
    });
    EXPECT_EQ(filter.FilterExtensions, "");
    EXPECT_FALSE(filter.FilterOnlyMode);
    EXPECT_EQ(dialogs.Messages.size(), 1u);
}

TEST_F(FilterDialogTest, CancelKeepsTheFilterAndForgetsTheEdits) {
    filter = {"/jpg", true};
    Edit([&] {
        dialog.OptionExc.Click();
        dialog.TextAddto.Type("bmp");
        dialog.Command1.Click();
        dialog.Command3.Click();
        EXPECT_FALSE(IsOpen());
    });
    EXPECT_EQ(filter.FilterExtensions, "/jpg");
    EXPECT_TRUE(filter.FilterOnlyMode);
    Edit([&] {
        EXPECT_EQ(dialog.List1.Entries(), Entries{"jpg"});
        EXPECT_EQ(dialog.TextAddto.Text(), "");
    });
}

TEST_F(FilterDialogTest, ItsControlsFit) {
    EXPECT_EQ(fakes::LayoutFaults(dialog.FormFilter), Entries());
}

TEST(DescribeFileFilter, NamesTheModeAndTheExtensions) {
    struct Case {
        FileFilter Filter;
        const char* Caption;
        const char* ToolTip;
    };
    const Case cases[] = {
        {{"/jpg/bmp", true},
         "Only sync files with extensions:  .jpg .bmp",
         "Only sync files with extensions:  .jpg .bmp"},
        {{"/jpg/bmp", false},
         "Sync all files excluding:  .jpg .bmp",
         "Copy all files excluding:  .jpg .bmp"},
        {{"", true}, "Sync all type of file.", "Sync all type of file."},
        {{"", false}, "Sync all type of file.", "Sync all type of file."},
    };
    platform::Label label;
    for (const Case& c : cases) {
        DescribeFileFilter(c.Filter, label);
        EXPECT_EQ(label.Caption(), c.Caption);
        EXPECT_EQ(label.ToolTip(), c.ToolTip);
    }
}

}  // namespace
}  // namespace rules
