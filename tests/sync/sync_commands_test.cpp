#include "sync/sync_commands.h"

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace syncing {
namespace {

using compare::Category;
using compare::SyncMode;
using fakes::FakeFiles;
using fakes::kNew;
using fakes::kOld;
using fakes::MainWindow;
using fakes::Rows;
using fakes::Texts;
using platform::FileStatus;
using platform::MessageIcon;

const std::string kRoot1 = FakeFiles::Path("1/"), kRoot2 = FakeFiles::Path("2/");
const compare::FolderPair kRoots{nullptr, kRoot1, kRoot2};

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

const Texts kRows{"11 n1", "11 s/n2", "12 t/m1", "21 newer1", "22 newer2"};
const Texts kCopies{"1/n1 > 2/n1", "1/s/n2 > 2/s/n2", "2/t/m1 > 1/t/m1", "1/newer1 > 2/newer1",
                    "2/newer2 > 1/newer2"};

const struct Mode {
    platform::Button SyncPanel::*Command;
    std::string StopButton, Name, Route;
    std::vector<int> Acts;  // on which of the rows
} kModes[] = {
    {&SyncPanel::Command4, "Command10", "All", "between folder 1 and folder 2", {0, 1, 2, 3, 4}},
    {&SyncPanel::Command5, "Command9", "Left_to_Right", "from folder 1 to folder 2", {0, 1, 3}},
    {&SyncPanel::Command6, "Command8", "Right_to_Left", "from folder 2 to folder 1", {2, 4}},
};

const Texts kIdle{"Command4", "Command5", "Command6"};

Texts VisibleButtons(const app::FormMain& form) {
    Texts names;
    for (const platform::Button* button : {&form.Command4, &form.Command5, &form.Command6,
                                           &form.Command8, &form.Command9, &form.Command10})
        if (button->Visible()) names.push_back(button->Name());
    return names;
}

TEST(SyncCommands, EachDoesItsPartAndStopsAtAnyYieldAfterTheRowInHand) {
    for (const Mode& mode : kModes) {
        const bool both = mode.Name == "All";
        const std::string title = both ? "  'New and Modified Files' " : "";
        bool stopped = true;
        for (long long stopAt = 1; stopped; ++stopAt) {
            SCOPED_TRACE(mode.Name + ", stopped at yield " + std::to_string(stopAt));
            MainWindow window;
            app::FormMain& form = window.form;
            CompareAllKinds(window);
            (form.*mode.Command).PointerMove({});
            EXPECT_TRUE(form.LabelTip.Caption().starts_with(
                (both ? "Double" : "Single") +
                (" sync   'New and Modified Files'   " + mode.Route)))
                << form.LabelTip.Caption();
            form.Table.StopRequested = true;  // of a command before
            form.TextFileName.SetText("of the row before");
            stopped = false;
            window.host.Yields = 0;
            window.host.OnYield = [&](long long yield) {
                EXPECT_EQ(VisibleButtons(form), Texts{mode.StopButton});
                EXPECT_TRUE(form.lblComparing.Visible() && !form.LabelAllFile.Visible());
                const std::size_t left = mode.Acts.size() - window.files.Copies.size();
                EXPECT_EQ(form.lblComparing.Caption(),
                          window.files.Copies.empty() ? "Sync ..." : std::to_string(left));
                if (yield != stopAt) return;
                form.Window.Find(mode.StopButton)->Click();
                stopped = true;
            };
            (form.*mode.Command).Click();
            window.host.OnYield = nullptr;
            (form.*mode.Command).Click();  // in the view of results, where it does nothing

            const std::size_t handled = form.Table.SyncAllList.size();
            Texts rows, copies;
            for (std::size_t i = 0; i < handled; ++i) {
                rows.push_back(kRows.at(mode.Acts.at(i)));
                copies.push_back(kCopies.at(mode.Acts.at(i)));
            }
            EXPECT_EQ(Rows(form.Table.SyncAllList), rows);
            EXPECT_EQ(window.files.Copies, copies);
            EXPECT_TRUE(stopped || handled == mode.Acts.size());
            EXPECT_TRUE(form.Table.FailList.empty());
            EXPECT_EQ(
                window.TakeMessages(),
                Texts{stopped ? "Synchronization User Canceled.      "
                              : "Synchronization" + title + " completed.      \r\n\r\nSucceed:   " +
                                    std::to_string(handled) + "  Files."});
            EXPECT_EQ(window.dialogs.Messages.back().Icon,
                      stopped ? MessageIcon::Exclamation : MessageIcon::Information);
            EXPECT_EQ(form.Synchronisation().SyncMode(), mode.Name);
            EXPECT_EQ(form.TextFileName.Text(), "");
            EXPECT_EQ(form.LabelShow.Caption(), "Synchronized Files:  " + std::to_string(handled));
            EXPECT_EQ(VisibleButtons(form), kIdle);
            EXPECT_TRUE(form.LabelAllFile.Visible() && !form.lblComparing.Visible());
            form.Command3.Click();
            EXPECT_EQ(form.Table.NewChgList.size(), kRows.size() - handled);
        }
    }
}

TEST(ActsOn, NewOrModifiedRowsAsTheViewSaysInTheModesDirection) {
    const struct {
        Category List;
        std::string Left, Right, Double;
    } cases[] = {{Category::New, "11 ", "12 ", "11 12 "},
                 {Category::Chg, "21 ", "22 ", "21 22 "},
                 {Category::NewChg, "11 21 ", "12 22 ", "11 12 21 22 "},
                 {Category::Same, "21 ", "22 ", "21 22 "}};
    const auto actedOn = [](SyncMode mode, Category list) {
        std::string codes;
        for (std::int16_t code = 0; code < 50; ++code)
            if (ActsOn(mode, list, code)) codes += std::to_string(code) + ' ';
        return codes;
    };
    for (const auto& c : cases) {
        EXPECT_EQ(actedOn(SyncMode::Left, c.List), c.Left);
        EXPECT_EQ(actedOn(SyncMode::Right, c.List), c.Right);
        EXPECT_EQ(actedOn(SyncMode::Double, c.List), c.Double);
    }
}

class SyncCommandsTest : public fakes::MainWindowTest {};

// An empty view is left alone in silence.
TEST_F(SyncCommandsTest, SaysWhenThereIsNothingToDo) {
    const std::pair<Category, platform::Label*> views[] = {
        {Category::New, &form.LabelNewFile},
        {Category::Chg, &form.LabelChgFile},
        {Category::NewChg, &form.LabelNewChgFile},
        {Category::Same, &form.LabelAllFile}};
    const auto clickAll = [this] {
        for (const Mode& mode : kModes) (form.*mode.Command).Click();
        return TakeMessages();
    };
    EXPECT_EQ(clickAll(), Texts()) << "no view yet";
    for (const auto& [list, label] : views) {
        label->Click();
        EXPECT_EQ(clickAll(), Texts());
        form.Table.ListOf(list) = {fakes::Item(kRoots, "a", 40), fakes::Item(kRoots, "b", 0)};
        const bool both = list == Category::NewChg || list == Category::Same;
        const std::string what = both ? "No new / modified file" : "No new file";
        EXPECT_EQ(clickAll(), (Texts{"No new / modified file need to be synchronized.    ",
                                     what + " in folder 1 need to be synchronized.    ",
                                     what + " in folder 2 need to be synchronized.    "}));
    }
    EXPECT_EQ(dialogs.Messages.back().Icon, MessageIcon::Exclamation);
    Put("2/m");
    form.Command3.Click();
    form.Command5.Click();  // the row goes the other way
    EXPECT_EQ(TakeMessages().size(), 1u);
    EXPECT_TRUE(files.Copies.empty());
    EXPECT_EQ(VisibleButtons(form), kIdle);
}

TEST_F(SyncCommandsTest, SuccessIsToldFromTheFilesAndNearTimesCountAfterACopyAlone) {
    constexpr bool kCopied = true, kNotCopied = false;
    constexpr FileStatus kFile{{100, 500'000'000}, 7}, kNone;
    const struct {
        FileStatus File1, File2;
        bool Copied, Succeeds, AlikeBefore = false;
    } cases[] = {
        {kFile, kFile, kCopied, true},
        {kFile, kFile, kCopied, true, true},
        {kFile, kFile, kNotCopied, true},
        {kFile, kFile, kNotCopied, false, true},
        {kFile, {{102, 499'999'999}, 7}, kCopied, true},
        {kFile, {{98, 500'000'001}, 7}, kCopied, true},
        {kFile, {{102, 500'000'000}, 7}, kCopied, false},
        {kFile, {{98, 500'000'000}, 7}, kCopied, false},
        {kFile, {{100, 500'000'001}, 7}, kNotCopied, false},
        {kFile, {{100, 500'000'000}, 8}, kCopied, false},
        {kFile, kNone, kCopied, false},
        {kNone, kNone, kCopied, false},
    };
    constexpr std::int16_t codes[] = {11, 12, 21, 22};
    compare::CompareTable& table = form.Table;
    SyncRefresh refresh(
        table, files,
        {form.LabelNewFile, form.LabelChgFile, form.LabelNewChgFile, form.LabelAllFile});
    for (const auto& c : cases)
        for (const std::int16_t code : codes) {
            SCOPED_TRACE(std::to_string(&c - cases) + " code " + std::to_string(code));
            Put("1/a", c.File1.Time, c.File1.Size);
            Put("2/a", c.File2.Time, c.File2.Size);
            compare::CompareItem item = fakes::Item(kRoots, "a", code);
            if (!c.AlikeBefore) item.Time1 = {1, 0};
            refresh.Begin();
            refresh.Examine(item, c.Copied);
            const std::string used = std::to_string(c.Succeeds ? code : code % 10 == 1 ? 31 : 32);
            EXPECT_EQ(Rows(table.SyncAllList), Texts{used + " a"});
            EXPECT_EQ(table.FailList.empty(), c.Succeeds);
            const compare::CompareItem& now = table.SyncAllList.at(0);
            EXPECT_TRUE(now.Time1 == c.File1.Time && now.Bytes1 == c.File1.Size);
            EXPECT_TRUE(now.Time2 == c.File2.Time && now.Bytes2 == c.File2.Size);
        }
}

TEST_F(SyncCommandsTest, FailuresAreTalliedAndReported) {
    // So alike that a look alone would take them for copied.
    for (const char* name : {"1/near1", "2/near2"}) Put(name, kNew);
    for (const char* name : {"1/near2", "2/near1"}) Put(name, {kNew.Seconds - 1, 0});
    Put("1/late.DOC", kNew);
    for (const char* name : {"2/late.DOC", "1/u/late.DOC", "1/n3", "2/m2", "2/m3"}) Put(name);
    CompareAllKinds(*this);
    form.Filter = {"/doc", false};  // set after the comparison
    files.RefusesCopy = [](const std::string&, const std::string& to) {
        return to == "2/near1" || to == "1/t/m1" || to == "1/near2";
    };
    host.OnYield = [this](long long) {  // a file system that rounds
        if (files.StatusOf("2/n1").Exists()) Put("2/n1", {kOld.Seconds + 1, 0});
    };
    form.Command4.Click();
    EXPECT_EQ(TakeMessages(),
              Texts{"Synchronization  'New and Modified Files'  completed.      \r\n\r\n"
                    "Succeed:   7  Files.\r\nFail:   5  Files."});
    EXPECT_EQ(dialogs.Messages.back().Icon, MessageIcon::Exclamation);
    EXPECT_EQ(Rows(form.Table.FailList),
              (Texts{"31 u/late.DOC", "32 t/m1", "31 near1", "32 near2", "31 late.DOC"}));
    EXPECT_EQ(form.LabelNewFile.Caption(), "Sync --> ( 4 ) ");
    EXPECT_EQ(form.LabelChgFile.Caption(), "( 3 ) <-- Sync");
    EXPECT_EQ(form.LabelNewChgFile.Caption(), "Sync Fail ( 5 ) ");
    EXPECT_EQ(form.LabelAllFile.Caption(), "Sync Total ( 12 ) ");
    EXPECT_EQ(std::count(files.Copies.begin(), files.Copies.end(), "2/t/m1 > 1/t/m1"), 2)
        << "tried again";
    EXPECT_EQ(files.CreatedFolders, Texts{"1/t"});
}

// The roots' texts may well occur again below them.
TEST_F(SyncCommandsTest, ANewFileIsTriedAgainOnceItsFoldersAreMadeBelowTheOtherRoot) {
    files.CopiesMakeFolders = false;
    for (const char* name : {"1/x/1/f", "1/1/1/f", "1/2/x/2/f"}) Put(name);
    form.Command3.Click();
    form.Command4.Click();
    EXPECT_EQ(files.CreatedFolders,
              (Texts{"2/x", "2/x/1", "2/1", "2/1/1", "2/2", "2/2/x", "2/2/x/2"}));
    EXPECT_EQ(Rows(form.Table.SyncLrList), (Texts{"11 x/1/f", "11 1/1/f", "11 2/x/2/f"}));
    EXPECT_EQ(files.Copies.size(), 6u);

    FileOperations operations(files, host, form.Filter);
    for (const char* name : {"10/f", "3/1/f"})
        EXPECT_FALSE(operations.CopyToCounterpart(FakeFiles::Path(name), kRoot1, kRoot2));
    EXPECT_EQ(files.Copies.size(), 6u) << "what does not lie below the root";
}

// The rebuilt list has the codes of the comparison again; the results have those that were used.
TEST_F(SyncCommandsTest, ADirectionOfTheJoinedViewAloneCountsForTheSync) {
    CompareAllKinds(*this);
    form.Table.NewChgList[0].Code = 40;
    form.Table.NewChgList[3].Code = 22;
    form.Command4.Click();
    EXPECT_EQ(Rows(form.Table.SyncAllList),
              (Texts{"11 s/n2", "12 t/m1", "22 newer1", "22 newer2"}));
    EXPECT_EQ(files.StatusOf("1/newer1").Size, 9);
    EXPECT_EQ(Rows(form.Table.NewChgList), kRows);
}

// It would destroy what nobody has been shown.
TEST_F(SyncCommandsTest, ATargetThatIsNotAsComparedIsNotReplaced) {
    for (const char* name : {"1/vanished", "2/.varnel~01234abc"}) Put(name);
    Put("2/vanished", kNew);
    CompareAllKinds(*this);
    EXPECT_TRUE(files.StatusOf("2/.varnel~01234abc").Exists());
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
    EXPECT_FALSE(files.StatusOf("2/.varnel~01234abc").Exists()) << "a killed copy's leftover";
}

}  // namespace
}  // namespace syncing
