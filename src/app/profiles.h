// The history of folder pairs: each pair that was compared, with the file filter that went with
// it, in a slot of the registry and in the two folder boxes.
//
// Slots are used from 0 upwards; the first one that reads as empty ends the list. The boxes show
// the first 100 in parallel, behind them what else is offered. Nothing here reports a failure: what
// cannot be read is empty, what cannot be written is lost.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dialogs.h"
#include "platform/forms.h"
#include "platform/registry.h"
#include "rules/file_filter.h"

namespace app {

inline constexpr std::string_view kProfilesKey = "SOFTWARE\\SystemInfoFolderCS1993";
inline constexpr std::string_view kProfileSeparator = "==========";
inline constexpr int kProfileSlots = 1000;
inline constexpr int kShownProfileSlots = 100;

// What a slot holds. A pair remembered without a filter has an empty one and flag 0.
struct StoredProfile {
    int Slot = 0;
    std::string Folder1;
    std::string Folder2;
    std::string FilterExtensions;
    std::int16_t FilterOnlyMode = 0;
};

// The flag of a stored filter as text: "-1" for only mode, "0" for excluding.
std::string FilterFlagText(bool onlyMode);

// The number at the start of `text`; 0 when there is none or 16 bits do not hold it.
std::int16_t FilterFlagOf(std::string_view text);

class Profiles {
  public:
    struct Parts {
        platform::Registry& Registry;
        platform::ComboBox& Combo1;
        platform::ComboBox& Combo2;
        platform::Dialogs& Dialogs;
        platform::FormHost& Host;
        rules::FileFilter& Filter;
        std::function<void()> DescribeFileFilter;
        std::string ApplicationTitle;
    };

    explicit Profiles(Parts parts);

    // Fills the boxes' lists from the registry; selects nothing.
    void LoadProfiles();

    // Selects the first pair, if there is one, and takes its filter.
    void PickFirstProfile();

    // The click of Combo1: shows the other folder of the pair and takes its filter. A pair without
    // one clears the filter.
    void PickProfile();

    // Remembers a pair, without its filter, unless the boxes list it already. The registry is
    // written only where the pair would take the list's next free slot; SaveProfile finds any
    // other pair its place. An empty folder is not remembered, nor is one that a slot cannot
    // tell from its separator.
    void AddPairToHistory(const std::string& folder1, const std::string& folder2);

    // Stores a pair with its filter: over the first slot that holds the pair, else in the first
    // free one. A slot holds the pair when its value contains the two folders side by side, so a
    // stored Folder 2 that goes on after `folder2` counts. Refuses what AddPairToHistory refuses.
    void SaveProfile(const std::string& folder1, const std::string& folder2,
                     const std::string& filterExtensions, const std::string& flagText);

    // Forgets all pairs after asking; false when the user refused. What has been loaded of the
    // filters stays until the program ends, and so do slots 100 and above in the registry.
    bool ClearProfiles();

    // All stored pairs, shown or not.
    std::vector<StoredProfile> List();

    // The value of a slot without the blanks around it; empty where nothing can be read.
    std::string ReadProfileValue(int slot);
    void WriteProfileValue(const std::string& value, int slot);

  private:
    std::optional<std::size_t> EntryOf(const std::string& folder1,
                                       const std::string& folder2) const;
    bool IsNextFreeSlot(int slot);

    Parts parts_;
    // By the entry of the boxes, not by the slot: they also list pairs that have none.
    std::map<std::size_t, rules::FileFilter> filters_;
};

}  // namespace app
