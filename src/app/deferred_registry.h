// A registry whose writes wait until they are wanted.
#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/registry.h"

namespace app {

// Shows what it would write, and writes nothing before Commit. A run that turns out to be wrong
// usage, or that is not to be remembered, leaves no trace.
class DeferredRegistry : public platform::Registry {
  public:
    explicit DeferredRegistry(platform::Registry& kept) : kept_(kept) {}

    std::string ReadDefault(const std::string& key) override {
        const auto found = written_.find(key);
        return found == written_.end() ? kept_.ReadDefault(key) : found->second;
    }
    void CreateKey(const std::string& key) override {
        waiting_.push_back([this, key] { kept_.CreateKey(key); });
    }
    void WriteDefault(const std::string& key, const std::string& value) override {
        written_[key] = value;
        waiting_.push_back([this, key, value] { kept_.WriteDefault(key, value); });
    }
    void DeleteKey(const std::string& key) override {
        written_[key].clear();
        waiting_.push_back([this, key] { kept_.DeleteKey(key); });
    }

    // False when something does not stand there now: it could not be written, or another program
    // has taken its place since it was read.
    bool Commit() {
        for (const auto& write : std::exchange(waiting_, {})) write();
        const auto written = std::exchange(written_, {});
        return std::all_of(written.begin(), written.end(), [this](const auto& one) {
            return kept_.ReadDefault(one.first) == one.second;
        });
    }

  private:
    platform::Registry& kept_;
    std::map<std::string, std::string> written_;
    std::vector<std::function<void()>> waiting_;
};

}  // namespace app
