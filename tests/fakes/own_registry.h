// A key of the system's own registry that belongs to one test.
#pragma once

#include <memory>
#include <string>

#include "platform/registry.h"

namespace fakes {

class OwnRegistry {
  public:
    OwnRegistry();
    ~OwnRegistry();  // removes the key with all below it
    OwnRegistry(const OwnRegistry&) = delete;
    OwnRegistry& operator=(const OwnRegistry&) = delete;

    // The path of a key of this test. None exists at first.
    std::string Key(const std::string& relative = {}) const {
        return relative.empty() ? root_ : root_ + '\\' + relative;
    }
    platform::Registry& Store() const { return *store_; }

  private:
    struct Place;  // what the system needs to keep the test's keys apart
    std::unique_ptr<Place> place_;
    std::string root_;
    std::unique_ptr<platform::Registry> store_;
};

}  // namespace fakes
