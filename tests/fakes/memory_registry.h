// A registry in memory that counts its changes and can fail.
#pragma once

#include <algorithm>
#include <map>
#include <string>

#include "platform/registry.h"

namespace fakes {

class MemoryRegistry : public platform::Registry {
  public:
    std::map<std::string, std::string> Values;  // every key that exists, with its value

    int Creations = 0;
    int Writes = 0;

    // The n-th call from now (1: the next) fails as the system would: without a word. 0: none.
    int FailCall = 0;

    std::string ReadDefault(const std::string& key) override {
        if (Fails()) return {};
        const auto found = Values.find(key);
        return found == Values.end() ? std::string() : found->second;
    }

    void CreateKey(const std::string& key) override {
        ++Creations;
        if (Fails()) return;
        for (std::size_t end = 0; end != std::string::npos;) {
            end = key.find('\\', end + 1);
            Values.try_emplace(key.substr(0, end));
        }
    }

    void WriteDefault(const std::string& key, const std::string& value) override {
        ++Writes;
        if (Fails()) return;
        const auto found = Values.find(key);
        if (found != Values.end()) found->second = value;
    }

    void DeleteKey(const std::string& key) override {
        if (Fails()) return;
        const bool hasSubkeys = std::any_of(Values.begin(), Values.end(), [&](const auto& entry) {
            return entry.first.compare(0, key.size() + 1, key + '\\') == 0;
        });
        if (!hasSubkeys) Values.erase(key);
    }

  private:
    bool Fails() { return FailCall > 0 && --FailCall == 0; }
};

}  // namespace fakes
