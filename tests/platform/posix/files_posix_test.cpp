#include <map>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "fakes/posix/ordinary_user.h"
#include "fakes/temp_folder.h"
#include "platform/files.h"

namespace {

using platform::EntryKind;
using platform::Outcome;

class PosixFilesTest : public testing::Test {
  protected:
    std::map<std::string, EntryKind> Kinds() {
        Outcome outcome;
        platform::TextArena names;
        platform::Listing listing;
        files_.OpenFolder(temp_.Path(), outcome)->List(names, listing);
        std::map<std::string, EntryKind> kinds;
        for (const auto& entry : listing.Entries) kinds[std::string(entry.Text())] = entry.Kind;
        return kinds;
    }
    void Link(const std::string& target, const std::string& name) {
        ASSERT_EQ(::symlink(target.c_str(), temp_.Path(name).c_str()), 0);
    }

    fakes::TempFolder temp_;
    platform::FileSystem& files_ = platform::SystemFiles();
};

TEST_F(PosixFilesTest, NamesAreBytes) {
    const std::string names[] = {"new\nline",
                                 "tab\t",
                                 "\xFF\xFE not UTF-8",
                                 " ",
                                 "back\\slash",
                                 "*?<>|\"",
                                 "trailing ",
                                 "dot.",
                                 "con",
                                 "a:b",
                                 std::string(255, 'n'),
                                 "~",
                                 "-rf",
                                 "\x1B[31mred",
                                 "A",
                                 "a"};
    temp_.WriteFile("source", "content");
    for (const std::string& name : names)
        EXPECT_TRUE(files_.CopyOver(temp_.Path("source"), temp_.Path(name), [] {}).Ok()) << name;
    const auto kinds = Kinds();
    EXPECT_EQ(kinds.size(), std::size(names) + 1);
    for (const std::string& name : names) {
        EXPECT_EQ(kinds.count(name), 1u) << name;
        EXPECT_EQ(files_.Look(temp_.Path(name)).Size, 7) << name;
    }
}

TEST_F(PosixFilesTest, LinksAreFollowed) {
    temp_.WriteFile("folder/file", "12345", fakes::Time("2020-01-02 03:04:05.123456789 UTC"));
    Link("folder/file", "to file");
    Link("folder", "to folder");
    Link("..", "folder/up");
    Link("nowhere", "broken");
    Link("loop", "loop");
    for (const auto& [name, kind] : Kinds())
        EXPECT_EQ(kind, name == "folder" ? EntryKind::Folder : EntryKind::Link) << name;

    Outcome outcome;
    const auto root = files_.OpenFolder(temp_.Path(), outcome);
    EXPECT_EQ(root->Look("to file").Size, 5);
    EXPECT_EQ(root->Look("to file").Time, files_.Look(temp_.Path("folder/file")).Time);
    EXPECT_FALSE(root->IsFolder("to file"));
    EXPECT_TRUE(root->IsFolder("to folder"));
    EXPECT_FALSE(root->Look("to folder").Exists());
    for (const char* name : {"broken", "loop"}) {
        EXPECT_FALSE(root->IsFolder(name)) << name;
        EXPECT_FALSE(root->Look(name).Exists()) << name;
        EXPECT_FALSE(root->Open(name, outcome)) << name;
    }
    EXPECT_EQ(root->Identity(), root->Open("folder/up", outcome)->Identity());
}

TEST_F(PosixFilesTest, PipesAreFilesThatNobodyOpens) {
    ASSERT_EQ(::mkfifo(temp_.Path("pipe").c_str(), 0666), 0);
    temp_.WriteFile("file", "old");
    EXPECT_EQ(Kinds().at("pipe"), EntryKind::File);
    EXPECT_TRUE(files_.Look(temp_.Path("pipe")).Exists());
    for (const auto& [from, to] : {std::pair{"pipe", "file"}, {"pipe", "new"}, {"file", "pipe"}})
        EXPECT_FALSE(files_.CopyOver(temp_.Path(from), temp_.Path(to), [] {}).Ok()) << from;
    EXPECT_FALSE(files_.CopyOver("/dev/zero", temp_.Path("new"), [] {}).Ok());
    files_.RemoveLeftover(temp_.Path("pipe"));
    EXPECT_EQ(temp_.Names(), (std::vector<std::string>{"file", "pipe"}));
    EXPECT_EQ(temp_.Read("file"), "old");
}

TEST_F(PosixFilesTest, NoLimitOnAPathsLength) {
    std::string deep = "top";
    for (int level = 0; level < 100; ++level) deep += "/" + std::string(60, 'd');
    temp_.WriteFile("source", "content", fakes::Time("2020-01-01 00:00:00.000000001 UTC"));
    for (const char* content : {"content", "replaced"}) {
        temp_.WriteFile("source", content);
        const Outcome copied =
            files_.CopyOver(temp_.Path("source"), temp_.Path(deep + "/file"), [] {});
        ASSERT_TRUE(copied.Ok()) << copied.Operation << copied.Reason;
        EXPECT_EQ(temp_.Read(deep + "/file"), content);
    }
    EXPECT_TRUE(files_.CopyOver(temp_.Path(deep + "/file"), temp_.Path("back"), [] {}).Ok());
    EXPECT_EQ(temp_.Read("back"), "replaced");
    EXPECT_TRUE(files_.CreateFolder(temp_.Path(deep + "/folder")).Ok());
    EXPECT_TRUE(files_.FolderExists(temp_.Path(deep + "/folder/")));
    EXPECT_EQ(files_.Look(temp_.Path(deep + "/file")).Size, 8);
    Outcome outcome;
    const auto folder = files_.OpenFolder(temp_.Path(deep), outcome);
    ASSERT_TRUE(folder) << outcome.Reason;
    EXPECT_TRUE(folder->IsFolder("folder"));
    temp_.WriteFile(deep + "/.varnel~00000000", "");
    files_.RemoveLeftover(temp_.Path(deep + "/.varnel~00000000"));
    EXPECT_TRUE(files_.RemoveFile(temp_.Path(deep + "/file")).Ok());
    EXPECT_EQ(temp_.Names(deep), std::vector<std::string>{"folder"});
}

TEST_F(PosixFilesTest, WhatMayNotBeReadIsAFailureWithAReason) {
    for (const char* folder : {"closed", "unlisted", "listed"})
        temp_.WriteFile(std::string(folder) + "/file", "1");
    ::chmod(temp_.Path("closed").c_str(), 0);
    ::chmod(temp_.Path("unlisted").c_str(), 0111);
    ::chmod(temp_.Path("listed").c_str(), 0444);
    ::chmod(temp_.Path().c_str(), 0755);
    const bool holds = fakes::HoldsForOrdinaryUser([this] {
        platform::TextArena names;
        platform::Listing listing;
        for (const char* name : {"closed", "unlisted"}) {
            Outcome outcome;
            const auto folder = files_.OpenFolder(temp_.Path(name), outcome);
            if (folder) outcome = folder->List(names, listing);
            EXPECT_EQ(outcome.Reason, "Permission denied") << name;
        }
        Outcome outcome;
        EXPECT_EQ(files_.OpenFolder(temp_.Path("unlisted"), outcome)->Look("file").Size, 1);
        const auto listed = files_.OpenFolder(temp_.Path("listed"), outcome);
        EXPECT_TRUE(listed->List(names, listing).Ok());
        EXPECT_EQ(listing.Entries.size(), 1u);
        EXPECT_FALSE(listed->Look("file").Exists());
    });
    EXPECT_TRUE(holds);
}

}  // namespace
