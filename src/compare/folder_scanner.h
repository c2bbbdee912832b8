// Counts the files of both trees and walks them, naming for every file found the file of the same
// relative path in the other tree.
//
// A folder is listed once in a comparison: counting keeps the names, the walks use them. The first
// walk to meet a folder on both sides matches the names of the two, so that nothing is looked up
// twice: a name that the other side's listing lacks is missing, and a file of Folder 2 that the
// first walk has paired needs no look-up in the second.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "compare/compare_table.h"
#include "compare/file_pair.h"
#include "compare/scanned_tree.h"
#include "platform/files.h"
#include "platform/forms.h"

namespace compare {

// Takes the files that a walk finds.
class PairVisitor {
  public:
    virtual ~PairVisitor() = default;
    // `found` is the side being walked.
    virtual void Visit(const FilePair& pair, Side found, std::int32_t& Fcount) = 0;
};

// One comparison's scan. The rows made of its pairs point into Texts().
class FolderScanner : private FileLookUp {
  public:
    // Reads `stopRequested` after every entry.
    FolderScanner(platform::FileSystem& files, platform::FormHost& host, PairVisitor& visitor,
                  const bool& stopRequested);

    // Adds to `Fcount` the files below `fdnm`, at every depth, hidden ones and those that the
    // filter drops included. Unreadable folders add nothing. A stop ends the counting.
    void CountFiles(Side side, const std::string& fdnm, std::int32_t& Fcount);

    // Walks the tree of side `C12` breadth first: the files of a folder come before those of its
    // subfolders, in the file system's order. Both paths come back ending in a separator. True
    // when the walk ended normally, false when it was stopped.
    bool WalkFolder(std::string& srcPath, std::string& dstPath, std::int32_t& Fcount, Side C12);

    const ScanTroubles& Troubles() const { return troubles_; }
    const std::shared_ptr<RowTexts>& Texts() const { return texts_; }

  private:
    ScannedTree& TreeOf(Side side, const std::string& root);
    bool VisitFiles(ScannedFolder& found, Side side, std::int32_t& Fcount);
    void ListBoth(ScannedFolder& found, Side side);
    void NoteMissing();
    const FolderPair* PairOf(ScannedFolder& folder);
    platform::FileStatus Look(const FilePair& pair, Side side) override;

    platform::FileSystem& files_;
    platform::FormHost& host_;
    PairVisitor& visitor_;
    const bool& stopRequested_;
    ScanTroubles troubles_;
    RecentFolders recent_;
    std::shared_ptr<RowTexts> texts_ = std::make_shared<RowTexts>();
    std::unique_ptr<ScannedTree> trees_[2];
    ScannedFolder* current_[2] = {};  // the folder in hand on each side; null where it has none
    const ScannedFile* currentFile_ = nullptr;  // of the first walk
};

}  // namespace compare
