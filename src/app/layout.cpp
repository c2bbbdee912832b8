#include "app/layout.h"

#include <array>
#include <string>

namespace app {

namespace {

using platform::Alignment;
using platform::Place;

constexpr int kGridLeft = 120;
constexpr int kGridTop = 1560;
constexpr int kGridWidth = 12420;
constexpr int kGridHeight = grid::kRowTop + grid::kPageRows * grid::kRowHeight + 30;
constexpr int kScrollWidth = 255;
constexpr int kColumnLeft = 13050;
constexpr int kColumnWidth = 1950;

struct Column {
    grid::ResultsGrid::Cells grid::ResultsGrid::*Cells;
    const char* Name;
    const char* Title;
    int Left;
    int Width;
    Alignment Align;
};

constexpr std::array kColumns = {
    Column{&grid::ResultsGrid::sTYPE, "sTYPE", "", 15, 795, Alignment::Right},
    Column{&grid::ResultsGrid::sFile1, "sFile1", "Folder 1", 825, 2040, Alignment::Left},
    Column{&grid::ResultsGrid::sSize1, "sSize1", "Size", 2880, 1170, Alignment::Right},
    Column{&grid::ResultsGrid::sMD1, "sMD1", "Modified", 4065, 1860, Alignment::Center},
    Column{&grid::ResultsGrid::sMAC, "sMAC", "Sync Direction", 5940, 1350, Alignment::Center},
    Column{&grid::ResultsGrid::sFile2, "sFile2", "Folder 2", 7305, 2010, Alignment::Left},
    Column{&grid::ResultsGrid::sSize2, "sSize2", "Size", 9330, 1170, Alignment::Right},
    Column{&grid::ResultsGrid::sMD2, "sMD2", "Modified", 10515, 1860, Alignment::Center},
};

void PlaceFolders(FormMain& form) {
    platform::Form& window = form.Window;
    window.Add(form.LabelFolder1, "LabelFolder1", {120, 142, 750, 240});
    window.Add(form.Combo1, "Combo1", {900, 90, 4800, 345});
    window.Add(form.CommandBrowse1, "CommandBrowse1", {5760, 90, 1080, 345});
    form.ImageOpenFolder1.Glyph = form.ImageOpenFolder2.Glyph = "folder-open";
    window.Add(form.ImageOpenFolder1, "ImageOpenFolder1", {6900, 127, 360, 270});
    window.Add(form.CmdOpenFolder1, "CmdOpenFolder1", {6885, 90, 615, 345});
    window.Add(form.LabelFolder2, "LabelFolder2", {7620, 142, 750, 240});
    window.Add(form.Combo2, "Combo2", {8400, 90, 4800, 345});
    window.Add(form.CommandBrowse2, "CommandBrowse2", {13260, 90, 1080, 345});
    window.Add(form.ImageOpenFolder2, "ImageOpenFolder2", {14400, 127, 360, 270});
    window.Add(form.CmdOpenFolder2, "CmdOpenFolder2", {14385, 90, 615, 345});
}

void PlaceCommands(FormMain& form) {
    platform::Form& window = form.Window;
    window.Add(form.Command3, "Command3", {900, 480, 1500, 345});
    window.Add(form.CheckSync, "CheckSync", {2580, 517, 2400, 270});
    window.Add(form.LabelFileFilter, "LabelFileFilter", {5760, 532, 9240, 240});
}

void PlaceCategories(FormMain& form) {
    platform::Form& window = form.Window;
    window.Add(form.Label5, "Label5", {0, 855, 15360, 60});
    window.Add(form.Label6, "Label6", {0, 915, 120, 240});
    window.Add(form.Label7, "Label7", {2880, 915, 120, 240});
    window.Add(form.Label8, "Label8", {5880, 915, 120, 240});
    window.Add(form.Label10, "Label10", {9600, 915, 120, 240});
    window.Add(form.Label11, "Label11", {12600, 915, 2760, 240});
    window.Add(form.Label12, "Label12", {0, 1185, 15360, 45});
    window.Add(form.LabelNewFile, "LabelNewFile", {120, 915, 2760, 240});
    window.Add(form.LabelChgFile, "LabelChgFile", {3000, 915, 2880, 240});
    window.Add(form.LabelNewChgFile, "LabelNewChgFile", {6000, 915, 3600, 240});
    window.Add(form.LabelAllFile, "LabelAllFile", {9720, 915, 2880, 240});
    window.Add(form.lblComparing, "lblComparing", {9720, 915, 2880, 240});
}

void PlaceHeading(FormMain& form) {
    platform::Form& window = form.Window;
    // A mark underlines the label of the list that is shown: as long as it is with three digits.
    const auto underline = [&window](platform::Label& mark, const char* name, int left, int width) {
        mark.SetBackColor(grid::CategoryLabels::kRestedColor);
        mark.SetVisible(false);
        window.Add(mark, name, {left, 1155, width, 30});
    };
    underline(form.LabelMark1, "LabelMark1", 120, 1350);
    underline(form.LabelMark2, "LabelMark2", 3000, 1695);
    underline(form.LabelMark3, "LabelMark3", 6000, 2460);
    underline(form.LabelMark4, "LabelMark4", 9720, 1470);
    window.Add(form.LabelShow, "LabelShow", {120, 1245, 3780, 240});
    form.LabelShow.SetBold(true);
    window.Add(form.CheckShowPath1, "CheckShowPath1", {kGridLeft + 4065, 1230, 1500, 270});
    window.Add(form.CheckShowPath2, "CheckShowPath2", {kGridLeft + 10515, 1230, 1500, 270});
}

void PlaceGrid(FormMain& form) {
    platform::Form& window = form.Window;
    form.Picture2.SetBackColor(platform::kWindowColor);
    window.Add(form.Picture2, "Picture2", {kGridLeft, kGridTop, kGridWidth, kGridHeight});
    form.VScroll1.SetLargeChange(grid::kPageRows);
    window.Add(form.VScroll1, "VScroll1",
               {kGridLeft + kGridWidth, kGridTop, kScrollWidth, kGridHeight});
    for (std::size_t i = 0; i < kColumns.size(); ++i) {
        const Column& column = kColumns[i];
        platform::Label& title = form.ColumnTitles[i];
        title.SetCaption(column.Title);
        title.SetAlign(Alignment::Center);
        window.Add(title, std::string("ColumnTitle") + column.Name,
                   {column.Left, 15, column.Width, grid::kRowTop - 30}, &form.Picture2);
        for (int row = 0; row < grid::kPageRows; ++row) {
            platform::Label& cell = (form.*column.Cells)[static_cast<std::size_t>(row)];
            cell.SetAlign(column.Align);
            cell.SetMiddleEllipsis(true);
            window.Add(cell, std::string(column.Name) + "(" + std::to_string(row) + ")",
                       {column.Left, grid::kRowTop + row * grid::kRowHeight, column.Width,
                        grid::kRowHeight - 15},
                       &form.Picture2);
        }
    }
}

void PlaceSyncColumn(FormMain& form) {
    platform::Form& window = form.Window;
    window.Add(form.Picture1, "Picture1", {kColumnLeft, 3150, kColumnWidth, 3800});
    window.Add(form.Command4, "Command4", {kColumnLeft, kGridTop, kColumnWidth, 450});
    window.Add(form.Command5, "Command5", {kColumnLeft, kGridTop + 510, kColumnWidth, 450});
    window.Add(form.Command6, "Command6", {kColumnLeft, kGridTop + 1020, kColumnWidth, 450});
    window.Add(form.Command10, "Command10", {kColumnLeft, 7100, kColumnWidth, 450});
    window.Add(form.Command9, "Command9", {kColumnLeft, 7100, kColumnWidth, 450});
    window.Add(form.Command8, "Command8", {kColumnLeft, 7100, kColumnWidth, 450});
}

void PlaceTips(FormMain& form) {
    platform::Form& window = form.Window;
    window.Add(form.TextFileName, "TextFileName", {120, 7950, 14880, 315});
    window.Add(form.LabelTip, "LabelTip", {120, 8340, 14880, 240});
    form.LabelTip1.SetWrap(true);
    window.Add(form.LabelTip1, "LabelTip1", {120, 8610, 14880, 450});
}

}  // namespace

void PlaceControls(FormMain& form, rules::RowDirection& direction) {
    PlaceFolders(form);
    PlaceCommands(form);
    PlaceCategories(form);
    PlaceHeading(form);
    PlaceGrid(form);
    PlaceSyncColumn(form);
    PlaceTips(form);
    direction.AddTo(form.Window, kGridLeft, kGridWidth);
    form.Window.DefaultButton = &form.Command3;
}

}  // namespace app
