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

class FilesTest : public testing::Test {
  protected:
    std::unique_ptr<Folder> Opened(std::string_view relative = {}) {
        Outcome outcome;
        auto folder = files_.OpenFolder(temp_.Path(relative), outcome);
        EXPECT_TRUE(folder) << outcome.Reason;
        return folder;
    }

    fakes::TempFolder temp_;
    platform::FileSystem& files_ = platform::SystemFiles();
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
        EXPECT_EQ(entry.Name[entry.Length], '\0');
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
    const platform::FileTime time = fakes::Time("1970-01-01 00:00:00 UTC");
    for (const char* name : {"a.txt", ".hidden", "no extension", " blank in front", "ünï 日本 😀",
                             ".varnel~0123abcd"}) {
        temp_.WriteFile(name, "content", time);
        expected[name] = EntryKind::File;
    }
    // More than one call of the system gives.
    for (std::size_t i = 0; i < 1100; ++i) {
        const std::string name = std::string(250, 'n') + std::to_string(i);
        temp_.WriteFile(name, "");
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
         {"2024-03-10 12:34:56.1234567 UTC", "1980-01-01 00:00:00 UTC", "1969-12-31 23:59:59.9 UTC",
          "1999-12-31 23:59:59.9999999 UTC", "2040-02-29 01:02:03.0000001 UTC"}) {
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

TEST_F(FilesTest, FolderExistsOnlyForFolders) {
    temp_.WriteFile("folder/file", "");
    for (const char* path : {"folder", "folder/", "folder/../folder/."})
        EXPECT_TRUE(files_.FolderExists(temp_.Path(path))) << path;
    for (const char* path : {"folder/file", "folder/file/", "missing", "folder ", "fold*"})
        EXPECT_FALSE(files_.FolderExists(temp_.Path(path))) << path;
    for (const std::string& path :
         {temp_.Path(std::string(2000, 'x')), std::string(), std::string("   ")})
        EXPECT_FALSE(files_.FolderExists(path)) << path;
    EXPECT_TRUE(Opened()->IsFolder("folder"));
    EXPECT_FALSE(Opened()->IsFolder("missing"));
    EXPECT_FALSE(Opened("folder")->IsFolder("file"));
}

TEST_F(FilesTest, FoldersAreOpenedAndKnownAgain) {
    temp_.WriteFile("a/b/c/file", "1");
    Outcome outcome;
    const auto root = Opened();
    std::string relative = "a/b/c";
    std::replace(relative.begin(), relative.end(), '/', platform::Separator);
    const auto deep = root->Open(relative.c_str(), outcome);
    ASSERT_TRUE(deep) << outcome.Reason;
    EXPECT_EQ(deep->Look("file").Size, 1);
    ASSERT_TRUE(deep->Identity());
    EXPECT_EQ(deep->Identity(), Opened("a/../a/b/c")->Identity());
    EXPECT_NE(deep->Identity(), Opened("a/b")->Identity());
    for (const char* name : {"missing", "a/b/c/file"}) {
        outcome = {};
        EXPECT_FALSE(files_.OpenFolder(temp_.Path(name), outcome));
        EXPECT_EQ(outcome.Path, temp_.Path(name));
        EXPECT_NE(outcome.Reason, "");
        outcome = {};
        EXPECT_FALSE(root->Open(name, outcome)) << name;
        EXPECT_FALSE(outcome.Ok());
    }
}

TEST_F(FilesTest, FoldersAreMadeOneLevelAtATimeAndFilesRemoved) {
    EXPECT_TRUE(files_.CreateFolder(temp_.Path("new")).Ok());
    EXPECT_TRUE(files_.FolderExists(temp_.Path("new")));
    temp_.WriteFile("file", "1");
    for (const char* refused : {"new", "missing/below", "file", "file/below"}) {
        const Outcome outcome = files_.CreateFolder(temp_.Path(refused));
        EXPECT_FALSE(outcome.Ok()) << refused;
        EXPECT_NE(outcome.Reason, "") << refused;
    }
    EXPECT_EQ(temp_.Read("file"), "1");
    temp_.WriteFile("read-only", "");
    temp_.SetReadOnly("read-only", true);
    for (const char* file : {"file", "read-only"})
        EXPECT_TRUE(files_.RemoveFile(temp_.Path(file)).Ok()) << file;
    for (const char* other : {"missing", "new"})
        EXPECT_FALSE(files_.RemoveFile(temp_.Path(other)).Ok()) << other;
    EXPECT_EQ(temp_.Names(), std::vector<std::string>{"new"});
}

}  // namespace
