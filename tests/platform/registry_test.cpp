#include "platform/registry.h"

#include <vector>

#include <gtest/gtest.h>

#include "fakes/own_registry.h"

namespace {

class RegistryTest : public testing::Test {
  protected:
    std::string Read(const std::string& key) { return store_.ReadDefault(own_.Key(key)); }
    void Create(const std::string& key) { store_.CreateKey(own_.Key(key)); }
    void Write(const std::string& key, const std::string& value) {
        store_.WriteDefault(own_.Key(key), value);
    }
    void Delete(const std::string& key) { store_.DeleteKey(own_.Key(key)); }

    fakes::OwnRegistry own_;
    platform::Registry& store_ = own_.Store();
};

TEST_F(RegistryTest, ValuesComeBackAsTheyWere) {
    const std::vector<std::string> values = {
        "a",         "C:\\one==========D:\\two", " blanks ", "ünï 日本 😀",
        "a\tb\"c'd", std::string(100'000, 'x'),  "",
    };
    Create("P0");
    for (const std::string& value : values) {
        Write("P0", value);
        EXPECT_EQ(Read("P0"), value);
        EXPECT_EQ(platform::OpenSystemRegistry()->ReadDefault(own_.Key("P0")), value);
    }
}

TEST_F(RegistryTest, WritingNeedsTheKey) {
    Write("P0", "lost");
    EXPECT_EQ(Read("P0"), "");
    Create("P0");
    EXPECT_EQ(Read("P0"), "") << "a new key has no value";
    Write("P0", "kept");
    EXPECT_EQ(Read("P0"), "kept");
}

TEST_F(RegistryTest, CreatingMakesTheKeysAboveAndKeepsWhatIsThere) {
    Create("a\\b\\c");
    Write("a\\b\\c", "deep");
    Write("a\\b", "middle");
    Create("a\\b");
    Create("a\\b\\c");
    EXPECT_EQ(Read("a\\b"), "middle");
    EXPECT_EQ(Read("a\\b\\c"), "deep");
    EXPECT_EQ(Read("a"), "");
}

TEST_F(RegistryTest, DeletingTakesOneKeyWithoutSubkeys) {
    Create("a\\b");
    Write("a\\b", "below");
    Delete("a");
    EXPECT_EQ(Read("a\\b"), "below");
    Delete("a\\b");
    EXPECT_EQ(Read("a\\b"), "");
    Write("a\\b", "lost");
    EXPECT_EQ(Read("a\\b"), "") << "the key is gone";
    Delete("a");
    Delete("a");
    EXPECT_EQ(Read("a"), "");
}

}  // namespace
