// What a walk hands to the classifier: one file it met and the file of the same relative path on
// the other side.
#pragma once

#include <cstdint>
#include <string_view>

#include "compare/compare_table.h"
#include "platform/files.h"

namespace compare {

enum class Side { One, Two };

struct FilePair;

// Gets a file's time and size. Asked only where the answer matters: a look-up is what a
// comparison waits for.
class FileLookUp {
  public:
    virtual ~FileLookUp() = default;
    virtual platform::FileStatus Look(const FilePair& pair, Side side) = 0;
};

struct FilePair {
    const FolderPair* Folder = nullptr;
    const char* Name = "";
    std::uint16_t NameLength = 0;
    // What is known already, or null: ask LookUp.
    const platform::FileStatus* Known1 = nullptr;
    const platform::FileStatus* Known2 = nullptr;
    FileLookUp* LookUp = nullptr;

    platform::FileStatus Status(Side side) const {
        const platform::FileStatus* known = side == Side::One ? Known1 : Known2;
        return known ? *known : LookUp->Look(*this, side);
    }
    CompareItem ToItem() const {
        CompareItem item;
        item.Folder = Folder;
        item.Name = Name;
        item.NameLength = NameLength;
        return item;
    }
};

}  // namespace compare
