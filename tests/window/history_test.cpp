// The history of folder pairs in the real registry, across starts.
#include "window/window_fixture.h"

namespace window {

namespace {

const std::string kBetween = "==========";

class HistoryTest : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        if (IsSkipped()) return;
        Files.MakeFolder("3");
        Put("1/same.txt", "same");
        Put("2/same.txt", "same");
    }
    std::string Folder3() const { return Files.Path("3"); }
    std::string Stored(const std::string& folder1, const std::string& folder2,
                       const std::string& filter = "", const std::string& mode = "0") const {
        return folder1 + kBetween + folder2 + kBetween + filter + kBetween + mode;
    }
};

TEST_F(HistoryTest, IsKeptAcrossStarts) {
    {
        const Program varnel(Pair());
        varnel.Compare();
        EXPECT_EQ(varnel.Look("Combo1").Entries, Texts{Folder1()});
        EXPECT_EQ(HistoryValue(0), Stored(Folder1(), Folder2()));
        varnel.Paste("Combo2", Folder3());
        varnel.WaitForText("Combo2", Folder3());
        varnel.Compare();
        EXPECT_EQ(HistoryValue(1), Stored(Folder1(), Folder3()));
        varnel.Compare();  // a known pair is not remembered twice
        EXPECT_EQ(HistoryValue(2), "");
        varnel.Close();
    }
    const Program varnel;
    EXPECT_EQ(varnel.Look("Combo1").Entries, (Texts{Folder1(), Folder1()}));
    EXPECT_EQ(varnel.Look("Combo2").Entries, (Texts{Folder2(), Folder3()}));
    EXPECT_EQ(varnel.Text("Combo1"), Folder1());
    EXPECT_EQ(varnel.Text("Combo2"), Folder2());
    varnel.Compare();
    EXPECT_EQ(varnel.Text("LabelShow"), "Same Files:  1");
}

TEST_F(HistoryTest, PickingAPairBringsItsFilterBack) {
    SetHistoryValue(0, Stored("C:\\a", "C:\\b"));
    SetHistoryValue(1, Stored(Folder1(), Folder2(), "/txt", "-1"));
    SetHistoryValue(2, "C:\\short" + kBetween + "C:\\form");
    const Program varnel;
    EXPECT_EQ(varnel.Text("LabelFileFilter"), "Sync all type of file.");

    // With the pointer: the arrow, then the second line of the list.
    const RECT box = varnel.Look("Combo1").Area;
    ClickAt({box.right - 8, (box.top + box.bottom) / 2});
    const HWND combo = varnel.Look("Combo1").Window;
    WaitUntil("the list", [&] { return ::SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0) != 0; });
    const int line = static_cast<int>(::SendMessageW(combo, CB_GETITEMHEIGHT, 0, 0));
    ClickAt({box.left + 20, box.bottom + line + line / 2});
    varnel.WaitForText("Combo1", Folder1());
    varnel.WaitForText("Combo2", Folder2());
    varnel.WaitForText("LabelFileFilter", "Only sync files with extensions:  .txt");
    EXPECT_EQ(TextOf(varnel.Look("Combo2").Window), Folder2());

    // With the keyboard; a pair in the short form has no filter.
    varnel.WaitForFocus("Combo1");
    PressKey(VK_DOWN, {VK_MENU});
    WaitUntil("the list", [&] { return ::SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0) != 0; });
    PressKey(VK_DOWN);
    PressKey(VK_RETURN);
    varnel.WaitForText("Combo1", "C:\\short");
    varnel.WaitForText("Combo2", "C:\\form");
    varnel.WaitForText("LabelFileFilter", "Sync all type of file.");
    EXPECT_FALSE(ShowsMessage(varnel));  // that Enter did not start a comparison

    // Esc leaves the list and changes nothing.
    PressKey(VK_DOWN, {VK_MENU});
    WaitUntil("the list", [&] { return ::SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0) != 0; });
    PressKey(VK_UP);
    PressKey(VK_ESCAPE);
    WaitUntil("the list to close",
              [&] { return ::SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0) == 0; });
    WaitUntil("the old text", [&] { return TextOf(combo) == "C:\\short"; });
    EXPECT_EQ(varnel.Text("Combo2"), "C:\\form");
}

TEST_F(HistoryTest, IsClearedAfterAQuestion) {
    SetHistoryValue(0, Stored("C:\\a", "C:\\b"));
    SetHistoryValue(1, Stored("C:\\c", "C:\\d"));
    const ShownMessage question{MessageKind::Exclamation, "Varnel",
                                "This operation will delete all prifiles, Continue?"};
    {
        const Program varnel;
        varnel.RunMenu("mnuClearProfile");
        EXPECT_EQ(Answer(varnel, IDNO), question);
        varnel.WaitForQuiet();
        EXPECT_EQ(varnel.Look("Combo1").Entries.size(), 2u);
        EXPECT_EQ(HistoryValue(1), Stored("C:\\c", "C:\\d"));
        varnel.RunMenu("mnuClearProfile");
        EXPECT_EQ(Answer(varnel, IDYES), question);
        varnel.WaitForText("Combo1", "");
        varnel.WaitForText("Combo2", "");
        EXPECT_EQ(TextOf(varnel.Look("Combo1").Window), "");
        varnel.Close();
    }
    EXPECT_EQ(HistoryValue(0), "");
    const Program varnel;
    EXPECT_TRUE(varnel.Look("Combo1").Entries.empty());
    EXPECT_EQ(varnel.Text("Combo1"), "");
}

TEST_F(HistoryTest, AnEmptySlotEndsTheList) {
    for (const int slot : {0, 2})
        SetHistoryValue(slot, Stored("C:\\a" + std::to_string(slot), "D:\\b"));
    const Program varnel;
    EXPECT_EQ(varnel.Look("Combo1").Entries, Texts{"C:\\a0"});
}

TEST_F(HistoryTest, TheCommandLineComesFirstButTheListsAreThere) {
    SetHistoryValue(0, Stored("C:\\a", "C:\\b", "/txt", "-1"));
    const Program varnel(Pair());
    EXPECT_EQ(varnel.Text("Combo1"), Folder1());
    EXPECT_EQ(varnel.Look("Combo1").Entries, Texts{"C:\\a"});
    varnel.Compare();
    EXPECT_EQ(HistoryValue(0), Stored("C:\\a", "C:\\b", "/txt", "-1"));
    EXPECT_EQ(HistoryValue(1), Stored(Folder1(), Folder2()));
}

TEST_F(HistoryTest, ValuesThatNobodyWroteDoNoHarm) {
    const std::string values[] = {
        std::string(1024 * 1024, 'x'),
        std::string(1024 * 1024 - 1, '='),
        "no separator",
        kBetween,
        "C:\\a" + kBetween + "C:\\b" + kBetween + "/txt" + kBetween + "not a number" + kBetween,
    };
    for (const std::string& value : values) {
        SCOPED_TRACE(value.substr(0, 60));
        ClearHistory();
        SetHistoryValue(0, value);
        const Program varnel;
        varnel.Paste("Combo1", Folder1());
        varnel.Paste("Combo2", Folder2());
        varnel.WaitForText("Combo2", Folder2());
        varnel.Compare();
        EXPECT_EQ(varnel.Text("LabelShow"), "Same Files:  1");
        varnel.Close();
    }
}

}  // namespace

}  // namespace window
