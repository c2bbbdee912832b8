#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <system_error>
#include <utility>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "fakes/temp_folder.h"

namespace fakes {

namespace {

void Check(bool done, std::string_view what) {
    if (!done) throw std::system_error(errno, std::generic_category(), std::string(what));
}

class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor() {
        if (number_ != -1) ::close(number_);
    }
    operator int() const { return number_; }

  private:
    int number_;
};

constexpr int kOpenFolder = O_RDONLY | O_DIRECTORY | O_CLOEXEC;

// The folder that holds the last name of `relative`, and that name. Going down a name at a time,
// no path is too long.
struct Position {
    Descriptor Folder;
    std::string Name;
};

Position Find(const std::string& root, std::string_view relative, bool makeFolders) {
    Descriptor folder(::open(root.c_str(), kOpenFolder));
    for (std::size_t end; (end = relative.find('/')) != relative.npos;) {
        const std::string name(relative.substr(0, end));
        relative.remove_prefix(end + 1);
        if (makeFolders) ::mkdirat(folder, name.c_str(), 0777);
        folder = Descriptor(::openat(folder, name.c_str(), kOpenFolder));
    }
    return {std::move(folder), relative.empty() ? "." : std::string(relative)};
}

std::vector<std::string> NamesIn(int folder) {
    std::vector<std::string> names;
    DIR* stream = ::fdopendir(::openat(folder, ".", kOpenFolder));
    if (!stream) return names;
    while (const dirent* entry = ::readdir(stream)) {
        const std::string name = entry->d_name;
        if (name != "." && name != "..") names.push_back(name);
    }
    ::closedir(stream);
    std::sort(names.begin(), names.end());
    return names;
}

// Empties a folder that holds no folders but these: what they hold in folders is moved up first, so
// that depth costs nothing.
void RemoveTree(const std::string& root) {
    ::chmod(root.c_str(), 0700);
    const Descriptor top(::open(root.c_str(), kOpenFolder));
    int moved = 0;
    for (auto names = NamesIn(top); !names.empty(); names = NamesIn(top)) {
        for (const std::string& name : names) {
            if (::unlinkat(top, name.c_str(), 0) == 0) continue;
            if (::fchmodat(top, name.c_str(), 0700, 0) != 0) return;
            const Descriptor folder(::openat(top, name.c_str(), kOpenFolder | O_NOFOLLOW));
            for (const std::string& inner : NamesIn(folder)) {
                if (::unlinkat(folder, inner.c_str(), 0) == 0) continue;
                if (::fchmodat(folder, inner.c_str(), 0700, 0) != 0) return;
                const std::string free = "moved up " + std::to_string(++moved);
                if (::renameat(folder, inner.c_str(), top, free.c_str()) != 0) return;
            }
            if (::unlinkat(top, name.c_str(), AT_REMOVEDIR) != 0) return;
        }
    }
    ::rmdir(root.c_str());
}

}  // namespace

TempFolder::TempFolder() {
    const char* base = std::getenv("TMPDIR");
    root_ = std::string(base && *base ? base : "/tmp") + "/varnel-test-XXXXXX";
    Check(::mkdtemp(root_.data()), root_);
}

TempFolder::~TempFolder() {
    RemoveTree(root_);
}

void TempFolder::WriteFile(std::string_view relative, std::string_view content) const {
    const Position at = Find(root_, relative, true);
    const Descriptor file(
        ::openat(at.Folder, at.Name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
    Check(file != -1, relative);
    while (!content.empty()) {
        const ssize_t written = ::write(file, content.data(), content.size());
        Check(written > 0, relative);
        content.remove_prefix(static_cast<std::size_t>(written));
    }
}

void TempFolder::MakeFolder(std::string_view relative) const {
    const Position at = Find(root_, relative, true);
    Check(::mkdirat(at.Folder, at.Name.c_str(), 0777) == 0 || errno == EEXIST, relative);
}

void TempFolder::SetTime(std::string_view relative, platform::FileTime time) const {
    const Position at = Find(root_, relative, false);
    const timespec times[] = {{0, UTIME_OMIT},
                              {time.Seconds - platform::kUnixOrigin, time.Nanoseconds}};
    Check(::utimensat(at.Folder, at.Name.c_str(), times, 0) == 0, relative);
}

void TempFolder::SetReadOnly(std::string_view relative, bool readOnly) const {
    const Position at = Find(root_, relative, false);
    Check(::fchmodat(at.Folder, at.Name.c_str(), readOnly ? 0444 : 0644, 0) == 0, relative);
}

void TempFolder::Remove(std::string_view relative) const {
    const Position at = Find(root_, relative, false);
    Check(::unlinkat(at.Folder, at.Name.c_str(), 0) == 0, relative);
}

std::optional<std::string> TempFolder::Read(std::string_view relative) const {
    const Position at = Find(root_, relative, false);
    struct stat status {};
    if (::fstatat(at.Folder, at.Name.c_str(), &status, 0) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    const Descriptor file(::openat(at.Folder, at.Name.c_str(), O_RDONLY | O_CLOEXEC));
    std::string content(static_cast<std::size_t>(status.st_size), '\0');
    for (std::size_t done = 0; done < content.size();) {
        const ssize_t got = ::read(file, content.data() + done, content.size() - done);
        Check(got > 0, relative);
        done += static_cast<std::size_t>(got);
    }
    return content;
}

bool TempFolder::Exists(std::string_view relative) const {
    const Position at = Find(root_, relative, false);
    struct stat status {};
    return ::fstatat(at.Folder, at.Name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0;
}

std::vector<std::string> TempFolder::Names(std::string_view relative) const {
    const Position at = Find(root_, relative, false);
    return NamesIn(Descriptor(::openat(at.Folder, at.Name.c_str(), kOpenFolder)));
}

}  // namespace fakes
