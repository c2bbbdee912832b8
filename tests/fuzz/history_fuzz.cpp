// The history of folder pairs: slots of any content, and any pair remembered among them. Texts:
// Folder 1 and Folder 2 of the pair to remember, then the values of the slots.
#include <algorithm>

#include "app/profiles.h"
#include "fakes/memory_registry.h"
#include "fuzz/fuzzing.h"
#include "platform/headless/headless_host.h"
#include "platform/trimmed.h"

using fuzzing::Require;
using Slots = std::map<std::string, std::string>;

namespace {

// The history on a store, as one start of the program has it.
struct History {
    explicit History(const Slots& stored) {
        Registry.Values = stored;
        Profiles.LoadProfiles();
    }

    fakes::MemoryRegistry Registry;
    platform::ComboBox Combo1, Combo2;
    platform::headless::Dialogs Dialogs;
    platform::headless::Host Host;
    rules::FileFilter Filter;
    app::Profiles Profiles{{Registry, Combo1, Combo2, Dialogs, Host, Filter, [] {}, "Varnel"}};
};

void RequireBoxesShowTheList(History& history) {
    std::vector<app::StoredProfile> list = history.Profiles.List();
    list.resize(std::min<std::size_t>(list.size(), app::kShownProfileSlots));
    Require(history.Combo1.Entries().size() == list.size(), "the boxes show the slots");
    for (const app::StoredProfile& profile : list) {
        history.Combo1.Select(profile.Slot);
        history.Profiles.PickProfile();
        Require(history.Combo1.Text() == profile.Folder1 &&
                    history.Combo2.Text() == profile.Folder2 &&
                    history.Filter.FilterExtensions == profile.FilterExtensions &&
                    history.Filter.FilterOnlyMode == (profile.FilterOnlyMode != 0),
                "a pick shows the pair and brings its filter");
    }
}

// What a comparison does with its pair, and what the next start finds.
void RequireRemembered(const Slots& before, const app::StoredProfile& wanted) {
    const auto& [slot, folder1, folder2, extensions, onlyMode] = wanted;
    History history(before);
    history.Profiles.AddPairToHistory(folder1, folder2);
    history.Profiles.SaveProfile(folder1, folder2, extensions, app::FilterFlagText(onlyMode != 0));
    const Slots& after = history.Registry.Values;
    const std::string separator(app::kProfileSeparator);
    // Where the separators are cannot be told when a folder holds one or begins with part of one.
    const bool canBeStored = !folder1.empty() && !folder2.empty() && folder2[0] != '=' &&
                             (folder1 + '|' + folder2).find(separator) == std::string::npos;
    Require(canBeStored || after == before, "a pair that cannot be stored changes nothing");
    for (const auto& [key, value] : before)
        Require(after.at(key) == value || platform::Trimmed(value).empty() ||
                    value.find(folder1 + separator + folder2) != std::string::npos,
                "another pair is as it was");
    bool found = false;
    for (const app::StoredProfile& profile : history.Profiles.List())
        found = found || (profile.Folder1 == folder1 && profile.Folder2 == folder2 &&
                          profile.FilterExtensions == extensions);
    Require(found || !canBeStored, "a remembered pair is found again");
}

}  // namespace

void fuzzing::Examine(const std::string& input) {
    const std::vector<std::string> texts = Texts(input, 2);
    Slots stored;
    for (std::size_t i = 2; i < texts.size() && i < 150; ++i)
        stored[std::string(app::kProfilesKey) + "\\P" + std::to_string(i - 2)] = texts[i];
    History history(stored);
    RequireBoxesShowTheList(history);
    if (!texts[0].starts_with(' ') && !texts[1].ends_with(' '))  // the program trims them
        RequireRemembered(stored, {0, texts[0], texts[1], "", 0});
    const std::vector<app::StoredProfile> list = history.Profiles.List();
    if (!list.empty()) RequireRemembered(stored, list.back());  // can be saved again
}
