#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>

#include "fakes/temp_folder.h"
#include "platform/posix/reached_path.h"

namespace fakes {

using platform::posix::ReachedFile;

TempFolder::~TempFolder() {
    const std::string quoted = '\'' + root_ + '\'';
    const std::string remove = "chmod -R u+rwx " + quoted + " && rm -rf " + quoted;  // at any depth
    if (std::system(remove.c_str()) != 0) std::perror(root_.c_str());
}

void TempFolder::SetTime(std::string_view relative, platform::FileTime time) const {
    const ReachedFile file(Path(relative));
    const timespec times[] = {{0, UTIME_OMIT},
                              {time.Seconds - platform::kUnixOrigin, time.Nanoseconds}};
    if (::utimensat(file.Folder(), file.Name(), times, 0) != 0)
        throw std::system_error(errno, std::generic_category(), file.Name());
}

std::fstream TempFolder::Open(std::string_view relative, std::ios::openmode mode) const {
    const ReachedFile file(Path(relative));
    return std::fstream("/proc/self/fd/" + std::to_string(file.Folder()) + '/' + file.Name(),
                        mode | std::ios::binary);
}

}  // namespace fakes
