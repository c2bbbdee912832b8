#include "sync/sync_commands.h"

#include <array>
#include <utility>

namespace syncing {

namespace {

using compare::Category;
using Mode = compare::SyncMode;
namespace code = compare::code;

std::string_view ModeText(Mode mode) {
    switch (mode) {
        case Mode::Left:
            return "Left_to_Right";
        case Mode::Right:
            return "Right_to_Left";
        case Mode::Double:
            break;
    }
    return "All";
}

// The "Chg" view speaks of new files as well; the wording is kept.
std::string NothingToDoText(Mode mode, Category category) {
    if (mode == Mode::Double) return "No new / modified file need to be synchronized.    ";
    const bool newOnly = category == Category::New || category == Category::Chg;
    return std::string(newOnly ? "No new file in folder " : "No new / modified file in folder ") +
           (mode == Mode::Left ? "1" : "2") + " need to be synchronized.    ";
}

struct Tip {
    std::string_view Title;
    std::string_view Prefix;  // after "Double sync" or "Single sync"
    std::string_view Suffix;
};

constexpr std::array kTips = {
    Tip{"New Files", "   '", ",  the new files will be copied to another folder."},
    Tip{"Modified Files", "   '", ",  the older file will be replaced with the newer one."},
    Tip{"New and Modified Files", "   '",
        ",  the older file will be replaced with the newer one, the new files will be copied to "
        "another folder."},
    Tip{"Same Files", " the manual specified   '", "."},
};

std::string_view Route(Mode mode) {
    switch (mode) {
        case Mode::Left:
            return "'   from folder 1 to folder 2";
        case Mode::Right:
            return "'   from folder 2 to folder 1";
        case Mode::Double:
            break;
    }
    return "'   between folder 1 and folder 2";
}

}  // namespace

std::optional<Category> CategoryOfView(std::string_view viewCode) {
    if (viewCode == "New") return Category::New;
    if (viewCode == "Chg") return Category::Chg;
    if (viewCode == "NewChg") return Category::NewChg;
    if (viewCode == "Same") return Category::Same;
    return std::nullopt;
}

SyncCommands::SyncCommands(SyncPanel& panel, Parts parts)
    : panel_(panel),
      parts_(std::move(parts)),
      workers_({parts_.Table, parts_.Host, parts_.Files, parts_.Filter, panel, parts_.lblComparing,
                parts_.Tallies.LabelAllFile,
                [this](const compare::CompareItem& item, bool copied) {
                    refresh_.Examine(item, copied);
                }}),
      refresh_(parts_.Table, parts_.Files, parts_.Tallies) {
    ShowIdleButtons();
    const auto wire = [this](platform::Button& button, Mode mode) {
        button.OnPointerMove = [this, mode](platform::PointerPosition) { ShowTip(mode); };
    };
    wire(panel_.Command4, Mode::Double);
    wire(panel_.Command5, Mode::Left);
    wire(panel_.Command6, Mode::Right);
}

void SyncCommands::Sync(Mode mode) {
    parts_.TextFileName.SetText("");
    syncMode_ = ModeText(mode);
    const auto category = CategoryOfView(parts_.Owner.CurrentView());
    if (!category) return;
    parts_.Owner.RemoveLeftovers();
    if (parts_.Table.ListOf(*category).empty()) return;
    if (CountPending(mode, *category) == 0) {
        SayNothingToDo(mode, *category);
        return;
    }
    Work(mode, *category);
    Report(mode);
    ShowIdleButtons();
}

std::int32_t SyncCommands::CountPending(Mode mode, Category category) {
    compare::CompareTable& table = parts_.Table;
    std::int32_t rightward = 0;
    std::int32_t leftward = 0;
    for (const compare::CompareItem& item : table.ListOf(category)) {
        rightward += code::IsRightward(item.Code);
        leftward += code::IsLeftward(item.Code);
    }
    table.PendingCount(Mode::Left, category) = rightward;
    table.PendingCount(Mode::Right, category) = leftward;
    table.PendingCount(Mode::Double, category) = rightward + leftward;
    return table.PendingCount(mode, category);
}

void SyncCommands::SayNothingToDo(Mode mode, Category category) {
    parts_.Dialogs.ShowMessage({NothingToDoText(mode, category), platform::MessageIcon::Exclamation,
                                platform::MessageButtons::Ok, parts_.ApplicationTitle});
}

void SyncCommands::Work(Mode mode, Category category) {
    refresh_.Begin();
    workers_.Run(mode, category, parts_.Owner.Root1(), parts_.Owner.Root2());
    parts_.Table.BuildNewChgList();
    refresh_.Finish();
    parts_.Owner.ShowFromStart("SyncAll");
}

void SyncCommands::Report(Mode mode) {
    platform::Message message;
    message.Title = parts_.ApplicationTitle;
    if (parts_.Table.StopRequested) {
        message.Icon = platform::MessageIcon::Exclamation;
        message.Text = "Synchronization User Canceled.      ";
    } else {
        const std::int32_t failed = refresh_.SyncFailCount;
        message.Text = mode == Mode::Double ? "Synchronization  '" + parts_.Owner.CurrentTitle() +
                                                  "'  completed.      "
                                            : "Synchronization completed.      ";
        message.Text +=
            "\r\n\r\nSucceed:   " + std::to_string(refresh_.SyncTotalCount - failed) + "  Files.";
        if (failed != 0) {
            message.Text += "\r\nFail:   " + std::to_string(failed) + "  Files.";
            message.Icon = platform::MessageIcon::Exclamation;
        }
    }
    parts_.Dialogs.ShowMessage(message);
}

void SyncCommands::ShowTip(Mode mode) {
    const std::string title = parts_.Owner.CurrentTitle();
    for (const Tip& tip : kTips) {
        if (tip.Title != title) continue;
        std::string text(mode == Mode::Double ? "Double sync" : "Single sync");
        text += tip.Prefix;
        text += title;
        text += Route(mode);
        text += tip.Suffix;
        parts_.LabelTip.SetCaption(text);
    }
}

void SyncCommands::ShowIdleButtons() {
    for (platform::Button* button : {&panel_.Command8, &panel_.Command9, &panel_.Command10})
        button->SetVisible(false);
    for (platform::Button* button : {&panel_.Command4, &panel_.Command5, &panel_.Command6})
        button->SetVisible(true);
}

}  // namespace syncing
