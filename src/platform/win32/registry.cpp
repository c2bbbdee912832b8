// The history store on Windows. An ordinary account may not write below HKEY_LOCAL_MACHINE. Its
// values go where the system itself used to redirect such programs: the same path below the user's
// VirtualStore, which is read first.
#include "platform/registry.h"

#include <algorithm>
#include <optional>

#include <windows.h>

namespace platform {

namespace {

constexpr REGSAM kAccess = 0x3F;  // everything but deleting and changing rights
constexpr DWORD kLargestValue = 1024 * 1024;
constexpr const char* kUserStore = "SOFTWARE\\Classes\\VirtualStore\\MACHINE\\";

// An open key, or none.
class Key {
  public:
    Key(HKEY root, const std::string& path, REGSAM access) {
        if (::RegOpenKeyExA(root, path.c_str(), 0, access, &key_) != ERROR_SUCCESS) key_ = nullptr;
    }
    ~Key() {
        if (key_) ::RegCloseKey(key_);
    }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;

    bool IsOpen() const { return key_ != nullptr; }

    // Nothing when there is no text, or more of it than can be meant.
    std::optional<std::string> Read() const {
        DWORD type = 0;
        DWORD size = 0;
        if (!key_ || ::RegQueryValueExA(key_, nullptr, nullptr, &type, nullptr, &size) != 0 ||
            type != REG_SZ || size > kLargestValue)
            return std::nullopt;
        std::string value(size, '\0');
        if (::RegQueryValueExA(key_, nullptr, nullptr, &type, reinterpret_cast<BYTE*>(value.data()),
                               &size) != 0 ||
            type != REG_SZ)
            return std::nullopt;
        value.resize(std::min(value.find('\0'), std::size_t{size}));
        return value;
    }

    bool HasSubkeys() const {
        DWORD count = 0;
        return key_ &&
               ::RegQueryInfoKeyA(key_, nullptr, nullptr, nullptr, &count, nullptr, nullptr,
                                  nullptr, nullptr, nullptr, nullptr, nullptr) == 0 &&
               count != 0;
    }

    bool Write(const std::string& value) const {
        return key_ && ::RegSetValueExA(key_, nullptr, 0, REG_SZ,
                                        reinterpret_cast<const BYTE*>(value.c_str()),
                                        static_cast<DWORD>(value.size() + 1)) == ERROR_SUCCESS;
    }

  private:
    HKEY key_ = nullptr;
};

bool Create(HKEY root, const std::string& path) {
    HKEY key = nullptr;
    if (::RegCreateKeyExA(root, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, kAccess, nullptr,
                          &key, nullptr) != ERROR_SUCCESS)
        return false;
    ::RegCloseKey(key);
    return true;
}

class WindowsRegistry : public Registry {
  public:
    std::string ReadDefault(const std::string& key) override {
        if (auto value = Key(HKEY_CURRENT_USER, kUserStore + key, kAccess).Read()) return *value;
        if (auto value = Key(HKEY_LOCAL_MACHINE, key, kAccess).Read()) return *value;
        return Key(HKEY_LOCAL_MACHINE, key, KEY_QUERY_VALUE).Read().value_or(std::string());
    }

    void CreateKey(const std::string& key) override {
        if (Key(HKEY_CURRENT_USER, kUserStore + key, kAccess).IsOpen()) return;
        if (!Create(HKEY_LOCAL_MACHINE, key)) Create(HKEY_CURRENT_USER, kUserStore + key);
    }

    void WriteDefault(const std::string& key, const std::string& value) override {
        const Key own(HKEY_CURRENT_USER, kUserStore + key, kAccess);
        if (own.IsOpen()) {
            own.Write(value);
        } else if (!Key(HKEY_LOCAL_MACHINE, key, kAccess).Write(value) && Exists(key)) {
            WriteOwn(key, value);
        }
    }

    void DeleteKey(const std::string& key) override {
        ::RegDeleteKeyA(HKEY_CURRENT_USER, (kUserStore + key).c_str());
        const LSTATUS result = ::RegDeleteKeyA(HKEY_LOCAL_MACHINE, key.c_str());
        // What may not be deleted is hidden by an empty value. Subkeys get the same answer.
        if (result == ERROR_ACCESS_DENIED && !ReadDefault(key).empty() &&
            !Key(HKEY_LOCAL_MACHINE, key, KEY_QUERY_VALUE).HasSubkeys())
            WriteOwn(key, {});
    }

  private:
    static bool Exists(const std::string& key) {
        return Key(HKEY_LOCAL_MACHINE, key, KEY_QUERY_VALUE).IsOpen();
    }

    static void WriteOwn(const std::string& key, const std::string& value) {
        if (Create(HKEY_CURRENT_USER, kUserStore + key))
            Key(HKEY_CURRENT_USER, kUserStore + key, kAccess).Write(value);
    }
};

}  // namespace

std::unique_ptr<Registry> OpenSystemRegistry() {
    return std::make_unique<WindowsRegistry>();
}

}  // namespace platform
