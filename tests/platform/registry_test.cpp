#include "platform/registry.h"

#include <gtest/gtest.h>

#include "fakes/own_registry.h"

TEST(RegistryTest, ValuesComeBackAsTheyWere) {
    fakes::OwnRegistry store;
    store.CreateKey("P0");
    EXPECT_EQ(store.ReadDefault("P0"), "");
    for (const std::string& value :
         {std::string("C:\\one====D:\\two"), std::string(" \t\"c'd "), std::string("ünï 日本 😀"),
          std::string(100'000, 'x'), std::string()}) {
        store.WriteDefault("P0", value);
        EXPECT_EQ(store.ReadDefault("P0"), value);
        EXPECT_EQ(platform::OpenSystemRegistry()->ReadDefault(store.Key("P0")), value);
    }
}

TEST(RegistryTest, KeysAreMadeWithThoseAboveAndDeletedOneByOne) {
    fakes::OwnRegistry store;
    store.CreateKey("a\\b\\c");
    for (const char* key : {"a\\b\\c", "a\\b", "missing"}) store.WriteDefault(key, key);
    store.CreateKey("a\\b");
    store.DeleteKey("a\\b");
    EXPECT_EQ(store.ReadDefault("a\\b"), "a\\b") << "a key with others below stays";
    EXPECT_EQ(store.ReadDefault("a\\b\\c"), "a\\b\\c");
    for (const char* key : {"a\\b\\c", "a\\b", "a", "a"}) store.DeleteKey(key);
    store.WriteDefault("a\\b", "lost");
    for (const char* key : {"a\\b", "missing"}) EXPECT_EQ(store.ReadDefault(key), "") << key;
}
