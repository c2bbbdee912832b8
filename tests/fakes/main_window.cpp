#include "fakes/main_window.h"

#include <utility>

namespace fakes {

MainWindow::MainWindow() {
    files.AddFolder("1");
    files.AddFolder("2");
    form.Load("");
    host.Show(form.Window);
    form.Combo1.Edit(FakeFiles::Path("1"));
    form.Combo2.Edit(FakeFiles::Path("2"));
}

void MainWindow::ClickMenu(std::string_view name) const {
    form.Window.FindMenu(name)->OnClick();
}

void MainWindow::AtYield(long long n, std::function<void()> act) {
    host.Yields = 0;
    host.OnYield = [n, act = std::move(act)](long long yield) {
        if (yield == n) act();
    };
}

Texts MainWindow::TakeMessages() {
    Texts texts;
    for (; messagesTaken_ < dialogs.Messages.size(); ++messagesTaken_)
        texts.push_back(dialogs.Messages[messagesTaken_].Text);
    return texts;
}

Texts MainWindow::Everything() const {
    Texts all;
    for (const platform::Control* control : form.Window.Controls)
        all.push_back(control->Name() + ": " + control->ShownText() +
                      (control->Shown() ? " shown " : " hidden ") +
                      std::to_string(control->BackColor()) + ' ' +
                      std::to_string(control->ForeColor()));
    for (const platform::Message& message : dialogs.Messages) all.push_back(message.Text);
    for (const auto* texts : {&dialogs.Prompts, &shell.OpenedFolders, &shell.StartedPrograms})
        all.insert(all.end(), texts->begin(), texts->end());
    for (const auto& [key, value] : registry.Values) all.push_back(key + " = " + value);
    for (const platform::Form* shown : host.ShownForms) all.push_back(shown->Name);
    return all;
}

Texts MainWindow::Column(const grid::ResultsGrid::Cells& cells) {
    Texts texts;
    for (const platform::Label& cell : cells) texts.push_back(cell.Caption());
    while (!texts.empty() && texts.back().empty()) texts.pop_back();
    return texts;
}

}  // namespace fakes
