#include "platform/posix/copy_content.h"

#include <algorithm>
#include <cerrno>
#include <vector>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace platform::posix {

namespace {

constexpr off_t kSmall = 128 * 1024;       // one read and one write beat asking for more
constexpr off_t kStep = 16 * 1024 * 1024;  // between two calls of whileCopying

char* Buffer() {
    static std::vector<char> buffer(static_cast<std::size_t>(kSmall));
    return buffer.data();
}

bool WriteFully(int target, const char* bytes, ssize_t count, off_t at) {
    while (count > 0) {
        const ssize_t written = ::pwrite(target, bytes, static_cast<std::size_t>(count), at);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes += written;
        count -= written;
        at += written;
    }
    return true;
}

// Copies up to `count` bytes; the number copied, 0 at the end of the source, -1 on failure.
ssize_t CopyThroughBuffer(int source, int target, off_t at, off_t count) {
    const auto size = static_cast<std::size_t>(std::min(count, kSmall));
    ssize_t read;
    do {
        read = ::pread(source, Buffer(), size, at);
    } while (read < 0 && errno == EINTR);
    return read <= 0 || WriteFully(target, Buffer(), read, at) ? read : -1;
}

// Inside the kernel where both files' systems allow it.
ssize_t CopySome(int source, int target, off_t at, off_t count, bool& inKernel) {
    if (inKernel) {
        off_t from = at;
        off_t to = at;
        const ssize_t copied =
            ::copy_file_range(source, &from, target, &to, static_cast<std::size_t>(count), 0);
        if (copied > 0) return copied;
        // Nothing may mean the end, or a system that pretends.
        if (copied < 0 && (errno == EIO || errno == ENOSPC || errno == EDQUOT)) return -1;
        inKernel = false;
    }
    return CopyThroughBuffer(source, target, at, count);
}

// Has the disk begin with what was written, and waits for nothing. Left alone, some file systems
// give content its place on the disk half a minute after its name: in between, a power cut leaves
// an empty file that looks finished. A name never overtakes content that has its place.
void StartWriting(int target, off_t at, ssize_t count) {
    ::sync_file_range(target, at, count, SYNC_FILE_RANGE_WRITE);
}

bool CopyRange(int source, int target, off_t begin, off_t end, bool& inKernel,
               const std::function<void()>& whileCopying) {
    while (begin < end) {
        const ssize_t copied =
            CopySome(source, target, begin, std::min(end - begin, kStep), inKernel);
        if (copied < 0) return false;
        if (copied == 0) {  // shorter than it was
            errno = EBUSY;
            return false;
        }
        StartWriting(target, begin, copied);
        begin += copied;
        if (whileCopying) whileCopying();
    }
    return true;
}

// Skips the holes of a sparse file.
bool CopyData(int source, int target, off_t size, const std::function<void()>& whileCopying) {
    bool inKernel = true;
    off_t at = 0;
    while (at < size) {
        const off_t data = ::lseek(source, at, SEEK_DATA);
        if (data < 0 && errno == ENXIO) break;
        off_t end = data < 0 ? -1 : ::lseek(source, data, SEEK_HOLE);
        const bool knowsHoles = end > data && data >= 0;
        const off_t begin = knowsHoles ? data : at;
        end = knowsHoles ? std::min(end, size) : size;
        if (begin >= size) break;
        if (!CopyRange(source, target, begin, end, inKernel, whileCopying)) return false;
        at = end;
    }
    return ::ftruncate(target, size) == 0;
}

}  // namespace

bool CopyContent(int source, int target, const struct stat& before,
                 const std::function<void()>& whileCopying) {
    const off_t size = before.st_size;
    const bool sparse = before.st_blocks * 512 < size;
    bool inKernel = false;
    if (size <= kSmall && !sparse) return CopyRange(source, target, 0, size, inKernel, {});
    if (::ioctl(target, FICLONE, source) == 0) return true;
    if (sparse) return CopyData(source, target, size, whileCopying);
    inKernel = true;
    return CopyRange(source, target, 0, size, inKernel, whileCopying);
}

}  // namespace platform::posix
