#include "generated_files.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <string_view>

namespace bench {

using platform::FileStatus;
using platform::Outcome;

namespace {

constexpr std::int64_t kFanOut = 16;
constexpr std::int64_t kTop = -1;  // the number of the folder above all others

// The number behind the last "_"; kTop when there is none.
std::int64_t NumberIn(std::string_view path) {
    const std::size_t mark = path.rfind('_');
    if (mark == std::string_view::npos) return kTop;
    std::int64_t number = kTop;
    std::from_chars(path.data() + mark + 1, path.data() + path.size(), number);
    return number;
}

int SideOf(std::string_view path) {
    return path[1] - '0';
}

}  // namespace

class GeneratedFiles::OpenedFolder : public platform::Folder {
  public:
    OpenedFolder(const GeneratedFiles& files, int side, std::int64_t number)
        : files_(files), side_(side), number_(number) {}

    Outcome List(platform::TextArena& names, platform::Listing& listing) override {
        const auto add = [&](const Name& name, platform::EntryKind kind) {
            const std::string_view kept = names.Keep(name.data());
            listing.Entries.push_back({kept.data(), static_cast<std::uint16_t>(kept.size()), kind});
        };
        const std::int64_t folders = files_.FolderCount();
        const std::int64_t firstInside = (number_ + 1) * kFanOut;
        for (std::int64_t i = firstInside; i < std::min(firstInside + kFanOut, folders); ++i)
            add(files_.folderNames_[static_cast<std::size_t>(i)], platform::EntryKind::Folder);
        if (number_ == kTop) return {};
        const std::int64_t begin = files_.shape_.Pairs * number_ / folders;
        const std::int64_t end = files_.shape_.Pairs * (number_ + 1) / folders;
        for (std::int64_t i = begin; i < end; ++i) {
            const bool backwards = side_ == 2 && files_.shape_.Reversed;
            const std::int64_t file = backwards ? begin + end - 1 - i : i;
            if (files_.StatusOf(file, side_).Exists())
                add(files_.names_[static_cast<std::size_t>(file)], platform::EntryKind::File);
        }
        return {};
    }
    FileStatus Look(const char* name) override { return files_.StatusOf(NumberIn(name), side_); }
    bool IsFolder(const char*) override { return false; }
    std::unique_ptr<Folder> Open(const char* relativePath, Outcome&) override {
        return std::make_unique<OpenedFolder>(files_, side_, NumberIn(relativePath));
    }
    std::optional<platform::FolderIdentity> Identity() override {
        return platform::FolderIdentity{static_cast<std::uint64_t>(side_),
                                        static_cast<std::uint64_t>(number_ + 1)};
    }

  private:
    const GeneratedFiles& files_;
    const int side_;
    const std::int64_t number_;
};

GeneratedFiles::GeneratedFiles(const Shape& shape)
    : shape_(shape),
      names_(static_cast<std::size_t>(shape.Pairs)),
      folderNames_(static_cast<std::size_t>(FolderCount())),
      copied_(names_.size()) {
    const auto fill = [](std::vector<Name>& names, const char* format) {
        for (std::size_t i = 0; i < names.size(); ++i)
            std::snprintf(names[i].data(), names[i].size(), format, i);
    };
    fill(names_, "file_%07zu.txt");
    fill(folderNames_, "folder_%zu");
}

void GeneratedFiles::Reset() {
    Copies = 0;
    copied_.assign(copied_.size(), false);
}

std::int64_t GeneratedFiles::FolderCount() const {
    return std::max<std::int64_t>(1, shape_.Pairs / shape_.FilesPerFolder);
}

FileStatus GeneratedFiles::StatusOf(std::int64_t file, int side) const {
    constexpr std::int64_t kFirstTime = platform::kUnixOrigin + 1'704'067'200;  // 2024-01-01
    constexpr std::int64_t kYear = 365LL * 86'400;
    const bool same = copied_[static_cast<std::size_t>(file)] || (!shape_.AllNew && file % 10 != 0);
    // In turn: new in the first tree, new in the second, newer in one of them.
    const std::int64_t kind = shape_.AllNew ? 0 : file / 10 % 3;
    if (!same && kind < 2 && side != kind + 1) return {};
    FileStatus status;
    status.Time.Seconds = kFirstTime + file * 7919 % kYear;
    if (!same && kind == 2 && side == 1 + file / 30 % 2) status.Time.Seconds += 3600;
    status.Time.Nanoseconds = 123'456'789;
    status.Size = 20 + file % 180;
    return status;
}

std::unique_ptr<platform::Folder> GeneratedFiles::OpenFolder(const std::string& path, Outcome&) {
    return std::make_unique<OpenedFolder>(*this, SideOf(path), NumberIn(path));
}

FileStatus GeneratedFiles::Look(const std::string& path) {
    return StatusOf(NumberIn(path), SideOf(path));
}

Outcome GeneratedFiles::CreateFolder(const std::string& path) {
    return {"create folder", path, "it exists"};
}

Outcome GeneratedFiles::CopyOver(const std::string& from, const std::string&,
                                 const std::function<void()>&) {
    ++Copies;
    copied_[static_cast<std::size_t>(NumberIn(from))] = true;
    return {};
}

Outcome GeneratedFiles::RemoveFile(const std::string& path) {
    return {"remove file", path, "not wanted here"};
}

}  // namespace bench
