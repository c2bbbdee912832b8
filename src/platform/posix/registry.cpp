// The history store on Linux: the keys are folders below $XDG_CONFIG_HOME/varnel, a key's value is
// the file "default" in it.
#include "platform/registry.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/posix/reached_path.h"

namespace platform {

namespace {

using posix::Descriptor;

constexpr std::size_t kLargestValue = 1024 * 1024;
constexpr const char* kValueFile = "/default";
constexpr const char* kTemporaryEnd = ".XXXXXX";

std::string ConfigurationFolder() {
    const char* home = std::getenv("XDG_CONFIG_HOME");
    if (home && *home) return home;
    home = std::getenv("HOME");
    return home && *home ? std::string(home) + "/.config" : std::string();
}

class FileRegistry : public Registry {
  public:
    explicit FileRegistry(std::string folder) : folder_(std::move(folder)) {}

    std::string ReadDefault(const std::string& key) override {
        std::string value;
        Found& found = seen_[key];
        const Found now = ReadFile(FolderOf(key) + kValueFile, value);
        if (found == Found::Value) found = now;
        return value;
    }

    void CreateKey(const std::string& key) override {
        const std::string folder = FolderOf(key);
        for (std::size_t slash = folder.find('/', 1); slash != std::string::npos;
             slash = folder.find('/', slash + 1))
            ::mkdir(folder.substr(0, slash).c_str(), 0700);
        ::mkdir(folder.c_str(), 0700);
    }

    void WriteDefault(const std::string& key, const std::string& value) override {
        // It reads as empty, but whoever takes the key for free would destroy what it holds.
        Found& found = seen_[key];
        if (found == Found::Unreadable) return;
        const std::string target = FolderOf(key) + kValueFile;
        std::string temporary = target + kTemporaryEnd;
        {
            const Descriptor file(::mkostemp(temporary.data(), O_CLOEXEC));
            if (!file.IsOpen()) return;
            // Flushed before it is put in place, so that a power cut leaves no empty slot: that
            // would end the list.
            if (::write(file.Get(), value.data(), value.size()) !=
                    static_cast<ssize_t>(value.size()) ||
                ::fdatasync(file.Get()) != 0) {
                ::unlink(temporary.c_str());
                return;
            }
        }
        const bool placed = found == Found::Nothing ? PutWhereNothingIs(temporary, target)
                                                    : PutInPlace(temporary, target);
        if (placed) found = Found::Value;
    }

    void DeleteKey(const std::string& key) override {
        const std::string folder = FolderOf(key);
        std::vector<std::string> values;
        if (HasSubkeys(folder, values)) return;
        for (const std::string& value : values) ::unlink(value.c_str());
        ::rmdir(folder.c_str());
    }

  private:
    // What was there when a key was read. Where it was nothing, or unreadable, that stays until
    // something is written: it may have decided what is to be written.
    enum class Found { Value, Nothing, Unreadable };

    static bool PutInPlace(const std::string& temporary, const std::string& target) {
        if (::rename(temporary.c_str(), target.c_str()) == 0) return true;
        ::unlink(temporary.c_str());
        return false;
    }

    // Another program may have taken the place meanwhile: then it keeps it.
    static bool PutWhereNothingIs(const std::string& temporary, const std::string& target) {
        const bool linked = ::link(temporary.c_str(), target.c_str()) == 0;
        if (!linked && errno != EEXIST) return PutInPlace(temporary, target);  // it has no links
        ::unlink(temporary.c_str());
        return linked;
    }

    static Found ReadFile(const std::string& path, std::string& value) {
        const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
        if (!file.IsOpen())
            return errno == ENOENT || errno == ENOTDIR ? Found::Nothing : Found::Unreadable;
        struct stat info;
        if (::fstat(file.Get(), &info) != 0) return Found::Unreadable;
        if (!S_ISREG(info.st_mode)) return Found::Value;
        std::string content(
            std::min<std::size_t>(static_cast<std::size_t>(info.st_size), kLargestValue), '\0');
        std::size_t size = 0;
        while (size < content.size()) {
            const ssize_t got = ::read(file.Get(), content.data() + size, content.size() - size);
            if (got < 0 && errno == EINTR) continue;
            if (got <= 0) return Found::Unreadable;
            size += static_cast<std::size_t>(got);
        }
        value = std::move(content);
        return Found::Value;
    }

    // Otherwise gives the files in the folder that are its value, or what was left of writing it.
    static bool HasSubkeys(const std::string& folder, std::vector<std::string>& values) {
        const std::unique_ptr<DIR, int (*)(DIR*)> opened(::opendir(folder.c_str()), ::closedir);
        while (const dirent* entry = opened ? ::readdir(opened.get()) : nullptr) {
            const std::string path = folder + '/' + entry->d_name;
            const std::string_view name(entry->d_name);
            if (entry->d_type == DT_DIR && name != "." && name != "..") return true;
            if (path.starts_with(folder + kValueFile)) values.push_back(path);
        }
        return false;
    }

    std::string FolderOf(const std::string& key) const {
        std::string path = key;
        std::replace(path.begin(), path.end(), '\\', '/');
        return folder_ + "/" + path;
    }

    std::string folder_;
    std::map<std::string, Found> seen_;  // by key
};

}  // namespace

std::unique_ptr<Registry> OpenSystemRegistry() {
    const std::string folder = ConfigurationFolder();
    // Without a home there is nothing to remember: below a file no folder can be made.
    return std::make_unique<FileRegistry>(folder.empty() ? "/dev/null" : folder + "/varnel");
}

}  // namespace platform
