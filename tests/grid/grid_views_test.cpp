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
const std::string kViews[] = {"New",     "Chg",  "NewChg",  "Same",
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
    std::string Marks() const {
        std::string marks;
        for (const auto* mark : {&h.LabelMark1, &h.LabelMark2, &h.LabelMark3, &h.LabelMark4})
            marks += mark->Visible() ? '*' : '-';
        return marks;
    }

    compare::CompareTable table;
    ResultsGrid controls;
    ViewHeading h;
    GridPage page{controls, *this};
    GridViews views{table, page, controls, h};
};

TEST_F(GridViewsTest, DirectionTextsOfEveryViewAndCode) {
    const std::string none = "---/---/---";
    const std::string okRight = "--> OK -->", okLeft = "<-- OK <--";
    const std::string failRight = "--> Fail -->", failLeft = "<-- Fail <--";
    const struct {
        std::int16_t Code;
        Texts Expected;  // New, Chg, NewChg, Same, SyncAll, Fail, Sync_RL, Sync_LR
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
            SCOPED_TRACE(kViews[i] + std::to_string(c.Code));
            Show(kViews[i], {Row(c.Code)});
            EXPECT_EQ(controls.sMAC[0].Caption(), c.Expected[i]);
            const bool fails = c.Expected[i].find("Fail") != std::string::npos;
            EXPECT_EQ(controls.sMAC[0].ForeColor(), fails ? 0x0000FFu : 0xC00000u);
        }
}

TEST_F(GridViewsTest, WhichSidesAreWritten) {
    const struct {
        const char* View;
        std::int16_t Code;
        bool In1, In2;
        const char* Written;
    } cases[] = {
        {"New", 11, true, false, "111---"},    {"New", 12, false, true, "---111"},
        {"New", 11, true, true, "111111"},     {"NewChg", 11, true, true, "111---"},
        {"NewChg", 12, true, true, "---111"},  {"NewChg", 40, true, false, "111---"},
        {"NewChg", 40, false, true, "---111"}, {"NewChg", 21, true, true, "111111"},
        {"Chg", 21, true, false, "11111-"},    {"Fail", 32, false, true, "11-111"},
        {"Sync_LR", 11, true, true, "111111"}, {"Same", 0, true, true, "111111"},
    };
    for (const auto& c : cases) {
        Show(c.View, {Row(c.Code, c.In1, c.In2)});
        EXPECT_EQ(Written(), c.Written) << c.View << c.Code;
    }
}

TEST_F(GridViewsTest, TheCellsOfARow) {
    controls.CheckShowPath2.SetValue(true);
    Show("Chg", {Row(21)});
    const std::string date = platform::FormatFileTime(kTime);
    Texts texts;
    for (const auto* cells : {&controls.sTYPE, &controls.sFile1, &controls.sSize1, &controls.sMD1,
                              &controls.sMAC, &controls.sFile2, &controls.sSize2, &controls.sMD2})
        texts.push_back((*cells)[0].Caption());
    EXPECT_EQ(texts, (Texts{"1.", "a", "1", date, "Replace -->", kRoot2 + "a", "2", date}));
}

TEST_F(GridViewsTest, HeadingsMarksAndTitles) {
    const struct {
        const char* View;
        const char* Heading;
        const char* Marks;
        const char* Title;  // that of the last category
    } cases[] = {
        {"New", "New Files:  2", "*---", "New Files"},
        {"Chg", "Modified Files:  2", "-*--", "Modified Files"},
        {"Sync_RL", "Sync from Folder 2 to 1:  2", "-*--", "Modified Files"},
        {"NewChg", "New and Modified Files:  2", "--*-", "New and Modified Files"},
        {"Fail", "Sync Failed Files:  2", "--*-", "New and Modified Files"},
        {"Sync_LR", "Sync from Folder 1 to 2:  2", "*---", "New and Modified Files"},
        {"Same", "Same Files:  2", "---*", "Same Files"},
        {"SyncAll", "Synchronized Files:  2", "---*", "Same Files"},
    };
    for (const auto& c : cases) {
        Show(c.View, {Row(0), Row(0)});
        EXPECT_EQ(h.LabelShow.Caption(), c.Heading);
        EXPECT_EQ(Marks(), c.Marks);
        EXPECT_EQ(views.CurrentView(), c.View);
        EXPECT_EQ(views.CurrentTitle(), c.Title);
    }
}

TEST_F(GridViewsTest, APageHolds25RowsFromTheFirst) {
    const struct {
        std::size_t Rows;
        std::int32_t First;
        std::size_t Shown;
    } cases[] = {{0, 0, 0}, {26, 0, 25}, {26, 1, 25}, {12, 10, 2}, {12, 500, 0}, {0, 0, 0}};
    for (const auto& c : cases) {
        page.FirstRow = c.First;
        Show("New", compare::ItemList(c.Rows, Row(11)));
        for (std::size_t row = 0; row < kPageRows; ++row)
            EXPECT_EQ(controls.sTYPE[row].Caption(),
                      row < c.Shown
                          ? std::to_string(static_cast<std::size_t>(c.First) + row + 1) + "."
                          : "");
        EXPECT_EQ(page.GridFilled, &c != cases) << "from the first view with rows on";
    }
}

TEST_F(GridViewsTest, AnUnknownCodeOnlyClearsThePage) {
    for (const char* code : {"All", "", "new", "New "}) {
        Show("New", {Row(11)});
        controls.sTYPE[0].SetBackColor(0);
        views.ShowView(code);
        EXPECT_EQ(controls.sTYPE[0].Caption(), "");
        EXPECT_EQ(controls.sTYPE[0].BackColor(), 0xFFFFC0u);
        EXPECT_EQ(views.CurrentView(), "New");
        EXPECT_EQ(h.LabelShow.Caption(), "New Files:  1");
    }
}

}  // namespace
}  // namespace grid
