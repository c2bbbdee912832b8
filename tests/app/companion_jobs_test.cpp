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

using Texts = std::vector<std::string>;

const std::string kSlash(1, platform::Separator);
const std::string kBackup = "/dst" + kSlash + "Backup_";

// A line of the job file.
std::string Job(const std::string& source, const std::string& destination,
                const std::string& name = "job", const std::string& kind = "9") {
    return source + ',' + destination + std::string(11, ',') + name + std::string(10, ',') + kind;
}

class CompanionJobsTest : public testing::Test {
  protected:
    // The pairs that the boxes list after the import of the job file.
    Texts Imported() {
        ImportCompanionJobs(platform::SystemFiles(), folder.Path(), combo1, combo2);
        Texts pairs;
        for (std::size_t i = 0; i < combo1.Entries().size(); ++i)
            pairs.push_back(combo1.Entries()[i] + "|" + combo2.Entries().at(i));
        return pairs;
    }

    fakes::TempFolder folder;
    platform::ComboBox combo1;
    platform::ComboBox combo2;
};

TEST_F(CompanionJobsTest, ALineIsAPairOrIsSkipped) {
    const std::pair<std::string, std::string> cases[] = {
        {Job("/src", "/dst"), "/src|/dst"},
        {Job("/src", "/dst", "job", "1"), "/src|" + kBackup + "job"},
        {Job("/src", "/dst" + kSlash, " j ", ""), "/src|" + kBackup + " j "},
        {Job("*.*/s*.*rc/*.*", "/dst*.*", "", " 9.0 "), "/src/|/dst*.*"},
        {Job("/src", "/dst", "job", "9 lives"), "/src|" + kBackup + "job"},
        {"  " + Job("/src", "/dst") + ",more,fields  ", "/src|/dst"},
        {"/src,/dst" + std::string(20, ','), ""},  // a field is missing
        {Job("*.*", "/dst"), ""},
        {Job("/src", "", "job", "1"), ""},
        {Job(std::string("/s\0rc", 5), "/dst"), ""},
        {Job("/src", "/dst") + "," + std::string(70'000, 'x'), ""},
    };
    for (const auto& [line, pair] : cases) {
        SCOPED_TRACE(line.substr(0, 100));
        combo1.ClearEntries();
        combo2.ClearEntries();
        folder.WriteFile("Q7DB.qdb", line + "\n" + Job("/good", "/pair") + "\r\n" + line);
        EXPECT_EQ(Imported(), pair.empty() ? Texts{"/good|/pair"} : (Texts{pair, "/good|/pair"}));
    }
}

TEST_F(CompanionJobsTest, PairsAreListedOnceInTheirOrderAndAnEndlessLineIsSkipped) {
    combo1.AddEntry("/a");
    combo2.AddEntry("/1");
    folder.WriteFile("Q7DB.qdb", "\r\n" + Job("/a", "/1") + "\r\n" + Job("/a", "/2") + "\n\n  \n" +
                                     Job("/a/*.*", "/1") + '\n');
    const std::filesystem::path file = folder.Path("Q7DB.qdb");
    std::filesystem::resize_file(file, 100'000'000);  // NUL bytes
    std::ofstream(file, std::ios::app | std::ios::binary)
        << '\n' + Job("/a", "/2") + '\n' + Job("/good", "/pair");
    EXPECT_EQ(Imported(), (Texts{"/a|/1", "/a|/2", "/a/|/1", "/good|/pair"}));
}

TEST_F(CompanionJobsTest, ALineIsWholeWhereverTheReadBlocksEnd) {
    std::string content;
    Texts expected;
    for (int i = 0; i < 5000; ++i) {
        expected.push_back("/source/" + std::to_string(i) + std::string(i % 97, '-'));
        content += Job(expected.back(), "/dst") + "\r\n";
    }
    folder.WriteFile("Q7DB.qdb", content);
    Imported();
    EXPECT_EQ(combo1.Entries(), expected);
}

}  // namespace
}  // namespace app
