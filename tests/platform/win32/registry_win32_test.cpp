#include <gtest/gtest.h>
#include <windows.h>
// It needs what <windows.h> declares.
#include <sddl.h>

#include "platform/registry.h"

namespace {

constexpr char kTop[] = "SOFTWARE\\VarnelTest", kSlot[] = "SOFTWARE\\VarnelTest\\P0";

// An ordinary account may read everybody's value, not write it.
TEST(WindowsRegistryTest, WhatMayNotBeWrittenGoesToAStoreOfOnesOwnAndWhatIsNoTextReadsAsEmpty) {
    const auto store = platform::OpenSystemRegistry();
    for (const DWORD type : {REG_DWORD, REG_SZ}) {
        ::RegSetKeyValueA(HKEY_LOCAL_MACHINE, kSlot, nullptr, type, "text", 4);
        EXPECT_EQ(store->ReadDefault(kSlot), type == REG_SZ ? "text" : "");
    }
    HKEY key = nullptr;
    PSECURITY_DESCRIPTOR rights = nullptr;  // of everybody: reading and deleting
    ::ConvertStringSecurityDescriptorToSecurityDescriptorA("D:(A;;KRSD;;;WD)", SDDL_REVISION_1,
                                                           &rights, nullptr);
    ::RegOpenKeyExA(HKEY_LOCAL_MACHINE, kSlot, 0, WRITE_DAC, &key);
    EXPECT_EQ(::RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, rights), 0);
    ::RegCloseKey(key);
    ::LocalFree(rights);
    for (const char* value : {"mine", "mine again"}) {
        store->WriteDefault(kSlot, value);
        EXPECT_EQ(store->ReadDefault(kSlot), value);
    }
    ::RegDeleteTreeA(HKEY_CURRENT_USER,
                     "SOFTWARE\\Classes\\VirtualStore\\MACHINE\\SOFTWARE\\VarnelTest");
    EXPECT_EQ(store->ReadDefault(kSlot), "text") << "everybody's";
    store->WriteDefault(kSlot, "mine");
    for (const char* deleted : {kSlot, kTop}) {
        store->DeleteKey(deleted);
        EXPECT_EQ(store->ReadDefault(deleted), "");
    }
}

}  // namespace
