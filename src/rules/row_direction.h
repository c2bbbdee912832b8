// The panel in which the user gives one row of the grid another direction.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "compare/compare_table.h"
#include "platform/forms.h"

namespace rules {

// The controls that the panel alone drives.
struct DirectionPanel {
    platform::Picture Picture3;
    platform::Label Label16{"File 1:"}, Label20{"File 1:"};
    platform::Label Label17{"File 2:"}, Label19{"File 2:"};
    platform::Label Label18{"Action:"};
    platform::TextBox TextN1, TextN2;
    platform::Label LabelN11{"Newer:"}, LabelN21{"Older:"};  // age marks
    platform::Label LabelN12{"2007-09-18 12:09:34"}, LabelN22{"2007-09-18 12:09:34"};
    platform::Label LabelN13{"Larger:"}, LabelN23{"Smaller:"};  // size marks
    platform::Label LabelN14{"2345678"}, LabelN24{"22346"};
    platform::OptionButton Option1{"Replace File 2 with File 1"};
    platform::OptionButton Option2{"Replace File 1 with File 2"};
    platform::OptionButton Option3{"Do not sync"};
    platform::Button Command2{"OK"};
    platform::Button Command7{"Cancel"};
};

// What the panel needs of the grid that it stands over.
class DirectionPanelOwner {
  public:
    virtual ~DirectionPanelOwner() = default;
    virtual std::string CurrentView() const = 0;
    // The index of the item in the page's top row.
    virtual std::int32_t FirstRow() const = 0;
    // Highlights a row of the page and toggles its selection.
    virtual void SelectRow(int row) = 0;
    // The direction cell of a row of the page.
    virtual platform::Label& DirectionCell(int row) = 0;
};

class RowDirection {
  public:
    static constexpr int kPanelHeight = 2100;  // twips

    RowDirection(DirectionPanel& panel, compare::CompareTable& table, DirectionPanelOwner& owner);

    // Puts the panel, hidden, on the form, centred on the twips from `gridLeft` to `gridLeft` +
    // `gridWidth`. While it is shown, Enter and Esc are its OK and its Cancel.
    void AddTo(platform::Form& form, int gridLeft, int gridWidth);

    // The click on a row's direction cell: selects the row and opens the panel below it (above it
    // from row 14 on). A cell that shows no direction does not open it.
    void ShowDirectionPanel(int row);

    // The click of Command2: gives the row the chosen direction, then hides the panel. Nothing is
    // changed when another view is shown than that in which the panel was opened.
    void ApplyDirectionChoice();

    // The click of Command7. Whoever replaces the lists must hide the panel: it knows its row by
    // the row's number alone.
    void HideDirectionPanel();

  private:
    enum class Kind { New, ChgSame, Other };  // what the options offer: copying or replacing

    void FillDirectionPanel(std::string_view caption);
    void SetDirectionOptionCaptions(Kind kind);
    Kind FillFromItem(const compare::CompareItem& item);
    Kind FillPair(const compare::CompareItem& item);
    Kind FillFolder1Only(const compare::CompareItem& item);
    Kind FillFolder2Only(const compare::CompareItem& item);
    void MarkAges(bool file1IsNewer);
    void MarkSizes(const compare::CompareItem& item);
    void ClearMarks();
    const compare::CompareItem* CurrentItem() const;
    void SetDirection(std::int16_t right, std::int16_t left);
    void Open();

    DirectionPanel& panel_;
    compare::CompareTable& table_;
    DirectionPanelOwner& owner_;
    platform::Form* form_ = nullptr;
    platform::Button* formsDefault_ = nullptr;  // while the panel is shown
    platform::Button* formsCancel_ = nullptr;
    std::string view_;        // in which the panel was opened
    std::int32_t index_ = 0;  // of the row in that view's list
};

}  // namespace rules
