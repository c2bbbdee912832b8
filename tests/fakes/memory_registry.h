// A registry in memory.
#pragma once

#include <map>
#include <string>

#include "platform/registry.h"

namespace fakes {

class MemoryRegistry : public platform::Registry {
  public:
    std::map<std::string, std::string> Values;  // every key that exists, with its value

    std::string ReadDefault(const std::string& key) override {
        return Values.contains(key) ? Values.at(key) : std::string();
    }

    void CreateKey(const std::string& key) override {
        for (std::size_t end = 0; end != std::string::npos;) {
            end = key.find('\\', end + 1);
            Values.try_emplace(key.substr(0, end));
        }
    }

    void WriteDefault(const std::string& key, const std::string& value) override {
        if (Values.contains(key)) Values[key] = value;
    }

    void DeleteKey(const std::string& key) override {
        const auto below = Values.lower_bound(key + '\\');
        if (below == Values.end() || !below->first.starts_with(key + '\\')) Values.erase(key);
    }
};

}  // namespace fakes
