// The history of folder pairs: slots of any content, and any pair remembered among them. Texts:
// Folder 1, Folder 2 and the filter of the pair to remember, then the values of the slots.
#include <algorithm>

#include "app/profiles.h"
#include "fakes/memory_registry.h"
#include "fuzz/fuzzing.h"
#include "platform/headless/headless_host.h"

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

bool IsBlank(const std::string& text) {
    return text.find_first_not_of(' ') == std::string::npos;
}

void RequireBoxesShowTheList(History& history) {
    const std::vector<app::StoredProfile> list = history.Profiles.List();
    const auto shown = std::min<std::size_t>(list.size(), app::kShownProfileSlots);
    Require(history.Combo1.Entries().size() == shown && history.Combo2.Entries().size() == shown,
            "the boxes show the slots");
    for (std::size_t i = 0; i < shown; ++i) {
        history.Combo1.Select(static_cast<int>(i));
        history.Profiles.PickProfile();
        Require(history.Combo1.Text() == list[i].Folder1 &&
                    history.Combo2.Text() == list[i].Folder2 &&
                    history.Filter.FilterExtensions == list[i].FilterExtensions &&
                    history.Filter.FilterOnlyMode == (list[i].FilterOnlyMode != 0),
                "a pick shows the pair and brings its filter");
    }
}

// What a comparison does with its pair, and what the next start finds.
void RequireRemembered(const Slots& before, const app::StoredProfile& wanted) {
    History history(before);
    history.Profiles.AddPairToHistory(wanted.Folder1, wanted.Folder2);
    history.Profiles.SaveProfile(wanted.Folder1, wanted.Folder2, wanted.FilterExtensions,
                                 app::FilterFlagText(wanted.FilterOnlyMode != 0));
    const Slots& after = history.Registry.Values;
    const std::string separator(app::kProfileSeparator);
    const std::string pair = wanted.Folder1 + separator + wanted.Folder2;
    // Where the separators are cannot be told when a folder holds one or begins with part of one.
    const bool canBeStored = !wanted.Folder1.empty() && !wanted.Folder2.empty() &&
                             wanted.Folder2[0] != '=' &&
                             wanted.Folder1.find(separator) == std::string::npos &&
                             wanted.Folder2.find(separator) == std::string::npos;
    Require(canBeStored || after == before, "a pair that cannot be stored changes nothing");
    for (const auto& [key, value] : before)
        Require(after.at(key) == value || IsBlank(value) || value.find(pair) != std::string::npos,
                "another pair is as it was");
    const bool keepsFilter = wanted.FilterExtensions.find(separator) == std::string::npos;
    const auto found = [&](const app::StoredProfile& profile) {
        return profile.Folder1 == wanted.Folder1 && profile.Folder2 == wanted.Folder2 &&
               (!keepsFilter || profile.FilterExtensions == wanted.FilterExtensions);
    };
    const std::vector<app::StoredProfile> list = history.Profiles.List();
    Require(!canBeStored || std::any_of(list.begin(), list.end(), found),
            "a remembered pair is found again");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::vector<std::string> texts = fuzzing::Texts(data, size, 3);
    Slots stored;
    for (std::size_t i = 3; i < std::min<std::size_t>(texts.size(), 150); ++i)
        stored[std::string(app::kProfilesKey) + "\\P" + std::to_string(i - 3)] = texts[i];
    History history(stored);
    RequireBoxesShowTheList(history);
    if (!texts[0].starts_with(' ') && !texts[1].ends_with(' '))  // the program trims them
        RequireRemembered(stored, {0, texts[0], texts[1], "", 0});
    // Every pair read can be saved again; a few stand for all.
    std::vector<app::StoredProfile> list = history.Profiles.List();
    list.resize(std::min<std::size_t>(list.size(), 4));
    for (const app::StoredProfile& profile : list) RequireRemembered(stored, profile);
    return 0;
}
