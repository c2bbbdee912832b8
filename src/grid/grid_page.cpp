#include "grid/grid_page.h"

#include <algorithm>
#include <limits>

#include "platform/paths.h"

namespace grid {

namespace {

constexpr std::int32_t kMostUnscaledRows = 10000;
constexpr std::int32_t kMostSteps = 32767;
constexpr std::size_t kNameReach = 1000;

std::string FileNamePart(const std::string& path) {
    const std::size_t start = path.size() > kNameReach ? path.size() - kNameReach : 0;
    const std::size_t separator = path.rfind(platform::Separator);
    if (separator == std::string::npos || separator < start) return path.substr(start);
    return path.substr(separator + 1);
}

std::int32_t DividedUp(std::int32_t count, std::int32_t by) {
    return count / by + (count % by > 0);
}

}  // namespace

GridPage::GridPage(ResultsGrid& controls, PageOwner& owner) : controls_(controls), owner_(owner) {
    WireCells();
    controls_.VScroll1.OnChange = [this] { OnScroll(); };
    controls_.CheckShowPath1.OnClick = [this] { owner_.RedrawView(); };
    controls_.CheckShowPath2.OnClick = [this] { owner_.RedrawView(); };
    controls_.Picture2.OnPointerMove = [this](platform::PointerPosition position) {
        lastPointerY_ = position.Y;
    };
    controls_.Picture2.OnClick = [this] { ClickPicture(); };
    ClearGridRows();
}

void GridPage::WireCells() {
    for (int row = 0; row < kPageRows; ++row) {
        const auto wire = [this, row](platform::Label& cell) {
            cell.OnPointerMove = [this, row](platform::PointerPosition position) {
                PointAt(row, position);
            };
        };
        for (const auto cells : ResultsGrid::kDataCells) {
            platform::Label& cell = (controls_.*cells)[row];
            wire(cell);
            cell.OnClick = [this, row] { ClickRow(row); };
        }
        wire(controls_.sMAC[row]);
        controls_.sMAC[row].OnClick = [this, row] { owner_.ShowDirectionPanel(row); };
    }
}

void GridPage::ClearGridRows() {
    for (int row = 0; row < kPageRows; ++row) {
        for (const auto cells : ResultsGrid::kDataCells) (controls_.*cells)[row].SetCaption("");
        controls_.sMAC[row].SetCaption("");
        PaintBase(row);
    }
}

std::string GridPage::GetShowName1(const std::string& path) const {
    return controls_.CheckShowPath1.Value() ? path : FileNamePart(path);
}

std::string GridPage::GetShowName2(const std::string& path) const {
    return controls_.CheckShowPath2.Value() ? path : FileNamePart(path);
}

std::int16_t GridPage::ScaleRowCount(std::int32_t count) {
    rowsPerStep_ = 1;
    if (count > kMostUnscaledRows)
        rowsPerStep_ = kPageRows * DividedUp(DividedUp(count, kPageRows), kMostSteps);
    return static_cast<std::int16_t>(DividedUp(count, rowsPerStep_));
}

void GridPage::SetScrollRange(std::int32_t count) {
    const std::int16_t steps = ScaleRowCount(count);
    controls_.VScroll1.SetMinimum(0);
    controls_.VScroll1.SetMaximum(rowsPerStep_ > 1 ? steps - 1
                                                   : std::max(0, steps - (kPageRows - 1)));
}

void GridPage::ResetScroll() {
    controls_.VScroll1.SetSmallChange(1);
    controls_.VScroll1.SetLargeChange(kPageRows);
    controls_.VScroll1.SetValue(0);
    FirstRow = 0;
}

std::int32_t GridPage::ScrollValueToRow(std::int32_t value) const {
    return value * rowsPerStep_;
}

void GridPage::OnScroll() {
    FirstRow = ScrollValueToRow(controls_.VScroll1.Value());
    owner_.RedrawView();
}

void GridPage::ScrollToRow(std::int32_t row) {
    const compare::ItemList* list = owner_.CurrentList();
    if (!list) return;
    // The bar may stand beyond the last full page: going down from there stays there.
    const std::int32_t lastPage = compare::CompareTable::Count(*list) - kPageRows;
    const std::int32_t last = row > FirstRow ? std::max(lastPage, FirstRow) : lastPage;
    const std::int32_t target = std::max(0, std::min(row, last));
    if (target == FirstRow) return;
    FirstRow = target;
    ShowScrollPosition();
    owner_.RedrawView();
}

void GridPage::ScrollByKey(platform::ScrollKey key) {
    using platform::ScrollKey;
    switch (key) {
        case ScrollKey::LineUp:
            return ScrollByRows(-1);
        case ScrollKey::LineDown:
            return ScrollByRows(1);
        case ScrollKey::PageUp:
            return ScrollByRows(-kPageRows);
        case ScrollKey::PageDown:
            return ScrollByRows(kPageRows);
        case ScrollKey::Home:
            return ScrollToRow(0);
        case ScrollKey::End:
            break;
    }
    ScrollToRow(std::numeric_limits<std::int32_t>::max());
}

void GridPage::ShowScrollPosition() {
    controls_.VScroll1.SetValue(std::min(FirstRow / rowsPerStep_, controls_.VScroll1.Maximum()));
}

void GridPage::PointAt(int row, platform::PointerPosition position) {
    lastPointerY_ = position.Y;
    ResetRowColors(row);
    HoverRow(row);
}

void GridPage::ClickRow(int row) {
    ResetRowColors(row);
    ToggleRowSelection(row);
}

void GridPage::ClickPicture() {
    const int row = (lastPointerY_ - kRowTop) / kRowHeight;
    if (row >= 0 && row < kPageRows) ClickRow(row);
}

void GridPage::ResetRowColors(int row) {
    if (row == hoverRow_) return;
    for (int other = 0; other < kPageRows; ++other)
        if (other != selectedRow_) PaintBase(other);
}

void GridPage::HoverRow(int row) {
    if (row < 0 || row == hoverRow_ || !GridFilled) return;
    PaintBack(row, kHoverBack);
    hoverRow_ = static_cast<std::int16_t>(row);
    ShowHoverPath(row);
}

void GridPage::ShowHoverPath(int row) {
    const compare::ItemList* list = owner_.CurrentList();
    if (!list) {
        controls_.TextFileName.SetText("");
        return;
    }
    const std::size_t index = static_cast<std::size_t>(FirstRow) + static_cast<std::size_t>(row);
    if (index >= list->size()) return;
    const compare::CompareItem& item = (*list)[index];
    const bool onlyInFolder2 = item.HasSize2() && !item.HasSize1();
    controls_.TextFileName.SetText(onlyInFolder2 ? item.Path2() : item.Path1());
}

void GridPage::ToggleRowSelection(int row) {
    if (controls_.sTYPE[row].BackColor() != kSelectedBack) {
        PaintSelected(row);
    } else {
        PaintBack(row, kHoverBack);
        PaintBaseText(row);
    }
    if (row == selectedRow_) return;
    const int old = selectedRow_;
    selectedRow_ = static_cast<std::int16_t>(row);
    PaintBase(old);
}

platform::Color GridPage::MarkColor(std::string_view mark) {
    return mark == "--> Fail -->" || mark == "<-- Fail <--" ? kFailText : kMarkText;
}

void GridPage::PaintBack(int row, platform::Color color) {
    for (const auto cells : ResultsGrid::kDataCells) (controls_.*cells)[row].SetBackColor(color);
    controls_.sMAC[row].SetBackColor(color);
}

void GridPage::PaintBaseText(int row) {
    for (const auto cells : ResultsGrid::kDataCells)
        (controls_.*cells)[row].SetForeColor(platform::kButtonTextColor);
    controls_.sMAC[row].SetForeColor(MarkColor(controls_.sMAC[row].Caption()));
}

void GridPage::PaintBase(int row) {
    PaintBack(row, kBaseBack);
    PaintBaseText(row);
}

void GridPage::PaintSelected(int row) {
    PaintBack(row, kSelectedBack);
    for (const auto cells : ResultsGrid::kDataCells)
        (controls_.*cells)[row].SetForeColor(kSelectedText);
    controls_.sMAC[row].SetForeColor(kSelectedText);
}

}  // namespace grid
