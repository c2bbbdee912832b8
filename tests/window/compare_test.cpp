// Comparisons: what the labels count, what the grid lists, what is said of bad folders.
#include "window/window_fixture.h"

namespace window {

namespace {

class CompareTest : public WindowTest {
  protected:
    const std::string o = kOlderText, n = kNewerText;
    const Texts newRows = {
        "1.|new1.txt|8|" + o + "|Copy -->|||",
        "2.|new2.txt|7|" + o + "|Copy -->|||",
        "3.||||<-- Copy|only2.txt|8|" + o,
    };
    Texts ChangedRows(int from) const {
        const std::string first = std::to_string(from), second = std::to_string(from + 1);
        return {first + ".|chg-left.txt|3|" + o + "|<-- Replace|chg-left.txt|13|" + n,
                second + ".|chg-right.txt|13|" + n + "|Replace -->|chg-right.txt|3|" + o};
    }
    Texts NewAndChangedRows() const {
        Texts rows = newRows;
        for (const std::string& row : ChangedRows(4)) rows.push_back(row);
        return rows;
    }
    const Texts sameRows = {"1.|same.txt|4|" + o + "|---/---/---|same.txt|4|" + o};
};

TEST_F(CompareTest, CountsAndShowsWhatDiffers) {
    PutSmallPair();
    const Program varnel(Pair());
    varnel.Compare();
    EXPECT_EQ(varnel.Text("LabelNewFile"), "New Files ( 3 ) ");
    EXPECT_EQ(varnel.Text("LabelChgFile"), "Modified Files ( 2 ) ");
    EXPECT_EQ(varnel.Text("LabelNewChgFile"), "New and Modified Files ( 5 ) ");
    EXPECT_EQ(varnel.Text("LabelAllFile"), "Same Files ( 1 ) ");
    EXPECT_EQ(varnel.Text("LabelShow"), "New and Modified Files:  5");
    EXPECT_EQ(varnel.Rows(), NewAndChangedRows());
    EXPECT_TRUE(varnel.Shows("LabelAllFile"));
    EXPECT_FALSE(varnel.Shows("lblComparing"));
    EXPECT_EQ(varnel.Look("VScroll1").Maximum, 0);
    EXPECT_EQ(varnel.Text("LabelFileFilter"), "Sync all type of file.");
}

TEST_F(CompareTest, LabelsAndViewMenuSwitchTheView) {
    PutSmallPair();
    const Program varnel(Pair());
    varnel.Compare();
    const struct {
        const char* Label;
        const char* Menu;
        const char* Heading;
        const char* Mark;
        Texts Rows;
    } views[] = {
        {"LabelNewFile", "mnuNewFile", "New Files:  3", "LabelMark1", newRows},
        {"LabelChgFile", "mnuChangedFile", "Modified Files:  2", "LabelMark2", ChangedRows(1)},
        {"LabelAllFile", "mnuAllFile", "Same Files:  1", "LabelMark4", sameRows},
    };
    for (const bool byMenu : {false, true}) {
        for (const auto& view : views) {
            SCOPED_TRACE(byMenu ? view.Menu : view.Label);
            byMenu ? varnel.RunMenu(view.Menu) : varnel.Click(view.Label);
            varnel.WaitForText("LabelShow", view.Heading);
            varnel.WaitForRows(view.Rows);
            for (const char* mark : {"LabelMark1", "LabelMark2", "LabelMark3", "LabelMark4"})
                EXPECT_EQ(varnel.Shows(mark), std::string(mark) == view.Mark) << mark;
        }
    }
    varnel.Click("LabelNewChgFile");
    varnel.WaitForText("LabelShow", "New and Modified Files:  5");
    varnel.WaitForRows(NewAndChangedRows());
}

TEST_F(CompareTest, ShowsPathsOnRequest) {
    PutSmallPair();
    const Program varnel(Pair());
    varnel.Compare();
    varnel.Set("CheckShowPath1");
    varnel.WaitForText("sFile1(1)", Folder1() + "\\sub\\new2.txt");
    EXPECT_EQ(varnel.Text("sFile2(2)"), "only2.txt");
    varnel.Set("CheckShowPath2");
    varnel.WaitForText("sFile2(2)", Folder2() + "\\only2.txt");
    varnel.Set("CheckShowPath1", false);
    varnel.WaitForText("sFile1(1)", "new2.txt");
}

TEST_F(CompareTest, EqualTreesShowTheirSameFiles) {
    Put("1/same.txt", "same");
    Put("2/same.txt", "same");
    const Program varnel(Pair());
    varnel.Set("CheckSync");  // nothing is there to be synchronised, so no message comes
    varnel.Compare();
    EXPECT_EQ(varnel.Text("LabelShow"), "Same Files:  1");
    EXPECT_EQ(varnel.Rows(), sameRows);
    varnel.Compare();
    EXPECT_EQ(varnel.Rows(), sameRows);
}

TEST_F(CompareTest, AFolderAgainstItselfIsTheSame) {
    Put("1/same.txt", "same");
    const Program varnel(Folder1() + " , " + Folder1() + "\\");
    varnel.Compare();
    EXPECT_EQ(varnel.Rows(), sameRows);
}

TEST_F(CompareTest, SeesWhatHasChangedSince) {
    PutSmallPair();
    const Program varnel(Pair());
    varnel.Compare();
    Files.Remove("1/new1.txt");
    Put("2/new3.txt", "later");
    varnel.Compare();
    EXPECT_EQ(varnel.Text("LabelNewFile"), "New Files ( 3 ) ");
    varnel.Click("LabelNewFile");
    varnel.WaitForRows({"1.|new2.txt|7|" + o + "|Copy -->|||", "2.||||<-- Copy|new3.txt|5|" + o,
                        "3.||||<-- Copy|only2.txt|8|" + o});
}

TEST_F(CompareTest, SyncAfterCompareStartsAtOnce) {
    PutSmallPair();
    const Program varnel(Pair());
    varnel.Set("CheckSync");
    varnel.Click("Command3");
    EXPECT_EQ(Answer(varnel),
              (ShownMessage{MessageKind::Information, "Varnel",
                            "Synchronization  'New and Modified Files'  completed.      \r\n\r\n"
                            "Succeed:   5  Files."}));
    EXPECT_EQ(Files.Read("2/sub/new2.txt"), "another");
    EXPECT_EQ(varnel.Text("Command3"), "Compare");
}

}  // namespace

}  // namespace window
