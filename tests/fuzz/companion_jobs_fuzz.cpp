// The companion tool's job file: any bytes.
#include <algorithm>
#include <cassert>
#include <utility>
#include <vector>

#include "app/companion_jobs.h"
#include "fakes/temp_folder.h"

using Pairs = std::vector<std::pair<std::string, std::string>>;

namespace {

// The pairs that are offered after this job file.
Pairs Imported(const std::string& content) {
    static const fakes::TempFolder folder;
    platform::ComboBox box1, box2;
    folder.WriteFile("Q7DB.qdb", content);
    app::ImportCompanionJobs(platform::SystemFiles(), folder.Path(), box1, box2);
    Pairs pairs;
    for (std::size_t i = 0; i < box1.Entries().size(); ++i)
        pairs.emplace_back(box1.Entries()[i], box2.Entries().at(i));
    return pairs;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    const std::string content = input + "\n/good,/pair" + std::string(20, ',') + ",9";
    const Pairs pairs = Imported(content);
    // A good line is offered, once, whatever stands before it.
    assert(std::count(pairs.begin(), pairs.end(), Pairs::value_type("/good", "/pair")) == 1);
    // The line in front is too long; the file is read in blocks of 65,536 bytes.
    assert(Imported(std::string(2 * 65'536 - 6, 'x') + '\n' + content) == pairs);
    return 0;
}
