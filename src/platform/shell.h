// What the desktop does for us: opening folders, starting programs, well-known folders.
#pragma once

#include <string>

namespace platform {

class Shell {
  public:
    virtual ~Shell() = default;

    // Opens a folder in the desktop's file browser. A failure is silent.
    virtual void OpenFolder(const std::string& path) = 0;

    // Starts a command line in a normal, focused window. A failure is silent.
    virtual void StartProgram(const std::string& commandLine) = 0;

    // Without a trailing separator; empty where there is none.
    virtual std::string DocumentsFolder() = 0;
    virtual std::string ProgramFolder() = 0;
};

}  // namespace platform
