#include "compare/compare_command.h"

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace compare {
namespace {

using fakes::FakeFiles;
using fakes::kNew;
using fakes::kOld;
using fakes::MainWindow;
using fakes::Rows;
using fakes::Texts;
using platform::MessageIcon;

const std::string kSlash(1, platform::Separator);

class CompareCommandTest : public fakes::MainWindowTest {
  protected:
    Texts Captions() const {
        return {form.LabelNewFile.Caption(), form.LabelChgFile.Caption(),
                form.LabelNewChgFile.Caption(), form.LabelAllFile.Caption()};
    }
    std::string History(int slot) const {
        const auto found =
            registry.Values.find(std::string(app::kProfilesKey) + "\\P" + std::to_string(slot));
        return found == registry.Values.end() ? "none" : found->second;
    }
};

TEST_F(CompareCommandTest, ChecksTheTwoFoldersOneAfterTheOther) {
    Put("1/a");
    Put("file");
    const std::string one = FakeFiles::Path("1");
    const std::string none = FakeFiles::Path("none");
    struct Case {
        std::string Folder1, Folder2;
        const char* Message;
    };
    const Case cases[] = {
        {"", "", "Please enter 'Folder 1' !    "},
        {"   ", none, "Please enter 'Folder 1' !    "},
        {one, "  ", "Please enter 'Folder 2' !    "},
        {one, one, "'Folder 1' and 'Folder 2' are same folder !    "},
        {none, " " + none + "  ", "'Folder 1' and 'Folder 2' are same folder !    "},
        {none, none + kSlash, "Folder 1 did not exist!    "},
        {FakeFiles::Path("file"), one, "Folder 1 did not exist!    "},
        {one, none, "Folder 2 did not exist!    "},
    };
    for (const Case& c : cases) {
        form.Combo1.Edit(c.Folder1);
        form.Combo2.Edit(c.Folder2);
        form.Command3.Click();
        EXPECT_EQ(TakeMessages(), Texts{c.Message});
        EXPECT_EQ(dialogs.Messages.back().Icon, MessageIcon::Critical);
        EXPECT_EQ(dialogs.Messages.back().Buttons, platform::MessageButtons::Ok);
        EXPECT_EQ(dialogs.Messages.back().Title, "Varnel");
        EXPECT_EQ(form.Command3.Caption(), "Compare");
    }
    EXPECT_TRUE(registry.Values.empty());
    EXPECT_TRUE(form.Table.NewList.empty());
    EXPECT_TRUE(form.LabelAllFile.Visible());
}

TEST_F(CompareCommandTest, CountsOnTheLabelsAndShowsWhatIsToSync) {
    for (const char* name : {"1/n1", "1/s/n2", "2/n3"}) Put(name);
    for (const char* name : {"same", "same2", "same3", "same4"}) PutBoth(name);
    Put("1/c", kNew);
    Put("2/c", kOld);
    form.Command3.Click();
    EXPECT_EQ(Captions(), (Texts{"New Files ( 3 ) ", "Modified Files ( 1 ) ",
                                 "New and Modified Files ( 4 ) ", "Same Files ( 4 ) "}));
    EXPECT_EQ(form.CurrentViewCode(), "NewChg");
    EXPECT_EQ(form.LabelShow.Caption(), "New and Modified Files:  4");
    EXPECT_EQ(Column(form.sMAC), (Texts{"Copy -->", "Copy -->", "<-- Copy", "Replace -->"}));
    EXPECT_EQ(form.Command3.Caption(), "Compare");
    EXPECT_FALSE(form.lblComparing.Visible());
    EXPECT_TRUE(form.LabelAllFile.Visible());
    EXPECT_TRUE(dialogs.Messages.empty());
}

TEST_F(CompareCommandTest, ShowsTheSameFilesWhenThereIsNothingToSync) {
    form.Command3.Click();
    EXPECT_EQ(form.LabelShow.Caption(), "Same Files:  0");
    for (int i = 0; i < 30; ++i) PutBoth("f" + std::to_string(i));
    form.Command3.Click();
    EXPECT_EQ(form.LabelShow.Caption(), "Same Files:  30");
    EXPECT_EQ(form.VScroll1.Maximum(), 6);
}

TEST_F(CompareCommandTest, TheScrollRangeIsThatOfTheFirstView) {
    for (int i = 0; i < 40; ++i) PutBoth("f" + std::to_string(i));
    for (int i = 0; i < 27; ++i) Put("2/n" + std::to_string(i));
    form.LabelAllFile.Click();
    form.Command3.Click();
    form.VScroll1.Scroll(3);
    form.Command3.Click();
    EXPECT_EQ(form.VScroll1.Minimum(), 0);
    EXPECT_EQ(form.VScroll1.Maximum(), 3);
    EXPECT_EQ(form.VScroll1.SmallChange(), 1);
    EXPECT_EQ(form.VScroll1.LargeChange(), 25);
    EXPECT_EQ(form.VScroll1.Value(), 0);
    EXPECT_EQ(form.sTYPE[0].Caption(), "1.");
}

TEST_F(CompareCommandTest, WhatIsShownMeanwhile) {
    Put("1/a");
    PutBoth("b");
    Texts shown;
    host.OnYield = [&](long long) {
        if (!form.lblComparing.Visible()) return;
        EXPECT_FALSE(form.LabelAllFile.Visible());
        EXPECT_EQ(form.Command3.Caption(), "Stop");
        EXPECT_GT(form.lblComparing.ZOrder(), form.LabelAllFile.ZOrder());
        if (shown.empty() || shown.back() != form.lblComparing.Caption())
            shown.push_back(form.lblComparing.Caption());
    };
    form.Command3.Click();
    EXPECT_EQ(shown, (Texts{"Comparing ...", "3", "2", "1", "0"}));
}

TEST_F(CompareCommandTest, RemembersTheTrimmedPairWithItsFilter) {
    const std::string pair = FakeFiles::Path("1") + "==========" + FakeFiles::Path("2");
    form.Combo1.Edit("  " + FakeFiles::Path("1") + " ");
    form.Command3.Click();
    EXPECT_EQ(form.Combo1.Entries(), Texts{FakeFiles::Path("1")});
    EXPECT_EQ(History(0), pair + "====================0");
    EXPECT_EQ(form.LabelFileFilter.Caption(), "Sync all type of file.");

    form.Filter = {"/txt", true};
    form.Command3.Click();
    EXPECT_EQ(History(0), pair + "==========/txt==========-1");
    EXPECT_EQ(History(1), "none");
    EXPECT_EQ(form.LabelFileFilter.Caption(), "Only sync files with extensions:  .txt");
}

TEST_F(CompareCommandTest, AFolderMayBeComparedWithItselfByAnotherName) {
    for (const char* name : {"1/a", "1/s/b"}) Put(name);
    form.Combo2.Edit(FakeFiles::Path("1") + kSlash);
    form.Command3.Click();
    EXPECT_EQ(Rows(form.Table.SameList), (Texts{"0 a", "0 s/b"}));
    EXPECT_TRUE(form.Table.NewChgList.empty());
}

TEST_F(CompareCommandTest, ASecondComparisonStartsFromNothing) {
    for (const char* name : {"1/n", "2/m"}) Put(name);
    form.Command3.Click();
    form.Command4.Click();
    EXPECT_EQ(form.LabelAllFile.Caption(), "Sync Total ( 2 ) ");
    form.Command3.Click();
    EXPECT_EQ(Captions(), (Texts{"New Files ( 0 ) ", "Modified Files ( 0 ) ",
                                 "New and Modified Files ( 0 ) ", "Same Files ( 2 ) "}));
    for (const ItemList* list :
         {&form.Table.NewList, &form.Table.NewChgList, &form.Table.SyncAllList,
          &form.Table.SyncLrList, &form.Table.SyncRlList, &form.Table.FailList})
        EXPECT_TRUE(list->empty());
}

TEST_F(CompareCommandTest, SyncAfterCompareStartsTheDoubleSyncWithoutAQuestion) {
    PutBoth("same");
    form.CheckSync.Click();
    form.Command3.Click();
    EXPECT_EQ(TakeMessages(), Texts());
    EXPECT_EQ(form.CurrentViewCode(), "Same");

    Put("1/a");
    Put("2/b");
    form.Command3.Click();
    EXPECT_EQ(TakeMessages(), Texts{"Synchronization  'New and Modified Files'  completed.      "
                                    "\r\n\r\nSucceed:   2  Files."});
    EXPECT_EQ(form.CurrentViewCode(), "SyncAll");
    EXPECT_TRUE(files.StatusOf("2/a").Exists() && files.StatusOf("1/b").Exists());
}

TEST_F(CompareCommandTest, NamesWhatItCouldNotReadThisTime) {
    Put("1/s/a");
    files.RefuseListing("1/s");
    form.Command3.Click();
    EXPECT_EQ(form.Comparison().Troubles().UnreadableCount, 1);
    form.Combo1.Edit(FakeFiles::Path("2"));
    form.Combo2.Edit(FakeFiles::Path("2") + kSlash);
    form.Command3.Click();
    EXPECT_EQ(form.Comparison().Troubles().UnreadableCount, 0);
}

// Four folders, each of which costs 101 yields, and a row of every kind.
void FillSmall(MainWindow& window) {
    for (const char* name : {"1/n1", "1/s/n2", "1/s/n3", "2/m1", "2/t/m2"}) window.Put(name);
    for (const char* name : {"same", "same2"}) window.PutBoth(name);
    window.Put("1/c", kNew);
    window.Put("2/c", kOld);
}

bool IsPrefix(const Texts& part, const Texts& whole) {
    return part.size() <= whole.size() && std::equal(part.begin(), part.end(), whole.begin());
}

// The rows of a list that were found in Folder 1 (or in Folder 2).
Texts RowsOf(const ItemList& list, bool folder2) {
    Texts rows = Rows(list);
    std::erase_if(rows, [&](const std::string& row) { return row.starts_with("12 ") != folder2; });
    return rows;
}

TEST(CompareCommandStop, AtAnyYieldKeepsWhatWasFoundAndTheNextCommandWorks) {
    MainWindow whole;
    FillSmall(whole);
    whole.form.Command3.Click();
    const CompareTable& all = whole.form.Table;
    const std::size_t walked1 = RowsOf(all.NewChgList, false).size() + all.SameList.size();

    for (long long n = 3; n <= whole.host.Yields; ++n) {
        SCOPED_TRACE(n);
        MainWindow window;
        FillSmall(window);
        CompareTable& table = window.form.Table;
        long long yieldsAfter = 0;
        window.AtYield(n, [&] {
            if (window.form.Command3.Caption() != "Stop") return;
            window.form.Command3.Click();
            EXPECT_EQ(window.form.Command3.Caption(), "Compare");
            yieldsAfter = window.host.Yields;
        });
        window.form.Command3.Click();

        const Texts found1 = RowsOf(table.NewChgList, false);
        const Texts found2 = RowsOf(table.NewList, true);
        EXPECT_TRUE(IsPrefix(Rows(table.ChgList), Rows(all.ChgList)));
        EXPECT_TRUE(IsPrefix(Rows(table.SameList), Rows(all.SameList)));
        EXPECT_TRUE(IsPrefix(RowsOf(table.NewList, false), RowsOf(all.NewList, false)));
        EXPECT_TRUE(IsPrefix(found2, RowsOf(all.NewList, true)));
        const bool stoppedInWalk1 = found1.size() + table.SameList.size() < walked1;
        EXPECT_LE(found2.size(), stoppedInWalk1 ? 1u : 2u);
        EXPECT_LE(window.host.Yields - yieldsAfter, 120);

        EXPECT_EQ(table.NewChgCount(), table.NewCount() + table.ChgCount());
        EXPECT_EQ(window.form.LabelNewFile.Caption(),
                  "New Files ( " + std::to_string(table.NewCount()) + " ) ");
        EXPECT_EQ(window.form.CurrentViewCode(), table.NewChgCount() > 0 ? "NewChg" : "Same");
        EXPECT_FALSE(window.form.lblComparing.Visible());
        EXPECT_TRUE(window.form.LabelAllFile.Visible());
        EXPECT_EQ(window.form.Command3.Caption(), "Compare");

        window.host.OnYield = nullptr;
        window.form.Command3.Click();
        EXPECT_EQ(window.Everything(), whole.Everything());
    }
}

// Its caption shows already that it has been stopped.
TEST(CompareCommandStop, ASecondClickDoesNotStartAnother) {
    MainWindow window;
    FillSmall(window);
    window.AtEveryYield([&](long long yield) {
        if (yield > 100) window.form.Command3.Click();
    });
    window.form.Command3.Click();
    EXPECT_EQ(window.form.Command3.Caption(), "Compare");
    EXPECT_EQ(window.form.Table.NewCount() + window.form.Table.SameCount(), 2);
}

TEST(CompareCommandStop, SyncAfterCompareStillRunsWithWhatWasFound) {
    MainWindow window;
    FillSmall(window);
    window.form.CheckSync.Click();
    window.AtEveryYield([&](long long) {
        if (window.form.LabelNewFile.Caption() == "New Files ( 2 ) ") window.form.Command3.Click();
    });
    window.form.Command3.Click();
    EXPECT_EQ(window.form.CurrentViewCode(), "SyncAll");
    EXPECT_FALSE(window.files.StatusOf("2/s/n3").Exists());
}

}  // namespace
}  // namespace compare
