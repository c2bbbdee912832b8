// The floor that a comparison is measured against: what any program must do that looks at every
// file of two folder trees.
//
//     bare-pass FOLDER1 FOLDER2
//
// Lists both trees one after the other on one thread and reads the size and the time of every
// regular file once, relative to its open folder. It pairs nothing, keeps nothing and follows no
// links. One line comes out: files, folders, bytes and a checksum of the sizes and times that does
// not depend on the order of the listings. Exit status 2 when a folder or a file cannot be read.

#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

struct Totals {
    std::uint64_t Files = 0;
    std::uint64_t Folders = 0;
    std::uint64_t Bytes = 0;
    std::uint64_t Checksum = 0;
    bool Failed = false;
};

struct FolderCloser {
    void operator()(DIR* folder) const { ::closedir(folder); }
};
using OpenFolder = std::unique_ptr<DIR, FolderCloser>;

OpenFolder OpenAt(int parent, const char* name) {
    const int descriptor = ::openat(parent, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return nullptr;
    OpenFolder folder(::fdopendir(descriptor));
    if (!folder) ::close(descriptor);
    return folder;
}

bool IsDotName(const char* name) {
    return std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0;
}

void Fail(const char* name, Totals& totals) {
    std::perror(name);
    totals.Failed = true;
}

void AddFile(const struct stat& file, Totals& totals) {
    const auto size = static_cast<std::uint64_t>(file.st_size);
    const auto time = static_cast<std::uint64_t>(file.st_mtim.tv_sec) * 1'000'000'000 +
                      static_cast<std::uint64_t>(file.st_mtim.tv_nsec);
    ++totals.Files;
    totals.Bytes += size;
    totals.Checksum += (time ^ (size << 20)) * 0x9E3779B97F4A7C15;
}

void ListFolder(int parent, const char* name, Totals& totals) {
    const OpenFolder folder = OpenAt(parent, name);
    if (!folder) return Fail(name, totals);
    ++totals.Folders;
    const int descriptor = ::dirfd(folder.get());
    while (const dirent* entry = ::readdir(folder.get())) {
        if (entry->d_type == DT_DIR) {
            if (!IsDotName(entry->d_name)) ListFolder(descriptor, entry->d_name, totals);
            continue;
        }
        struct stat file;
        if (::fstatat(descriptor, entry->d_name, &file, AT_SYMLINK_NOFOLLOW) != 0) {
            Fail(entry->d_name, totals);
        } else if (S_ISREG(file.st_mode)) {
            AddFile(file, totals);
        } else if (S_ISDIR(file.st_mode) && !IsDotName(entry->d_name)) {
            // The listing of some file systems does not tell folders from files.
            ListFolder(descriptor, entry->d_name, totals);
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: bare-pass FOLDER1 FOLDER2\n", stderr);
        return 2;
    }
    Totals totals;
    ListFolder(AT_FDCWD, argv[1], totals);
    ListFolder(AT_FDCWD, argv[2], totals);
    std::printf("%" PRIu64 " files %" PRIu64 " folders %" PRIu64 " bytes %016" PRIx64 "\n",
                totals.Files, totals.Folders, totals.Bytes, totals.Checksum);
    return totals.Failed ? 2 : 0;
}
