// The desktop of Windows.
#pragma once

#include "platform/shell.h"

namespace platform::win32 {

class Shell : public platform::Shell {
  public:
    void OpenFolder(const std::string& path) override;
    void StartProgram(const std::string& commandLine) override;
    std::string DocumentsFolder() override;
    std::string ProgramFolder() override;
};

}  // namespace platform::win32
