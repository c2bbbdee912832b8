#include <windows.h>

#include "fakes/own_registry.h"

namespace fakes {

struct OwnRegistry::Place {};

OwnRegistry::OwnRegistry() {
    static int count = 0;
    root_ = "SOFTWARE\\VarnelTest" + std::to_string(::GetCurrentProcessId()) + "n" +
            std::to_string(++count);
    store_ = platform::OpenSystemRegistry();
}

OwnRegistry::~OwnRegistry() {
    ::RegDeleteTreeA(HKEY_LOCAL_MACHINE, root_.c_str());
    ::RegDeleteTreeA(HKEY_CURRENT_USER,
                     ("SOFTWARE\\Classes\\VirtualStore\\MACHINE\\" + root_).c_str());
}

}  // namespace fakes
