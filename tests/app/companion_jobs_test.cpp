#include "app/companion_jobs.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/temp_folder.h"
#include "platform/paths.h"

namespace app {
namespace {

using Entries = std::vector<std::string>;

const std::string kSlash(1, platform::Separator);
const std::string kBackup = "/dst" + kSlash + "Backup_";

// A line of the job file.
std::string Job(const std::string& source, const std::string& destination,
                const std::string& name = "job", const std::string& kind = "9") {
    std::string line = source + ',' + destination;
    for (int field = 2; field <= 22; ++field)
        line += field == 12 ? ',' + name : field == 22 ? ',' + kind : ",x";
    return line;
}

class CompanionJobsTest : public testing::Test {
  protected:
    void Import() { ImportCompanionJobs(platform::SystemFiles(), folder.Path(), combo1, combo2); }
    void Import(const std::string& content) {
        folder.WriteFile("Q7DB.qdb", content);
        Import();
    }
    void ImportAlone(const std::string& content) {
        combo1.ClearEntries();
        combo2.ClearEntries();
        Import(content);
    }

    fakes::TempFolder folder;
    platform::ComboBox combo1;
    platform::ComboBox combo2;
};

TEST_F(CompanionJobsTest, ALineBecomesAPair) {
    const struct {
        std::string Line, Folder1, Folder2;
    } cases[] = {
        {Job("/src", "/dst"), "/src", "/dst"},
        {Job("/src", "/dst", "job", "1"), "/src", kBackup + "job"},
        {Job("/src", "/dst" + kSlash, "job", ""), "/src", kBackup + "job"},
        {Job("*.*/s*.*rc/*.*", "/dst*.*"), "/src/", "/dst*.*"},
        {Job("/src", "/dst", "job", " 9.0 "), "/src", "/dst"},
        {Job("/src", "/dst", "job", "9 lives"), "/src", kBackup + "job"},
        {Job("/src", "/dst", " j ", "99"), "/src", kBackup + " j "},
        {"  " + Job("/src", "/dst") + "  ", "/src", "/dst"},
        {Job("/src", "/dst") + ",more,fields", "/src", "/dst"},
    };
    for (const auto& c : cases) {
        ImportAlone(c.Line);
        EXPECT_EQ(combo1.Entries(), Entries{c.Folder1}) << c.Line;
        EXPECT_EQ(combo2.Entries(), Entries{c.Folder2}) << c.Line;
    }
}

TEST_F(CompanionJobsTest, PairsKeepTheirOrderAndAreListedOnce) {
    combo1.AddEntry("/a");
    combo2.AddEntry("/1");
    Import("\r\n" + Job("/a", "/1") + "\r\n" + Job("/a", "/2") + "\n\n  \n" + Job("/a/*.*", "/1") +
           "\n" + Job("/a", "/2"));
    EXPECT_EQ(combo1.Entries(), (Entries{"/a", "/a", "/a/"}));
    EXPECT_EQ(combo2.Entries(), (Entries{"/1", "/2", "/1"}));
}

TEST_F(CompanionJobsTest, WhatIsNoJobIsSkipped) {
    Import();  // there is no file
    const std::string bad[] = {
        "a,b,c",
        std::string(21, ','),
        Job("", "/dst"),
        Job("*.*", "/dst"),
        Job("/src", "", "job", "1"),
        Job(std::string("/s\0rc", 5), "/dst"),
        Job("/src", "/dst") + "," + std::string(70000, 'x'),
        std::string(300000, ','),
    };
    for (const std::string& line : bad) {
        ImportAlone(line + "\n" + Job("/good", "/pair") + "\n" + line);
        EXPECT_EQ(combo1.Entries(), Entries{"/good"}) << line.substr(0, 100);
        EXPECT_EQ(combo2.Entries(), Entries{"/pair"}) << line.substr(0, 100);
    }
}

TEST_F(CompanionJobsTest, AHundredMegabytesInOneLineAreSkipped) {
    folder.WriteFile("Q7DB.qdb", Job("/first", "/1") + "\n");
    const std::filesystem::path file(folder.Path("Q7DB.qdb"));
    std::filesystem::resize_file(file, 100'000'000);  // with NULs
    std::ofstream(file, std::ios::app | std::ios::binary) << '\n' << Job("/last", "/2");
    Import();
    EXPECT_EQ(combo1.Entries(), (Entries{"/first", "/last"}));
}

TEST_F(CompanionJobsTest, ALineIsWholeWhereverTheReadBlocksEnd) {
    std::string content;
    Entries expected;
    for (int i = 0; i < 5000; ++i) {
        expected.push_back("/source/" + std::to_string(i) + std::string(i % 97, '-'));
        content += Job(expected.back(), "/dst") + "\r\n";
    }
    Import(content);
    EXPECT_EQ(combo1.Entries(), expected);
}

}  // namespace
}  // namespace app
