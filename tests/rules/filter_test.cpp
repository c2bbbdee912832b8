// The file filter, its dialog and the line that describes it.
#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "fakes/main_window.h"
#include "rules/filter_dialog.h"

namespace rules {
namespace {

using fakes::Texts;

TEST(FileFilter, LooksForTheBareExtensionAnywhereInTheList) {
    const Texts listed{"a.txt", "a.xt", "name.", "a.123456789"};
    // The last one's lies further from the end than is looked.
    const Texts notListed{"a.txtx", "a.tar.gz", "README", "a.1234567890"};
    for (const bool only : {true, false}) {
        const FileFilter filter{"/txt/tar/1234567890", only};
        for (const std::string& name : listed) {
            EXPECT_EQ(PassesFileFilter(filter, name), only) << name;
            EXPECT_EQ(PassesCopyFilter(filter, name), only) << name;
        }
        for (const std::string& name : notListed) {
            EXPECT_NE(PassesFileFilter(filter, name), only) << name;
            EXPECT_NE(PassesCopyFilter(filter, name), only) << name;
        }
        EXPECT_NE(PassesFileFilter(filter, "A.TXT"), only);
        EXPECT_EQ(PassesCopyFilter(filter, "A.TXT"), only);
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
    void Add(const std::string& pasted) {
        dialog.TextAddto.Paste(pasted);
        dialog.Command1.Click();
    }

    FilterDialog& dialog = form.FilterDialog;
};

TEST_F(FilterDialogTest, EntriesAndModeAreEditedAndKeptByOkAlone) {
    form.Filter = {"/jpg//bmp/jpg/a", true};
    Edit([this] {
        EXPECT_GT(dialog.FormFilter.Bounds.Top, form.Window.Bounds.Top);
        EXPECT_EQ(dialog.List1.Entries(), (Texts{"jpg", "bmp", "a"}));
        EXPECT_TRUE(dialog.OptionOnly.Value());
        dialog.Command2.Click();  // none is selected
        dialog.List1.Select(2);
        for (int i = 0; i < 2; ++i) dialog.Command2.Click();  // then the one before is selected
        dialog.TextAddto.Type("aZ.-_ 9,\b;/m");
        EXPECT_EQ(dialog.TextAddto.Text(), "aZ9,m");
        Add(" TXT, Doc ,,jpg,txt");
        dialog.FormFilter.OnActivate();  // comes back to the window
        EXPECT_EQ(dialog.List1.Entries(), (Texts{"jpg", "txt", " doc "}));
        dialog.CommandOK.Click();
    });
    Edit([this] {
        EXPECT_EQ(dialog.TextAddto.Text(), "");
        dialog.OptionExc.Click();
        Add("new");
        dialog.Command3.Click();
    });
    EXPECT_EQ(form.LabelFileFilter.Caption(), "Only sync files with extensions:  .jpg .txt . doc ");
    EXPECT_EQ(registry.Values.rbegin()->second, fakes::FakeFiles::Path("1") +
                                                    "==========" + fakes::FakeFiles::Path("2") +
                                                    "==========/jpg/txt/ doc ==========-1");
    Edit([this] {
        dialog.List1.Select(2);
        dialog.Command2.Click();
        dialog.OptionExc.Click();
        dialog.CommandOK.Click();
    });
    EXPECT_EQ(form.LabelFileFilter.Caption(), "Sync all files excluding:  .jpg .txt");
    EXPECT_EQ(form.LabelFileFilter.ToolTip(), "Copy all files excluding:  .jpg .txt");
    Edit([this] {
        dialog.List1.Select(0);
        for (int i = 0; i < 2; ++i) dialog.Command2.Click();
        dialog.OptionOnly.Click();
        dialog.CommandOK.Click();
        EXPECT_EQ(TakeMessages(), Texts{"Please input the file extensions.   "});
        dialog.OptionExc.Click();
        EXPECT_TRUE(host.IsShown(dialog.FormFilter));
        dialog.CommandOK.Click();
        EXPECT_FALSE(host.IsShown(dialog.FormFilter));
    });
    EXPECT_EQ(form.LabelFileFilter.Caption(), "Sync all type of file.");
    EXPECT_FALSE(dialog.TextAddto.Accepts(U'é'));
    for (const char32_t shortcut : {U'\x03', U'\x16', U'\x18'})  // copy, paste, cut
        EXPECT_TRUE(dialog.TextAddto.Accepts(shortcut));
}

}  // namespace
}  // namespace rules
