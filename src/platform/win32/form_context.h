// What the windows of one form share, and the frame around each of their procedures.
#pragma once

#include <functional>
#include <memory>

#include <windows.h>

#include "platform/win32/fonts.h"
#include "platform/win32/scale.h"

namespace platform::win32 {

struct FormContext {
    Scale Scaling;
    std::unique_ptr<Fonts> Lettering;

    // The form was unloaded: neither it nor its controls may be touched any more.
    bool Closed = false;

    // How many procedures of the form's windows are under way. Only at 0 may the windows go.
    int Running = 0;

    // Run when something that the user did has been handed to a control.
    std::function<void()> AfterEvent;
};

// Runs the body of a window procedure. An exception ends what the user started and goes no
// further, for the system's code below cannot carry it.
template <typename Body>
auto Guarded(FormContext& context, Body body) -> decltype(body()) {
    struct Count {
        explicit Count(int& running) : Running(running) { ++Running; }
        ~Count() { --Running; }
        int& Running;
    } count(context.Running);
    try {
        return body();
    } catch (...) {
        ::OutputDebugStringW(L"Varnel: an event ended with an exception");
        return {};
    }
}

}  // namespace platform::win32
