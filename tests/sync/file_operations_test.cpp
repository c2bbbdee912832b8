#include "sync/file_operations.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/fake_files.h"
#include "platform/headless/headless_host.h"
#include "platform/paths.h"

namespace syncing {
namespace {

using fakes::FakeFiles;
using Texts = std::vector<std::string>;

class FileOperationsTest : public testing::Test {
  protected:
    bool CopyToCounterpart(const char* source, const char* from = "1", const char* to = "2") {
        return operations.CopyToCounterpart(FakeFiles::Path(source),
                                            platform::WithSeparator(FakeFiles::Path(from)),
                                            platform::WithSeparator(FakeFiles::Path(to)));
    }

    FakeFiles files;
    platform::headless::Host host;
    rules::FileFilter filter;
    FileOperations operations{files, host, filter};
};

// Unlike that of the comparison, the filter of the copy takes upper and lower case for the same.
TEST_F(FileOperationsTest, TheFilterRefusesFilesWithoutRegardToCase) {
    const struct {
        const char* Name;
        bool Only, Copied;
    } cases[] = {
        {"1/a.txt", true, true},   {"1/A.TXT", true, true},  {"1/a.doc", true, false},
        {"1/none", true, false},   {"1/a.TX", true, true},   {"1/a.txt", false, false},
        {"1/A.TXT", false, false}, {"1/a.doc", false, true}, {"1/none", false, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.Name) + (c.Only ? " only" : " all but"));
        filter = {"/txt", c.Only};
        files.AddFile(c.Name, {1, 0}, 1);
        EXPECT_EQ(operations.CopyOneFile(FakeFiles::Path(c.Name), FakeFiles::Path("2/x")),
                  c.Copied);
        EXPECT_EQ(CopyToCounterpart(c.Name), c.Copied);
        EXPECT_TRUE(files.CreatedFolders.empty());
    }
}

TEST_F(FileOperationsTest, ANewFileIsTriedAgainOnceItsFoldersAreMadeBelowTheOtherRoot) {
    files.CopiesMakeFolders = false;
    const struct {
        const char *Source, *Root1, *Root2, *Target;
        Texts Folders;
    } cases[] = {
        {"1/x/1/f", "1", "2", "2/x/1/f", {"2/x", "2/x/1"}},  // the root's text again below it
        {"1/1/1/f", "1", "2", "2/1/1/f", {"2/1", "2/1/1"}},
        {"1/2/x/2/f", "1", "2", "2/2/x/2/f", {"2/2", "2/2/x", "2/2/x/2"}},
        {"1/f", "1", "2/1", "2/1/f", {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Source);
        files.AddFile(c.Source, {1, 0}, 1);
        files.AddFolder(c.Root2);
        files.Copies.clear();
        files.CreatedFolders.clear();
        EXPECT_TRUE(CopyToCounterpart(c.Source, c.Root1, c.Root2));
        const std::string copy = std::string(c.Source) + " > " + c.Target;
        EXPECT_EQ(files.Copies, Texts(c.Folders.empty() ? 1 : 2, copy));
        EXPECT_EQ(files.CreatedFolders, c.Folders);
        EXPECT_TRUE(files.StatusOf(c.Target).Exists());
    }
}

TEST_F(FileOperationsTest, WhatCannotBeCopiedIsTriedTwiceAndWhatLiesElsewhereNever) {
    files.RefusesCopy = [](const std::string&, const std::string&) { return true; };
    for (const char* name : {"1/f", "10/f", "3/1/f"}) {
        files.AddFile(name, {1, 0}, 1);
        EXPECT_FALSE(CopyToCounterpart(name));
    }
    EXPECT_EQ(files.Copies, Texts(2, "1/f > 2/f"));
}

}  // namespace
}  // namespace syncing
