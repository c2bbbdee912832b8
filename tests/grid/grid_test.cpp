// The page of 25 rows, the eight views and the labels that show them.
#include <string>

#include <gtest/gtest.h>

#include "fakes/main_window.h"
#include "grid/grid_views.h"

namespace grid {
namespace {

using fakes::Texts;

class GridTest : public fakes::MainWindowTest {
  protected:
    // Shows a list of so many rows from its start.
    void ShowRows(std::size_t rows) {
        Put("1/a");
        form.Command3.Click();
        form.Table.NewList.assign(rows, compare::CompareItem(form.Table.NewList[0]));
        ClickMenu("mnuNewFile");
    }
    // The rows that are hovered (h) or selected (S): "3h 20S ".
    std::string Marked() const {
        std::string marked;
        for (std::size_t row = 0; row < kPageRows; ++row)
            for (const auto& [color, mark] : {std::pair{kHoverBack, "h "}, {kSelectedBack, "S "}})
                if (form.sMAC[row].BackColor() == color && form.sMD2[row].BackColor() == color)
                    marked += std::to_string(row) + mark;
        return marked;
    }
    // What a row shows beside its direction.
    std::string Shown(std::size_t row) const {
        std::string shown;
        for (const auto column : ResultsGrid::kDataCells)
            shown += (shown.empty() ? "" : ",") + (form.*column)[row].Caption();
        return shown;
    }

    const std::string root1 = fakes::FakeFiles::Path("1/"), root2 = fakes::FakeFiles::Path("2/");
};

// A long list's bar has a step a page, or one for several pages, and ends beyond the last full
// page.
TEST_F(GridTest, BarAndWheelReachEveryRow) {
    const struct {
        int Rows, Maximum, ScrolledTo, Wheel, FirstRow, Value;
    } cases[] = {
        {25, 1, 1, 1, 1, 1},
        {60, 36, 11, -12, 0, 0},
        {10'000, 9'976, 9'970, 9, 9'975, 9'975},
        {10'001, 400, 400, -1, 9'976, 399},
        {819'176, 16'383, 16'383, 1, 819'151, 16'383},
    };
    for (const auto& c : cases) {
        ShowRows(static_cast<std::size_t>(c.Rows));
        EXPECT_EQ(form.VScroll1.Value(), 0);
        EXPECT_EQ(form.VScroll1.Maximum(), c.Maximum);
        form.VScroll1.Scroll(c.ScrolledTo);
        form.Window.OnWheel(c.Wheel);
        EXPECT_EQ(form.sTYPE[0].Caption(), std::to_string(c.FirstRow + 1) + ".");
        EXPECT_EQ(form.VScroll1.Value(), c.Value);
    }
}

TEST_F(GridTest, OneRowIsHoveredWithItsPathInTheLineAndOneSelected) {
    form.sFile2[3].PointerMove({});
    EXPECT_EQ(Marked(), "") << "no view has been filled yet";
    ShowRows(26);
    std::swap(form.Table.NewList[5].Bytes1, form.Table.NewList[5].Bytes2);
    form.VScroll1.Scroll(2);
    for (const auto& [row, path] : {std::pair{2u, root1}, {3u, root2}, {24u, root2}}) {
        form.sFile2[row].PointerMove({});  // the last lies below the end of the list
        EXPECT_EQ(form.TextFileName.Text(), path + "a");
        EXPECT_EQ(Marked(), std::to_string(row) + "h ");
    }
    form.sTYPE[20].Click();
    form.sMAC[3].PointerMove({});
    EXPECT_EQ(Marked(), "3h 20S ");
    form.Picture1.PointerMove({});
    EXPECT_EQ(Marked(), "20S ") << "the ground beside the grid";
    form.sFile1[4].Click();
    EXPECT_EQ(Marked(), "4S ");
    form.sSize2[4].Click();
    EXPECT_EQ(Marked(), "4h ");
    form.Picture2.PointerMove({0, 499});
    form.Picture2.Click();  // between the cells
    EXPECT_EQ(Marked(), "0S ");
}

TEST_F(GridTest, ALabelShowsItsListAndAfterASyncTheResults) {
    for (const char* name : {"1/n", "1/s/no", "2/m", "2/s/no2", "2/c"}) Put(name);
    Put("1/c", fakes::kNew, 5);
    for (const char* name : {"d", "same"}) PutBoth(name);
    Put("2/d", fakes::kNew);
    files.RefusesCopy = [](const std::string& from, const std::string&) {
        return from == "1/s/no" || from == "2/s/no2";
    };
    const auto expectView = [this](platform::Label& label, const char* heading, Texts directions) {
        label.Click();
        EXPECT_EQ(form.LabelShow.Caption(), heading);
        directions.resize(kPageRows);  // the other rows are empty
        for (std::size_t row = 0; row < kPageRows; ++row)
            EXPECT_EQ(form.sMAC[row].Caption(), directions[row]) << heading << row;
    };
    form.Command3.Click();
    expectView(form.LabelChgFile, "Modified Files:  2", {"Replace -->", "<-- Replace"});
    expectView(form.LabelAllFile, "Same Files:  1", {"---/---/---"});
    EXPECT_TRUE(form.LabelMark4.Visible() && !form.LabelMark2.Visible());
    const std::string old = platform::FormatFileTime(fakes::kOld),
                      recent = platform::FormatFileTime(fakes::kNew);
    expectView(form.LabelNewFile, "New Files:  4",
               {"Copy -->", "Copy -->", "<-- Copy", "<-- Copy"});
    EXPECT_EQ(Shown(2), "3.,,,,m,1," + old);
    form.Table.NewChgList[1].Code = 40;
    expectView(form.LabelNewChgFile, "New and Modified Files:  6",
               {"Copy -->", "---/---/---", "<-- Copy", "<-- Copy", "Replace -->", "<-- Replace"});
    EXPECT_EQ(Shown(1), "2.,no,1," + old + ",,,");
    EXPECT_EQ(Shown(2), "3.,,,,m,1," + old);
    EXPECT_EQ(Shown(4), "5.,c,5," + recent + ",c,1," + old);
    form.CheckShowPath1.Click();
    EXPECT_EQ(form.sFile1[4].Caption() + form.sFile2[4].Caption(), root1 + "cc");
    form.CheckShowPath2.Click();
    EXPECT_EQ(form.sFile2[4].Caption(), root2 + 'c');

    form.Table.NewChgList[1].Code = 11;
    ClickMenu("mnuDoubleSync");
    expectView(form.LabelNewFile, "Sync from Folder 1 to 2:  2", {"--> OK -->", "--> OK -->"});
    ClickMenu("mnuChangedFile");
    EXPECT_EQ(form.LabelShow.Caption(), "Modified Files:  2") << "as before";
    ClickMenu("mnuAllFile");
    EXPECT_EQ(form.LabelShow.Caption(), "Synchronized Files:  6");
    expectView(form.LabelNewChgFile, "Sync Failed Files:  2", {"--> Fail -->", "<-- Fail <--"});
    EXPECT_EQ(form.sMAC[1].ForeColor(), kFailText);
    expectView(
        form.LabelAllFile, "Synchronized Files:  6",
        {"--> OK -->", "--> Fail -->", "<-- OK <--", "<-- Fail <--", "--> OK -->", "<-- OK <--"});
    EXPECT_EQ(form.sMAC[0].ForeColor(), kMarkText);
}

}  // namespace
}  // namespace grid
