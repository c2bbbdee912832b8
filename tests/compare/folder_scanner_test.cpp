#include "compare/folder_scanner.h"

#include <string>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace compare {
namespace {

using fakes::Rows;
using fakes::Texts;

class FolderScannerTest : public fakes::MainWindowTest {};

TEST_F(FolderScannerTest, FilesComeBeforeSubfoldersLevelByLevelSide1First) {
    for (const char* name : {"1/z/deep/f", "1/z/c", "1/b", "1/y/d", "1/a", "2/z/deep/f",
                             "2/z/deep/g", "2/z/.varnel~01234abc", "2/y/e", "2/only/x/h", "2/b"})
        Put(name);
    files.AddFolder("1/empty");
    form.Command3.Click();
    EXPECT_EQ(Rows(form.Table.SameList), (Texts{"0 b", "0 z/deep/f"}));
    EXPECT_EQ(Rows(form.Table.NewList),
              (Texts{"11 a", "11 z/c", "11 y/d", "12 y/e", "12 z/deep/g", "12 only/x/h"}));
    EXPECT_EQ(form.Table.Fcount, 0);
    EXPECT_EQ(form.Comparison().Troubles().Leftovers,
              Texts{fakes::FakeFiles::Path("2/z/.varnel~01234abc")});
}

TEST_F(FolderScannerTest, NamesAreMatchedWhateverTheOrderOfTheListings) {
    constexpr int kMany = 33'000;  // more folders than a 16-bit counter holds
    for (int i = 0; i < kMany; ++i) {
        Put("1/f" + std::to_string(i));
        Put("2/f" + std::to_string(i * 7 % kMany));
        Put("1/d" + std::to_string(i) + "/x");
        Put("2/d" + std::to_string(kMany - 1 - i) + "/x");
    }
    form.Command3.Click();
    EXPECT_EQ(form.Table.SameCount(), 2 * kMany);
    EXPECT_EQ(form.Table.NewChgCount(), 0);
    EXPECT_EQ(form.Table.Fcount, 0);
}

TEST_F(FolderScannerTest, EachFolderIsListedAndEachFileLookedAtOnceAtMost) {
    for (const char* name : {"both", "s/both", "s/t/both"}) PutBoth(name);
    for (const char* name : {"1/only1", "1/s/only1", "2/only2", "2/new/only2"}) Put(name);
    form.Command3.Click();
    EXPECT_EQ(files.Looks.size(), 10u);
    EXPECT_EQ(files.Listings.size(), 7u);
    for (const auto* counts : {&files.Looks, &files.Listings})
        for (const auto& [name, times] : *counts) EXPECT_EQ(times, 1) << name;

    files.Looks.clear();
    files.ListsStatuses = true;
    form.Command3.Click();
    EXPECT_TRUE(files.Looks.empty());
}

}  // namespace
}  // namespace compare
