// What a synchronisation came to: looks at the files of each handled row again, sorts the rows into
// the four result lists and puts the tallies on the category labels.
#pragma once

#include <cstdint>

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

class SyncRefresh {
  public:
    SyncRefresh(compare::CompareTable& table, platform::FileSystem& files, TallyLabels labels)
        : table_(table), files_(files), labels_(labels) {}

    // Empties the result lists.
    void Begin() { table_.ClearSyncLists(); }

    // Adds a row to the result lists, its sizes and times read afresh. To be called as soon as the
    // row has been handled: after a million rows, a stop would have to wait for as many looks. A
    // row succeeded when both files exist with equal sizes and with times less than two seconds
    // apart (file systems round); else its code becomes 31 or 32. Where no copy was done the times
    // must be equal now and must not have been so before.
    void Examine(compare::CompareItem item, bool copied);

    // Shows the tallies of the rows since Begin.
    void Finish();

    std::int32_t SyncTotalCount = 0;
    std::int32_t SyncFailCount = 0;

  private:
    compare::CompareTable& table_;
    platform::FileSystem& files_;
    TallyLabels labels_;
};

}  // namespace syncing
