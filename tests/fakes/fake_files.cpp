#include "fakes/fake_files.h"

#include <algorithm>
#include <utility>

#include "platform/paths.h"

namespace fakes {

using platform::FileStatus;
using platform::Outcome;

struct FakeFiles::Node {
    std::string Name;  // whole, "1/sub"
    std::uint64_t Index = 0;
    bool IsFolder = true;
    bool CanBeListed = true;
    FileStatus Status;
    std::map<std::string, std::unique_ptr<Node>, std::less<>> Entries;
    std::vector<Node*> Order;  // of the entries
};

namespace {

std::string Replaced(std::string_view text, char from, char to) {
    std::string replaced(text);
    std::replace(replaced.begin(), replaced.end(), from, to);
    return replaced;
}

std::string_view LastPart(std::string_view name) {
    return name.substr(name.rfind('/') + 1);
}

}  // namespace

class FakeFiles::OpenedFolder : public platform::Folder {
  public:
    OpenedFolder(FakeFiles& files, Node& node) : files_(files), node_(node) {}

    Outcome List(platform::TextArena& names, platform::Listing& listing) override {
        ++files_.Listings[node_.Name];
        if (!node_.CanBeListed) return {"list folder", "", "refused"};
        for (const Node* entry : node_.Order) {
            const std::string_view kept = names.Keep(LastPart(entry->Name));
            listing.Entries.push_back(
                {kept.data(), static_cast<std::uint16_t>(kept.size()),
                 entry->IsFolder ? platform::EntryKind::Folder : platform::EntryKind::File});
            if (files_.ListsStatuses) listing.Statuses.push_back(entry->Status);
        }
        return {};
    }
    FileStatus Look(const char* name) override {
        return files_.CountedLook(Entry(name), node_.Name + '/' + name);
    }
    bool IsFolder(const char* name) override {
        const Node* node = Entry(name);
        return node && node->IsFolder;
    }
    std::unique_ptr<Folder> Open(const char* relativePath, Outcome& outcome) override {
        return files_.Open(files_.Find(node_.Name + '/' + NameOf(relativePath)), outcome);
    }
    std::optional<platform::FolderIdentity> Identity() override {
        return platform::FolderIdentity{1, node_.Index};
    }

  private:
    const Node* Entry(std::string_view name) const {
        const auto found = node_.Entries.find(name);
        return found == node_.Entries.end() ? nullptr : found->second.get();
    }

    FakeFiles& files_;
    Node& node_;
};

FakeFiles::FakeFiles() : top_(std::make_unique<Node>()) {}
FakeFiles::~FakeFiles() = default;

std::string FakeFiles::Path(std::string_view name) {
    return platform::Separator + Replaced(name, '/', platform::Separator);
}

std::string FakeFiles::NameOf(std::string_view path) {
    std::string name = Replaced(path, platform::Separator, '/');
    name.erase(0, std::min(name.find_first_not_of('/'), name.size()));
    while (name.ends_with('/')) name.pop_back();
    return name;
}

FakeFiles::Node* FakeFiles::Find(std::string_view name) const {
    Node* node = top_.get();
    while (node && !name.empty()) {
        const std::size_t end = std::min(name.find('/'), name.size());
        const auto found = node->Entries.find(name.substr(0, end));
        node = found == node->Entries.end() ? nullptr : found->second.get();
        name.remove_prefix(std::min(end + 1, name.size()));
    }
    return node;
}

FakeFiles::Node& FakeFiles::MakeFolders(std::string_view name) {
    if (Node* node = Find(name)) return *node;
    const std::size_t slash = name.rfind('/');
    Node& parent = slash == name.npos ? *top_ : MakeFolders(name.substr(0, slash));
    auto& node = parent.Entries[std::string(LastPart(name))];
    node = std::make_unique<Node>();
    node->Name = name;
    node->Index = ++nextIndex_;
    parent.Order.push_back(node.get());
    return *node;
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
    const std::size_t slash = name.rfind('/');
    Node* parent = Find(slash == name.npos ? std::string_view() : name.substr(0, slash));
    if (!Find(name)) return;
    const auto found = parent->Entries.find(LastPart(name));
    std::erase(parent->Order, found->second.get());
    parent->Entries.erase(found);
}

void FakeFiles::RefuseListing(std::string_view folder) {
    Find(folder)->CanBeListed = false;
}

FileStatus FakeFiles::StatusOf(std::string_view name) const {
    const Node* node = Find(name);
    return node ? node->Status : FileStatus{};
}

FileStatus FakeFiles::CountedLook(const Node* node, const std::string& name) {
    ++Looks[name];
    return node ? node->Status : FileStatus{};
}

std::unique_ptr<platform::Folder> FakeFiles::Open(Node* node, Outcome& outcome) {
    if (node && node->IsFolder) return std::make_unique<OpenedFolder>(*this, *node);
    outcome = {"open folder", "", "no such folder"};
    return nullptr;
}

std::unique_ptr<platform::Folder> FakeFiles::OpenFolder(const std::string& path, Outcome& outcome) {
    return Open(Find(NameOf(path)), outcome);
}

bool FakeFiles::FolderExists(const std::string& path) {
    const Node* node = Find(NameOf(path));
    return node && node->IsFolder;
}

FileStatus FakeFiles::Look(const std::string& path) {
    const std::string name = NameOf(path);
    return CountedLook(Find(name), name);
}

Outcome FakeFiles::CreateFolder(const std::string& path) {
    const std::string name = NameOf(path);
    CreatedFolders.push_back(name);
    const std::size_t slash = name.rfind('/');
    if (Find(name) || slash == name.npos || !Find(name.substr(0, slash)))
        return {"create folder", path, "refused"};
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
    const bool reached = CopiesMakeFolders || Find(target.substr(0, target.rfind('/')));
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
