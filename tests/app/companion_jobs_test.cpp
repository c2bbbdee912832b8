#include "app/companion_jobs.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/temp_folder.h"
#include "platform/paths.h"

namespace app {
namespace {

using Entries = std::vector<std::string>;

const std::string kSlash(1, platform::Separator);

// A line of the job file.
std::string Job(const std::string& source, const std::string& destination, const std::string& name,
                const std::string& kind) {
    std::string line = source + ',' + destination;
    for (int field = 2; field <= 22; ++field)
        line += field == 12 ? ',' + name : field == 22 ? ',' + kind : ",x";
    return line;
}

class CompanionJobsTest : public testing::Test {
  protected:
    void Import(const std::string& content) {
        folder.WriteFile("Q7DB.qdb", content);
        ImportCompanionJobs(platform::SystemFiles(), folder.Path(), combo1, combo2);
    }

    fakes::TempFolder folder;
    platform::ComboBox combo1;
    platform::ComboBox combo2;
};

TEST_F(CompanionJobsTest, ALineBecomesAPair) {
    struct Case {
        std::string Line;
        std::string Folder1;
        std::string Folder2;
    };
    const Case cases[] = {
        {Job("/src", "/dst", "job", "9"), "/src", "/dst"},
        {Job("/src", "/dst", "job", "1"), "/src", "/dst" + kSlash + "Backup_job"},
        {Job("/src", "/dst" + kSlash, "job", ""), "/src", "/dst" + kSlash + "Backup_job"},
        {Job("/src/*.*", "/dst", "job", "9"), "/src/", "/dst"},
        {Job("*.*/s*.*rc*.*", "/dst*.*", "job", "9"), "/src", "/dst*.*"},
        {Job("/src", "/dst", "job", " 9.0 "), "/src", "/dst"},
        {Job("/src", "/dst", "job", "9 lives"), "/src", "/dst" + kSlash + "Backup_job"},
        {Job("/src", "/dst", " j ", "99"), "/src", "/dst" + kSlash + "Backup_ j "},
        {"  " + Job("/src", "/dst", "job", "9") + "  ", "/src", "/dst"},
        {Job("/src", "/dst", "job", "9") + ",more,fields", "/src", "/dst"},
    };
    for (const Case& c : cases) {
        combo1.ClearEntries();
        combo2.ClearEntries();
        Import(c.Line);
        EXPECT_EQ(combo1.Entries(), Entries{c.Folder1}) << c.Line;
        EXPECT_EQ(combo2.Entries(), Entries{c.Folder2}) << c.Line;
    }
}

TEST_F(CompanionJobsTest, EveryLineEndCountsAndThePairsKeepTheirOrder) {
    Import("\r\n" + Job("/a", "/1", "", "9") + "\r\n" + Job("/b", "/2", "", "9") + "\n\n  \n" +
           Job("/c", "/3", "", "9") + "\n");
    EXPECT_EQ(combo1.Entries(), (Entries{"/a", "/b", "/c"}));
    EXPECT_EQ(combo2.Entries(), (Entries{"/1", "/2", "/3"}));
}

TEST_F(CompanionJobsTest, APairThatIsListedIsNotAddedAgain) {
    combo1.AddEntry("/a");
    combo2.AddEntry("/1");
    Import(Job("/a", "/1", "", "9") + "\n" + Job("/a", "/2", "", "9") + "\n" +
           Job("/a/*.*", "/1", "", "9") + "\n" + Job("/a", "/2", "", "9"));
    EXPECT_EQ(combo1.Entries(), (Entries{"/a", "/a", "/a/"}));
    EXPECT_EQ(combo2.Entries(), (Entries{"/1", "/2", "/1"}));
}

TEST_F(CompanionJobsTest, WhatIsNoJobIsSkipped) {
    const std::string good = Job("/good", "/pair", "", "9");
    const std::string bad[] = {
        "a,b,c",
        std::string(21, ','),
        Job("", "/dst", "job", "9"),
        Job("*.*", "/dst", "job", "9"),
        Job("/src", "", "job", "1"),
        Job(std::string("/s\0rc", 5), "/dst", "job", "9"),
        Job("/src", "/dst", "job", "9") + "," + std::string(70000, 'x'),
        std::string(300000, ','),
    };
    for (const std::string& line : bad) {
        combo1.ClearEntries();
        combo2.ClearEntries();
        Import(line + "\n" + good + "\n" + line);
        EXPECT_EQ(combo1.Entries(), Entries{"/good"}) << line.substr(0, 100);
        EXPECT_EQ(combo2.Entries(), Entries{"/pair"}) << line.substr(0, 100);
    }
}

TEST_F(CompanionJobsTest, ALineIsWholeWhereverTheReadBlocksEnd) {
    std::string content;
    Entries expected;
    for (int i = 0; i < 5000; ++i) {
        expected.push_back("/source/" + std::to_string(i) + std::string(i % 97, '-'));
        content += Job(expected.back(), "/dst", "", "9") + "\r\n";
    }
    Import(content);
    EXPECT_EQ(combo1.Entries(), expected);
}

TEST_F(CompanionJobsTest, WithoutAFileNothingHappens) {
    ImportCompanionJobs(platform::SystemFiles(), folder.Path(), combo1, combo2);
    ImportCompanionJobs(platform::SystemFiles(), "", combo1, combo2);
    folder.MakeFolder("Q7DB.qdb");
    ImportCompanionJobs(platform::SystemFiles(), folder.Path(), combo1, combo2);
    EXPECT_TRUE(combo1.Entries().empty());
}

}  // namespace
}  // namespace app
