// The system's dialogs for a window that may be closed while one of its commands still runs: from
// then on no message appears any more.
#pragma once

#include <optional>
#include <string>

#include "platform/dialogs.h"

namespace app {

class DialogsUntilClosing : public platform::Dialogs {
  public:
    DialogsUntilClosing(platform::Dialogs& dialogs, const bool& closing)
        : dialogs_(dialogs), closing_(closing) {}

    bool ShowMessage(const platform::Message& message) override {
        return !closing_ && dialogs_.ShowMessage(message);
    }
    std::optional<std::string> PickFolder(const std::string& prompt,
                                          const platform::Form& owner) override {
        return dialogs_.PickFolder(prompt, owner);
    }
    std::string AskSaveName(const platform::FileNameRequest& request) override {
        return dialogs_.AskSaveName(request);
    }
    std::string AskOpenName(const platform::FileNameRequest& request) override {
        return dialogs_.AskOpenName(request);
    }

  private:
    platform::Dialogs& dialogs_;
    const bool& closing_;
};

}  // namespace app
