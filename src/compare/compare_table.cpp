#include "compare/compare_table.h"

#include <charconv>
#include <utility>

namespace compare {

namespace {

using NameOfSide = std::string_view FolderPair::*;

// Writes the names from the top pair (or, for a relative path, from below it) down to `folder`
// and the file's name, in one pass from the end, so that depth costs nothing but the bytes.
void AppendPath(const CompareItem& item, NameOfSide side, bool relative, std::string& text) {
    const auto isEnd = [relative](const FolderPair* f) { return !f || (relative && !f->Parent); };
    std::size_t size = item.NameLength;
    for (const FolderPair* f = item.Folder; !isEnd(f); f = f->Parent) size += (f->*side).size();

    const std::size_t start = text.size();
    text.resize(start + size);
    char* end = text.data() + start + size;
    const auto putBefore = [&end](std::string_view part) {
        end -= part.size();
        part.copy(end, part.size());
    };
    putBefore({item.Name, item.NameLength});
    for (const FolderPair* f = item.Folder; !isEnd(f); f = f->Parent) putBefore(f->*side);
}

void AppendNumber(std::int64_t number, std::string& text) {
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    text.append(digits, end);
}

template <typename Append>
std::string Made(const CompareItem& item, Append append) {
    std::string text;
    (item.*append)(text);
    return text;
}

}  // namespace

std::string CompareItem::Path1() const {
    return Made(*this, &CompareItem::AppendPath1);
}
std::string CompareItem::Path2() const {
    return Made(*this, &CompareItem::AppendPath2);
}
std::string CompareItem::Date1() const {
    return Made(*this, &CompareItem::AppendDate1);
}
std::string CompareItem::Date2() const {
    return Made(*this, &CompareItem::AppendDate2);
}
std::string CompareItem::Size1() const {
    return Made(*this, &CompareItem::AppendSize1);
}
std::string CompareItem::Size2() const {
    return Made(*this, &CompareItem::AppendSize2);
}
std::string CompareItem::RelativePath() const {
    return Made(*this, &CompareItem::AppendRelativePath);
}

void CompareItem::AppendPath1(std::string& text) const {
    AppendPath(*this, &FolderPair::Name1, false, text);
}

void CompareItem::AppendPath2(std::string& text) const {
    AppendPath(*this, &FolderPair::Name2, false, text);
}

void CompareItem::AppendRelativePath(std::string& text) const {
    AppendPath(*this, &FolderPair::Name1, true, text);
}

void CompareItem::AppendDate1(std::string& text) const {
    platform::AppendFileTime(Time1, text);
}

void CompareItem::AppendDate2(std::string& text) const {
    if (PlainZeroDate2 && Time2.IsZero())
        text += "00:00:00";
    else
        platform::AppendFileTime(Time2, text);
}

void CompareItem::AppendSize1(std::string& text) const {
    if (HasSize1()) AppendNumber(Bytes1, text);
}

void CompareItem::AppendSize2(std::string& text) const {
    if (HasSize2()) AppendNumber(Bytes2, text);
}

void CompareTable::Clear(std::shared_ptr<RowTexts> texts) {
    for (ItemList* list : {&NewList, &ChgList, &NewChgList, &SameList}) ItemList().swap(*list);
    ClearSyncLists();
    pendingCounts_.fill(0);
    texts_ = std::move(texts);
}

void CompareTable::ClearSyncLists() {
    for (ItemList* list : {&SyncAllList, &FailList, &SyncLrList, &SyncRlList})
        ItemList().swap(*list);
}

void CompareTable::BuildNewChgList() {
    NewChgList.clear();
    NewChgList.reserve(NewList.size() + ChgList.size());
    NewChgList.insert(NewChgList.end(), NewList.begin(), NewList.end());
    NewChgList.insert(NewChgList.end(), ChgList.begin(), ChgList.end());
}

ItemList& CompareTable::ListOf(Category category) {
    switch (category) {
        case Category::Chg:
            return ChgList;
        case Category::New:
            return NewList;
        case Category::NewChg:
            return NewChgList;
        case Category::Same:
            break;
    }
    return SameList;
}

}  // namespace compare
