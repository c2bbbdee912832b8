#include "platform/registry.h"

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

    fakes::OwnRegistry own_;
    platform::Registry& store_ = own_.Store();
};

TEST_F(RegistryTest, ValuesComeBackAsTheyWere) {
    Write("P0", "lost, for want of the key");
    Create("P0");
    EXPECT_EQ(Read("P0"), "");
    for (const std::string& value :
         {std::string("C:\\one====D:\\two"), std::string(" \t\"c'd "), std::string("ünï 日本 😀"),
          std::string(100'000, 'x'), std::string()}) {
        Write("P0", value);
        EXPECT_EQ(Read("P0"), value);
        EXPECT_EQ(platform::OpenSystemRegistry()->ReadDefault(own_.Key("P0")), value);
    }
}

TEST_F(RegistryTest, KeysAreMadeWithThoseAboveAndDeletedOneByOne) {
    Create("a\\b\\c");
    Write("a\\b\\c", "deep");
    Write("a\\b", "middle");
    Create("a\\b");
    store_.DeleteKey(own_.Key("a\\b"));
    EXPECT_EQ(Read("a\\b"), "middle") << "a key with others below stays";
    EXPECT_EQ(Read("a\\b\\c"), "deep");
    for (const char* key : {"a\\b\\c", "a\\b", "a", "a"}) store_.DeleteKey(own_.Key(key));
    Write("a\\b", "lost");
    EXPECT_EQ(Read("a\\b"), "") << "the key is gone";
}

}  // namespace
