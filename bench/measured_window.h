// The main window without a screen, on two generated trees that stand in its folder boxes.
#pragma once

#include "app/form_main.h"
#include "fakes/memory_registry.h"
#include "generated_files.h"
#include "platform/headless/headless_host.h"

namespace bench {

struct MeasuredWindow {
    explicit MeasuredWindow(const Shape& shape) : Files(shape) {
        Form.Load("");
        Host.Show(Form.Window);
        Form.Combo1.SetText("/1");
        Form.Combo2.SetText("/2");
    }

    GeneratedFiles Files;
    fakes::MemoryRegistry Registry;
    platform::headless::Host Host;
    platform::headless::Dialogs Dialogs;
    platform::headless::Shell Shell;
    app::FormMain Form{{Host, Files, Registry, Dialogs, Shell}};
};

}  // namespace bench
