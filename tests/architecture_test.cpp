// Holds the shape of the sources: which file may include which, where the system may be asked for.
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

using Texts = std::vector<std::string>;

// What paths below src/ start with, from the lowest floor up. A file includes files of lower floors
// only, besides its own header and what stands in the same folder of platform/.
const char* const kFloors[] = {
    R"(platform/[^/]*$)",
    R"(platform/(posix|win32|headless)/|(rules/file_filter|compare/compare_table)\.)",
    R"((compare/(file_pair|scanned_tree)|sync/(file_operations|sync_refresh))\.)",
    R"(compare/(pair_classification|folder_scanner)\.|(sync/transfer_workers|grid/grid_page)\.)",
    R"(compare/compare_command\.|(grid/(grid_views|category_labels)|reports/export_lists)\.|)"
    R"(rules/(row_direction|filter_dialog)\.)",
    R"(sync/sync_commands\.)",
    R"(app/(profiles|companion_jobs|deferred_registry|dialogs_until_closing|cli_options)\.)",
    R"(app/form_main\.h)",
    R"(app/(layout|menus|cli_rows)\.)",
    R"(app/(form_main\.cpp|cli_session\.))",
    R"(app/cli\.)",
    R"(app/main_)",
};

// What stands in a directive (without its blanks), and which files alone may hold it.
const std::pair<const char*, const char*> kPrivileges[] = {
    {"WIN32|WIN64|linux|unix|APPLE|MINGW|CYGWIN|_MSC_VER", "platform/|app/main_"},
    {"<[wW]indows.h>", "platform/win32/|app/main_window.cpp"},
    {"<(sys|linux)/|<(unistd|fcntl|dirent|signal|pthread).h>", "platform/posix/|app/main_"},
    {"\"platform/posix/", "platform/posix/|app/main_"},
    {"\"platform/win32/", "platform/win32/|app/main_"},
    {"\"platform/headless/", "platform/headless/|app/"},
    {"\"app/", "app/"},
    {"\"(sync|grid)/", "app/|sync/|grid/|rules/|reports/"},
};

bool Contains(const std::string& text, const std::string& pattern) {
    return testing::Matcher<std::string>(testing::ContainsRegex(pattern)).Matches(text);
}

bool Starts(const std::string& path, const std::string& pattern) {
    return Contains(path, "^(" + pattern + ")");
}

int FloorOf(const std::string& path) {
    int floor = 0;
    for (const char* pattern : kFloors) {
        if (Starts(path, pattern)) return floor;
        ++floor;
    }
    return -1;
}

bool MayInclude(const std::string& from, const std::string& to) {
    const std::string folder = from.substr(0, from.rfind('/') + 1);
    return to == from.substr(0, from.rfind('.')) + ".h" || FloorOf(to) < FloorOf(from) ||
           (folder == to.substr(0, to.rfind('/') + 1) && folder.starts_with("platform/"));
}

struct Source {
    Texts Directives;  // without blanks
    Texts Includes;    // of files below src/
};

// By their paths below src/.
std::map<std::string, Source> ReadSources() {
    const fs::path root = fs::path(VARNEL_SOURCE_DIR) / "src";
    std::map<std::string, Source> sources;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root)) {
        if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
        Source& source = sources[entry.path().lexically_relative(root).generic_string()];
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line);) {
            std::erase_if(line, [](char c) { return c == ' ' || c == '\t'; });
            if (line.starts_with('#')) source.Directives.push_back(line);
            if (line.starts_with("#include\""))
                source.Includes.push_back(line.substr(9, line.rfind('"') - 9));
        }
    }
    return sources;
}

const std::map<std::string, Source> kSources = ReadSources();

void Reach(const std::string& path, std::set<std::string>& reached) {
    for (const std::string& include : kSources.at(path).Includes)
        if (reached.insert(include).second) Reach(include, reached);
}

TEST(Architecture, AFileIncludesLowerFloorsAloneAndNeverItself) {
    ASSERT_GT(kSources.size(), 80u);
    for (const auto& [path, source] : kSources) {
        EXPECT_GE(FloorOf(path), 0) << path;
        for (const std::string& include : source.Includes) {
            ASSERT_TRUE(kSources.contains(include)) << path << ": no file below src/: " << include;
            EXPECT_TRUE(MayInclude(path, include)) << path << " includes " << include;
        }
    }
    for (const auto& [path, source] : kSources) {
        std::set<std::string> reached;
        Reach(path, reached);
        EXPECT_FALSE(reached.contains(path)) << path << " includes itself by way of others";
    }
}

TEST(Architecture, WhatIsOfOneSystemOrOneRoomStandsInItsPlace) {
    for (const auto& [what, files] : kPrivileges)
        for (const auto& [path, source] : kSources)
            for (const std::string& directive : source.Directives)
                EXPECT_TRUE(Starts(path, files) || !Contains(directive, what))
                    << path << ": " << directive;
}

}  // namespace
