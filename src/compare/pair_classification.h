// Decides for one file met by a walk which category it belongs to, and appends its row.
//
// Last-modified times alone decide; sizes are recorded, never compared.
#pragma once

#include <cstdint>
#include <string_view>

#include "compare/compare_table.h"
#include "compare/file_pair.h"
#include "platform/forms.h"
#include "rules/file_filter.h"

namespace compare {

// The extension that the filter test uses, taken from the full path's last ten bytes.
std::string_view FileExtension(std::string_view path);

// The labels that count along.
struct CountLabels {
    platform::Label& LabelNewFile;
    platform::Label& LabelChgFile;
    platform::Label& LabelNewChgFile;
    platform::Label& LabelAllFile;
    platform::Label& lblComparing;
};

class PairClassifier {
  public:
    PairClassifier(CompareTable& table, const rules::FileFilter& filter, platform::FormHost& host,
                   CountLabels labels)
        : table_(table), filter_(filter), host_(host), labels_(labels) {}

    // A file found in Folder 1: a New, Modified or Same row. False once a stop was requested.
    bool ClassifySide1(const FilePair& pair, std::int32_t& Fcount);

    // A file found in Folder 2: a New row when Folder 1 lacks it. False once a stop was requested.
    bool ClassifySide2(const FilePair& pair, std::int32_t& Fcount);

  private:
    bool Passes(const FilePair& pair, Side found) const;
    void AppendModified(CompareItem item);
    void AppendSame(const CompareItem& item);
    void AppendNew(const CompareItem& item);
    void ShowNewAndModified();
    bool CountDown(std::int32_t& Fcount);

    CompareTable& table_;
    const rules::FileFilter& filter_;
    platform::FormHost& host_;
    CountLabels labels_;
};

// "New Files ( n ) " and its like.
void ShowCount(platform::Label& label, std::string_view prefix, std::int32_t count,
               std::string_view suffix);

}  // namespace compare
