// The page of 25 rows, the eight views and the labels that show them.
#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <string>

#include <gtest/gtest.h>

#include "fakes/main_window.h"
#include "grid/category_labels.h"
#include "grid/grid_views.h"

namespace grid {
namespace {

const std::string kOne = fakes::FakeFiles::Path("one/");
const std::string kTwo = fakes::FakeFiles::Path("two/");
const compare::FolderPair kRoots{nullptr, kOne, kTwo};

// A row of the file `name`, of the same time on the sides where it exists.
compare::CompareItem Row(std::int16_t code, bool in1 = true, bool in2 = true,
                         const char* name = "a") {
    compare::CompareItem item = fakes::Item(kRoots, name, code);
    item.Bytes1 = in1 ? 1 : platform::FileStatus::kNoSize;
    item.Bytes2 = in2 ? 2 : platform::FileStatus::kNoSize;
    if (in1) item.Time1 = fakes::kOld;
    if (in2) item.Time2 = fakes::kOld;
    return item;
}

class GridPageTest : public fakes::MainWindowTest {
  protected:
    // Shows a list of so many rows from its start.
    void ShowRows(int rows) {
        form.Table.NewList.assign(static_cast<std::size_t>(rows), Row(11));
        form.LabelNewFile.Click();
    }
    void Point(std::size_t row) { form.sFile2[row].PointerMove({10, 100}); }

    // The rows that are hovered (h) or selected (S), all eight cells alike: "3h 20S ".
    std::string Marked() const {
        const std::map<platform::Color, char> marks{
            {kBaseBack, '.'}, {kHoverBack, 'h'}, {kSelectedBack, 'S'}};
        std::string marked;
        for (std::size_t row = 0; row < kPageRows; ++row) {
            const platform::Color color = form.sMAC[row].BackColor();
            char mark = marks.at(color);
            for (const auto cells : ResultsGrid::kDataCells)
                if ((form.*cells)[row].BackColor() != color) mark = '?';
            if (mark != '.') marked += std::to_string(row) + mark + ' ';
        }
        return marked;
    }
};

TEST_F(GridPageTest, ScrollStepsAreRowsThenPagesThenSeveralPages) {
    const std::array<int, 3> cases[] = {{7, 0, 0},
                                        {25, 1, 1},
                                        {10'000, 9'976, 9'976},
                                        {10'001, 400, 10'000},
                                        {819'175, 32'766, 819'150},
                                        {819'176, 16'383, 819'150}};
    for (const auto& [count, maximum, rowOfMaximum] : cases) {
        ShowRows(count);
        EXPECT_EQ(form.VScroll1.Value(), 0);
        EXPECT_EQ(form.VScroll1.Maximum(), maximum);
        EXPECT_EQ(Column(form.sTYPE).size(), static_cast<std::size_t>(std::min(count, kPageRows)));
        form.VScroll1.Scroll(100'000);
        EXPECT_EQ(form.FirstRow(), rowOfMaximum);
        EXPECT_EQ(form.sTYPE[0].Caption(), std::to_string(rowOfMaximum + 1) + ".");
    }
}

TEST_F(GridPageTest, ScrollingKeepsThePageWithinTheList) {
    ShowRows(60);
    form.sFile1[0].Click();
    form.Window.OnWheel(-1);
    EXPECT_EQ(Marked(), "0S ") << "nothing is drawn again where nothing moves";
    for (const auto& [rows, firstRow] :
         {std::pair{26, 26}, {25, 35}, {1, 35}, {-25, 10}, {-11, 0}}) {
        form.Window.OnWheel(rows);
        EXPECT_EQ(form.FirstRow(), firstRow);
        EXPECT_EQ(form.VScroll1.Value(), firstRow);
    }
    ShowRows(10'001);  // a scaled bar ends beyond the last full page
    for (const auto& [rows, firstRow] : {std::pair{1, 10'000}, {-1, 9'976}, {-25, 9'975}}) {
        form.VScroll1.Scroll(400);
        form.Window.OnWheel(rows);
        EXPECT_EQ(form.FirstRow(), firstRow);
    }
    form.ScrollToRow(60);
    EXPECT_EQ(form.VScroll1.Value(), 2) << "between two steps the one before";
}

TEST_F(GridPageTest, ANameIsWhatFollowsTheLastSeparatorWithinReach) {
    const std::string longName(1000, 'n');
    for (const std::string& name : {std::string("a.txt"), longName.substr(1), "mo" + longName}) {
        const std::string shown = name.substr(name.starts_with("mo") ? 2 : 0);
        form.Table.NewList = {Row(21, true, true, name.c_str())};
        form.LabelNewFile.Click();
        EXPECT_EQ(form.sFile1[0].Caption() + form.sFile2[0].Caption(), shown + shown);
        form.CheckShowPath1.Click();
        EXPECT_EQ(form.sFile1[0].Caption() + form.sFile2[0].Caption(), kOne + name + shown);
        form.CheckShowPath1.Click();
        form.CheckShowPath2.Click();
        EXPECT_EQ(form.sFile1[0].Caption() + form.sFile2[0].Caption(), shown + kTwo + name);
        form.CheckShowPath2.Click();
    }
}

TEST_F(GridPageTest, APointedRowIsTheOnlyHoveredOne) {
    Point(3);
    EXPECT_EQ(Marked(), "") << "no view has been filled yet";
    ShowRows(60);
    Point(0);
    EXPECT_EQ(Marked(), "") << "the row last hovered is 0 from the start";
    form.sMAC[3].PointerMove({});
    EXPECT_EQ(Marked(), "3h ");
    Point(0);
    Point(3);
    EXPECT_EQ(Marked(), "0h 3h ") << "row 0 is selected from the start";
    form.sTYPE[20].Click();
    Point(24);
    EXPECT_EQ(Marked(), "20S 24h ");
    form.Picture1.PointerMove({});
    EXPECT_EQ(Marked(), "20S ") << "the ground beside the grid";
}

TEST_F(GridPageTest, ThePathLineShowsWhereTheRowsFileIs) {
    ShowRows(60);
    form.Table.NewList[5] = Row(12, false, true, "only2");
    form.Table.NewList[7] = Row(11, false, false, "gone");
    form.VScroll1.Scroll(3);
    for (const auto& [row, path] :
         {std::pair{1u, kOne + "a"}, {2u, kTwo + "only2"}, {4u, kOne + "gone"}}) {
        Point(row);
        EXPECT_EQ(form.TextFileName.Text(), path);
    }
    form.Table.NewList.resize(10);
    Point(7);
    EXPECT_EQ(form.TextFileName.Text(), kOne + "gone") << "below the end of the list";
}

TEST_F(GridPageTest, ClickingSelectsAndClickingAgainTurnsTheRowToHovered) {
    ShowRows(60);
    form.sMAC[4].SetCaption("--> Fail -->");
    for (const auto cells : ResultsGrid::kDataCells) {
        platform::Label& cell = (form.*cells)[4];
        cell.Click();
        EXPECT_EQ(Marked(), "4S ");
        EXPECT_EQ(cell.ForeColor(), kSelectedText);
        EXPECT_EQ(form.sMAC[4].ForeColor(), kSelectedText);
        cell.Click();
        EXPECT_EQ(Marked(), "4h ");
        EXPECT_EQ(cell.ForeColor(), platform::kButtonTextColor);
        EXPECT_EQ(form.sMAC[4].ForeColor(), kFailText);
    }
    form.sFile1[4].Click();
    form.sFile1[9].Click();
    EXPECT_EQ(Marked(), "9S ");
    for (const std::size_t row : {4u, 9u, 2u}) Point(row);
    EXPECT_EQ(Marked(), "2h 9h ") << "the selected row keeps what it got last";
}

// The pointer's last position counts, in the coordinates of whatever control reported it.
TEST_F(GridPageTest, AClickBetweenTheCellsGoesByTheLastPointerPosition) {
    for (platform::Control* reporting :
         std::initializer_list<platform::Control*>{&form.Picture2, &form.sFile1[20]})
        for (const auto& [y, marked] :
             {std::pair{20, ""}, {21, "0S "}, {6'259, "24S "}, {6'260, ""}}) {
            form.LabelNewFile.Click();
            reporting->PointerMove({0, y});
            form.Picture2.Click();
            EXPECT_EQ(Marked(), marked) << y;
        }
}

using GridViewsTest = GridPageTest;

TEST_F(GridViewsTest, ALabelShowsItsListWithHeadingMarkAndDirections) {
    compare::CompareTable& lists = form.Table;
    const struct {
        compare::ItemList& List;
        platform::Label& Label;
        const char* Caption;  // with which the label shows the view
        platform::Label& Mark;
        const char *Heading, *Directions;
    } cases[] = {
        {lists.NewList, form.LabelNewFile, "New", form.LabelMark1, "New Files:  7",
         "Copy -->,<-- Copy,,,,,---/---/---,"},
        {lists.ChgList, form.LabelChgFile, "( 2 ) <-- Sync", form.LabelMark2, "Modified Files:  7",
         ",,Replace -->,<-- Replace,,,---/---/---,"},
        {lists.NewChgList, form.LabelNewChgFile, "New", form.LabelMark3,
         "New and Modified Files:  7", "Copy -->,<-- Copy,Replace -->,<-- Replace,,,---/---/---,"},
        {lists.SameList, form.LabelAllFile, "Same", form.LabelMark4, "Same Files:  7",
         "---/---/---,---/---/---,Replace -->,<-- Replace,---/---/---,---/---/---,---/---/---,"},
        {lists.SyncAllList, form.LabelAllFile, "Sync Total ( 2 ) ", form.LabelMark4,
         "Synchronized Files:  7",
         "--> OK -->,<-- OK <--,--> OK -->,<-- OK <--,--> Fail -->,<-- Fail <--,,"},
        {lists.SyncRlList, form.LabelChgFile, "<-- Sync", form.LabelMark2,
         "Sync from Folder 2 to 1:  7", ",<-- OK <--,,<-- OK <--,,,,"},
        {lists.SyncLrList, form.LabelNewFile, "Sync --> ( 2 ) ", form.LabelMark1,
         "Sync from Folder 1 to 2:  7", "--> OK -->,,--> OK -->,,,,,"},
        {lists.FailList, form.LabelNewChgFile, "Sync Fail ( 2 ) ", form.LabelMark3,
         "Sync Failed Files:  7", ",,,,--> Fail -->,<-- Fail <--,,"},
    };
    for (const auto& c : cases) {
        c.List = {Row(11), Row(12), Row(21), Row(22), Row(31), Row(32), Row(40)};
        c.Label.SetCaption(c.Caption);
        c.Label.Click();
        EXPECT_EQ(form.LabelShow.Caption(), c.Heading);
        for (const auto* mark :
             {&form.LabelMark1, &form.LabelMark2, &form.LabelMark3, &form.LabelMark4})
            EXPECT_EQ(mark->Visible(), mark == &c.Mark) << c.Heading;
        std::string directions;
        for (int row = 0; row < 7; ++row) directions += form.sMAC[row].Caption() + ',';
        EXPECT_EQ(directions, c.Directions) << c.Heading;
    }
    for (const auto& [row, color] : {std::pair{3, kMarkText}, {4, kFailText}, {5, kFailText}})
        EXPECT_EQ(form.sMAC[row].ForeColor(), color);
    form.Command4.PointerMove({});  // which speaks of the last category, not of results
    EXPECT_NE(form.LabelTip.Caption().find("'Same Files'"), std::string::npos);
}

TEST_F(GridViewsTest, ARowShowsTheSidesThatTheViewSpeaksOf) {
    const std::string date = platform::FormatFileTime(fakes::kOld);
    const std::string left = "1.,a,1," + date, right = ",a,2," + date, none = ",,,";
    const struct {
        compare::ItemList& List;
        platform::Label& Label;
        compare::CompareItem Row;
        std::string Cells;
    } cases[] = {
        {form.Table.NewList, form.LabelNewFile, Row(11, true, false), left + none},
        {form.Table.NewList, form.LabelNewFile, Row(12, false, true), "1." + none + right},
        {form.Table.NewList, form.LabelNewFile, Row(11), left + right},
        {form.Table.NewChgList, form.LabelNewChgFile, Row(11), left + none},
        {form.Table.NewChgList, form.LabelNewChgFile, Row(12), "1." + none + right},
        {form.Table.NewChgList, form.LabelNewChgFile, Row(40, false, true), "1." + none + right},
        {form.Table.NewChgList, form.LabelNewChgFile, Row(21), left + right},
        {form.Table.ChgList, form.LabelChgFile, Row(11), left + right},
    };
    for (const auto& [list, label, row, cells] : cases) {
        list = {row};
        label.Click();
        std::string shown;
        for (const auto column : ResultsGrid::kDataCells)
            shown += (shown.empty() ? "" : ",") + (form.*column)[0].Caption();
        EXPECT_EQ(shown, cells) << label.Name() << row.Code;
    }
}

TEST_F(GridViewsTest, LabelsAreRedUnderThePointerBoldWhileHeldBlueAgainOverTheFrame) {
    for (platform::Label* around : {&form.Label5, &form.Label6, &form.Label7, &form.Label8,
                                    &form.Label10, &form.Label11, &form.Label12})
        for (const char* name : {"LabelNewFile", "LabelChgFile", "LabelNewChgFile", "LabelAllFile",
                                 "LabelFileFilter"}) {
            platform::Control* label = form.Window.Find(name);
            label->MouseDown();
            EXPECT_TRUE(label->Bold());
            label->MouseUp();
            EXPECT_FALSE(label->Bold());
            label->MouseDown();
            label->PointerMove({});
            EXPECT_EQ(label->ForeColor(), CategoryLabels::kPointedColor);
            around->PointerMove({});
            EXPECT_EQ(label->ForeColor(), CategoryLabels::kRestedColor);
            EXPECT_FALSE(label->Bold());
        }
}

}  // namespace
}  // namespace grid
