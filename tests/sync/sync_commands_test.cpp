#include "sync/sync_commands.h"

#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace syncing {
namespace {

using compare::Category;
using compare::SyncMode;
using fakes::FakeFiles;
using fakes::Item;
using fakes::kNew;
using fakes::kOld;
using fakes::MainWindow;
using fakes::Rows;
using fakes::Texts;
using platform::MessageIcon;

const compare::FolderPair kRoots{nullptr, "/one/", "/two/"};

// A new file for each side and a modified one for each side, besides a same one.
void FillAllKinds(MainWindow& window) {
    for (const char* name : {"1/n1", "1/s/n2", "2/t/m1"}) window.Put(name);
    window.PutBoth("same");
    window.Put("1/newer1", kNew, 10);
    window.Put("2/newer1", kOld, 9);
    window.Put("1/newer2", kOld, 10);
    window.Put("2/newer2", kNew, 9);
}

class SyncCommandsTest : public fakes::MainWindowTest {
  protected:
    void Compare() { form.Command3.Click(); }
    platform::Label& LabelOf(Category category) {
        switch (category) {
            case Category::New:
                return form.LabelNewFile;
            case Category::Chg:
                return form.LabelChgFile;
            case Category::NewChg:
                return form.LabelNewChgFile;
            case Category::Same:
                break;
        }
        return form.LabelAllFile;
    }
    Texts VisibleButtons() const {
        Texts names;
        for (const platform::Button* button : {&form.Command4, &form.Command5, &form.Command6,
                                               &form.Command8, &form.Command9, &form.Command10})
            if (button->Visible()) names.push_back(button->Name());
        return names;
    }
    Texts Captions() const {
        return {form.LabelNewFile.Caption(), form.LabelChgFile.Caption(),
                form.LabelNewChgFile.Caption(), form.LabelAllFile.Caption()};
    }
    // The next click on the n-th row's direction cell, and the choice in the panel.
    void Choose(int row, platform::OptionButton& option) {
        form.sMAC[static_cast<std::size_t>(row)].Click();
        option.Click();
        form.Command2.Click();
    }
};

const Texts kIdle{"Command4", "Command5", "Command6"};

TEST_F(SyncCommandsTest, SaysWhenThereIsNothingToDo) {
    const std::string all = "No new / modified file need to be synchronized.    ";
    const std::string new1 = "No new file in folder 1 need to be synchronized.    ";
    const std::string new2 = "No new file in folder 2 need to be synchronized.    ";
    const std::string both1 = "No new / modified file in folder 1 need to be synchronized.    ";
    const std::string both2 = "No new / modified file in folder 2 need to be synchronized.    ";
    struct Case {
        Category View;
        Texts Messages;  // double, left, right
    };
    const Case cases[] = {{Category::New, {all, new1, new2}},
                          {Category::Chg, {all, new1, new2}},
                          {Category::NewChg, {all, both1, both2}},
                          {Category::Same, {all, both1, both2}}};
    for (const Case& c : cases) {
        form.Table.ListOf(c.View) = {Item(kRoots, "a", 40), Item(kRoots, "b", 0)};
        LabelOf(c.View).Click();
        for (platform::Button* button : {&form.Command4, &form.Command5, &form.Command6})
            button->Click();
        EXPECT_EQ(TakeMessages(), c.Messages);
        EXPECT_EQ(dialogs.Messages.back().Icon, MessageIcon::Exclamation);
        EXPECT_EQ(dialogs.Messages.back().Title, "Varnel");
    }
    EXPECT_TRUE(files.Copies.empty());
}

TEST_F(SyncCommandsTest, ARowOfTheOtherDirectionIsNothingToDo) {
    Put("2/m");
    Compare();
    form.Command5.Click();
    EXPECT_EQ(TakeMessages(),
              Texts{"No new / modified file in folder 1 need to be synchronized.    "});
    EXPECT_EQ(form.Table.PendingCount(SyncMode::Left, Category::NewChg), 0);
    EXPECT_EQ(form.Table.PendingCount(SyncMode::Right, Category::NewChg), 1);
    EXPECT_EQ(form.Table.PendingCount(SyncMode::Double, Category::NewChg), 1);
    EXPECT_EQ(VisibleButtons(), kIdle);
}

TEST_F(SyncCommandsTest, EmptyViewsAndResultsOfASyncAreLeftAloneInSilence) {
    Put("1/n");
    const auto clickAll = [this] {
        for (platform::Button* button : {&form.Command4, &form.Command5, &form.Command6}) {
            form.TextFileName.SetText("of the row before");
            button->Click();
            EXPECT_EQ(form.TextFileName.Text(), "");
        }
        EXPECT_EQ(TakeMessages(), Texts());
    };
    clickAll();  // no view yet
    Compare();
    form.LabelAllFile.Click();
    clickAll();
    form.LabelNewChgFile.Click();
    form.Command4.Click();
    TakeMessages();
    const Texts copies = files.Copies;
    clickAll();
    form.LabelNewFile.Click();
    EXPECT_EQ(form.CurrentViewCode(), "Sync_LR");
    clickAll();
    EXPECT_EQ(files.Copies, copies);
}

TEST_F(SyncCommandsTest, EachModeDoesItsPartAndReportsIt) {
    struct Case {
        platform::Button SyncPanel::*Command;
        Texts Copies;
        Texts All;
        std::string Message;
        Texts Captions;
        const char* Mode;
    };
    const Case cases[] = {
        {&SyncPanel::Command4,
         {"1/n1 > 2/n1", "1/s/n2 > 2/s/n2", "2/t/m1 > 1/t/m1", "1/newer1 > 2/newer1",
          "2/newer2 > 1/newer2"},
         {"11 n1", "11 s/n2", "12 t/m1", "21 newer1", "22 newer2"},
         "Synchronization  'New and Modified Files'  completed.      \r\n\r\n"
         "Succeed:   5  Files.",
         {"Sync --> ( 3 ) ", "( 2 ) <-- Sync", "Sync Fail ( 0 ) ", "Sync Total ( 5 ) "},
         "All"},
        {&SyncPanel::Command5,
         {"1/n1 > 2/n1", "1/s/n2 > 2/s/n2", "1/newer1 > 2/newer1"},
         {"11 n1", "11 s/n2", "21 newer1"},
         "Synchronization completed.      \r\n\r\nSucceed:   3  Files.",
         {"Sync --> ( 3 ) ", "( 0 ) <-- Sync", "Sync Fail ( 0 ) ", "Sync Total ( 3 ) "},
         "Left_to_Right"},
        {&SyncPanel::Command6,
         {"2/t/m1 > 1/t/m1", "2/newer2 > 1/newer2"},
         {"12 t/m1", "22 newer2"},
         "Synchronization completed.      \r\n\r\nSucceed:   2  Files.",
         {"Sync --> ( 0 ) ", "( 2 ) <-- Sync", "Sync Fail ( 0 ) ", "Sync Total ( 2 ) "},
         "Right_to_Left"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Mode);
        MainWindow window;
        FillAllKinds(window);
        window.form.Command3.Click();
        (window.form.*c.Command).Click();
        EXPECT_EQ(window.files.Copies, c.Copies);
        EXPECT_EQ(Rows(window.form.Table.SyncAllList), c.All);
        EXPECT_EQ(window.TakeMessages(), Texts{c.Message});
        EXPECT_EQ(window.dialogs.Messages.back().Icon, MessageIcon::Information);
        EXPECT_EQ(window.form.LabelNewFile.Caption(), c.Captions[0]);
        EXPECT_EQ(window.form.LabelChgFile.Caption(), c.Captions[1]);
        EXPECT_EQ(window.form.LabelNewChgFile.Caption(), c.Captions[2]);
        EXPECT_EQ(window.form.LabelAllFile.Caption(), c.Captions[3]);
        EXPECT_EQ(window.form.Synchronisation().SyncMode(), c.Mode);
        EXPECT_EQ(window.form.LabelShow.Caption(),
                  "Synchronized Files:  " + std::to_string(c.All.size()));
    }
}

TEST_F(SyncCommandsTest, ShowsTheResultsFromTheirFirstRow) {
    for (int i = 0; i < 40; ++i) Put("1/n" + std::to_string(i));
    Compare();
    form.VScroll1.Scroll(9);
    form.Command4.Click();
    EXPECT_EQ(form.CurrentViewCode(), "SyncAll");
    EXPECT_EQ(form.sTYPE[0].Caption(), "1.");
    EXPECT_EQ(form.VScroll1.Value(), 0);
    EXPECT_EQ(form.VScroll1.Maximum(), 16);
    EXPECT_EQ(Column(form.sMAC), Texts(25, "--> OK -->"));
    EXPECT_EQ(VisibleButtons(), kIdle);
}

TEST_F(SyncCommandsTest, FailuresAreTalliedAndReported) {
    FillAllKinds(*this);
    files.RefusesCopy = [](const std::string&, const std::string& to) {
        return to == "2/s/n2" || to == "1/newer2";
    };
    Compare();
    form.Command4.Click();
    EXPECT_EQ(TakeMessages(),
              Texts{"Synchronization  'New and Modified Files'  completed.      \r\n\r\n"
                    "Succeed:   3  Files.\r\nFail:   2  Files."});
    EXPECT_EQ(dialogs.Messages.back().Icon, MessageIcon::Exclamation);
    EXPECT_EQ(Rows(form.Table.SyncAllList),
              (Texts{"11 n1", "31 s/n2", "12 t/m1", "21 newer1", "32 newer2"}));
    EXPECT_EQ(Rows(form.Table.FailList), (Texts{"31 s/n2", "32 newer2"}));
    EXPECT_EQ(Captions(), (Texts{"Sync --> ( 2 ) ", "( 1 ) <-- Sync", "Sync Fail ( 2 ) ",
                                 "Sync Total ( 5 ) "}));
    EXPECT_EQ(files.StatusOf("1/newer2").Size, 10);
}

TEST_F(SyncCommandsTest, ACopyThatFailsLeavesTheOthersAlone) {
    for (int n = 1;; ++n) {
        SCOPED_TRACE(n);
        MainWindow window;
        for (const char* name : {"c1", "c2", "c3"}) {
            window.Put(std::string("1/") + name, kNew);
            window.Put(std::string("2/") + name, kOld);
        }
        int copies = 0;
        window.files.RefusesCopy = [&](const std::string&, const std::string&) {
            return ++copies == n;
        };
        window.form.Command3.Click();
        window.form.Command4.Click();
        if (n > copies) break;
        EXPECT_EQ(Rows(window.form.Table.FailList), Texts{"31 c" + std::to_string(n)});
        EXPECT_EQ(window.form.Table.SyncLrList.size(), 2u);
    }
}

TEST_F(SyncCommandsTest, ACopyThatFailedIsNoSuccessHoweverAlikeTheFilesAre) {
    for (const char* name : {"a", "b", "c"}) {
        Put(std::string("1/") + name, kNew);
        Put(std::string("2/") + name, {kNew.Seconds - 1, 0});
    }
    files.RefusesCopy = [](const std::string&, const std::string& to) { return to == "2/b"; };
    Compare();
    form.Command4.Click();
    EXPECT_EQ(Rows(form.Table.SyncAllList), (Texts{"21 a", "31 b", "21 c"}));
}

TEST_F(SyncCommandsTest, WorksOnTheViewThatIsShown) {
    FillAllKinds(*this);
    Compare();
    form.LabelNewFile.Click();
    form.Command4.Click();
    EXPECT_EQ(Rows(form.Table.SyncAllList), (Texts{"11 n1", "11 s/n2", "12 t/m1"}));
    EXPECT_EQ(TakeMessages(), Texts{"Synchronization  'New Files'  completed.      \r\n\r\n"
                                    "Succeed:   3  Files."});
    form.LabelChgFile.Click();
    form.Command4.Click();
    EXPECT_EQ(Rows(form.Table.SyncAllList), (Texts{"21 newer1", "22 newer2"}));
    EXPECT_EQ(TakeMessages(), Texts{"Synchronization  'Modified Files'  completed.      \r\n\r\n"
                                    "Succeed:   2  Files."});
}

TEST_F(SyncCommandsTest, ASameFileIsCopiedOnlyWhenADirectionWasChosen) {
    Put("1/a", kOld, 1);
    Put("2/a", kOld, 2);
    PutBoth("b");
    Compare();
    form.Command4.Click();
    EXPECT_EQ(TakeMessages(), Texts{"No new / modified file need to be synchronized.    "});
    Choose(0, form.Option2);
    form.Command4.Click();
    EXPECT_EQ(files.Copies, Texts{"2/a > 1/a"});
    EXPECT_EQ(TakeMessages(), Texts{"Synchronization  'Same Files'  completed.      \r\n\r\n"
                                    "Succeed:   1  Files."});
}

// The rebuilt list has the codes of the comparison again; the results have those that were used.
TEST_F(SyncCommandsTest, ADirectionChosenInTheJoinedViewAloneCountsForTheSync) {
    FillAllKinds(*this);
    Compare();
    Choose(3, form.Option2);
    Choose(0, form.Option3);
    EXPECT_EQ(Rows(form.Table.NewChgList),
              (Texts{"40 n1", "11 s/n2", "12 t/m1", "22 newer1", "22 newer2"}));
    form.Command4.Click();
    EXPECT_EQ(Rows(form.Table.SyncAllList),
              (Texts{"11 s/n2", "12 t/m1", "22 newer1", "22 newer2"}));
    EXPECT_EQ(files.StatusOf("1/newer1").Size, 9);
    EXPECT_FALSE(files.StatusOf("2/n1").Exists());
    EXPECT_EQ(Rows(form.Table.NewChgList),
              (Texts{"11 n1", "11 s/n2", "12 t/m1", "21 newer1", "22 newer2"}));
}

TEST_F(SyncCommandsTest, AFilterSetAfterTheComparisonMakesItsFilesFail) {
    for (const char* name : {"1/a.txt", "1/s/b.doc"}) Put(name);
    Compare();
    form.Filter = {"/txt", true};
    form.Command4.Click();
    EXPECT_EQ(Rows(form.Table.SyncAllList), (Texts{"11 a.txt", "31 s/b.doc"}));
    EXPECT_FALSE(files.FolderExists(FakeFiles::Path("2/s")));
    EXPECT_EQ(form.Table.PendingCount(SyncMode::Double, Category::NewChg), 0);
}

// What a comparison could not look at may be newer than the file that it found.
TEST_F(SyncCommandsTest, NothingUnseenIsOverwritten) {
    for (const char* name : {"1/a", "1/b", "2/c"}) Put(name);
    for (const bool incomplete : {true, false}) {
        for (const char* name : {"2/a", "2/b", "1/c"}) files.Remove(name);
        Compare();
        form.Table.Incomplete = incomplete;
        Put("2/a", kNew, 9);
        Put("1/c", kNew, 9);
        form.Command4.Click();
        EXPECT_EQ(Rows(form.Table.SyncAllList),
                  incomplete ? (Texts{"31 a", "11 b", "32 c"}) : (Texts{"11 a", "11 b", "12 c"}));
        EXPECT_EQ(files.StatusOf("2/a").Size, incomplete ? 9 : 1);
    }
}

TEST_F(SyncCommandsTest, LeftoversOfKilledCopiesAreRemoved) {
    for (const char* name : {"1/a", "2/.varnel~01234abc", "2/.varnel~mine"}) Put(name);
    Compare();
    EXPECT_TRUE(files.StatusOf("2/.varnel~01234abc").Exists());
    form.Command4.Click();
    EXPECT_FALSE(files.StatusOf("2/.varnel~01234abc").Exists());
    EXPECT_TRUE(files.StatusOf("2/.varnel~mine").Exists());
}

TEST_F(SyncCommandsTest, OnlyTheStopButtonOfTheModeIsShownMeanwhile) {
    const std::pair<platform::Button SyncPanel::*, const char*> cases[] = {
        {&SyncPanel::Command4, "Command10"},
        {&SyncPanel::Command5, "Command9"},
        {&SyncPanel::Command6, "Command8"}};
    for (const auto& [command, stop] : cases) {
        for (const char* name : {"1/t/m1", "2/n1", "2/s/n2"}) files.Remove(name);
        FillAllKinds(*this);
        host.OnYield = nullptr;
        Compare();
        host.OnYield = [this, name = stop](long long) { EXPECT_EQ(VisibleButtons(), Texts{name}); };
        (form.*command).Click();
        EXPECT_EQ(VisibleButtons(), kIdle);
    }
}

TEST(SyncCommandsStop, AtAnyYieldFinishesTheRowInHandAndKeepsWhatWasCopied) {
    const Texts all{"11 n1", "11 s/n2", "12 t/m1", "21 newer1", "22 newer2"};
    const char* targets[] = {"2/n1", "2/s/n2", "1/t/m1", "2/newer1", "1/newer2"};
    long long yields = 1;
    for (long long n = 1; n <= yields; ++n) {
        SCOPED_TRACE(n);
        MainWindow window;
        FillAllKinds(window);
        app::FormMain& form = window.form;
        form.Command3.Click();
        bool stopped = false;
        window.AtYield(n, [&] {
            form.Command10.Click();
            stopped = true;
        });
        form.Command4.Click();
        yields = stopped ? n + 1 : n;

        const std::size_t handled = form.Table.SyncAllList.size();
        EXPECT_EQ(Rows(form.Table.SyncAllList),
                  Texts(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(handled)));
        EXPECT_TRUE(form.Table.FailList.empty());
        EXPECT_EQ(form.Table.PendingCount(SyncMode::Double, Category::NewChg),
                  5 - static_cast<int>(handled));
        for (std::size_t i = 0; i < 5; ++i) {
            const std::string other =
                (targets[i][0] == '1' ? "2" : "1") + std::string(targets[i] + 1);
            EXPECT_EQ(window.files.StatusOf(targets[i]).Time == window.files.StatusOf(other).Time,
                      i < handled)
                << targets[i];
        }
        EXPECT_EQ(window.TakeMessages(),
                  Texts{stopped ? "Synchronization User Canceled.      "
                                : "Synchronization  'New and Modified Files'  completed.      "
                                  "\r\n\r\nSucceed:   5  Files."});
        EXPECT_EQ(window.dialogs.Messages.back().Icon,
                  stopped ? MessageIcon::Exclamation : MessageIcon::Information);
        EXPECT_EQ(form.CurrentViewCode(), "SyncAll");
        EXPECT_TRUE(form.Command4.Visible() && !form.Command10.Visible());
        EXPECT_TRUE(form.LabelAllFile.Visible() && !form.lblComparing.Visible());

        window.host.OnYield = nullptr;
        form.Command3.Click();
        EXPECT_EQ(form.Table.NewChgList.size(), 5 - handled);
        if (handled == 5) continue;
        form.Command4.Click();
        EXPECT_EQ(form.Synchronisation().Refresh().SyncTotalCount, 5 - static_cast<int>(handled));
        EXPECT_EQ(form.Synchronisation().Refresh().SyncFailCount, 0);
    }
    EXPECT_GT(yields, 20);
}

TEST_F(SyncCommandsTest, TipsSayWhatAButtonWouldDo) {
    const std::string copied = ",  the new files will be copied to another folder.";
    const std::string replaced = ",  the older file will be replaced with the newer one.";
    const std::string both =
        ",  the older file will be replaced with the newer one, the new files will be copied to "
        "another folder.";
    const Texts routes{"'   between folder 1 and folder 2", "'   from folder 1 to folder 2",
                       "'   from folder 2 to folder 1"};
    struct Case {
        Category View;
        std::string Subject, Suffix;
    };
    const Case cases[] = {
        {Category::New, "   'New Files", copied},
        {Category::Chg, "   'Modified Files", replaced},
        {Category::NewChg, "   'New and Modified Files", both},
        {Category::Same, " the manual specified   'Same Files", "."},
    };
    platform::Button* const buttons[] = {&form.Command4, &form.Command5, &form.Command6};
    for (platform::Button* button : buttons) button->PointerMove({});
    EXPECT_EQ(form.LabelTip.Caption(), "");
    for (const Case& c : cases) {
        LabelOf(c.View).Click();
        for (std::size_t i = 0; i < 3; ++i) {
            buttons[i]->PointerMove({});
            EXPECT_EQ(form.LabelTip.Caption(),
                      (i == 0 ? "Double sync" : "Single sync") + c.Subject + routes[i] + c.Suffix);
        }
    }
}

}  // namespace
}  // namespace syncing
