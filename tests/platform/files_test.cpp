#include "platform/files.h"

#include <map>
#include <utility>

#include "platform/files_fixture.h"
#include "platform/paths.h"

namespace {

using fakes::At;
using platform::EntryKind;

// Statuses that come with a listing are those that the folder gives.
TEST_F(FilesTest, AListingNamesEveryEntryOnceWithItsKind) {
    std::multimap<std::string, EntryKind> expected = {{"folder.d", EntryKind::Folder}}, listed;
    temp_.MakeFolder("folder.d");
    for (int i = 0; i < 1100; ++i) {  // more than one call of the system gives
        const std::string name = '.' + std::string(240, 'n') + ' ' + std::to_string(i);
        temp_.WriteFile(name, "content");
        expected.emplace(name, EntryKind::File);
    }
    const auto folder = Open();
    platform::TextArena names;
    platform::Listing listing;
    ASSERT_TRUE(folder->List(names, listing).Ok());
    for (const platform::FolderEntry& entry : listing.Entries)
        listed.emplace(entry.Text(), entry.Kind);
    EXPECT_EQ(listed, expected);
    for (std::size_t i = 0; i < listing.Statuses.size(); ++i) {
        const auto status = folder->Look(listing.Entries.at(i).Name);
        EXPECT_EQ(listing.Statuses[i].Size, status.Size);
        EXPECT_EQ(listing.Statuses[i].Time, status.Time);
    }
}

TEST_F(FilesTest, FoldersAreFoundOpenedAndKnownAgain) {
    temp_.WriteFile("a/b/file", "1");
    const auto root = Open();
    const auto deep = root->Open((std::string("a") + platform::Separator + 'b').c_str(), outcome_);
    ASSERT_TRUE(deep) << outcome_.Reason;
    EXPECT_EQ(deep->Identity(), Open("a/../a/b/")->Identity());
    EXPECT_NE(deep->Identity(), root->Identity());
    EXPECT_EQ(deep->Look("file").Size, 1);
    EXPECT_FALSE(deep->IsFolder("file") || deep->Open("file", outcome_));
    EXPECT_TRUE(root->IsFolder("a") && !root->Look("a").Exists());
    for (const char* name : {"missing", "a/b/file/below", "a ", "a*"}) {
        const std::string path = temp_.Path(name);
        EXPECT_FALSE(files_.FolderExists(path) || root->IsFolder(name)) << name;
        EXPECT_FALSE(files_.Look(path).Exists() || root->Look(name).Exists()) << name;
        EXPECT_FALSE(root->Open(name, outcome_) || files_.OpenFolder(path, outcome_)) << name;
        EXPECT_EQ(outcome_.Path, path);
    }
}

TEST_F(FilesTest, CopiesCarryContentAndExactTimeAndLeaveNothingElse) {
    const struct {
        const char* Target;
        std::size_t Size;
        platform::FileTime Time;
    } cases[] = {{"new/ blank in front", 0, At(-1, 900'000'000)},
                 {"new/er/.hidden", 131'072, At(946'684'799, 999'999'900)},
                 {"old/x.tar.gz", 131'073, At(1'710'074'096, 123'456'700)},
                 {"old/ünï 日本 😀", 20'000'003, At(2'214'003'723, 100)}};
    for (const char* target : {cases[2].Target, cases[3].Target})
        temp_.WriteFile(target, std::string(200'000, 'x'));
    for (const auto& [target, size, time] : cases) {
        std::string content(size, '\0');
        for (std::size_t i = 0; i < size; ++i) content[i] = static_cast<char>(i * 7 + i / 251);
        temp_.WriteFile("a/source", content, time);
        EXPECT_EQ(Copy("a/..//a/./source", target).Reason, "") << target;
        EXPECT_TRUE(temp_.Read(target) == content) << target;
        EXPECT_EQ(files_.Look(temp_.Path(target)).Time, time) << target;
    }
    EXPECT_EQ(temp_.Names("new"), (Names{" blank in front", "er"}));
    EXPECT_EQ(temp_.Names("old"), (Names{"x.tar.gz", "ünï 日本 😀"}));
}

TEST_F(FilesTest, WhatIsRefusedLeavesEverythingAsItWas) {
    temp_.WriteFile("source", "new");
    temp_.WriteFile("target", "old");
    temp_.WriteFile("folder/inside", "old");
    const std::pair<const char*, const char*> copies[] = {
        {"missing", "target"}, {"missing", "fresh"},           {"folder", "fresh"},
        {"source", "folder"},  {"source", "folder/../source"}, {"source", "target/x"}};
    for (const auto& [from, to] : copies)
        EXPECT_NE(Copy(from, to).Reason, "") << from << " to " << to;
    for (const char* name : {"folder", "target", "missing/below"})
        EXPECT_NE(files_.CreateFolder(temp_.Path(name)).Reason, "") << name;
    for (const char* name : {"folder", "missing"})
        EXPECT_NE(files_.RemoveFile(temp_.Path(name)).Reason, "") << name;
    EXPECT_EQ(temp_.Names(), (Names{"folder", "source", "target"}));
    EXPECT_EQ(temp_.Names("folder"), Names{"inside"});
    EXPECT_EQ(*temp_.Read("source") + *temp_.Read("target"), "newold");
}

TEST_F(FilesTest, ASourceOrTargetThatChangesDuringTheCopyFailsIt) {
    const struct {
        const char *Target, *Left;
        std::function<void()> Change;
    } cases[] = {{"old", "old", [this] { temp_.SetTime("source", At(1'600'000'000)); }},
                 {"old", "other", [this] { temp_.WriteFile("old", "other"); }},
                 {"new", "other", [this] { temp_.WriteFile("new", "other"); }}};
    for (const auto& [target, left, change] : cases) {
        temp_.WriteFile("source", std::string(40'000'000, 'x'));
        temp_.WriteFile("old", "old");
        EXPECT_FALSE(Copy("source", target, change).Ok()) << target;
        EXPECT_EQ(temp_.Read(target), left);
    }
    EXPECT_EQ(temp_.Names(), (Names{"new", "old", "source"}));
}

// Below a path that is longer than the system takes at once.
TEST_F(FilesTest, LeftoversOfCopiesAreRemovedAndNothingElseIs) {
    std::string deep;
    while (deep.size() < (platform::Separator == '/' ? 4100 : 300))
        deep += std::string(60, 'd') + '/';
    temp_.MakeFolder(deep + ".varnel~12345678");
    for (const char* name : {".varnel~0123ABCE", ".varnel~0123abc", ".varnel~0123abcde",
                             ".varnel~0123abcg", "varnel~0123abcd"})
        temp_.WriteFile(deep + name, "");
    const Names others = temp_.Names(deep);
    temp_.WriteFile(deep + ".varnel~0123abcd", "");
    for (const std::string& name : temp_.Names(deep))
        files_.RemoveLeftover(temp_.Path(deep + name));
    EXPECT_EQ(temp_.Names(deep), others);
    EXPECT_TRUE(files_.RemoveFile(temp_.Path(deep + others.back())).Ok());
}

}  // namespace
