#include "rules/row_direction.h"

#include <array>
#include <utility>

#include "grid/grid_page.h"

namespace rules {

namespace {

// Twips.
constexpr int kPanelWidth = 9600;
constexpr int kFirstRowWithPanelAbove = 14;
constexpr int kBelow = 2040;
constexpr int kAbove = -540;

struct Direction {
    std::int16_t Code;
    std::string_view Text;
};

constexpr std::array<Direction, 5> kDirections = {{{compare::code::kCopyRight, "Copy -->"},
                                                   {compare::code::kCopyLeft, "<-- Copy"},
                                                   {compare::code::kReplaceRight, "Replace -->"},
                                                   {compare::code::kReplaceLeft, "<-- Replace"},
                                                   {compare::code::kDoNothing, "---/---/---"}}};

// Null for a text that is no direction, a result of a synchronisation for example.
const Direction* DirectionOfText(std::string_view text) {
    for (const Direction& direction : kDirections)
        if (direction.Text == text) return &direction;
    return nullptr;
}

std::string_view TextOfCode(std::int16_t code) {
    for (const Direction& direction : kDirections)
        if (direction.Code == code) return direction.Text;
    return {};
}

void SetCode(compare::ItemList& list, std::int32_t index, std::int16_t code) {
    if (index >= 0 && index < compare::CompareTable::Count(list))
        list[static_cast<std::size_t>(index)].Code = code;
}

std::string InBytes(const std::string& size) {
    return size + "  byte";
}

}  // namespace

RowDirection::RowDirection(DirectionPanel& panel, compare::CompareTable& table,
                           DirectionPanelOwner& owner)
    : panel_(panel), table_(table), owner_(owner) {
    panel_.Picture3.SetVisible(false);
    platform::OptionButton::Group({&panel_.Option1, &panel_.Option2, &panel_.Option3});
    panel_.Command2.OnClick = [this] { ApplyDirectionChoice(); };
    panel_.Command7.OnClick = [this] { HideDirectionPanel(); };
    for (platform::TextBox* box : {&panel_.TextN1, &panel_.TextN2}) {
        box->SetReadOnly(true);
        box->SetBackColor(platform::kFaceColor);
    }
}

void RowDirection::AddTo(platform::Form& form, int gridLeft, int gridWidth) {
    form_ = &form;
    DirectionPanel& p = panel_;
    const int left = gridLeft + (gridWidth - kPanelWidth) / 2;
    form.Add(p.Picture3, "Picture3", {left, 0, kPanelWidth, kPanelHeight});
    const auto add = [&](platform::Control& control, std::string_view name, platform::Place place) {
        form.Add(control, name, place, &p.Picture3);
    };
    add(p.Label16, "Label16", {120, 112, 660, 240});
    add(p.TextN1, "TextN1", {840, 75, 8640, 315});
    add(p.Label17, "Label17", {120, 472, 660, 240});
    add(p.TextN2, "TextN2", {840, 435, 8640, 315});

    add(p.Label20, "Label20", {120, 810, 660, 240});
    add(p.LabelN11, "LabelN11", {840, 810, 780, 240});
    add(p.LabelN12, "LabelN12", {1680, 810, 2280, 240});
    add(p.LabelN13, "LabelN13", {4020, 810, 900, 240});
    add(p.LabelN14, "LabelN14", {4980, 810, 4500, 240});
    add(p.Label19, "Label19", {120, 1065, 660, 240});
    add(p.LabelN21, "LabelN21", {840, 1065, 780, 240});
    add(p.LabelN22, "LabelN22", {1680, 1065, 2280, 240});
    add(p.LabelN23, "LabelN23", {4020, 1065, 900, 240});
    add(p.LabelN24, "LabelN24", {4980, 1065, 4500, 240});

    add(p.Label18, "Label18", {120, 1380, 660, 240});
    add(p.Option1, "Option1", {840, 1365, 3120, 270});
    add(p.Option2, "Option2", {4020, 1365, 3120, 270});
    add(p.Option3, "Option3", {7200, 1365, 2280, 270});
    add(p.Command2, "Command2", {6960, 1695, 1200, 330});
    add(p.Command7, "Command7", {8280, 1695, 1200, 330});
}

void RowDirection::ShowDirectionPanel(int row) {
    owner_.SelectRow(row);
    const platform::Label& cell = owner_.DirectionCell(row);
    if (!DirectionOfText(cell.Caption())) return;
    panel_.Picture3.SetTop(cell.Place().Top + (row < kFirstRowWithPanelAbove ? kBelow : kAbove));
    view_ = owner_.CurrentView();
    index_ = owner_.FirstRow() + row;
    FillDirectionPanel(cell.Caption());
    Open();
}

void RowDirection::Open() {
    if (form_ && !panel_.Picture3.Visible()) {
        formsDefault_ = std::exchange(form_->DefaultButton, &panel_.Command2);
        formsCancel_ = std::exchange(form_->CancelButton, &panel_.Command7);
    }
    panel_.Picture3.SetVisible(true);
    panel_.Picture3.BringToFront();
}

void RowDirection::HideDirectionPanel() {
    if (form_ && panel_.Picture3.Visible()) {
        form_->DefaultButton = formsDefault_;
        form_->CancelButton = formsCancel_;
    }
    panel_.Picture3.SetVisible(false);
}

const compare::CompareItem* RowDirection::CurrentItem() const {
    const compare::ItemList* list = nullptr;
    if (view_ == "New") list = &table_.NewList;
    if (view_ == "Chg") list = &table_.ChgList;
    if (view_ == "NewChg") list = &table_.NewChgList;
    if (view_ == "Same") list = &table_.SameList;
    if (!list || index_ < 0 || index_ >= compare::CompareTable::Count(*list)) return nullptr;
    return &(*list)[static_cast<std::size_t>(index_)];
}

void RowDirection::FillDirectionPanel(std::string_view caption) {
    const compare::CompareItem* item = CurrentItem();
    const Kind kind = item ? FillFromItem(*item) : Kind::Other;
    const std::int16_t code = DirectionOfText(caption)->Code;
    if (compare::code::IsRightward(code))
        panel_.Option1.SetValue(true);
    else if (compare::code::IsLeftward(code))
        panel_.Option2.SetValue(true);
    else
        panel_.Option3.SetValue(true);
    SetDirectionOptionCaptions(kind);
}

// Dates and sizes are compared as texts, here and in MarkSizes: "9" is larger than "10".
RowDirection::Kind RowDirection::FillFromItem(const compare::CompareItem& item) {
    if (view_ == "New")
        return item.Date1() <= item.Date2() ? FillFolder2Only(item) : FillFolder1Only(item);
    if (view_ == "NewChg") {
        if (!item.HasSize2()) return FillFolder1Only(item);
        if (!item.HasSize1()) return FillFolder2Only(item);
        // A row that is not to be synchronised tells nothing of the files' ages: the marks of the
        // panel's last opening stay.
        if (item.Code == compare::code::kReplaceRight) MarkAges(true);
        if (item.Code == compare::code::kReplaceLeft) MarkAges(false);
        MarkSizes(item);
    } else if (view_ == "Chg") {
        MarkAges(item.Date1() > item.Date2());
        MarkSizes(item);
    } else {
        ClearMarks();
    }
    return FillPair(item);
}

RowDirection::Kind RowDirection::FillPair(const compare::CompareItem& item) {
    panel_.TextN1.SetText(item.Path1());
    panel_.TextN2.SetText(item.Path2());
    panel_.LabelN12.SetCaption(item.Date1());
    panel_.LabelN22.SetCaption(item.Date2());
    panel_.LabelN14.SetCaption(InBytes(item.Size1()));
    panel_.LabelN24.SetCaption(InBytes(item.Size2()));
    panel_.Option1.SetEnabled(true);
    panel_.Option2.SetEnabled(true);
    return Kind::ChgSame;
}

RowDirection::Kind RowDirection::FillFolder1Only(const compare::CompareItem& item) {
    FillPair(item);
    ClearMarks();
    panel_.LabelN11.SetCaption("New");
    panel_.TextN2.SetText("");
    panel_.LabelN22.SetCaption("");
    panel_.LabelN24.SetCaption("");
    panel_.Option2.SetEnabled(false);
    return Kind::New;
}

RowDirection::Kind RowDirection::FillFolder2Only(const compare::CompareItem& item) {
    FillPair(item);
    ClearMarks();
    panel_.LabelN21.SetCaption("New");
    panel_.TextN1.SetText("");
    panel_.LabelN12.SetCaption("");
    panel_.LabelN14.SetCaption("");
    panel_.Option1.SetEnabled(false);
    return Kind::New;
}

void RowDirection::MarkAges(bool file1IsNewer) {
    panel_.LabelN11.SetCaption(file1IsNewer ? "Newer" : "Older");
    panel_.LabelN21.SetCaption(file1IsNewer ? "Older" : "Newer");
}

void RowDirection::MarkSizes(const compare::CompareItem& item) {
    const int order = item.Size1().compare(item.Size2());
    panel_.LabelN13.SetCaption(order > 0 ? "Larger" : order < 0 ? "Smaller" : "");
    panel_.LabelN23.SetCaption(order > 0 ? "Smaller" : order < 0 ? "Larger" : "");
}

void RowDirection::ClearMarks() {
    for (platform::Label* mark :
         {&panel_.LabelN11, &panel_.LabelN21, &panel_.LabelN13, &panel_.LabelN23})
        mark->SetCaption("");
}

void RowDirection::SetDirectionOptionCaptions(Kind kind) {
    if (kind == Kind::Other) return;
    const bool isNew = kind == Kind::New;
    panel_.Option1.SetCaption(isNew ? "Copy File 1 to Folder 2 -->"
                                    : "Replace File 2 with File 1 -->");
    panel_.Option2.SetCaption(isNew ? "Copy File 2 to Folder 1 <--"
                                    : "Replace File 1 with File 2 <--");
}

void RowDirection::ApplyDirectionChoice() {
    const bool isReplacing = panel_.Option1.Caption().starts_with("Replace");
    if (owner_.CurrentView() == view_) {
        if (view_ == "New" || (view_ == "NewChg" && !isReplacing))
            SetDirection(compare::code::kCopyRight, compare::code::kCopyLeft);
        else if (view_ == "Chg" || view_ == "Same" || view_ == "NewChg")
            SetDirection(compare::code::kReplaceRight, compare::code::kReplaceLeft);
    }
    HideDirectionPanel();
}

// A choice made in the "New" or "Chg" view holds in "NewChg" too, but not the other way round.
void RowDirection::SetDirection(std::int16_t right, std::int16_t left) {
    const std::int16_t code = panel_.Option1.Value()   ? right
                              : panel_.Option2.Value() ? left
                                                       : compare::code::kDoNothing;
    if (view_ == "New") SetCode(table_.NewList, index_, code);
    if (view_ == "Chg") SetCode(table_.ChgList, index_, code);
    if (view_ == "Same") SetCode(table_.SameList, index_, code);
    if (view_ == "New" || view_ == "NewChg") SetCode(table_.NewChgList, index_, code);
    if (view_ == "Chg") SetCode(table_.NewChgList, table_.NewCount() + index_, code);

    // The page may have been scrolled since the panel was opened.
    const std::int32_t row = index_ - owner_.FirstRow();
    if (row >= 0 && row < grid::kPageRows) owner_.DirectionCell(row).SetCaption(TextOfCode(code));
}

}  // namespace rules
