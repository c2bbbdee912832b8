#include "compare/compare_command.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace compare {
namespace {

using fakes::FakeFiles;
using fakes::kNew;
using fakes::kOld;
using fakes::Rows;
using fakes::Texts;

const std::string kSlash(1, platform::Separator);

class CompareCommandTest : public fakes::MainWindowTest {
  protected:
    Texts Captions() const {
        return {form.LabelNewFile.Caption(), form.LabelChgFile.Caption(),
                form.LabelNewChgFile.Caption(), form.LabelAllFile.Caption()};
    }
};

TEST_F(CompareCommandTest, ChecksTheTwoFoldersOneAfterTheOther) {
    Put("1/a");
    Put("file");
    const std::string one = FakeFiles::Path("1");
    const std::string none = FakeFiles::Path("none");
    const struct {
        std::string Folder1, Folder2, Message;
    } cases[] = {
        {"   ", none, "Please enter 'Folder 1' !    "},
        {one, "  ", "Please enter 'Folder 2' !    "},
        {none, " " + none + "  ", "'Folder 1' and 'Folder 2' are same folder !    "},
        {none, none + kSlash, "Folder 1 did not exist!    "},
        {FakeFiles::Path("file"), one, "Folder 1 did not exist!    "},
        {one, none, "Folder 2 did not exist!    "},
    };
    for (const auto& c : cases) {
        form.Combo1.Edit(c.Folder1);
        form.Combo2.Edit(c.Folder2);
        form.Command3.Click();
        EXPECT_EQ(TakeMessages(), Texts{c.Message});
        EXPECT_EQ(dialogs.Messages.back().Icon, platform::MessageIcon::Critical);
        EXPECT_EQ(dialogs.Messages.back().Title, "Varnel");
        EXPECT_EQ(form.Command3.Caption(), "Compare");
    }
    EXPECT_TRUE(registry.Values.empty());

    form.Combo2.Edit(one + kSlash);  // the same folder, by another name
    form.Command3.Click();
    EXPECT_EQ(Rows(form.Table.SameList), Texts{"0 a"});
    EXPECT_EQ(form.Table.NewChgCount(), 0);
}

TEST_F(CompareCommandTest, TheFirstPageIsOfWhatIsToSyncElseOfTheSameFiles) {
    const struct {
        int Same, New;
        const char* Heading;
        int Maximum;
    } cases[] = {{0, 0, "Same Files:  0", 0},
                 {40, 0, "Same Files:  40", 16},
                 {40, 27, "New and Modified Files:  27", 3}};
    for (const auto& c : cases) {
        for (int i = 0; i < c.Same; ++i) PutBoth("f" + std::to_string(i));
        for (int i = 0; i < c.New; ++i) Put("2/n" + std::to_string(i));
        form.Command3.Click();
        EXPECT_EQ(form.LabelShow.Caption(), c.Heading);
        EXPECT_EQ(form.VScroll1.Maximum(), c.Maximum);
        EXPECT_EQ(form.VScroll1.LargeChange(), 25);
        EXPECT_EQ(form.VScroll1.Value(), 0);
        EXPECT_EQ(form.sTYPE[0].Caption(), c.Same > 0 ? "1." : "");
        form.VScroll1.Scroll(3);
    }
}

TEST_F(CompareCommandTest, WhatIsShownMeanwhile) {
    Put("1/a");
    PutBoth("b");
    Texts shown;
    int countingYields = 0;
    host.OnYield = [&](long long) {
        if (!form.lblComparing.Visible()) return;
        EXPECT_FALSE(form.LabelAllFile.Visible());
        EXPECT_EQ(form.Command3.Caption(), "Stop");
        EXPECT_GT(form.lblComparing.ZOrder(), form.LabelAllFile.ZOrder());
        if (form.lblComparing.Caption() == "Comparing ...") ++countingYields;
        if (shown.empty() || shown.back() != form.lblComparing.Caption())
            shown.push_back(form.lblComparing.Caption());
    };
    form.Command3.Click();
    EXPECT_EQ(shown, (Texts{"Comparing ...", "3", "2", "1", "0"}));
    EXPECT_EQ(countingYields, 1 + 2 * 101) << "101 for each folder counted";
}

TEST_F(CompareCommandTest, CountsOnTheLabelsAndStartsFromNothingEachTime) {
    for (const char* name : {"1/n", "1/s/n", "2/m"}) Put(name);
    for (const char* name : {"c", "same"}) PutBoth(name);
    Put("1/c", kNew);
    form.Command3.Click();
    EXPECT_EQ(Captions(), (Texts{"New Files ( 3 ) ", "Modified Files ( 1 ) ",
                                 "New and Modified Files ( 4 ) ", "Same Files ( 1 ) "}));
    EXPECT_EQ(Column(form.sMAC), (Texts{"Copy -->", "Copy -->", "<-- Copy", "Replace -->"}));
    EXPECT_EQ(form.LabelFileFilter.Caption(), "Sync all type of file.");
    form.Command5.Click();
    files.Remove("2/m");
    Put("2/c", kOld);
    form.Command3.Click();
    EXPECT_EQ(Captions(), (Texts{"New Files ( 0 ) ", "Modified Files ( 1 ) ",
                                 "New and Modified Files ( 1 ) ", "Same Files ( 3 ) "}));
    EXPECT_EQ(form.CurrentViewCode(), "NewChg");
    const CompareTable& table = form.Table;
    for (const ItemList* list : {&table.NewList, &table.SyncAllList, &table.FailList,
                                 &table.SyncLrList, &table.SyncRlList})
        EXPECT_EQ(list->capacity(), 0u) << "no storage is kept";
    for (const SyncMode mode : {SyncMode::Left, SyncMode::Right, SyncMode::Double})
        EXPECT_EQ(form.Table.PendingCount(mode, Category::NewChg), 0);
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
    EXPECT_EQ(form.sMD2[0].Caption(), platform::FormatFileTime(kOld)) << "as it is after the copy";
    EXPECT_TRUE(files.StatusOf("2/a").Exists() && files.StatusOf("1/b").Exists());
}

TEST_F(CompareCommandTest, SyncAfterAStoppedCompareTakesWhatWasFound) {
    for (const char* name : {"1/n1", "1/s/n2", "1/s/n3"}) Put(name);
    form.CheckSync.Click();
    AtEveryYield([&](long long) {
        if (form.LabelNewFile.Caption() == "New Files ( 2 ) ") form.Command3.Click();
    });
    form.Command3.Click();
    EXPECT_EQ(form.CurrentViewCode(), "SyncAll");
    EXPECT_TRUE(files.StatusOf("2/s/n2").Exists());
    EXPECT_FALSE(files.StatusOf("2/s/n3").Exists());
}

}  // namespace
}  // namespace compare
