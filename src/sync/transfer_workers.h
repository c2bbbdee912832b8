// The workers of a synchronisation: one for each mode and category. A worker walks a list and does
// what each row's Code and the mode call for.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "compare/compare_table.h"
#include "platform/files.h"
#include "platform/forms.h"
#include "rules/file_filter.h"
#include "sync/file_operations.h"

namespace syncing {

// The controls that synchronising alone drives.
struct SyncPanel {
    platform::Button Command4{"Double Sync"};
    platform::Button Command5{"Left Sync  -->"};
    platform::Button Command6{"<--  Right Sync"};
    platform::Button Command10{"Stop"};  // of Command4
    platform::Button Command9{"Stop"};   // of Command5
    platform::Button Command8{"Stop"};   // of Command6

    platform::Button& StopButton(compare::SyncMode mode);
};

// True when a worker of this mode and category acts on a row of this code.
bool ActsOn(compare::SyncMode mode, compare::Category category, std::int16_t code);

class TransferWorkers {
  public:
    struct Parts {
        compare::CompareTable& Table;
        platform::FormHost& Host;
        platform::FileSystem& Files;
        const rules::FileFilter& Filter;
        SyncPanel& Panel;
        platform::Label& lblComparing;
        platform::Label& LabelAllFile;
        // Called for each row that was acted on, with the code that was used.
        std::function<void(const compare::CompareItem& item, bool copied)> Handled;
    };

    explicit TransferWorkers(Parts parts)
        : parts_(std::move(parts)), operations_(parts_.Files, parts_.Host, parts_.Filter) {}

    // Runs one worker over its category's list. The roots end in a separator. Lowers the
    // PendingCount of the mode and category by one for every row that it acts on. A stop ends it
    // before the next row. A target that is no longer what its row shows is left alone.
    void Run(compare::SyncMode mode, compare::Category category, const std::string& root1,
             const std::string& root2);

  private:
    bool Transfer(const compare::CompareItem& item, const std::string& root1,
                  const std::string& root2);
    bool TargetIsAsCompared(const compare::CompareItem& item);

    Parts parts_;
    FileOperations operations_;
};

}  // namespace syncing
