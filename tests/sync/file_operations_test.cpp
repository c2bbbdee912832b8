#include "sync/file_operations.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/fake_files.h"
#include "fakes/temp_folder.h"
#include "platform/headless/headless_host.h"
#include "platform/paths.h"

namespace syncing {
namespace {

using fakes::FakeFiles;
using Texts = std::vector<std::string>;

const platform::FileTime kTime = fakes::Time("2020-01-02 03:04:05 UTC");

class FileOperationsTest : public testing::Test {
  protected:
    FileOperationsTest() { files.AddFolder("2"); }

    void CopyToCounterpart(const char* source, const char* from = "1", const char* to = "2") {
        operations.CopyToCounterpart(FakeFiles::Path(source),
                                     platform::WithSeparator(FakeFiles::Path(from)),
                                     platform::WithSeparator(FakeFiles::Path(to)));
    }

    FakeFiles files;
    platform::headless::Host host;
    rules::FileFilter filter;
    FileOperations operations{files, host, filter};
};

TEST_F(FileOperationsTest, CopyingOverwrites) {
    files.AddFile("1/a", kTime, 7);
    files.AddFile("2/a", {1, 0}, 8);
    EXPECT_TRUE(operations.CopyOneFile(FakeFiles::Path("1/a"), FakeFiles::Path("2/a")));
    EXPECT_EQ(files.StatusOf("2/a").Size, 7);
    EXPECT_FALSE(operations.CopyOneFile(FakeFiles::Path("1/none"), FakeFiles::Path("2/a")));
    EXPECT_EQ(files.StatusOf("2/a").Size, 7);
}

// Unlike that of the comparison, the filter of the copy takes upper and lower case for the same.
TEST_F(FileOperationsTest, TheFilterRefusesFilesWithoutRegardToCase) {
    struct Case {
        const char* Name;
        const char* List;
        bool Only;
        bool Copied;
    };
    const Case cases[] = {{"1/a.txt", "/txt", true, true},   {"1/A.TXT", "/txt", true, true},
                          {"1/a.doc", "/txt", true, false},  {"1/a.txt", "/txt", false, false},
                          {"1/A.TXT", "/txt", false, false}, {"1/a.doc", "/txt", false, true},
                          {"1/none", "/txt", true, false},   {"1/none", "/txt", false, true},
                          {"1/a.TX", "/txt", true, true}};
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.Name) + c.List);
        filter = {c.List, c.Only};
        files.AddFile(c.Name, kTime, 1);
        EXPECT_EQ(operations.CopyOneFile(FakeFiles::Path(c.Name), FakeFiles::Path("2/x")),
                  c.Copied);
        files.Copies.clear();
        CopyToCounterpart(c.Name);
        EXPECT_EQ(files.Copies.size(), c.Copied ? 1u : 0u);
        EXPECT_TRUE(files.CreatedFolders.empty());
    }
}

TEST_F(FileOperationsTest, ANewFileThatCannotBeCopiedIsTriedAgainOnceItsFoldersAreMade) {
    files.AddFile("1/s/t/u/f", kTime, 1);
    files.AddFolder("2/s");
    files.CopiesMakeFolders = false;
    CopyToCounterpart("1/s/t/u/f");
    EXPECT_EQ(files.Copies, Texts(2, "1/s/t/u/f > 2/s/t/u/f"));
    EXPECT_EQ(files.CreatedFolders, (Texts{"2/s", "2/s/t", "2/s/t/u"}));
    EXPECT_TRUE(files.StatusOf("2/s/t/u/f").Exists());

    files.RefusesCopy = [](const std::string&, const std::string&) { return true; };
    files.Copies.clear();
    CopyToCounterpart("1/s/t/u/f");
    EXPECT_EQ(files.Copies.size(), 2u);
}

TEST_F(FileOperationsTest, OnlyTheLeadingRootIsTakenOff) {
    struct Case {
        const char* Source;
        const char* Root1;
        const char* Root2;
        const char* Target;
        Texts Folders;
    };
    const Case cases[] = {
        {"1/x/1/f", "1", "2", "2/x/1/f", {"2/x", "2/x/1"}},
        {"1/1/1/f", "1", "2", "2/1/1/f", {"2/1", "2/1/1"}},
        {"1/2/x/2/f", "1", "2", "2/2/x/2/f", {"2/2", "2/2/x", "2/2/x/2"}},
        {"1/f", "1", "2/1", "2/1/f", {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Source);
        files.AddFile(c.Source, kTime, 1);
        files.CopiesMakeFolders = false;
        files.CreatedFolders.clear();
        files.AddFolder(c.Root2);
        CopyToCounterpart(c.Source, c.Root1, c.Root2);
        EXPECT_EQ(files.CreatedFolders, c.Folders);
        EXPECT_TRUE(files.StatusOf(c.Target).Exists());
    }
}

TEST_F(FileOperationsTest, AFileThatIsNotBelowItsRootIsNotCopied) {
    for (const char* name : {"10/f", "3/1/f"}) {
        files.AddFile(name, kTime, 1);
        CopyToCounterpart(name);
    }
    EXPECT_TRUE(files.Copies.empty());
    EXPECT_TRUE(files.CreatedFolders.empty());
}

}  // namespace
}  // namespace syncing
