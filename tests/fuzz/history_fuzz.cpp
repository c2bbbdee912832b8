// The history of folder pairs: slots of any content, and any pair remembered among them. Lines:
// Folder 1 and Folder 2 of the pair to remember, then the values of the slots.
#include <cassert>
#include <sstream>

#include "app/profiles.h"
#include "fakes/memory_registry.h"
#include "platform/headless/headless_host.h"
#include "platform/trimmed.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    std::istringstream lines(input);
    std::string folder1, folder2, value;
    std::getline(lines, folder1);
    std::getline(lines, folder2);
    if (folder1.starts_with(' ') || folder2.ends_with(' ')) return 0;  // the program trims them
    fakes::MemoryRegistry registry;
    for (int slot = 0; slot < 150 && std::getline(lines, value); ++slot)
        registry.Values[std::string(app::kProfilesKey) + "\\P" + std::to_string(slot)] = value;
    const auto before = registry.Values;
    platform::headless::Host host;
    platform::headless::Dialogs dialogs;
    platform::ComboBox box1, box2;
    rules::FileFilter filter;
    app::Profiles history({registry, box1, box2, dialogs, host, filter, [] {}, "Varnel"});
    history.LoadProfiles();
    history.AddPairToHistory(folder1, folder2);  // what a comparison does with its pair
    history.SaveProfile(folder1, folder2, "/new", "-1");
    const std::string pair = folder1 + std::string(app::kProfileSeparator) + folder2;
    for (const auto& [key, stored] : before)
        assert(registry.Values.at(key) == stored || platform::Trimmed(stored).empty() ||
               stored.find(pair) != stored.npos);  // another pair is as it was
    bool found = registry.Values == before;
    for (const app::StoredProfile& profile : history.List())
        found = found || (profile.Folder1 == folder1 && profile.Folder2 == folder2 &&
                          profile.FilterExtensions == "/new" && profile.FilterOnlyMode == -1);
    assert(found);  // or was refused and changed nothing
    return 0;
}
