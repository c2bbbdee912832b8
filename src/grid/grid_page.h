// The page of 25 rows that the results grid shows: its cells and colours, scrolling, hovering,
// selecting, and the path line. Holds no data of its own; grid_views fills the cells.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "compare/compare_table.h"
#include "platform/forms.h"

namespace grid {

inline constexpr int kPageRows = 25;
inline constexpr int kRowTop = 260;     // twips, of row 0 within Picture2
inline constexpr int kRowHeight = 240;  // twips

// 0x00BBGGRR.
inline constexpr platform::Color kBaseBack = 0xFFFFC0;
inline constexpr platform::Color kHoverBack = 0xFFFF80;
inline constexpr platform::Color kSelectedBack = 0x008000;
inline constexpr platform::Color kSelectedText = 0xFFFFFF;
inline constexpr platform::Color kMarkText = 0xC00000;
inline constexpr platform::Color kFailText = 0x0000FF;

// The controls that the grid alone drives. Cell arrays are indexed by the row, 0 at the top.
struct ResultsGrid {
    using Cells = std::array<platform::Label, kPageRows>;

    platform::Picture Picture2;
    Cells sTYPE, sFile1, sSize1, sMD1, sMAC, sFile2, sSize2, sMD2;
    platform::ScrollBar VScroll1;
    platform::CheckBox CheckShowPath1{"Show Path"};
    platform::CheckBox CheckShowPath2{"Show Path"};
    platform::TextBox TextFileName;

    // The cells of a row other than sMAC.
    static constexpr std::array kDataCells = {
        &ResultsGrid::sTYPE,  &ResultsGrid::sFile1, &ResultsGrid::sSize1, &ResultsGrid::sMD1,
        &ResultsGrid::sFile2, &ResultsGrid::sSize2, &ResultsGrid::sMD2};
};

// What the page needs of whoever knows the views.
class PageOwner {
  public:
    virtual ~PageOwner() = default;
    // Fills the page again from the current view.
    virtual void RedrawView() = 0;
    // The current view's list; null while no view is shown.
    virtual const compare::ItemList* CurrentList() const = 0;
    // A click on a row's direction cell.
    virtual void ShowDirectionPanel(int row) = 0;
};

class GridPage {
  public:
    GridPage(ResultsGrid& controls, PageOwner& owner);

    // Empties all rows and gives them their base colours.
    void ClearGridRows();

    // What a file cell shows of a path: all of it, or the name behind the last separator within
    // the last 1000 bytes.
    std::string GetShowName1(const std::string& path) const;
    std::string GetShowName2(const std::string& path) const;

    // How many scroll steps a list of `count` rows gets: one a row up to 10,000 rows, then one a
    // page of 25, then one for as many pages as keep the steps within 16 bits.
    std::int16_t ScaleRowCount(std::int32_t count);
    void SetScrollRange(std::int32_t count);
    // Small step 1, large step 25, value and first row 0.
    void ResetScroll();
    std::int32_t ScrollValueToRow(std::int32_t value) const;

    // Shows the page that begins at `row` (kept within the list), wherever scroll steps lie.
    void ScrollToRow(std::int32_t row);
    void ScrollByRows(std::int32_t rows) { ScrollToRow(FirstRow + rows); }
    void ScrollByKey(platform::ScrollKey key);

    // Puts the scroll bar where the page is.
    void ShowScrollPosition();

    void ResetRowColors(int row);
    void HoverRow(int row);
    void ShowHoverPath(int row);
    void ToggleRowSelection(int row);

    // Dark blue, or red for the mark of a failed transfer.
    static platform::Color MarkColor(std::string_view mark);

    std::int32_t FirstRow = 0;  // index of the item in the top row
    bool GridFilled = false;    // a view with rows has been drawn

  private:
    void WireCells();
    void OnScroll();
    void PointAt(int row, platform::PointerPosition position);
    void ClickRow(int row);
    void ClickPicture();
    void PaintBack(int row, platform::Color color);
    void PaintBaseText(int row);
    void PaintBase(int row);
    void PaintSelected(int row);

    ResultsGrid& controls_;
    PageOwner& owner_;
    std::int16_t hoverRow_ = 0;
    std::int16_t selectedRow_ = 0;
    std::int32_t lastPointerY_ = 0;  // twips, in the coordinates of whatever reported it
    std::int32_t rowsPerStep_ = 1;   // above 1 the scroll bar is scaled
};

}  // namespace grid
