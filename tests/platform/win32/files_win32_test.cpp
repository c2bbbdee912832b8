#include <windows.h>

#include "platform/files_fixture.h"
#include "platform/win32/extended_path.h"
#include "platform/win32/handle.h"

namespace {

class WindowsFilesTest : public FilesTest {
  protected:
    std::wstring SystemPath(const std::string& relative) {
        return platform::win32::ExtendedPath(temp_.Path(relative));
    }
    // Holds a file open without sharing it.
    platform::win32::Handle Locked(const std::string& relative) {
        return platform::win32::Handle(::CreateFileW(SystemPath(relative).c_str(), GENERIC_READ, 0,
                                                     nullptr, OPEN_EXISTING, 0, nullptr));
    }
};

TEST(ExtendedPathTest, DrivesAndSharesKeepTheirRoots) {
    using namespace platform::win32;
    EXPECT_EQ(ExtendedPath("C:\\..\\..\\"), L"\\\\?\\C:\\");
    const std::wstring onShare = ExtendedPath("\\\\server/share\\..\\.\\a. ");
    EXPECT_EQ(onShare, L"\\\\?\\UNC\\server\\share\\a. ");
    EXPECT_EQ(PlainPath(onShare), L"\\\\server\\share\\a. ");
}

TEST_F(WindowsFilesTest, NamesThatDifferInCaseAreOne) {
    temp_.WriteFile("Größe.TXT", "12345");
    temp_.WriteFile("source", "new");
    ::CreateHardLinkW(SystemPath("other").c_str(), SystemPath("source").c_str(), nullptr);
    EXPECT_TRUE(Copy("source", "GRÖßE.txt").Ok());
    EXPECT_FALSE(Copy("source", "SOURCE").Ok()) << "the source itself";
    EXPECT_FALSE(Copy("source", "other").Ok()) << "another name of it";
    EXPECT_EQ(temp_.Names(), (Names{"Größe.TXT", "other", "source"}));
    EXPECT_EQ(temp_.Read("Größe.TXT"), "new");
}

// The shell would drop the ends of these names, or take them for devices. The paths that are about
// 259 characters long have a temporary file whose path is longer.
TEST_F(WindowsFilesTest, NamesAreTakenLiterally) {
    temp_.WriteFile("source", "content");
    Names targets = {"f/CON.txt", "f/blank ", "f/dot.", "f/folder. /file", "f/nul"};
    for (std::size_t length = 240; length <= 262; ++length)
        targets.push_back("g/" + std::string(length - temp_.Path("g/").size() - 2, 'd') + "/t");
    for (const std::string& target : targets) {
        EXPECT_TRUE(Copy("source", target).Ok()) << target;
        EXPECT_EQ(temp_.Read(target), "content") << target;
        EXPECT_TRUE(Copy(target, "back").Ok()) << target;
    }
    EXPECT_EQ(temp_.Names("f"), (Names{"CON.txt", "blank ", "dot.", "folder. ", "nul"}));
}

TEST_F(WindowsFilesTest, AFileOpenElsewhereStaysAsItIs) {
    const Names names = {".varnel~0123abcd", "source", "target"};
    for (const std::string& name : names) temp_.WriteFile(name, name);
    {
        const auto target = Locked("target");
        EXPECT_FALSE(Copy("source", "target").Ok());
        EXPECT_EQ(files_.Look(temp_.Path("target")).Size, 6) << "it can be looked at";
        const auto source = Locked("source");
        EXPECT_FALSE(Copy("source", "fresh").Ok());
        const auto leftover = Locked(".varnel~0123abcd");  // of a copy that is running
        files_.RemoveLeftover(temp_.Path(".varnel~0123abcd"));
    }
    EXPECT_EQ(temp_.Names(), names);
    EXPECT_EQ(temp_.Read("target"), "target");
}

TEST_F(WindowsFilesTest, AttributesAreKeptAndAReadOnlyTargetIsRefused) {
    const DWORD cases[] = {FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_HIDDEN, FILE_ATTRIBUTE_READONLY};
    for (const DWORD attributes : cases) {
        temp_.WriteFile("source", "content");
        ::SetFileAttributesW(SystemPath("source").c_str(), attributes);
        EXPECT_TRUE(Copy("source", "target").Ok()) << attributes;
        const DWORD kept = ::GetFileAttributesW(SystemPath("target").c_str());
        EXPECT_EQ(kept & ~DWORD{FILE_ATTRIBUTE_ARCHIVE}, attributes);
        files_.RemoveFile(temp_.Path("source"));
    }
    temp_.WriteFile("source", "new");
    EXPECT_FALSE(Copy("source", "target").Ok());
    EXPECT_EQ(temp_.Read("target"), "content");
    EXPECT_EQ(temp_.Names(), (Names{"source", "target"}));
}

TEST_F(WindowsFilesTest, MissingDrivesAndSharesAreFailures) {
    for (const char* path : {"?:\\", "\\\\", "\\\\.\\nothing", "C:\\nul"}) {
        EXPECT_FALSE(files_.OpenFolder(path, outcome_)) << path;
        EXPECT_FALSE(files_.Look(path).Exists()) << path;
        EXPECT_FALSE(files_.CopyOver(path, temp_.Path("x"), [] {}).Ok()) << path;
    }
    EXPECT_TRUE(files_.FolderExists("C:\\"));
    EXPECT_EQ(temp_.Names(), Names());
}

}  // namespace
