// The three sync commands: count what the current view holds for their mode, run its worker,
// refresh the tallies and report the outcome.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "compare/compare_table.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/forms.h"
#include "rules/file_filter.h"
#include "sync/sync_refresh.h"
#include "sync/transfer_workers.h"

namespace syncing {

// What the commands need of the window that they run in.
class SyncOwner {
  public:
    virtual ~SyncOwner() = default;
    virtual std::string CurrentView() const = 0;
    virtual std::string CurrentTitle() const = 0;
    virtual std::string Root1() const = 0;  // ending in a separator
    virtual std::string Root2() const = 0;
    virtual void ShowFromStart(std::string_view viewCode) = 0;
    // Removes what earlier copies that were killed left behind in the two trees.
    virtual void RemoveLeftovers() = 0;
};

class SyncCommands {
  public:
    struct Parts {
        compare::CompareTable& Table;
        platform::FileSystem& Files;
        platform::FormHost& Host;
        platform::Dialogs& Dialogs;
        const rules::FileFilter& Filter;
        SyncOwner& Owner;
        platform::Label& lblComparing;
        platform::TextBox& TextFileName;
        platform::Label& LabelTip;
        TallyLabels Tallies;
        std::string ApplicationTitle;
    };

    SyncCommands(SyncPanel& panel, Parts parts);

    // The clicks of Command4, Command5 and Command6. They do nothing in a view of results and in
    // an empty one.
    void Sync(compare::SyncMode mode);

    // Stops the worker that runs, before its next row.
    void RequestStop() { parts_.Table.StopRequested = true; }

    // "All", "Left_to_Right" or "Right_to_Left": of the last command.
    const std::string& SyncMode() const { return syncMode_; }

    const SyncRefresh& Refresh() const { return refresh_; }

  private:
    std::int32_t CountPending(compare::SyncMode mode, compare::Category category);
    void SayNothingToDo(compare::SyncMode mode, compare::Category category);
    void Work(compare::SyncMode mode, compare::Category category);
    void Report(compare::SyncMode mode);
    void ShowTip(compare::SyncMode mode);
    void ShowIdleButtons();

    SyncPanel& panel_;
    Parts parts_;
    TransferWorkers workers_;
    SyncRefresh refresh_;
    std::string syncMode_;
};

// The category that a view code names, if any.
std::optional<compare::Category> CategoryOfView(std::string_view viewCode);

}  // namespace syncing
