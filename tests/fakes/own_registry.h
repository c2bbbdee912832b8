// A part of the system's own registry that belongs to one test.
#pragma once

#include <memory>
#include <string>

#include "fakes/temp_folder.h"
#include "platform/registry.h"

namespace fakes {

// Empty at first; what is in it goes with it.
class OwnRegistry : public platform::Registry {
  public:
    OwnRegistry();
    ~OwnRegistry() override;

    // A key of this registry as the system's own knows it.
    std::string Key(const std::string& key) const { return root_ + '\\' + key; }

    std::string ReadDefault(const std::string& key) override { return all_->ReadDefault(Key(key)); }
    void CreateKey(const std::string& key) override { all_->CreateKey(Key(key)); }
    void WriteDefault(const std::string& key, const std::string& value) override {
        all_->WriteDefault(Key(key), value);
    }
    void DeleteKey(const std::string& key) override { all_->DeleteKey(Key(key)); }

  private:
    const TempFolder folder_;  // holds the keys where they are files, and lends the root its name
    const std::string root_ = "SOFTWARE\\" + folder_.Path().substr(folder_.Path().rfind("varnel"));
    std::unique_ptr<platform::Registry> all_;
};

}  // namespace fakes
