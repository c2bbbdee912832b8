#include "sync/transfer_workers.h"

#include <cstddef>

namespace syncing {

using compare::Category;
using compare::SyncMode;
namespace code = compare::code;

platform::Button& SyncPanel::StopButton(SyncMode mode) {
    switch (mode) {
        case SyncMode::Left:
            return Command9;
        case SyncMode::Right:
            return Command8;
        case SyncMode::Double:
            break;
    }
    return Command10;
}

bool ActsOn(SyncMode mode, Category category, std::int16_t code) {
    const bool copies = category == Category::New || category == Category::NewChg;
    const bool replaces = category != Category::New;
    const bool known = (copies && (code == code::kCopyRight || code == code::kCopyLeft)) ||
                       (replaces && (code == code::kReplaceRight || code == code::kReplaceLeft));
    if (!known) return false;
    if (mode == SyncMode::Double) return true;
    return mode == SyncMode::Left ? code::IsRightward(code) : code::IsLeftward(code);
}

void TransferWorkers::Run(SyncMode mode, Category category, const std::string& root1,
                          const std::string& root2) {
    compare::CompareTable& table = parts_.Table;
    table.StopRequested = false;
    for (platform::Button* button :
         {&parts_.Panel.Command4, &parts_.Panel.Command5, &parts_.Panel.Command6})
        button->SetVisible(false);
    parts_.Panel.StopButton(mode).SetVisible(true);
    parts_.lblComparing.SetCaption("Sync ...");
    parts_.lblComparing.SetVisible(true);
    parts_.lblComparing.BringToFront();
    parts_.LabelAllFile.SetVisible(false);
    parts_.Host.DoEvents();

    const compare::ItemList& list = table.ListOf(category);
    std::int32_t& pending = table.PendingCount(mode, category);
    for (std::size_t i = 0; i < list.size() && !table.StopRequested; ++i) {
        parts_.Host.DoEvents();
        if (list[i].Code == code::kSame) continue;
        if (ActsOn(mode, category, list[i].Code)) {
            --pending;
            parts_.lblComparing.SetCaption(std::to_string(pending));
            parts_.Handled(list[i], Transfer(list[i], root1, root2));
        }
        parts_.Host.DoEvents();
    }

    parts_.lblComparing.SetCaption("OK");
    parts_.lblComparing.SetVisible(false);
    parts_.LabelAllFile.SetVisible(true);
}

// What came up or was changed since the comparison, or was overlooked by it, has been shown to
// nobody: a copy would destroy it. The zero time is that of a missing file, as in a comparison.
bool TransferWorkers::TargetIsAsCompared(const compare::CompareItem& item) {
    const bool rightward = code::IsRightward(item.Code);
    const std::int64_t unanswered = parts_.Files.UnansweredLookUps();
    const platform::FileStatus now = parts_.Files.Look(rightward ? item.Path2() : item.Path1());
    if (parts_.Files.UnansweredLookUps() != unanswered) return false;
    if (now.Time.IsZero()) return true;
    return now.Size == (rightward ? item.Bytes2 : item.Bytes1) &&
           now.Time == (rightward ? item.Time2 : item.Time1);
}

bool TransferWorkers::Transfer(const compare::CompareItem& item, const std::string& root1,
                               const std::string& root2) {
    if (!TargetIsAsCompared(item)) return false;
    switch (item.Code) {
        case code::kCopyRight:
            return operations_.CopyToCounterpart(item.Path1(), root1, root2);
        case code::kCopyLeft:
            return operations_.CopyToCounterpart(item.Path2(), root2, root1);
        case code::kReplaceRight:
            return operations_.CopyOneFile(item.Path1(), item.Path2());
        case code::kReplaceLeft:
            return operations_.CopyOneFile(item.Path2(), item.Path1());
        default:
            return false;
    }
}

}  // namespace syncing
