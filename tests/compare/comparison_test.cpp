// What the two walks find and what the classifier makes of it.

#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace compare {
namespace {

using fakes::FakeFiles;
using fakes::kOld;
using fakes::MainWindow;
using fakes::Rows;
using fakes::Texts;
using platform::FileTime;

using File = std::optional<platform::FileStatus>;

const FileTime kJustAfter{kOld.Seconds, 100};
const FileTime kHalf{kOld.Seconds, 500'000'000};
const FileTime kNext{kOld.Seconds + 1, 200'000'000};

std::string DateName(const std::string& date) {
    if (date == platform::FormatFileTime(kOld)) return "old";
    return date == platform::FormatFileTime(kNext) ? "next" : date;
}

// All rows of the three lists: code, date and size on both sides.
Texts FullRows(const CompareTable& table) {
    Texts rows;
    for (const ItemList* list : {&table.NewList, &table.ChgList, &table.SameList})
        for (const CompareItem& item : *list)
            rows.push_back(std::to_string(item.Code) + " " + DateName(item.Date1()) + " " +
                           item.Size1() + ", " + DateName(item.Date2()) + " " + item.Size2());
    return rows;
}

TEST(Comparison, TimesAloneDecide) {
    const struct {
        const char* Name;
        File File1, File2;
        std::string Row;
    } cases[] = {
        {"same", {{kOld, 1}}, {{kOld, 1}}, "0 old 1, old 1"},
        {"other size", {{kOld, 1}}, {{kOld, 5'000'000'000}}, "0 old 1, old 5000000000"},
        {"newer in 1", {{kNext, 1}}, {{kHalf, 1}}, "21 next 1, old 1"},
        {"newer in 2", {{kOld, 3}}, {{kNext, 2}}, "22 old 3, next 2"},
        {"newer in 1 within a second", {{kHalf, 1}}, {{kOld, 1}}, "22 old 1, old 1"},
        {"newer in 2 within a second", {{kOld, 1}}, {{kHalf, 1}}, "22 old 1, old 1"},
        {"a hundred nanoseconds", {{kJustAfter, 1}}, {{kOld, 1}}, "22 old 1, old 1"},
        {"only in 1", {{kOld, 0}}, {}, "11 old 0, 00:00:00 "},
        {"only in 2", {}, {{kOld, 0}}, "12 1899/12/30 00:00:00 , old 0"},
        {"only in 1, zero date", {{FileTime{}, 5}}, {}, "11 1899/12/30 00:00:00 5, 00:00:00 "},
        {"zero date in 2", {{kOld, 1}}, {{FileTime{}, 5}}, "11 old 1, 00:00:00 "},
    };
    for (const auto& c : cases)
        for (const bool listsStatuses : {false, true}) {
            SCOPED_TRACE(std::string(c.Name) + (listsStatuses ? ", listed with status" : ""));
            MainWindow window;
            window.files.ListsStatuses = listsStatuses;
            if (c.File1) window.Put("1/a", c.File1->Time, c.File1->Size);
            if (c.File2) window.Put("2/a", c.File2->Time, c.File2->Size);
            window.form.Command3.Click();
            EXPECT_EQ(FullRows(window.form.Table), Texts{c.Row});
            EXPECT_EQ(window.form.Table.Fcount, 0);
        }
}

class ComparisonTest : public fakes::MainWindowTest {
  protected:
    const CompareTable& Compared() {
        form.Command3.Click();
        return form.Table;
    }
};

TEST_F(ComparisonTest, AFileThatVanishesAfterTheListing) {
    PutBoth("both");
    for (const char* name : {"1/only", "2/only2"}) Put(name);
    host.OnYield = [this](long long) {
        if (form.lblComparing.Caption() != "4") return;
        for (const char* name : {"2/both", "1/only", "2/only2"}) files.Remove(name);
    };
    EXPECT_EQ(FullRows(Compared()),
              (Texts{"11 old 1, 00:00:00 ", "11 1899/12/30 00:00:00 , 00:00:00 ",
                     "12 1899/12/30 00:00:00 , 1899/12/30 00:00:00 "}));
}

// A file of Folder 1 without a time makes a row in each walk.
TEST_F(ComparisonTest, AFileOfFolder1WithTheZeroDateIsMissingInTheSecondWalk) {
    for (const char* name : {"vanishes", "zero", "both zero"}) PutBoth(name);
    for (const char* name : {"1/zero", "1/both zero", "2/both zero"}) Put(name, {}, 5);
    host.OnYield = [this](long long) {
        if (form.lblComparing.Caption() == "6") files.Remove("1/vanishes");
    };
    for (const bool listsStatuses : {false, true}) {
        files.ListsStatuses = listsStatuses;
        EXPECT_EQ(Rows(Compared().ChgList),
                  listsStatuses ? Texts{"22 zero"} : (Texts{"22 vanishes", "22 zero"}));
        EXPECT_EQ(Rows(form.Table.NewList),
                  (Texts{"11 both zero", "12 vanishes", "12 zero", "12 both zero"}));
    }
}

TEST_F(ComparisonTest, FilesComeBeforeSubfoldersLevelByLevelSide1First) {
    for (const char* name : {"1/z/deep/f", "1/z/c", "1/b", "1/y/d", "1/a", "2/z/deep/f",
                             "2/z/deep/g", "2/z/.varnel~01234abc", "2/y/e", "2/only/x/h", "2/b"})
        Put(name);
    files.AddFolder("1/empty");
    form.Command3.Click();
    EXPECT_EQ(Rows(form.Table.SameList), (Texts{"0 b", "0 z/deep/f"}));
    EXPECT_EQ(Rows(form.Table.NewList),
              (Texts{"11 a", "11 z/c", "11 y/d", "12 y/e", "12 z/deep/g", "12 only/x/h"}));
    EXPECT_EQ(form.Table.Fcount, 0);
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
    EXPECT_EQ(form.Table.Fcount, 0);
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

// A dropped file leaves the countdown above zero. The search for the extension goes beyond the name
// where the name is short, in the found file's path alone.
TEST_F(ComparisonTest, TheFilterDropsFoundFilesByTheirPaths) {
    const std::string folder(1, platform::Separator);
    const struct {
        rules::FileFilter Filter;
        Texts Rows;
        const char* Countdown;
    } cases[] = {
        {{"", true}, {"0 ab", "11 a.txt", "11 README", "12 b.txt", "12 cd"}, "0"},
        {{"/txt", true}, {"11 a.txt", "12 b.txt"}, "4"},
        {{"/txt", false}, {"0 ab", "11 README", "12 cd"}, "2"},
        {{"/txt" + folder + "ab/txt" + folder + "cd", false}, {"0 ab", "11 README"}, "4"},
    };
    for (const char* name : {"1/a.txt", "1/README", "1/ab", "2.txt/ab", "2.txt/b.txt", "2.txt/cd"})
        Put(name);
    form.Combo2.Edit(FakeFiles::Path("2.txt"));
    for (const auto& c : cases) {
        form.Filter = c.Filter;
        Texts rows = Rows(Compared().SameList);
        for (const std::string& row : Rows(form.Table.NewList)) rows.push_back(row);
        EXPECT_EQ(rows, c.Rows);
        EXPECT_EQ(form.lblComparing.Caption(), c.Countdown);
    }
}

}  // namespace
}  // namespace compare
