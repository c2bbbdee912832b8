#include <gtest/gtest.h>
#include <windows.h>
// It needs what <windows.h> declares.
#include <sddl.h>

#include "fakes/own_registry.h"

namespace {

TEST(WindowsRegistryTest, WhatIsNoTextReadsAsEmpty) {
    fakes::OwnRegistry store;
    const auto read = [&](DWORD type, const std::string& bytes) {
        ::RegSetKeyValueA(HKEY_LOCAL_MACHINE, store.Key("P0").c_str(), nullptr, type, bytes.data(),
                          static_cast<DWORD>(bytes.size()));
        return store.ReadDefault("P0");
    };
    EXPECT_EQ(read(REG_SZ, "no NUL"), "no NUL");
    EXPECT_EQ(read(REG_DWORD, "1234"), "");
}

// Everybody gets these rights to a key below HKEY_LOCAL_MACHINE, and nobody has others.
void SetRights(const std::string& key, const char* rights) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ::ConvertStringSecurityDescriptorToSecurityDescriptorA(rights, SDDL_REVISION_1, &descriptor,
                                                           nullptr);
    HKEY opened = nullptr;
    ::RegOpenKeyExA(HKEY_LOCAL_MACHINE, key.c_str(), 0, WRITE_DAC, &opened);
    EXPECT_EQ(::RegSetKeySecurity(opened, DACL_SECURITY_INFORMATION, descriptor), 0);
    ::RegCloseKey(opened);
    ::LocalFree(descriptor);
}

TEST(WindowsRegistryTest, AnOrdinaryAccountHasAStoreOfItsOwn) {
    fakes::OwnRegistry store;
    const auto write = [&](const char* key, const char* value) {
        store.CreateKey(key);
        store.WriteDefault(key, value);
    };
    for (const char* key : {"a\\P0", "a\\P1"}) write(key, "everybody's");
    for (const char* key : {"a\\P0", "a\\P1", "a"}) SetRights(store.Key(key), "D:(A;;KR;;;WD)");
    store.WriteDefault("a\\P0", "mine");
    EXPECT_EQ(store.ReadDefault("a\\P0"), "mine");
    for (const char* key : {"a\\P0", "a\\P1", "a\\P2"}) {
        store.DeleteKey(key);
        EXPECT_EQ(store.ReadDefault(key), "") << "gone, or hidden";
        write(key, "mine again");
        EXPECT_EQ(store.ReadDefault(key), "mine again");
    }
    for (const char* key : {"a", "a\\P0", "a\\P1"}) SetRights(store.Key(key), "D:(A;;KA;;;WD)");
}

}  // namespace
