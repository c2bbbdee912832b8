#include "platform/registry.h"

#include <gtest/gtest.h>

// In a key of its own, which is gone at the end.
TEST(RegistryTest, ValuesComeBackAsTheyWereAndKeysGoOneByOne) {
    const std::string above = "SOFTWARE\\VarnelTest", key = above + "\\P0";
    const auto store = platform::OpenSystemRegistry();
    store->CreateKey(key);
    for (const std::string& value : {std::string("C:\\one====D:\\two"), std::string(" \t\"c'd "),
                                     std::string("ünï 日本 😀"), std::string(100'000, 'x')}) {
        store->WriteDefault(key, value);
        EXPECT_EQ(platform::OpenSystemRegistry()->ReadDefault(key), value);
    }
    store->WriteDefault(key, "");
    EXPECT_EQ(store->ReadDefault(key), "");
    store->WriteDefault(above, "above");
    store->DeleteKey(above);
    store->CreateKey(above);
    EXPECT_EQ(store->ReadDefault(above), "above") << "a key with others below stays as it is";
    for (const std::string& deleted : {key, above}) {
        store->DeleteKey(deleted);
        store->WriteDefault(deleted, "lost");
        EXPECT_EQ(store->ReadDefault(deleted), "");
    }
}
