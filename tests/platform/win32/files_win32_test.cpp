#include <gtest/gtest.h>
#include <windows.h>

#include "fakes/temp_folder.h"
#include "platform/files.h"
#include "platform/win32/extended_path.h"
#include "platform/win32/handle.h"
#include "platform/win32/text_conversion.h"

namespace {

using platform::Outcome;
using platform::win32::Wide;
using Names = std::vector<std::string>;

class WindowsFilesTest : public testing::Test {
  protected:
    std::wstring SystemPath(const std::string& relative) {
        return platform::win32::ExtendedPath(temp_.Path(relative));
    }
    // Holds a file open without sharing it.
    platform::win32::Handle Locked(const std::string& relative) {
        return platform::win32::Handle(::CreateFileW(SystemPath(relative).c_str(),
                                                     GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                                     OPEN_EXISTING, 0, nullptr));
    }
    Outcome Copy(const std::string& from, const std::string& to) {
        return files_.CopyOver(temp_.Path(from), temp_.Path(to), [] {});
    }

    fakes::TempFolder temp_;
    platform::FileSystem& files_ = platform::SystemFiles();
};

TEST(ExtendedPathTest, IsWholeAndLiteral) {
    const struct {
        const char* Path;
        const wchar_t* Extended;
        const wchar_t* Plain;
    } cases[] = {
        {"C:\\", L"\\\\?\\C:\\", L"C:\\"},
        {"C:/a//b/./c/../d", L"\\\\?\\C:\\a\\b\\d", L"C:\\a\\b\\d"},
        {"C:\\..\\..\\a", L"\\\\?\\C:\\a", L"C:\\a"},
        {"C:\\a. \\b. ", L"\\\\?\\C:\\a. \\b. ", L"C:\\a. \\b. "},
        {"C:\\nul", L"\\\\?\\C:\\nul", L"C:\\nul"},
        {"\\\\server\\share", L"\\\\?\\UNC\\server\\share\\", L"\\\\server\\share\\"},
        {"\\\\server\\share\\..\\a", L"\\\\?\\UNC\\server\\share\\a", L"\\\\server\\share\\a"},
        {"\\\\?\\C:\\a", L"\\\\?\\C:\\a", L"C:\\a"},
    };
    for (const auto& [path, extended, plain] : cases) {
        EXPECT_EQ(platform::win32::ExtendedPath(path), extended) << path;
        EXPECT_EQ(platform::win32::PlainPath(extended), plain) << path;
    }
    EXPECT_TRUE(platform::win32::ExtendedPath("").empty());
}

TEST_F(WindowsFilesTest, NamesThatDifferInCaseAreOne) {
    temp_.WriteFile("Größe.TXT", "12345");
    temp_.WriteFile("source", "new");
    EXPECT_EQ(files_.Look(temp_.Path("GRÖßE.Txt")).Size, 5);
    EXPECT_TRUE(Copy("source", "GRÖßE.txt").Ok());
    EXPECT_EQ(temp_.Read("Größe.TXT"), "new");
    EXPECT_FALSE(Copy("source", "SOURCE").Ok()) << "the source itself";
    ASSERT_TRUE(
        ::CreateHardLinkW(SystemPath("other").c_str(), SystemPath("source").c_str(), nullptr));
    EXPECT_FALSE(Copy("source", "other").Ok()) << "another name of it";
    EXPECT_EQ(temp_.Names(), (Names{"Größe.TXT", "other", "source"}));
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
        EXPECT_EQ(files_.Look(temp_.Path(target)).Size, 7) << target;
        EXPECT_TRUE(Copy(target, "back").Ok()) << target;
    }
    EXPECT_EQ(temp_.Names("f"), (Names{"CON.txt", "blank ", "dot.", "folder. ", "nul"}));
}

TEST_F(WindowsFilesTest, AFileOpenElsewhereStaysAsItIs) {
    for (const char* name : {"source", "target", ".varnel~0123abcd"}) temp_.WriteFile(name, name);
    {
        const auto target = Locked("target");
        EXPECT_NE(Copy("source", "target").Reason, "");
        EXPECT_EQ(files_.Look(temp_.Path("target")).Size, 6) << "it can be looked at";
        EXPECT_FALSE(files_.RemoveFile(temp_.Path("target")).Ok());
        const auto source = Locked("source");
        EXPECT_FALSE(Copy("source", "fresh").Ok());
        const auto leftover = Locked(".varnel~0123abcd");  // of a copy that is running
        files_.RemoveLeftover(temp_.Path(".varnel~0123abcd"));
    }
    EXPECT_EQ(temp_.Names(), (Names{".varnel~0123abcd", "source", "target"}));
    EXPECT_EQ(temp_.Read("target"), "target");
    temp_.SetReadOnly(".varnel~0123abcd", true);
    files_.RemoveLeftover(temp_.Path(".varnel~0123abcd"));
    EXPECT_FALSE(temp_.Exists(".varnel~0123abcd"));
}

TEST_F(WindowsFilesTest, AttributesAreKeptAndAReadOnlyTargetIsRefused) {
    for (const DWORD attributes :
         {DWORD{FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_HIDDEN}, DWORD{FILE_ATTRIBUTE_READONLY}}) {
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
    EXPECT_TRUE(files_.RemoveFile(temp_.Path("target")).Ok());
}

TEST_F(WindowsFilesTest, LinksToFoldersAreFollowedAndKnownAsLinks) {
    temp_.WriteFile("folder/file", "12345");
    ::CreateSymbolicLinkW(
        SystemPath("folder/up").c_str(), SystemPath("").c_str(),
        SYMBOLIC_LINK_FLAG_DIRECTORY | SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE);
    if (!temp_.Exists("folder/up")) GTEST_SKIP() << "no links here, or no right to make one";
    Outcome outcome;
    const auto root = files_.OpenFolder(temp_.Path(), outcome);
    const auto folder = root->Open("folder", outcome);
    platform::TextArena names;
    platform::Listing listing;
    ASSERT_TRUE(folder->List(names, listing).Ok());
    for (const auto& entry : listing.Entries)
        EXPECT_EQ(entry.Kind == platform::EntryKind::Link, entry.Text() == "up") << entry.Name;
    EXPECT_EQ(folder->Open("up", outcome)->Identity(), root->Identity());
}

TEST_F(WindowsFilesTest, MissingDrivesAndSharesAreFailures) {
    for (const char* path : {"?:\\", "\\\\", "\\\\.\\nothing", "C:\\nul", "C:nothing", "\\\\?\\"}) {
        Outcome outcome;
        EXPECT_FALSE(files_.FolderExists(path)) << path;
        EXPECT_FALSE(files_.OpenFolder(path, outcome)) << path;
        EXPECT_FALSE(files_.Look(path).Exists()) << path;
        EXPECT_FALSE(files_.CopyOver(path, temp_.Path("x"), [] {}).Ok()) << path;
    }
    EXPECT_TRUE(files_.FolderExists("C:\\"));
    EXPECT_TRUE(temp_.Names().empty());
}

}  // namespace
