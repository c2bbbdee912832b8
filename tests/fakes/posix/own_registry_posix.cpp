#include <cstdlib>
#include <optional>

#include "fakes/own_registry.h"
#include "fakes/temp_folder.h"

namespace fakes {

namespace {

constexpr const char* kVariable = "XDG_CONFIG_HOME";

}  // namespace

struct OwnRegistry::Place {
    TempFolder Folder;
    std::optional<std::string> Before;
};

OwnRegistry::OwnRegistry() : place_(std::make_unique<Place>()), root_("SOFTWARE\\Test") {
    if (const char* before = std::getenv(kVariable)) place_->Before = before;
    ::setenv(kVariable, place_->Folder.Path().c_str(), 1);
    store_ = platform::OpenSystemRegistry();
}

OwnRegistry::~OwnRegistry() {
    if (place_->Before) {
        ::setenv(kVariable, place_->Before->c_str(), 1);
    } else {
        ::unsetenv(kVariable);
    }
}

}  // namespace fakes
