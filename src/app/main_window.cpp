// Varnel.exe: the main window on the screen.

#include <algorithm>
#include <cstddef>
#include <exception>
#include <string_view>

#include <windows.h>

#include "app/form_main.h"
#include "platform/files.h"
#include "platform/registry.h"
#include "platform/win32/dialogs.h"
#include "platform/win32/host.h"
#include "platform/win32/shell.h"
#include "platform/win32/text_conversion.h"

namespace {

// What follows the program's own name: that ends at a blank, or at a blank behind its second quote.
std::wstring_view Arguments() {
    std::wstring_view line = ::GetCommandLineW();
    bool quoted = false;
    std::size_t end = 0;
    for (; end < line.size() && (quoted || (line[end] != L' ' && line[end] != L'\t')); ++end)
        if (line[end] == L'"') quoted = !quoted;
    line.remove_prefix(std::min(line.find_first_not_of(L" \t", end), line.size()));
    return line.substr(0, line.find_last_not_of(L" \t") + 1);
}

// A pair of folders given as one argument has quotes around it as a whole.
std::wstring_view CommandLine() {
    const std::wstring_view line = Arguments();
    const bool oneArgument = line.size() >= 2 && line.find(L'"', 1) == line.size() - 1;
    return oneArgument && line.front() == L'"' ? line.substr(1, line.size() - 2) : line;
}

void Run() {
    platform::win32::Host host;
    platform::win32::Dialogs dialogs(host);
    platform::win32::Shell shell;
    const auto registry = platform::OpenSystemRegistry();
    app::FormMain form({host, platform::SystemFiles(), *registry, dialogs, shell});
    form.Load(platform::win32::Narrow(CommandLine()));
    host.Show(form.Window);
    host.RunUntilUnloaded(form.Window);
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    try {
        Run();
        return 0;
    } catch (const std::exception& error) {
        ::MessageBoxW(nullptr, platform::win32::Wide(error.what()).c_str(),
                      platform::win32::Wide(app::kApplicationTitle).c_str(), MB_ICONERROR);
        return 1;
    }
}
