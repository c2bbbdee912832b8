#include "platform/files.h"

#include <map>

#include <gtest/gtest.h>

#include "fakes/temp_folder.h"
#include "platform/paths.h"

namespace {

using platform::EntryKind;
using platform::FileStatus;
using platform::FileSystem;
using platform::Folder;
using platform::Outcome;

const char* const kPrecise = "2024-03-10 12:34:56.1234567 UTC";

class FilesTest : public testing::Test {
  protected:
    std::unique_ptr<Folder> Opened(std::string_view relative = {}) {
        Outcome outcome;
        auto folder = files_.OpenFolder(temp_.Path(relative), outcome);
        EXPECT_TRUE(folder) << outcome.Reason;
        return folder;
    }

    fakes::TempFolder temp_;
    FileSystem& files_ = platform::SystemFiles();
};

std::map<std::string, EntryKind> KindsIn(Folder& folder) {
    platform::TextArena names;
    platform::Listing listing;
    EXPECT_TRUE(folder.List(names, listing).Ok());
    std::map<std::string, EntryKind> kinds;
    for (const platform::FolderEntry& entry : listing.Entries) {
        EXPECT_EQ(entry.Name[entry.Length], '\0');
        EXPECT_TRUE(kinds.try_emplace(std::string(entry.Text()), entry.Kind).second);
    }
    return kinds;
}

TEST_F(FilesTest, ListNamesEveryEntryWithItsKind) {
    const std::map<std::string, EntryKind> expected = {
        {"a.txt", EntryKind::File},        {".hidden", EntryKind::File},
        {"no extension", EntryKind::File}, {" blank in front", EntryKind::File},
        {"ünï 日本 😀", EntryKind::File},   {"empty folder", EntryKind::Folder},
        {"x.d", EntryKind::Folder},        {".varnel~0123abcd", EntryKind::File},
    };
    for (const auto& [name, kind] : expected) {
        if (kind == EntryKind::Folder) {
            temp_.MakeFolder(name);
        } else {
            temp_.WriteFile(name, "content");
        }
    }
    const auto folder = Opened();
    EXPECT_EQ(KindsIn(*folder), expected);
    EXPECT_EQ(KindsIn(*folder), expected) << "listed a second time";
    EXPECT_EQ(KindsIn(*Opened("empty folder")).size(), 0u);
}

TEST_F(FilesTest, ListIsCompleteWhereOneReadOfTheSystemIsNot) {
    constexpr std::size_t kCount = 1100;
    for (std::size_t i = 0; i < kCount; ++i)
        temp_.WriteFile("f/" + std::string(250, 'n') + std::to_string(i), "");
    EXPECT_EQ(KindsIn(*Opened("f")).size(), kCount);
}

TEST_F(FilesTest, StatusesOfAListingAreThoseOfLook) {
    temp_.WriteFile("a", "12345", fakes::Time(kPrecise));
    temp_.WriteFile("empty", "", fakes::Time("1970-01-01 00:00:00 UTC"));
    temp_.MakeFolder("folder");
    const auto folder = Opened();
    platform::TextArena names;
    platform::Listing listing;
    folder->List(names, listing);
    ASSERT_TRUE(listing.Statuses.empty() || listing.Statuses.size() == listing.Entries.size());
    for (std::size_t i = 0; i < listing.Statuses.size(); ++i) {
        const FileStatus looked = folder->Look(listing.Entries[i].Name);
        EXPECT_EQ(listing.Statuses[i].Size, looked.Size) << listing.Entries[i].Name;
        EXPECT_EQ(listing.Statuses[i].Time, looked.Time) << listing.Entries[i].Name;
    }
}

TEST_F(FilesTest, LookGivesSizeAndExactTime) {
    const std::vector<const char*> times = {
        kPrecise,
        "1980-01-01 00:00:00 UTC",
        "1969-12-31 23:59:59.9 UTC",
        "1999-12-31 23:59:59.9999999 UTC",
        "2040-02-29 01:02:03.0000001 UTC",
    };
    const auto folder = Opened();
    for (const char* time : times) {
        temp_.WriteFile("file", std::string(70000, 'x'), fakes::Time(time));
        for (const FileStatus& status : {files_.Look(temp_.Path("file")), folder->Look("file")}) {
            EXPECT_EQ(status.Size, 70000) << time;
            EXPECT_EQ(status.Time, fakes::Time(time)) << time;
        }
    }
}

TEST_F(FilesTest, WhatIsNoFileHasNoStatus) {
    temp_.MakeFolder("folder");
    temp_.WriteFile("file", "");
    const auto folder = Opened();
    for (const char* name : {"folder", "missing", "missing/file", "file/below"}) {
        EXPECT_FALSE(files_.Look(temp_.Path(name)).Exists()) << name;
        EXPECT_FALSE(folder->Look(name).Exists()) << name;
    }
    EXPECT_TRUE(files_.Look(temp_.Path("file")).Exists());
    EXPECT_FALSE(files_.Look("").Exists());
}

TEST_F(FilesTest, FolderExistsOnlyForFolders) {
    temp_.WriteFile("folder/file", "");
    const std::vector<std::pair<std::string, bool>> cases = {
        {temp_.Path("folder"), true},
        {platform::WithSeparator(temp_.Path("folder")), true},
        {temp_.Path("folder/../folder/."), true},
        {temp_.Path("folder/file"), false},
        {platform::WithSeparator(temp_.Path("folder/file")), false},
        {temp_.Path("missing"), false},
        {temp_.Path("folder") + " ", false},
        {temp_.Path("fold*"), false},
        {temp_.Path(std::string(2000, 'x')), false},
        {"", false},
        {"   ", false},
    };
    for (const auto& [path, expected] : cases)
        EXPECT_EQ(files_.FolderExists(path), expected) << path;
    const auto folder = Opened();
    EXPECT_TRUE(folder->IsFolder("folder"));
    EXPECT_FALSE(folder->IsFolder("missing"));
    EXPECT_FALSE(Opened("folder")->IsFolder("file"));
}

TEST_F(FilesTest, OpenFailsWithAReason) {
    temp_.WriteFile("folder/file", "");
    const auto root = Opened();
    for (const char* name : {"missing", "folder/file"}) {
        Outcome outcome;
        EXPECT_FALSE(files_.OpenFolder(temp_.Path(name), outcome));
        EXPECT_EQ(outcome.Path, temp_.Path(name));
        EXPECT_NE(outcome.Reason, "");
        Outcome relative;
        EXPECT_FALSE(root->Open(name, relative)) << name;
        EXPECT_FALSE(relative.Ok());
    }
}

TEST_F(FilesTest, OpenReachesAFolderSeveralLevelsDown) {
    temp_.WriteFile("a/b/c/file", "1");
    Outcome outcome;
    std::string relative = "a/b/c";
    for (char& character : relative) character = character == '/' ? platform::Separator : character;
    const auto folder = Opened()->Open(relative.c_str(), outcome);
    ASSERT_TRUE(folder);
    EXPECT_EQ(folder->Look("file").Size, 1);
}

TEST_F(FilesTest, IdentityTellsFoldersApartWhateverTheirPaths) {
    temp_.MakeFolder("one");
    temp_.MakeFolder("two");
    const auto one = Opened("one")->Identity();
    ASSERT_TRUE(one);
    EXPECT_EQ(one, Opened("two/../one")->Identity());
    EXPECT_NE(one, Opened("two")->Identity());
}

TEST_F(FilesTest, CreateFolderMakesOneLevel) {
    EXPECT_TRUE(files_.CreateFolder(temp_.Path("new")).Ok());
    EXPECT_TRUE(files_.FolderExists(temp_.Path("new")));
    temp_.WriteFile("file", "1");
    for (const char* refused : {"new", "missing/below", "file", "file/below"}) {
        const Outcome outcome = files_.CreateFolder(temp_.Path(refused));
        EXPECT_FALSE(outcome.Ok()) << refused;
        EXPECT_NE(outcome.Reason, "") << refused;
    }
    EXPECT_EQ(temp_.Read("file"), "1");
}

TEST_F(FilesTest, RemoveFileTakesAwayFilesOnly) {
    temp_.WriteFile("file", "");
    temp_.WriteFile("read-only", "");
    temp_.SetReadOnly("read-only", true);
    temp_.MakeFolder("folder");
    EXPECT_TRUE(files_.RemoveFile(temp_.Path("file")).Ok());
    EXPECT_TRUE(files_.RemoveFile(temp_.Path("read-only")).Ok());
    EXPECT_FALSE(files_.RemoveFile(temp_.Path("missing")).Ok());
    EXPECT_FALSE(files_.RemoveFile(temp_.Path("folder")).Ok());
    EXPECT_EQ(temp_.Names(), std::vector<std::string>{"folder"});
}

}  // namespace
