#include "compare/folder_scanner.h"

#include <functional>
#include <string_view>
#include <utility>

#include "platform/paths.h"

namespace compare {

namespace {

constexpr int kYieldsPerCountedFolder = 101;

const platform::FileStatus kMissing{};
// Stands for a file that the first walk has found: only that it exists is asked of it.
const platform::FileStatus kPairedBefore{{1, 0}, 0};

std::size_t IndexOf(Side side) {
    return side == Side::One ? 0 : 1;
}
Side Opposite(Side side) {
    return side == Side::One ? Side::Two : Side::One;
}

// Finds names of one folder's entries among those of its counterpart. Two folders that are nearly
// the same list their names in nearly the same order, so the next one is tried first; the table is
// made when that fails.
template <typename Entry, typename NameOf>
class NameIndex {
  public:
    NameIndex(const std::vector<Entry>& entries, NameOf nameOf)
        : entries_(entries), nameOf_(nameOf) {}

    std::size_t Find(std::string_view name) {
        if (entries_.empty()) return kNone;
        if (next_ < entries_.size() && nameOf_(entries_[next_]) == name) return next_++;
        if (slots_.empty()) Build();
        const std::string_view key = platform::NameKey(name, wanted_);
        for (std::size_t slot = Hash(key);; ++slot) {
            const std::uint32_t index = slots_[slot & mask_];
            if (index == kFree) return kNone;
            const std::string_view other = nameOf_(entries_[index]);
            if (other == name || platform::NameKey(other, scratch_) == key) {
                next_ = index + std::size_t{1};
                return index;
            }
        }
    }

    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  private:
    static constexpr std::uint32_t kFree = 0xFFFFFFFF;

    static std::size_t Hash(std::string_view key) { return std::hash<std::string_view>()(key); }

    void Build() {
        std::size_t size = 4;
        while (size < entries_.size() * 2) size *= 2;
        slots_.assign(size, kFree);
        mask_ = size - 1;
        for (std::uint32_t i = 0; i < entries_.size(); ++i) {
            std::size_t slot = Hash(platform::NameKey(nameOf_(entries_[i]), scratch_));
            while (slots_[slot & mask_] != kFree) ++slot;
            slots_[slot & mask_] = i;
        }
    }

    const std::vector<Entry>& entries_;
    NameOf nameOf_;
    std::size_t next_ = 0;
    std::vector<std::uint32_t> slots_;
    std::size_t mask_ = 0;
    std::string scratch_;
    std::string wanted_;
};

void MatchFiles(ScannedFolder& one, ScannedFolder& two) {
    NameIndex index(two.Files, [](const ScannedFile& file) { return file.Text(); });
    for (std::uint32_t i = 0; i < one.Files.size(); ++i) {
        ScannedFile& file = one.Files[i];
        const std::size_t found = index.Find(file.Text());
        if (found == index.kNone) continue;
        ScannedFile& other = two.Files[found];
        file.Match = static_cast<std::uint32_t>(found);
        file.MatchMayBeMissing = other.Link;
        other.Match = i;
        other.MatchMayBeMissing = file.Link;
    }
}

void MatchSubfolders(ScannedFolder& one, ScannedFolder& two) {
    NameIndex index(two.Subfolders, [](const ScannedFolder* folder) { return folder->Text(); });
    for (ScannedFolder* folder : one.Subfolders) {
        const std::size_t found = index.Find(folder->Text());
        if (found == index.kNone) continue;
        folder->Other = two.Subfolders[found];
        folder->Other->Other = folder;
    }
}

// What the listings alone say of the counterpart of `found.Files[i]`; null: look it up.
const platform::FileStatus* KnownCounterpart(const ScannedFolder& found, std::size_t i, Side side) {
    const ScannedFolder* other = found.Other;
    if (!other) return &kMissing;
    if (!found.Paired) return nullptr;
    const ScannedFile& file = found.Files[i];
    if (file.Match == ScannedFile::kNoMatch) return &kMissing;
    if (file.MatchMayBeMissing) return nullptr;
    if (side == Side::Two) return &kPairedBefore;
    return other->Statuses.empty() ? nullptr : &other->Statuses[file.Match];
}

}  // namespace

FolderScanner::FolderScanner(platform::FileSystem& files, platform::FormHost& host,
                             PairVisitor& visitor, const bool& stopRequested)
    : files_(files), host_(host), visitor_(visitor), stopRequested_(stopRequested) {}

ScannedTree& FolderScanner::TreeOf(Side side, const std::string& root) {
    auto& tree = trees_[IndexOf(side)];
    if (!tree || tree->RootPath() != root)
        tree = std::make_unique<ScannedTree>(files_, texts_->Names, recent_, troubles_, root);
    return *tree;
}

void FolderScanner::CountFiles(Side side, const std::string& fdnm, std::int32_t& Fcount) {
    ScannedTree& tree = TreeOf(side, platform::WithSeparator(fdnm));
    std::vector<ScannedFolder*> waiting{&tree.Root()};
    while (!waiting.empty() && !stopRequested_) {
        ScannedFolder& folder = *waiting.back();
        waiting.pop_back();
        tree.List(folder);
        Fcount += static_cast<std::int32_t>(folder.Files.size());
        for (int i = 0; i < kYieldsPerCountedFolder; ++i) host_.DoEvents();
        waiting.insert(waiting.end(), folder.Subfolders.rbegin(), folder.Subfolders.rend());
    }
}

bool FolderScanner::WalkFolder(std::string& srcPath, std::string& dstPath, std::int32_t& Fcount,
                               Side C12) {
    srcPath = platform::WithSeparator(std::move(srcPath));
    dstPath = platform::WithSeparator(std::move(dstPath));
    ScannedFolder& root = TreeOf(C12, srcPath).Root();
    root.Other = &TreeOf(Opposite(C12), dstPath).Root();
    root.Other->Other = &root;

    std::vector<ScannedFolder*> queue{&root};
    for (std::size_t i = 0; i < queue.size(); ++i) {
        ScannedFolder& folder = *queue[i];
        ListBoth(folder, C12);
        if (!VisitFiles(folder, C12, Fcount)) return false;
        for (ScannedFolder* subfolder : folder.Subfolders) {
            queue.push_back(subfolder);
            host_.DoEvents();
            if (stopRequested_) return false;
        }
        // What this walk is done with is never read again: the second walk goes over Folder 2.
        std::vector<ScannedFile>().swap(folder.Files);
        std::vector<platform::FileStatus>().swap(folder.Statuses);
        host_.DoEvents();
        if (stopRequested_) return false;
    }
    return true;
}

void FolderScanner::ListBoth(ScannedFolder& found, Side side) {
    trees_[IndexOf(side)]->List(found);
    ScannedFolder* other = found.Other;
    if (!other) return;
    ScannedTree& otherTree = *trees_[IndexOf(Opposite(side))];
    otherTree.List(*other);
    // What cannot be listed may still be looked into, name by name; so must be what lies beside a
    // listing that broke off.
    if (!other->Readable || !found.Readable)
        for (ScannedFolder* folder : found.Subfolders)
            folder->Other = otherTree.Probe(*other, *folder);
    if (found.Paired || !found.Readable || !other->Readable) return;
    ScannedFolder& one = side == Side::One ? found : *other;
    ScannedFolder& two = side == Side::One ? *other : found;
    MatchFiles(one, two);
    MatchSubfolders(one, two);
    one.Paired = two.Paired = true;
}

bool FolderScanner::VisitFiles(ScannedFolder& found, Side side, std::int32_t& Fcount) {
    current_[IndexOf(side)] = &found;
    current_[IndexOf(Opposite(side))] = found.Other;
    FilePair pair;
    pair.Folder = PairOf(found);
    pair.LookUp = this;
    for (std::size_t i = 0; i < found.Files.size(); ++i) {
        pair.Name = found.Files[i].Name;
        pair.NameLength = found.Files[i].Length;
        const platform::FileStatus* own = found.Statuses.empty() ? nullptr : &found.Statuses[i];
        const platform::FileStatus* other = KnownCounterpart(found, i, side);
        pair.Known1 = side == Side::One ? own : other;
        pair.Known2 = side == Side::One ? other : own;
        currentFile_ = side == Side::One ? &found.Files[i] : nullptr;
        if (own && own->Time.IsZero()) NoteMissing();
        visitor_.Visit(pair, side, Fcount);
        if (stopRequested_) return false;
        host_.DoEvents();
    }
    return true;
}

// Both sides' paths are spelt as the side that was met first spells them. A walk comes from above,
// so the parent has its pair already.
const FolderPair* FolderScanner::PairOf(ScannedFolder& folder) {
    if (folder.Pair) return folder.Pair;
    if (folder.Other && folder.Other->Pair) return folder.Pair = folder.Other->Pair;
    FolderPair& pair = texts_->Folders.emplace_back();
    folder.Pair = &pair;
    if (folder.Parent) {
        pair.Name1 = pair.Name2 =
            texts_->Names.Keep(std::string(folder.Text()) + platform::Separator);
        pair.Parent = PairOf(*folder.Parent);
    } else {
        pair.Name1 = texts_->Names.Keep(trees_[0]->RootPath());
        pair.Name2 = texts_->Names.Keep(trees_[1]->RootPath());
    }
    return &pair;
}

platform::FileStatus FolderScanner::Look(const FilePair& pair, Side side) {
    ScannedFolder* folder = current_[IndexOf(side)];
    const platform::FileStatus status =
        folder ? trees_[IndexOf(side)]->Look(*folder, pair.Name) : platform::FileStatus{};
    if (side == Side::One && status.Time.IsZero()) NoteMissing();
    return status;
}

// A file without a time counts as missing, so the second walk must look for it again.
void FolderScanner::NoteMissing() {
    if (!currentFile_ || currentFile_->Match == ScannedFile::kNoMatch) return;
    current_[1]->Files[currentFile_->Match].MatchMayBeMissing = true;
}

}  // namespace compare
