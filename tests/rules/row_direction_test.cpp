#include "rules/row_direction.h"

#include <array>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/layout_faults.h"
#include "fakes/temp_folder.h"

namespace rules {
namespace {

using compare::CompareItem;
using platform::FileTime;

const FileTime kOld = fakes::Time("2020-01-02 03:04:05 UTC");
const FileTime kNew = fakes::Time("2021-01-02 03:04:05 UTC");
const compare::FolderPair kRoot{nullptr, "/one/", "/two/"};

CompareItem Pair(const char* name, FileTime time1, std::int64_t size1, FileTime time2,
                 std::int64_t size2, std::int16_t code) {
    CompareItem item;
    item.Folder = &kRoot;
    item.Name = name;
    item.NameLength = static_cast<std::uint16_t>(std::strlen(name));
    item.Time1 = time1;
    item.Time2 = time2;
    item.Bytes1 = size1;
    item.Bytes2 = size2;
    item.Code = code;
    return item;
}

CompareItem Only1(const char* name) {
    CompareItem item = Pair(name, kOld, 7, {}, platform::FileStatus::kNoSize, 11);
    item.PlainZeroDate2 = true;
    return item;
}

CompareItem Only2(const char* name) {
    return Pair(name, {}, platform::FileStatus::kNoSize, kOld, 7, 12);
}

std::string TextOf(std::int16_t code) {
    return code == 11   ? "Copy -->"
           : code == 12 ? "<-- Copy"
           : code == 21 ? "Replace -->"
           : code == 22 ? "<-- Replace"
                        : "---/---/---";
}

class Grid : public DirectionPanelOwner {
  public:
    std::string View;
    std::int32_t First = 0;
    std::vector<int> Selected;
    std::array<platform::Label, 25> Cells;

    std::string CurrentView() const override { return View; }
    std::int32_t FirstRow() const override { return First; }
    void SelectRow(int row) override { Selected.push_back(row); }
    platform::Label& DirectionCell(int row) override {
        return Cells[static_cast<std::size_t>(row)];
    }
};

// New: n0 (Folder 1), n1 (Folder 2). Chg: c0, c1. Same: s0, s1.
class RowDirectionTest : public testing::Test {
  protected:
    RowDirectionTest() {
        table.NewList = {Only1("n0"), Only2("n1")};
        table.ChgList = {Pair("c0", kNew, 9, kOld, 10, 21), Pair("c1", kOld, 5, kNew, 5, 22)};
        table.SameList = {Pair("s0", kOld, 1, kOld, 2, 0), Pair("s1", kOld, 3, kOld, 3, 0)};
        table.BuildNewChgList();
        panel.AddTo(form, 120, 12700);
        for (int row = 0; row < 25; ++row)
            grid.DirectionCell(row).SetPlace({0, 260 + 240 * row, 900, 240});
    }

    // Clicks the direction cell of an item that the page shows.
    void Open(const std::string& view, int item, std::int16_t code) {
        grid.View = view;
        const int row = item - grid.First;
        grid.DirectionCell(row).SetCaption(TextOf(code));
        panel.ShowDirectionPanel(row);
    }
    std::vector<std::string> Marks() const {
        return {p.LabelN11.Caption(), p.LabelN21.Caption(), p.LabelN13.Caption(),
                p.LabelN23.Caption()};
    }
    // What the panel shows of file 1 (or 2): path, date, size.
    std::vector<std::string> Shown1() const {
        return {p.TextN1.Text(), p.LabelN12.Caption(), p.LabelN14.Caption()};
    }
    std::vector<std::string> Shown2() const {
        return {p.TextN2.Text(), p.LabelN22.Caption(), p.LabelN24.Caption()};
    }
    std::string Codes() const {
        std::string codes;
        for (const compare::ItemList* list :
             {&table.NewList, &table.ChgList, &table.NewChgList, &table.SameList}) {
            for (const CompareItem& item : *list) codes += std::to_string(item.Code) + ' ';
            codes += "| ";
        }
        return codes;
    }
    bool IsOpen() const { return p.Picture3.Visible(); }

    compare::CompareTable table;
    Grid grid;
    DirectionPanel p;
    RowDirection panel{p, table, grid};
    platform::Form form{"FormMain"};
};

const std::vector<std::string> kNothing{"", "", ""};

TEST_F(RowDirectionTest, OpensBelowTheRowAndFromRow14OnAboveIt) {
    table.SameList.assign(25, Pair("s", kOld, 1, kOld, 1, 0));
    struct Case {
        int Row;
        int Top;
    };
    for (const Case& c : {Case{0, 2300}, Case{13, 5420}, Case{14, 3080}, Case{24, 5480}}) {
        Open("Same", c.Row, 40);
        EXPECT_TRUE(IsOpen());
        EXPECT_EQ(p.Picture3.Place().Top, c.Top) << c.Row;
    }
    EXPECT_EQ(grid.Selected, (std::vector<int>{0, 13, 14, 24}));
}

TEST_F(RowDirectionTest, ACellWithoutADirectionSelectsTheRowOnly) {
    grid.View = "SyncAll";
    for (const char* caption : {"", "--> OK -->", "<-- Fail <--", "copy -->", "Copy --> "}) {
        grid.DirectionCell(3).SetCaption(caption);
        panel.ShowDirectionPanel(3);
        EXPECT_FALSE(IsOpen()) << caption;
    }
    EXPECT_EQ(grid.Selected.size(), 5u);
}

TEST_F(RowDirectionTest, ShowsAModifiedPair) {
    for (const char* view : {"Chg", "NewChg"}) {
        Open(view, view == std::string("Chg") ? 0 : 2, 21);
        const CompareItem& item = table.ChgList[0];
        EXPECT_EQ(Shown1(), (std::vector<std::string>{"/one/c0", item.Date1(), "9  byte"}));
        EXPECT_EQ(Shown2(), (std::vector<std::string>{"/two/c0", item.Date2(), "10  byte"}));
        EXPECT_EQ(Marks(), (std::vector<std::string>{"Newer", "Older", "Larger", "Smaller"}));
        EXPECT_TRUE(p.Option1.Enabled() && p.Option2.Enabled());
        EXPECT_TRUE(p.Option1.Value());
        EXPECT_EQ(p.Option1.Caption(), "Replace File 2 with File 1 -->");
        EXPECT_EQ(p.Option2.Caption(), "Replace File 1 with File 2 <--");
    }
}

TEST_F(RowDirectionTest, MarksAreComparedAsTexts) {
    struct Case {
        FileTime Time1, Time2;
        std::int64_t Size1, Size2;
        std::vector<std::string> Marks;
    };
    const Case cases[] = {
        {kOld, kNew, 9, 10, {"Older", "Newer", "Larger", "Smaller"}},
        {kNew, kOld, 10, 9, {"Newer", "Older", "Smaller", "Larger"}},
        {kOld, kOld, 5, 5, {"Older", "Newer", "", ""}},
        {kOld, {kOld.Seconds, 1}, 100, 99, {"Older", "Newer", "Smaller", "Larger"}},
    };
    for (const Case& c : cases) {
        table.ChgList[1] = Pair("c1", c.Time1, c.Size1, c.Time2, c.Size2, 22);
        Open("Chg", 1, 22);
        EXPECT_EQ(Marks(), c.Marks);
        EXPECT_TRUE(p.Option2.Value());
    }
}

TEST_F(RowDirectionTest, ShowsANewFileOnItsSideAlone) {
    for (const char* view : {"New", "NewChg"}) {
        Open(view, 0, 11);
        EXPECT_EQ(Shown1(),
                  (std::vector<std::string>{"/one/n0", table.NewList[0].Date1(), "7  byte"}));
        EXPECT_EQ(Shown2(), kNothing);
        EXPECT_EQ(Marks(), (std::vector<std::string>{"New", "", "", ""}));
        EXPECT_TRUE(p.Option1.Enabled() && p.Option1.Value() && !p.Option2.Enabled());

        Open(view, 1, 12);
        EXPECT_EQ(Shown1(), kNothing);
        EXPECT_EQ(Shown2(),
                  (std::vector<std::string>{"/two/n1", table.NewList[1].Date2(), "7  byte"}));
        EXPECT_EQ(Marks(), (std::vector<std::string>{"", "New", "", ""}));
        EXPECT_TRUE(!p.Option1.Enabled() && p.Option2.Enabled() && p.Option2.Value());
        EXPECT_EQ(p.Option1.Caption(), "Copy File 1 to Folder 2 -->");
        EXPECT_EQ(p.Option2.Caption(), "Copy File 2 to Folder 1 <--");
    }
}

TEST_F(RowDirectionTest, ShowsASamePairWithoutMarks) {
    Open("Chg", 0, 21);
    Open("Same", 0, 40);
    EXPECT_EQ(Shown1(),
              (std::vector<std::string>{"/one/s0", table.SameList[0].Date1(), "1  byte"}));
    EXPECT_EQ(Shown2(),
              (std::vector<std::string>{"/two/s0", table.SameList[0].Date2(), "2  byte"}));
    EXPECT_EQ(Marks(), (std::vector<std::string>{"", "", "", ""}));
    EXPECT_TRUE(p.Option1.Enabled() && p.Option2.Enabled() && p.Option3.Value());
    EXPECT_EQ(p.Option1.Caption(), "Replace File 2 with File 1 -->");
}

TEST_F(RowDirectionTest, ARowNotToSyncKeepsTheAgeMarksOfTheLastOpening) {
    table.NewChgList[3].Code = 40;
    struct Case {
        int Before;
        std::int16_t Code;
        const char* Age1;
        const char* Age2;
    };
    for (const Case& c : {Case{2, 21, "Newer", "Older"}, Case{0, 11, "New", ""}}) {
        Open("NewChg", c.Before, c.Code);
        Open("NewChg", 3, 40);
        EXPECT_EQ(Marks(), (std::vector<std::string>{c.Age1, c.Age2, "", ""}));
        EXPECT_EQ(p.TextN1.Text(), "/one/c1");
    }
    // The "Chg" view goes by the dates.
    table.ChgList[1].Code = 40;
    Open("Chg", 1, 40);
    EXPECT_EQ(Marks(), (std::vector<std::string>{"Older", "Newer", "", ""}));
}

TEST_F(RowDirectionTest, OkWritesTheChoiceWhereTheViewSays) {
    struct Case {
        const char* View;
        int Item;
        platform::OptionButton DirectionPanel::*Option;
        const char* Codes;  // New | Chg | NewChg | Same
        std::int16_t Code;
    };
    constexpr auto kRight = &DirectionPanel::Option1;
    constexpr auto kLeft = &DirectionPanel::Option2;
    constexpr auto kNone = &DirectionPanel::Option3;
    const Case cases[] = {
        {"New", 0, kNone, "40 12 | 21 22 | 40 12 21 22 | 0 0 | ", 40},
        {"New", 0, kRight, "11 12 | 21 22 | 11 12 21 22 | 0 0 | ", 11},
        {"New", 1, kNone, "11 40 | 21 22 | 11 40 21 22 | 0 0 | ", 40},
        {"New", 1, kLeft, "11 12 | 21 22 | 11 12 21 22 | 0 0 | ", 12},
        {"Chg", 1, kRight, "11 12 | 21 21 | 11 12 21 21 | 0 0 | ", 21},
        {"Chg", 0, kLeft, "11 12 | 22 21 | 11 12 22 21 | 0 0 | ", 22},
        {"Chg", 0, kNone, "11 12 | 40 21 | 11 12 40 21 | 0 0 | ", 40},
        {"Same", 1, kRight, "11 12 | 40 21 | 11 12 40 21 | 0 21 | ", 21},
        {"Same", 1, kLeft, "11 12 | 40 21 | 11 12 40 21 | 0 22 | ", 22},
        {"Same", 1, kNone, "11 12 | 40 21 | 11 12 40 21 | 0 40 | ", 40},
        {"NewChg", 0, kNone, "11 12 | 40 21 | 40 12 40 21 | 0 40 | ", 40},
        {"NewChg", 0, kRight, "11 12 | 40 21 | 11 12 40 21 | 0 40 | ", 11},
        {"NewChg", 1, kNone, "11 12 | 40 21 | 11 40 40 21 | 0 40 | ", 40},
        {"NewChg", 1, kLeft, "11 12 | 40 21 | 11 12 40 21 | 0 40 | ", 12},
        {"NewChg", 2, kRight, "11 12 | 40 21 | 11 12 21 21 | 0 40 | ", 21},
        {"NewChg", 3, kLeft, "11 12 | 40 21 | 11 12 21 22 | 0 40 | ", 22},
    };
    std::int16_t code = 40;
    for (const Case& c : cases) {
        Open(c.View, c.Item, code);
        (p.*c.Option).Click();
        p.Command2.Click();
        EXPECT_EQ(Codes(), c.Codes) << c.View << c.Item;
        EXPECT_EQ(grid.DirectionCell(c.Item).Caption(), TextOf(c.Code)) << c.View << c.Item;
        EXPECT_FALSE(IsOpen());
        code = c.Code;
    }
}

TEST_F(RowDirectionTest, TheRowIsCountedFromTheTopOfTheList) {
    table.SameList.assign(60, Pair("s", kOld, 1, kOld, 1, 0));
    grid.First = 30;
    Open("Same", 37, 40);
    grid.First = 35;  // scrolled while the panel is open
    grid.DirectionCell(7).SetCaption("untouched");
    p.Option1.Click();
    p.Command2.Click();
    EXPECT_EQ(table.SameList[37].Code, 21);
    EXPECT_EQ(grid.DirectionCell(2).Caption(), "Replace -->");
    EXPECT_EQ(grid.DirectionCell(7).Caption(), "untouched");
}

TEST_F(RowDirectionTest, CancelChangesNothing) {
    const std::string before = Codes();
    Open("Chg", 0, 21);
    p.Option2.Click();
    p.Command7.Click();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Codes(), before);
    EXPECT_EQ(grid.DirectionCell(0).Caption(), "Replace -->");
}

TEST_F(RowDirectionTest, OkDoesNotReachARowThatIsNoLongerShown) {
    const std::string before = Codes();
    Open("Chg", 1, 22);
    grid.View = "Same";
    p.Option1.Click();
    p.Command2.Click();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Codes(), before);

    Open("Chg", 1, 22);
    table.Clear(nullptr);
    p.Command2.Click();
    EXPECT_EQ(Codes(), "| | | | ");
}

TEST_F(RowDirectionTest, EnterAndEscBelongToThePanelWhileItIsOpen) {
    platform::Button other;
    form.DefaultButton = &other;
    for (platform::Button* end : {&p.Command2, &p.Command7}) {
        Open("Chg", 0, 21);
        Open("Chg", 1, 22);
        EXPECT_EQ(form.DefaultButton, &p.Command2);
        EXPECT_EQ(form.CancelButton, &p.Command7);
        end->Click();
        EXPECT_EQ(form.DefaultButton, &other);
        EXPECT_EQ(form.CancelButton, nullptr);
    }
}

TEST_F(RowDirectionTest, ThePanelsControlsFit) {
    EXPECT_EQ(fakes::LayoutFaults(form), std::vector<std::string>());
}

}  // namespace
}  // namespace rules
