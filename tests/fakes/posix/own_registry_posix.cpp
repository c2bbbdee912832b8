#include <cstdlib>

#include "fakes/own_registry.h"

namespace fakes {

OwnRegistry::OwnRegistry() {
    ::setenv("XDG_CONFIG_HOME", folder_.Path().c_str(), 1);
    all_ = platform::OpenSystemRegistry();
}

OwnRegistry::~OwnRegistry() = default;

}  // namespace fakes
