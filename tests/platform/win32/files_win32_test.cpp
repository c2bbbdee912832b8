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
};

TEST_F(WindowsFilesTest, DrivesAndSharesKeepTheirRootsAndMissingOnesAreFailures) {
    using namespace platform::win32;
    EXPECT_TRUE(files_.FolderExists("C:\\"));
    for (const char* path : {"?:\\", "\\\\", "C:\\nul"})
        EXPECT_FALSE(files_.OpenFolder(path, outcome_) || files_.Look(path).Exists()) << path;
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
    for (const char* itself : {"SOURCE", "other"}) EXPECT_FALSE(Copy("source", itself).Ok());
    EXPECT_EQ(temp_.Names(), (Names{"Größe.TXT", "other", "source"}));
    EXPECT_EQ(temp_.Read("Größe.TXT"), "new");
}

// The shell would drop the ends of these names, or take them for devices. The paths that are about
// 259 characters long have a temporary file whose path is longer.
TEST_F(WindowsFilesTest, NamesAreTakenLiterally) {
    temp_.WriteFile("source", "content");
    Names targets = {"f/CON.txt", "f/blank ", "f/folder. /file", "f/nul"};
    for (std::size_t length = 240; length <= 262; ++length)
        targets.push_back("g/" + std::string(length - temp_.Path("g/").size() - 2, 'd') + "/t");
    for (const std::string& target : targets) {
        EXPECT_TRUE(Copy("source", target).Ok() && Copy(target, "back").Ok()) << target;
        EXPECT_EQ(temp_.Read(target), "content") << target;
    }
    EXPECT_EQ(temp_.Names("f"), (Names{"CON.txt", "blank ", "folder. ", "nul"}));
}

TEST_F(WindowsFilesTest, AFileOpenElsewhereStaysAsItIs) {
    const Names names = {".varnel~0123abcd", "source", "target"};
    for (const std::string& name : names) temp_.WriteFile(name, name);
    for (const std::string& name : names) {
        const bool isLeftover = name == names[0];  // of a copy that is running
        const platform::win32::Handle held(::CreateFileW(SystemPath(name).c_str(), GENERIC_READ,
                                                         isLeftover ? FILE_SHARE_DELETE : 0,
                                                         nullptr, OPEN_EXISTING, 0, nullptr));
        files_.RemoveLeftover(temp_.Path(name));
        EXPECT_FALSE(!isLeftover && Copy("source", "target").Ok()) << name;
        EXPECT_TRUE(files_.Look(temp_.Path(name)).Exists()) << "it can be looked at";
    }
    EXPECT_EQ(temp_.Names(), names);
    EXPECT_EQ(temp_.Read("target"), "target");
}

TEST_F(WindowsFilesTest, AttributesAreKeptAndAReadOnlyTargetIsRefused) {
    for (const int attributes :
         {FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_HIDDEN, FILE_ATTRIBUTE_READONLY}) {
        temp_.WriteFile("source", "content");
        ::SetFileAttributesW(SystemPath("source").c_str(), attributes);
        EXPECT_TRUE(Copy("source", "target").Ok()) << attributes;
        const DWORD kept = ::GetFileAttributesW(SystemPath("target").c_str());
        EXPECT_EQ(kept & ~DWORD{FILE_ATTRIBUTE_ARCHIVE}, attributes);
        EXPECT_TRUE(files_.RemoveFile(temp_.Path("source")).Ok());
    }
    temp_.WriteFile("source", "new");
    EXPECT_FALSE(Copy("source", "target").Ok());
    EXPECT_EQ(temp_.Read("target"), "content");
    EXPECT_EQ(temp_.Names(), (Names{"source", "target"}));
}

}  // namespace
