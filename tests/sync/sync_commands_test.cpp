#include "sync/sync_commands.h"

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace syncing {
namespace {

using fakes::kNew;
using fakes::kOld;
using fakes::MainWindow;
using fakes::Rows;
using fakes::Texts;
using platform::FileStatus;

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
    const char *Command, *Stop;
    std::string Title;
    Texts Copies;
} kModes[] = {
    {"Command4", "Command10", "  'New and Modified Files' ", kCopies},
    {"Command5", "Command9", "", {kCopies[0], kCopies[1], kCopies[3]}},
    {"Command6", "Command8", "", {kCopies[2], kCopies[4]}},
};

TEST(SyncCommands, EachDoesItsPartAndStopsAtAnyYieldAfterTheRowInHand) {
    for (const Mode& mode : kModes) {
        bool stopped = true;
        for (long long stopAt = 1; stopped; ++stopAt) {
            SCOPED_TRACE(std::string(mode.Command) + ", yield " + std::to_string(stopAt));
            MainWindow window;
            app::FormMain& form = window.form;
            CompareAllKinds(window);
            const auto visible = [&](auto name) { return form.Window.Find(name)->Visible(); };
            const Texts& copied = window.files.Copies;
            Texts due = mode.Copies;
            form.Table.StopRequested = true;  // of a command before
            stopped = false;
            window.AtYield(stopAt, [&] {
                EXPECT_TRUE(visible(mode.Stop) && visible("lblComparing"));
                EXPECT_FALSE(visible(mode.Command) || visible("LabelAllFile"));
                EXPECT_EQ(form.lblComparing.Caption(),
                          copied.empty() ? "Sync ..." : std::to_string(due.size() - copied.size()));
                form.Window.Find(mode.Stop)->Click();
                stopped = true;
                due.resize(std::min(due.size(), copied.size() + 1));
            });
            form.Window.Find(mode.Command)->Click();
            window.host.OnYield = nullptr;
            form.Window.Find(mode.Command)->Click();  // does nothing in the view of results

            const std::size_t handled = form.Table.SyncAllList.size();
            EXPECT_TRUE(handled == due.size() || (stopped && handled + 1 == due.size()));
            due.resize(handled);
            EXPECT_EQ(copied, due);
            EXPECT_EQ(window.TakeMessages(),
                      Texts{stopped ? "Synchronization User Canceled.      "
                                    : "Synchronization" + mode.Title + " completed.      \r\n\r\n" +
                                          "Succeed:   " + std::to_string(handled) + "  Files."});
            EXPECT_FALSE(visible(mode.Stop) || visible("lblComparing"));
            EXPECT_TRUE(visible(mode.Command) && visible("LabelAllFile"));
            form.Command3.Click();
            EXPECT_EQ(form.Table.NewChgList.size(), kRows.size() - handled);
        }
    }
}

// The joined view has directions of its own until it is built again after the sync.
TEST(SyncCommands, EachViewsRowsAsTheirDirectionsInItSay) {
    const std::pair<const char*, Texts> cases[] = {
        {"LabelNewFile", {kCopies[0], kCopies[1], kCopies[2]}},
        {"LabelChgFile", {kCopies[3], kCopies[4]}},
        {"LabelAllFile", {"2/same > 1/same"}},
        {"LabelNewChgFile", {kCopies[1], kCopies[2], "2/newer1 > 1/newer1", kCopies[4]}},
    };
    for (const auto& [label, copies] : cases) {
        MainWindow window;
        CompareAllKinds(window);
        compare::CompareTable& table = window.form.Table;
        table.NewChgList[0].Code = 40;
        table.NewChgList[3].Code = table.SameList[0].Code = 22;
        window.form.Window.Find(label)->Click();
        window.form.Command4.Click();
        EXPECT_EQ(window.files.Copies, copies) << label;
        EXPECT_EQ(table.SyncAllList.size(), copies.size());
        EXPECT_EQ(Rows(table.NewChgList), kRows);
    }
}

using SyncCommandsTest = fakes::MainWindowTest;

TEST_F(SyncCommandsTest, SayWhatTheyWouldDoAndWhenThereIsNothingToDo) {
    form.Command4.Click();  // no view yet
    form.Command3.Click();
    form.Command4.Click();  // an empty view
    EXPECT_EQ(TakeMessages(), Texts());
    Put("2/m");
    form.Command3.Click();
    form.Command6.PointerMove({});
    EXPECT_NE(form.LabelTip.Caption().find("from folder 2 to folder 1"), std::string::npos);
    form.Command5.Click();  // the row goes the other way
    form.Table.NewChgList[0].Code = 40;
    form.Command4.Click();
    EXPECT_EQ(TakeMessages(),
              (Texts{"No new / modified file in folder 1 need to be synchronized.    ",
                     "No new / modified file need to be synchronized.    "}));
    EXPECT_TRUE(files.Copies.empty());
}

TEST_F(SyncCommandsTest, SuccessIsToldFromTheFilesAndNearTimesCountAfterACopyAlone) {
    constexpr FileStatus kFile{{100, 500'000'000}, 7};
    const struct {
        std::int16_t Code, Told;
        FileStatus File2;
        bool AlikeBefore, Copied;
    } cases[] = {
        {21, 21, kFile, false, false},
        {21, 31, kFile, true, false},
        {12, 12, {{102, 499'999'999}, 7}, true, true},
        {12, 32, {{98, 500'000'000}, 7}, false, true},
        {22, 32, {{100, 500'000'001}, 7}, false, false},
        {11, 31, {{100, 500'000'000}, 8}, false, true},
        {11, 31, {}, false, true},  // both are gone
    };
    Put("1/a");
    form.Command3.Click();
    compare::CompareItem item = form.Table.NewList.at(0);
    compare::CompareTable& table = form.Table;
    SyncRefresh refresh(
        table, files,
        {form.LabelNewFile, form.LabelChgFile, form.LabelNewChgFile, form.LabelAllFile});
    for (const auto& c : cases) {
        files.AddFile("1/a", c.File2.Exists() ? kFile : FileStatus{});
        files.AddFile("2/a", c.File2);
        item.Code = c.Code;
        item.Time2 = c.AlikeBefore ? item.Time1 : platform::FileTime();
        refresh.Begin();
        refresh.Examine(item, c.Copied);
        const compare::CompareItem& now = table.SyncAllList.at(0);
        EXPECT_EQ(now.Code, c.Told) << &c - cases;
        EXPECT_EQ(table.FailList.size(), c.Told / 10 == 3);
        EXPECT_TRUE(now.Time2 == c.File2.Time && now.Bytes2 == c.File2.Size);
    }
}

// The roots' texts may well occur again below them.
TEST_F(SyncCommandsTest, FailuresAreTalliedAndReported) {
    // So alike that a look alone would take them for copied.
    Put("1/near", kNew);
    Put("2/near", {kNew.Seconds - 1, 0});
    Put("1/late.DOC", kNew);
    for (const char* name : {"1/x/1/f", "1/u/late.DOC", "2/late.DOC"}) Put(name);
    CompareAllKinds(*this);
    form.Filter = {"/doc", false};  // set after the comparison
    files.RefusesCopy = [](const std::string&, const std::string& to) {
        return to == "2/near" || to == "1/t/m1";
    };
    form.Command4.Click();
    EXPECT_EQ(TakeMessages(),
              Texts{"Synchronization  'New and Modified Files'  completed.      \r\n\r\n"
                    "Succeed:   5  Files.\r\nFail:   4  Files."});
    EXPECT_EQ(Rows(form.Table.FailList),
              (Texts{"31 u/late.DOC", "32 t/m1", "31 near", "31 late.DOC"}));
    EXPECT_EQ(form.LabelNewFile.Caption(), "Sync --> ( 4 ) ");
    EXPECT_EQ(form.LabelChgFile.Caption(), "( 1 ) <-- Sync");
    EXPECT_EQ(form.LabelNewChgFile.Caption(), "Sync Fail ( 4 ) ");
    EXPECT_EQ(form.LabelAllFile.Caption(), "Sync Total ( 9 ) ");
    EXPECT_TRUE(files.StatusOf("2/x/1/f").Exists());
    EXPECT_EQ(form.Table.SyncLrList[0].Date2(), platform::FormatFileTime(kOld)) << "the copy's";

    form.LabelChgFile.Click();
    form.Command4.Click();  // again, without a comparison
    EXPECT_EQ(Rows(form.Table.SyncAllList),
              (Texts{"31 near", "31 late.DOC", "21 newer1", "22 newer2"}));
}

// It would destroy what nobody has been shown.
TEST_F(SyncCommandsTest, ATargetThatIsNotAsComparedIsNotReplaced) {
    for (const char* name : {"1/vanished", "2/s/.varnel~01234abc"}) Put(name);
    Put("2/vanished", kNew);
    CompareAllKinds(*this);
    EXPECT_TRUE(files.StatusOf("2/s/.varnel~01234abc").Exists());
    Put("2/n1", kNew, 9);      // came up, or was overlooked
    Put("2/newer1", kOld, 8);  // other size
    Put("1/newer2", {kOld.Seconds, 1}, 10);
    files.Remove("1/vanished");
    form.Command4.Click();
    EXPECT_EQ(Rows(form.Table.SyncAllList),
              (Texts{"31 n1", "11 s/n2", "12 t/m1", "22 vanished", "31 newer1", "32 newer2"}));
    EXPECT_EQ(files.Copies, (Texts{kCopies[1], kCopies[2], "2/vanished > 1/vanished"}));
    EXPECT_FALSE(files.StatusOf("2/s/.varnel~01234abc").Exists()) << "a killed copy's leftover";
}

}  // namespace
}  // namespace syncing
