#include "platform/posix/copy.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <random>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/paths.h"
#include "platform/posix/copy_content.h"
#include "platform/posix/reached_path.h"

namespace platform::posix {

namespace {

constexpr int kNameAttempts = 100;
constexpr unsigned kNoReplace = 1;  // RENAME_NOREPLACE

std::string NewTemporaryName() {
    static std::minstd_rand random{std::random_device{}()};
    char name[32];
    std::snprintf(name, sizeof name, ".varnel~%08x", static_cast<unsigned>(random()));
    return name;
}

// A temporary file beside the target; locked while it is ours, removed unless it was put in place.
class TemporaryFile {
  public:
    explicit TemporaryFile(int folder) : folder_(folder) {
        for (int attempt = 0; attempt < kNameAttempts; ++attempt) {
            name_ = NewTemporaryName();
            opened_ = Descriptor(::openat(
                folder, name_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
            if (opened_.IsOpen() ? IsOurs() : errno != EEXIST) break;
        }
    }
    ~TemporaryFile() {
        if (opened_.IsOpen() && !placed_) ::unlinkat(folder_, name_.c_str(), 0);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    bool IsOpen() const { return opened_.IsOpen(); }
    int Get() const { return opened_.Get(); }

    // Some file systems report a failed write only when the file is closed, but the lock must be
    // held until the file is in place: so a second descriptor of it is closed.
    bool Flushed() const {
        const int second = ::dup(opened_.Get());
        return second >= 0 && ::close(second) == 0;
    }

    // One step: whoever looks sees the old file or the new one. A target that was not there when
    // the copy began is not replaced if it is there now.
    bool PutInPlace(const char* target, bool targetExists) {
        int result = -1;
        if (targetExists) {
            result = ::renameat(folder_, name_.c_str(), folder_, target);
        } else {
            result = ::renameat2(folder_, name_.c_str(), folder_, target, kNoReplace);
            // A file system without this kind of rename has links, or neither.
            if (result != 0 && (errno == EINVAL || errno == ENOSYS)) {
                result = ::linkat(folder_, name_.c_str(), folder_, target, 0);
                if (result == 0)
                    ::unlinkat(folder_, name_.c_str(), 0);
                else if (errno == EPERM || errno == EOPNOTSUPP)
                    result = ::renameat(folder_, name_.c_str(), folder_, target);
            }
        }
        placed_ = result == 0;
        return placed_;
    }

  private:
    // False when another sync has taken the file for a leftover, before it could be locked.
    bool IsOurs() {
        const bool taken = ::flock(opened_.Get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
        struct stat info;
        if (!taken && ::fstat(opened_.Get(), &info) == 0 && info.st_nlink != 0) return true;
        ::unlinkat(folder_, name_.c_str(), 0);
        opened_ = Descriptor();
        errno = EEXIST;
        return false;
    }

    int folder_;
    std::string name_;
    Descriptor opened_;
    bool placed_ = false;
};

// Links are followed, but nothing except a regular file is ever opened: opening a pipe would hang.
Descriptor OpenSource(const std::string& path, struct stat& info) {
    const ReachedPath reached(AT_FDCWD, path.c_str());
    if (!reached.Ok() || ::fstatat(reached.At(), reached.Rest(), &info, 0) != 0) return {};
    if (!S_ISREG(info.st_mode)) {
        errno = EINVAL;
        return {};
    }
    // Its access time stays, which also saves a write; only its owner may ask for that.
    constexpr int kReading = O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    Descriptor opened(::openat(reached.At(), reached.Rest(), kReading | O_NOATIME));
    if (!opened.IsOpen() && errno == EPERM)
        opened = Descriptor(::openat(reached.At(), reached.Rest(), kReading));
    if (opened.IsOpen() && (::fstat(opened.Get(), &info) != 0 || !S_ISREG(info.st_mode))) return {};
    return opened;
}

bool SameContentTime(const struct stat& before, const struct stat& after) {
    return before.st_size == after.st_size && before.st_mtim.tv_sec == after.st_mtim.tv_sec &&
           before.st_mtim.tv_nsec == after.st_mtim.tv_nsec;
}

enum class TargetState { Missing, Replaceable, Refused };

TargetState StateOfTarget(int folder, const char* name, const struct stat& source,
                          struct stat& info) {
    if (::fstatat(folder, name, &info, AT_SYMLINK_NOFOLLOW) != 0)
        return errno == ENOENT ? TargetState::Missing : TargetState::Refused;
    if (!S_ISREG(info.st_mode)) {
        errno = S_ISDIR(info.st_mode) ? EISDIR : EEXIST;
        return TargetState::Refused;
    }
    if (info.st_dev == source.st_dev && info.st_ino == source.st_ino) {
        errno = EINVAL;
        return TargetState::Refused;
    }
    return ::faccessat(folder, name, W_OK, AT_EACCESS) == 0 ? TargetState::Replaceable
                                                            : TargetState::Refused;
}

bool IsUnchanged(int folder, const char* name, const struct stat& before) {
    struct stat now;
    if (::fstatat(folder, name, &now, AT_SYMLINK_NOFOLLOW) != 0) return false;
    errno = EBUSY;
    return now.st_ino == before.st_ino && SameContentTime(before, now);
}

Descriptor OpenFolder(int base, const std::string& path) {
    const ReachedPath reached(base, path.c_str());
    if (!reached.Ok()) return {};
    return Descriptor(::openat(reached.At(), reached.Rest(), O_PATH | O_DIRECTORY | O_CLOEXEC));
}

bool IsTop(std::size_t slash) {
    return slash == 0 || slash == std::string::npos;
}

// The position of the slash so many names further up, or that of the top.
std::size_t SlashAbove(const std::string& path, std::size_t slash, int names) {
    for (; names > 0 && !IsTop(slash); --names) slash = path.rfind('/', slash - 1);
    return slash;
}

// Makes what is missing of the folder that the path `to` lies in. Goes up to a folder that is
// there, in growing steps, and makes its way down from it, so that depth costs no more than its
// names.
void CreateParents(const std::string& to) {
    const std::size_t last = to.rfind('/');
    std::size_t slash = last;
    Descriptor folder;
    for (int names = 1; !folder.IsOpen() && !IsTop(slash); names *= 2) {
        slash = SlashAbove(to, slash, names);
        folder = OpenFolder(AT_FDCWD, slash == to.npos ? "." : to.substr(0, slash + 1));
    }
    while (folder.IsOpen() && slash != last) {
        const std::size_t next = to.find('/', slash + 1);
        const std::string name = to.substr(slash + 1, next - slash - 1);
        if (!name.empty()) {
            ::mkdirat(folder.Get(), name.c_str(), 0777);
            folder = OpenFolder(folder.Get(), name);
        }
        slash = next;
    }
}

// Content first, times last: a file that shows its final time is whole.
bool Fill(const TemporaryFile& copy, const Descriptor& source, const struct stat& before,
          const std::function<void()>& whileCopying) {
    if (!CopyContent(source.Get(), copy.Get(), before, whileCopying)) return false;
    struct stat after;
    if (::fstat(source.Get(), &after) != 0) return false;
    if (!SameContentTime(before, after)) {
        errno = EBUSY;
        return false;
    }
    const timespec times[2] = {{0, UTIME_OMIT}, before.st_mtim};
    return ::fchmod(copy.Get(), before.st_mode & 0777) == 0 && ::futimens(copy.Get(), times) == 0 &&
           copy.Flushed();
}

}  // namespace

Outcome CopyOver(const std::string& from, const std::string& to,
                 const std::function<void()>& whileCopying) {
    struct stat before;
    const Descriptor source = OpenSource(from, before);
    if (!source.IsOpen()) return Failure("open", from);

    auto target = std::make_unique<ReachedFile>(to);
    if (!target->Ok() && errno == ENOENT) {
        CreateParents(to);
        target = std::make_unique<ReachedFile>(to);
    }
    if (!target->Ok()) return Failure("open folder of", to);
    struct stat old;
    const TargetState state = StateOfTarget(target->Folder(), target->Name(), before, old);
    if (state == TargetState::Refused) return Failure("replace", to);

    TemporaryFile copy(target->Folder());
    if (!copy.IsOpen()) return Failure("create", to);
    if (!Fill(copy, source, before, whileCopying)) return Failure("copy", from);
    const bool replaces = state == TargetState::Replaceable;
    if (replaces && !IsUnchanged(target->Folder(), target->Name(), old))
        return Failure("replace", to);
    if (!copy.PutInPlace(target->Name(), replaces)) return Failure("replace", to);
    return {};
}

void RemoveLeftover(const std::string& path) {
    const ReachedFile file(path);
    if (!file.Ok() || !IsTemporaryName(file.Name())) return;
    const Descriptor opened(
        ::openat(file.Folder(), file.Name(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (opened.IsOpen() && ::flock(opened.Get(), LOCK_EX | LOCK_NB) == 0)
        ::unlinkat(file.Folder(), file.Name(), 0);
}

}  // namespace platform::posix
