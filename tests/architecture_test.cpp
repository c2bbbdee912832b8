// Holds the shape of the sources: which file may include which, where the system may be asked for.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

// What paths below src/ start with, from the lowest floor up. A file includes files of lower floors
// only, besides its own header and what stands in the same folder of platform/.
const std::vector<std::string> kFloors = {
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
const std::pair<std::string, std::string> kPrivileges[] = {
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

std::ptrdiff_t FloorOf(const std::string& path) {
    const auto holds = [&](const std::string& floor) { return Starts(path, floor); };
    return std::ranges::find_if(kFloors, holds) - kFloors.begin();
}

bool MayInclude(const std::string& from, const std::string& to) {
    const std::string folder = from.substr(0, from.rfind('/') + 1);
    return to == from.substr(0, from.rfind('.')) + ".h" || FloorOf(to) < FloorOf(from) ||
           (folder == to.substr(0, to.rfind('/') + 1) && folder.starts_with("platform/"));
}

// All directives of the files below src/, without blanks, each after its file's path.
std::vector<std::pair<std::string, std::string>> ReadDirectives() {
    const fs::path root = fs::path(VARNEL_SOURCE_DIR) / "src";
    std::vector<std::pair<std::string, std::string>> directives;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root)) {
        if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line);) {
            std::erase_if(line, [](char c) { return c == ' ' || c == '\t'; });
            if (line.starts_with('#'))
                directives.emplace_back(entry.path().lexically_relative(root).generic_string(),
                                        line);
        }
    }
    return directives;
}

const auto kDirectives = ReadDirectives();

TEST(Architecture, AFileIncludesLowerFloorsAlone) {
    ASSERT_GT(kDirectives.size(), 500u);
    for (const auto& [path, directive] : kDirectives) {
        EXPECT_LT(FloorOf(path), std::ssize(kFloors)) << path;
        EXPECT_TRUE(!directive.starts_with("#include\"") ||
                    MayInclude(path, directive.substr(9, directive.size() - 10)))
            << path << ": " << directive;
    }
}

TEST(Architecture, NoFileIncludesItselfByWayOfOthers) {
    std::multimap<std::string, std::string> open;
    for (const auto& [path, directive] : kDirectives)
        if (directive.starts_with("#include\""))
            open.emplace(path, directive.substr(9, directive.size() - 10));
    const auto leadsNowhere = [&](const auto& include) { return !open.contains(include.second); };
    while (std::erase_if(open, leadsNowhere) != 0) continue;
    for (const auto& [path, include] : open) ADD_FAILURE() << path << " includes " << include;
}

TEST(Architecture, WhatIsOfOneSystemOrOneRoomStandsInItsPlace) {
    for (const auto& [what, files] : kPrivileges)
        for (const auto& [path, directive] : kDirectives)
            EXPECT_TRUE(Starts(path, files) || !Contains(directive, what))
                << path << ": " << directive;
}

}  // namespace
