// Folders and files in memory. A listing gives names in the order in which they were made; what is
// asked is counted, and a test can refuse it.
//
// Paths are written "1/sub/a" here, on every system; the program knows them by Path("1/sub/a").
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace fakes {

class FakeFiles : public platform::FileSystem {
  public:
    static std::string Path(std::string_view name);
    // The other way round, "1/sub/a" of a full path.
    static std::string NameOf(std::string_view path);

    // Missing folders above are made; an existing file gets the new time and size.
    void AddFile(std::string_view name, platform::FileTime time, std::int64_t size);
    void AddFolder(std::string_view name) { Make(name); }
    void Remove(std::string_view name);  // a file, if it is there
    platform::FileStatus StatusOf(std::string_view name) const;

    // Listings carry times and sizes, as on some systems.
    bool ListsStatuses = false;
    // A copy makes its target's missing folders.
    bool CopiesMakeFolders = true;
    // A copy of which this is true fails.
    std::function<bool(const std::string& from, const std::string& to)> RefusesCopy;

    // How often a file was looked at, a folder listed.
    std::map<std::string, int> Looks;
    std::map<std::string, int> Listings;
    std::vector<std::string> CreatedFolders;  // asked for, in order
    std::vector<std::string> Copies;          // tried, in order: "1/a > 2/a"

    std::unique_ptr<platform::Folder> OpenFolder(const std::string& path,
                                                 platform::Outcome& outcome) override;
    bool FolderExists(const std::string& path) override;
    platform::FileStatus Look(const std::string& path) override;
    platform::Outcome CreateFolder(const std::string& path) override;
    platform::Outcome CopyOver(const std::string& from, const std::string& to,
                               const std::function<void()>& whileCopying) override;
    platform::Outcome RemoveFile(const std::string& path) override;
    void RemoveLeftover(const std::string& path) override { RemoveFile(path); }

  private:
    struct Node {
        platform::FileStatus Status;       // of a file only
        std::vector<std::string> Entries;  // of a folder: their last names, in order
    };
    class OpenedFolder;

    Node& Make(std::string_view name);

    std::map<std::string, Node, std::less<>> nodes_;  // by whole name, "1/sub"
};

}  // namespace fakes
