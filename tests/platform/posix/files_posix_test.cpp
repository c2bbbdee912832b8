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
    bool Copy(const char* from, const char* to) {
        return files_.CopyOver(temp_.Path(from), temp_.Path(to), [] {}).Ok();
    }

    fakes::TempFolder temp_;
    platform::FileSystem& files_ = platform::SystemFiles();
};

TEST_F(PosixFilesTest, NamesAreBytes) {
    temp_.WriteFile("source", "content");
    const std::string longest(255, 'n');
    for (const char* name : {"new\nline", "\xFF\xFE not UTF-8", " ", "back\\slash", "*?<>|\"",
                             "trailing ", "dot.", "con", "a:b", "~", "A", "a", longest.c_str()}) {
        EXPECT_TRUE(Copy("source", name)) << name;
        EXPECT_EQ(Kinds().count(name), 1u) << name;
        EXPECT_EQ(files_.Look(temp_.Path(name)).Size, 7) << name;
    }
    EXPECT_EQ(Kinds().size(), 14u);
}

TEST_F(PosixFilesTest, LinksAreFollowed) {
    temp_.WriteFile("folder/file", "12345", fakes::Time("2020-01-02 03:04:05.123456789 UTC"));
    const std::pair<const char*, const char*> links[] = {{"folder/file", "to file"},
                                                         {"folder", "to folder"},
                                                         {"..", "folder/up"},
                                                         {"nowhere", "broken"},
                                                         {"loop", "loop"}};
    for (const auto& [target, name] : links)
        ASSERT_EQ(::symlink(target, temp_.Path(name).c_str()), 0);
    for (const auto& [name, kind] : Kinds())
        EXPECT_EQ(kind, name == "folder" ? EntryKind::Folder : EntryKind::Link) << name;

    Outcome outcome;
    const auto root = files_.OpenFolder(temp_.Path(), outcome);
    EXPECT_EQ(root->Look("to file").Size, 5);
    EXPECT_EQ(root->Look("to file").Time, files_.Look(temp_.Path("folder/file")).Time);
    EXPECT_TRUE(root->IsFolder("to folder"));
    EXPECT_EQ(root->Identity(), root->Open("folder/up", outcome)->Identity());
    for (const char* name : {"to file", "broken", "loop"}) {
        EXPECT_FALSE(root->IsFolder(name)) << name;
        EXPECT_FALSE(root->Open(name, outcome)) << name;
    }
    for (const char* name : {"to folder", "broken", "loop"})
        EXPECT_FALSE(root->Look(name).Exists()) << name;
}

TEST_F(PosixFilesTest, PipesAreFilesThatNobodyOpens) {
    ASSERT_EQ(::mkfifo(temp_.Path("pipe").c_str(), 0666), 0);
    temp_.WriteFile("file", "old");
    EXPECT_EQ(Kinds().at("pipe"), EntryKind::File);
    EXPECT_TRUE(files_.Look(temp_.Path("pipe")).Exists());
    for (const auto& [from, to] : {std::pair{"pipe", "file"}, {"pipe", "new"}, {"file", "pipe"}})
        EXPECT_FALSE(Copy(from, to)) << from;
    EXPECT_FALSE(files_.CopyOver("/dev/zero", temp_.Path("new"), [] {}).Ok());
    EXPECT_EQ(temp_.Names(), (std::vector<std::string>{"file", "pipe"}));
    EXPECT_EQ(temp_.Read("file"), "old");
}

TEST_F(PosixFilesTest, WhatMayNotBeReadIsAFailureWithAReason) {
    const std::pair<const char*, mode_t> folders[] = {
        {"closed", 0}, {"unlisted", 0111}, {"listed", 0444}};
    for (const auto& [name, mode] : folders) {
        temp_.WriteFile(std::string(name) + "/file", "1");
        ::chmod(temp_.Path(name).c_str(), mode);
    }
    ::chmod(temp_.Path().c_str(), 0755);
    const bool holds = fakes::HoldsForOrdinaryUser([this] {
        platform::TextArena names;
        platform::Listing listing;
        Outcome outcome;
        for (const char* name : {"closed", "unlisted"}) {
            const auto folder = files_.OpenFolder(temp_.Path(name), outcome);
            if (folder) outcome = folder->List(names, listing);
            EXPECT_EQ(outcome.Reason, "Permission denied") << name;
        }
        EXPECT_EQ(files_.OpenFolder(temp_.Path("unlisted"), outcome)->Look("file").Size, 1);
        const auto listed = files_.OpenFolder(temp_.Path("listed"), outcome);
        EXPECT_TRUE(listed->List(names, listing).Ok());
        EXPECT_EQ(listing.Entries.size(), 1u);
        EXPECT_FALSE(listed->Look("file").Exists());
    });
    EXPECT_TRUE(holds);
}

}  // namespace
