#include "grid/grid_views.h"

#include <algorithm>

namespace grid {

namespace {

using compare::CompareItem;
using compare::CompareTable;
using compare::ItemList;

struct View {
    std::string_view Code;
    ItemList CompareTable::*List;
    std::string_view Title;  // category views only
    std::string_view HeadingPrefix;
    int Mark;
};

constexpr std::array kViews = {
    View{"New", &CompareTable::NewList, "New Files", "New Files:  ", 1},
    View{"Chg", &CompareTable::ChgList, "Modified Files", "Modified Files:  ", 2},
    View{"NewChg", &CompareTable::NewChgList, "New and Modified Files",
         "New and Modified Files:  ", 3},
    View{"Same", &CompareTable::SameList, "Same Files", "Same Files:  ", 4},
    View{"SyncAll", &CompareTable::SyncAllList, "", "Synchronized Files:  ", 4},
    View{"Fail", &CompareTable::FailList, "", "Sync Failed Files:  ", 3},
    View{"Sync_RL", &CompareTable::SyncRlList, "", "Sync from Folder 2 to 1:  ", 2},
    View{"Sync_LR", &CompareTable::SyncLrList, "", "Sync from Folder 1 to 2:  ", 1},
};

const View* FindView(std::string_view code) {
    const auto* found = std::find_if(kViews.begin(), kViews.end(),
                                     [code](const View& view) { return view.Code == code; });
    return found == kViews.end() ? nullptr : found;
}

constexpr std::string_view kNoDirection = "---/---/---";

struct Mark {
    std::int16_t Code;
    std::string_view Text;
    std::string_view Views;  // codes between blanks
};

// The "Same" view alone writes kNoDirection for every code that it has no text for.
constexpr std::array kMarks = {
    Mark{11, "Copy -->", " New NewChg "},         Mark{12, "<-- Copy", " New NewChg "},
    Mark{21, "Replace -->", " Chg NewChg Same "}, Mark{22, "<-- Replace", " Chg NewChg Same "},
    Mark{40, kNoDirection, " New Chg NewChg "},   Mark{11, "--> OK -->", " SyncAll Sync_LR "},
    Mark{21, "--> OK -->", " SyncAll Sync_LR "},  Mark{12, "<-- OK <--", " SyncAll Sync_RL "},
    Mark{22, "<-- OK <--", " SyncAll Sync_RL "},  Mark{31, "--> Fail -->", " SyncAll Fail "},
    Mark{32, "<-- Fail <--", " SyncAll Fail "},
};

bool ShowsView(const Mark& mark, std::string_view viewCode) {
    const std::size_t at = mark.Views.find(viewCode);
    return at != std::string_view::npos && at > 0 && mark.Views[at - 1] == ' ' &&
           mark.Views[at + viewCode.size()] == ' ';
}

}  // namespace

std::string_view DirectionText(std::string_view viewCode, std::int16_t code) {
    for (const Mark& mark : kMarks)
        if (mark.Code == code && ShowsView(mark, viewCode)) return mark.Text;
    return viewCode == "Same" ? kNoDirection : std::string_view();
}

void ViewHeading::Show(std::string_view text, int mark) {
    LabelShow.SetCaption(text);
    LabelMark1.SetVisible(mark == 1);
    LabelMark2.SetVisible(mark == 2);
    LabelMark3.SetVisible(mark == 3);
    LabelMark4.SetVisible(mark == 4);
}

compare::ItemList* GridViews::ListOf(std::string_view viewCode) const {
    const View* view = FindView(viewCode);
    return view ? &(table_.*view->List) : nullptr;
}

void GridViews::ShowView(std::string_view viewCode) {
    page_.ClearGridRows();
    if (const View* view = FindView(viewCode)) {
        currentView_ = view->Code;
        if (!view->Title.empty()) currentTitle_ = view->Title;
        const ItemList& list = table_.*view->List;
        const auto first = static_cast<std::size_t>(page_.FirstRow);
        for (int row = 0; row < kPageRows && first + static_cast<std::size_t>(row) < list.size();
             ++row) {
            const std::size_t index = first + static_cast<std::size_t>(row);
            FillRow(row, index, list[index]);
        }
        if (!list.empty()) page_.GridFilled = true;
        heading_.Show(std::string(view->HeadingPrefix) + std::to_string(list.size()), view->Mark);
    }
    for (platform::Label& mark : controls_.sMAC)
        mark.SetForeColor(GridPage::MarkColor(mark.Caption()));
}

void GridViews::FillRow(int row, std::size_t index, const CompareItem& item) {
    const bool newView = currentView_ == "New";
    const bool newChgView = currentView_ == "NewChg";
    bool side1 = true;
    bool side2 = true;
    if (newChgView && item.Code == compare::code::kCopyRight) {
        side2 = false;
    } else if (newChgView && item.Code == compare::code::kCopyLeft) {
        side1 = false;
    } else if (newView || newChgView) {
        side1 = item.HasSize1();
        side2 = item.HasSize2();
    }
    controls_.sTYPE[row].SetCaption(std::to_string(index + 1) + ".");
    if (side1) WriteSide1(row, item);
    if (side2) WriteSide2(row, item);
    controls_.sMAC[row].SetCaption(DirectionText(currentView_, item.Code));
}

void GridViews::WriteSide1(int row, const CompareItem& item) {
    controls_.sFile1[row].SetCaption(page_.GetShowName1(item.Path1()));
    controls_.sMD1[row].SetCaption(item.Date1());
    controls_.sSize1[row].SetCaption(item.Size1());
}

void GridViews::WriteSide2(int row, const CompareItem& item) {
    controls_.sFile2[row].SetCaption(page_.GetShowName2(item.Path2()));
    controls_.sMD2[row].SetCaption(item.Date2());
    controls_.sSize2[row].SetCaption(item.Size2());
}

}  // namespace grid
