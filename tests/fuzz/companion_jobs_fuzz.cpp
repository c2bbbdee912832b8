// The companion tool's job file: any bytes. A "~" of the input stands for many, so that short
// inputs reach the longest line.
#include <algorithm>

#include "app/companion_jobs.h"
#include "fakes/temp_folder.h"
#include "fuzz/fuzzing.h"

using fuzzing::Require;
using Pair = std::pair<std::string, std::string>;

namespace {

// The pairs that are offered after these job files.
std::vector<Pair> Imported(const std::vector<std::string>& contents) {
    static const fakes::TempFolder folder;
    platform::ComboBox box1, box2;
    for (const std::string& content : contents) {
        folder.WriteFile("Q7DB.qdb", content);
        app::ImportCompanionJobs(platform::SystemFiles(), folder.Path(), box1, box2);
    }
    std::vector<Pair> pairs;
    for (std::size_t i = 0; i < box1.Entries().size(); ++i)
        pairs.emplace_back(box1.Entries()[i], box2.Entries().at(i));
    return pairs;
}

}  // namespace

void fuzzing::Examine(const std::string& input) {
    constexpr std::size_t kMany = 11'000, kMostBytes = 1'000'000;
    std::string content;
    for (const char c : input)
        content.append(c == '~' && content.size() < kMostBytes ? kMany : 1, c);
    content += "\n/good,/pair" + std::string(20, ',') + ",9";
    const std::vector<Pair> pairs = Imported({content});
    for (const auto& [folder1, folder2] : pairs)
        for (const std::string& folder : {folder1, folder2})
            Require(!folder.empty() && folder.find_first_of({",\n\0", 3}) == std::string::npos,
                    "a pair is made of fields");
    Require(std::count(pairs.begin(), pairs.end(), Pair("/good", "/pair")) == 1,
            "a good line is offered, once, whatever stands before it");
    Require(Imported({content, content}) == pairs, "the second time nothing is new");
    const std::size_t cut = content.find('\n', content.size() / 2);
    Require(Imported({content.substr(0, cut), content.substr(cut + 1)}) == pairs,
            "a line says the same wherever it stands in the blocks that are read");
}
