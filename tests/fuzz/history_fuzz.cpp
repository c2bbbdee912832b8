// The history of folder pairs: slots of any content, and any pair remembered among them.
//
// Texts: Folder 1, Folder 2 and the filter of the pair to remember, then the values of the slots.
#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "app/profiles.h"
#include "fakes/memory_registry.h"
#include "fuzz/fuzzing.h"
#include "platform/headless/headless_host.h"

namespace {

using app::StoredProfile;
using fuzzing::Require;

constexpr std::size_t kMostSlots = 150;  // more than the boxes show
const std::string kSeparator(app::kProfileSeparator);

std::string SlotKey(std::size_t slot) {
    return std::string(app::kProfilesKey) + "\\P" + std::to_string(slot);
}

// The history on a store, as one start of the program has it.
struct History {
    explicit History(const std::map<std::string, std::string>& stored) { Registry.Values = stored; }

    fakes::MemoryRegistry Registry;
    platform::ComboBox Combo1;
    platform::ComboBox Combo2;
    platform::headless::Dialogs Dialogs;
    platform::headless::Host Host;
    rules::FileFilter Filter;
    app::Profiles Profiles{{Registry, Combo1, Combo2, Dialogs, Host, Filter, [] {}, "Varnel"}};
};

// Where the separators are cannot be told when a folder holds one or begins with part of one.
bool CanBeStored(const std::string& folder1, const std::string& folder2) {
    return !folder1.empty() && !folder2.empty() && !folder2.starts_with('=') &&
           folder1.find(kSeparator) == std::string::npos &&
           folder2.find(kSeparator) == std::string::npos;
}

void RequireBoxesShowTheList(History& history) {
    const std::vector<StoredProfile> list = history.Profiles.List();
    const auto shown = std::min<std::size_t>(list.size(), app::kShownProfileSlots);
    history.Profiles.LoadProfiles();
    Require(history.Combo1.Entries().size() == shown, "Folder 1 box shows the slots");
    Require(history.Combo2.Entries().size() == shown, "Folder 2 box shows the slots");
    for (std::size_t i = 0; i < shown; ++i) {
        Require(history.Combo1.Entries()[i] == list[i].Folder1, "entry of Folder 1 is its slot's");
        Require(history.Combo2.Entries()[i] == list[i].Folder2, "entry of Folder 2 is its slot's");
        history.Combo1.Select(static_cast<int>(i));
        history.Profiles.PickProfile();
        Require(history.Combo2.Text() == list[i].Folder2, "a pick shows the pair");
        Require(history.Filter.FilterExtensions == list[i].FilterExtensions &&
                    history.Filter.FilterOnlyMode == (list[i].FilterOnlyMode != 0),
                "a pick brings the pair's filter");
    }
}

// A slot may change only by being free or by holding the pair already.
void RequireOtherPairsAsTheyWere(const std::map<std::string, std::string>& before,
                                 const std::map<std::string, std::string>& after,
                                 const std::string& pair) {
    for (const auto& [key, value] : before) {
        const std::string& now = after.at(key);
        Require(now == value || fuzzing::Trimmed(value).empty() ||
                    value.find(pair) != std::string::npos,
                "another pair is as it was");
    }
}

// What a comparison does with its pair, and what the next start finds.
void RequireRemembered(const std::map<std::string, std::string>& stored,
                       const StoredProfile& wanted) {
    History history(stored);
    history.Profiles.LoadProfiles();
    history.Profiles.AddPairToHistory(wanted.Folder1, wanted.Folder2);
    history.Profiles.SaveProfile(wanted.Folder1, wanted.Folder2, wanted.FilterExtensions,
                                 app::FilterFlagText(wanted.FilterOnlyMode != 0));
    if (!CanBeStored(wanted.Folder1, wanted.Folder2)) {
        Require(history.Registry.Values == stored, "a pair that cannot be stored changes nothing");
        return;
    }
    RequireOtherPairsAsTheyWere(stored, history.Registry.Values,
                                wanted.Folder1 + kSeparator + wanted.Folder2);
    const std::vector<StoredProfile> list = history.Profiles.List();
    const bool keepsFilter = wanted.FilterExtensions.find(kSeparator) == std::string::npos;
    const auto isWanted = [&](const StoredProfile& profile) {
        return profile.Folder1 == wanted.Folder1 && profile.Folder2 == wanted.Folder2 &&
               (!keepsFilter || (profile.FilterExtensions == wanted.FilterExtensions &&
                                 (profile.FilterOnlyMode != 0) == (wanted.FilterOnlyMode != 0)));
    };
    Require(std::any_of(list.begin(), list.end(), isWanted), "a remembered pair is found again");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::vector<std::string> texts = fuzzing::Texts(fuzzing::Bytes(data, size));
    std::map<std::string, std::string> stored;
    for (std::size_t slot = 0; slot + 3 < texts.size() && slot < kMostSlots; ++slot)
        stored[SlotKey(slot)] = texts[slot + 3];

    History history(stored);
    RequireBoxesShowTheList(history);

    const std::string filter = fuzzing::TextAt(texts, 2);
    RequireRemembered(stored, {0, fuzzing::Trimmed(fuzzing::TextAt(texts, 0)),
                               fuzzing::Trimmed(fuzzing::TextAt(texts, 1)),
                               filter.empty() ? filter : '/' + filter, -1});
    // Every pair read can be saved again; a few stand for all.
    std::vector<StoredProfile> list = history.Profiles.List();
    list.resize(std::min<std::size_t>(list.size(), 4));
    for (const StoredProfile& profile : list) RequireRemembered(stored, profile);
    return 0;
}
