// One folder tree as a comparison reads it: each folder listed once, opened when needed.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace compare {

struct FolderPair;

// What a comparison could not read, for whoever reports it.
struct ScanTroubles {
    static constexpr std::size_t kMostNamed = 20;

    std::vector<platform::Outcome> UnreadableFolders;  // the first kMostNamed
    std::int64_t UnreadableCount = 0;
    std::int64_t UnansweredLookUps = 0;  // of files and of folders
    std::vector<std::string> Leftovers;  // full paths of what killed copies left behind

    void AddUnreadable(platform::Outcome outcome);
};

struct ScannedFile {
    static constexpr std::uint32_t kNoMatch = 0xFFFFFFFF;

    const char* Name;
    std::uint32_t Match = kNoMatch;  // the index of the other side's file of this name
    std::uint16_t Length;
    bool Link;                       // following it may find nothing
    bool MatchMayBeMissing = false;  // though it is listed: a link, or a file that was not found

    std::string_view Text() const { return {Name, Length}; }
};

struct ScannedFolder {
    ScannedFolder* Parent = nullptr;
    const char* Name = "";  // NUL-terminated; empty for the root
    std::uint16_t Length = 0;
    bool Listed = false;
    bool Readable = true;
    bool Paired = false;                // its names have been matched with Other's
    std::uint8_t LookUpsFromAbove = 0;  // since it was open

    std::vector<ScannedFile> Files;
    std::vector<platform::FileStatus> Statuses;  // of Files, where a listing gives them
    std::vector<ScannedFolder*> Subfolders;

    ScannedFolder* Other = nullptr;    // the same folder on the other side
    const FolderPair* Pair = nullptr;  // what its rows point to
    std::optional<platform::FolderIdentity> Identity;
    std::unique_ptr<platform::Folder> Opened;  // while it is among the recent

    std::string_view Text() const { return {Name, Length}; }
};

// The folders that are likely to be needed again stay open, those of both trees together: a
// subfolder is opened from its parent, and a walk comes back to the parents of a level one after
// the other.
class RecentFolders {
  public:
    // Closes the folder kept longest in exchange.
    void Keep(ScannedFolder& folder);
    // False when there was none.
    bool CloseAll();

  private:
    static constexpr std::size_t kMost = 200;  // a process may have about a thousand open files
    std::vector<ScannedFolder*> folders_ = std::vector<ScannedFolder*>(kMost);
    std::size_t next_ = 0;
};

class ScannedTree {
  public:
    // `names` keeps the names; it, `recent` and `troubles` must outlive the tree. `root` ends in a
    // separator.
    ScannedTree(platform::FileSystem& files, platform::TextArena& names, RecentFolders& recent,
                ScanTroubles& troubles, std::string root);

    ScannedFolder& Root() { return folders_.front(); }
    const std::string& RootPath() const { return rootPath_; }

    // Lists the folder, the first time it is asked for. An unreadable one is empty and noted.
    void List(ScannedFolder& folder);

    // The subfolder of an unreadable `parent` with the name of `like`, if there is one.
    ScannedFolder* Probe(ScannedFolder& parent, const ScannedFolder& like);

    // The status of the file of that name in the folder.
    platform::FileStatus Look(ScannedFolder& folder, const char* name);

    std::string PathOf(const ScannedFolder& folder) const;

  private:
    void AddEntry(ScannedFolder& folder, const platform::FolderEntry& entry,
                  const platform::FileStatus* status);
    ScannedFolder& AddSubfolder(ScannedFolder& parent, const char* name, std::uint16_t length);
    bool LeadsBackUp(ScannedFolder& link);
    // The folder opened for look-ups, or null. Good until the next call.
    platform::Folder* Open(ScannedFolder& folder);
    std::optional<platform::FolderIdentity> IdentityOf(ScannedFolder& folder);
    std::unique_ptr<platform::Folder> OpenFromAbove(ScannedFolder& folder);

    platform::FileSystem& files_;
    platform::TextArena& names_;
    RecentFolders& recent_;
    ScanTroubles& troubles_;
    const std::string rootPath_;
    std::deque<ScannedFolder> folders_;
    platform::Outcome openFailure_;
    platform::Listing listing_;  // kept for its capacity, as is the next
    std::string pathFromAbove_;
};

}  // namespace compare
