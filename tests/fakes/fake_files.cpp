#include "fakes/fake_files.h"

#include <algorithm>

#include "platform/paths.h"

namespace fakes {

using platform::EntryKind;
using platform::FileStatus;
using platform::Outcome;

namespace {

std::string Replaced(std::string_view text, char from, char to) {
    std::string replaced(text);
    std::replace(replaced.begin(), replaced.end(), from, to);
    return replaced;
}

std::string_view LastPart(std::string_view name) {
    return name.substr(name.rfind('/') + 1);
}

std::string_view FolderOf(std::string_view name) {
    return name.substr(0, name.find('/') == name.npos ? 0 : name.rfind('/'));
}

}  // namespace

class FakeFiles::OpenedFolder : public platform::Folder {
  public:
    OpenedFolder(FakeFiles& files, std::string name) : files_(files), name_(std::move(name)) {}

    Outcome List(platform::TextArena& names, platform::Listing& listing) override {
        ++files_.Listings[name_];
        for (const std::string& entry : files_.Find(name_)->Entries) {
            const Node& node = *files_.Find(Whole(entry));
            const std::string_view kept = names.Keep(entry);
            listing.Entries.push_back({kept.data(), static_cast<std::uint16_t>(kept.size()),
                                       node.IsFolder ? EntryKind::Folder : EntryKind::File});
            if (files_.ListsStatuses) listing.Statuses.push_back(node.Status);
        }
        return {};
    }
    FileStatus Look(const char* name) override { return files_.CountedLook(Whole(name)); }
    bool IsFolder(const char* name) override {
        const Node* node = files_.Find(Whole(name));
        return node && node->IsFolder;
    }
    std::unique_ptr<Folder> Open(const char* relativePath, Outcome& outcome) override {
        return files_.Open(Whole(NameOf(relativePath)), outcome);
    }
    std::optional<platform::FolderIdentity> Identity() override {
        return platform::FolderIdentity{1, files_.Find(name_)->Index};
    }

  private:
    std::string Whole(const std::string& name) const { return name_ + '/' + name; }

    FakeFiles& files_;
    const std::string name_;
};

std::string FakeFiles::Path(std::string_view name) {
    return platform::Separator + Replaced(name, '/', platform::Separator);
}

std::string FakeFiles::NameOf(std::string_view path) {
    std::string name = Replaced(path, platform::Separator, '/');
    name.erase(0, std::min(name.find_first_not_of('/'), name.size()));
    while (name.ends_with('/')) name.pop_back();
    return name;
}

const FakeFiles::Node* FakeFiles::Find(std::string_view name) const {
    const auto found = nodes_.find(name);
    return found == nodes_.end() ? nullptr : &found->second;
}

FakeFiles::Node& FakeFiles::MakeFolders(std::string_view name) {
    const auto [made, isNew] = nodes_.try_emplace(std::string(name));
    if (isNew) {
        made->second.Index = ++nextIndex_;
        if (!name.empty()) MakeFolders(FolderOf(name)).Entries.emplace_back(LastPart(name));
    }
    return made->second;
}

void FakeFiles::AddFile(std::string_view name, platform::FileTime time, std::int64_t size) {
    Node& node = MakeFolders(name);
    node.IsFolder = false;
    node.Status = {time, size};
}

void FakeFiles::AddFolder(std::string_view name) {
    MakeFolders(name);
}

void FakeFiles::Remove(std::string_view name) {
    if (!Find(name)) return;
    std::erase(MakeFolders(FolderOf(name)).Entries, LastPart(name));
    std::erase_if(nodes_, [name](const auto& node) {
        return node.first == name || node.first.starts_with(std::string(name) + '/');
    });
}

FileStatus FakeFiles::StatusOf(std::string_view name) const {
    const Node* node = Find(name);
    return node ? node->Status : FileStatus{};
}

FileStatus FakeFiles::CountedLook(const std::string& name) {
    ++Looks[name];
    return StatusOf(name);
}

std::unique_ptr<platform::Folder> FakeFiles::Open(const std::string& name, Outcome& outcome) {
    const Node* node = Find(name);
    if (node && node->IsFolder) return std::make_unique<OpenedFolder>(*this, name);
    outcome = {"open folder", "", "no such folder"};
    return nullptr;
}

std::unique_ptr<platform::Folder> FakeFiles::OpenFolder(const std::string& path, Outcome& outcome) {
    return Open(NameOf(path), outcome);
}

bool FakeFiles::FolderExists(const std::string& path) {
    const Node* node = Find(NameOf(path));
    return node && node->IsFolder;
}

FileStatus FakeFiles::Look(const std::string& path) {
    return CountedLook(NameOf(path));
}

Outcome FakeFiles::CreateFolder(const std::string& path) {
    const std::string name = NameOf(path);
    CreatedFolders.push_back(name);
    const std::string_view folder = FolderOf(name);
    if (Find(name) || folder.empty() || !Find(folder)) return {"create folder", path, "refused"};
    AddFolder(name);
    return {};
}

Outcome FakeFiles::CopyOver(const std::string& from, const std::string& to,
                            const std::function<void()>& whileCopying) {
    const std::string source = NameOf(from);
    const std::string target = NameOf(to);
    Copies.push_back(source + " > " + target);
    whileCopying();
    const Node* existing = Find(target);
    const bool reached = CopiesMakeFolders || Find(FolderOf(target));
    if (!StatusOf(source).Exists() || !reached || (existing && existing->IsFolder) ||
        (RefusesCopy && RefusesCopy(source, target)))
        return {"copy", from, "refused"};
    const FileStatus status = StatusOf(source);
    AddFile(target, status.Time, status.Size);
    return {};
}

Outcome FakeFiles::RemoveFile(const std::string& path) {
    const std::string name = NameOf(path);
    if (!StatusOf(name).Exists()) return {"remove file", path, "no such file"};
    Remove(name);
    return {};
}

void FakeFiles::RemoveLeftover(const std::string& path) {
    RemoveFile(path);
}

}  // namespace fakes
