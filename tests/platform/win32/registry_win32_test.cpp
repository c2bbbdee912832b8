#include <aclapi.h>
#include <gtest/gtest.h>
#include <windows.h>

#include "fakes/own_registry.h"

namespace {

class WindowsRegistryTest : public testing::Test {
  protected:
    // Null when the key is missing or the access is refused.
    HKEY Open(const std::string& key, REGSAM access) {
        HKEY opened = nullptr;
        ::RegOpenKeyExA(HKEY_LOCAL_MACHINE, own_.Key(key).c_str(), 0, access, &opened);
        return opened;
    }
    // Everybody may read the key below HKEY_LOCAL_MACHINE; nobody, or everybody, may change it.
    void SetWritable(const std::string& key, bool writable) {
        const HKEY opened = Open(key, WRITE_DAC);
        char everybody[] = "Everyone";
        EXPLICIT_ACCESSA access{};
        ::BuildExplicitAccessWithNameA(&access, everybody, writable ? KEY_ALL_ACCESS : KEY_READ,
                                       SET_ACCESS, NO_INHERITANCE);
        PACL list = nullptr;
        EXPECT_EQ(::SetEntriesInAclA(1, &access, nullptr, &list), 0u);
        EXPECT_EQ(::SetSecurityInfo(opened, SE_REGISTRY_KEY, DACL_SECURITY_INFORMATION, nullptr,
                                    nullptr, list, nullptr),
                  0u);
        ::LocalFree(list);
        ::RegCloseKey(opened);
    }
    std::string Read(const std::string& key) { return store_.ReadDefault(own_.Key(key)); }

    fakes::OwnRegistry own_;
    platform::Registry& store_ = own_.Store();
};

TEST_F(WindowsRegistryTest, WhatIsNoTextReadsAsEmpty) {
    store_.CreateKey(own_.Key("P0"));
    const std::string megabyte(1024 * 1024 - 1, 'x');
    const struct {
        DWORD Type;
        std::string Bytes, Read;
    } cases[] = {
        {REG_SZ, "no NUL", "no NUL"},
        {REG_SZ, std::string("a\0b\0", 4), "a"},
        {REG_SZ, megabyte + '\0', megabyte},
        {REG_SZ, std::string(3 * 1024 * 1024, 'x'), ""},
        {REG_DWORD, "1234", ""},
        {REG_MULTI_SZ, std::string("a\0b\0\0", 5), ""},
    };
    for (const auto& [type, bytes, expected] : cases) {
        const HKEY key = Open("P0", KEY_SET_VALUE);
        ::RegSetValueExA(key, nullptr, 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                         static_cast<DWORD>(bytes.size()));
        ::RegCloseKey(key);
        EXPECT_TRUE(Read("P0") == expected) << "type " << type << ", " << bytes.size() << " bytes";
    }
}

TEST_F(WindowsRegistryTest, AnOrdinaryAccountHasAStoreOfItsOwn) {
    for (const char* key : {"P0", "P1"}) {
        store_.CreateKey(own_.Key(key));
        store_.WriteDefault(own_.Key(key), "everybody's");
        SetWritable(key, false);
    }
    SetWritable("", false);
    const HKEY refused = Open("P0", 0x3F);
    const bool bound = !refused;
    if (refused) ::RegCloseKey(refused);
    if (bound) {
        store_.CreateKey(own_.Key("P2"));
        for (const char* key : {"P0", "P2", "P3"}) store_.WriteDefault(own_.Key(key), "mine");
        for (const char* key : {"P0", "P2"}) EXPECT_EQ(Read(key), "mine");
        EXPECT_EQ(Read("P3"), "") << "lost, for want of the key";
        for (const char* key : {"P1", "P2"}) {
            store_.DeleteKey(own_.Key(key));
            EXPECT_EQ(Read(key), "") << "gone, or hidden";
        }
        store_.CreateKey(own_.Key("P1"));
        store_.WriteDefault(own_.Key("P1"), "back");
        EXPECT_EQ(Read("P1"), "back");
    }
    for (const char* key : {"", "P0", "P1"}) SetWritable(key, true);
    if (!bound) GTEST_SKIP() << "rights of keys do not bind here";
}

}  // namespace
