// The companion tool's job file: any bytes.
//
// A "~" of the input stands for many letters, so that short inputs reach the longest line.
#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "app/companion_jobs.h"
#include "fakes/temp_folder.h"
#include "fuzz/fuzzing.h"

namespace {

using fuzzing::Require;
using Pair = std::pair<std::string, std::string>;

constexpr std::size_t kManyLetters = 11'000;
constexpr std::size_t kMostBytes = 1'000'000;

const Pair kGoodPair = {"/good", "/pair"};
const std::string kGoodJob = "/good,/pair" + std::string(20, ',') + ",9";

std::string Expanded(std::string_view input) {
    std::string content;
    for (const char c : input) {
        if (content.size() >= kMostBytes) break;
        content.append(c == '~' ? kManyLetters : 1, c == '~' ? 'x' : c);
    }
    return content;
}

struct Boxes {
    void Import(const std::string& content) {
        static const fakes::TempFolder folder;
        folder.WriteFile("Q7DB.qdb", content);
        app::ImportCompanionJobs(platform::SystemFiles(), folder.Path(), Combo1, Combo2);
    }
    std::vector<Pair> Pairs() const {
        const std::vector<std::string>& entries1 = Combo1.Entries();
        const std::vector<std::string>& entries2 = Combo2.Entries();
        Require(entries1.size() == entries2.size(), "the boxes list pairs");
        std::vector<Pair> pairs;
        for (std::size_t i = 0; i < entries1.size(); ++i)
            pairs.emplace_back(entries1[i], entries2[i]);
        return pairs;
    }

    platform::ComboBox Combo1;
    platform::ComboBox Combo2;
};

bool IsField(const std::string& text) {
    return !text.empty() && text.find_first_of(std::string_view(",\n\0", 3)) == std::string::npos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string content = Expanded(fuzzing::Bytes(data, size)) + '\n' + kGoodJob;
    Boxes boxes;
    boxes.Import(content);
    const std::vector<Pair> pairs = boxes.Pairs();
    for (const auto& [folder1, folder2] : pairs)
        Require(IsField(folder1) && IsField(folder2), "a pair is made of fields");
    Require(std::set<Pair>(pairs.begin(), pairs.end()).size() == pairs.size(), "no pair twice");
    Require(std::find(pairs.begin(), pairs.end(), kGoodPair) != pairs.end(),
            "a good line is offered whatever stands before it");

    boxes.Import(content);
    Require(boxes.Pairs() == pairs, "the second time nothing is new");

    // A line says the same wherever it stands in the blocks that are read.
    const std::size_t cut = content.find('\n', content.size() / 2);
    Boxes parts;
    parts.Import(content.substr(0, cut));
    parts.Import(content.substr(cut + 1));
    Require(parts.Pairs() == pairs, "each line counts by itself");
    return 0;
}
