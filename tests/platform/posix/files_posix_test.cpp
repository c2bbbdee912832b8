#include <filesystem>

#include <sys/fsuid.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/files_fixture.h"

namespace {

namespace fs = std::filesystem;

using PosixFilesTest = FilesTest;

TEST_F(PosixFilesTest, CopiesKeepPermissionBitsNanosecondsAndHoles) {
    const std::string source = temp_.Path("source");
    temp_.WriteFile("source", "front");
    fs::resize_file(source, 2 << 20);
    std::ofstream(source, std::ios::app) << "back";
    fs::resize_file(source, 4 << 20);
    temp_.SetTime("source", fakes::At(1'577'836'800, 123'456'789));
    fs::permissions(source, fs::perms(0457));
    EXPECT_EQ(Copy("source", "target").Reason, "");
    struct stat copied {};
    ASSERT_EQ(::stat(temp_.Path("target").c_str(), &copied), 0);
    EXPECT_EQ(copied.st_mode & 07777, 0457u);
    EXPECT_EQ(copied.st_mtim.tv_nsec, 123456789);
    EXPECT_LT(copied.st_blocks, 1000);
    EXPECT_TRUE(temp_.Read("target") == temp_.Read("source"));
}

TEST_F(PosixFilesTest, ALinkIsReadAndAPipeNeitherReadNorReplaced) {
    temp_.WriteFile("source", "content");
    fs::create_symlink("source", temp_.Path("link"));
    ASSERT_EQ(::mkfifo(temp_.Path("pipe").c_str(), 0666), 0);
    EXPECT_FALSE(Copy("pipe", "new").Ok() || Copy("source", "pipe").Ok());
    EXPECT_TRUE(fs::is_fifo(temp_.Path("pipe")));
    EXPECT_TRUE(Copy("link", "new").Ok());
    EXPECT_FALSE(fs::is_symlink(temp_.Path("new")));
    EXPECT_EQ(temp_.Read("new"), "content");
}

TEST_F(PosixFilesTest, WithoutTheRightThereIsAReasonAndNoChange) {
    fs::permissions(temp_.Path(), fs::perms(0777));
    temp_.WriteFile("of another user", "1");
    fs::create_symlink("loop", temp_.Path("loop"));
    constexpr uid_t kNobody = 65534;
    ::setfsuid(kNobody);  // root may do everything
    temp_.WriteFile("source", "new");
    for (const char* name : {"unlisted/file", "listed/file", "fixed/file", "read-only"})
        temp_.WriteFile(name, "old");
    for (const auto& [name, mode] :
         {std::pair{"unlisted", 0111u}, {"listed", 0444u}, {"fixed", 0555u}, {"read-only", 0444u}})
        fs::permissions(temp_.Path(name), fs::perms(mode));
    platform::TextArena names;
    platform::Listing listing;
    EXPECT_EQ(Open("unlisted")->List(names, listing).Reason, "Permission denied");
    EXPECT_EQ(Open("unlisted")->Look("file").Size, 3);
    EXPECT_FALSE(Open("listed")->Look("file").Exists() || Open()->Look("loop").Exists());
    EXPECT_EQ(files_.UnansweredLookUps(), 1) << "That one may be there.";
    for (const char* target : {"read-only", "fixed/file", "fixed/new/new"})
        EXPECT_FALSE(Copy("source", target).Ok()) << target;
    EXPECT_EQ(temp_.Read("read-only"), "old");
    EXPECT_EQ(temp_.Names("fixed"), Names{"file"});
    EXPECT_EQ(Copy("of another user", "copy").Reason, "");
    ::setfsuid(::geteuid());
}

}  // namespace
