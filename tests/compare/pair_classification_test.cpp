#include "compare/pair_classification.h"

#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace compare {
namespace {

using fakes::kNew;
using fakes::kOld;
using fakes::MainWindow;
using fakes::Rows;
using fakes::Texts;
using platform::FileTime;

using File = std::optional<platform::FileStatus>;

FileTime After(FileTime time, std::int32_t nanoseconds) {
    return {time.Seconds, time.Nanoseconds + nanoseconds};
}

// All rows of the three lists with all their texts.
Texts FullRows(const CompareTable& table) {
    Texts rows;
    for (const ItemList* list : {&table.NewList, &table.ChgList, &table.SameList})
        for (const CompareItem& item : *list)
            rows.push_back(std::to_string(item.Code) + " | " + item.Date1() + " | " + item.Size1() +
                           " | " + item.Date2() + " | " + item.Size2());
    return rows;
}

TEST(PairClassification, TimesAloneDecide) {
    const std::string old = platform::FormatFileTime(kOld);
    const std::string recent = platform::FormatFileTime(kNew);
    const std::string zero = "1899/12/30 00:00:00";
    struct Case {
        const char* Name;
        File File1, File2;
        Texts Rows;
    };
    const FileTime half = After(kOld, 500'000'000);
    const FileTime next{kOld.Seconds + 1, 200'000'000};
    const Case cases[] = {
        {"same", {{kOld, 1}}, {{kOld, 1}}, {"0 | " + old + " | 1 | " + old + " | 1"}},
        {"other size", {{kOld, 1}}, {{kOld, 20}}, {"0 | " + old + " | 1 | " + old + " | 20"}},
        {"newer 1", {{kNew, 1}}, {{kOld, 1}}, {"21 | " + recent + " | 1 | " + old + " | 1"}},
        {"newer 2", {{kOld, 3}}, {{kNew, 2}}, {"22 | " + old + " | 3 | " + recent + " | 2"}},
        {"half a second newer 1",
         {{half, 1}},
         {{kOld, 1}},
         {"22 | " + old + " | 1 | " + old + " | 1"}},
        {"half a second newer 2",
         {{kOld, 1}},
         {{half, 1}},
         {"22 | " + old + " | 1 | " + old + " | 1"}},
        {"less than a second, next second",
         {{next, 1}},
         {{half, 1}},
         {"21 | " + platform::FormatFileTime(next) + " | 1 | " + old + " | 1"}},
        {"a hundred nanoseconds",
         {{After(kOld, 100), 1}},
         {{kOld, 1}},
         {"22 | " + old + " | 1 | " + old + " | 1"}},
        {"only 1", {{kOld, 0}}, {}, {"11 | " + old + " | 0 | 00:00:00 | "}},
        {"only 2", {}, {{kOld, 0}}, {"12 | " + zero + " |  | " + old + " | 0"}},
        {"only 1, zero date", {{FileTime{}, 5}}, {}, {"11 | " + zero + " | 5 | 00:00:00 | "}},
        {"2 has the zero date",
         {{kOld, 1}},
         {{FileTime{}, 5}},
         {"11 | " + old + " | 1 | 00:00:00 | "}},
    };
    for (const Case& c : cases)
        for (const bool listsStatuses : {false, true}) {
            SCOPED_TRACE(std::string(c.Name) + (listsStatuses ? ", listed with status" : ""));
            MainWindow window;
            window.files.ListsStatuses = listsStatuses;
            if (c.File1) window.Put("1/a", c.File1->Time, c.File1->Size);
            if (c.File2) window.Put("2/a", c.File2->Time, c.File2->Size);
            window.form.Command3.Click();
            EXPECT_EQ(FullRows(window.form.Table), c.Rows);
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

TEST_F(PairClassificationTest, ACounterpartThatIsAFolderIsMissing) {
    Put("1/a");
    Put("2/a/b");
    EXPECT_EQ(Rows(Compared().NewList), (Texts{"11 a", "12 a/b"}));
    EXPECT_EQ(form.Table.NewList[1].Path1(), fakes::FakeFiles::Path("1/a/b"));
}

TEST_F(PairClassificationTest, EachFileIsLookedAtOnceASideAtMost) {
    for (const char* name : {"both", "s/both", "s/t/both"}) PutBoth(name);
    Put("1/only1");
    Put("1/s/only1");
    Put("2/only2");
    Put("2/new/only2");
    Compared();
    const std::map<std::string, int> once{
        {"1/both", 1},     {"2/both", 1},  {"1/s/both", 1},  {"2/s/both", 1}, {"1/s/t/both", 1},
        {"2/s/t/both", 1}, {"1/only1", 1}, {"1/s/only1", 1}, {"2/only2", 1},  {"2/new/only2", 1}};
    EXPECT_EQ(files.Looks, once);

    files.Looks.clear();
    files.ListsStatuses = true;
    Compared();
    EXPECT_TRUE(files.Looks.empty());
}

TEST_F(PairClassificationTest, AFileThatVanishesAfterTheListing) {
    PutBoth("both");
    for (const char* name : {"1/only", "2/only2"}) Put(name);
    host.OnYield = [this](long long) {
        if (form.lblComparing.Caption() != "4") return;
        for (const char* name : {"2/both", "1/only", "2/only2"}) files.Remove(name);
    };
    Compared();
    EXPECT_EQ(FullRows(form.Table),
              (Texts{"11 | " + platform::FormatFileTime(kOld) + " | 1 | 00:00:00 | ",
                     "11 | 1899/12/30 00:00:00 |  | 00:00:00 | ",
                     "12 | 1899/12/30 00:00:00 |  | 1899/12/30 00:00:00 | "}));
}

// A file of Folder 1 without a time makes a row in each walk.
TEST_F(PairClassificationTest, AFileOfFolder1WithTheZeroDateIsMissingInTheSecondWalk) {
    PutBoth("vanishes");
    Put("1/zero", {}, 5);
    Put("2/zero");
    Put("1/both zero", {}, 5);
    Put("2/both zero", {}, 5);
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

TEST_F(PairClassificationTest, TheFilterDropsTheFoundFileAndLeavesTheCountdownAbove0) {
    struct Case {
        const char* List;
        bool Only;
        Texts Rows;
        const char* Countdown;
    };
    for (const char* name :
         {"1/a.txt", "1/a.TXT.", "1/a.doc", "1/README", "1/a.tx", "2/b.txt", "2/b.c"})
        Put(name);
    PutBoth("both.txt");
    const Case cases[] = {
        {"",
         true,
         {"0 both.txt", "11 a.txt", "11 a.TXT.", "11 a.doc", "11 README", "11 a.tx", "12 b.txt",
          "12 b.c"},
         "0"},
        {"/txt", true, {"0 both.txt", "11 a.txt", "11 a.TXT.", "11 a.tx", "12 b.txt"}, "3"},
        {"/txt", false, {"11 a.doc", "11 README", "12 b.c"}, "6"},
        {"/doc", true, {"11 a.TXT.", "11 a.doc", "12 b.c"}, "6"},
    };
    for (const Case& c : cases) {
        form.Filter = {c.List, c.Only};
        Texts rows = Rows(Compared().SameList);
        for (const std::string& row : Rows(form.Table.NewList)) rows.push_back(row);
        EXPECT_EQ(rows, c.Rows) << c.List << c.Only;
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
