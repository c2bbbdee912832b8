#include "platform/files.h"

#include <cerrno>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "platform/posix/copy.h"
#include "platform/posix/reached_path.h"

namespace platform {

using posix::Descriptor;
using posix::Failure;
using posix::ReachedFile;
using posix::ReachedPath;

namespace {

// One read of a folder's entries. Larger than the C library's: a folder of 200,000 files takes a
// tenth of the calls.
constexpr std::size_t kListingBuffer = 256 * 1024;

// What the kernel writes for each entry.
struct KernelEntry {
    std::uint64_t Inode;
    std::int64_t Offset;
    std::uint16_t RecordLength;
    std::uint8_t Type;
    char Name[1];
};

// A file may bear the last time that 64 bits hold: the sum wraps, and times stay different.
std::int64_t FromZeroDate(std::int64_t unixSeconds) {
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(unixSeconds) +
                                     static_cast<std::uint64_t>(kUnixOrigin));
}

FileStatus StatusOf(const struct stat& info) {
    if (S_ISDIR(info.st_mode)) return {};
    return {{FromZeroDate(info.st_mtim.tv_sec), static_cast<std::int32_t>(info.st_mtim.tv_nsec)},
            info.st_size};
}

std::int64_t unansweredLookUps = 0;

// After a failed look-up: counts it unless its error says that there is nothing of that name.
void NoteUnanswered() {
    if (errno != ENOENT && errno != ENOTDIR && errno != ELOOP && errno != ENAMETOOLONG)
        ++unansweredLookUps;
}

bool Described(int folder, const char* path, struct stat& info) {
    if (::fstatat(folder, path, &info, 0) == 0) return true;
    NoteUnanswered();
    return false;
}

FileStatus StatusAt(int folder, const char* path) {
    struct stat info;
    return Described(folder, path, info) ? StatusOf(info) : FileStatus{};
}

bool IsFolderAt(int folder, const char* path) {
    struct stat info;
    return Described(folder, path, info) && S_ISDIR(info.st_mode);
}

// Opened for listing; where that is not allowed, at least for look-ups.
Descriptor OpenFolderAt(int base, const char* path) {
    const ReachedPath reached(base, path);
    Descriptor opened;
    if (reached.Ok()) {
        opened = Descriptor(::openat(reached.At(), reached.Rest(),
                                     O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK));
        if (!opened.IsOpen() && errno == EACCES)
            opened = Descriptor(
                ::openat(reached.At(), reached.Rest(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    }
    // Too many open files: the caller closes some and tries again.
    if (!opened.IsOpen() && errno != EMFILE) NoteUnanswered();
    return opened;
}

class PosixFolder : public Folder {
  public:
    explicit PosixFolder(Descriptor opened) : opened_(std::move(opened)) {}

    Outcome List(TextArena& names, Listing& listing) override;
    FileStatus Look(const char* name) override { return StatusAt(opened_.Get(), name); }
    bool IsFolder(const char* name) override { return IsFolderAt(opened_.Get(), name); }

    std::unique_ptr<Folder> Open(const char* relativePath, Outcome& outcome) override {
        Descriptor opened = OpenFolderAt(opened_.Get(), relativePath);
        if (opened.IsOpen()) return std::make_unique<PosixFolder>(std::move(opened));
        outcome = Failure("open folder", relativePath);
        return nullptr;
    }

    std::optional<FolderIdentity> Identity() override {
        struct stat info;
        if (::fstat(opened_.Get(), &info) != 0) return std::nullopt;
        return FolderIdentity{info.st_dev, info.st_ino};
    }

  private:
    EntryKind KindOf(const KernelEntry& entry);

    Descriptor opened_;
    bool listed_ = false;
};

Outcome PosixFolder::List(TextArena& names, Listing& listing) {
    static std::vector<char> buffer(kListingBuffer);
    if (std::exchange(listed_, true)) ::lseek(opened_.Get(), 0, SEEK_SET);
    for (;;) {
        const long read = ::syscall(SYS_getdents64, opened_.Get(), buffer.data(), buffer.size());
        if (read == 0) return {};
        if (read < 0) {
            // Opened for look-ups only: not allowed to be listed.
            if (errno == EBADF) errno = EACCES;
            return Failure("list folder", "");
        }
        for (long at = 0; at < read;) {
            const auto* entry = reinterpret_cast<const KernelEntry*>(buffer.data() + at);
            at += entry->RecordLength;
            const std::string_view name(entry->Name);
            if (name == "." || name == "..") continue;
            const EntryKind kind = KindOf(*entry);
            const std::string_view kept = names.Keep(name);
            listing.Entries.push_back({kept.data(), static_cast<std::uint16_t>(kept.size()), kind});
        }
    }
}

EntryKind PosixFolder::KindOf(const KernelEntry& entry) {
    switch (entry.Type) {
        case DT_DIR:
            return EntryKind::Folder;
        case DT_LNK:
            return EntryKind::Link;
        case DT_UNKNOWN:
            break;
        default:
            return EntryKind::File;
    }
    struct stat info;
    if (::fstatat(opened_.Get(), entry.Name, &info, AT_SYMLINK_NOFOLLOW) != 0) {
        NoteUnanswered();
        return EntryKind::File;
    }
    if (S_ISLNK(info.st_mode)) return EntryKind::Link;
    return S_ISDIR(info.st_mode) ? EntryKind::Folder : EntryKind::File;
}

class PosixFileSystem : public FileSystem {
  public:
    std::unique_ptr<Folder> OpenFolder(const std::string& path, Outcome& outcome) override {
        Descriptor opened = OpenFolderAt(AT_FDCWD, path.c_str());
        if (opened.IsOpen()) return std::make_unique<PosixFolder>(std::move(opened));
        outcome = Failure("open folder", path);
        return nullptr;
    }

    bool FolderExists(const std::string& path) override {
        const ReachedPath reached(AT_FDCWD, path.c_str());
        return reached.Ok() && IsFolderAt(reached.At(), reached.Rest());
    }

    FileStatus Look(const std::string& path) override {
        const ReachedPath reached(AT_FDCWD, path.c_str());
        if (reached.Ok()) return StatusAt(reached.At(), reached.Rest());
        NoteUnanswered();
        return {};
    }

    std::int64_t UnansweredLookUps() const override { return unansweredLookUps; }

    Outcome CreateFolder(const std::string& path) override {
        const ReachedPath reached(AT_FDCWD, path.c_str());
        if (reached.Ok() && ::mkdirat(reached.At(), reached.Rest(), 0777) == 0) return {};
        return Failure("create folder", path);
    }

    Outcome CopyOver(const std::string& from, const std::string& to,
                     const std::function<void()>& whileCopying) override {
        return posix::CopyOver(from, to, whileCopying);
    }

    Outcome RemoveFile(const std::string& path) override {
        const ReachedPath reached(AT_FDCWD, path.c_str());
        if (reached.Ok() && ::unlinkat(reached.At(), reached.Rest(), 0) == 0) return {};
        return Failure("remove file", path);
    }

    void RemoveLeftover(const std::string& path) override { posix::RemoveLeftover(path); }
};

}  // namespace

FileSystem& SystemFiles() {
    static PosixFileSystem files;
    return files;
}

}  // namespace platform
