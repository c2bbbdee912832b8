// A registry in memory.
#pragma once

#include <algorithm>
#include <map>
#include <string>

#include "platform/registry.h"

namespace fakes {

class MemoryRegistry : public platform::Registry {
  public:
    std::map<std::string, std::string> Values;  // every key that exists, with its value

    std::string ReadDefault(const std::string& key) override {
        const auto found = Values.find(key);
        return found == Values.end() ? std::string() : found->second;
    }

    void CreateKey(const std::string& key) override {
        for (std::size_t end = 0; end != std::string::npos;) {
            end = key.find('\\', end + 1);
            Values.try_emplace(key.substr(0, end));
        }
    }

    void WriteDefault(const std::string& key, const std::string& value) override {
        const auto found = Values.find(key);
        if (found != Values.end()) found->second = value;
    }

    void DeleteKey(const std::string& key) override {
        const bool hasSubkeys = std::any_of(Values.begin(), Values.end(), [&](const auto& entry) {
            return entry.first.starts_with(key + '\\');
        });
        if (!hasSubkeys) Values.erase(key);
    }
};

}  // namespace fakes
