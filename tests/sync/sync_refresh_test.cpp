#include "sync/sync_refresh.h"

#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/fake_files.h"
#include "fakes/items.h"
#include "fakes/temp_folder.h"
#include "platform/headless/headless_host.h"
#include "platform/paths.h"

namespace syncing {
namespace {

using compare::Category;
using compare::ItemList;
using compare::SyncMode;
using fakes::Item;
using fakes::Rows;
using platform::FileTime;
using Texts = std::vector<std::string>;

class SyncRefreshTest : public testing::Test {
  protected:
    const std::string root1 = platform::WithSeparator(fakes::FakeFiles::Path("1"));
    const std::string root2 = platform::WithSeparator(fakes::FakeFiles::Path("2"));
    const compare::FolderPair roots{nullptr, root1, root2};
    fakes::FakeFiles files;
    platform::headless::Host host;
    compare::CompareTable table;
    platform::Label labels[4];
    SyncRefresh refresh{table, files, host, {labels[0], labels[1], labels[2], labels[3]}};
};

TEST_F(SyncRefreshTest, TheFirstRowsThatTheWorkerActsOnAreHandled) {
    ItemList list;
    const char* names[] = {"a", "b", "c", "d", "e", "f"};
    const std::int16_t codes[] = {40, 11, 12, 0, 21, 11};
    for (int i = 0; i < 6; ++i) list.push_back(Item(roots, names[i], codes[i]));
    struct Case {
        SyncMode Mode;
        Category List;
        int Count;
        Texts Rows;
    };
    const Case cases[] = {
        {SyncMode::Double, Category::NewChg, 0, {}},
        {SyncMode::Double, Category::NewChg, 2, {"11 b", "12 c"}},
        {SyncMode::Double, Category::NewChg, 4, {"11 b", "12 c", "21 e", "11 f"}},
        {SyncMode::Left, Category::NewChg, 2, {"11 b", "21 e"}},
        {SyncMode::Left, Category::New, 2, {"11 b", "11 f"}},
        {SyncMode::Right, Category::NewChg, 1, {"12 c"}},
        {SyncMode::Double, Category::Same, 1, {"21 e"}},
    };
    for (const Case& c : cases) EXPECT_EQ(Rows(HandledRows(list, c.Mode, c.List, c.Count)), c.Rows);
}

TEST_F(SyncRefreshTest, SucceedsWithEqualSizesAndTimesLessThanTwoSecondsApart) {
    using File = std::optional<platform::FileStatus>;
    const FileTime base = fakes::Time("2020-01-02 03:04:05.5 UTC");
    const auto at = [&](const char* text) { return File{{fakes::Time(text), 7}}; };
    const File same{{base, 7}};
    struct Case {
        const char* Name;
        File File1, File2;
        bool Succeeds;
    };
    const Case cases[] = {
        {"equal", same, same, true},
        {"empty", File{{base, 0}}, File{{base, 0}}, true},
        {"1.9999 later", same, at("2020-01-02 03:04:07.4999 UTC"), true},
        {"1.9999 earlier", same, at("2020-01-02 03:04:03.5001 UTC"), true},
        {"1.9999 within two seconds", at("2020-01-02 03:04:05 UTC"),
         at("2020-01-02 03:04:06.9999 UTC"), true},
        {"2 later", same, at("2020-01-02 03:04:07.5 UTC"), false},
        {"2 earlier", same, at("2020-01-02 03:04:03.5 UTC"), false},
        {"2.1 later", same, at("2020-01-02 03:04:07.6 UTC"), false},
        {"other size", same, File{{base, 8}}, false},
        {"missing 1", {}, same, false},
        {"missing 2", same, {}, false},
        {"missing both", {}, {}, false},
    };
    constexpr std::int16_t kCodes[] = {11, 12, 21, 22};
    for (const Case& c : cases)
        for (const std::int16_t code : kCodes) {
            SCOPED_TRACE(std::string(c.Name) + ' ' + std::to_string(code));
            for (const auto& [name, file] : {std::pair{"1/a", c.File1}, {"2/a", c.File2}}) {
                if (file)
                    files.AddFile(name, file->Time, file->Size);
                else
                    files.Remove(name);
            }
            refresh.Run({Item(roots, "a", code)});
            const bool right = code == 11 || code == 21;
            const std::string row = (c.Succeeds ? std::to_string(code)
                                     : right    ? "31"
                                                : "32") +
                                    " a";
            EXPECT_EQ(Rows(table.SyncAllList), Texts{row});
            EXPECT_EQ(Rows(table.SyncLrList), c.Succeeds && right ? Texts{row} : Texts());
            EXPECT_EQ(Rows(table.SyncRlList), c.Succeeds && !right ? Texts{row} : Texts());
            EXPECT_EQ(Rows(table.FailList), c.Succeeds ? Texts() : Texts{row});
            EXPECT_EQ(refresh.SyncTotalCount, 1);
            EXPECT_EQ(refresh.SyncFailCount, c.Succeeds ? 0 : 1);
        }
}

// Two files may have been that near before.
TEST_F(SyncRefreshTest, WithoutACopyTheTimesMustBeEqual) {
    const FileTime time = fakes::Time("2020-01-02 03:04:05 UTC");
    struct Case {
        FileTime Time2;
        bool Copied;
        const char* Row;
    };
    const Case cases[] = {{{time.Seconds, 1}, true, "21 a"},
                          {{time.Seconds, 1}, false, "31 a"},
                          {time, false, "21 a"}};
    files.AddFile("1/a", time, 7);
    for (const Case& c : cases) {
        files.AddFile("2/a", c.Time2, 7);
        refresh.Run({Item(roots, "a", 21)}, {c.Copied});
        EXPECT_EQ(Rows(table.SyncAllList), Texts{c.Row});
    }
}

TEST_F(SyncRefreshTest, RowsShowTheFilesAsTheyAreNow) {
    const FileTime time = fakes::Time("2020-01-02 03:04:05 UTC");
    compare::CompareItem item = Item(roots, "a", 11);
    item.Time1 = {1, 0};
    item.Bytes1 = 5;
    item.PlainZeroDate2 = true;
    files.AddFile("1/a", time, 9);
    refresh.Run({item});
    const compare::CompareItem& failed = table.FailList.at(0);
    EXPECT_EQ(failed.Date1(), platform::FormatFileTime(time));
    EXPECT_EQ(failed.Size1(), "9");
    EXPECT_EQ(failed.Date2(), "00:00:00");
    EXPECT_EQ(failed.Size2(), "");
}

TEST_F(SyncRefreshTest, TalliesStandOnTheCategoryLabelsAndStartAnewEachTime) {
    files.AddFile("1/a", {1, 0}, 1);
    files.AddFile("2/a", {1, 0}, 1);
    ItemList handled{Item(roots, "a", 11), Item(roots, "a", 21), Item(roots, "a", 12)};
    for (int i = 0; i < 4; ++i) handled.push_back(Item(roots, "missing", 12));
    for (int run = 0; run < 2; ++run) {
        refresh.Run(handled);
        Texts captions;
        for (const platform::Label& label : labels) captions.push_back(label.Caption());
        EXPECT_EQ(captions, (Texts{"Sync --> ( 2 ) ", "( 1 ) <-- Sync", "Sync Fail ( 4 ) ",
                                   "Sync Total ( 7 ) "}));
    }
    EXPECT_EQ(refresh.SyncTotalCount, 7);
    EXPECT_EQ(refresh.SyncFailCount, 4);
}

}  // namespace
}  // namespace syncing
