#include <gtest/gtest.h>
#include <windows.h>
// It needs what <windows.h> declares.
#include <sddl.h>

#include "platform/registry.h"

namespace {

constexpr char kTop[] = "SOFTWARE\\VarnelTest", kSlot[] = "SOFTWARE\\VarnelTest\\P0";

// Everybody gets these rights to the two keys below HKEY_LOCAL_MACHINE, and nobody has others.
void SetRights(const char* rights) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ::ConvertStringSecurityDescriptorToSecurityDescriptorA(rights, SDDL_REVISION_1, &descriptor,
                                                           nullptr);
    for (const char* key : {kTop, kSlot}) {
        HKEY opened = nullptr;
        ::RegOpenKeyExA(HKEY_LOCAL_MACHINE, key, 0, WRITE_DAC, &opened);
        EXPECT_EQ(::RegSetKeySecurity(opened, DACL_SECURITY_INFORMATION, descriptor), 0);
        ::RegCloseKey(opened);
    }
    ::LocalFree(descriptor);
}

TEST(WindowsRegistryTest, AnOrdinaryAccountHasAStoreOfItsOwnAndWhatIsNoTextReadsAsEmpty) {
    const auto store = platform::OpenSystemRegistry();
    for (const DWORD type : {REG_DWORD, REG_SZ}) {
        ::RegSetKeyValueA(HKEY_LOCAL_MACHINE, kSlot, nullptr, type, "text", 4);
        EXPECT_EQ(store->ReadDefault(kSlot), type == REG_SZ ? "text" : "");
    }
    SetRights("D:(A;;KR;;;WD)");
    store->WriteDefault(kSlot, "mine");
    EXPECT_EQ(store->ReadDefault(kSlot), "mine");
    for (const char* slot : {kSlot, "SOFTWARE\\VarnelTest\\P1"}) {
        store->DeleteKey(slot);
        EXPECT_EQ(store->ReadDefault(slot), "") << "gone, or hidden";
        store->CreateKey(slot);
        store->WriteDefault(slot, "mine again");
        EXPECT_EQ(store->ReadDefault(slot), "mine again");
    }
    SetRights("D:(A;;KA;;;WD)");
    ::RegDeleteTreeA(HKEY_LOCAL_MACHINE, kTop);
    ::RegDeleteTreeA(HKEY_CURRENT_USER,
                     "SOFTWARE\\Classes\\VirtualStore\\MACHINE\\SOFTWARE\\VarnelTest");
}

}  // namespace
