#include <windows.h>

#include "fakes/own_registry.h"

namespace fakes {

OwnRegistry::OwnRegistry() : all_(platform::OpenSystemRegistry()) {}

OwnRegistry::~OwnRegistry() {
    ::RegDeleteTreeA(HKEY_LOCAL_MACHINE, root_.c_str());
    ::RegDeleteTreeA(HKEY_CURRENT_USER,
                     ("SOFTWARE\\Classes\\VirtualStore\\MACHINE\\" + root_).c_str());
}

}  // namespace fakes
