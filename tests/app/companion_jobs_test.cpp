#include "app/companion_jobs.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/temp_folder.h"
#include "platform/paths.h"

namespace app {
namespace {

using Texts = std::vector<std::string>;

// A line of the job file.
std::string Job(const std::string& source, const std::string& destination, const std::string& name,
                const std::string& kind) {
    return source + ',' + destination + std::string(11, ',') + name + std::string(10, ',') + kind;
}

TEST(CompanionJobs, EachGoodLineIsOfferedOnceAndAnyOtherSkipped) {
    const std::string slash(1, platform::Separator);
    const std::pair<std::string, std::string> lines[] = {
        {Job("/listed", "/before", "j", "9"), ""},
        {Job("/a", "/dst", "j", "9"), "/a|/dst"},
        {Job("/a", "/dst", "", "9") + ",more,fields", ""},  // the same pair again
        {Job("/b", "/dst", "j", "1"), "/b|/dst" + slash + "Backup_j"},
        {Job("/c", "/dst" + slash, " j ", ""), "/c|/dst" + slash + "Backup_ j "},
        {"  " + Job("*.*/d*.*d/*.*", "/dst*.*", "j", " 9.0 ") + "  ", "/dd/|/dst*.*"},
        {Job("/e", "/dst", "j", "9 lives"), "/e|/dst" + slash + "Backup_j"},
        {"/f,/dst" + std::string(20, ','), ""},  // a field is missing
        {Job("*.*", "/dst", "j", "9"), ""},
        {Job("/g", "", "j", "1"), ""},
        {Job(std::string("/h\0h", 4), "/dst", "j", "9"), ""},
        {Job("/i", "/dst", "j", "9,") + std::string(70'000, 'x'), ""},
        {std::string(100'000'000, '\0'), ""},
        {Job("/j", "/dst", "j", "9"), "/j|/dst"},
    };
    std::string content;
    Texts expected{"/listed|/before"};
    for (const auto& [line, pair] : lines) {
        content += "\r\n" + line;
        if (!pair.empty()) expected.push_back(pair);
    }
    const fakes::TempFolder folder;
    folder.WriteFile("Q7DB.qdb", content);
    platform::ComboBox combo1, combo2;
    combo1.AddEntry("/listed");
    combo2.AddEntry("/before");
    ImportCompanionJobs(platform::SystemFiles(), folder.Path(), combo1, combo2);
    Texts pairs;
    for (std::size_t i = 0; i < combo1.Entries().size(); ++i)
        pairs.push_back(combo1.Entries()[i] + "|" + combo2.Entries().at(i));
    EXPECT_EQ(pairs, expected);
}

}  // namespace
}  // namespace app
