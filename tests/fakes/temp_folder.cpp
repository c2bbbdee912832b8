#include "fakes/temp_folder.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <random>
#include <stdexcept>

#include "platform/files.h"
#include "platform/paths.h"

namespace fakes {

namespace fs = std::filesystem;

namespace {

platform::FileSystem& files = platform::SystemFiles();

void Check(bool done, std::string_view what) {
    if (!done) throw std::runtime_error("cannot prepare " + std::string(what));
}

}  // namespace

TempFolder::TempFolder() {
    const std::string name = "varnel-test-" + std::to_string(std::random_device()());
    const fs::path root = fs::temp_directory_path() / name;
    Check(fs::create_directory(root), name);
    root_ = root.string();
}

std::string TempFolder::Path(std::string_view relative) const {
    if (relative.empty()) return root_;
    std::string path = platform::WithSeparator(root_).append(relative);
    std::replace(path.begin(), path.end(), '/', platform::Separator);
    return path;
}

void TempFolder::WriteFile(std::string_view relative, std::string_view content,
                           std::optional<platform::FileTime> time) const {
    const std::size_t slash = relative.rfind('/');
    if (slash != relative.npos) MakeFolder(relative.substr(0, slash));
    Check(bool(Open(relative, std::ios::out) << content << std::flush), relative);
    if (time) SetTime(relative, *time);
}

void TempFolder::MakeFolder(std::string_view relative) const {
    if (files.FolderExists(Path(relative))) return;
    const std::size_t slash = relative.rfind('/');
    if (slash != relative.npos) MakeFolder(relative.substr(0, slash));
    Check(files.CreateFolder(Path(relative)).Ok(), relative);
}

std::optional<std::string> TempFolder::Read(std::string_view relative) const {
    if (!files.Look(Path(relative)).Exists()) return std::nullopt;
    std::fstream file = Open(relative, std::ios::in);
    Check(file.is_open(), relative);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

std::vector<std::string> TempFolder::Names(std::string_view relative) const {
    platform::Outcome outcome;
    platform::TextArena arena;
    platform::Listing listing;
    if (const auto folder = files.OpenFolder(Path(relative), outcome)) folder->List(arena, listing);
    std::vector<std::string> names;
    for (const platform::FolderEntry& entry : listing.Entries) names.emplace_back(entry.Text());
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace fakes
