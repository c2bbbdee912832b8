// Folders and files in memory. A listing gives names in the order in which they were made; what is
// asked is counted, and a test can refuse it.
//
// Paths are written "1/sub/a" here, on every system; the program knows them by Path("1/sub/a").
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "platform/files.h"
#include "platform/paths.h"

namespace fakes {

class FakeFiles : public platform::FileSystem {
  public:
    static std::string Path(const std::string& name) {
        std::string path = '/' + name;
        std::replace(path.begin(), path.end(), '/', platform::Separator);
        return path;
    }
    // The other way round, "1/sub/a" of a full path.
    static std::string NameOf(std::string path) {
        std::replace(path.begin(), path.end(), platform::Separator, '/');
        path.erase(0, path.find_first_not_of('/'));
        return path.erase(path.find_last_not_of('/') + 1);
    }

    // Missing folders above are made; an existing file gets the new status.
    void AddFile(const std::string& name, const platform::FileStatus& status) {
        Make(name).Status = status;
    }
    void AddFolder(const std::string& name) { Make(name); }
    void Remove(const std::string& name) {  // a file, if it is there
        if (nodes_.erase(name) != 0) std::erase(Make(FolderOf(name)).Entries, LastPart(name));
    }
    platform::FileStatus StatusOf(const std::string& name) const {
        return nodes_.contains(name) ? nodes_.at(name).Status : platform::FileStatus{};
    }

    bool ListsStatuses = false;        // listings carry times and sizes, as on some systems
    std::set<std::string> Unlistable;  // folders that may be entered alone
    // A copy of which this is true fails.
    std::function<bool(const std::string& from, const std::string& to)> RefusesCopy;

    // How often a file was looked at, a folder listed; copies tried, in order: "1/a > 2/a".
    std::map<std::string, int> Looks, Listings;
    std::vector<std::string> Copies;

    std::unique_ptr<platform::Folder> OpenFolder(const std::string& path,
                                                 platform::Outcome& outcome) override {
        if (FolderExists(path)) return std::make_unique<OpenedFolder>(*this, NameOf(path));
        outcome = kRefused;
        return nullptr;
    }
    bool FolderExists(const std::string& path) override {
        const std::string name = NameOf(path);
        return nodes_.contains(name) && !StatusOf(name).Exists();
    }
    platform::FileStatus Look(const std::string& path) override {
        ++Looks[NameOf(path)];
        return StatusOf(NameOf(path));
    }
    platform::Outcome CreateFolder(const std::string&) override { return kRefused; }
    platform::Outcome CopyOver(const std::string& from, const std::string& to,
                               const std::function<void()>& whileCopying) override {
        const std::string source = NameOf(from), target = NameOf(to);
        Copies.push_back(source + " > " + target);
        whileCopying();
        if (!StatusOf(source).Exists() || (RefusesCopy && RefusesCopy(source, target)))
            return kRefused;
        AddFile(target, StatusOf(source));
        return {};
    }
    platform::Outcome RemoveFile(const std::string& path) override {
        Remove(NameOf(path));
        return {};
    }
    void RemoveLeftover(const std::string& path) override { RemoveFile(path); }

  private:
    struct Node {
        platform::FileStatus Status;       // of a file only
        std::vector<std::string> Entries;  // of a folder: their last names, in order
    };

    class OpenedFolder : public platform::Folder {
      public:
        OpenedFolder(FakeFiles& files, const std::string& name) : files_(files), name_(name) {}

        platform::Outcome List(platform::TextArena& names, platform::Listing& listing) override {
            ++files_.Listings[name_];
            if (files_.Unlistable.contains(name_)) return kRefused;
            for (const std::string& entry : files_.nodes_.at(name_).Entries) {
                const platform::FileStatus status = files_.StatusOf(name_ + '/' + entry);
                const std::string_view kept = names.Keep(entry);
                listing.Entries.push_back(
                    {kept.data(), static_cast<std::uint16_t>(kept.size()),
                     status.Exists() ? platform::EntryKind::File : platform::EntryKind::Folder});
                if (files_.ListsStatuses) listing.Statuses.push_back(status);
            }
            return {};
        }
        platform::FileStatus Look(const char* name) override {
            return files_.Look(name_ + '/' + name);
        }
        bool IsFolder(const char* name) override { return files_.FolderExists(name_ + '/' + name); }
        std::unique_ptr<Folder> Open(const char* path, platform::Outcome& outcome) override {
            return files_.OpenFolder(name_ + '/' + path, outcome);
        }
        std::optional<platform::FolderIdentity> Identity() override { return std::nullopt; }

      private:
        FakeFiles& files_;
        const std::string name_;
    };

    static inline const platform::Outcome kRefused{"do that", "", "refused"};

    static std::string LastPart(const std::string& name) {
        return name.substr(name.rfind('/') + 1);
    }
    static std::string FolderOf(const std::string& name) {
        return name.substr(0, name.find('/') == name.npos ? 0 : name.rfind('/'));
    }

    Node& Make(const std::string& name) {
        const auto [made, isNew] = nodes_.try_emplace(name);
        if (isNew && !name.empty()) Make(FolderOf(name)).Entries.push_back(LastPart(name));
        return made->second;
    }

    std::map<std::string, Node> nodes_;  // by whole name, "1/sub"
};

}  // namespace fakes
