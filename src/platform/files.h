// Folders and files as the comparison and the synchronisation need them.
//
// Every look-up is relative to an open folder or takes paths of any length; no limit on a path's
// length shows above this border. Links are followed. Nothing here throws: a failure is an
// Outcome, or a FileStatus that does not exist.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_time.h"
#include "platform/outcome.h"
#include "platform/text_arena.h"

namespace platform {

// Time and size of one file (whatever is not a folder). A file that is missing or cannot be got
// has the zero time and size kNoSize.
struct FileStatus {
    static constexpr std::int64_t kNoSize = -1;

    FileTime Time;
    std::int64_t Size = kNoSize;  // bytes

    bool Exists() const { return Size != kNoSize; }
};

enum class EntryKind : std::uint8_t {
    File,  // a regular file, or anything else that is neither folder nor link
    Folder,
    Link,  // ask Folder::IsFolder; following it may lead back up
};

struct FolderEntry {
    const char* Name;  // NUL-terminated, in the arena given to List
    std::uint16_t Length;
    EntryKind Kind;

    std::string_view Text() const { return {Name, Length}; }
};

// The entries of one folder in the file system's order, without "." and "..".
struct Listing {
    std::vector<FolderEntry> Entries;
    std::vector<FileStatus> Statuses;  // one an entry where a listing gives them; else empty
};

// Tells whether two folders are the same one, whatever their paths.
struct FolderIdentity {
    std::uint64_t Volume = 0;
    std::uint64_t Index = 0;
    bool operator==(const FolderIdentity&) const = default;
};

// An open folder.
class Folder {
  public:
    virtual ~Folder() = default;

    // Adds the folder's entries to `listing`. After a failure the entries read so far stay in it.
    virtual Outcome List(TextArena& names, Listing& listing) = 0;

    // The status of the file of this name, or relative path, in the folder (NUL-terminated).
    virtual FileStatus Look(const char* name) = 0;

    virtual bool IsFolder(const char* name) = 0;

    // The subfolder of this relative path; null with `outcome` set when it cannot be opened.
    virtual std::unique_ptr<Folder> Open(const char* relativePath, Outcome& outcome) = 0;

    virtual std::optional<FolderIdentity> Identity() = 0;
};

class FileSystem {
  public:
    virtual ~FileSystem() = default;

    // Null with `outcome` set when the folder cannot be opened. One that may be entered but not be
    // listed opens where the system allows it; List fails then.
    virtual std::unique_ptr<Folder> OpenFolder(const std::string& path, Outcome& outcome) = 0;

    virtual bool FolderExists(const std::string& path) = 0;
    virtual FileStatus Look(const std::string& path) = 0;

    // How many look-ups, here and in the folders opened here, have met neither a yes nor a no since
    // the program started (an error of the disk, a folder that may not be entered): what was asked
    // for may be there although it is taken for missing.
    virtual std::int64_t UnansweredLookUps() const { return 0; }

    // One level; an existing folder is a failure.
    virtual Outcome CreateFolder(const std::string& path) = 0;

    // Copies the regular file `from` over `to`, with its modification time. The target's missing
    // parent folders are made. The content goes to a temporary name beside the target, which is
    // then replaced in one step: after a failure, whenever it comes, the target is as it was and
    // no temporary file is left. Fails when the source is not a regular file or changes meanwhile,
    // and when the target is a folder, a link, read-only, or the source itself, or changes
    // meanwhile. `whileCopying` is called now and then during a long copy.
    virtual Outcome CopyOver(const std::string& from, const std::string& to,
                             const std::function<void()>& whileCopying) = 0;

    // Removes a file, read-only or not.
    virtual Outcome RemoveFile(const std::string& path) = 0;

    // Removes a temporary file that a copy left behind when it was killed; one that belongs to a
    // copy still running stays.
    virtual void RemoveLeftover(const std::string& path) = 0;
};

// The system's own.
FileSystem& SystemFiles();

}  // namespace platform
