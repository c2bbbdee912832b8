#include "sync/sync_commands.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace syncing {
namespace {

using compare::Category;
using compare::SyncMode;
using fakes::kNew;
using fakes::kOld;
using fakes::MainWindow;
using fakes::Rows;
using fakes::Texts;
using platform::MessageIcon;

const compare::FolderPair kRoots{nullptr, "/one/", "/two/"};
const Texts kIdle{"Command4", "Command5", "Command6"};

// A new file for each side and a modified one for each side, besides a same one; compared.
void CompareAllKinds(MainWindow& window) {
    for (const char* name : {"1/n1", "1/s/n2", "2/t/m1"}) window.Put(name);
    window.PutBoth("same");
    window.Put("1/newer1", kNew, 10);
    window.Put("2/newer1", kOld, 9);
    window.Put("1/newer2", kOld, 10);
    window.Put("2/newer2", kNew, 9);
    window.form.Command3.Click();
}

Texts VisibleButtons(const app::FormMain& form) {
    Texts names;
    for (const platform::Button* button : {&form.Command4, &form.Command5, &form.Command6,
                                           &form.Command8, &form.Command9, &form.Command10})
        if (button->Visible()) names.push_back(button->Name());
    return names;
}

Texts Captions(const app::FormMain& form) {
    return {form.LabelNewFile.Caption(), form.LabelChgFile.Caption(),
            form.LabelNewChgFile.Caption(), form.LabelAllFile.Caption()};
}

class SyncCommandsTest : public fakes::MainWindowTest {
  protected:
    const std::vector<platform::Button*> buttons{&form.Command4, &form.Command5, &form.Command6};
    const std::vector<std::pair<Category, platform::Label*>> views{
        {Category::New, &form.LabelNewFile},
        {Category::Chg, &form.LabelChgFile},
        {Category::NewChg, &form.LabelNewChgFile},
        {Category::Same, &form.LabelAllFile}};
};

TEST_F(SyncCommandsTest, SaysWhenThereIsNothingToDo) {
    for (const auto& [category, label] : views) {
        form.Table.ListOf(category) = {fakes::Item(kRoots, "a", 40), fakes::Item(kRoots, "b", 0)};
        label->Click();
        for (platform::Button* button : buttons) button->Click();
        const bool both = category == Category::NewChg || category == Category::Same;
        const std::string what = both ? "No new / modified file" : "No new file";
        EXPECT_EQ(TakeMessages(), (Texts{"No new / modified file need to be synchronized.    ",
                                         what + " in folder 1 need to be synchronized.    ",
                                         what + " in folder 2 need to be synchronized.    "}));
        EXPECT_EQ(dialogs.Messages.back().Icon, MessageIcon::Exclamation);
        EXPECT_EQ(dialogs.Messages.back().Title, "Varnel");
    }
    Put("2/m");
    form.Command3.Click();
    form.Command5.Click();  // the row goes the other way
    EXPECT_EQ(TakeMessages().size(), 1u);
    EXPECT_EQ(form.Table.PendingCount(SyncMode::Left, Category::NewChg), 0);
    EXPECT_EQ(form.Table.PendingCount(SyncMode::Right, Category::NewChg), 1);
    EXPECT_EQ(form.Table.PendingCount(SyncMode::Double, Category::NewChg), 1);
    EXPECT_TRUE(files.Copies.empty());
    EXPECT_EQ(VisibleButtons(form), kIdle);
}

TEST_F(SyncCommandsTest, EmptyViewsAndResultsOfASyncAreLeftAloneInSilence) {
    Put("1/n");
    const auto clickAll = [this] {
        for (platform::Button* button : buttons) {
            form.TextFileName.SetText("of the row before");
            button->Click();
            EXPECT_EQ(form.TextFileName.Text(), "");
        }
        EXPECT_EQ(TakeMessages(), Texts());
    };
    clickAll();  // no view yet
    form.Command3.Click();
    form.LabelAllFile.Click();
    clickAll();
    form.LabelNewChgFile.Click();
    form.Command4.Click();
    TakeMessages();
    clickAll();
    form.LabelNewFile.Click();
    EXPECT_EQ(form.CurrentViewCode(), "Sync_LR");
    clickAll();
    EXPECT_EQ(files.Copies.size(), 1u);
}

TEST_F(SyncCommandsTest, EachModeShowsItsStopButtonDoesItsPartAndReportsIt) {
    const struct {
        platform::Button SyncPanel::*Command;
        const char *StopButton, *Mode;
        Texts Rows;
        std::string Title;
        Texts Captions;
    } cases[] = {
        {&SyncPanel::Command4,
         "Command10",
         "All",
         {"11 n1", "11 s/n2", "12 t/m1", "21 newer1", "22 newer2"},
         "  'New and Modified Files' ",
         {"Sync --> ( 3 ) ", "( 2 ) <-- Sync", "Sync Fail ( 0 ) ", "Sync Total ( 5 ) "}},
        {&SyncPanel::Command5,
         "Command9",
         "Left_to_Right",
         {"11 n1", "11 s/n2", "21 newer1"},
         "",
         {"Sync --> ( 3 ) ", "( 0 ) <-- Sync", "Sync Fail ( 0 ) ", "Sync Total ( 3 ) "}},
        {&SyncPanel::Command6,
         "Command8",
         "Right_to_Left",
         {"12 t/m1", "22 newer2"},
         "",
         {"Sync --> ( 0 ) ", "( 2 ) <-- Sync", "Sync Fail ( 0 ) ", "Sync Total ( 2 ) "}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Mode);
        MainWindow window;
        CompareAllKinds(window);
        window.host.OnYield = [&](long long) {
            EXPECT_EQ(VisibleButtons(window.form), Texts{c.StopButton});
        };
        (window.form.*c.Command).Click();
        const std::string count = std::to_string(c.Rows.size());
        EXPECT_EQ(Rows(window.form.Table.SyncAllList), c.Rows);
        EXPECT_EQ(window.TakeMessages(),
                  Texts{"Synchronization" + c.Title +
                        " completed.      \r\n\r\nSucceed:   " + count + "  Files."});
        EXPECT_EQ(window.dialogs.Messages.back().Icon, MessageIcon::Information);
        EXPECT_EQ(Captions(window.form), c.Captions);
        EXPECT_EQ(window.form.Synchronisation().SyncMode(), c.Mode);
        EXPECT_EQ(window.form.LabelShow.Caption(), "Synchronized Files:  " + count);
        EXPECT_EQ(VisibleButtons(window.form), kIdle);
    }
}

TEST_F(SyncCommandsTest, ShowsTheResultsFromTheirFirstRow) {
    for (int i = 0; i < 40; ++i) Put("1/n" + std::to_string(i));
    form.Command3.Click();
    form.VScroll1.Scroll(9);
    form.Command4.Click();
    EXPECT_EQ(form.CurrentViewCode(), "SyncAll");
    EXPECT_EQ(form.sTYPE[0].Caption(), "1.");
    EXPECT_EQ(form.VScroll1.Value(), 0);
    EXPECT_EQ(form.VScroll1.Maximum(), 16);
    EXPECT_EQ(Column(form.sMAC), Texts(25, "--> OK -->"));
}

TEST_F(SyncCommandsTest, FailuresAreTalliedAndReported) {
    Put("1/near", kNew);  // so alike that a look alone would take it for copied
    Put("2/near", {kNew.Seconds - 1, 0});
    Put("1/s/late.doc");
    CompareAllKinds(*this);
    form.Filter = {"/doc", false};  // set after the comparison
    files.RefusesCopy = [](const std::string&, const std::string& to) {
        return to == "2/near" || to == "1/newer2";
    };
    form.Command4.Click();
    EXPECT_EQ(TakeMessages(),
              Texts{"Synchronization  'New and Modified Files'  completed.      \r\n\r\n"
                    "Succeed:   4  Files.\r\nFail:   3  Files."});
    EXPECT_EQ(dialogs.Messages.back().Icon, MessageIcon::Exclamation);
    EXPECT_EQ(Rows(form.Table.FailList), (Texts{"31 s/late.doc", "31 near", "32 newer2"}));
    EXPECT_EQ(Captions(form), (Texts{"Sync --> ( 3 ) ", "( 1 ) <-- Sync", "Sync Fail ( 3 ) ",
                                     "Sync Total ( 7 ) "}));
}

// The rebuilt list has the codes of the comparison again; the results have those that were used.
TEST_F(SyncCommandsTest, ADirectionChosenInTheJoinedViewAloneCountsForTheSync) {
    CompareAllKinds(*this);
    const auto choose = [this](std::size_t row, platform::OptionButton& option) {
        form.sMAC[row].Click();
        option.Click();
        form.Command2.Click();
    };
    choose(3, form.Option2);
    choose(0, form.Option3);
    form.Command4.Click();
    EXPECT_EQ(Rows(form.Table.SyncAllList),
              (Texts{"11 s/n2", "12 t/m1", "22 newer1", "22 newer2"}));
    EXPECT_EQ(files.StatusOf("1/newer1").Size, 9);
    EXPECT_FALSE(files.StatusOf("2/n1").Exists());
    EXPECT_EQ(Rows(form.Table.NewChgList),
              (Texts{"11 n1", "11 s/n2", "12 t/m1", "21 newer1", "22 newer2"}));
}

// It would destroy what nobody has been shown.
TEST_F(SyncCommandsTest, ATargetThatIsNotAsComparedIsNotReplaced) {
    Put("1/vanished");
    Put("2/vanished", kNew);
    CompareAllKinds(*this);
    Put("2/n1", kNew, 9);      // came up, or was overlooked
    Put("2/newer1", kOld, 8);  // other size
    Put("1/newer2", {kOld.Seconds, 1}, 10);
    files.Remove("1/vanished");
    form.Command4.Click();
    EXPECT_EQ(Rows(form.Table.SyncAllList),
              (Texts{"31 n1", "11 s/n2", "12 t/m1", "22 vanished", "31 newer1", "32 newer2"}));
    EXPECT_EQ(files.StatusOf("2/n1").Size, 9);
    EXPECT_EQ(files.StatusOf("2/newer1").Size, 8);
    EXPECT_EQ(files.StatusOf("1/newer2").Time, (platform::FileTime{kOld.Seconds, 1}));
}

TEST_F(SyncCommandsTest, LeftoversOfKilledCopiesAreRemoved) {
    for (const char* name : {"1/a", "2/.varnel~01234abc", "2/.varnel~mine"}) Put(name);
    form.Command3.Click();
    EXPECT_TRUE(files.StatusOf("2/.varnel~01234abc").Exists());
    form.Command4.Click();
    EXPECT_FALSE(files.StatusOf("2/.varnel~01234abc").Exists());
    EXPECT_TRUE(files.StatusOf("2/.varnel~mine").Exists());
}

TEST(SyncCommandsStop, AtAnyYieldFinishesTheRowInHandAndKeepsWhatWasCopied) {
    const Texts all{"11 n1", "11 s/n2", "12 t/m1", "21 newer1", "22 newer2"};
    const Texts copies{"1/n1 > 2/n1", "1/s/n2 > 2/s/n2", "2/t/m1 > 1/t/m1", "1/newer1 > 2/newer1",
                       "2/newer2 > 1/newer2"};
    bool stopped = true;
    long long yields = 0;
    while (stopped) {
        SCOPED_TRACE(++yields);
        MainWindow window;
        app::FormMain& form = window.form;
        CompareAllKinds(window);
        stopped = false;
        window.AtYield(yields, [&] {
            form.Command10.Click();
            stopped = true;
        });
        form.Command4.Click();

        const std::size_t handled = form.Table.SyncAllList.size();
        const auto first = static_cast<std::ptrdiff_t>(handled);
        EXPECT_EQ(Rows(form.Table.SyncAllList), Texts(all.begin(), all.begin() + first));
        EXPECT_EQ(window.files.Copies, Texts(copies.begin(), copies.begin() + first));
        EXPECT_TRUE(form.Table.FailList.empty());
        EXPECT_EQ(form.Table.PendingCount(SyncMode::Double, Category::NewChg), 5 - first);
        EXPECT_EQ(window.TakeMessages(),
                  Texts{stopped ? "Synchronization User Canceled.      "
                                : "Synchronization  'New and Modified Files'  completed.      "
                                  "\r\n\r\nSucceed:   5  Files."});
        EXPECT_EQ(window.dialogs.Messages.back().Icon,
                  stopped ? MessageIcon::Exclamation : MessageIcon::Information);
        EXPECT_EQ(form.CurrentViewCode(), "SyncAll");
        EXPECT_EQ(VisibleButtons(form), kIdle);
        EXPECT_TRUE(form.LabelAllFile.Visible() && !form.lblComparing.Visible());

        form.Command3.Click();
        EXPECT_EQ(form.Table.NewChgList.size(), 5 - handled);
        form.Command4.Click();
        EXPECT_EQ(form.Synchronisation().Refresh().SyncTotalCount, handled < 5 ? 5 - first : 5);
        EXPECT_EQ(form.Synchronisation().Refresh().SyncFailCount, 0);
    }
    EXPECT_GT(yields, 20);
}

TEST_F(SyncCommandsTest, TipsSayWhatAButtonWouldDo) {
    const Texts routes{"'   between folder 1 and folder 2", "'   from folder 1 to folder 2",
                       "'   from folder 2 to folder 1"};
    const std::pair<const char*, const char*> subjects[] = {
        {"   'New Files", ",  the new files will be copied to another folder."},
        {"   'Modified Files", ",  the older file will be replaced with the newer one."},
        {"   'New and Modified Files",
         ",  the older file will be replaced with the newer one, the new files will be copied to "
         "another folder."},
        {" the manual specified   'Same Files", "."},
    };
    buttons[0]->PointerMove({});
    EXPECT_EQ(form.LabelTip.Caption(), "");
    for (std::size_t view = 0; view < views.size(); ++view) {
        views[view].second->Click();
        for (std::size_t i = 0; i < buttons.size(); ++i) {
            buttons[i]->PointerMove({});
            EXPECT_EQ(form.LabelTip.Caption(), (i == 0 ? "Double sync" : "Single sync") +
                                                   (subjects[view].first + routes[i]) +
                                                   subjects[view].second);
        }
    }
}

}  // namespace
}  // namespace syncing
