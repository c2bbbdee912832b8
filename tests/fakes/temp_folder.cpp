#include "fakes/temp_folder.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <ctime>
#include <filesystem>
#include <iomanip>
#include <iterator>
#include <random>
#include <sstream>
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
    fs::path root;
    do {
        root =
            fs::temp_directory_path() / ("varnel-test-" + std::to_string(std::random_device()()));
    } while (!fs::create_directory(root));
    root_ = root.string();
}

std::string TempFolder::Path(std::string_view relative) const {
    if (relative.empty()) return root_;
    std::string path = platform::WithSeparator(root_).append(relative);
    std::replace(path.begin(), path.end(), '/', platform::Separator);
    return path;
}

void TempFolder::WriteFile(std::string_view relative, std::string_view content) const {
    const std::size_t slash = relative.rfind('/');
    if (slash != relative.npos) MakeFolder(relative.substr(0, slash));
    Check(bool(Open(relative, std::ios::out) << content << std::flush), relative);
}

void TempFolder::MakeFolder(std::string_view relative) const {
    if (files.FolderExists(Path(relative))) return;
    const std::size_t slash = relative.rfind('/');
    if (slash != relative.npos) MakeFolder(relative.substr(0, slash));
    Check(files.CreateFolder(Path(relative)).Ok(), relative);
}

void TempFolder::SetReadOnly(std::string_view relative, bool readOnly) const {
    const std::string path = Path(relative);
    fs::permissions(std::u8string(path.begin(), path.end()), fs::perms(readOnly ? 0444 : 0644));
}

void TempFolder::Remove(std::string_view relative) const {
    Check(files.RemoveFile(Path(relative)).Ok(), relative);
}

std::optional<std::string> TempFolder::Read(std::string_view relative) const {
    if (!files.Look(Path(relative)).Exists()) return std::nullopt;
    std::fstream file = Open(relative, std::ios::in);
    Check(file.is_open(), relative);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

bool TempFolder::Exists(std::string_view relative) const {
    return files.FolderExists(Path(relative)) || files.Look(Path(relative)).Exists();
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

platform::FileTime Time(const char* text) {
    std::istringstream stream(text);
    std::tm fields{};
    double fraction = 0;
    stream >> std::get_time(&fields, "%Y-%m-%d %H:%M:%S");
    if (stream.peek() == '.') stream >> fraction;
    if (std::string rest; !std::getline(stream, rest) || rest != " UTC")
        throw std::invalid_argument(text);
    const std::chrono::sys_days date{std::chrono::year(fields.tm_year + 1900) /
                                     (fields.tm_mon + 1) / fields.tm_mday};
    return {date.time_since_epoch().count() * 86400LL + fields.tm_hour * 3600 + fields.tm_min * 60 +
                fields.tm_sec + platform::kUnixOrigin,
            static_cast<std::int32_t>(std::lround(fraction * 1e9))};
}

}  // namespace fakes
