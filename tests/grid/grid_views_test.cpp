#include "grid/grid_views.h"

#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/fake_files.h"
#include "fakes/items.h"
#include "fakes/temp_folder.h"

namespace grid {
namespace {

using Texts = std::vector<std::string>;

const std::string kRoot1 = fakes::FakeFiles::Path("one/");
const std::string kRoot2 = fakes::FakeFiles::Path("two/");
const compare::FolderPair kRoots{nullptr, kRoot1, kRoot2};
const platform::FileTime kTime = fakes::Time("2020-01-02 03:04:05 UTC");
const char* const kCategories[] = {"New", "Chg", "NewChg", "Same"};
const char* const kViews[] = {"New",     "Chg",  "NewChg",  "Same",
                              "SyncAll", "Fail", "Sync_RL", "Sync_LR"};

compare::CompareItem Row(std::int16_t code, bool in1 = true, bool in2 = true) {
    compare::CompareItem item = fakes::Item(kRoots, "a", code);
    item.Bytes1 = in1 ? 1 : platform::FileStatus::kNoSize;
    item.Bytes2 = in2 ? 2 : platform::FileStatus::kNoSize;
    if (in1) item.Time1 = kTime;
    if (in2) item.Time2 = kTime;
    return item;
}

class GridViewsTest : public testing::Test, protected PageOwner {
  protected:
    void RedrawView() override { views.ShowView(views.CurrentView()); }
    const compare::ItemList* CurrentList() const override { return nullptr; }
    void ShowDirectionPanel(int) override {}

    // Shows these rows in a view.
    void Show(const std::string& view, const compare::ItemList& rows) {
        *views.ListOf(view) = rows;
        views.ShowView(view);
    }
    // File, date and size of both sides in row 0: "1" written, "-" empty.
    std::string Written() const {
        std::string written;
        for (const auto* cells : {&controls.sFile1, &controls.sMD1, &controls.sSize1,
                                  &controls.sFile2, &controls.sMD2, &controls.sSize2})
            written += (*cells)[0].Caption().empty() ? '-' : '1';
        return written;
    }
    Texts Heading() const {
        Texts heading{h.LabelShow.Caption()};
        for (const platform::Label* mark :
             {&h.LabelMark1, &h.LabelMark2, &h.LabelMark3, &h.LabelMark4})
            heading.push_back(mark->Visible() ? "lit" : "-");
        return heading;
    }

    compare::CompareTable table;
    ResultsGrid controls;
    ViewHeading h;
    GridPage page{controls, *this};
    GridViews views{table, page, controls, h};
};

TEST_F(GridViewsTest, DirectionTextsOfEveryViewAndCode) {
    const std::string none = "---/---/---";
    struct Case {
        std::int16_t Code;
        Texts Expected;  // New, Chg, NewChg, Same, SyncAll, Fail, Sync_RL, Sync_LR
    };
    const std::string okRight = "--> OK -->", okLeft = "<-- OK <--";
    const std::string failRight = "--> Fail -->", failLeft = "<-- Fail <--";
    const Case cases[] = {
        {11, {"Copy -->", "", "Copy -->", none, okRight, "", "", okRight}},
        {12, {"<-- Copy", "", "<-- Copy", none, okLeft, "", okLeft, ""}},
        {21, {"", "Replace -->", "Replace -->", "Replace -->", okRight, "", "", okRight}},
        {22, {"", "<-- Replace", "<-- Replace", "<-- Replace", okLeft, "", okLeft, ""}},
        {31, {"", "", "", none, failRight, failRight, "", ""}},
        {32, {"", "", "", none, failLeft, failLeft, "", ""}},
        {40, {none, none, none, none, "", "", "", ""}},
        {0, {"", "", "", none, "", "", "", ""}},
        {99, {"", "", "", none, "", "", "", ""}},
    };
    for (const Case& c : cases)
        for (std::size_t i = 0; i < 8; ++i) {
            SCOPED_TRACE(std::string(kViews[i]) + ' ' + std::to_string(c.Code));
            Show(kViews[i], {Row(c.Code)});
            EXPECT_EQ(controls.sMAC[0].Caption(), c.Expected[i]);
            const bool fails = c.Expected[i].find("Fail") != std::string::npos;
            EXPECT_EQ(controls.sMAC[0].ForeColor(), fails ? 0x0000FFu : 0xC00000u);
            EXPECT_EQ(DirectionText(kViews[i], c.Code), c.Expected[i]);
        }
}

TEST_F(GridViewsTest, WhichSidesAreWritten) {
    struct Case {
        const char* View;
        std::int16_t Code;
        bool In1, In2;
        const char* Written;
    };
    const Case cases[] = {
        {"New", 11, true, false, "111---"},    {"New", 12, false, true, "---111"},
        {"New", 11, true, true, "111111"},     {"NewChg", 11, true, true, "111---"},
        {"NewChg", 12, true, true, "---111"},  {"NewChg", 40, true, false, "111---"},
        {"NewChg", 40, false, true, "---111"}, {"NewChg", 21, true, true, "111111"},
        {"Chg", 21, true, false, "11111-"},    {"SyncAll", 31, true, false, "11111-"},
        {"Fail", 32, false, true, "11-111"},   {"Sync_LR", 11, true, true, "111111"},
        {"Sync_RL", 12, true, true, "111111"}, {"Same", 0, true, true, "111111"},
    };
    for (const Case& c : cases) {
        Show(c.View, {Row(c.Code, c.In1, c.In2)});
        EXPECT_EQ(Written(), c.Written) << c.View << c.Code;
    }
}

TEST_F(GridViewsTest, TheCellsOfARow) {
    compare::CompareItem item = Row(21);
    item.Bytes1 = 12'345'678;
    Show("Chg", {item});
    const std::string date = platform::FormatFileTime(kTime);
    Texts texts;
    for (const auto* cells : {&controls.sTYPE, &controls.sFile1, &controls.sSize1, &controls.sMD1,
                              &controls.sMAC, &controls.sFile2, &controls.sSize2, &controls.sMD2})
        texts.push_back((*cells)[0].Caption());
    EXPECT_EQ(texts, (Texts{"1.", "a", "12345678", date, "Replace -->", "a", "2", date}));
    controls.CheckShowPath2.Click();
    EXPECT_EQ(controls.sFile2[0].Caption(), kRoot2 + "a");
    EXPECT_EQ(controls.sFile1[0].Caption(), "a");
}

TEST_F(GridViewsTest, HeadingsMarksAndTitles) {
    struct Case {
        const char* View;
        Texts Heading;
    };
    const Case cases[] = {
        {"New", {"New Files:  2", "lit", "-", "-", "-"}},
        {"Chg", {"Modified Files:  2", "-", "lit", "-", "-"}},
        {"NewChg", {"New and Modified Files:  2", "-", "-", "lit", "-"}},
        {"Same", {"Same Files:  2", "-", "-", "-", "lit"}},
        {"SyncAll", {"Synchronized Files:  2", "-", "-", "-", "lit"}},
        {"Fail", {"Sync Failed Files:  2", "-", "-", "lit", "-"}},
        {"Sync_RL", {"Sync from Folder 2 to 1:  2", "-", "lit", "-", "-"}},
        {"Sync_LR", {"Sync from Folder 1 to 2:  2", "lit", "-", "-", "-"}},
    };
    for (const Case& c : cases) {
        views.ShowView("Chg");
        Show(c.View, {Row(0), Row(0)});
        EXPECT_EQ(Heading(), c.Heading);
        EXPECT_EQ(views.CurrentView(), c.View);
    }
    const char* titles[] = {"New Files", "Modified Files", "New and Modified Files", "Same Files"};
    for (std::size_t i = 0; i < 4; ++i)
        for (const char* result : {"SyncAll", "Fail", "Sync_RL", "Sync_LR"}) {
            views.ShowView(kCategories[i]);
            views.ShowView(result);
            EXPECT_EQ(views.CurrentTitle(), titles[i]);
        }
}

TEST_F(GridViewsTest, APageHolds25RowsFromTheFirst) {
    struct Case {
        std::size_t Rows;
        std::int32_t First;
        std::size_t Shown;
    };
    for (const Case& c : {Case{25, 0, 25}, Case{26, 0, 25}, Case{26, 1, 25}, Case{12, 10, 2},
                          Case{12, 12, 0}, Case{12, 500, 0}, Case{0, 0, 0}}) {
        page.FirstRow = c.First;
        Show("New", compare::ItemList(c.Rows, Row(11)));
        for (std::size_t row = 0; row < kPageRows; ++row)
            EXPECT_EQ(controls.sTYPE[row].Caption(),
                      row < c.Shown
                          ? std::to_string(static_cast<std::size_t>(c.First) + row + 1) + "."
                          : "");
        EXPECT_EQ(page.FirstRow, c.First);
        EXPECT_EQ(h.LabelShow.Caption(), "New Files:  " + std::to_string(c.Rows));
    }
}

TEST_F(GridViewsTest, AnEmptyViewLeavesTheFilledFlag) {
    views.ShowView("New");
    EXPECT_FALSE(page.GridFilled);
    page.FirstRow = 3;
    Show("New", {Row(11)});
    EXPECT_TRUE(page.GridFilled);
    views.ShowView("Same");
    EXPECT_TRUE(page.GridFilled);
}

TEST_F(GridViewsTest, AnUnknownCodeOnlyClearsThePage) {
    Show("New", {Row(11)});
    controls.sTYPE[0].Click();
    for (const char* code : {"All", "", "new", "New ", "Sync"}) {
        Show("New", {Row(11)});
        views.ShowView(code);
        EXPECT_EQ(controls.sTYPE[0].Caption(), "");
        EXPECT_EQ(controls.sTYPE[0].BackColor(), 0xFFFFC0u);
        EXPECT_EQ(views.CurrentView(), "New");
        EXPECT_EQ(h.LabelShow.Caption(), "New Files:  1");
    }
}

}  // namespace
}  // namespace grid
