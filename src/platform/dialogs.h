// The system's own dialogs.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace platform {

class Form;

enum class MessageIcon { Critical, Exclamation, Information };
enum class MessageButtons { Ok, YesNo };

struct Message {
    std::string Text;
    MessageIcon Icon = MessageIcon::Information;
    MessageButtons Buttons = MessageButtons::Ok;
    std::string Title;
};

struct FileNameRequest {
    struct Filter {
        std::string Label;    // "Text Files (*.txt)"
        std::string Pattern;  // "*.txt"
    };
    std::string Title;
    std::vector<Filter> Filters;
    std::string ProposedName;
    std::string DefaultExtension;
};

class Dialogs {
  public:
    virtual ~Dialogs() = default;

    // Modal. True for OK and for Yes.
    virtual bool ShowMessage(const Message& message) = 0;

    // The chosen folder's path as the system gives it; nothing when the user cancels. `owner` is
    // the form that the dialog opens on.
    virtual std::optional<std::string> PickFolder(const std::string& prompt, const Form& owner) = 0;

    // The chosen path; empty when the user cancels. An existing file is not asked about.
    virtual std::string AskSaveName(const FileNameRequest& request) = 0;

    // The path of an existing file; empty when the user cancels.
    virtual std::string AskOpenName(const FileNameRequest& request) = 0;
};

}  // namespace platform
