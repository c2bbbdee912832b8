#include "sync/sync_refresh.h"

#include <string>

#include <gtest/gtest.h>

#include "fakes/fake_files.h"
#include "fakes/items.h"
#include "fakes/temp_folder.h"
#include "platform/paths.h"

namespace syncing {
namespace {

using platform::FileStatus;
using Texts = std::vector<std::string>;

class SyncRefreshTest : public testing::Test {
  protected:
    void Examine(const compare::CompareItem& item, bool copied) {
        refresh.Begin();
        refresh.Examine(item, copied);
        refresh.Finish();
    }

    const std::string root1 = platform::WithSeparator(fakes::FakeFiles::Path("1"));
    const std::string root2 = platform::WithSeparator(fakes::FakeFiles::Path("2"));
    const compare::FolderPair roots{nullptr, root1, root2};
    fakes::FakeFiles files;
    compare::CompareTable table;
    platform::Label labels[4];
    SyncRefresh refresh{table, files, {labels[0], labels[1], labels[2], labels[3]}};
};

TEST_F(SyncRefreshTest, SuccessIsToldFromTheFilesAndNearTimesCountAfterACopyAlone) {
    constexpr bool kCopied = true, kNotCopied = false;
    constexpr FileStatus kFile{{100, 500'000'000}, 7}, kNone;
    const struct {
        FileStatus File1, File2;
        bool Copied, Succeeds;
    } cases[] = {
        {kFile, kFile, kCopied, true},
        {kFile, kFile, kNotCopied, true},
        {kFile, {{102, 499'999'999}, 7}, kCopied, true},
        {kFile, {{98, 500'000'001}, 7}, kCopied, true},
        {kFile, {{102, 500'000'000}, 7}, kCopied, false},
        {kFile, {{98, 500'000'000}, 7}, kCopied, false},
        {kFile, {{100, 500'000'001}, 7}, kNotCopied, false},
        {kFile, {{100, 500'000'000}, 8}, kCopied, false},
        {kFile, kNone, kCopied, false},
        {kNone, kFile, kCopied, false},
        {kNone, kNone, kCopied, false},
    };
    for (std::size_t i = 0; i < std::size(cases); ++i)
        for (const std::string code : {"11", "12", "21", "22"}) {
            SCOPED_TRACE(std::to_string(i) + " code " + code);
            const auto put = [this](const char* name, const FileStatus& file) {
                files.Remove(name);
                if (file.Exists()) files.AddFile(name, file.Time, file.Size);
            };
            put("1/a", cases[i].File1);
            put("2/a", cases[i].File2);
            Examine(fakes::Item(roots, "a", static_cast<std::int16_t>(std::stoi(code))),
                    cases[i].Copied);

            const bool right = code[1] == '1', done = cases[i].Succeeds;
            const Texts row{(done ? code : right ? "31" : "32") + " a"};
            EXPECT_EQ(fakes::Rows(table.SyncAllList), row);
            EXPECT_EQ(fakes::Rows(table.SyncLrList), done && right ? row : Texts());
            EXPECT_EQ(fakes::Rows(table.SyncRlList), done && !right ? row : Texts());
            EXPECT_EQ(fakes::Rows(table.FailList), done ? Texts() : row);
            EXPECT_EQ(refresh.SyncFailCount, done ? 0 : 1);
        }
}

TEST_F(SyncRefreshTest, RowsShowTheFilesAsTheyAreNow) {
    const platform::FileTime time = fakes::Time("2020-01-02 03:04:05 UTC");
    compare::CompareItem item = fakes::Item(roots, "a", 11);
    item.Time1 = {1, 0};
    item.Bytes1 = 5;
    item.PlainZeroDate2 = true;
    files.AddFile("1/a", time, 9);
    Examine(item, true);
    const compare::CompareItem& failed = table.FailList.at(0);
    EXPECT_EQ(failed.Date1(), platform::FormatFileTime(time));
    EXPECT_EQ(failed.Size1(), "9");
    EXPECT_EQ(failed.Date2(), "00:00:00");
    EXPECT_EQ(failed.Size2(), "");
}

}  // namespace
}  // namespace syncing
