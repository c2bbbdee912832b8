#include "sync/sync_refresh.h"

#include <string>
#include <utility>

namespace syncing {

namespace {

using compare::CompareItem;
using compare::CompareTable;
namespace code = compare::code;

bool WithinTwoSeconds(platform::FileTime a, platform::FileTime b) {
    if (a > b) std::swap(a, b);
    const std::int64_t seconds = b.Seconds - a.Seconds;
    return seconds < 2 || (seconds == 2 && b.Nanoseconds < a.Nanoseconds);
}

bool HasEqualSizes(const CompareItem& item) {
    return item.HasSize1() && item.HasSize2() && item.Bytes1 == item.Bytes2;
}

}  // namespace

void SyncRefresh::Examine(CompareItem item, bool copied) {
    const bool sameBefore = item.Time1 == item.Time2;
    const platform::FileStatus file1 = files_.Look(item.Path1());
    const platform::FileStatus file2 = files_.Look(item.Path2());
    item.Time1 = file1.Time;
    item.Time2 = file2.Time;
    item.Bytes1 = file1.Size;
    item.Bytes2 = file2.Size;
    const bool rightward = code::IsRightward(item.Code);
    // Files that no copy has made alike may have been nearly or wholly alike before.
    const bool alike =
        copied ? WithinTwoSeconds(item.Time1, item.Time2) : item.Time1 == item.Time2 && !sameBefore;
    if (alike && HasEqualSizes(item)) {
        (rightward ? table_.SyncLrList : table_.SyncRlList).push_back(item);
    } else {
        item.Code = rightward ? code::kFailedRight : code::kFailedLeft;
        table_.FailList.push_back(item);
    }
    table_.SyncAllList.push_back(item);
}

void SyncRefresh::Finish() {
    SyncTotalCount = CompareTable::Count(table_.SyncAllList);
    SyncFailCount = CompareTable::Count(table_.FailList);
    const auto tally = [](const compare::ItemList& list) { return std::to_string(list.size()); };
    labels_.LabelNewFile.SetCaption("Sync --> ( " + tally(table_.SyncLrList) + " ) ");
    labels_.LabelChgFile.SetCaption("( " + tally(table_.SyncRlList) + " ) <-- Sync");
    labels_.LabelNewChgFile.SetCaption("Sync Fail ( " + tally(table_.FailList) + " ) ");
    labels_.LabelAllFile.SetCaption("Sync Total ( " + tally(table_.SyncAllList) + " ) ");
}

}  // namespace syncing
