#include "sync/sync_commands.h"

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
    std::string Name, Route;
    std::vector<int> Acts;  // on which of the rows
} kModes[] = {
    {"Command4", "Command10", "All", "between folder 1 and folder 2", {0, 1, 2, 3, 4}},
    {"Command5", "Command9", "Left_to_Right", "from folder 1 to folder 2", {0, 1, 3}},
    {"Command6", "Command8", "Right_to_Left", "from folder 2 to folder 1", {2, 4}},
};

TEST(SyncCommands, EachDoesItsPartAndStopsAtAnyYieldAfterTheRowInHand) {
    for (const Mode& mode : kModes) {
        const std::string title = mode.Name == "All" ? "  'New and Modified Files' " : "";
        bool stopped = true;
        for (long long stopAt = 1; stopped; ++stopAt) {
            SCOPED_TRACE(mode.Name + ", stopped at yield " + std::to_string(stopAt));
            MainWindow window;
            app::FormMain& form = window.form;
            CompareAllKinds(window);
            const auto visible = [&](auto name) { return form.Window.Find(name)->Visible(); };
            form.Window.Find(mode.Command)->PointerMove({});
            EXPECT_NE(form.LabelTip.Caption().find("Files'   " + mode.Route), std::string::npos);
            form.TextFileName.SetText("of the row before");
            form.Table.StopRequested = true;  // of a command before
            stopped = false;
            std::size_t most = mode.Acts.size();
            window.host.Yields = 0;
            window.host.OnYield = [&](long long yield) {
                EXPECT_TRUE(visible(mode.Stop) && visible("lblComparing"));
                EXPECT_FALSE(visible(mode.Command) || visible("LabelAllFile"));
                const std::size_t left = mode.Acts.size() - window.files.Copies.size();
                EXPECT_EQ(form.lblComparing.Caption(),
                          window.files.Copies.empty() ? "Sync ..." : std::to_string(left));
                if (yield != stopAt) return;
                form.Window.Find(mode.Stop)->Click();
                stopped = true;
                most = window.files.Copies.size() + 1;
            };
            form.Window.Find(mode.Command)->Click();
            window.host.OnYield = nullptr;
            form.Window.Find(mode.Command)->Click();  // does nothing in the view of results

            const std::size_t handled = form.Table.SyncAllList.size();
            EXPECT_TRUE(stopped ? handled <= most : handled == most);
            Texts rows, copies;
            for (std::size_t i = 0; i < handled; ++i) {
                rows.push_back(kRows.at(mode.Acts.at(i)));
                copies.push_back(kCopies.at(mode.Acts.at(i)));
            }
            EXPECT_EQ(Rows(form.Table.SyncAllList), rows);
            EXPECT_EQ(window.files.Copies, copies);
            EXPECT_EQ(
                window.TakeMessages(),
                Texts{stopped ? "Synchronization User Canceled.      "
                              : "Synchronization" + title + " completed.      \r\n\r\nSucceed:   " +
                                    std::to_string(handled) + "  Files."});
            EXPECT_EQ(form.Synchronisation().SyncMode(), mode.Name);
            EXPECT_FALSE(visible(mode.Stop) || visible("lblComparing"));
            EXPECT_TRUE(visible(mode.Command) && visible("LabelAllFile"));
            EXPECT_EQ(form.TextFileName.Text(), "");
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
    form.Command6.PointerMove({});
    EXPECT_EQ(form.LabelTip.Caption(),
              "Single sync the manual specified   'Same Files'   from folder 2 to folder 1.");
    Put("2/m");
    form.Command3.Click();
    form.Command5.Click();  // the row goes the other way
    form.Table.NewChgList[0].Code = 40;
    form.Command4.Click();
    form.Table.ChgList = form.Table.NewChgList;
    form.LabelChgFile.Click();
    form.Command6.Click();
    EXPECT_EQ(TakeMessages(),
              (Texts{"No new / modified file in folder 1 need to be synchronized.    ",
                     "No new / modified file need to be synchronized.    ",
                     "No new file in folder 2 need to be synchronized.    "}));
    EXPECT_TRUE(files.Copies.empty());
}

TEST_F(SyncCommandsTest, SuccessIsToldFromTheFilesAndNearTimesCountAfterACopyAlone) {
    constexpr bool kCopied = true, kNotCopied = false, kAlikeBefore = true, kOther = false;
    constexpr FileStatus kFile{{100, 500'000'000}, 7};
    const std::string root1 = fakes::FakeFiles::Path("1/"), root2 = fakes::FakeFiles::Path("2/");
    const compare::FolderPair roots{nullptr, root1, root2};
    compare::CompareTable& table = form.Table;
    SyncRefresh refresh(
        table, files,
        {form.LabelNewFile, form.LabelChgFile, form.LabelNewChgFile, form.LabelAllFile});
    const auto told = [&](std::int16_t code, const FileStatus& file1, const FileStatus& file2,
                          bool alikeBefore, bool copied) {
        Put("1/a", file1.Time, file1.Size);
        Put("2/a", file2.Time, file2.Size);
        compare::CompareItem item = fakes::Item(roots, "a", code);
        if (!alikeBefore) item.Time1 = {1, 0};
        refresh.Begin();
        refresh.Examine(item, copied);
        const compare::CompareItem& now = table.SyncAllList.at(0);
        EXPECT_TRUE(now.Time1 == file1.Time && now.Bytes1 == file1.Size);
        EXPECT_TRUE(now.Time2 == file2.Time && now.Bytes2 == file2.Size);
        EXPECT_EQ(table.FailList.size(), now.Code / 10 == 3);
        return now.Code;
    };
    EXPECT_EQ(told(12, kFile, kFile, kAlikeBefore, kCopied), 12);
    EXPECT_EQ(told(22, kFile, kFile, kOther, kNotCopied), 22);
    EXPECT_EQ(told(21, kFile, kFile, kAlikeBefore, kNotCopied), 31);
    EXPECT_EQ(told(11, kFile, {{102, 499'999'999}, 7}, kOther, kCopied), 11);
    EXPECT_EQ(told(12, kFile, {{98, 500'000'000}, 7}, kOther, kCopied), 32);
    EXPECT_EQ(told(22, kFile, {{100, 500'000'001}, 7}, kOther, kNotCopied), 32);
    EXPECT_EQ(told(21, kFile, {{100, 500'000'000}, 8}, kOther, kCopied), 31);
    EXPECT_EQ(told(11, {}, {}, kOther, kCopied), 31);
}

// What was to be copied is tried again once its folders are made below the other root. The roots'
// texts may well occur again below them.
TEST_F(SyncCommandsTest, FailuresAreTalliedAndReported) {
    // So alike that a look alone would take them for copied.
    Put("1/near", kNew);
    Put("2/near", {kNew.Seconds - 1, 0});
    Put("1/late.DOC", kNew);
    for (const char* name : {"1/x/1/f", "1/u/late.DOC", "2/late.DOC", "2/m2"}) Put(name);
    CompareAllKinds(*this);
    form.Filter = {"/doc", false};  // set after the comparison
    files.CopiesMakeFolders = false;
    files.RefusesCopy = [](const std::string&, const std::string& to) {
        return to == "2/near" || to == "1/t/m1";
    };
    host.OnYield = [this](long long) {  // a file system that rounds
        if (files.StatusOf("2/n1").Exists()) Put("2/n1", {kOld.Seconds + 1, 0});
    };
    form.Command4.Click();
    EXPECT_EQ(TakeMessages(),
              Texts{"Synchronization  'New and Modified Files'  completed.      \r\n\r\n"
                    "Succeed:   6  Files.\r\nFail:   4  Files."});
    EXPECT_EQ(dialogs.Messages.back().Icon, platform::MessageIcon::Exclamation);
    EXPECT_EQ(Rows(form.Table.FailList),
              (Texts{"31 u/late.DOC", "32 t/m1", "31 near", "31 late.DOC"}));
    EXPECT_EQ(form.LabelNewFile.Caption(), "Sync --> ( 4 ) ");
    EXPECT_EQ(form.LabelChgFile.Caption(), "( 2 ) <-- Sync");
    EXPECT_EQ(form.LabelNewChgFile.Caption(), "Sync Fail ( 4 ) ");
    EXPECT_EQ(form.LabelAllFile.Caption(), "Sync Total ( 10 ) ");
    EXPECT_EQ(files.CreatedFolders, (Texts{"2/s", "2/x", "2/x/1", "1/t"}));

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
    EXPECT_EQ(files.StatusOf("2/n1").Size, 9);
    EXPECT_EQ(files.StatusOf("2/newer1").Size, 8);
    EXPECT_EQ(files.StatusOf("1/newer2").Time, (platform::FileTime{kOld.Seconds, 1}));
    EXPECT_FALSE(files.StatusOf("2/s/.varnel~01234abc").Exists()) << "a killed copy's leftover";
}

}  // namespace
}  // namespace syncing
