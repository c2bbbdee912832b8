// The history of folder pairs: slots of any content, and any pair remembered among them. Texts:
// Folder 1 and Folder 2 of the pair to remember, then the values of the slots.
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

// What a comparison does with its pair, and what the next start finds.
void RequireRemembered(const Slots& before, const std::string& folder1,
                       const std::string& folder2) {
    History history(before);
    history.Profiles.AddPairToHistory(folder1, folder2);
    history.Profiles.SaveProfile(folder1, folder2, "/new", "-1");
    const Slots& after = history.Registry.Values;
    const std::string pair = folder1 + std::string(app::kProfileSeparator) + folder2;
    for (const auto& [key, value] : before)
        Require(after.at(key) == value || platform::Trimmed(value).empty() ||
                    value.find(pair) != std::string::npos,
                "another pair is as it was");
    bool found = false;
    for (const app::StoredProfile& profile : history.Profiles.List())
        found = found || (profile.Folder1 == folder1 && profile.Folder2 == folder2 &&
                          profile.FilterExtensions == "/new" && profile.FilterOnlyMode == -1);
    Require(found || after == before, "a pair is found again, or was refused and changed nothing");
}

}  // namespace

void fuzzing::Examine(const std::string& input) {
    const std::vector<std::string> texts = Texts(input, 2);
    Slots stored;
    for (std::size_t i = 2; i < texts.size() && i < 150; ++i)
        stored[std::string(app::kProfilesKey) + "\\P" + std::to_string(i - 2)] = texts[i];
    if (!texts[0].starts_with(' ') && !texts[1].ends_with(' '))  // the program trims them
        RequireRemembered(stored, texts[0], texts[1]);
    const std::vector<app::StoredProfile> list = History(stored).Profiles.List();
    if (!list.empty()) RequireRemembered(stored, list.back().Folder1, list.back().Folder2);
}
