// The eight views: which list each shows, and how a page of it is written into the grid.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "compare/compare_table.h"
#include "grid/grid_page.h"
#include "platform/forms.h"

namespace grid {

// The heading above the grid and its four marks, of which one is lit.
struct ViewHeading {
    platform::Label LabelShow;
    platform::Label LabelMark1, LabelMark2, LabelMark3, LabelMark4;

    // `mark` is 1 to 4.
    void Show(std::string_view text, int mark);
};

// How a row of a view says what was or will be done with it. Empty for codes it does not know.
std::string_view DirectionText(std::string_view viewCode, std::int16_t code);

class GridViews {
  public:
    GridViews(compare::CompareTable& table, GridPage& page, ResultsGrid& controls,
              ViewHeading& heading)
        : table_(table), page_(page), controls_(controls), heading_(heading) {}

    // Makes a view current and fills the page from its list, beginning at the page's FirstRow.
    // The codes are "New", "Chg", "NewChg", "Same", "SyncAll", "Fail", "Sync_RL" and "Sync_LR";
    // any other one only clears the page.
    void ShowView(std::string_view viewCode);

    // Empty until the first view is shown.
    const std::string& CurrentView() const { return currentView_; }

    // "New Files", "Modified Files", "New and Modified Files" or "Same Files": of the last
    // category view shown.
    const std::string& CurrentTitle() const { return currentTitle_; }

    // The list of a view; null for an unknown code.
    compare::ItemList* ListOf(std::string_view viewCode) const;

  private:
    void FillRow(int row, std::size_t index, const compare::CompareItem& item);
    void WriteSide1(int row, const compare::CompareItem& item);
    void WriteSide2(int row, const compare::CompareItem& item);

    compare::CompareTable& table_;
    GridPage& page_;
    ResultsGrid& controls_;
    ViewHeading& heading_;
    std::string currentView_;
    std::string currentTitle_;
};

}  // namespace grid
