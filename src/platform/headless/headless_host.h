// A form host, dialogs and a shell without a screen: they remember what would have been shown and
// answer from what they were told. The command line program and the tests run on them.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/dialogs.h"
#include "platform/forms.h"
#include "platform/shell.h"

namespace platform::headless {

class Host : public FormHost {
  public:
    // Called at every yield, numbered from 1.
    std::function<void(long long)> OnYield;
    // Called by ShowModal in the user's place; the form is unloaded when it returns.
    std::function<void(Form&)> OnModal;

    long long Yields = 0;
    std::vector<const Form*> ShownForms;

    void DoEvents() override {
        ++Yields;
        if (OnYield) OnYield(Yields);
    }
    void Show(Form& form) override;
    void ShowModal(Form& form) override;
    void Unload(Form& form) override;
    int ScreenWidth() const override { return 1920 * kTwipsPerPixel; }
    int ScreenHeight() const override { return 1080 * kTwipsPerPixel; }

    bool IsShown(const Form& form) const;
};

class Dialogs : public platform::Dialogs {
  public:
    std::vector<Message> Messages;  // all that were shown, in order
    std::function<void(const Message&)> OnMessage;
    bool YesNoAnswer = true;
    std::deque<std::string> FolderAnswers;    // of PickFolder; none left: cancelled
    std::deque<std::string> FileNameAnswers;  // of both file dialogs; none left: cancelled
    std::vector<FileNameRequest> Requests;
    std::vector<std::string> Prompts;

    bool ShowMessage(const Message& message) override;
    std::optional<std::string> PickFolder(const std::string& prompt, const Form& owner) override;
    std::string AskSaveName(const FileNameRequest& request) override;
    std::string AskOpenName(const FileNameRequest& request) override;

  private:
    std::string NextFileName(const FileNameRequest& request);
};

class Shell : public platform::Shell {
  public:
    std::vector<std::string> OpenedFolders;
    std::vector<std::string> StartedPrograms;
    std::string Documents;
    std::string Program;

    void OpenFolder(const std::string& path) override { OpenedFolders.push_back(path); }
    void StartProgram(const std::string& commandLine) override {
        StartedPrograms.push_back(commandLine);
    }
    std::string DocumentsFolder() override { return Documents; }
    std::string ProgramFolder() override { return Program; }
};

}  // namespace platform::headless
