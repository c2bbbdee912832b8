// The companion tool's job file: any bytes. A "~" of the input stands for many, so that short
// inputs reach the longest line.
#include <algorithm>

#include "app/companion_jobs.h"
#include "fakes/temp_folder.h"
#include "fuzz/fuzzing.h"

using fuzzing::Require;
using Pairs = std::vector<std::pair<std::string, std::string>>;

namespace {

// The pairs that are offered after these job files.
Pairs Imported(const std::vector<std::string>& contents) {
    static const fakes::TempFolder folder;
    platform::ComboBox box1, box2;
    for (const std::string& content : contents) {
        folder.WriteFile("Q7DB.qdb", content);
        app::ImportCompanionJobs(platform::SystemFiles(), folder.Path(), box1, box2);
    }
    Pairs pairs;
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
    const Pairs pairs = Imported({content});
    Require(std::count(pairs.begin(), pairs.end(), Pairs::value_type("/good", "/pair")) == 1,
            "a good line is offered, once, whatever stands before it");
    const std::size_t cut = content.find('\n', content.size() / 2);
    Require(Imported({content.substr(0, cut), content.substr(cut + 1)}) == pairs,
            "a line says the same wherever it stands in the blocks that are read");
}
