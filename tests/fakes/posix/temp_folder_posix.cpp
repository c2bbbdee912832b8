#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "fakes/temp_folder.h"
#include "platform/posix/reached_path.h"

namespace fakes {

namespace fs = std::filesystem;

namespace {

void Check(bool done, std::string_view what) {
    if (!done) throw std::system_error(errno, std::generic_category(), std::string(what));
}

// Reaches `relative` through its opened folder. Going down a name at a time, no path is too long.
class Reached {
  public:
    Reached(const std::string& root, std::string_view relative, bool makeFolders = false)
        : folder_(::open(root.c_str(), O_PATH | O_CLOEXEC)) {
        for (std::size_t end; (end = relative.find('/')) != relative.npos;) {
            const std::string name(relative.substr(0, end));
            relative.remove_prefix(end + 1);
            if (makeFolders) ::mkdirat(folder_.Get(), name.c_str(), 0777);
            folder_ = platform::posix::Descriptor(
                ::openat(folder_.Get(), name.c_str(), O_PATH | O_CLOEXEC));
        }
        path_ = "/proc/self/fd/" + std::to_string(folder_.Get()) + '/' + std::string(relative);
    }
    const char* Path() const { return path_.c_str(); }

  private:
    platform::posix::Descriptor folder_;
    std::string path_;
};

}  // namespace

TempFolder::TempFolder() {
    const char* base = std::getenv("TMPDIR");
    root_ = std::string(base && *base ? base : "/tmp") + "/varnel-test-XXXXXX";
    Check(::mkdtemp(root_.data()), root_);
}

TempFolder::~TempFolder() {
    const std::string remove = "rm -rf '" + root_ + "'";  // at any depth
    const std::string allow = "chmod -R u+rwx '" + root_ + "'";
    if (std::system((remove + " 2>/dev/null || { " + allow + "; " + remove + "; }").c_str()) != 0)
        std::perror(root_.c_str());
}

void TempFolder::WriteFile(std::string_view relative, std::string_view content) const {
    std::ofstream file(Reached(root_, relative, true).Path(), std::ios::binary);
    Check(bool(file << content << std::flush), relative);
}

void TempFolder::MakeFolder(std::string_view relative) const {
    Check(::mkdir(Reached(root_, relative, true).Path(), 0777) == 0 || errno == EEXIST, relative);
}

void TempFolder::SetTime(std::string_view relative, platform::FileTime time) const {
    const timespec times[] = {{0, UTIME_OMIT},
                              {time.Seconds - platform::kUnixOrigin, time.Nanoseconds}};
    Check(::utimensat(AT_FDCWD, Reached(root_, relative).Path(), times, 0) == 0, relative);
}

void TempFolder::SetReadOnly(std::string_view relative, bool readOnly) const {
    Check(::chmod(Reached(root_, relative).Path(), readOnly ? 0444 : 0644) == 0, relative);
}

void TempFolder::Remove(std::string_view relative) const {
    Check(::unlink(Reached(root_, relative).Path()) == 0, relative);
}

std::optional<std::string> TempFolder::Read(std::string_view relative) const {
    const Reached file(root_, relative);
    std::error_code none;
    if (!fs::is_regular_file(file.Path(), none)) return std::nullopt;
    std::ifstream stream(file.Path(), std::ios::binary);
    Check(stream.is_open(), relative);
    return std::string(std::istreambuf_iterator<char>(stream), {});
}

bool TempFolder::Exists(std::string_view relative) const {
    std::error_code none;
    return fs::symlink_status(Reached(root_, relative).Path(), none).type() !=
           fs::file_type::not_found;
}

std::vector<std::string> TempFolder::Names(std::string_view relative) const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(Reached(root_, relative).Path()))
        names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace fakes
