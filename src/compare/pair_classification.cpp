#include "compare/pair_classification.h"

#include <charconv>
#include <string>

namespace compare {

std::string_view FileExtension(std::string_view path) {
    return rules::FileExtensionOf(path);
}

void ShowCount(platform::Label& label, std::string_view prefix, std::int32_t count,
               std::string_view suffix) {
    char text[80];
    char* end = text + prefix.copy(text, 40);
    end = std::to_chars(end, text + 60, count).ptr;
    end += suffix.copy(end, 20);
    label.SetCaption({text, static_cast<std::size_t>(end - text)});
}

// The path matters, not the name alone: where a short name has no dot, one in a folder's name
// counts.
bool PairClassifier::Passes(const FilePair& pair, Side found) const {
    if (filter_.FilterExtensions.empty()) return true;
    const CompareItem item = pair.ToItem();
    return rules::PassesFileFilter(filter_, found == Side::One ? item.Path1() : item.Path2());
}

bool PairClassifier::ClassifySide1(const FilePair& pair, std::int32_t& Fcount) {
    if (!Passes(pair, Side::One)) return !table_.StopRequested;
    const platform::FileStatus file2 = pair.Status(Side::Two);
    const platform::FileStatus file1 = pair.Status(Side::One);

    CompareItem item = pair.ToItem();
    item.Time1 = file1.Time;
    item.Time2 = file2.Time;
    item.Bytes1 = file1.Size;
    item.Bytes2 = file2.Size;
    if (file2.Time.IsZero()) {
        item.Bytes2 = platform::FileStatus::kNoSize;
        item.Code = code::kCopyRight;
        item.PlainZeroDate2 = true;
        AppendNew(item);
    } else if (file1.Time == file2.Time) {
        AppendSame(item);
    } else {
        AppendModified(item);
    }
    host_.DoEvents();
    return CountDown(Fcount);
}

bool PairClassifier::ClassifySide2(const FilePair& pair, std::int32_t& Fcount) {
    if (!Passes(pair, Side::Two)) return !table_.StopRequested;
    if (pair.Status(Side::One).Time.IsZero()) {
        const platform::FileStatus file2 = pair.Status(Side::Two);
        CompareItem item = pair.ToItem();
        item.Time2 = file2.Time;
        item.Bytes2 = file2.Size;
        item.Code = code::kCopyLeft;
        AppendNew(item);
        host_.DoEvents();
    }
    return CountDown(Fcount);
}

// The texts decide the direction: two times within one second have the same text and go left.
void PairClassifier::AppendModified(CompareItem item) {
    item.Code = item.Date1() > item.Date2() ? code::kReplaceRight : code::kReplaceLeft;
    table_.ChgList.push_back(item);
    ShowCount(labels_.LabelChgFile, "Modified Files ( ", table_.ChgCount(), " ) ");
    ShowNewAndModified();
}

void PairClassifier::AppendSame(const CompareItem& item) {
    table_.SameList.push_back(item);
    ShowCount(labels_.LabelAllFile, "Same Files ( ", table_.SameCount(), " ) ");
}

void PairClassifier::AppendNew(const CompareItem& item) {
    table_.NewList.push_back(item);
    ShowCount(labels_.LabelNewFile, "New Files ( ", table_.NewCount(), " ) ");
    ShowNewAndModified();
}

void PairClassifier::ShowNewAndModified() {
    ShowCount(labels_.LabelNewChgFile, "New and Modified Files ( ",
              table_.NewCount() + table_.ChgCount(), " ) ");
}

bool PairClassifier::CountDown(std::int32_t& Fcount) {
    --Fcount;
    ShowCount(labels_.lblComparing, "", Fcount, "");
    host_.DoEvents();
    if (table_.StopRequested) return false;
    host_.DoEvents();
    return true;
}

}  // namespace compare
