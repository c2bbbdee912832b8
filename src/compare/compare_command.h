// The Compare command: validates the two folders, remembers the pair, fills the table and shows
// the first view. While it runs, its button is the Stop button.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "compare/compare_table.h"
#include "compare/folder_scanner.h"
#include "compare/pair_classification.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/forms.h"
#include "rules/file_filter.h"

namespace compare {

// What the command needs of the window that it runs in.
class CompareOwner {
  public:
    virtual ~CompareOwner() = default;
    // The texts of the two folder boxes as they stand.
    virtual std::string FolderText1() const = 0;
    virtual std::string FolderText2() const = 0;
    virtual void RememberPair(const std::string& folder1, const std::string& folder2) = 0;
    virtual void DescribeFileFilter() = 0;
    virtual void SetScrollRange(std::int32_t count) = 0;
    virtual void ResetScroll() = 0;  // small step 1, large step 25, value and first row 0
    virtual void ShowView(std::string_view viewCode) = 0;
    virtual void DoubleSync() = 0;
};

// The controls that this command alone drives.
struct ComparePanel {
    platform::Button Command3{"Compare"};
    platform::CheckBox CheckSync{"sync after compare"};
};

class CompareCommand {
  public:
    struct Parts {
        CompareTable& Table;
        const rules::FileFilter& Filter;
        platform::FileSystem& Files;
        platform::FormHost& Host;
        platform::Dialogs& Dialogs;
        CompareOwner& Owner;
        CountLabels Labels;
        std::string ApplicationTitle;
    };

    CompareCommand(ComparePanel& panel, Parts parts);

    // The click of Command3: starts a comparison when its caption is "Compare", else stops it.
    void Compare();

    // The roots of the last comparison, each ending in a separator.
    const std::string& Folder1() const { return folder1_; }
    const std::string& Folder2() const { return folder2_; }

    // What the last comparison could not read, and what it left out.
    const ScanTroubles& Troubles() const { return troubles_; }

  private:
    class Classify;

    void RequestStop();
    bool Validate(const std::string& folder1, const std::string& folder2);
    void FillTable();
    void ShowFirstView();
    void SetCaptionAndYield(platform::Captioned& control, std::string_view caption);

    ComparePanel& panel_;
    Parts parts_;
    PairClassifier classifier_;
    ScanTroubles troubles_;
    std::string folder1_;
    std::string folder2_;
};

}  // namespace compare
