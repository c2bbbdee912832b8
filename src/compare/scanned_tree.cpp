#include "compare/scanned_tree.h"

#include <algorithm>
#include <utility>

#include "platform/paths.h"

namespace compare {

namespace {

// Opening and closing a folder costs what the longer path costs in about thirty look-ups.
constexpr int kLookUpsBeforeOpening = 8;

}  // namespace

void ScanTroubles::AddUnreadable(platform::Outcome outcome) {
    ++UnreadableCount;
    if (UnreadableFolders.size() < kMostNamed) UnreadableFolders.push_back(std::move(outcome));
}

void RecentFolders::Keep(ScannedFolder& folder) {
    ScannedFolder*& replaced = folders_[next_];
    if (replaced) replaced->Opened.reset();
    replaced = &folder;
    next_ = (next_ + 1) % folders_.size();
}

bool RecentFolders::CloseAll() {
    bool any = false;
    for (ScannedFolder*& folder : folders_) {
        if (!folder) continue;
        any = true;
        folder->Opened.reset();
        folder = nullptr;
    }
    return any;
}

ScannedTree::ScannedTree(platform::FileSystem& files, platform::TextArena& names,
                         RecentFolders& recent, ScanTroubles& troubles, std::string root)
    : files_(files),
      names_(names),
      recent_(recent),
      troubles_(troubles),
      rootPath_(std::move(root)),
      folders_(1) {}

void ScannedTree::List(ScannedFolder& folder) {
    if (folder.Listed) return;
    folder.Listed = true;

    platform::Outcome outcome;
    listing_.Entries.clear();
    listing_.Statuses.clear();
    if (platform::Folder* opened = Open(folder))
        outcome = opened->List(names_, listing_);
    else
        outcome = openFailure_;
    if (!outcome.Ok()) {
        folder.Readable = false;
        outcome.Path = PathOf(folder);
        troubles_.AddUnreadable(std::move(outcome));
    }

    const auto& entries = listing_.Entries;
    const auto fileCount =
        std::count_if(entries.begin(), entries.end(), [](const platform::FolderEntry& entry) {
            return entry.Kind != platform::EntryKind::Folder;
        });
    folder.Files.reserve(static_cast<std::size_t>(fileCount));
    folder.Subfolders.reserve(entries.size() - static_cast<std::size_t>(fileCount));
    for (std::size_t i = 0; i < entries.size(); ++i)
        AddEntry(folder, entries[i], listing_.Statuses.empty() ? nullptr : &listing_.Statuses[i]);
}

// The second walk, as a rule, has one file to look for in a folder, and a folder may hold but one.
platform::FileStatus ScannedTree::Look(ScannedFolder& folder, const char* name) {
    if (folder.Parent && !folder.Opened && folder.LookUpsFromAbove < kLookUpsBeforeOpening) {
        if (platform::Folder* above = Open(*folder.Parent)) {
            ++folder.LookUpsFromAbove;
            pathFromAbove_.assign(folder.Text());
            pathFromAbove_ += platform::Separator;
            pathFromAbove_ += name;
            return above->Look(pathFromAbove_.c_str());
        }
    }
    platform::Folder* opened = Open(folder);
    return opened ? opened->Look(name) : platform::FileStatus{};
}

void ScannedTree::AddEntry(ScannedFolder& folder, const platform::FolderEntry& entry,
                           const platform::FileStatus* status) {
    if (entry.Kind == platform::EntryKind::Folder) {
        folder.Subfolders.push_back(&AddSubfolder(folder, entry.Name, entry.Length));
        return;
    }
    const bool link = entry.Kind == platform::EntryKind::Link;
    if (link) {
        platform::Folder* opened = Open(folder);
        if (opened && opened->IsFolder(entry.Name)) {
            ScannedFolder& target = AddSubfolder(folder, entry.Name, entry.Length);
            if (!LeadsBackUp(target)) folder.Subfolders.push_back(&target);
            return;
        }
    }
    if (platform::IsTemporaryName(entry.Text())) {
        troubles_.Leftovers.push_back(PathOf(folder) + entry.Name);
        return;
    }
    ScannedFile file;
    file.Name = entry.Name;
    file.Length = entry.Length;
    file.Link = link;
    folder.Files.push_back(file);
    if (status) folder.Statuses.push_back(*status);
}

ScannedFolder& ScannedTree::AddSubfolder(ScannedFolder& parent, const char* name,
                                         std::uint16_t length) {
    ScannedFolder& subfolder = folders_.emplace_back();
    subfolder.Parent = &parent;
    subfolder.Name = name;
    subfolder.Length = length;
    return subfolder;
}

ScannedFolder* ScannedTree::Probe(ScannedFolder& parent, const ScannedFolder& like) {
    platform::Folder* opened = Open(parent);
    if (!opened || !opened->IsFolder(like.Name)) return nullptr;
    return &AddSubfolder(parent, like.Name, like.Length);
}

// A link to one of its own ancestors would be walked for ever.
bool ScannedTree::LeadsBackUp(ScannedFolder& link) {
    const auto identity = IdentityOf(link);
    if (!identity) return false;
    for (ScannedFolder* above = link.Parent; above; above = above->Parent)
        if (IdentityOf(*above) == identity) return true;
    return false;
}

std::optional<platform::FolderIdentity> ScannedTree::IdentityOf(ScannedFolder& folder) {
    if (!folder.Identity)
        if (platform::Folder* opened = Open(folder)) folder.Identity = opened->Identity();
    return folder.Identity;
}

platform::Folder* ScannedTree::Open(ScannedFolder& folder) {
    if (folder.Opened) return folder.Opened.get();
    folder.Opened = OpenFromAbove(folder);
    // The system may allow fewer open files than are kept here.
    if (!folder.Opened && recent_.CloseAll()) folder.Opened = OpenFromAbove(folder);
    if (folder.Opened && folder.Parent) recent_.Keep(folder);
    folder.LookUpsFromAbove = 0;
    return folder.Opened.get();
}

// From the nearest open folder above, or from the root, which stays open.
std::unique_ptr<platform::Folder> ScannedTree::OpenFromAbove(ScannedFolder& folder) {
    openFailure_ = {};
    if (!folder.Parent) return files_.OpenFolder(rootPath_, openFailure_);
    std::vector<const ScannedFolder*> way{&folder};
    ScannedFolder* above = folder.Parent;
    while (above->Parent && !above->Opened) {
        way.push_back(above);
        above = above->Parent;
    }
    std::string relative;
    for (auto step = way.rbegin(); step != way.rend(); ++step) {
        if (!relative.empty()) relative += platform::Separator;
        relative += (*step)->Text();
    }
    platform::Folder* from = Open(*above);
    return from ? from->Open(relative.c_str(), openFailure_) : nullptr;
}

std::string ScannedTree::PathOf(const ScannedFolder& folder) const {
    std::vector<const ScannedFolder*> way;
    for (const ScannedFolder* step = &folder; step->Parent; step = step->Parent)
        way.push_back(step);
    std::string path = rootPath_;
    for (auto step = way.rbegin(); step != way.rend(); ++step) {
        path += (*step)->Text();
        path += platform::Separator;
    }
    return path;
}

}  // namespace compare
