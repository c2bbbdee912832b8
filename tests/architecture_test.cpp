// Holds the shape of the sources: which file may include which, where the system may be asked for.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

using Starts = std::vector<std::string_view>;  // of paths below src/

// From the lowest floor up. A file includes files of lower floors only, besides its own header. A
// folder stands for its own files, not for those of its folders.
const std::vector<Starts> kFloors = {
    {"platform/"},
    {"platform/posix/", "platform/win32/", "platform/headless/", "rules/file_filter.",
     "compare/compare_table."},
    {"compare/file_pair.", "compare/scanned_tree.", "sync/file_operations.", "sync/sync_refresh."},
    {"compare/pair_classification.", "compare/folder_scanner.", "sync/transfer_workers.",
     "grid/grid_page."},
    {"compare/compare_command.", "grid/grid_views.", "grid/category_labels.",
     "rules/row_direction.", "rules/filter_dialog.", "reports/export_lists."},
    {"sync/sync_commands."},
    {"app/profiles.", "app/companion_jobs.", "app/deferred_registry.", "app/dialogs_until_closing.",
     "app/cli_options."},
    {"app/form_main.h"},
    {"app/layout.", "app/menus.", "app/cli_rows."},
    {"app/form_main.cpp", "app/cli_session."},
    {"app/cli."},
    {"app/main_"},
};

bool StartsWithAny(std::string_view text, const Starts& starts) {
    return std::any_of(starts.begin(), starts.end(),
                       [text](std::string_view start) { return text.starts_with(start); });
}

constexpr int kNoFloor = -1;

int FloorOf(std::string_view path) {
    for (std::size_t floor = 0; floor < kFloors.size(); ++floor)
        for (const std::string_view start : kFloors[floor])
            if (path.starts_with(start) && path.find('/', start.size()) == path.npos)
                return static_cast<int>(floor);
    return kNoFloor;
}

// A directive is a line without its blanks: "#include<windows.h>".
bool AsksForSystem(std::string_view directive) {
    const Starts names = {"WIN32", "WIN64", "linux",  "unix",
                          "APPLE", "MINGW", "CYGWIN", "_MSC_VER"};
    return StartsWithAny(directive, {"#if", "#elif", "#endif"}) &&
           std::any_of(names.begin(), names.end(), [directive](std::string_view name) {
               return directive.find(name) != directive.npos;
           });
}

bool IncludesWindows(std::string_view directive) {
    return StartsWithAny(directive, {"#include<windows.h>", "#include<Windows.h>"});
}

bool IncludesPosix(std::string_view directive) {
    return StartsWithAny(
        directive, {"#include<sys/", "#include<linux/", "#include<unistd.h>", "#include<fcntl.h>",
                    "#include<dirent.h>", "#include<signal.h>", "#include<pthread.h>"});
}

// What only some files may do.
const struct {
    std::string_view What;
    bool (*Uses)(std::string_view directive);
    Starts Allowed;
} kPrivileges[] = {
    {"asks which system it is compiled for", AsksForSystem, {"platform/", "app/main_"}},
    {"includes <windows.h>", IncludesWindows, {"platform/win32/", "app/main_window.cpp"}},
    {"includes a header of POSIX", IncludesPosix, {"platform/posix/", "app/main_"}},
};

std::string_view FolderOf(std::string_view path) {
    return path.substr(0, path.rfind('/') + 1);
}

bool MayInclude(std::string_view from, std::string_view to) {
    const std::string_view fromFolder = FolderOf(from), toFolder = FolderOf(to);
    if (from.substr(0, from.rfind('.')) == to.substr(0, to.rfind('.'))) return true;
    if (fromFolder == "platform/") return toFolder == "platform/";
    if (fromFolder.starts_with("platform/"))
        return toFolder == fromFolder || toFolder == "platform/";
    if (toFolder == "app/" && fromFolder != "app/") return false;
    if (fromFolder == "compare/" &&
        !StartsWithAny(to, {"compare/", "platform/", "rules/file_filter.h"}))
        return false;
    // One system's own files are known to the main programs alone.
    if (StartsWithAny(to, {"platform/posix/", "platform/win32/"}) && !from.starts_with("app/main_"))
        return false;
    if (toFolder == "platform/headless/" && fromFolder != "app/") return false;
    return FloorOf(to) != kNoFloor && FloorOf(to) < FloorOf(from);
}

using Directives = std::vector<std::string>;

// By their paths below src/, with "/".
std::map<std::string, Directives> ReadSources() {
    const fs::path root = fs::path(VARNEL_SOURCE_DIR) / "src";
    std::map<std::string, Directives> sources;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root)) {
        if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
        Directives& directives = sources[entry.path().lexically_relative(root).generic_string()];
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line);) {
            std::erase_if(line, [](char c) { return c == ' ' || c == '\t'; });
            if (line.starts_with('#')) directives.push_back(line);
        }
    }
    return sources;
}

const std::map<std::string, Directives> kSources = ReadSources();

Directives IncludesOf(const std::string& path) {
    constexpr std::string_view kInclude = "#include\"";
    Directives includes;
    for (const std::string& directive : kSources.at(path))
        if (directive.starts_with(kInclude))
            includes.push_back(directive.substr(
                kInclude.size(), directive.find('"', kInclude.size()) - kInclude.size()));
    return includes;
}

TEST(Architecture, AFileHasAFloorAndIncludesLowerFloorsAlone) {
    ASSERT_GT(kSources.size(), 80u);
    for (const auto& [path, directives] : kSources) {
        EXPECT_NE(FloorOf(path), kNoFloor) << path;
        for (const std::string& include : IncludesOf(path)) {
            EXPECT_TRUE(MayInclude(path, include)) << path << " includes " << include;
            EXPECT_TRUE(kSources.contains(include)) << path << ": no file below src/: " << include;
        }
    }
}

// A platform implementation's files may include each other, but not in circles.
TEST(Architecture, NoHeaderIncludesItselfByAnyWay) {
    for (const auto& [path, directives] : kSources) {
        if (!path.ends_with(".h")) continue;
        Directives reached = IncludesOf(path);
        for (std::size_t i = 0; i < reached.size(); ++i) {
            EXPECT_NE(reached[i], path);
            for (const std::string& next : IncludesOf(reached[i]))
                if (std::find(reached.begin(), reached.end(), next) == reached.end())
                    reached.push_back(next);
        }
    }
}

TEST(Architecture, WhatIsOfOneSystemStandsInItsPlace) {
    for (const auto& privilege : kPrivileges)
        for (const auto& [path, directives] : kSources)
            for (const std::string& directive : directives)
                EXPECT_TRUE(!privilege.Uses(directive) || StartsWithAny(path, privilege.Allowed))
                    << path << ' ' << privilege.What << ": " << directive;
}

}  // namespace
