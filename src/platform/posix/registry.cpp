// The history store on Linux: the keys are folders below $XDG_CONFIG_HOME/varnel, a key's value is
// the file "default" in it.
#include "platform/registry.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>

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
        const Descriptor file(
            ::open((FolderOf(key) + kValueFile).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
        struct stat info;
        if (!file.IsOpen() || ::fstat(file.Get(), &info) != 0 || !S_ISREG(info.st_mode)) return {};
        std::string value(
            std::min<std::size_t>(static_cast<std::size_t>(info.st_size), kLargestValue), '\0');
        const ssize_t size = ::read(file.Get(), value.data(), value.size());
        value.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
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
        const std::string target = FolderOf(key) + kValueFile;
        const std::string temporary = target + "." + std::to_string(::getpid());
        {
            const Descriptor file(::open(
                temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, 0600));
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
        if (::rename(temporary.c_str(), target.c_str()) != 0) ::unlink(temporary.c_str());
    }

    void DeleteKey(const std::string& key) override {
        const std::string folder = FolderOf(key);
        if (HasSubkeys(folder)) return;
        ::unlink((folder + kValueFile).c_str());
        ::rmdir(folder.c_str());
    }

  private:
    static bool HasSubkeys(const std::string& folder) {
        const std::unique_ptr<DIR, int (*)(DIR*)> opened(::opendir(folder.c_str()), ::closedir);
        while (const dirent* entry = opened ? ::readdir(opened.get()) : nullptr) {
            const std::string_view name(entry->d_name);
            if (entry->d_type == DT_DIR && name != "." && name != "..") return true;
        }
        return false;
    }

    std::string FolderOf(const std::string& key) const {
        std::string path = key;
        std::replace(path.begin(), path.end(), '\\', '/');
        return folder_ + "/" + path;
    }

    std::string folder_;
};

}  // namespace

std::unique_ptr<Registry> OpenSystemRegistry() {
    const std::string folder = ConfigurationFolder();
    // Without a home there is nothing to remember: below a file no folder can be made.
    return std::make_unique<FileRegistry>(folder.empty() ? "/dev/null" : folder + "/varnel");
}

}  // namespace platform
