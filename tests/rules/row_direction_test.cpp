#include "rules/row_direction.h"

#include <array>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/items.h"
#include "fakes/layout_faults.h"
#include "fakes/temp_folder.h"

namespace rules {
namespace {

using compare::CompareItem;
using platform::FileTime;

const FileTime kOld = fakes::Time("2020-01-02 03:04:05 UTC");
const FileTime kNew = fakes::Time("2021-01-02 03:04:05 UTC");
constexpr std::int64_t kMissing = platform::FileStatus::kNoSize;
const compare::FolderPair kRoot{nullptr, "/one/", "/two/"};

CompareItem Pair(const char* name, FileTime time1, std::int64_t size1, FileTime time2,
                 std::int64_t size2, std::int16_t code) {
    CompareItem item = fakes::Item(kRoot, name, code);
    item.Time1 = time1;
    item.Time2 = time2;
    item.Bytes1 = size1;
    item.Bytes2 = size2;
    item.PlainZeroDate2 = code == 11;
    return item;
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
        table.NewList = {Pair("n0", kOld, 7, {}, kMissing, 11),
                         Pair("n1", {}, kMissing, kOld, 7, 12)};
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
    // What the panel says of the two files: age, size.
    std::string Marks() const {
        return p.LabelN11.Caption() + '|' + p.LabelN21.Caption() + '|' + p.LabelN13.Caption() +
               '|' + p.LabelN23.Caption();
    }
    // Of the options the one chosen, and those that can be.
    std::string Options() const {
        std::string options;
        for (const auto* option : {&p.Option1, &p.Option2, &p.Option3})
            options += option->Value() ? '*' : option->Enabled() ? 'o' : '-';
        return options;
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

TEST_F(RowDirectionTest, OpensBelowOrAboveARowThatHasADirection) {
    EXPECT_EQ(fakes::LayoutFaults(form), std::vector<std::string>());
    grid.View = "SyncAll";
    for (const char* caption : {"", "--> OK -->", "<-- Fail <--", "copy -->", "Copy --> "}) {
        grid.DirectionCell(3).SetCaption(caption);
        panel.ShowDirectionPanel(3);
        EXPECT_FALSE(IsOpen()) << caption;
    }
    EXPECT_EQ(grid.Selected, std::vector<int>(5, 3));
    table.SameList.assign(25, Pair("s", kOld, 1, kOld, 1, 0));
    for (const auto& [row, top] : {std::pair{0, 2300}, {13, 5420}, {14, 3080}, {24, 5480}}) {
        Open("Same", row, 40);
        EXPECT_TRUE(IsOpen());
        EXPECT_EQ(p.Picture3.Place().Top, top) << row;
        EXPECT_EQ(grid.Selected.back(), row);
    }
}

TEST_F(RowDirectionTest, ShowsTheFilesAndWhatCanBeDone) {
    const struct {
        const char* View;
        int Item;
        std::int16_t Code;
        const char *Path1, *Size1, *Path2, *Size2, *Marks, *Options;
    } cases[] = {
        {"New", 0, 11, "/one/n0", "7  byte", "", "", "New|||", "*-o"},
        {"New", 1, 12, "", "", "/two/n1", "7  byte", "|New||", "-*o"},
        {"NewChg", 0, 11, "/one/n0", "7  byte", "", "", "New|||", "*-o"},
        {"NewChg", 1, 12, "", "", "/two/n1", "7  byte", "|New||", "-*o"},
        {"Chg", 0, 21, "/one/c0", "9  byte", "/two/c0", "10  byte", "Newer|Older|Larger|Smaller",
         "*oo"},
        {"NewChg", 2, 21, "/one/c0", "9  byte", "/two/c0", "10  byte", "Newer|Older|Larger|Smaller",
         "*oo"},
        {"NewChg", 3, 22, "/one/c1", "5  byte", "/two/c1", "5  byte", "Older|Newer||", "o*o"},
        {"Same", 0, 40, "/one/s0", "1  byte", "/two/s0", "2  byte", "|||", "oo*"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.View) + ' ' + std::to_string(c.Item));
        Open(c.View, c.Item, c.Code);
        EXPECT_EQ(p.TextN1.Text(), c.Path1);
        EXPECT_EQ(p.TextN2.Text(), c.Path2);
        EXPECT_EQ(p.LabelN14.Caption(), c.Size1);
        EXPECT_EQ(p.LabelN24.Caption(), c.Size2);
        EXPECT_EQ(p.LabelN12.Caption().empty(), *c.Path1 == '\0');
        EXPECT_EQ(p.LabelN22.Caption().empty(), *c.Path2 == '\0');
        EXPECT_EQ(Marks(), c.Marks);
        EXPECT_EQ(Options(), c.Options);
        EXPECT_EQ(p.Option1.Caption(),
                  c.Code < 20 ? "Copy File 1 to Folder 2 -->" : "Replace File 2 with File 1 -->");
        EXPECT_EQ(p.Option2.Caption(),
                  c.Code < 20 ? "Copy File 2 to Folder 1 <--" : "Replace File 1 with File 2 <--");
    }
    Open("Chg", 0, 21);
    EXPECT_EQ(p.LabelN12.Caption(), table.ChgList[0].Date1());
    EXPECT_EQ(p.LabelN22.Caption(), table.ChgList[0].Date2());
}

TEST_F(RowDirectionTest, MarksAreComparedAsTexts) {
    const struct {
        FileTime Time1, Time2;
        std::int64_t Size1, Size2;
        const char* Marks;
    } cases[] = {
        {kOld, kNew, 9, 10, "Older|Newer|Larger|Smaller"},
        {kNew, kOld, 10, 9, "Newer|Older|Smaller|Larger"},
        {kOld, {kOld.Seconds, 1}, 100, 99, "Older|Newer|Smaller|Larger"},
    };
    for (const auto& c : cases) {
        table.ChgList[1] = Pair("c1", c.Time1, c.Size1, c.Time2, c.Size2, 22);
        Open("Chg", 1, 22);
        EXPECT_EQ(Marks(), c.Marks);
    }
    // A row not to be synchronised keeps the age marks of the panel's last opening.
    table.NewChgList[3].Code = 40;
    for (const auto& [item, code, marks] :
         {std::tuple{2, 21, "Newer|Older||"}, std::tuple{0, 11, "New|||"}}) {
        Open("NewChg", item, static_cast<std::int16_t>(code));
        Open("NewChg", 3, 40);
        EXPECT_EQ(Marks(), marks);
        EXPECT_EQ(p.TextN1.Text(), "/one/c1");
    }
}

TEST_F(RowDirectionTest, OkWritesTheChoiceWhereTheViewSays) {
    constexpr auto kRight = &DirectionPanel::Option1;
    constexpr auto kLeft = &DirectionPanel::Option2;
    constexpr auto kNone = &DirectionPanel::Option3;
    const struct {
        const char* View;
        int Item;
        platform::OptionButton DirectionPanel::*Option;
        const char* Codes;  // New | Chg | NewChg | Same
        std::int16_t Code;
    } cases[] = {
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
        {"NewChg", 2, kRight, "11 12 | 40 21 | 11 12 21 21 | 0 40 | ", 21},
        {"NewChg", 3, kLeft, "11 12 | 40 21 | 11 12 21 22 | 0 40 | ", 22},
    };
    std::int16_t code = 40;
    for (const auto& c : cases) {
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

TEST_F(RowDirectionTest, NeitherCancelNorOkForAnotherViewChangesAnything) {
    const std::string before = Codes();
    platform::Button other;
    form.DefaultButton = &other;
    for (platform::Button* end : {&p.Command2, &p.Command7}) {
        Open("Chg", 1, 22);
        Open("Chg", 0, 21);
        EXPECT_EQ(form.DefaultButton, &p.Command2);
        EXPECT_EQ(form.CancelButton, &p.Command7);
        if (end == &p.Command2) grid.View = "Same";
        p.Option2.Click();
        end->Click();
        EXPECT_FALSE(IsOpen());
        EXPECT_EQ(Codes(), before);
        EXPECT_EQ(grid.DirectionCell(0).Caption(), "Replace -->");
        EXPECT_EQ(form.DefaultButton, &other);
        EXPECT_EQ(form.CancelButton, nullptr);
    }
    Open("Chg", 1, 22);
    table.Clear(nullptr);
    p.Command2.Click();
    EXPECT_EQ(Codes(), "| | | | ");
}

}  // namespace
}  // namespace rules
