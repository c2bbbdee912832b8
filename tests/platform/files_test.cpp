#include "platform/files.h"

#include <algorithm>
#include <map>

#include <gtest/gtest.h>

#include "fakes/temp_folder.h"
#include "platform/paths.h"

namespace {

using platform::EntryKind;
using platform::FileStatus;
using platform::Folder;
using platform::Outcome;
using Names = std::vector<std::string>;

const platform::FileTime kTime = fakes::Time("2024-03-10 12:34:56.1234567 UTC");

class FilesTest : public testing::Test {
  protected:
    std::unique_ptr<Folder> Opened(std::string_view relative = {}) {
        Outcome outcome;
        auto folder = files_.OpenFolder(temp_.Path(relative), outcome);
        EXPECT_TRUE(folder) << outcome.Reason;
        return folder;
    }
    Outcome Copy(const std::string& from, const std::string& to) {
        return files_.CopyOver(temp_.Path(from), temp_.Path(to), [] {});
    }
    void ExpectCopied(const std::string& to, const std::string& content) {
        temp_.WriteFile("a/source", content, kTime);
        EXPECT_EQ(Copy("a/..//a/./source", to).Reason, "") << to;
        EXPECT_TRUE(temp_.Read(to) == content) << to;
        EXPECT_EQ(files_.Look(temp_.Path(to)).Time, kTime) << to;
    }

    fakes::TempFolder temp_;
    platform::FileSystem& files_ = platform::SystemFiles();
    const Names names_ = {" blank in front", ".hidden", "no extension", "x.tar.gz", "ünï 日本 😀"};
};

// Statuses that come with a listing are those that the folder gives.
std::map<std::string, EntryKind> KindsIn(Folder& folder) {
    platform::TextArena names;
    platform::Listing listing;
    EXPECT_TRUE(folder.List(names, listing).Ok());
    EXPECT_TRUE(listing.Statuses.empty() || listing.Statuses.size() == listing.Entries.size());
    std::map<std::string, EntryKind> kinds;
    for (std::size_t i = 0; i < listing.Entries.size(); ++i) {
        const platform::FolderEntry& entry = listing.Entries[i];
        EXPECT_TRUE(kinds.try_emplace(std::string(entry.Text()), entry.Kind).second);
        if (listing.Statuses.empty()) continue;
        EXPECT_EQ(listing.Statuses[i].Size, folder.Look(entry.Name).Size) << entry.Name;
        EXPECT_EQ(listing.Statuses[i].Time, folder.Look(entry.Name).Time) << entry.Name;
    }
    return kinds;
}

TEST_F(FilesTest, ListNamesEveryEntryWithItsKind) {
    std::map<std::string, EntryKind> expected = {{"empty folder", EntryKind::Folder},
                                                 {"x.d", EntryKind::Folder}};
    for (const auto& [name, kind] : expected) temp_.MakeFolder(name);
    Names names = names_;
    for (int i = 0; i < 1100; ++i)  // more than one call of the system gives
        names.push_back(std::string(250, 'n') + std::to_string(i));
    for (const std::string& name : names) {
        temp_.WriteFile(name, "content", kTime);
        expected[name] = EntryKind::File;
    }
    const auto folder = Opened();
    EXPECT_EQ(KindsIn(*folder), expected);
    EXPECT_EQ(KindsIn(*folder), expected) << "listed a second time";
    EXPECT_TRUE(KindsIn(*Opened("empty folder")).empty());
}

TEST_F(FilesTest, LookGivesSizeAndExactTimeOfFilesOnly) {
    temp_.MakeFolder("folder");
    const auto folder = Opened();
    for (const char* text :
         {"1969-12-31 23:59:59.9 UTC", "1970-01-01 00:00:00 UTC", "1999-12-31 23:59:59.9999999 UTC",
          "2040-02-29 01:02:03.0000001 UTC"}) {
        temp_.WriteFile("file", std::string(70000, 'x'), fakes::Time(text));
        for (const FileStatus& status : {files_.Look(temp_.Path("file")), folder->Look("file")}) {
            EXPECT_EQ(status.Size, 70000) << text;
            EXPECT_EQ(status.Time, fakes::Time(text)) << text;
        }
    }
    for (const char* name : {"folder", "missing", "missing/file", "file/below"}) {
        EXPECT_FALSE(files_.Look(temp_.Path(name)).Exists()) << name;
        EXPECT_FALSE(folder->Look(name).Exists()) << name;
    }
    EXPECT_FALSE(files_.Look("").Exists());
}

TEST_F(FilesTest, FoldersAreFoundOpenedAndKnownAgain) {
    temp_.WriteFile("a/b/c/file", "1");
    std::string relative = "a/b/c";
    std::replace(relative.begin(), relative.end(), '/', platform::Separator);
    Outcome outcome;
    const auto root = Opened();
    const auto deep = root->Open(relative.c_str(), outcome);
    ASSERT_TRUE(deep) << outcome.Reason;
    EXPECT_EQ(deep->Look("file").Size, 1);
    ASSERT_TRUE(deep->Identity());
    EXPECT_EQ(deep->Identity(), Opened("a/../a/b/c")->Identity());
    EXPECT_NE(deep->Identity(), Opened("a/b")->Identity());
    for (const char* path : {"a", "a/", "a/../a/."})
        EXPECT_TRUE(files_.FolderExists(temp_.Path(path))) << path;
    EXPECT_TRUE(root->IsFolder("a"));
    for (const char* name : {"missing", "a/b/c/file", "a/b/c/file/", "a ", "a*"}) {
        EXPECT_FALSE(files_.FolderExists(temp_.Path(name))) << name;
        EXPECT_FALSE(files_.OpenFolder(temp_.Path(name), outcome)) << name;
        EXPECT_EQ(outcome.Path, temp_.Path(name));
        EXPECT_NE(std::exchange(outcome, {}).Reason, "") << name;
        EXPECT_FALSE(root->Open(name, outcome)) << name;
        EXPECT_FALSE(outcome.Ok()) << name;
        EXPECT_FALSE(root->IsFolder(name)) << name;
    }
    for (const std::string& path : {temp_.Path(std::string(2000, 'x')), std::string(" ")})
        EXPECT_FALSE(files_.FolderExists(path)) << path;
}

TEST_F(FilesTest, FoldersAreMadeOneLevelAtATimeAndFilesRemoved) {
    EXPECT_TRUE(files_.CreateFolder(temp_.Path("new")).Ok());
    temp_.WriteFile("file", "1");
    for (const char* refused : {"new", "missing/below", "file", "file/below"})
        EXPECT_NE(files_.CreateFolder(temp_.Path(refused)).Reason, "") << refused;
    EXPECT_EQ(temp_.Read("file"), "1");
    temp_.SetReadOnly("file", true);
    EXPECT_TRUE(files_.RemoveFile(temp_.Path("file")).Ok());
    for (const char* other : {"missing", "new"})
        EXPECT_FALSE(files_.RemoveFile(temp_.Path(other)).Ok()) << other;
    EXPECT_EQ(temp_.Names(), Names{"new"});
}

TEST_F(FilesTest, CopiesCarryContentAndTimeAndLeaveNothingElse) {
    temp_.WriteFile("t/x.tar.gz", std::string(100'000, 'x'));
    for (const std::string& name : names_) ExpectCopied("t/" + name, "the content");
    EXPECT_EQ(temp_.Names("t"), names_);
    for (const std::size_t size : {0u, 1u, 131'072u, 131'073u, 20'000'003u}) {
        std::string content(size, '\0');
        for (std::size_t i = 0; i < size; ++i) content[i] = static_cast<char>(i * 7 + i / 251);
        ExpectCopied("t/a/b/new below", content);
        EXPECT_EQ(temp_.Names("t/a/b"), Names{"new below"});
    }
}

TEST_F(FilesTest, CopiesRefusedLeaveEverythingAsItWas) {
    temp_.WriteFile("source", "new");
    temp_.WriteFile("target", "old", kTime);
    temp_.WriteFile("folder/inside", "old");
    const std::pair<const char*, const char*> cases[] = {
        {"missing", "target"}, {"missing", "fresh"}, {"folder", "target"},
        {"folder", "fresh"},   {"source", "folder"}, {"source", "folder/../source"},
        {"source", "target/x"}};
    for (const auto& [from, to] : cases)
        EXPECT_NE(Copy(from, to).Reason, "") << from << " to " << to;
    EXPECT_EQ(temp_.Names(), (Names{"folder", "source", "target"}));
    EXPECT_EQ(temp_.Names("folder"), Names{"inside"});
    EXPECT_EQ(temp_.Read("source"), "new");
    EXPECT_EQ(temp_.Read("target"), "old");
    EXPECT_EQ(files_.Look(temp_.Path("target")).Time, kTime);
}

TEST_F(FilesTest, LeftoversOfCopiesAreRemovedAndNothingElseIs) {
    temp_.WriteFile(".varnel~12345678/inside", "a folder of that name");
    for (const char* name : {".varnel~0123ABCE", ".varnel~0123abc", ".varnel~0123abcde",
                             ".varnel~0123abcg", "varnel~0123abcd"})
        temp_.WriteFile(name, "");
    const Names others = temp_.Names();
    temp_.WriteFile(".varnel~0123abcd", "");
    for (const std::string& name : temp_.Names()) files_.RemoveLeftover(temp_.Path(name));
    EXPECT_EQ(temp_.Names(), others);
    EXPECT_TRUE(temp_.Exists(".varnel~12345678/inside"));
}

TEST_F(FilesTest, NoLimitOnAPathsLength) {
    const std::size_t length = platform::Separator == '/' ? 6000 : 300;
    std::string deep = "top";
    while (temp_.Path(deep).size() < length) deep += "/" + std::string(60, 'd');
    for (const char* content : {"content", "replaced"}) ExpectCopied(deep + "/file", content);
    EXPECT_TRUE(Copy(deep + "/file", "back").Ok());
    EXPECT_TRUE(files_.CreateFolder(temp_.Path(deep + "/folder")).Ok());
    EXPECT_TRUE(files_.FolderExists(temp_.Path(deep + "/folder/")));
    EXPECT_TRUE(Opened(deep)->IsFolder("folder"));
    temp_.WriteFile(deep + "/.varnel~00000000", "");
    files_.RemoveLeftover(temp_.Path(deep + "/.varnel~00000000"));
    EXPECT_TRUE(files_.RemoveFile(temp_.Path(deep + "/file")).Ok());
    EXPECT_EQ(temp_.Names(deep), Names{"folder"});
}

}  // namespace
