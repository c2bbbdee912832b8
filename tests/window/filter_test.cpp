// The dialog for the file filter, with real typing.
#include "platform/win32/text_conversion.h"
#include "window/window_fixture.h"

namespace window {

namespace {

class FilterTest : public WindowTest {
  protected:
    static Form Open(const Program& varnel) {
        varnel.Click("LabelFileFilter");
        const Form filter = varnel.WaitForForm("FormFilter");
        filter.WaitForFocus("OptionExc");
        return filter;
    }
    static void WaitForEntries(const Form& filter, const Texts& entries) {
        filter.WaitFor("List1", "its entries",
                       [&](const Seen& list) { return list.Entries == entries; });
        // What the user sees, too.
        const HWND list = filter.Look("List1").Window;
        Texts shown;
        for (LRESULT i = 0; i < ::SendMessageW(list, LB_GETCOUNT, 0, 0); ++i) {
            wchar_t text[256] = L"";
            ::SendMessageW(list, LB_GETTEXT, static_cast<WPARAM>(i),
                           reinterpret_cast<LPARAM>(text));
            shown.push_back(platform::win32::Narrow(text));
        }
        EXPECT_EQ(shown, entries);
    }
    static void Close(const Program& varnel, const Form& filter, const char* button) {
        filter.Click(button);
        WaitUntil("the dialog to close", [&] { return !::IsWindow(filter.Window()); });
        varnel.WaitForQuiet();
    }
};

TEST_F(FilterTest, OpensOverTheMainWindow) {
    const Program varnel;
    const Form filter = Open(varnel);
    EXPECT_EQ(TextOf(filter.Window()), "Edit File filter Rules");
    EXPECT_EQ(filter.Look("FormFilter").Area.top - varnel.Look("FormMain").Area.top, 1500 / 15);
    EXPECT_FALSE(::IsWindowEnabled(varnel.Window()));
    EXPECT_EQ(filter.Text("OptionOnly"), "only copy the files with specific extensions:");
    EXPECT_EQ(filter.Text("OptionExc"), "Sync all excluding the files with specific extensions:");
    EXPECT_EQ(filter.Text("Label3"), "Type in multi extensions ");
    EXPECT_EQ(filter.Text("Label5"), "( jpg,bmp,gif,psd )");
    EXPECT_EQ(filter.Text("Command1"), "Add  to >>");
    EXPECT_EQ(filter.Text("Command2"), "<< Remove");
    EXPECT_FALSE(filter.Look("OptionOnly").Value);
    Close(varnel, filter, "Command3");
}

TEST_F(FilterTest, SwallowsWhatNoExtensionHolds) {
    const Program varnel;
    const Form filter = Open(varnel);
    filter.Type("TextAddto", "a.b c-d_*/?;:9Z,");
    PressKey(VK_BACK);
    TypeKeys("x");
    filter.WaitForText("TextAddto", "abcd9Z,x");
    PressKey(VK_HOME);
    PressKey(VK_DELETE);
    TypeKeys("q");
    filter.WaitForText("TextAddto", "qbcd9Z,x");
    EXPECT_EQ(TextOf(filter.Look("TextAddto").Window), "qbcd9Z,x");
    PressKey('A', {VK_CONTROL});
    PressKey('X', {VK_CONTROL});
    filter.WaitForText("TextAddto", "");
    Close(varnel, filter, "Command3");
}

TEST_F(FilterTest, AddsAndRemovesEntries) {
    const Program varnel;
    const Form filter = Open(varnel);
    filter.Paste("TextAddto", " TXT, Doc ,,jpg");  // pasting is not filtered
    filter.WaitForText("TextAddto", " TXT, Doc ,,jpg");
    filter.Click("Command1");
    WaitForEntries(filter, {"txt", " doc ", "jpg"});
    filter.Type("TextAddto", "bmp,txt,PNG");
    filter.WaitForText("TextAddto", "bmp,txt,PNG");
    filter.Click("Command1");
    WaitForEntries(filter, {"txt", " doc ", "jpg", "bmp", "png"});
    EXPECT_EQ(filter.Text("TextAddto"), "bmp,txt,PNG");

    filter.Click("Command2");  // nothing is selected
    const RECT list = filter.Look("List1").Area;
    const int height =
        static_cast<int>(::SendMessageW(filter.Look("List1").Window, LB_GETITEMHEIGHT, 0, 0));
    ClickAt({list.left + 20, list.top + 2 + height + height / 2});  // the second entry
    filter.WaitFor("List1", "selected", [](const Seen& box) { return box.Value == 1; });
    filter.Click("Command2");
    WaitForEntries(filter, {"txt", "jpg", "bmp", "png"});
    EXPECT_EQ(filter.Look("List1").Value, 0);
    filter.Click("Command2");
    WaitForEntries(filter, {"jpg", "bmp", "png"});
    EXPECT_EQ(filter.Look("List1").Value, 0);
    Close(varnel, filter, "Command3");
    varnel.WaitForText("LabelFileFilter", "Sync all type of file.");
}

TEST_F(FilterTest, OnlyModeNeedsAnEntry) {
    const Program varnel;
    const Form filter = Open(varnel);
    filter.Set("OptionOnly");
    filter.Click("CommandOK");
    EXPECT_EQ(Answer(varnel), (ShownMessage{MessageKind::Exclamation, "Varnel",
                                            "Please input the file extensions.   "}));
    EXPECT_TRUE(::IsWindow(filter.Window()));
    filter.Set("OptionExc");
    Close(varnel, filter, "CommandOK");
    varnel.WaitForText("LabelFileFilter", "Sync all type of file.");
}

TEST_F(FilterTest, RestrictsTheNextComparison) {
    for (const char* name : {"1/a.txt", "1/b.jpg", "1/c.TXT", "2/d.txt"}) Put(name, "content");
    const Program varnel(Pair());
    Form filter = Open(varnel);
    filter.Set("OptionOnly");
    filter.Type("TextAddto", "txt,doc");
    filter.WaitForText("TextAddto", "txt,doc");
    filter.Click("Command1");
    WaitForEntries(filter, {"txt", "doc"});
    Close(varnel, filter, "CommandOK");
    varnel.WaitForText("LabelFileFilter", "Only sync files with extensions:  .txt .doc");
    EXPECT_EQ(varnel.Look("LabelFileFilter").Tip, "Only sync files with extensions:  .txt .doc");
    WaitUntil("the history", [&] {
        return HistoryValue(0) ==
               Folder1() + "==========" + Folder2() + "==========/txt/doc==========-1";
    });
    varnel.Compare();
    EXPECT_EQ(varnel.Text("LabelShow"), "New and Modified Files:  2");

    varnel.Click("LabelFileFilter");  // what was chosen is there again
    filter = varnel.WaitForForm("FormFilter");
    EXPECT_TRUE(filter.Look("OptionOnly").Value);
    WaitForEntries(filter, {"txt", "doc"});
    filter.Set("OptionExc");
    PressKey(VK_RETURN);  // OK
    WaitUntil("the dialog to close", [&] { return !::IsWindow(filter.Window()); });
    varnel.WaitForText("LabelFileFilter", "Sync all files excluding:  .txt .doc");
    EXPECT_EQ(varnel.Look("LabelFileFilter").Tip, "Copy all files excluding:  .txt .doc");
    varnel.WaitForQuiet();
    varnel.Compare();
    EXPECT_EQ(varnel.Text("LabelShow"), "New and Modified Files:  2");
    EXPECT_EQ(varnel.Text("sFile1(0)"), "b.jpg");
}

TEST_F(FilterTest, EscCancels) {
    const Program varnel;
    const Form filter = Open(varnel);
    filter.Type("TextAddto", "txt");
    filter.Click("Command1");
    WaitForEntries(filter, {"txt"});
    PressKey(VK_ESCAPE);
    WaitUntil("the dialog to close", [&] { return !::IsWindow(filter.Window()); });
    varnel.WaitForQuiet();
    varnel.WaitForText("LabelFileFilter", "Sync all type of file.");
}

}  // namespace

}  // namespace window
