// The outcome of one comparison in memory: lists of compared file pairs and their counters.
//
// The main window owns one CompareTable for its whole life. The comparison fills it, a
// synchronisation fills its four result lists, everybody else reads it or edits a row's Code.
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_time.h"
#include "platform/files.h"
#include "platform/text_arena.h"

namespace compare {

// A folder of the comparison on both sides at once. Its names end in a separator; those of the
// top pair (no Parent) are the two roots. A path is the names from the top down.
struct FolderPair {
    const FolderPair* Parent = nullptr;
    std::string_view Name1;
    std::string_view Name2;
};

// What a row's Code says.
namespace code {
inline constexpr std::int16_t kSame = 0;
inline constexpr std::int16_t kCopyRight = 11;     // new in Folder 1: copy it to Folder 2
inline constexpr std::int16_t kCopyLeft = 12;      // new in Folder 2: copy it to Folder 1
inline constexpr std::int16_t kReplaceRight = 21;  // modified: replace Folder 2's copy
inline constexpr std::int16_t kReplaceLeft = 22;   // modified: replace Folder 1's copy
inline constexpr std::int16_t kFailedRight = 31;   // a transfer to Folder 2 failed
inline constexpr std::int16_t kFailedLeft = 32;    // a transfer to Folder 1 failed
inline constexpr std::int16_t kDoNothing = 40;

inline bool IsRightward(std::int16_t c) {
    return c == kCopyRight || c == kReplaceRight;
}
inline bool IsLeftward(std::int16_t c) {
    return c == kCopyLeft || c == kReplaceLeft;
}
}  // namespace code

// One file that was found in Folder 1, in Folder 2 or in both. A million of them are ordinary, so
// a row holds what its texts are made of; the texts are made when somebody asks. Side 1 is always
// Folder 1, whichever folder the file was found in.
struct CompareItem {
    const FolderPair* Folder = nullptr;
    const char* Name = "";
    platform::FileTime Time1;
    platform::FileTime Time2;
    std::int64_t Bytes1 = platform::FileStatus::kNoSize;
    std::int64_t Bytes2 = platform::FileStatus::kNoSize;
    std::uint16_t NameLength = 0;
    std::int16_t Code = code::kSame;
    // The zero time of a file that only Folder 1 has is written as a time of day alone.
    bool PlainZeroDate2 = false;

    // Full paths, whether the files exist or not.
    std::string Path1() const;
    std::string Path2() const;
    void AppendPath1(std::string& text) const;
    void AppendPath2(std::string& text) const;

    // The path below the roots.
    std::string RelativePath() const;
    void AppendRelativePath(std::string& text) const;

    // "yyyy/mm/dd hh:mm:ss" in local time. A missing file's time is 1899/12/30 00:00:00, in
    // Date2 of a Folder-1-only row 00:00:00.
    std::string Date1() const;
    std::string Date2() const;
    void AppendDate1(std::string& text) const;
    void AppendDate2(std::string& text) const;

    // Bytes as decimal text, empty for a missing file.
    std::string Size1() const;
    std::string Size2() const;
    void AppendSize1(std::string& text) const;
    void AppendSize2(std::string& text) const;
    bool HasSize1() const { return Bytes1 != platform::FileStatus::kNoSize; }
    bool HasSize2() const { return Bytes2 != platform::FileStatus::kNoSize; }
};

using ItemList = std::vector<CompareItem>;

// What the rows of a comparison point into; goes at once with the comparison.
struct RowTexts {
    platform::TextArena Names;
    std::deque<FolderPair> Folders;
};

enum class SyncMode { Left, Right, Double };  // to Folder 2, to Folder 1, both ways
enum class Category { Chg, New, NewChg, Same };

class CompareTable {
  public:
    ItemList NewList;     // codes 11 and 12: first what only Folder 1 has
    ItemList ChgList;     // codes 21 and 22
    ItemList NewChgList;  // New rows, then Chg rows
    ItemList SameList;
    ItemList SyncAllList;  // the rows that the last synchronisation handled
    ItemList FailList;
    ItemList SyncLrList;  // done, Folder 1 to Folder 2
    ItemList SyncRlList;  // done, Folder 2 to Folder 1

    std::int32_t Fcount = 0;  // files still to be compared
    bool StopRequested = false;

    std::int32_t NewCount() const { return Count(NewList); }
    std::int32_t ChgCount() const { return Count(ChgList); }
    std::int32_t NewChgCount() const { return Count(NewChgList); }
    std::int32_t SameCount() const { return Count(SameList); }

    // Rows of a category that a mode has still to act on.
    std::int32_t& PendingCount(SyncMode mode, Category category) {
        return pendingCounts_[static_cast<std::size_t>(mode) * 4 +
                              static_cast<std::size_t>(category)];
    }

    // Empties all lists and counters. `texts` is what the next rows will point into.
    void Clear(std::shared_ptr<RowTexts> texts);

    // Refills NewChgList with copies of the New rows and the Chg rows.
    void BuildNewChgList();

    void ClearSyncLists();

    // The list of a category.
    ItemList& ListOf(Category category);

    static std::int32_t Count(const ItemList& list) {
        return static_cast<std::int32_t>(list.size());
    }

  private:
    std::array<std::int32_t, 12> pendingCounts_{};
    std::shared_ptr<RowTexts> texts_;
};

}  // namespace compare
