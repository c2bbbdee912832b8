// After a synchronisation: looks at every handled row's files again, sorts the rows into the four
// result lists and puts the tallies on the category labels.
#pragma once

#include <cstdint>
#include <vector>

#include "compare/compare_table.h"
#include "platform/files.h"
#include "platform/forms.h"

namespace syncing {

// The category labels, which show the tallies.
struct TallyLabels {
    platform::Label& LabelNewFile;     // "Sync --> ( n ) "
    platform::Label& LabelChgFile;     // "( n ) <-- Sync"
    platform::Label& LabelNewChgFile;  // "Sync Fail ( n ) "
    platform::Label& LabelAllFile;     // "Sync Total ( n ) "
};

// The rows of `worked` that a worker has acted on: the first `count` whose code the mode and
// category act on, in order, with the codes that the worker used.
compare::ItemList HandledRows(const compare::ItemList& worked, compare::SyncMode mode,
                              compare::Category category, std::int32_t count);

class SyncRefresh {
  public:
    SyncRefresh(compare::CompareTable& table, platform::FileSystem& files, platform::FormHost& host,
                TallyLabels labels)
        : table_(table), files_(files), host_(host), labels_(labels) {}

    // Fills SyncAllList with the rows, their sizes and times read afresh, and the other three
    // result lists from it. A row succeeded when both files exist with equal sizes and with times
    // less than two seconds apart (file systems round); else its code becomes 31 or 32. `copied`
    // tells of each row whether its copy was done (of none: all were): without one, files count as
    // equal only when their times are.
    void Run(compare::ItemList handled, const std::vector<bool>& copied = {});

    std::int32_t SyncTotalCount = 0;
    std::int32_t SyncFailCount = 0;

  private:
    void Examine(compare::CompareItem& item, bool copied);
    void ShowTallies();

    compare::CompareTable& table_;
    platform::FileSystem& files_;
    platform::FormHost& host_;
    TallyLabels labels_;
};

}  // namespace syncing
