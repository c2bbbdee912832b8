#include "compare/folder_scanner.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/fake_files.h"
#include "fakes/items.h"
#include "fakes/temp_folder.h"
#include "platform/headless/headless_host.h"
#include "platform/paths.h"

namespace compare {
namespace {

using Texts = std::vector<std::string>;

const platform::FileTime kTime = fakes::Time("2020-01-02 03:04:05 UTC");

// Notes every visit as "1 sub/a", or "1 sub/a +" where the counterpart exists.
class Visits : public PairVisitor {
  public:
    Texts All;
    Texts Paths;  // Path1 and Path2 of the last visit
    long long StopAt = 0;
    bool Stop = false;

    void Visit(const FilePair& pair, Side found, std::int32_t& Fcount) override {
        --Fcount;
        const Side other = found == Side::One ? Side::Two : Side::One;
        const CompareItem item = pair.ToItem();
        All.push_back((found == Side::One ? "1 " : "2 ") +
                      fakes::FakeFiles::NameOf(item.RelativePath()) +
                      (pair.Status(other).Exists() ? " +" : ""));
        Paths = {item.Path1(), item.Path2()};
        if (static_cast<long long>(All.size()) == StopAt) Stop = true;
    }
};

class FolderScannerTest : public testing::Test {
  protected:
    FolderScannerTest() {
        files.AddFolder("1");
        files.AddFolder("2");
    }
    void Put(const std::string& name) { files.AddFile(name, kTime, 1); }

    // Counts and walks both sides; what is visited is in visits.All.
    void Scan() {
        scanner.CountFiles(Side::One, root1, count);
        scanner.CountFiles(Side::Two, root2, count);
        counted = count;
        scanner.WalkFolder(root1, root2, count, Side::One);
        scanner.WalkFolder(root2, root1, count, Side::Two);
    }

    fakes::FakeFiles files;
    platform::headless::Host host;
    Visits visits;
    FolderScanner scanner{files, host, visits, visits.Stop};
    std::string root1 = fakes::FakeFiles::Path("1");
    std::string root2 = fakes::FakeFiles::Path("2");
    std::int32_t count = 0;
    std::int32_t counted = 0;
};

TEST_F(FolderScannerTest, FilesComeBeforeSubfoldersLevelByLevelSide1First) {
    for (const char* name :
         {"1/z/deep/f", "1/z/c", "1/b", "1/y/d", "1/a", "2/z/deep/f", "2/y/e", "2/only/x/g", "2/b"})
        Put(name);
    files.AddFolder("1/empty");
    Scan();
    EXPECT_EQ(visits.All, (Texts{"1 b +", "1 a", "1 z/c", "1 y/d", "1 z/deep/f +",  //
                                 "2 b +", "2 y/e", "2 z/deep/f +", "2 only/x/g"}));
    EXPECT_EQ(counted, 9);
    EXPECT_EQ(count, 0);
}

TEST_F(FolderScannerTest, RootsMayLackTheirLastSeparator) {
    Put("1/sub/a");
    for (const bool with : {false, true}) {
        visits.All.clear();
        std::string source = with ? platform::WithSeparator(root1) : root1;
        std::string target = root2;
        EXPECT_TRUE(scanner.WalkFolder(source, target, count, Side::One));
        EXPECT_EQ(source, platform::WithSeparator(root1));
        EXPECT_EQ(target, platform::WithSeparator(root2));
        EXPECT_EQ(visits.Paths,
                  (Texts{fakes::FakeFiles::Path("1/sub/a"), fakes::FakeFiles::Path("2/sub/a")}));
    }
}

TEST_F(FolderScannerTest, YieldsWhileCounting) {
    for (const char* folder : {"1/a/b", "1/c"}) files.AddFolder(folder);
    scanner.CountFiles(Side::One, root1, count);
    EXPECT_EQ(host.Yields, 4 * 101);
}

TEST_F(FolderScannerTest, FindsTheCounterpartWhateverTheOrderOfTheListings) {
    constexpr int kFiles = 3000;
    for (int i = 0; i < kFiles; ++i) {
        Put("1/f" + std::to_string(i));
        Put("2/f" + std::to_string(i * 7 % kFiles));
        files.AddFolder("1/d" + std::to_string(i));
    }
    for (int i = kFiles; i-- > 0;) Put("2/d" + std::to_string(i) + "/x");
    Scan();
    ASSERT_EQ(visits.All.size(), 3u * kFiles);
    for (int i = 0; i < 2 * kFiles; ++i) EXPECT_TRUE(visits.All[i].ends_with(" +"));
    for (int i = 2 * kFiles; i < 3 * kFiles; ++i) EXPECT_TRUE(visits.All[i].ends_with("/x"));
}

TEST_F(FolderScannerTest, EachFolderIsListedOnce) {
    for (const char* name : {"1/a/b/f", "2/a/b/f", "2/a/c/g", "1/d/h"}) Put(name);
    Scan();
    const std::map<std::string, int> once{{"1", 1},   {"2", 1},     {"1/a", 1},   {"2/a", 1},
                                          {"1/d", 1}, {"1/a/b", 1}, {"2/a/b", 1}, {"2/a/c", 1}};
    EXPECT_EQ(files.Listings, once);
}

// What cannot be listed may still be looked into: its files are found from the other side.
TEST_F(FolderScannerTest, AFolderThatCannotBeListedHasNoRowsOfItsOwn) {
    for (const char* name : {"1/s/a", "1/s/t/b", "1/s/u/c", "2/s/a", "2/s/t/b", "2/s/t/only2"})
        Put(name);
    files.RefuseListing("2/s");
    files.RefuseListing("2/s/t");
    Scan();
    EXPECT_EQ(visits.All, (Texts{"1 s/a +", "1 s/t/b +", "1 s/u/c"}));
    EXPECT_EQ(counted, 3);
    ASSERT_EQ(scanner.Troubles().UnreadableFolders.size(), 2u);
    EXPECT_EQ(scanner.Troubles().UnreadableFolders[0].Path,
              platform::WithSeparator(fakes::FakeFiles::Path("2/s")));
    EXPECT_EQ(scanner.Troubles().UnreadableFolders[0].Reason, "refused");
}

TEST_F(FolderScannerTest, TheFirst20UnreadableFoldersAreNamedAndAllCounted) {
    for (int i = 0; i < 25; ++i) {
        files.AddFolder("1/d" + std::to_string(i));
        files.RefuseListing("1/d" + std::to_string(i));
    }
    Put("1/z/a");
    Scan();
    EXPECT_EQ(scanner.Troubles().UnreadableFolders.size(), 20u);
    EXPECT_EQ(scanner.Troubles().UnreadableCount, 25);
    EXPECT_EQ(visits.All, Texts{"1 z/a"});
}

TEST_F(FolderScannerTest, LeftoversOfCopiesAreNotVisitedButNamed) {
    for (const char* name : {"1/.varnel~01234abc", "2/s/.varnel~fedcba98", "1/.varnel~", "1/s/a"})
        Put(name);
    Scan();
    EXPECT_EQ(visits.All, (Texts{"1 .varnel~", "1 s/a"}));
    EXPECT_EQ(counted, 2);
    EXPECT_EQ(scanner.Troubles().Leftovers,
              (Texts{fakes::FakeFiles::Path("1/.varnel~01234abc"),
                     fakes::FakeFiles::Path("2/s/.varnel~fedcba98")}));
}

TEST_F(FolderScannerTest, AStopEndsTheWalkInHandAndTheSecondAfterItsFirstEntry) {
    for (const char* name : {"1/a", "1/b", "1/s/c", "2/x", "2/y", "2/s/z"}) Put(name);
    visits.StopAt = 2;
    Scan();
    EXPECT_EQ(visits.All, (Texts{"1 a", "1 b", "2 x"}));
}

TEST_F(FolderScannerTest, AStopWhileCountingEndsTheCounting) {
    for (const char* name : {"1/a", "1/s/b", "1/t/c"}) Put(name);
    host.OnYield = [this](long long yield) { visits.Stop = visits.Stop || yield == 50; };
    scanner.CountFiles(Side::One, root1, count);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(host.Yields, 101);
    EXPECT_FALSE(scanner.WalkFolder(root1, root2, count, Side::One));
    EXPECT_EQ(visits.All, Texts{"1 a"});
}

// More than a 16-bit counter of waiting folders holds.
TEST_F(FolderScannerTest, GoesOnBeyond32767Folders) {
    constexpr int kFolders = 40'000;
    for (int i = 0; i < kFolders; ++i) {
        Put("1/d" + std::to_string(i) + "/f");
        files.AddFolder("2/d" + std::to_string(i));
    }
    Put("2/d39999/last");
    Scan();
    ASSERT_EQ(visits.All.size(), kFolders + 1u);
    EXPECT_EQ(visits.All[kFolders - 1], "1 d39999/f");
    EXPECT_EQ(visits.All[kFolders], "2 d39999/last");
    EXPECT_EQ(count, 0);
}

}  // namespace
}  // namespace compare
