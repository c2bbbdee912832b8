#include <gtest/gtest.h>

#include "fakes/temp_folder.h"
#include "platform/files.h"

namespace {

using Names = std::vector<std::string>;

const char* const kSourceTime = "2024-03-10 12:34:56.1234567 UTC";
const char* const kOtherTime = "2020-01-01 00:00:00 UTC";

class CopyOverTest : public testing::Test {
  protected:
    platform::Outcome Copy(const std::string& from, const std::string& to) {
        return files_.CopyOver(temp_.Path(from), temp_.Path(to), [] {});
    }

    fakes::TempFolder temp_;
    platform::FileSystem& files_ = platform::SystemFiles();
};

TEST_F(CopyOverTest, CarriesContentAndTimeAndLeavesNothingElse) {
    const Names targets = {"t/new",        "t/old",     "t/longer",          "t/a/b/new below",
                           "t/ünï 日本 😀", "t/.hidden", "t/ blank in front", "t/x.tar.gz"};
    temp_.WriteFile("t/old", "x", fakes::Time(kOtherTime));
    temp_.WriteFile("t/longer", std::string(100'000, 'x'), fakes::Time(kOtherTime));
    temp_.WriteFile("source", "the content", fakes::Time(kSourceTime));
    for (const std::string& target : targets) {
        const platform::Outcome outcome = Copy("source", target);
        EXPECT_TRUE(outcome.Ok()) << target << ": " << outcome.Reason;
        EXPECT_EQ(temp_.Read(target), "the content") << target;
        EXPECT_EQ(files_.Look(temp_.Path(target)).Time, fakes::Time(kSourceTime)) << target;
    }
    EXPECT_EQ(temp_.Names("t"), (Names{" blank in front", ".hidden", "a", "longer", "new", "old",
                                       "x.tar.gz", "ünï 日本 😀"}));
    EXPECT_EQ(temp_.Names("t/a/b"), Names{"new below"});
}

TEST_F(CopyOverTest, FilesOfEverySizeArriveWhole) {
    for (const std::size_t size : {0u, 1u, 4096u, 131'072u, 131'073u, 20'000'003u}) {
        std::string content(size, '\0');
        for (std::size_t i = 0; i < size; ++i) content[i] = static_cast<char>(i * 7 + i / 251);
        temp_.WriteFile("source", content, fakes::Time(kSourceTime));
        ASSERT_TRUE(Copy("source", "target").Ok()) << size;
        EXPECT_TRUE(temp_.Read("target") == content) << size;
        EXPECT_EQ(files_.Look(temp_.Path("target")).Time, fakes::Time(kSourceTime)) << size;
    }
    EXPECT_EQ(temp_.Names(), (Names{"source", "target"}));
}

TEST_F(CopyOverTest, SourceIsFoundThroughItsLongWay) {
    temp_.WriteFile("a/source", "1");
    EXPECT_TRUE(Copy("a/../a/./source", "a//target").Ok());
    EXPECT_EQ(temp_.Read("a/target"), "1");
}

TEST_F(CopyOverTest, RefusalLeavesEverythingAsItWas) {
    temp_.WriteFile("source", "new");
    temp_.WriteFile("target", "old", fakes::Time(kOtherTime));
    temp_.WriteFile("folder/inside", "old");
    const struct {
        const char* From;
        const char* To;
    } cases[] = {
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
    EXPECT_EQ(files_.Look(temp_.Path("target")).Time, fakes::Time(kOtherTime));
}

TEST_F(CopyOverTest, LeftoversAreRemovedAndNothingElseIs) {
    temp_.WriteFile(".varnel~00c0ffee", "left behind");
    temp_.WriteFile(".varnel~00C0FFEF", "not ours");
    temp_.WriteFile("file", "not ours");
    temp_.WriteFile(".varnel~12345678/inside", "a folder of that name");
    for (const std::string& name : temp_.Names()) files_.RemoveLeftover(temp_.Path(name));
    files_.RemoveLeftover(temp_.Path(".varnel~missing1"));
    EXPECT_EQ(temp_.Names(), (Names{".varnel~00C0FFEF", ".varnel~12345678", "file"}));
    EXPECT_TRUE(temp_.Exists(".varnel~12345678/inside"));
}

}  // namespace
