#include "fakes/fake_files.h"

#include <algorithm>
#include <cstdint>

#include "platform/paths.h"

namespace fakes {

using platform::EntryKind;
using platform::FileStatus;
using platform::Outcome;

namespace {

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
        for (const std::string& entry : files_.nodes_.at(name_).Entries) {
            const FileStatus status = files_.StatusOf(Whole(entry));
            const std::string_view kept = names.Keep(entry);
            listing.Entries.push_back({kept.data(), static_cast<std::uint16_t>(kept.size()),
                                       status.Exists() ? EntryKind::File : EntryKind::Folder});
            if (files_.ListsStatuses) listing.Statuses.push_back(status);
        }
        return {};
    }
    FileStatus Look(const char* name) override { return files_.Look(Whole(name)); }
    bool IsFolder(const char* name) override { return files_.FolderExists(Whole(name)); }
    std::unique_ptr<Folder> Open(const char* relativePath, Outcome& outcome) override {
        return files_.OpenFolder(Whole(relativePath), outcome);
    }
    std::optional<platform::FolderIdentity> Identity() override {
        return platform::FolderIdentity{0,
                                        reinterpret_cast<std::uintptr_t>(&files_.nodes_.at(name_))};
    }

  private:
    std::string Whole(const std::string& name) const { return name_ + '/' + name; }

    FakeFiles& files_;
    const std::string name_;
};

std::string FakeFiles::Path(std::string_view name) {
    std::string path = '/' + std::string(name);
    std::replace(path.begin(), path.end(), '/', platform::Separator);
    return path;
}

std::string FakeFiles::NameOf(std::string_view path) {
    std::string name(path);
    std::replace(name.begin(), name.end(), platform::Separator, '/');
    name.erase(0, name.find_first_not_of('/'));
    return name.erase(name.find_last_not_of('/') + 1);
}

FakeFiles::Node& FakeFiles::Make(std::string_view name) {
    const auto [made, isNew] = nodes_.try_emplace(std::string(name));
    if (isNew && !name.empty()) Make(FolderOf(name)).Entries.emplace_back(LastPart(name));
    return made->second;
}

void FakeFiles::AddFile(std::string_view name, platform::FileTime time, std::int64_t size) {
    Make(name).Status = {time, size};
}

void FakeFiles::Remove(std::string_view name) {
    if (nodes_.erase(std::string(name)) != 0)
        std::erase(Make(FolderOf(name)).Entries, LastPart(name));
}

FileStatus FakeFiles::StatusOf(std::string_view name) const {
    const auto found = nodes_.find(name);
    return found == nodes_.end() ? FileStatus{} : found->second.Status;
}

std::unique_ptr<platform::Folder> FakeFiles::OpenFolder(const std::string& path, Outcome& outcome) {
    if (FolderExists(path)) return std::make_unique<OpenedFolder>(*this, NameOf(path));
    outcome = {"open folder", "", "no such folder"};
    return nullptr;
}

bool FakeFiles::FolderExists(const std::string& path) {
    const auto found = nodes_.find(NameOf(path));
    return found != nodes_.end() && !found->second.Status.Exists();
}

FileStatus FakeFiles::Look(const std::string& path) {
    ++Looks[NameOf(path)];
    return StatusOf(NameOf(path));
}

Outcome FakeFiles::CreateFolder(const std::string& path) {
    const std::string name = CreatedFolders.emplace_back(NameOf(path));
    if (nodes_.contains(name) || !nodes_.contains(FolderOf(name)))
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
    const FileStatus status = StatusOf(source);
    const bool reached = CopiesMakeFolders || nodes_.contains(FolderOf(target));
    if (!status.Exists() || !reached || FolderExists(to) ||
        (RefusesCopy && RefusesCopy(source, target)))
        return {"copy", from, "refused"};
    AddFile(target, status.Time, status.Size);
    return {};
}

Outcome FakeFiles::RemoveFile(const std::string& path) {
    if (!StatusOf(NameOf(path)).Exists()) return {"remove file", path, "no such file"};
    Remove(NameOf(path));
    return {};
}

}  // namespace fakes
