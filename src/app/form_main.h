// The main window: owns all state, and is what its rooms need of each other. A click on one of its
// controls is a command; the command line program clicks the same controls.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "app/dialogs_until_closing.h"
#include "app/profiles.h"
#include "compare/compare_command.h"
#include "compare/compare_table.h"
#include "grid/category_labels.h"
#include "grid/grid_page.h"
#include "grid/grid_views.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/forms.h"
#include "platform/registry.h"
#include "platform/shell.h"
#include "reports/export_lists.h"
#include "rules/file_filter.h"
#include "rules/filter_dialog.h"
#include "rules/row_direction.h"
#include "sync/sync_commands.h"

namespace app {

inline constexpr std::string_view kApplicationTitle = "Varnel";
inline constexpr std::string_view kVersion = "8.12";

// The controls that the window itself drives.
struct MainControls {
    platform::Label LabelFolder1{"Folder 1:"};
    platform::Label LabelFolder2{"Folder 2:"};
    platform::ComboBox Combo1;  // Folder 1
    platform::ComboBox Combo2;  // Folder 2
    platform::Button CommandBrowse1{"Browse..."};
    platform::Button CommandBrowse2{"Browse..."};
    platform::Button CmdOpenFolder1{"Open"};
    platform::Button CmdOpenFolder2{"Open"};
    platform::Image ImageOpenFolder1;
    platform::Image ImageOpenFolder2;
    platform::Label LabelFileFilter{"File Filter:  Sync all type of files."};
    platform::Label lblComparing;
    platform::Label LabelTip;
    platform::Label LabelTip1;
    platform::Picture Picture1;  // beside the grid
    std::array<platform::Label, 8> ColumnTitles;
};

class FormMain : public MainControls,
                 public compare::ComparePanel,
                 public syncing::SyncPanel,
                 public grid::ResultsGrid,
                 public grid::ViewHeading,
                 public grid::CategoryControls,
                 public rules::DirectionPanel,
                 private compare::CompareOwner,
                 private syncing::SyncOwner,
                 private grid::PageOwner,
                 private grid::CategoryOwner,
                 private rules::DirectionPanelOwner {
  public:
    struct Environment {
        platform::FormHost& Host;
        platform::FileSystem& Files;
        platform::Registry& Registry;
        platform::Dialogs& Dialogs;
        platform::Shell& Shell;
    };

    explicit FormMain(const Environment& environment);

    // Start-up: places the window and fills the folder boxes, from the command line ("FOLDER1 ,
    // FOLDER2") where it names a pair, else from the history. The history and the companion tool's
    // jobs are offered in the boxes' lists either way.
    void Load(const std::string& commandLine);

    platform::Form Window{"FormMain"};
    compare::CompareTable Table;
    rules::FileFilter Filter;
    rules::FilterDialog FilterDialog;

    const compare::CompareCommand& Comparison() const { return compare_; }
    const syncing::SyncCommands& Synchronisation() const { return sync_; }
    const std::string& CurrentViewCode() const { return views_.CurrentView(); }
    const compare::ItemList* CurrentList() const override {
        return views_.ListOf(views_.CurrentView());
    }
    Profiles& History() { return profiles_; }
    reports::ExportLists& Exports() { return exports_; }

    // Shows the page of the current view that begins at `row`, as the wheel and the keys do.
    void ScrollToRow(std::int32_t row) { page_.ScrollToRow(row); }
    std::int32_t FirstRow() const override { return page_.FirstRow; }

  private:
    // compare::CompareOwner
    std::string FolderText1() const override { return Combo1.Text(); }
    std::string FolderText2() const override { return Combo2.Text(); }
    void RememberPair(const std::string& folder1, const std::string& folder2) override;
    void DescribeFileFilter() override;
    void SetScrollRange(std::int32_t count) override { page_.SetScrollRange(count); }
    void ResetScroll() override { page_.ResetScroll(); }
    void ShowView(std::string_view viewCode) override;
    void DoubleSync() override;

    // syncing::SyncOwner
    std::string CurrentView() const override { return views_.CurrentView(); }
    std::string CurrentTitle() const override { return views_.CurrentTitle(); }
    std::string Root1() const override { return compare_.Folder1(); }
    std::string Root2() const override { return compare_.Folder2(); }
    void ShowFromStart(std::string_view viewCode) override;
    void RemoveLeftovers() override;

    // grid::PageOwner
    void RedrawView() override { ShowView(views_.CurrentView()); }
    void ShowDirectionPanel(int row) override { direction_.ShowDirectionPanel(row); }

    // rules::DirectionPanelOwner (and CurrentView, FirstRow above)
    void SelectRow(int row) override;
    platform::Label& DirectionCell(int row) override;

    void WireCommands();
    void WirePointer();
    void GuardCommands();
    void Guard(std::function<void()>& slot);
    void GuardMenu(std::vector<platform::MenuItem>& items);
    void RunLong(const std::function<void()>& command);
    void ClickCompare();
    void EditFileFilter();
    void Browse(platform::ComboBox& combo);
    void StartFrom(const std::string& commandLine);
    void PlaceWindow();
    void ShowHelp();
    void ShowAbout();
    bool RequestClose();
    void Exit();
    std::vector<platform::MenuItem> MenuTree();

    bool running_ = false;  // a long command: only its Stop button, hovering and closing act
    bool closing_ = false;
    Environment environment_;
    DialogsUntilClosing dialogs_;
    platform::Form formSelFolder_{"FormSelFolder"};
    grid::GridPage page_;
    grid::GridViews views_;
    grid::CategoryLabels categories_;
    compare::CompareCommand compare_;
    syncing::SyncCommands sync_;
    rules::RowDirection direction_;
    reports::ExportLists exports_;
    Profiles profiles_;
};

}  // namespace app
