#include "grid/category_labels.h"

namespace grid {

namespace {

struct Switch {
    platform::Label CategoryControls::*Label;
    std::string_view CategoryView;
    std::string_view SyncMarker;  // how the label's caption begins after a synchronisation
    std::string_view SyncView;
};

// The caption of LabelChgFile after a synchronisation ends in its marker and never begins with it,
// so that label always shows the modified files.
constexpr std::array kSwitches = {
    Switch{&CategoryControls::LabelNewFile, "New", "Sync -->", "Sync_LR"},
    Switch{&CategoryControls::LabelChgFile, "Chg", "<-- Sync", "Sync_RL"},
    Switch{&CategoryControls::LabelNewChgFile, "NewChg", "Sync Fail", "Fail"},
    Switch{&CategoryControls::LabelAllFile, "Same", "Sync Total", "SyncAll"},
};

constexpr std::array kFrame = {&CategoryControls::Label5,  &CategoryControls::Label6,
                               &CategoryControls::Label7,  &CategoryControls::Label8,
                               &CategoryControls::Label10, &CategoryControls::Label11,
                               &CategoryControls::Label12};

}  // namespace

CategoryLabels::CategoryLabels(CategoryControls& controls, platform::Label& LabelFileFilter,
                               CategoryOwner& owner)
    : controls_(controls), labelFileFilter_(LabelFileFilter), owner_(owner) {
    for (const Switch& entry : kSwitches) {
        platform::Label& label = controls_.*entry.Label;
        label.OnClick = [this, &label, entry] {
            const bool afterSync = label.Caption().starts_with(entry.SyncMarker);
            owner_.ShowFromStart(afterSync ? entry.SyncView : entry.CategoryView);
        };
        Highlight(label);
    }
    Highlight(labelFileFilter_);
    for (const auto frame : kFrame)
        (controls_.*frame).OnPointerMove = [this](platform::PointerPosition) { RestoreColors(); };
    RestoreColors();
}

void CategoryLabels::Highlight(platform::Label& label) {
    label.OnMouseDown = [&label] { label.SetBold(true); };
    label.OnMouseUp = [&label] { label.SetBold(false); };
    label.OnPointerMove = [&label](platform::PointerPosition) {
        label.SetForeColor(kPointedColor);
    };
}

void CategoryLabels::RestoreColors() {
    const auto restore = [](platform::Label& label) {
        label.SetForeColor(kRestedColor);
        label.SetBold(false);
    };
    for (const Switch& entry : kSwitches) restore(controls_.*entry.Label);
    restore(labelFileFilter_);
}

}  // namespace grid
