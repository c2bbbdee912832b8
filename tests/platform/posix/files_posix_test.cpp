#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "fakes/posix/ordinary_user.h"
#include "fakes/temp_folder.h"
#include "platform/files.h"

namespace {

using platform::EntryKind;
using Names = std::vector<std::string>;

class PosixFilesTest : public testing::Test {
  protected:
    std::unique_ptr<platform::Folder> Open(const char* name = "") {
        return files_.OpenFolder(temp_.Path(name), outcome_);
    }
    platform::Outcome Copy(
        const std::string& from, const std::string& to,
        const std::function<void()>& whileCopying = [] {}) {
        return files_.CopyOver(temp_.Path(from), temp_.Path(to), whileCopying);
    }
    struct stat StatusOf(const std::string& name) {
        struct stat status {};
        EXPECT_EQ(::lstat(temp_.Path(name).c_str(), &status), 0) << name;
        return status;
    }
    void SetMode(const char* name, mode_t mode) { ::chmod(temp_.Path(name).c_str(), mode); }
    void Link(const char* to, const char* name) {
        EXPECT_EQ(::symlink(to, temp_.Path(name).c_str()), 0);
    }

    fakes::TempFolder temp_;
    platform::FileSystem& files_ = platform::SystemFiles();
    platform::Outcome outcome_;
    platform::TextArena names_;
    platform::Listing listing_;
    const std::string source_ = temp_.Path("source");
};

TEST_F(PosixFilesTest, LinksAreFollowed) {
    temp_.WriteFile("folder/file", "12345");
    Link("folder/file", "to file");
    Link("folder", "to folder");
    Link("..", "folder/up");
    Link("nowhere", "broken");
    Link("loop", "loop");
    const auto root = Open();
    ASSERT_TRUE(root->List(names_, listing_).Ok());
    EXPECT_EQ(listing_.Entries.size(), 5u);
    for (const platform::FolderEntry& entry : listing_.Entries)
        EXPECT_EQ(entry.Kind, entry.Text() == "folder" ? EntryKind::Folder : EntryKind::Link);
    EXPECT_EQ(root->Look("to file").Size, 5);
    EXPECT_TRUE(root->IsFolder("to folder"));
    EXPECT_FALSE(root->Look("to folder").Exists());
    EXPECT_EQ(root->Identity(), root->Open("folder/up", outcome_)->Identity());
    for (const char* name : {"to file", "broken", "loop"}) {
        EXPECT_FALSE(root->IsFolder(name)) << name;
        EXPECT_FALSE(root->Open(name, outcome_)) << name;
        EXPECT_EQ(root->Look(name).Exists(), name == std::string("to file")) << name;
    }
    EXPECT_EQ(files_.UnansweredLookUps(), 0);
}

TEST_F(PosixFilesTest, CopiesKeepPermissionBitsNanosecondsAndHoles) {
    temp_.WriteFile("source", "front");
    const int file = ::open(source_.c_str(), O_WRONLY);
    ASSERT_EQ(::pwrite(file, "back", 4, 1 << 30), 4);
    ::close(file);
    temp_.SetTime("source", fakes::Time("2020-01-01 00:00:00.123456789 UTC"));
    temp_.WriteFile("target", "2");
    for (const mode_t mode : {0600, 0755, 0400}) {
        SetMode("source", mode);
        SetMode("target", 0666);
        EXPECT_EQ(Copy("source", "target").Reason, "");
        const struct stat copied = StatusOf("target");
        EXPECT_EQ(copied.st_mode & 07777, mode);
        EXPECT_EQ(copied.st_mtim.tv_nsec, 123456789);
        EXPECT_EQ(copied.st_size, (1 << 30) + 4);
        EXPECT_LE(copied.st_blocks, StatusOf("source").st_blocks + 64);
    }
}

TEST_F(PosixFilesTest, OnlyOrdinaryFilesAreReadAndReplaced) {
    temp_.WriteFile("outside/file", "old");
    temp_.WriteFile("source", "new");
    Link("outside", "to folder");
    Link("nowhere", "broken");
    Link("outside/file", "to file");
    Link(".", "here");
    ASSERT_EQ(::link(source_.c_str(), temp_.Path("same").c_str()), 0);
    ASSERT_EQ(::mkfifo(temp_.Path("pipe").c_str(), 0666), 0);
    EXPECT_TRUE(files_.Look(temp_.Path("pipe")).Exists());
    const Names before = temp_.Names();
    for (const char* target : {"to folder", "broken", "to file", "same", "here/source", "pipe"}) {
        const mode_t mode = StatusOf(target).st_mode;
        EXPECT_FALSE(Copy("source", target).Ok()) << target;
        EXPECT_EQ(StatusOf(target).st_mode, mode) << target;
    }
    EXPECT_EQ(StatusOf("source").st_nlink, 2u);
    EXPECT_FALSE(Copy("pipe", "new").Ok());
    EXPECT_FALSE(files_.CopyOver("/dev/zero", temp_.Path("new"), [] {}).Ok());
    EXPECT_EQ(temp_.Names(), before);
    EXPECT_EQ(temp_.Names("outside"), Names{"file"});
    EXPECT_TRUE(Copy("to file", "copy").Ok()) << "a source may be a link";
    EXPECT_TRUE(S_ISREG(StatusOf("copy").st_mode));
    EXPECT_EQ(temp_.Read("copy"), "old");
}

TEST_F(PosixFilesTest, WhatHappensDuringALongCopy) {
    const std::string content(40'000'000, 'x');
    const struct {
        const char* Name;
        bool Replaces;
        std::function<void()> Act;
        std::string Left;
    } cases[] = {
        {"shorter source", true, [&] { EXPECT_EQ(::truncate(source_.c_str(), 1000), 0); }, "old"},
        {"longer source", true, [&] { EXPECT_EQ(::truncate(source_.c_str(), 50'000'000), 0); },
         "old"},
        {"touched source", true,
         [&] { temp_.SetTime("source", fakes::Time("2021-01-02 00:00:00 UTC")); }, "old"},
        {"new target", false, [&] { temp_.WriteFile("target", "other"); }, "other"},
        {"other target", true, [&] { temp_.WriteFile("target", "other"); }, "other"},
        {"tidying up", true,
         [&] {
             EXPECT_EQ(temp_.Names().size(), 3u);
             for (const std::string& name : temp_.Names()) files_.RemoveLeftover(temp_.Path(name));
         },
         content},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.Name);
        temp_.WriteFile("source", content, fakes::Time("2020-01-02 00:00:00 UTC"));
        if (test.Replaces)
            temp_.WriteFile("target", "old");
        else
            temp_.Remove("target");
        bool acted = false;
        const auto outcome = Copy("source", "target", [&] {
            if (!std::exchange(acted, true)) test.Act();
        });
        EXPECT_TRUE(acted);
        EXPECT_EQ(outcome.Ok(), test.Left == content) << outcome.Reason;
        EXPECT_TRUE(temp_.Read("target") == test.Left);
        EXPECT_EQ(temp_.Names(), (Names{"source", "target"}));
    }
}

TEST_F(PosixFilesTest, WithoutTheRightThereIsAReasonAndNoChange) {
    SetMode("", 0777);
    temp_.WriteFile("of another user", "1");
    const bool holds = fakes::HoldsForOrdinaryUser([this] {
        const std::pair<const char*, mode_t> folders[] = {
            {"closed", 0}, {"unlisted", 0111}, {"listed", 0444}, {"fixed", 0555}};
        for (const auto& [name, mode] : folders) {
            temp_.WriteFile(std::string(name) + "/file", name);
            SetMode(name, mode);
        }
        for (const char* name : {"source", "read-only", "unreadable"}) temp_.WriteFile(name, name);
        SetMode("read-only", 0444);
        SetMode("unreadable", 0);
        const Names before = temp_.Names();
        for (const char* name : {"closed", "unlisted"})
            EXPECT_EQ(Open(name)->List(names_, listing_).Reason, "Permission denied") << name;
        EXPECT_EQ(Open("unlisted")->Look("file").Size, 8);
        EXPECT_TRUE(Open("listed")->List(names_, listing_).Ok());
        EXPECT_EQ(listing_.Entries.size(), 1u);
        EXPECT_FALSE(Open("listed")->Look("file").Exists());
        EXPECT_EQ(files_.UnansweredLookUps(), 1) << "It may be there all the same.";
        for (const char* target : {"read-only", "fixed/file", "fixed/new"})
            EXPECT_EQ(Copy("source", target).Reason, "Permission denied") << target;
        EXPECT_FALSE(Copy("source", "fixed/new/new").Ok());
        EXPECT_EQ(Copy("unreadable", "new").Reason, "Permission denied");
        EXPECT_EQ(temp_.Read("read-only"), "read-only");
        EXPECT_EQ(temp_.Read("fixed/file"), "fixed");
        EXPECT_EQ(temp_.Names("fixed"), Names{"file"});
        EXPECT_EQ(temp_.Names(), before);
        EXPECT_EQ(Copy("of another user", "copy").Reason, "");
    });
    EXPECT_TRUE(holds);
}

}  // namespace
