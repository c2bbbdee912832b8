#include <filesystem>

#include <sys/stat.h>

#include "fakes/posix/ordinary_user.h"
#include "platform/files_fixture.h"

namespace {

namespace fs = std::filesystem;

class PosixFilesTest : public FilesTest {
  protected:
    void SetMode(const char* name, unsigned mode) {
        fs::permissions(temp_.Path(name), fs::perms(mode));
    }
    const std::string source_ = temp_.Path("source");
};

TEST_F(PosixFilesTest, CopiesKeepPermissionBitsNanosecondsAndHoles) {
    temp_.WriteFile("source", "front");
    fs::resize_file(source_, 2 << 20);
    std::ofstream(source_, std::ios::app) << "back";
    fs::resize_file(source_, 4 << 20);
    temp_.SetTime("source", fakes::At(1'577'836'800, 123'456'789));
    SetMode("source", 0457);
    EXPECT_EQ(Copy("source", "target").Reason, "");
    struct stat copied {};
    ASSERT_EQ(::stat(temp_.Path("target").c_str(), &copied), 0);
    EXPECT_EQ(copied.st_mode & 07777, 0457u);
    EXPECT_EQ(copied.st_mtim.tv_nsec, 123456789);
    EXPECT_LT(copied.st_blocks, 1000);
    EXPECT_TRUE(temp_.Read("target") == temp_.Read("source"));
}

TEST_F(PosixFilesTest, OnlyOrdinaryFilesAreReadAndReplaced) {
    temp_.WriteFile("other", "old");
    temp_.WriteFile("source", "new");
    fs::create_symlink("nowhere", temp_.Path("broken"));
    fs::create_symlink("other", temp_.Path("link"));
    fs::create_symlink(".", temp_.Path("here"));
    fs::create_hard_link(source_, temp_.Path("same"));
    ASSERT_EQ(::mkfifo(temp_.Path("pipe").c_str(), 0666), 0);
    const Names before = temp_.Names();
    for (const char* target : {"broken", "link", "here", "here/source", "same", "pipe"}) {
        const auto type = fs::symlink_status(temp_.Path(target)).type();
        EXPECT_FALSE(Copy("source", target).Ok()) << target;
        EXPECT_EQ(fs::symlink_status(temp_.Path(target)).type(), type) << target;
    }
    EXPECT_EQ(fs::hard_link_count(source_), 2u);
    EXPECT_FALSE(Copy("pipe", "new").Ok());
    EXPECT_EQ(temp_.Names(), before);
    EXPECT_TRUE(Copy("link", "copy").Ok()) << "a source may be a link";
    EXPECT_FALSE(fs::is_symlink(temp_.Path("copy")));
    EXPECT_EQ(temp_.Read("copy"), "old");
}

TEST_F(PosixFilesTest, WithoutTheRightThereIsAReasonAndNoChange) {
    SetMode("", 0777);
    temp_.WriteFile("of another user", "1");
    fs::create_symlink("loop", temp_.Path("loop"));
    EXPECT_TRUE(fakes::HoldsForOrdinaryUser([this] {
        for (const char* name :
             {"unlisted/file", "listed/file", "fixed/file", "read-only", "unreadable", "source"})
            temp_.WriteFile(name, name);
        for (const auto& [name, mode] : {std::pair{"unlisted", 0111u},
                                         {"listed", 0444u},
                                         {"fixed", 0555u},
                                         {"read-only", 0444u},
                                         {"unreadable", 0u}})
            SetMode(name, mode);
        const Names before = temp_.Names();
        EXPECT_EQ(Open("unlisted")->List(names_, listing_).Reason, "Permission denied");
        EXPECT_EQ(Open("unlisted")->Look("file").Size, 13);
        EXPECT_TRUE(Open("listed")->List(names_, listing_).Ok());
        EXPECT_FALSE(Open("listed")->Look("file").Exists());
        EXPECT_FALSE(Open()->Look("loop").Exists());
        EXPECT_EQ(files_.UnansweredLookUps(), 1) << "That one may be there.";
        for (const char* target : {"read-only", "fixed/file", "fixed/new/new"})
            EXPECT_FALSE(Copy("source", target).Ok()) << target;
        EXPECT_EQ(Copy("unreadable", "new").Reason, "Permission denied");
        EXPECT_EQ(temp_.Read("read-only"), "read-only");
        EXPECT_EQ(temp_.Names("fixed"), Names{"file"});
        EXPECT_EQ(temp_.Names(), before);
        EXPECT_EQ(Copy("of another user", "copy").Reason, "");
    }));
}

}  // namespace
