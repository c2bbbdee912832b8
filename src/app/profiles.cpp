#include "app/profiles.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "platform/trimmed.h"

namespace app {

namespace {

std::string SlotKey(int slot) {
    return std::string(kProfilesKey) + "\\P" + std::to_string(slot);
}

std::string Joined(const std::string& folder1, const std::string& folder2) {
    return folder1 + std::string(kProfileSeparator) + folder2;
}

// The texts between the separators. A folder's name may end in equals signs: in a run of them the
// separators stand last and what is left over belongs to the text in front.
std::vector<std::string> Split(const std::string& value) {
    std::vector<std::string> texts;
    std::size_t start = 0;
    for (;;) {
        const std::size_t run = value.find(kProfileSeparator, start);
        if (run == std::string::npos) break;
        const std::size_t runEnd = std::min(value.find_first_not_of('=', run), value.size());
        const std::size_t separators = (runEnd - run) / kProfileSeparator.size();
        const std::size_t textEnd = runEnd - separators * kProfileSeparator.size();
        texts.push_back(value.substr(start, textEnd - start));
        texts.resize(texts.size() + separators - 1);
        start = runEnd;
    }
    texts.push_back(value.substr(start));
    return texts;
}

StoredProfile ToProfile(int slot, const std::string& value) {
    std::vector<std::string> texts = Split(value);
    const bool hasFilter = texts.size() == 4;
    texts.resize(4);
    StoredProfile profile{slot, texts[0], texts[1], {}, 0};
    if (hasFilter) {
        profile.FilterExtensions = texts[2];
        profile.FilterOnlyMode = FilterFlagOf(texts[3]);
    }
    return profile;
}

bool CanBeStored(const std::string& folder1, const std::string& folder2) {
    return !folder1.empty() && !folder2.empty() &&
           Split(Joined(folder1, folder2)) == std::vector<std::string>{folder1, folder2};
}

}  // namespace

std::string FilterFlagText(bool onlyMode) {
    return onlyMode ? "-1" : "0";
}

std::int16_t FilterFlagOf(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    std::int16_t flag = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), flag);
    return result.ec == std::errc() ? flag : std::int16_t{0};
}

Profiles::Profiles(Parts parts) : parts_(std::move(parts)) {}

std::string Profiles::ReadProfileValue(int slot) {
    return std::string(platform::Trimmed(parts_.Registry.ReadDefault(SlotKey(slot))));
}

void Profiles::WriteProfileValue(const std::string& value, int slot) {
    if (ReadProfileValue(slot).empty()) parts_.Registry.CreateKey(SlotKey(slot));
    parts_.Registry.WriteDefault(SlotKey(slot), value);
}

void Profiles::LoadProfiles() {
    parts_.Combo1.ClearEntries();
    parts_.Combo2.ClearEntries();
    for (int slot = 0; slot < kShownProfileSlots; ++slot) {
        const std::string value = ReadProfileValue(slot);
        if (value.empty()) return;
        StoredProfile profile = ToProfile(slot, value);
        parts_.Combo1.AddEntry(profile.Folder1);
        parts_.Combo2.AddEntry(profile.Folder2);
        filters_[static_cast<std::size_t>(slot)] = {std::move(profile.FilterExtensions),
                                                    profile.FilterOnlyMode != 0};
    }
}

void Profiles::PickFirstProfile() {
    parts_.Combo1.Select(0);
    PickProfile();
}

void Profiles::PickProfile() {
    const int index = parts_.Combo1.ListIndex();
    if (index < 0) return;
    parts_.Combo2.Select(index);
    const auto known = filters_.find(static_cast<std::size_t>(index));
    parts_.Filter = known == filters_.end() ? rules::FileFilter() : known->second;
    parts_.DescribeFileFilter();
}

std::optional<std::size_t> Profiles::EntryOf(const std::string& folder1,
                                             const std::string& folder2) const {
    const std::vector<std::string>& entries1 = parts_.Combo1.Entries();
    const std::vector<std::string>& entries2 = parts_.Combo2.Entries();
    for (std::size_t i = 0; i < std::min(entries1.size(), entries2.size()); ++i) {
        if (entries1[i].empty()) break;
        if (entries1[i] == folder1 && entries2[i] == folder2) return i;
    }
    return std::nullopt;
}

// The boxes may list fewer pairs than are stored (a pair not shown must not be overwritten) and
// more (a slot past a gap would never be read).
bool Profiles::IsNextFreeSlot(int slot) {
    return slot < kProfileSlots && ReadProfileValue(slot).empty() &&
           (slot == 0 || !ReadProfileValue(slot - 1).empty());
}

void Profiles::AddPairToHistory(const std::string& folder1, const std::string& folder2) {
    if (!CanBeStored(folder1, folder2) || EntryOf(folder1, folder2)) return;
    parts_.Combo1.AddEntry(folder1);
    parts_.Combo2.AddEntry(folder2);
    const int slot = static_cast<int>(parts_.Combo1.Entries().size()) - 1;
    if (IsNextFreeSlot(slot)) WriteProfileValue(Joined(folder1, folder2), slot);
}

void Profiles::SaveProfile(const std::string& folder1, const std::string& folder2,
                           const std::string& filterExtensions, const std::string& flagText) {
    if (!CanBeStored(folder1, folder2)) return;
    const std::string pair = Joined(folder1, folder2);
    const std::string value = Joined(pair, Joined(filterExtensions, flagText));
    // A pair that is not listed yet takes the next entry.
    const std::size_t next = parts_.Combo1.Entries().size();
    filters_[EntryOf(folder1, folder2).value_or(next)] = {filterExtensions,
                                                          FilterFlagOf(flagText) != 0};
    int slot = 0;
    for (; slot < kProfileSlots; ++slot) {
        const std::string stored = ReadProfileValue(slot);
        if (stored.empty()) break;
        if (stored.find(pair) == std::string::npos) continue;
        WriteProfileValue(value, slot);
        return;
    }
    parts_.Registry.CreateKey(SlotKey(slot));
    parts_.Host.DoEvents();
    WriteProfileValue(value, slot);
    parts_.Host.DoEvents();
}

bool Profiles::ClearProfiles() {
    if (!parts_.Dialogs.ShowMessage({"This operation will delete all prifiles, Continue?",
                                     platform::MessageIcon::Exclamation,
                                     platform::MessageButtons::YesNo, parts_.ApplicationTitle}))
        return false;
    parts_.Combo1.ClearEntries();
    parts_.Combo2.ClearEntries();
    for (int slot = 0; slot < kShownProfileSlots; ++slot) parts_.Registry.DeleteKey(SlotKey(slot));
    parts_.Registry.DeleteKey(std::string(kProfilesKey));
    return true;
}

std::vector<StoredProfile> Profiles::List() {
    std::vector<StoredProfile> profiles;
    for (int slot = 0; slot < kProfileSlots; ++slot) {
        const std::string value = ReadProfileValue(slot);
        if (value.empty()) break;
        profiles.push_back(ToProfile(slot, value));
    }
    return profiles;
}

}  // namespace app
