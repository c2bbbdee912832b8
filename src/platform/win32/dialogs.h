// The system's own dialogs, over the windows of a host.
#pragma once

#include "platform/dialogs.h"
#include "platform/win32/host.h"

namespace platform::win32 {

class Dialogs : public platform::Dialogs {
  public:
    explicit Dialogs(Host& host);
    ~Dialogs() override;

    bool ShowMessage(const Message& message) override;

    // Opens where `owner` is.
    std::optional<std::string> PickFolder(const std::string& prompt, const Form& owner) override;

    std::string AskSaveName(const FileNameRequest& request) override;
    std::string AskOpenName(const FileNameRequest& request) override;

  private:
    Host& host_;
};

}  // namespace platform::win32
