// Holds the shape of the sources: which file may include which, where the system may be asked for.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

struct Floor {
    int Height;
    std::string_view Start;  // of the file's path below src/, without its ending
};

// The longest fitting entry counts. A file includes files of lower floors only, besides its own
// header.
constexpr Floor kFloors[] = {
    {1, "platform/"},
    {2, "platform/posix/"},
    {2, "platform/win32/"},
    {2, "platform/headless/"},
    {2, "rules/file_filter"},
    {2, "compare/compare_table"},
    {3, "compare/file_pair"},
    {3, "compare/scanned_tree"},
    {3, "sync/file_operations"},
    {4, "compare/pair_classification"},
    {4, "compare/folder_scanner"},
    {4, "sync/transfer_workers"},
    {4, "grid/grid_page"},
    {5, "compare/compare_command"},
    {5, "grid/grid_views"},
    {5, "grid/category_labels"},
    {5, "rules/row_direction"},
    {5, "rules/filter_dialog"},
    {5, "reports/export_lists"},
    {5, "sync/sync_refresh"},
    {6, "sync/sync_commands"},
    {7, "app/profiles"},
    {7, "app/companion_jobs"},
    {7, "app/deferred_registry"},
    {7, "app/cli_options"},
    {8, "app/form_main.h"},
    {9, "app/layout"},
    {9, "app/menus"},
    {9, "app/cli_rows"},
    {10, "app/form_main.cpp"},
    {10, "app/cli_session"},
    {11, "app/cli."},
    {12, "app/main_"},
};

// A line "# include <x>": its first word and the rest.
struct Directive {
    std::string Word;
    std::string Rest;

    bool IsInclude(char open) const { return Word == "include" && Rest.starts_with(open); }
    // "x" of "<x>" or of its like.
    std::string Included() const { return Rest.substr(1, Rest.find_first_of(">\"", 1) - 1); }
};

bool AsksForSystem(const Directive& directive) {
    if (directive.Word.find("if") == std::string::npos) return false;
    const char* const names[] = {"WIN32", "WIN64", "linux",  "unix",
                                 "APPLE", "MINGW", "CYGWIN", "_MSC_VER"};
    return std::any_of(std::begin(names), std::end(names), [&](const char* name) {
        return directive.Rest.find(name) != std::string::npos;
    });
}

bool IncludesWindows(const Directive& directive) {
    return directive.IsInclude('<') &&
           (directive.Included() == "windows.h" || directive.Included() == "Windows.h");
}

bool IncludesPosix(const Directive& directive) {
    if (!directive.IsInclude('<')) return false;
    const std::string header = directive.Included();
    const char* const headers[] = {"unistd.h", "fcntl.h", "dirent.h", "signal.h", "pthread.h"};
    return header.starts_with("sys/") || header.starts_with("linux/") ||
           std::find(std::begin(headers), std::end(headers), header) != std::end(headers);
}

// What only some files may do.
struct Privilege {
    std::string_view What;
    bool (*Uses)(const Directive&);
    std::vector<std::string_view> Starts;
};

const Privilege kPrivileges[] = {
    {"asks which system it is compiled for", AsksForSystem, {"platform/", "app/main_"}},
    {"includes <windows.h>", IncludesWindows, {"platform/win32/", "app/main_window.cpp"}},
    {"includes a header of POSIX", IncludesPosix, {"platform/posix/", "app/main_"}},
};

bool StartsWithAny(std::string_view path, const std::vector<std::string_view>& starts) {
    return std::any_of(starts.begin(), starts.end(),
                       [path](std::string_view start) { return path.starts_with(start); });
}

std::optional<int> FloorOf(std::string_view path) {
    const Floor* found = nullptr;
    for (const Floor& floor : kFloors) {
        const std::string_view rest = path.substr(std::min(floor.Start.size(), path.size()));
        // A folder's own files, not those of its folders; an entry without an ending has both.
        const bool fits = path.starts_with(floor.Start) && rest.find('/') == rest.npos &&
                          (floor.Start.ends_with('/') || floor.Start.ends_with('_') ||
                           floor.Start.find('.') != floor.Start.npos || rest.starts_with('.'));
        if (fits && (!found || floor.Start.size() > found->Start.size())) found = &floor;
    }
    return found ? std::optional(found->Height) : std::nullopt;
}

std::string WithoutEnding(std::string_view path) {
    return std::string(path.substr(0, path.rfind('.')));
}

std::string FolderOf(std::string_view path) {
    return std::string(path.substr(0, path.rfind('/') + 1));
}

bool IsImplementationOfPlatform(std::string_view path) {
    return StartsWithAny(path, {"platform/posix/", "platform/win32/", "platform/headless/"});
}

bool MayInclude(const std::string& from, const std::string& to) {
    const std::string fromFolder = FolderOf(from);
    const std::string toFolder = FolderOf(to);
    if (WithoutEnding(from) == WithoutEnding(to)) return true;
    if (fromFolder == "platform/") return toFolder == "platform/";
    if (IsImplementationOfPlatform(from)) return toFolder == fromFolder || toFolder == "platform/";
    if (toFolder == "app/" && fromFolder != "app/") return false;
    if (fromFolder == "compare/" && toFolder != "compare/" && toFolder != "platform/" &&
        to != "rules/file_filter.h")
        return false;
    // One system's own files are known to the main programs alone.
    if (StartsWithAny(to, {"platform/posix/", "platform/win32/"}) && !from.starts_with("app/main_"))
        return false;
    if (toFolder == "platform/headless/" && fromFolder != "app/") return false;
    return FloorOf(from) && FloorOf(to) && *FloorOf(to) < *FloorOf(from);
}

struct Source {
    std::string Path;  // below src/, with "/"
    std::vector<Directive> Directives;

    std::vector<std::string> Includes() const {
        std::vector<std::string> includes;
        for (const Directive& directive : Directives)
            if (directive.IsInclude('"')) includes.push_back(directive.Included());
        return includes;
    }
};

std::vector<Directive> ReadDirectives(const fs::path& path) {
    std::vector<Directive> directives;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        std::size_t at = line.find_first_not_of(" \t");
        if (at == line.npos || line[at] != '#') continue;
        at = line.find_first_not_of(" \t", at + 1);
        if (at == line.npos) continue;
        const std::size_t end = std::min(line.find_first_of(" \t<\"", at), line.size());
        const std::size_t rest = std::min(line.find_first_not_of(" \t", end), line.size());
        directives.push_back({line.substr(at, end - at), line.substr(rest)});
    }
    return directives;
}

std::vector<Source> ReadSources() {
    const fs::path root = fs::path(VARNEL_SOURCE_DIR) / "src";
    std::vector<Source> sources;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root)) {
        const std::string ending = entry.path().extension().string();
        if (ending != ".h" && ending != ".cpp") continue;
        sources.push_back(
            {entry.path().lexically_relative(root).generic_string(), ReadDirectives(entry.path())});
    }
    return sources;
}

const std::vector<Source>& Sources() {
    static const std::vector<Source> sources = ReadSources();
    return sources;
}

TEST(Architecture, EveryFileHasAFloor) {
    ASSERT_GT(Sources().size(), 80u);
    for (const Source& source : Sources()) EXPECT_TRUE(FloorOf(source.Path)) << source.Path;
}

TEST(Architecture, AFileIncludesLowerFloorsAlone) {
    for (const Source& source : Sources())
        for (const std::string& include : source.Includes()) {
            EXPECT_TRUE(MayInclude(source.Path, include)) << source.Path << " includes " << include;
            EXPECT_TRUE(std::any_of(Sources().begin(), Sources().end(),
                                    [&](const Source& other) { return other.Path == include; }))
                << source.Path << " includes " << include << ", which is no file below src/";
        }
}

// A platform implementation's files may include each other, but not in circles.
TEST(Architecture, NoHeaderIncludesItselfByAnyWay) {
    const auto includesOf = [](const std::string& path) {
        for (const Source& source : Sources())
            if (source.Path == path) return source.Includes();
        return std::vector<std::string>();
    };
    for (const Source& source : Sources()) {
        if (!source.Path.ends_with(".h")) continue;
        std::vector<std::string> reached = includesOf(source.Path);
        for (std::size_t i = 0; i < reached.size(); ++i) {
            EXPECT_NE(reached[i], source.Path);
            for (const std::string& next : includesOf(reached[i]))
                if (std::find(reached.begin(), reached.end(), next) == reached.end())
                    reached.push_back(next);
        }
    }
}

TEST(Architecture, WhatIsOfOneSystemStandsInItsPlace) {
    for (const Privilege& privilege : kPrivileges) {
        for (const Source& source : Sources()) {
            if (StartsWithAny(source.Path, privilege.Starts)) continue;
            for (const Directive& directive : source.Directives)
                EXPECT_FALSE(privilege.Uses(directive))
                    << source.Path << ' ' << privilege.What << ": " << directive.Rest;
        }
    }
}

// The rule itself, on includes that do not exist.
TEST(Architecture, TheRuleTellsRightFromWrong) {
    struct Case {
        const char* From;
        const char* To;
        bool May;
    };
    const Case cases[] = {
        {"platform/paths.cpp", "platform/paths.h", true},
        {"platform/dialogs.h", "platform/forms.h", true},
        {"platform/files.h", "compare/compare_table.h", false},
        {"platform/files.h", "platform/posix/copy.h", false},
        {"platform/posix/copy.cpp", "platform/posix/reached_path.h", true},
        {"platform/posix/copy.cpp", "platform/win32/handle.h", false},
        {"compare/compare_command.h", "rules/filter_dialog.h", false},
        {"compare/compare_command.h", "sync/file_operations.h", false},
        {"compare/compare_command.cpp", "compare/folder_scanner.h", true},
        {"compare/folder_scanner.h", "compare/compare_command.h", false},
        {"grid/grid_page.h", "grid/grid_views.h", false},
        {"sync/sync_refresh.cpp", "app/profiles.h", false},
        {"sync/sync_refresh.cpp", "platform/headless/headless_host.h", false},
        {"app/form_main.h", "app/form_main.cpp", true},
        {"app/layout.h", "app/form_main.h", true},
        {"app/form_main.h", "app/layout.h", false},
        {"app/cli_rows.h", "app/cli.h", false},
        {"app/cli.cpp", "platform/posix/copy.h", false},
        {"app/main_window.cpp", "platform/win32/host.h", true},
    };
    for (const Case& c : cases) EXPECT_EQ(MayInclude(c.From, c.To), c.May) << c.From << c.To;
    EXPECT_TRUE(AsksForSystem({"ifdef", "_WIN32"}) &&
                AsksForSystem({"elif", "defined(__linux__)"}));
    EXPECT_FALSE(AsksForSystem({"ifdef", "NDEBUG"}) || AsksForSystem({"include", "<linux/fs.h>"}));
    EXPECT_TRUE(IncludesWindows({"include", "<windows.h>"}));
    EXPECT_TRUE(IncludesPosix({"include", "<sys/stat.h>  // for us"}));
    for (const char* path : {"tools/a.h", "grid/new_file.h", "platform/macos/files.cpp", "app/x.h"})
        EXPECT_FALSE(FloorOf(path)) << path;
}

}  // namespace
