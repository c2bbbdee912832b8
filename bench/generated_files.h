// Two folder trees in memory, "/1" and "/2", that cost next to nothing to ask: what is measured on
// them is the program.
//
// Files stand by the dozens in folders of folders, as make-trees lays them out; what a name holds
// is computed from the number in it.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/files.h"

namespace bench {

struct Shape {
    std::int64_t Pairs = 0;  // relative paths, those that exist on one side only included
    std::int64_t FilesPerFolder = 31;
    bool Reversed = false;  // the second tree lists its names from the last to the first
    bool AllNew = false;    // only the first tree has files; else one pair in ten is different
};

class GeneratedFiles : public platform::FileSystem {
  public:
    explicit GeneratedFiles(const Shape& shape);

    // Takes every copy back.
    void Reset();
    std::int64_t Copies = 0;

    std::unique_ptr<platform::Folder> OpenFolder(const std::string& path,
                                                 platform::Outcome& outcome) override;
    bool FolderExists(const std::string&) override { return true; }
    platform::FileStatus Look(const std::string& path) override;
    platform::Outcome CreateFolder(const std::string& path) override;
    platform::Outcome CopyOver(const std::string& from, const std::string& to,
                               const std::function<void()>& whileCopying) override;
    platform::Outcome RemoveFile(const std::string& path) override;
    void RemoveLeftover(const std::string&) override {}

  private:
    class OpenedFolder;
    using Name = std::array<char, 32>;

    std::int64_t FolderCount() const;
    platform::FileStatus StatusOf(std::int64_t file, int side) const;

    const Shape shape_;
    std::vector<Name> names_;
    std::vector<Name> folderNames_;
    std::vector<bool> copied_;
};

}  // namespace bench
