#include "app/companion_jobs.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <memory>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "platform/paths.h"
#include "platform/trimmed.h"

namespace app {

namespace {

constexpr const char* kJobFile = "Q7DB.qdb";
constexpr std::size_t kLongestLine = 64 * 1024;
constexpr std::size_t kFields = 23;
constexpr std::size_t kSourceField = 0;
constexpr std::size_t kDestinationField = 1;
constexpr std::size_t kNameField = 12;
constexpr std::size_t kKindField = 22;
constexpr double kPlainDestinationKind = 9;

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

// Hands out the lines of a file without their ends; of one that is too long, nothing. Reads by
// blocks and keeps one line, whatever the file holds.
template <typename UseLine>
void ForEachLine(std::FILE* file, UseLine useLine) {
    std::vector<char> block(kLongestLine);
    std::string line;
    bool tooLong = false;
    const auto append = [&](std::string_view piece) {
        tooLong = tooLong || line.size() + piece.size() > kLongestLine;
        if (!tooLong) line += piece;
    };
    const auto finish = [&] {
        if (!tooLong) useLine(line);
        line.clear();
        tooLong = false;
    };
    while (const std::size_t size = std::fread(block.data(), 1, block.size(), file)) {
        std::string_view rest(block.data(), size);
        for (std::size_t end; (end = rest.find('\n')) != std::string_view::npos;) {
            append(rest.substr(0, end));
            finish();
            rest.remove_prefix(end + 1);
        }
        append(rest);
    }
    finish();
}

// False when there are fewer fields; more are not looked at.
bool SplitFields(std::string_view line, std::array<std::string_view, kFields>& fields) {
    for (std::size_t i = 0; i < kFields; ++i) {
        const std::size_t end = line.find(',');
        fields[i] = line.substr(0, end);
        if (end == std::string_view::npos) return i + 1 == kFields;
        line.remove_prefix(end + 1);
    }
    return true;
}

bool IsPlainDestination(std::string_view kindField) {
    const std::string_view text = platform::Trimmed(kindField);
    const char* const end = text.data() + text.size();
    double kind = 0;
    const auto result = std::from_chars(text.data(), end, kind);
    return result.ec == std::errc() && result.ptr == end && kind == kPlainDestinationKind;
}

std::string WithoutWildcards(std::string_view text) {
    constexpr std::string_view kWildcard = "*.*";
    std::string kept;
    for (std::size_t at; (at = text.find(kWildcard)) != std::string_view::npos;) {
        kept += text.substr(0, at);
        text.remove_prefix(at + kWildcard.size());
    }
    return kept += text;
}

// The pairs that two boxes list, and the boxes.
class PairBoxes {
  public:
    PairBoxes(platform::ComboBox& combo1, platform::ComboBox& combo2)
        : combo1_(combo1), combo2_(combo2) {
        const std::size_t count = std::min(combo1.Entries().size(), combo2.Entries().size());
        for (std::size_t i = 0; i < count; ++i)
            listed_.insert(Key(combo1.Entries()[i], combo2.Entries()[i]));
    }

    void Add(const std::string& folder1, const std::string& folder2) {
        if (!listed_.insert(Key(folder1, folder2)).second) return;
        combo1_.AddEntry(folder1);
        combo2_.AddEntry(folder2);
    }

  private:
    static std::string Key(const std::string& folder1, const std::string& folder2) {
        return folder1 + '\0' + folder2;
    }

    platform::ComboBox& combo1_;
    platform::ComboBox& combo2_;
    std::unordered_set<std::string> listed_;
};

void ImportJob(std::string_view line, PairBoxes& boxes) {
    std::array<std::string_view, kFields> fields;
    if (line.find('\0') != std::string_view::npos || !SplitFields(line, fields)) return;
    const std::string folder1 = WithoutWildcards(fields[kSourceField]);
    std::string folder2(fields[kDestinationField]);
    if (folder1.empty() || folder2.empty()) return;
    if (!IsPlainDestination(fields[kKindField])) {
        folder2 = platform::WithSeparator(folder2) + "Backup_";
        folder2 += fields[kNameField];
    }
    boxes.Add(folder1, folder2);
}

}  // namespace

void ImportCompanionJobs(platform::FileSystem& files, const std::string& folder,
                         platform::ComboBox& combo1, platform::ComboBox& combo2) {
    if (folder.empty()) return;
    const std::string path = folder + platform::Separator + kJobFile;
    // A pipe would make the opening wait; what is no file has no bytes to read.
    if (files.Look(path).Size <= 0) return;
    const File file(std::fopen(path.c_str(), "rb"));
    if (!file) return;
    PairBoxes boxes(combo1, combo2);
    ForEachLine(file.get(), [&](std::string_view line) {
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        ImportJob(platform::Trimmed(line), boxes);
    });
}

}  // namespace app
