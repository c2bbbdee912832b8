// What a comparison asks, finds, makes of it and shows.
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace compare {
namespace {

using fakes::FakeFiles;
using fakes::kNew;
using fakes::kOld;
using fakes::MainWindow;
using fakes::Texts;
using platform::FileTime;

using File = std::optional<platform::FileStatus>;

const FileTime kHalf{kOld.Seconds, 500'000'000};
const FileTime kNext{kOld.Seconds + 1, 200'000'000};

// New, then modified, then same.
ItemList AllRows(const CompareTable& table) {
    ItemList rows = table.NewChgList;
    rows.insert(rows.end(), table.SameList.begin(), table.SameList.end());
    return rows;
}

std::string DateName(const std::string& date) {
    for (const auto& [name, time] : {std::pair{"old", kOld}, {"next", kNext}, {"zero", {}}})
        if (date == platform::FormatFileTime(time)) return name;
    return date;
}

TEST(Comparison, TimesAloneDecide) {
    const struct {
        const char* Name;
        File File1, File2;
        Texts Rows;
    } cases[] = {
        {"same", {{kOld, 1}}, {{kOld, 1}}, {"0 old 1, old 1"}},
        {"other size", {{kOld, 1}}, {{kOld, 5'000'000'000}}, {"0 old 1, old 5000000000"}},
        {"newer in 1", {{kNext, 1}}, {{kHalf, 1}}, {"21 next 1, old 1"}},
        {"newer in 2", {{kOld, 3}}, {{kNext, 2}}, {"22 old 3, next 2"}},
        {"newer in 1 within a second", {{kHalf, 1}}, {{kOld, 1}}, {"22 old 1, old 1"}},
        {"a hundred nanoseconds", {{{kOld.Seconds, 100}, 1}}, {{kOld, 1}}, {"22 old 1, old 1"}},
        {"only in 1", {{kOld, 0}}, {}, {"11 old 0, 00:00:00 "}},
        {"only in 2", {}, {{kOld, 0}}, {"12 zero , old 0"}},
        {"zero date in 1", {{{}, 5}}, {{kOld, 1}}, {"12 zero , old 1", "22 zero 5, old 1"}},
        {"zero date in 2", {{kOld, 1}}, {{{}, 5}}, {"11 old 1, 00:00:00 "}},
        {"zero date in both", {{{}, 4}}, {{{}, 5}}, {"11 zero 4, 00:00:00 ", "12 zero , zero 5"}},
    };
    for (const auto& c : cases)
        for (const bool listsStatuses : {false, true}) {
            MainWindow window;
            window.files.ListsStatuses = listsStatuses;
            if (c.File1) window.Put("1/a", c.File1->Time, c.File1->Size);
            if (c.File2) window.Put("2/a", c.File2->Time, c.File2->Size);
            window.form.Command3.Click();
            Texts rows;
            for (const CompareItem& item : AllRows(window.form.Table))
                rows.push_back(std::to_string(item.Code) + " " + DateName(item.Date1()) + " " +
                               item.Size1() + ", " + DateName(item.Date2()) + " " + item.Size2());
            EXPECT_EQ(rows, c.Rows) << c.Name << (listsStatuses ? ", listed with status" : "");
        }
}

class ComparisonTest : public fakes::MainWindowTest {
  protected:
    Texts Compared() {
        form.Command3.Click();
        return fakes::Rows(AllRows(form.Table));
    }
    Texts Captions() const {
        return {form.LabelNewFile.Caption(), form.LabelChgFile.Caption(),
                form.LabelNewChgFile.Caption(), form.LabelAllFile.Caption()};
    }
};

TEST_F(ComparisonTest, AFileThatVanishesAfterTheListingIsMissing) {
    for (const char* name : {"a", "b"}) PutBoth(name);
    for (const char* name : {"1/only", "2/only2"}) Put(name);
    host.OnYield = [this](long long) {
        if (form.lblComparing.Caption() != "6") return;
        for (const char* name : {"1/a", "2/b", "1/only", "2/only2"}) files.Remove(name);
    };
    EXPECT_EQ(Compared(), (Texts{"11 b", "11 only", "12 a", "12 only2", "22 a"}));
}

TEST_F(ComparisonTest, FilesComeBeforeSubfoldersLevelByLevelSide1First) {
    for (const char* name : {"1/z/deep/f", "1/z/c", "1/b", "1/y/d", "1/a", "2/z/deep/f",
                             "2/z/deep/g", "2/z/.varnel~01234abc", "2/y/e", "2/only/x/h", "2/b"})
        Put(name);
    files.AddFolder("1/empty");
    EXPECT_EQ(Compared(), (Texts{"11 a", "11 z/c", "11 y/d", "12 y/e", "12 z/deep/g", "12 only/x/h",
                                 "0 b", "0 z/deep/f"}));
    EXPECT_EQ(form.Comparison().Troubles().Leftovers,
              Texts{FakeFiles::Path("2/z/.varnel~01234abc")});
}

TEST_F(ComparisonTest, NamesAreMatchedWhateverTheOrderOfTheListings) {
    constexpr int kMany = 33'000;  // more folders than a 16-bit counter holds
    for (int i = 0; i < kMany; ++i) {
        Put("1/f" + std::to_string(i));
        Put("2/f" + std::to_string(i * 7 % kMany));
        Put("1/d" + std::to_string(i) + "/x");
        Put("2/d" + std::to_string(kMany - 1 - i) + "/x");
    }
    form.Command3.Click();
    EXPECT_EQ(form.Table.SameCount(), 2 * kMany);
    EXPECT_EQ(form.Table.NewChgCount(), 0);
}

TEST_F(ComparisonTest, EachFolderIsListedAndEachFileLookedAtOnceAtMost) {
    for (const char* name : {"both", "s/both", "s/t/both"}) PutBoth(name);
    for (const char* name : {"1/only1", "1/s/only1", "2/only2", "2/new/only2"}) Put(name);
    form.Command3.Click();
    EXPECT_EQ(files.Looks.size(), 10u);
    EXPECT_EQ(files.Listings.size(), 7u);
    for (const auto* counts : {&files.Looks, &files.Listings})
        for (const auto& [name, times] : *counts) EXPECT_EQ(times, 1) << name;

    files.Looks.clear();
    files.ListsStatuses = true;
    form.Command3.Click();
    EXPECT_TRUE(files.Looks.empty());
}

// Folders stay open, are closed for others and are opened again; a file is never missed by that.
TEST_F(ComparisonTest, EveryFileIsFoundHoweverManyFoldersThereAre) {
    for (int folders = 0; folders < 110; ++folders) {
        for (const char file : std::string("abcdefghi"))
            PutBoth("d" + std::to_string(folders) + "/" + file);
        if (folders < 60) continue;
        form.Command3.Click();
        EXPECT_EQ(form.Table.NewChgCount(), 0) << folders;
    }
}

// A dropped file leaves the countdown above zero. The search for the extension goes beyond the name
// where the name is short, in the found file's path alone.
TEST_F(ComparisonTest, TheFilterDropsFoundFilesByTheirPaths) {
    for (const char* name : {"1/a.txt", "1/README", "1/ab", "2.txt/ab", "2.txt/b.txt", "2.txt/cd"})
        Put(name);
    form.Combo2.Edit(FakeFiles::Path("2.txt"));
    form.Filter = {"/txt", true};
    EXPECT_EQ(Compared(), (Texts{"11 a.txt", "12 b.txt"}));
    EXPECT_EQ(form.lblComparing.Caption(), "4");
    const std::string folder(1, platform::Separator);
    form.Filter = {"/txt" + folder + "ab/txt" + folder + "cd", false};
    EXPECT_EQ(Compared(), (Texts{"11 README", "0 ab"}));
}

TEST_F(ComparisonTest, ChecksTheTwoFoldersOneAfterTheOther) {
    const std::string one = FakeFiles::Path("1"), none = FakeFiles::Path("none");
    const struct {
        std::string Folder1, Folder2;
        Texts Messages;
    } cases[] = {
        {"   ", none, {"Please enter 'Folder 1' !    "}},
        {one, "  ", {"Please enter 'Folder 2' !    "}},
        {none, " " + none + "  ", {"'Folder 1' and 'Folder 2' are same folder !    "}},
        {none, FakeFiles::Path("none/"), {"Folder 1 did not exist!    "}},
        {FakeFiles::Path("file"), one, {"Folder 1 did not exist!    "}},
        {one, none, {"Folder 2 did not exist!    "}},
        {one, FakeFiles::Path("1/"), {}},  // the same folder, by another name
    };
    Put("file");
    for (const auto& c : cases) {
        form.Combo1.Edit(c.Folder1);
        form.Combo2.Edit(c.Folder2);
        form.Command3.Click();
        EXPECT_EQ(TakeMessages(), c.Messages);
        EXPECT_EQ(form.Command3.Caption(), "Compare");
        EXPECT_EQ(registry.Values.empty(), !c.Messages.empty()) << "what is remembered";
    }
    EXPECT_EQ(dialogs.Messages.back().Icon, platform::MessageIcon::Critical);
}

TEST_F(ComparisonTest, WhatIsShownMeanwhile) {
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

// The first page is of what is to be synchronised, else of the same files.
TEST_F(ComparisonTest, CountsOnTheLabelsAndStartsFromNothingEachTime) {
    for (int i = 0; i < 40; ++i) PutBoth("f" + std::to_string(i));
    form.Command3.Click();
    EXPECT_EQ(form.LabelShow.Caption(), "Same Files:  40");
    EXPECT_EQ(form.VScroll1.Maximum(), 16);
    EXPECT_EQ(form.LabelFileFilter.Caption(), "Sync all type of file.");

    form.VScroll1.Scroll(9);
    for (int i = 0; i < 27; ++i) Put("2/n" + std::to_string(i));
    Put("1/f0", kNew);
    form.Command3.Click();
    EXPECT_EQ(Captions(), (Texts{"New Files ( 27 ) ", "Modified Files ( 1 ) ",
                                 "New and Modified Files ( 28 ) ", "Same Files ( 39 ) "}));
    EXPECT_EQ(form.LabelShow.Caption(), "New and Modified Files:  28");
    EXPECT_EQ(form.VScroll1.Maximum(), 4);
    EXPECT_EQ(form.VScroll1.Value(), 0);

    form.Command4.Click();
    Put("1/f0");
    form.Command3.Click();
    EXPECT_EQ(Captions(), (Texts{"New Files ( 0 ) ", "Modified Files ( 1 ) ",
                                 "New and Modified Files ( 1 ) ", "Same Files ( 66 ) "}));
    EXPECT_EQ(form.Table.NewList.capacity() + form.Table.SyncAllList.capacity(), 0u)
        << "no storage is kept";
}

TEST_F(ComparisonTest, SyncAfterCompareTakesWhatWasFoundWithoutAQuestion) {
    PutBoth("same");
    form.CheckSync.Click();
    form.Command3.Click();
    EXPECT_EQ(TakeMessages(), Texts()) << "nothing to do";

    for (const char* name : {"1/a", "2/b"}) Put(name);
    form.Command3.Click();
    EXPECT_EQ(TakeMessages(), Texts{"Synchronization  'New and Modified Files'  completed.      "
                                    "\r\n\r\nSucceed:   2  Files."});
    EXPECT_TRUE(files.StatusOf("2/a").Exists() && files.StatusOf("1/b").Exists());

    for (const char* name : {"1/n1", "1/s/n2", "1/s/n3"}) Put(name);
    AtEveryYield([&](long long) {
        if (form.LabelNewFile.Caption() == "New Files ( 2 ) ") form.Command3.Click();
    });
    form.Command3.Click();
    EXPECT_TRUE(files.StatusOf("2/s/n2").Exists());
    EXPECT_FALSE(files.StatusOf("2/s/n3").Exists()) << "stopped before";
}

}  // namespace
}  // namespace compare
