// The file filter, its dialog and the line that describes it.
#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace rules {
namespace {

using fakes::Texts;

TEST(FileFilter, LooksForTheBareExtensionAnywhereInTheList) {
    for (const bool only : {true, false}) {
        const FileFilter filter{"/txt/tar/1234567890", only};
        for (const char* listed : {"a.txt", "a.xt", "name.", "a.123456789"})
            EXPECT_EQ(PassesFileFilter(filter, listed), only) << listed;
        // The last one's dot lies further from the end than is looked.
        for (const char* other : {"a.txtx", "README", "A.TAR", "a.1234567890"})
            EXPECT_NE(PassesFileFilter(filter, other), only) << other;
        EXPECT_EQ(PassesCopyFilter(filter, "A.TAR"), only);
        EXPECT_NE(PassesCopyFilter(filter, "a.txtx"), only);
        EXPECT_TRUE(PassesFileFilter({"", only}, "a") && PassesCopyFilter({"", only}, "a"));
    }
}

class FilterDialogTest : public fakes::MainWindowTest {
  protected:
    // Opens the dialog from the window's filter line; `user` acts in it.
    void Edit(const std::function<void()>& user) {
        host.OnModal = [&](platform::Form&) { user(); };
        form.LabelFileFilter.Click();
    }

    FilterDialog& dialog = form.FilterDialog;
};

TEST_F(FilterDialogTest, EntriesAndModeAreEditedAndKeptByOkAlone) {
    form.Filter = {"/jpg//bmp/jpg/a", true};
    Edit([this] {
        dialog.OptionExc.Click();
        dialog.Command3.Click();
    });
    Edit([this] {
        EXPECT_GT(dialog.FormFilter.Bounds.Top, form.Window.Bounds.Top);
        EXPECT_EQ(dialog.List1.Entries(), (Texts{"jpg", "bmp", "a"}));
        EXPECT_TRUE(dialog.OptionOnly.Value());
        dialog.Command2.Click();  // none is selected
        dialog.List1.Select(2);
        for (int i = 0; i < 2; ++i) dialog.Command2.Click();  // then the one before is selected
        dialog.TextAddto.Type("aZ.-_ 9,\b;/m");
        EXPECT_EQ(dialog.TextAddto.Text(), "aZ9,m");
        dialog.TextAddto.Paste(" TXT, Doc ,,jpg,txt");
        dialog.Command1.Click();
        dialog.FormFilter.OnActivate();  // comes back to the window
        EXPECT_EQ(dialog.List1.Entries(), (Texts{"jpg", "txt", " doc "}));
        dialog.CommandOK.Click();
    });
    EXPECT_EQ(form.LabelFileFilter.Caption(), "Only sync files with extensions:  .jpg .txt . doc ");
    EXPECT_TRUE(registry.Values.rbegin()->second.ends_with("==========/jpg/txt/ doc ==========-1"));
    Edit([this] {
        EXPECT_EQ(dialog.TextAddto.Text(), "");
        EXPECT_TRUE(dialog.TextAddto.Accepts(U'\x16')) << "pasting by keys";
        dialog.OptionExc.Click();
        dialog.CommandOK.Click();
    });
    EXPECT_EQ(form.LabelFileFilter.Caption(), "Sync all files excluding:  .jpg .txt . doc ");
    Edit([this] {
        dialog.List1.Select(2);
        for (int i = 0; i < 3; ++i) dialog.Command2.Click();
        dialog.OptionOnly.Click();
        dialog.CommandOK.Click();
        EXPECT_EQ(TakeMessages(), Texts{"Please input the file extensions.   "});
        dialog.OptionExc.Click();
        dialog.CommandOK.Click();
    });
    EXPECT_EQ(form.LabelFileFilter.Caption(), "Sync all type of file.");
}

}  // namespace
}  // namespace rules
