// What a comparison asks, finds, makes of it and shows.
#include <string>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace compare {
namespace {

using fakes::FakeFiles;
using fakes::kNew;
using fakes::kOld;
using fakes::Texts;

class ComparisonTest : public fakes::MainWindowTest {
  protected:
    // The rows: new, then modified, then same.
    Texts Compared() {
        form.Command3.Click();
        Texts rows = fakes::Rows(form.Table.NewChgList);
        for (const std::string& row : fakes::Rows(form.Table.SameList)) rows.push_back(row);
        return rows;
    }
    // The rows of a file with these statuses.
    Texts Compared(const platform::FileStatus& file1, const platform::FileStatus& file2) {
        for (const char* name : {"1/a", "2/a"}) files.Remove(name);
        if (file1.Exists()) files.AddFile("1/a", file1);
        if (file2.Exists()) files.AddFile("2/a", file2);
        return Compared();
    }
};

TEST_F(ComparisonTest, TimesAloneDecide) {
    const platform::FileTime half{kOld.Seconds, 500'000'000}, next{kOld.Seconds + 1, 0};
    for (const bool listsStatuses : {false, true}) {
        files.ListsStatuses = listsStatuses;
        EXPECT_EQ(Compared({kOld, 1}, {kOld, 5'000'000'000}), Texts{"0 a"});
        EXPECT_EQ(form.Table.SameList[0].Size2(), "5000000000");
        EXPECT_EQ(Compared({next, 1}, {half, 1}), Texts{"21 a"});
        EXPECT_EQ(Compared({kOld, 3}, {next, 2}), Texts{"22 a"});
        EXPECT_EQ(Compared({half, 1}, {kOld, 1}), Texts{"22 a"}) << "within a second";
        EXPECT_EQ(Compared({}, {kOld, 0}), Texts{"12 a"});
        EXPECT_EQ(form.Table.NewList[0].Size2(), "0");
        EXPECT_EQ(Compared({kOld, 0}, {}), Texts{"11 a"});
        const CompareItem& row = form.Table.NewList[0];
        EXPECT_EQ(row.Size1() + row.Size2() + row.Date2(), "000:00:00");
        EXPECT_EQ(Compared({{}, 5}, {kOld, 1}), (Texts{"12 a", "22 a"})) << "no time";
        EXPECT_EQ(Compared({{}, 4}, {{}, 5}), (Texts{"11 a", "12 a"}));
        EXPECT_EQ(form.Table.NewList[0].Size2(), "");
    }
}

TEST_F(ComparisonTest, AFileThatVanishesAfterTheListingIsMissing) {
    for (const char* name : {"a", "b"}) PutBoth(name);
    for (const char* name : {"1/only", "2/only2"}) Put(name);
    host.OnYield = [this](long long) {
        if (form.lblComparing.Caption() != "6") return;
        EXPECT_TRUE(form.lblComparing.Visible() && !form.LabelAllFile.Visible());
        for (const char* name : {"1/a", "2/b", "1/only", "2/only2"}) files.Remove(name);
    };
    EXPECT_EQ(Compared(), (Texts{"11 b", "11 only", "12 a", "12 only2", "22 a"}));
}

// What may be entered is looked into by the names of the other side.
TEST_F(ComparisonTest, AFolderThatMayNotBeListedIsNamedAndItsFilesAreFound) {
    for (const char* name : {"s/a", "s/t/b"}) PutBoth(name);
    for (const char* name : {"1/s/only", "1/s/u/f", "2/s/hidden", "2/z"}) Put(name);
    files.Unlistable = {"2/s"};
    EXPECT_EQ(Compared(), (Texts{"11 s/only", "11 s/u/f", "12 z", "0 s/a", "0 s/t/b"}));
    const auto& unreadable = form.Comparison().Troubles().UnreadableFolders;
    ASSERT_EQ(unreadable.size(), 1u);
    EXPECT_EQ(unreadable[0].Path, FakeFiles::Path("2/s/"));
}

// The search for a file's extension goes beyond a short name, in the found file's path.
TEST_F(ComparisonTest, GoesLevelByLevelSide1FirstAndListsAndLooksOnce) {
    for (const char* name : {"1/z/deep/f", "1/z/c", "1/b", "1/y/d", "1/a", "1/a.txt", "1/ab"})
        Put(name);
    for (const char* name : {"y/e", "z/deep/f", "z/deep/g", "only/x/h", "b", "b.txt", "ab"})
        Put(std::string("2.txt/") + name);
    files.AddFolder("1/empty");
    form.Combo2.Edit(FakeFiles::Path("2.txt"));
    form.Filter = {std::string("/txt") + platform::Separator + "ab", false};
    EXPECT_EQ(Compared(), (Texts{"11 a", "11 z/c", "11 y/d", "12 y/e", "12 z/deep/g", "12 only/x/h",
                                 "0 b", "0 ab", "0 z/deep/f"}));
    EXPECT_EQ(form.lblComparing.Caption(), "3") << "the dropped ones";

    files.ListsStatuses = true;
    form.Command3.Click();
    EXPECT_EQ(files.Looks.size(), 12u);
    for (const auto& [name, times] : files.Looks) EXPECT_EQ(times, 1) << name;
    for (const auto& [name, times] : files.Listings) EXPECT_EQ(times, 2) << name;
}

// Folders stay open, are closed for others and are opened again, some by way of folders that are
// closed, too; a file is never missed by that.
TEST_F(ComparisonTest, EveryFileIsFoundHoweverManyThereAreInWhateverOrder) {
    constexpr int kFiles = 12;  // more than are looked up from above
    for (int folders = 0; folders < 110; ++folders) {
        const std::string below = folders % 10 == 0 ? "/in/deep/" : "/";
        const std::string folder = "/d" + std::to_string(folders) + below;
        for (int i = 0, last = folders * kFiles + kFiles - 1; i < kFiles; ++i)
            for (const auto& [side, file] : {std::pair{"1", last - i}, {"2", folders * kFiles + i}})
                Put(side + folder + std::to_string(file), {kOld.Seconds + file, 0});
        files.ListsStatuses = folders % 2 == 0;
        if (folders < 60) continue;
        form.Command3.Click();
        EXPECT_EQ(form.Table.NewChgCount(), 0) << folders;
    }
}

TEST_F(ComparisonTest, ChecksTheTwoFoldersOneAfterTheOther) {
    const std::string one = FakeFiles::Path("1"), none = FakeFiles::Path("none");
    const std::pair<std::string, std::string> folders[] = {{"   ", none},
                                                           {one, "  "},
                                                           {none, " " + none + " "},
                                                           {FakeFiles::Path("file"), none},
                                                           {one, none}};
    Put("file");
    for (const auto& [folder1, folder2] : folders) {
        form.Combo1.Edit(folder1);
        form.Combo2.Edit(folder2);
        form.Command3.Click();
        EXPECT_EQ(form.Command3.Caption(), "Compare");
    }
    EXPECT_EQ(TakeMessages(),
              (Texts{"Please enter 'Folder 1' !    ", "Please enter 'Folder 2' !    ",
                     "'Folder 1' and 'Folder 2' are same folder !    ",
                     "Folder 1 did not exist!    ", "Folder 2 did not exist!    "}));
    EXPECT_TRUE(registry.Values.empty()) << "what is remembered";
}

// The first page is of what is to be synchronised, else of the same files.
TEST_F(ComparisonTest, ShowsWhatItFoundFromNothingEachTime) {
    for (int i = 0; i < 40; ++i) PutBoth("f" + std::to_string(i));
    form.Command3.Click();
    EXPECT_EQ(form.LabelShow.Caption(), "Same Files:  40");
    form.VScroll1.Scroll(9);
    for (const char* name : {"1/new", "2/new2"}) Put(name);
    Put("1/f0", kNew);
    form.Command3.Click();
    EXPECT_EQ(form.LabelShow.Caption(), "New and Modified Files:  3");
    EXPECT_EQ(form.VScroll1.Maximum() + form.VScroll1.Value(), 0);
    form.Command4.Click();
    form.Command3.Click();
    EXPECT_EQ(form.LabelNewFile.Caption(), "New Files ( 0 ) ");
    EXPECT_EQ(form.LabelChgFile.Caption(), "Modified Files ( 0 ) ");
    EXPECT_EQ(form.LabelAllFile.Caption(), "Same Files ( 42 ) ");
    EXPECT_TRUE(form.Table.SyncAllList.empty()) << "whose texts are gone";
}

TEST_F(ComparisonTest, SyncAfterCompareTakesWhatWasFoundWithoutAQuestion) {
    PutBoth("same");
    form.CheckSync.Click();
    form.Command3.Click();
    EXPECT_EQ(TakeMessages(), Texts()) << "nothing to do";
    for (const char* name : {"1/n1", "1/s/n2", "1/s/n3"}) Put(name);
    host.OnYield = [this](long long) {
        if (!form.Table.StopRequested && form.LabelNewFile.Caption() == "New Files ( 2 ) ")
            form.Command3.Click();
    };
    form.Command3.Click();
    EXPECT_EQ(files.Copies, (Texts{"1/n1 > 2/n1", "1/s/n2 > 2/s/n2"})) << "stopped before n3";
}

}  // namespace
}  // namespace compare
