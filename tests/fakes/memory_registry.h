// A registry in memory. No key of it knows of others above or below.
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

    void CreateKey(const std::string& key) override { Values.try_emplace(key); }

    void WriteDefault(const std::string& key, const std::string& value) override {
        if (Values.contains(key)) Values[key] = value;
    }

    void DeleteKey(const std::string& key) override { Values.erase(key); }
};

}  // namespace fakes
