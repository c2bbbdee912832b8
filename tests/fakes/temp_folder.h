// A folder of real files for one test, below the system's temporary folder.
//
// Relative paths are written with "/" on every system. A name may hold what the system allows, and
// paths may be of any length. What a test cannot prepare is thrown as an exception.
#pragma once

#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_time.h"

namespace fakes {

class TempFolder {
  public:
    TempFolder();
    ~TempFolder();  // removes everything in it, read-only or not
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    // The full path, as the program is given it. The folder's own without `relative`.
    std::string Path(std::string_view relative = {}) const;

    // Missing folders above are made; an existing file is overwritten.
    void WriteFile(std::string_view relative, std::string_view content,
                   std::optional<platform::FileTime> time = {}) const;
    void MakeFolder(std::string_view relative) const;

    // The modification time of a file.
    void SetTime(std::string_view relative, platform::FileTime time) const;

    // A file's bytes; nothing when it is missing or a folder.
    std::optional<std::string> Read(std::string_view relative) const;

    // What stands in a folder, sorted.
    std::vector<std::string> Names(std::string_view relative = {}) const;

  private:
    std::fstream Open(std::string_view relative, std::ios::openmode mode) const;

    std::string root_;
};

// A moment: seconds from 1970, UTC.
constexpr platform::FileTime At(std::int64_t seconds, std::int32_t nanoseconds = 0) {
    return {seconds + platform::kUnixOrigin, nanoseconds};
}

}  // namespace fakes
