// The eight views, and the labels that show them.
#include "grid/grid_views.h"

#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/main_window.h"
#include "grid/category_labels.h"

namespace grid {
namespace {

using compare::CompareTable;
using fakes::kOld;
using fakes::Texts;

const compare::FolderPair kRoots{nullptr, "/one/", "/two/"};

compare::CompareItem Row(std::int16_t code, bool in1 = true, bool in2 = true) {
    compare::CompareItem item = fakes::Item(kRoots, "a", code);
    item.Bytes1 = in1 ? 1 : platform::FileStatus::kNoSize;
    item.Bytes2 = in2 ? 2 : platform::FileStatus::kNoSize;
    if (in1) item.Time1 = kOld;
    if (in2) item.Time2 = kOld;
    return item;
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
        {3, Row(0), "111111"},
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
                                    &form.Label10, &form.Label11, &form.Label12}) {
        for (platform::Label* label :
             {&form.LabelNewFile, &form.LabelChgFile, &form.LabelNewChgFile, &form.LabelAllFile,
              &form.LabelFileFilter}) {
            label->PointerMove({});
            label->MouseDown();
            EXPECT_TRUE(label->Bold());
            label->MouseUp();
            EXPECT_FALSE(label->Bold());
            label->MouseDown();
            form.Picture2.PointerMove({});
            EXPECT_EQ(label->ForeColor(), 0x0000FFu);
            around->PointerMove({});
            EXPECT_EQ(label->ForeColor(), 0xFF0000u);
            EXPECT_FALSE(label->Bold());
        }
    }
}

}  // namespace
}  // namespace grid
