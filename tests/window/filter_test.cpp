// The dialog for the file filter, with real typing.
#include "window/window_fixture.h"

namespace window {

namespace {

class FilterTest : public WindowTest {
  protected:
    static Form Open(const Program& varnel) {
        varnel.Click("LabelFileFilter");
        const Form filter(WaitForWindow(varnel.Id(), "FormFilter", "Edit File filter Rules"));
        filter.WaitForFocus(filter.Look("OptionOnly").Value ? "OptionOnly" : "OptionExc");
        return filter;
    }
    static void WaitForEntries(const Form& filter, const Texts& entries) {
        filter.WaitFor("List1", [&](const Seen& list) { return list.Entries == entries; });
        EXPECT_EQ(::SendMessageW(filter.Look("List1").Window, LB_GETCOUNT, 0, 0),
                  static_cast<LRESULT>(entries.size()));
    }
};

TEST_F(FilterTest, EntriesAreTypedAddedAndRemoved) {
    const Program varnel;
    const Form filter = Open(varnel);
    EXPECT_FALSE(::IsWindowEnabled(varnel.Window()));
    filter.Set("OptionOnly");
    filter.Click("CommandOK");
    EXPECT_EQ(Answer(varnel), "exclamation Varnel: Please input the file extensions.   ");
    filter.Type("TextAddto", "B.m p_*/?;:9,");
    PressKey(VK_BACK);  // like whatever no extension holds
    TypeKeys("txt,PNG");
    filter.WaitForText("TextAddto", "Bmp9,txt,PNG");
    filter.Click("Command1");
    WaitForEntries(filter, {"bmp9", "txt", "png"});
    const Seen list = filter.Look("List1");
    const auto line = static_cast<LONG>(::SendMessageW(list.Window, LB_GETITEMHEIGHT, 0, 0));
    ClickAt({list.Area.left + 20, list.Area.top + 2 + line + line / 2});  // the second entry
    filter.WaitForValue("List1", 1);
    filter.Click("Command2");
    WaitForEntries(filter, {"bmp9", "png"});
    EXPECT_EQ(::SendMessageW(list.Window, LB_GETCURSEL, 0, 0), 0);
    PressKey(VK_ESCAPE);
    filter.WaitUntilClosed();
    varnel.WaitForText("LabelFileFilter", "Sync all type of file.");
}

TEST_F(FilterTest, RestrictsTheNextComparison) {
    for (const char* name : {"1/a.txt", "1/b.jpg", "1/c.TXT", "2/d.txt"}) Put(name, "content");
    const Program varnel(Pair());
    Form filter = Open(varnel);
    filter.Set("OptionOnly");
    filter.Fill("TextAddto", "jpg,doc");
    filter.Click("Command1");
    filter.Click("CommandOK");
    varnel.WaitForText("LabelFileFilter", "Only sync files with extensions:  .jpg .doc");
    varnel.Compare();
    EXPECT_EQ(varnel.Text("LabelShow"), "New and Modified Files:  1");
    filter = Open(varnel);
    WaitForEntries(filter, {"jpg", "doc"});
    filter.Set("OptionExc");
    PressKey(VK_RETURN);  // OK
    varnel.WaitForText("LabelFileFilter", "Sync all files excluding:  .jpg .doc");
    varnel.Compare();
    EXPECT_EQ(varnel.Text("LabelShow"), "New and Modified Files:  3");
}

}  // namespace

}  // namespace window
