#include <gtest/gtest.h>

#include "fakes/temp_folder.h"
#include "platform/files.h"
#include "platform/paths.h"

namespace {

using Names = std::vector<std::string>;

const platform::FileTime kTime = fakes::Time("2024-03-10 12:34:56.1234567 UTC");
const platform::FileTime kOtherTime = fakes::Time("2020-01-01 00:00:00 UTC");

class CopyOverTest : public testing::Test {
  protected:
    platform::Outcome Copy(const std::string& from, const std::string& to) {
        return files_.CopyOver(temp_.Path(from), temp_.Path(to), [] {});
    }
    void ExpectCopied(const std::string& from, const std::string& to, const std::string& content) {
        const platform::Outcome outcome = Copy(from, to);
        EXPECT_TRUE(outcome.Ok()) << to << ": " << outcome.Reason;
        EXPECT_TRUE(temp_.Read(to) == content) << to;
        EXPECT_EQ(files_.Look(temp_.Path(to)).Time, kTime) << to;
    }

    fakes::TempFolder temp_;
    platform::FileSystem& files_ = platform::SystemFiles();
};

TEST_F(CopyOverTest, CarriesContentAndTimeAndLeavesNothingElse) {
    temp_.WriteFile("t/old", "x", kOtherTime);
    temp_.WriteFile("t/longer", std::string(100'000, 'x'), kOtherTime);
    temp_.WriteFile("a/source", "the content", kTime);
    for (const char* target : {"t/new", "t/old", "t/longer", "t/a/b/new below", "t/ünï 日本 😀",
                               "t/.hidden", "t/ blank in front", "t/x.tar.gz"})
        ExpectCopied("a/..//a/./source", target, "the content");
    EXPECT_EQ(temp_.Names("t"), (Names{" blank in front", ".hidden", "a", "longer", "new", "old",
                                       "x.tar.gz", "ünï 日本 😀"}));
    EXPECT_EQ(temp_.Names("t/a/b"), Names{"new below"});
}

TEST_F(CopyOverTest, FilesOfEverySizeArriveWhole) {
    for (const std::size_t size : {0u, 1u, 4096u, 131'072u, 131'073u, 20'000'003u}) {
        std::string content(size, '\0');
        for (std::size_t i = 0; i < size; ++i) content[i] = static_cast<char>(i * 7 + i / 251);
        temp_.WriteFile("source", content, kTime);
        ExpectCopied("source", "target", content);
    }
    EXPECT_EQ(temp_.Names(), (Names{"source", "target"}));
}

TEST_F(CopyOverTest, NoLimitOnAPathsLength) {
    const std::size_t length = platform::Separator == '/' ? 6000 : 300;
    std::string deep = "top";
    while (temp_.Path(deep).size() < length) deep += "/" + std::string(60, 'd');
    for (const char* content : {"content", "replaced"}) {
        temp_.WriteFile("source", content, kTime);
        ExpectCopied("source", deep + "/file", content);
    }
    ExpectCopied(deep + "/file", "back", "replaced");
    EXPECT_TRUE(files_.CreateFolder(temp_.Path(deep + "/folder")).Ok());
    EXPECT_TRUE(files_.FolderExists(temp_.Path(deep + "/folder/")));
    platform::Outcome outcome;
    const auto folder = files_.OpenFolder(temp_.Path(deep), outcome);
    ASSERT_TRUE(folder) << outcome.Reason;
    EXPECT_TRUE(folder->IsFolder("folder"));
    temp_.WriteFile(deep + "/.varnel~00000000", "");
    files_.RemoveLeftover(temp_.Path(deep + "/.varnel~00000000"));
    EXPECT_TRUE(files_.RemoveFile(temp_.Path(deep + "/file")).Ok());
    EXPECT_EQ(temp_.Names(deep), Names{"folder"});
}

TEST_F(CopyOverTest, RefusalLeavesEverythingAsItWas) {
    temp_.WriteFile("source", "new");
    temp_.WriteFile("target", "old", kOtherTime);
    temp_.WriteFile("folder/inside", "old");
    const std::pair<const char*, const char*> cases[] = {
        {"missing", "target"},          {"missing", "fresh"},
        {"folder", "target"},           {"folder", "fresh"},
        {"source", "folder"},           {"source", "source"},
        {"source", "folder/../source"}, {"source", "target/x"},
        {"missing/source", "target"},
    };
    for (const auto& [from, to] : cases) {
        const platform::Outcome outcome = Copy(from, to);
        EXPECT_FALSE(outcome.Ok()) << from << " to " << to;
        EXPECT_NE(outcome.Reason, "") << from << " to " << to;
    }
    EXPECT_EQ(temp_.Names(), (Names{"folder", "source", "target"}));
    EXPECT_EQ(temp_.Names("folder"), Names{"inside"});
    EXPECT_EQ(temp_.Read("source"), "new");
    EXPECT_EQ(temp_.Read("target"), "old");
    EXPECT_EQ(files_.Look(temp_.Path("target")).Time, kOtherTime);
}

TEST_F(CopyOverTest, LeftoversAreRemovedAndNothingElseIs) {
    for (const char* name : {".varnel~00c0ffee", ".varnel~00C0FFEF", "file"})
        temp_.WriteFile(name, "");
    temp_.WriteFile(".varnel~12345678/inside", "a folder of that name");
    for (const std::string& name : temp_.Names()) files_.RemoveLeftover(temp_.Path(name));
    EXPECT_EQ(temp_.Names(), (Names{".varnel~00C0FFEF", ".varnel~12345678", "file"}));
    EXPECT_TRUE(temp_.Exists(".varnel~12345678/inside"));
}

}  // namespace
