// The page of 25 rows, the eight views and the labels that show them.
#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/main_window.h"
#include "grid/category_labels.h"
#include "grid/grid_views.h"

namespace grid {
namespace {

using compare::CompareTable;
using fakes::kOld;
using fakes::Texts;
using platform::ScrollKey;

const std::string kOne = fakes::FakeFiles::Path("one/");
const std::string kTwo = fakes::FakeFiles::Path("two/");
const compare::FolderPair kRoots{nullptr, kOne, kTwo};

// A row of the file `name`, of the same time on the sides where it exists.
compare::CompareItem Row(std::int16_t code, bool in1 = true, bool in2 = true,
                         const char* name = "a") {
    compare::CompareItem item = fakes::Item(kRoots, name, code);
    item.Bytes1 = in1 ? 1 : platform::FileStatus::kNoSize;
    item.Bytes2 = in2 ? 2 : platform::FileStatus::kNoSize;
    if (in1) item.Time1 = kOld;
    if (in2) item.Time2 = kOld;
    return item;
}

class GridPageTest : public fakes::MainWindowTest {
  protected:
    // Shows a list of so many rows from its start.
    void ShowRows(int rows) {
        form.Table.NewList.assign(static_cast<std::size_t>(rows), Row(11));
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
    form.Table.NewList[5] = Row(12, false, true, "only2");
    form.Table.NewList[6] = Row(11, true, false, "only1");
    form.Table.NewList[7] = Row(11, false, false, "gone");
    form.VScroll1.Scroll(3);
    const std::pair<std::size_t, std::string> cases[] = {
        {1, kOne + "a"}, {2, kTwo + "only2"}, {4, kOne + "gone"}, {3, kOne + "only1"}};
    for (const auto& [row, path] : cases) {
        Point(row);
        EXPECT_EQ(form.TextFileName.Text(), path);
    }
    form.Table.NewList.resize(10);
    Point(7);
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

struct View {
    std::string Code;
    compare::ItemList CompareTable::*List;
    platform::Label CategoryControls::*Label;
    const char* Caption;  // with which the label shows the view
};

const View kViews[] = {
    {"New", &CompareTable::NewList, &CategoryControls::LabelNewFile, "New"},
    {"Chg", &CompareTable::ChgList, &CategoryControls::LabelChgFile, "( 2 ) <-- Sync"},
    {"NewChg", &CompareTable::NewChgList, &CategoryControls::LabelNewChgFile, "New"},
    {"Same", &CompareTable::SameList, &CategoryControls::LabelAllFile, "Same"},
    {"SyncAll", &CompareTable::SyncAllList, &CategoryControls::LabelAllFile, "Sync Total ( 2 ) "},
    {"Fail", &CompareTable::FailList, &CategoryControls::LabelNewChgFile, "Sync Fail ( 2 ) "},
    {"Sync_RL", &CompareTable::SyncRlList, &CategoryControls::LabelChgFile, "<-- Sync"},
    {"Sync_LR", &CompareTable::SyncLrList, &CategoryControls::LabelNewFile, "Sync --> ( 2 ) "},
};

class GridViewsTest : public fakes::MainWindowTest {
  protected:
    // Gives a view these rows and clicks its label.
    void Show(const View& view, const compare::ItemList& rows) {
        form.Table.*view.List = rows;
        (form.*view.Label).SetCaption(view.Caption);
        (form.*view.Label).Click();
        EXPECT_EQ(form.CurrentViewCode(), view.Code);
    }
    // File, date and size of both sides in row 0: "1" written, "-" empty.
    std::string Written() const {
        std::string written;
        for (const auto* cells :
             {&form.sFile1, &form.sMD1, &form.sSize1, &form.sFile2, &form.sMD2, &form.sSize2})
            written += (*cells)[0].Caption().empty() ? '-' : '1';
        return written;
    }
};

TEST_F(GridViewsTest, DirectionTextsOfEveryViewAndCode) {
    const std::string none = "---/---/---";
    const std::string okRight = "--> OK -->", okLeft = "<-- OK <--";
    const std::string failRight = "--> Fail -->", failLeft = "<-- Fail <--";
    const struct {
        std::int16_t Code;
        Texts Expected;  // by view
    } cases[] = {
        {11, {"Copy -->", "", "Copy -->", none, okRight, "", "", okRight}},
        {12, {"<-- Copy", "", "<-- Copy", none, okLeft, "", okLeft, ""}},
        {21, {"", "Replace -->", "Replace -->", "Replace -->", okRight, "", "", okRight}},
        {22, {"", "<-- Replace", "<-- Replace", "<-- Replace", okLeft, "", okLeft, ""}},
        {31, {"", "", "", none, failRight, failRight, "", ""}},
        {32, {"", "", "", none, failLeft, failLeft, "", ""}},
        {40, {none, none, none, none, "", "", "", ""}},
        {0, {"", "", "", none, "", "", "", ""}},
    };
    for (const auto& c : cases)
        for (std::size_t i = 0; i < 8; ++i) {
            SCOPED_TRACE(kViews[i].Code + std::to_string(c.Code));
            Show(kViews[i], {Row(c.Code)});
            EXPECT_EQ(form.sMAC[0].Caption(), c.Expected[i]);
            const bool fails = c.Expected[i].find("Fail") != std::string::npos;
            EXPECT_EQ(form.sMAC[0].ForeColor(), fails ? 0x0000FFu : 0xC00000u);
        }
}

TEST_F(GridViewsTest, WhichSidesAreWritten) {
    const struct {
        int View;  // of kViews
        compare::CompareItem Row;
        const char* Written;
    } cases[] = {
        {0, Row(11, true, false), "111---"},
        {0, Row(12, false, true), "---111"},
        {0, Row(11), "111111"},
        {2, Row(11), "111---"},
        {2, Row(12), "---111"},
        {2, Row(40, true, false), "111---"},
        {2, Row(40, false, true), "---111"},
        {2, Row(21), "111111"},
        {1, Row(21, true, false), "11111-"},
        {5, Row(32, false, true), "11-111"},
        {7, Row(11), "111111"},
        {6, Row(12), "111111"},
    };
    for (const auto& c : cases) {
        Show(kViews[c.View], {c.Row});
        EXPECT_EQ(Written(), c.Written) << kViews[c.View].Code << c.Row.Code;
    }
}

TEST_F(GridViewsTest, TheCellsOfARow) {
    Show(kViews[1], {Row(21)});
    const std::string date = platform::FormatFileTime(kOld);
    Texts texts;
    for (const auto* cells : {&form.sTYPE, &form.sFile1, &form.sSize1, &form.sMD1, &form.sMAC,
                              &form.sFile2, &form.sSize2, &form.sMD2})
        texts.push_back((*cells)[0].Caption());
    EXPECT_EQ(texts, (Texts{"1.", "a", "1", date, "Replace -->", "a", "2", date}));
}

TEST_F(GridViewsTest, HeadingsMarksAndTipsFollowTheView) {
    form.CheckShowPath1.Click();
    EXPECT_EQ(form.LabelShow.Caption(), "") << "there is no view yet";
    const struct {
        int View;  // of kViews
        const char* Heading;
        const char* Marks;
        const char* Title;  // that of the last category
    } cases[] = {
        {0, "New Files:  2", "*---", "'New Files'"},
        {1, "Modified Files:  2", "-*--", "'Modified Files'"},
        {6, "Sync from Folder 2 to 1:  2", "-*--", "'Modified Files'"},
        {2, "New and Modified Files:  2", "--*-", "'New and Modified Files'"},
        {5, "Sync Failed Files:  2", "--*-", "'New and Modified Files'"},
        {7, "Sync from Folder 1 to 2:  2", "*---", "'New and Modified Files'"},
        {3, "Same Files:  2", "---*", "'Same Files'"},
        {4, "Synchronized Files:  2", "---*", "'Same Files'"},
    };
    for (const auto& c : cases) {
        Show(kViews[c.View], {Row(0), Row(0)});
        EXPECT_EQ(form.LabelShow.Caption(), c.Heading);
        std::string marks;
        for (const auto* mark :
             {&form.LabelMark1, &form.LabelMark2, &form.LabelMark3, &form.LabelMark4})
            marks += mark->Visible() ? '*' : '-';
        EXPECT_EQ(marks, c.Marks);
        form.LabelTip1.PointerMove({});
        form.Command4.PointerMove({});
        EXPECT_NE(form.LabelTip.Caption().find(c.Title), std::string::npos) << c.Heading;
    }
}

TEST_F(GridViewsTest, AClickStartsAtTheFirstRowWithTheListsScrollRange) {
    for (const auto& [rows, maximum] : {std::pair{70, 46}, {12, 0}, {0, 0}, {40, 16}}) {
        form.VScroll1.Scroll(44);
        Show(kViews[0], compare::ItemList(static_cast<std::size_t>(rows), Row(11)));
        EXPECT_EQ(form.VScroll1.Maximum(), maximum);
        EXPECT_EQ(form.VScroll1.Value(), 0);
        for (int row = 0; row < kPageRows; ++row)
            EXPECT_EQ(form.sTYPE[row].Caption(), row < rows ? std::to_string(row + 1) + "." : "");
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
            form.Picture2.PointerMove({});
            EXPECT_EQ(label->ForeColor(), 0x0000FFu);
            around->PointerMove({});
            EXPECT_EQ(label->ForeColor(), 0xFF0000u);
            EXPECT_FALSE(label->Bold());
        }
}

}  // namespace
}  // namespace grid
