#include "grid/grid_page.h"

#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/items.h"
#include "platform/paths.h"

namespace grid {
namespace {

using platform::ScrollKey;
using Texts = std::vector<std::string>;

const compare::FolderPair kRoots{nullptr, "/one/", "/two/"};

compare::CompareItem Row(const char* name, bool in1 = true, bool in2 = true) {
    compare::CompareItem item = fakes::Item(kRoots, name, 0);
    item.Bytes1 = in1 ? 1 : platform::FileStatus::kNoSize;
    item.Bytes2 = in2 ? 1 : platform::FileStatus::kNoSize;
    return item;
}

class GridPageTest : public testing::Test, protected PageOwner {
  protected:
    void RedrawView() override { redrawnAt.push_back(page.FirstRow); }
    const compare::ItemList* CurrentList() const override { return current; }
    void ShowDirectionPanel(int row) override { panels.push_back(row); }

    // Shows a list of so many rows from its start.
    void ShowList(std::size_t rows) {
        list.assign(rows, Row("a"));
        current = &list;
        page.GridFilled = true;
        page.SetScrollRange(static_cast<std::int32_t>(rows));
        page.ResetScroll();
    }
    // The background of each of the 25 rows, all eight cells alike; "?" where they differ.
    std::string Backs() const {
        std::string backs;
        for (std::size_t row = 0; row < kPageRows; ++row) {
            std::set<platform::Color> colors{controls.sMAC[row].BackColor()};
            for (const auto cells : ResultsGrid::kDataCells)
                colors.insert((controls.*cells)[row].BackColor());
            const platform::Color color = *colors.begin();
            backs += colors.size() > 1   ? '?'
                     : color == 0xFFFFC0 ? '.'
                     : color == 0xFFFF80 ? 'h'
                     : color == 0x008000 ? 'S'
                                         : '!';
        }
        return backs;
    }
    static std::string Rows(std::vector<std::pair<std::size_t, char>> marked) {
        std::string rows(kPageRows, '.');
        for (const auto& [row, mark] : marked) rows[row] = mark;
        return rows;
    }
    void Point(std::size_t row, int y = 100) { controls.sFile2[row].PointerMove({10, y}); }

    ResultsGrid controls;
    std::vector<std::int32_t> redrawnAt;
    std::vector<int> panels;
    compare::ItemList list;
    const compare::ItemList* current = nullptr;
    GridPage page{controls, *this};
};

TEST_F(GridPageTest, ScrollStepsAreRowsThenPagesThenSeveralPages) {
    struct Case {
        std::int32_t Count;
        int Steps, Maximum, RowOfMaximum;
    };
    const Case cases[] = {
        {0, 0, 0, 0},
        {24, 24, 0, 0},
        {25, 25, 1, 1},
        {30, 30, 6, 6},
        {10'000, 10'000, 9'976, 9'976},
        {10'001, 401, 400, 10'000},
        {10'025, 401, 400, 10'000},
        {10'026, 402, 401, 10'025},
        {819'175, 32'767, 32'766, 819'150},
        {819'176, 16'384, 16'383, 819'150},
        {2'000'000, 26'667, 26'666, 1'999'950},
        {2'147'483'647, 32'762, 32'761, 2'147'483'550},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Count);
        EXPECT_EQ(page.ScaleRowCount(c.Count), c.Steps);
        page.SetScrollRange(c.Count);
        EXPECT_EQ(controls.VScroll1.Minimum(), 0);
        EXPECT_EQ(controls.VScroll1.Maximum(), c.Maximum);
        controls.VScroll1.Scroll(100'000);
        EXPECT_EQ(page.FirstRow, c.RowOfMaximum);
        EXPECT_EQ(redrawnAt.back(), c.RowOfMaximum);
    }
}

TEST_F(GridPageTest, EveryRowIsReachedPageByPage) {
    for (const std::size_t rows :
         {std::size_t{26}, std::size_t{10'001}, std::size_t{819'176}, std::size_t{2'000'000}}) {
        SCOPED_TRACE(rows);
        ShowList(rows);
        std::int32_t seen = kPageRows;
        while (seen < static_cast<std::int32_t>(rows)) {
            page.ScrollByKey(ScrollKey::PageDown);
            ASSERT_LE(page.FirstRow, seen);
            ASSERT_GT(page.FirstRow + kPageRows, seen);
            seen = page.FirstRow + kPageRows;
            ASSERT_LE(controls.VScroll1.Value(), controls.VScroll1.Maximum());
        }
        EXPECT_EQ(seen, static_cast<std::int32_t>(rows));
    }
}

TEST_F(GridPageTest, KeysAndWheelKeepThePageWithinTheList) {
    ShowList(60);
    struct Case {
        ScrollKey Key;
        int FirstRow;
    };
    const Case cases[] = {
        {ScrollKey::LineUp, 0},    {ScrollKey::LineDown, 1},  {ScrollKey::PageDown, 26},
        {ScrollKey::PageDown, 35}, {ScrollKey::LineDown, 35}, {ScrollKey::PageUp, 10},
        {ScrollKey::LineUp, 9},    {ScrollKey::End, 35},      {ScrollKey::Home, 0}};
    for (const Case& c : cases) {
        page.ScrollByKey(c.Key);
        EXPECT_EQ(page.FirstRow, c.FirstRow);
        EXPECT_EQ(controls.VScroll1.Value(), c.FirstRow);
    }
    page.ScrollByRows(3);
    EXPECT_EQ(page.FirstRow, 3);
    page.ScrollByRows(-9);
    EXPECT_EQ(page.FirstRow, 0);
    // Nothing is drawn again where nothing moves.
    EXPECT_EQ(redrawnAt, (std::vector<std::int32_t>{1, 26, 35, 10, 9, 35, 0, 3, 0}));
    ShowList(7);
    page.ScrollByKey(ScrollKey::End);
    EXPECT_EQ(page.FirstRow, 0);
}

// A scaled bar ends beyond the last full page.
TEST_F(GridPageTest, KeysGoOnFromWhereTheBarStands) {
    ShowList(10'001);
    for (const ScrollKey down : {ScrollKey::LineDown, ScrollKey::PageDown}) {
        controls.VScroll1.Scroll(400);
        page.ScrollByKey(down);
        EXPECT_EQ(page.FirstRow, 10'000);
    }
    for (const ScrollKey up : {ScrollKey::LineUp, ScrollKey::PageUp}) {
        controls.VScroll1.Scroll(400);
        page.ScrollByKey(up);
        EXPECT_LT(page.FirstRow, 10'000);
        EXPECT_GE(page.FirstRow, 10'000 - kPageRows);
    }
    // Between two steps the bar stays on the one before.
    page.ScrollToRow(60);
    EXPECT_EQ(controls.VScroll1.Value(), 2);
}

TEST_F(GridPageTest, TheNameIsWhatFollowsTheLastSeparatorWithinReach) {
    const std::string s(1, platform::Separator);
    const std::string longName(1000, 'n');
    struct Case {
        std::string Path, Name;
    };
    const Case cases[] = {
        {"", ""},
        {s + "data" + s + "a.txt", "a.txt"},
        {"no separator", "no separator"},
        {s + "ends" + s, ""},
        {s + "x" + s + longName.substr(1), longName.substr(1)},
        {s + "x" + s + longName, longName},
        {s + "x" + s + "more" + longName, longName},
        {"more" + longName, longName},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(page.GetShowName1(c.Path), c.Name);
        EXPECT_EQ(page.GetShowName2(c.Path), c.Name);
        controls.CheckShowPath1.SetValue(true);
        EXPECT_EQ(page.GetShowName1(c.Path), c.Path);
        EXPECT_EQ(page.GetShowName2(c.Path), c.Name);
        controls.CheckShowPath1.SetValue(false);
        controls.CheckShowPath2.SetValue(true);
        EXPECT_EQ(page.GetShowName2(c.Path), c.Path);
        controls.CheckShowPath2.SetValue(false);
    }
}

TEST_F(GridPageTest, HoveringNeedsRowsAndAnotherRowThanTheLast) {
    Point(3);
    EXPECT_EQ(Backs(), Rows({}));  // no view has been filled yet
    ShowList(60);
    Point(0);
    EXPECT_EQ(Backs(), Rows({}));  // the row last hovered is 0 from the start
    Point(3);
    EXPECT_EQ(Backs(), Rows({{3, 'h'}}));
    controls.sMAC[0].PointerMove({});
    EXPECT_EQ(Backs(), Rows({{0, 'h'}}));
    Point(3);  // row 0 is the selected one from the start: it keeps its colours
    EXPECT_EQ(Backs(), Rows({{0, 'h'}, {3, 'h'}}));
}

TEST_F(GridPageTest, APointedRowIsTheOnlyHoveredOne) {
    ShowList(60);
    controls.sTYPE[20].Click();
    controls.sTYPE[20].Click();  // selected and hovered: out of the way
    for (const std::size_t row : {3u, 4u, 24u}) {
        Point(row);
        EXPECT_EQ(Backs(), Rows({{20, 'h'}, {row, 'h'}}));
        EXPECT_EQ(controls.sFile1[row].ForeColor(), platform::kButtonTextColor);
    }
    page.ResetRowColors(-1);
    EXPECT_EQ(Backs(), Rows({{20, 'h'}}));
    page.ClearGridRows();
    EXPECT_EQ(Backs(), Rows({}));
    Point(24);  // still the row last hovered
    EXPECT_EQ(Backs(), Rows({}));
}

TEST_F(GridPageTest, ThePathLineShowsWhereTheRowsFileIs) {
    ShowList(60);
    list[5] = Row("only2", false, true);
    list[6] = Row("only1", true, false);
    list[7] = Row("gone", false, false);
    struct Case {
        std::size_t Row;
        const char* Path;
    };
    for (const Case& c :
         {Case{4, "/one/a"}, Case{5, "/two/only2"}, Case{6, "/one/only1"}, Case{7, "/one/gone"}}) {
        Point(c.Row);
        EXPECT_EQ(controls.TextFileName.Text(), c.Path);
    }
    page.FirstRow = 5;
    Point(1);
    EXPECT_EQ(controls.TextFileName.Text(), "/one/only1");
    list.resize(10);
    Point(5);  // below the end of the list
    EXPECT_EQ(controls.TextFileName.Text(), "/one/only1");
    current = nullptr;
    Point(6);
    EXPECT_EQ(controls.TextFileName.Text(), "");
}

TEST_F(GridPageTest, ClickingSelectsAndClickingAgainTurnsTheRowToHovered) {
    ShowList(60);
    controls.sMAC[4].SetCaption("--> Fail -->");
    for (const auto cells : ResultsGrid::kDataCells) {
        (controls.*cells)[4].Click();
        EXPECT_EQ(Backs(), Rows({{4, 'S'}}));
        for (const auto texts : ResultsGrid::kDataCells)
            EXPECT_EQ((controls.*texts)[4].ForeColor(), 0xFFFFFFu);
        EXPECT_EQ(controls.sMAC[4].ForeColor(), 0xFFFFFFu);
        (controls.*cells)[4].Click();
        EXPECT_EQ(Backs(), Rows({{4, 'h'}}));
        EXPECT_EQ(controls.sTYPE[4].ForeColor(), platform::kButtonTextColor);
        EXPECT_EQ(controls.sMAC[4].ForeColor(), 0x0000FFu);
    }
    controls.sFile1[4].Click();
    controls.sFile1[9].Click();
    EXPECT_EQ(Backs(), Rows({{9, 'S'}}));
    Point(4);
    Point(9);
    Point(2);
    EXPECT_EQ(Backs(), Rows({{2, 'h'}, {9, 'h'}}));  // the selected row keeps what it got last
    EXPECT_EQ(controls.sFile1[9].ForeColor(), 0xFFFFFFu);
    controls.sFile1[9].Click();
    EXPECT_EQ(Backs(), Rows({{9, 'S'}}));
}

TEST_F(GridPageTest, AClickOnADirectionCellGoesToThePanel) {
    controls.sMAC[7].Click();
    EXPECT_EQ(panels, std::vector<int>{7});
    EXPECT_EQ(Backs(), Rows({}));
}

// The pointer's last position counts, in the coordinates of whatever control reported it.
TEST_F(GridPageTest, AClickBetweenTheCellsGoesByTheLastPointerPosition) {
    struct Case {
        int Y;
        int Row;  // -1: none
    };
    const Case cases[] = {{0, -1},  {20, -1},    {21, 0},     {259, 0},      {260, 0},  {499, 0},
                          {500, 1}, {6'259, 24}, {6'260, -1}, {100'000, -1}, {-500, -1}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Y);
        page.ClearGridRows();
        controls.Picture2.PointerMove({0, c.Y});
        controls.Picture2.Click();
        EXPECT_EQ(Backs(), c.Row < 0 ? Rows({}) : Rows({{static_cast<std::size_t>(c.Row), 'S'}}));
    }
    page.ClearGridRows();
    controls.Picture2.PointerMove({0, 3'000});
    Point(20, 750);
    controls.Picture2.Click();
    EXPECT_EQ(Backs(), Rows({{2, 'S'}}));
}

TEST_F(GridPageTest, ShowPathBoxesDrawThePageAgainWhereItIs) {
    ShowList(60);
    controls.VScroll1.Scroll(7);
    controls.CheckShowPath1.Click();
    controls.CheckShowPath2.Click();
    EXPECT_EQ(redrawnAt, (std::vector<std::int32_t>{7, 7, 7}));
}

}  // namespace
}  // namespace grid
