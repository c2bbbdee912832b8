// Keys with one text value each, as the registry keeps them.
#pragma once

#include <memory>
#include <string>

namespace platform {

// Key paths are separated by "\" and start below HKEY_LOCAL_MACHINE (on Linux: below the
// program's configuration folder). Failures are silent: an unreadable value is empty, a write
// that fails leaves the old value.
class Registry {
  public:
    virtual ~Registry() = default;

    virtual std::string ReadDefault(const std::string& key) = 0;

    // Also makes the missing keys above it.
    virtual void CreateKey(const std::string& key) = 0;

    // Nothing happens when the key does not exist. The value is written whole or not at all.
    virtual void WriteDefault(const std::string& key, const std::string& value) = 0;

    // A key with subkeys stays.
    virtual void DeleteKey(const std::string& key) = 0;
};

// The user's own store.
std::unique_ptr<Registry> OpenSystemRegistry();

}  // namespace platform
