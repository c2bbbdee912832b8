#include "grid/grid_page.h"

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace grid {
namespace {

using platform::ScrollKey;

const std::string kOne = fakes::FakeFiles::Path("one/");
const std::string kTwo = fakes::FakeFiles::Path("two/");
const compare::FolderPair kRoots{nullptr, kOne, kTwo};

compare::CompareItem Row(const char* name, bool in1 = true, bool in2 = true) {
    compare::CompareItem item = fakes::Item(kRoots, name, 11);
    item.Bytes1 = in1 ? 1 : platform::FileStatus::kNoSize;
    item.Bytes2 = in2 ? 1 : platform::FileStatus::kNoSize;
    return item;
}

class GridPageTest : public fakes::MainWindowTest {
  protected:
    // Shows a list of so many rows from its start.
    void ShowRows(int rows) {
        form.Table.NewList.assign(static_cast<std::size_t>(rows), Row("a"));
        form.LabelNewFile.Click();
    }
    void Press(ScrollKey key) { form.Window.OnScrollKey(key); }
    void Point(std::size_t row) { form.sFile2[row].PointerMove({10, 100}); }

    // The background of each of the 25 rows, all eight cells alike; "?" where they differ.
    std::string Backs() const {
        std::string backs;
        for (std::size_t row = 0; row < kPageRows; ++row) {
            const platform::Color color = form.sMAC[row].BackColor();
            char letter = color == 0xFFFFC0 ? '.' : color == 0xFFFF80 ? 'h' : 'S';
            if (letter == 'S' && color != 0x008000) letter = '!';
            for (const auto cells : ResultsGrid::kDataCells)
                if ((form.*cells)[row].BackColor() != color) letter = '?';
            backs += letter;
        }
        return backs;
    }
    static std::string Marked(const std::vector<std::pair<std::size_t, char>>& rows) {
        std::string backs(kPageRows, '.');
        for (const auto& [row, mark] : rows) backs[row] = mark;
        return backs;
    }
};

TEST_F(GridPageTest, ScrollStepsAreRowsThenPagesThenSeveralPages) {
    const struct {
        int Count, Maximum, RowOfMaximum;
    } cases[] = {{24, 0, 0},
                 {25, 1, 1},
                 {10'000, 9'976, 9'976},
                 {10'001, 400, 10'000},
                 {10'026, 401, 10'025},
                 {819'175, 32'766, 819'150},
                 {819'176, 16'383, 819'150}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Count);
        ShowRows(c.Count);
        EXPECT_EQ(form.VScroll1.Maximum(), c.Maximum);
        form.VScroll1.Scroll(100'000);
        EXPECT_EQ(form.FirstRow(), c.RowOfMaximum);
        EXPECT_EQ(form.sTYPE[0].Caption(), std::to_string(c.RowOfMaximum + 1) + ".");
    }
}

TEST_F(GridPageTest, KeysAndWheelKeepThePageWithinTheList) {
    ShowRows(60);
    form.sFile1[0].Click();
    Press(ScrollKey::LineUp);
    EXPECT_EQ(Backs(), Marked({{0, 'S'}})) << "nothing is drawn again where nothing moves";
    const std::pair<ScrollKey, int> cases[] = {{ScrollKey::LineDown, 1},  {ScrollKey::PageDown, 26},
                                               {ScrollKey::PageDown, 35}, {ScrollKey::PageUp, 10},
                                               {ScrollKey::LineUp, 9},    {ScrollKey::End, 35},
                                               {ScrollKey::LineDown, 35}, {ScrollKey::Home, 0}};
    for (const auto& [key, firstRow] : cases) {
        Press(key);
        EXPECT_EQ(form.FirstRow(), firstRow);
        EXPECT_EQ(form.VScroll1.Value(), firstRow);
    }
    form.Window.OnWheel(3);
    EXPECT_EQ(form.FirstRow(), 3);
    form.Window.OnWheel(-9);
    EXPECT_EQ(form.FirstRow(), 0);
    ShowRows(7);
    Press(ScrollKey::End);
    EXPECT_EQ(form.FirstRow(), 0);
}

// A scaled bar ends beyond the last full page.
TEST_F(GridPageTest, KeysGoOnFromWhereTheBarStands) {
    ShowRows(10'001);
    const std::pair<ScrollKey, int> cases[] = {{ScrollKey::LineDown, 10'000},
                                               {ScrollKey::PageDown, 10'000},
                                               {ScrollKey::LineUp, 9'976},
                                               {ScrollKey::PageUp, 9'975}};
    for (const auto& [key, firstRow] : cases) {
        form.VScroll1.Scroll(400);
        Press(key);
        EXPECT_EQ(form.FirstRow(), firstRow);
    }
    form.ScrollToRow(60);
    EXPECT_EQ(form.VScroll1.Value(), 2) << "between two steps the one before";
}

TEST_F(GridPageTest, ANameIsWhatFollowsTheLastSeparatorWithinReach) {
    const std::string longName(1000, 'n');
    for (const std::string& name : {std::string("a.txt"), longName.substr(1), "mo" + longName}) {
        const std::string shown =
            name.substr(name.size() - std::min<std::size_t>(name.size(), 1000));
        form.Table.NewList = {Row(name.c_str())};
        form.LabelNewFile.Click();
        EXPECT_EQ(form.sFile1[0].Caption() + form.sFile2[0].Caption(), shown + shown);
        form.CheckShowPath1.Click();
        EXPECT_EQ(form.sFile1[0].Caption() + form.sFile2[0].Caption(), kOne + name + shown);
        form.CheckShowPath2.Click();
        form.CheckShowPath1.Click();
        EXPECT_EQ(form.sFile1[0].Caption() + form.sFile2[0].Caption(), shown + kTwo + name);
        form.CheckShowPath2.Click();
    }
}

TEST_F(GridPageTest, APointedRowIsTheOnlyHoveredOne) {
    Point(3);
    EXPECT_EQ(Backs(), Marked({})) << "no view has been filled yet";
    ShowRows(60);
    Point(0);
    EXPECT_EQ(Backs(), Marked({})) << "the row last hovered is 0 from the start";
    form.sMAC[3].PointerMove({});
    EXPECT_EQ(Backs(), Marked({{3, 'h'}}));
    Point(0);
    Point(3);
    EXPECT_EQ(Backs(), Marked({{0, 'h'}, {3, 'h'}})) << "row 0 is selected from the start";
    form.sTYPE[20].Click();
    form.sTYPE[20].Click();  // selected and hovered: out of the way
    for (const std::size_t row : {4u, 24u}) {
        Point(row);
        EXPECT_EQ(Backs(), Marked({{20, 'h'}, {row, 'h'}}));
    }
    form.Picture1.PointerMove({});
    EXPECT_EQ(Backs(), Marked({{20, 'h'}})) << "the ground beside the grid";
    form.LabelAllFile.Click();
    Point(24);
    EXPECT_EQ(Backs(), Marked({})) << "still the row last hovered";
    Point(1);
    EXPECT_EQ(Backs(), Marked({{1, 'h'}})) << "in an empty view too, once one was filled";
}

TEST_F(GridPageTest, ThePathLineShowsWhereTheRowsFileIs) {
    ShowRows(60);
    form.Table.NewList[5] = Row("only2", false, true);
    form.Table.NewList[6] = Row("only1", true, false);
    form.Table.NewList[7] = Row("gone", false, false);
    form.VScroll1.Scroll(4);
    const std::string paths[] = {kOne + "a", kTwo + "only2", kOne + "only1", kOne + "gone"};
    for (const std::size_t row : {3u, 1u, 2u}) {
        Point(row);
        EXPECT_EQ(form.TextFileName.Text(), paths[row]);
    }
    form.Table.NewList.resize(10);
    Point(6);
    EXPECT_EQ(form.TextFileName.Text(), kOne + "only1") << "below the end of the list";
}

TEST_F(GridPageTest, ClickingSelectsAndClickingAgainTurnsTheRowToHovered) {
    ShowRows(60);
    form.sMAC[4].SetCaption("--> Fail -->");
    for (const auto cells : ResultsGrid::kDataCells) {
        platform::Label& cell = (form.*cells)[4];
        cell.Click();
        EXPECT_EQ(Backs(), Marked({{4, 'S'}}));
        EXPECT_EQ(cell.ForeColor(), 0xFFFFFFu);
        EXPECT_EQ(form.sMAC[4].ForeColor(), 0xFFFFFFu);
        cell.Click();
        EXPECT_EQ(Backs(), Marked({{4, 'h'}}));
        EXPECT_EQ(cell.ForeColor(), platform::kButtonTextColor);
        EXPECT_EQ(form.sMAC[4].ForeColor(), 0x0000FFu);
    }
    form.sFile1[4].Click();
    form.sFile1[9].Click();
    EXPECT_EQ(Backs(), Marked({{9, 'S'}}));
    for (const std::size_t row : {4u, 9u, 2u}) Point(row);
    EXPECT_EQ(Backs(), Marked({{2, 'h'}, {9, 'h'}})) << "the selected row keeps what it got last";
    form.sFile1[9].Click();
    EXPECT_EQ(Backs(), Marked({{9, 'S'}}));
}

// The pointer's last position counts, in the coordinates of whatever control reported it.
TEST_F(GridPageTest, AClickBetweenTheCellsGoesByTheLastPointerPosition) {
    const std::pair<int, int> cases[] = {{20, -1}, {21, 0},     {499, 0},
                                         {500, 1}, {6'259, 24}, {6'260, -1}};
    for (platform::Control* reporting :
         std::initializer_list<platform::Control*>{&form.Picture2, &form.sFile1[20]})
        for (const auto& [y, row] : cases) {
            SCOPED_TRACE(y);
            form.LabelNewFile.Click();
            reporting->PointerMove({0, y});
            form.Picture2.Click();
            EXPECT_EQ(Backs(),
                      row < 0 ? Marked({}) : Marked({{static_cast<std::size_t>(row), 'S'}}));
        }
}

}  // namespace
}  // namespace grid
