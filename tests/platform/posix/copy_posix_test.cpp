#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "fakes/posix/ordinary_user.h"
#include "fakes/temp_folder.h"
#include "platform/files.h"
#include "platform/paths.h"

namespace {

using Names = std::vector<std::string>;

const std::string kLong(40'000'000, 'x');  // is copied in several steps

class PosixCopyTest : public testing::Test {
  protected:
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
        ASSERT_EQ(::symlink(to, temp_.Path(name).c_str()), 0);
    }

    fakes::TempFolder temp_;
    platform::FileSystem& files_ = platform::SystemFiles();
};

TEST_F(PosixCopyTest, PermissionBitsAndNanosecondsAreKept) {
    temp_.WriteFile("source", "1", fakes::Time("2020-01-01 00:00:00.123456789 UTC"));
    temp_.WriteFile("target", "2");
    for (const mode_t mode : {0600, 0755, 0644, 0400}) {
        SetMode("source", mode);
        SetMode("target", 0666);
        ASSERT_TRUE(Copy("source", "target").Ok());
        EXPECT_EQ(StatusOf("target").st_mode & 07777, mode);
        EXPECT_EQ(StatusOf("target").st_mtim.tv_nsec, 123456789);
    }
}

TEST_F(PosixCopyTest, NothingIsWrittenThroughALink) {
    temp_.WriteFile("outside/file", "old");
    temp_.WriteFile("source", "new");
    for (const char* to : {"outside", "nowhere", "source", "outside/file"}) {
        Link(to, "link");
        EXPECT_FALSE(Copy("source", "link").Ok()) << to;
        EXPECT_TRUE(S_ISLNK(StatusOf("link").st_mode)) << to;
        if (std::string(to) != "outside/file") temp_.Remove("link");
    }
    EXPECT_EQ(temp_.Names("outside"), Names{"file"});
    EXPECT_TRUE(Copy("link", "copy").Ok()) << "a source may be a link";
    EXPECT_TRUE(S_ISREG(StatusOf("copy").st_mode));
    EXPECT_EQ(temp_.Read("copy"), "old");
}

TEST_F(PosixCopyTest, AnotherNameOfTheSourceIsTheSource) {
    temp_.WriteFile("source", "content");
    ASSERT_EQ(::link(temp_.Path("source").c_str(), temp_.Path("other").c_str()), 0);
    Link(".", "here");
    EXPECT_FALSE(Copy("source", "other").Ok());
    EXPECT_FALSE(Copy("source", "here/source").Ok());
    EXPECT_EQ(StatusOf("source").st_nlink, 2u);
    EXPECT_EQ(temp_.Names(), (Names{"here", "other", "source"}));
}

TEST_F(PosixCopyTest, ASourceThatChangesIsAFailure) {
    temp_.WriteFile("target", "old");
    const std::function<void(const char*)> changes[] = {
        [](const char* path) { EXPECT_EQ(::truncate(path, 1000), 0); },
        [](const char* path) { EXPECT_EQ(::truncate(path, 50'000'000), 0); },
        [](const char* path) { EXPECT_EQ(::utimes(path, nullptr), 0); },
    };
    for (std::size_t i = 0; i < std::size(changes); ++i) {
        temp_.WriteFile("source", kLong, fakes::Time("2020-01-02 00:00:00 UTC"));
        bool changed = false;
        const auto outcome = Copy("source", "target", [&] {
            if (!std::exchange(changed, true)) changes[i](temp_.Path("source").c_str());
        });
        EXPECT_TRUE(changed) << i;
        EXPECT_FALSE(outcome.Ok()) << i;
        EXPECT_EQ(temp_.Read("target"), "old") << i;
        EXPECT_EQ(temp_.Names(), (Names{"source", "target"})) << i;
    }
}

TEST_F(PosixCopyTest, AFileThatComesMeanwhileIsNotReplaced) {
    temp_.WriteFile("source", kLong);
    EXPECT_FALSE(
        Copy("source", "target", [this] { temp_.WriteFile("target", "somebody else's"); }).Ok());
    EXPECT_EQ(temp_.Read("target"), "somebody else's");
    EXPECT_EQ(temp_.Names(), (Names{"source", "target"}));
}

TEST_F(PosixCopyTest, ARunningCopyKeepsItsTemporaryFile) {
    temp_.WriteFile("source", kLong);
    int seen = 0;
    const auto outcome = Copy("source", "target", [&] {
        for (const std::string& name : temp_.Names()) {
            seen += platform::IsTemporaryName(name);
            files_.RemoveLeftover(temp_.Path(name));
        }
    });
    EXPECT_GT(seen, 0);
    EXPECT_TRUE(outcome.Ok()) << outcome.Reason;
    EXPECT_EQ(temp_.Names(), (Names{"source", "target"}));
}

TEST_F(PosixCopyTest, HolesStayHoles) {
    temp_.WriteFile("source", "front");
    const int file = ::open(temp_.Path("source").c_str(), O_WRONLY);
    ASSERT_EQ(::pwrite(file, "back", 4, 1 << 30), 4);
    ::close(file);
    ASSERT_TRUE(Copy("source", "target").Ok());
    EXPECT_EQ(StatusOf("target").st_size, (1 << 30) + 4);
    EXPECT_LE(StatusOf("target").st_blocks, StatusOf("source").st_blocks + 64);
}

TEST_F(PosixCopyTest, WhatMayNotBeWrittenStaysAsItIs) {
    SetMode("", 0777);
    const bool holds = fakes::HoldsForOrdinaryUser([this] {
        for (const char* name : {"source", "read-only", "closed/file", "unreadable"})
            temp_.WriteFile(name, name);
        SetMode("read-only", 0444);
        SetMode("closed", 0555);
        SetMode("unreadable", 0);
        for (const char* target : {"read-only", "closed/file", "closed/new"})
            EXPECT_EQ(Copy("source", target).Reason, "Permission denied") << target;
        EXPECT_FALSE(Copy("source", "closed/new/new").Ok());
        EXPECT_EQ(Copy("unreadable", "new").Reason, "Permission denied");
        for (const char* name : {"read-only", "closed/file"}) EXPECT_EQ(temp_.Read(name), name);
        EXPECT_EQ(temp_.Names("closed"), Names{"file"});
        EXPECT_EQ(temp_.Names(), (Names{"closed", "read-only", "source", "unreadable"}));
    });
    EXPECT_TRUE(holds);
}

}  // namespace
