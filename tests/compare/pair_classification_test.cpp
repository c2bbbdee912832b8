#include "compare/pair_classification.h"

#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace compare {
namespace {

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

TEST(PairClassification, TimesAloneDecide) {
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

class PairClassificationTest : public fakes::MainWindowTest {
  protected:
    const CompareTable& Compared() {
        form.Command3.Click();
        return form.Table;
    }
};

TEST_F(PairClassificationTest, AFileThatVanishesAfterTheListing) {
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
TEST_F(PairClassificationTest, AFileOfFolder1WithTheZeroDateIsMissingInTheSecondWalk) {
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

TEST_F(PairClassificationTest, TheFilterDropsFoundFilesAndLeavesTheCountdownAboveZero) {
    const struct {
        rules::FileFilter Filter;
        Texts Rows;
        const char* Countdown;
    } cases[] = {
        {{"", true}, {"0 both.txt", "11 a.txt", "11 README", "12 b.txt", "12 b.c"}, "0"},
        {{"/txt", true}, {"0 both.txt", "11 a.txt", "12 b.txt"}, "2"},
        {{"/txt", false}, {"11 README", "12 b.c"}, "4"},
    };
    for (const char* name : {"1/a.txt", "1/README", "2/b.txt", "2/b.c"}) Put(name);
    PutBoth("both.txt");
    for (const auto& c : cases) {
        form.Filter = c.Filter;
        Texts rows = Rows(Compared().SameList);
        for (const std::string& row : Rows(form.Table.NewList)) rows.push_back(row);
        EXPECT_EQ(rows, c.Rows);
        EXPECT_EQ(form.lblComparing.Caption(), c.Countdown);
    }
}

// The search for the extension goes beyond the name where the name is short.
TEST_F(PairClassificationTest, TheCounterpartsPathDoesNotMatterToTheFilter) {
    for (const char* name : {"1/ab", "2.txt/ab", "2.txt/cd"}) Put(name);
    form.Combo2.Edit(fakes::FakeFiles::Path("2.txt"));
    form.Filter = {platform::Separator == '/' ? "/txt/ab/txt/cd" : "/txt\\ab/txt\\cd", false};
    EXPECT_EQ(Rows(Compared().SameList), Texts{"0 ab"});
    EXPECT_TRUE(form.Table.NewList.empty());
    EXPECT_EQ(form.lblComparing.Caption(), "2");
}

}  // namespace
}  // namespace compare
