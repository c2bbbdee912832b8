#include "compare/compare_table.h"

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/items.h"
#include "fakes/temp_folder.h"

namespace compare {
namespace {

using Texts = std::vector<std::string>;

const FolderPair kRoots{nullptr, "/one/", "/the other/"};
const FolderPair kSub{&kRoots, "sub/", "SUB/"};
const FolderPair kDeep{&kSub, "deep/", "deep/"};
const platform::FileTime kTime = fakes::Time("2020-01-02 03:04:05.5 UTC");

TEST(CompareItem, APathIsTheNamesFromTheRootDown) {
    struct Case {
        const FolderPair* Folder;
        Texts Expected;  // Path1, Path2, RelativePath
    };
    const Case cases[] = {
        {&kRoots, {"/one/a", "/the other/a", "a"}},
        {&kDeep, {"/one/sub/deep/a", "/the other/SUB/deep/a", "sub/deep/a"}},
    };
    for (const Case& c : cases) {
        const CompareItem item = fakes::Item(*c.Folder, "a", 0);
        EXPECT_EQ((Texts{item.Path1(), item.Path2(), item.RelativePath()}), c.Expected);
        std::string text = "before ";
        item.AppendPath1(text);
        EXPECT_EQ(text, "before " + c.Expected[0]);
    }
}

TEST(CompareItem, TextsOfTimesAndSizes) {
    const std::string time = platform::FormatFileTime(kTime);
    struct Case {
        platform::FileTime Time1, Time2;
        std::int64_t Size1, Size2;
        bool PlainZeroDate2;
        Texts Expected;  // Date1, Size1, Date2, Size2
    };
    const std::string zero = "1899/12/30 00:00:00";
    const Case cases[] = {
        {kTime, {}, 0, -1, true, {time, "0", "00:00:00", ""}},
        {{}, kTime, -1, 5'000'000'000, false, {zero, "", time, "5000000000"}},
        {{}, {}, -1, -1, false, {zero, "", zero, ""}},
        // Looked at again after a copy, the file has its time.
        {kTime, kTime, 7, 7, true, {time, "7", time, "7"}},
    };
    for (const Case& c : cases) {
        CompareItem item = fakes::Item(kRoots, "a", 0);
        item.Time1 = c.Time1;
        item.Time2 = c.Time2;
        item.Bytes1 = c.Size1;
        item.Bytes2 = c.Size2;
        item.PlainZeroDate2 = c.PlainZeroDate2;
        EXPECT_EQ((Texts{item.Date1(), item.Size1(), item.Date2(), item.Size2()}), c.Expected);
    }
}

TEST(CompareTable, TheJoinedListIsNewRowsThenModifiedRows) {
    CompareTable table;
    table.NewList = {fakes::Item(kRoots, "n1", 11), fakes::Item(kRoots, "n2", 12)};
    table.ChgList = {fakes::Item(kRoots, "c1", 22)};
    table.BuildNewChgList();
    EXPECT_EQ(fakes::Rows(table.NewChgList), (Texts{"11 n1", "12 n2", "22 c1"}));
    EXPECT_EQ(table.NewChgCount(), 3);

    table.NewList.clear();
    table.ChgList.clear();
    table.BuildNewChgList();
    EXPECT_EQ(table.NewChgCount(), 0);
}

TEST(CompareTable, ClearingLeavesNoRowsNoStorageAndNoCounts) {
    CompareTable table;
    const std::vector<ItemList CompareTable::*> lists = {
        &CompareTable::NewList,    &CompareTable::ChgList,   &CompareTable::NewChgList,
        &CompareTable::SameList,   &CompareTable::FailList,  &CompareTable::SyncAllList,
        &CompareTable::SyncLrList, &CompareTable::SyncRlList};
    for (const auto list : lists) (table.*list).resize(3);
    for (const SyncMode mode : {SyncMode::Left, SyncMode::Right, SyncMode::Double})
        for (const Category category :
             {Category::Chg, Category::New, Category::NewChg, Category::Same})
            ++table.PendingCount(mode, category);

    table.Clear(std::make_shared<RowTexts>());
    for (const auto list : lists) EXPECT_EQ((table.*list).capacity(), 0u);
    for (const SyncMode mode : {SyncMode::Left, SyncMode::Right, SyncMode::Double})
        for (const Category category :
             {Category::Chg, Category::New, Category::NewChg, Category::Same})
            EXPECT_EQ(table.PendingCount(mode, category), 0);
}

}  // namespace
}  // namespace compare
