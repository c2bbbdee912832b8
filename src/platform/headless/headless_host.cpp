#include "platform/headless/headless_host.h"

#include <algorithm>

namespace platform::headless {

void Host::Show(Form& form) {
    if (!IsShown(form)) ShownForms.push_back(&form);
    if (form.OnActivate) form.OnActivate();
}

void Host::ShowModal(Form& form) {
    Show(form);
    if (OnModal) OnModal(form);
    Unload(form);
}

void Host::Unload(Form& form) {
    std::erase(ShownForms, &form);
}

bool Host::IsShown(const Form& form) const {
    return std::find(ShownForms.begin(), ShownForms.end(), &form) != ShownForms.end();
}

bool Dialogs::ShowMessage(const Message& message) {
    Messages.push_back(message);
    if (OnMessage) OnMessage(message);
    return message.Buttons == MessageButtons::Ok || YesNoAnswer;
}

std::optional<std::string> Dialogs::PickFolder(const std::string& prompt, const Form&) {
    Prompts.push_back(prompt);
    if (FolderAnswers.empty()) return std::nullopt;
    std::string answer = FolderAnswers.front();
    FolderAnswers.pop_front();
    return answer;
}

std::string Dialogs::AskSaveName(const FileNameRequest& request) {
    return NextFileName(request);
}

std::string Dialogs::AskOpenName(const FileNameRequest& request) {
    return NextFileName(request);
}

std::string Dialogs::NextFileName(const FileNameRequest& request) {
    Requests.push_back(request);
    if (FileNameAnswers.empty()) return {};
    std::string answer = FileNameAnswers.front();
    FileNameAnswers.pop_front();
    return answer;
}

}  // namespace platform::headless
