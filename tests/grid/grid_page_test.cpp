#include "grid/grid_page.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/items.h"
#include "platform/paths.h"

namespace grid {
namespace {

using platform::ScrollKey;

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
            const platform::Color color = controls.sMAC[row].BackColor();
            char letter = color == 0xFFFFC0 ? '.' : color == 0xFFFF80 ? 'h' : 'S';
            if (letter == 'S' && color != 0x008000) letter = '!';
            for (const auto cells : ResultsGrid::kDataCells)
                if ((controls.*cells)[row].BackColor() != color) letter = '?';
            backs += letter;
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
    const struct {
        std::int32_t Count;
        int Steps, Maximum, RowOfMaximum;
    } cases[] = {
        {0, 0, 0, 0},
        {24, 24, 0, 0},
        {25, 25, 1, 1},
        {10'000, 10'000, 9'976, 9'976},
        {10'001, 401, 400, 10'000},
        {10'026, 402, 401, 10'025},
        {819'175, 32'767, 32'766, 819'150},
        {819'176, 16'384, 16'383, 819'150},
        {2'147'483'647, 32'762, 32'761, 2'147'483'550},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Count);
        EXPECT_EQ(page.ScaleRowCount(c.Count), c.Steps);
        page.SetScrollRange(c.Count);
        EXPECT_EQ(controls.VScroll1.Maximum(), c.Maximum);
        controls.VScroll1.Scroll(100'000);
        EXPECT_EQ(page.FirstRow, c.RowOfMaximum);
        EXPECT_EQ(redrawnAt.back(), c.RowOfMaximum);
    }
}

TEST_F(GridPageTest, EveryRowIsReachedPageByPage) {
    for (const std::int32_t rows : {26, 10'001, 819'176}) {
        SCOPED_TRACE(rows);
        ShowList(static_cast<std::size_t>(rows));
        std::int32_t seen = kPageRows;
        while (seen < rows) {
            page.ScrollByKey(ScrollKey::PageDown);
            ASSERT_LE(page.FirstRow, seen);
            ASSERT_GT(page.FirstRow + kPageRows, seen);
            seen = page.FirstRow + kPageRows;
            ASSERT_LE(controls.VScroll1.Value(), controls.VScroll1.Maximum());
        }
        EXPECT_EQ(seen, rows);
    }
}

TEST_F(GridPageTest, KeysAndWheelKeepThePageWithinTheList) {
    ShowList(60);
    const std::pair<ScrollKey, int> cases[] = {
        {ScrollKey::LineUp, 0},    {ScrollKey::LineDown, 1},  {ScrollKey::PageDown, 26},
        {ScrollKey::PageDown, 35}, {ScrollKey::LineDown, 35}, {ScrollKey::PageUp, 10},
        {ScrollKey::LineUp, 9},    {ScrollKey::End, 35},      {ScrollKey::Home, 0}};
    for (const auto& [key, firstRow] : cases) {
        page.ScrollByKey(key);
        EXPECT_EQ(page.FirstRow, firstRow);
        EXPECT_EQ(controls.VScroll1.Value(), firstRow);
    }
    page.ScrollByRows(3);
    page.ScrollByRows(-9);
    // Nothing is drawn again where nothing moves.
    EXPECT_EQ(redrawnAt, (std::vector<std::int32_t>{1, 26, 35, 10, 9, 35, 0, 3, 0}));
    ShowList(7);
    page.ScrollByKey(ScrollKey::End);
    EXPECT_EQ(page.FirstRow, 0);
}

// A scaled bar ends beyond the last full page.
TEST_F(GridPageTest, KeysGoOnFromWhereTheBarStands) {
    ShowList(10'001);
    const std::pair<ScrollKey, int> cases[] = {{ScrollKey::LineDown, 10'000},
                                               {ScrollKey::PageDown, 10'000},
                                               {ScrollKey::LineUp, 9'976},
                                               {ScrollKey::PageUp, 9'975}};
    for (const auto& [key, firstRow] : cases) {
        controls.VScroll1.Scroll(400);
        page.ScrollByKey(key);
        EXPECT_EQ(page.FirstRow, firstRow);
    }
    page.ScrollToRow(60);
    EXPECT_EQ(controls.VScroll1.Value(), 2) << "between two steps the one before";
}

TEST_F(GridPageTest, TheNameIsWhatFollowsTheLastSeparatorWithinReach) {
    const std::string s(1, platform::Separator);
    const std::string longName(1000, 'n');
    const std::pair<std::string, std::string> cases[] = {
        {"", ""},
        {s + "data" + s + "a.txt", "a.txt"},
        {"no separator", "no separator"},
        {s + "ends" + s, ""},
        {s + "x" + s + longName.substr(1), longName.substr(1)},
        {s + "x" + s + "more" + longName, longName},
    };
    for (const auto& [path, name] : cases) {
        controls.CheckShowPath2.SetValue(false);
        EXPECT_EQ(page.GetShowName1(path), name);
        EXPECT_EQ(page.GetShowName2(path), name);
        controls.CheckShowPath2.SetValue(true);
        EXPECT_EQ(page.GetShowName1(path), name);
        EXPECT_EQ(page.GetShowName2(path), path);
    }
}

TEST_F(GridPageTest, HoveringNeedsRowsAndAnotherRowThanTheLast) {
    Point(3);
    EXPECT_EQ(Backs(), Rows({})) << "no view has been filled yet";
    ShowList(60);
    Point(0);
    EXPECT_EQ(Backs(), Rows({})) << "the row last hovered is 0 from the start";
    Point(3);
    EXPECT_EQ(Backs(), Rows({{3, 'h'}}));
    controls.sMAC[0].PointerMove({});
    Point(3);
    EXPECT_EQ(Backs(), Rows({{0, 'h'}, {3, 'h'}})) << "row 0 is selected from the start";
}

TEST_F(GridPageTest, APointedRowIsTheOnlyHoveredOne) {
    ShowList(60);
    controls.sTYPE[20].Click();
    controls.sTYPE[20].Click();  // selected and hovered: out of the way
    for (const std::size_t row : {3u, 4u, 24u}) {
        Point(row);
        EXPECT_EQ(Backs(), Rows({{20, 'h'}, {row, 'h'}}));
    }
    page.ResetRowColors(-1);
    EXPECT_EQ(Backs(), Rows({{20, 'h'}}));
    page.ClearGridRows();
    EXPECT_EQ(Backs(), Rows({}));
    Point(24);
    EXPECT_EQ(Backs(), Rows({})) << "still the row last hovered";
}

TEST_F(GridPageTest, ThePathLineShowsWhereTheRowsFileIs) {
    ShowList(11);
    list[5] = Row("only2", false, true);
    list[6] = Row("only1", true, false);
    list[7] = Row("gone", false, false);
    const struct {
        std::int32_t FirstRow;
        std::size_t Row;
        const char* Path;
    } cases[] = {{0, 4, "/one/a"},
                 {0, 5, "/two/only2"},
                 {0, 7, "/one/gone"},
                 {5, 1, "/one/only1"},
                 {5, 6, "/one/only1"}};  // below the end of the list
    for (const auto& c : cases) {
        page.FirstRow = c.FirstRow;
        Point(c.Row);
        EXPECT_EQ(controls.TextFileName.Text(), c.Path);
    }
    current = nullptr;
    Point(2);
    EXPECT_EQ(controls.TextFileName.Text(), "");
}

TEST_F(GridPageTest, ClickingSelectsAndClickingAgainTurnsTheRowToHovered) {
    ShowList(60);
    controls.sMAC[4].SetCaption("--> Fail -->");
    for (const auto cells : ResultsGrid::kDataCells) {
        (controls.*cells)[4].Click();
        EXPECT_EQ(Backs(), Rows({{4, 'S'}}));
        EXPECT_EQ((controls.*cells)[4].ForeColor(), 0xFFFFFFu);
        EXPECT_EQ(controls.sMAC[4].ForeColor(), 0xFFFFFFu);
        (controls.*cells)[4].Click();
        EXPECT_EQ(Backs(), Rows({{4, 'h'}}));
        EXPECT_EQ((controls.*cells)[4].ForeColor(), platform::kButtonTextColor);
        EXPECT_EQ(controls.sMAC[4].ForeColor(), 0x0000FFu);
    }
    controls.sFile1[4].Click();
    controls.sFile1[9].Click();
    EXPECT_EQ(Backs(), Rows({{9, 'S'}}));
    for (const std::size_t row : {4u, 9u, 2u}) Point(row);
    EXPECT_EQ(Backs(), Rows({{2, 'h'}, {9, 'h'}})) << "the selected row keeps what it got last";
    controls.sFile1[9].Click();
    EXPECT_EQ(Backs(), Rows({{9, 'S'}}));
    controls.sMAC[7].Click();
    EXPECT_EQ(panels, std::vector<int>{7});
}

// The pointer's last position counts, in the coordinates of whatever control reported it.
TEST_F(GridPageTest, AClickBetweenTheCellsGoesByTheLastPointerPosition) {
    const std::pair<int, int> cases[] = {{20, -1},   {21, 0},     {499, 0},    {500, 1},
                                         {3000, 11}, {6'259, 24}, {6'260, -1}, {-500, -1}};
    for (const auto& [y, row] : cases) {
        SCOPED_TRACE(y);
        page.ClearGridRows();
        controls.Picture2.PointerMove({0, y});
        controls.Picture2.Click();
        EXPECT_EQ(Backs(), row < 0 ? Rows({}) : Rows({{static_cast<std::size_t>(row), 'S'}}));
    }
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
