// The real main window without a screen, on the folders "1" and "2" of a file system in memory.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "app/form_main.h"
#include "fakes/fake_files.h"
#include "fakes/memory_registry.h"
#include "fakes/temp_folder.h"
#include "platform/headless/headless_host.h"

namespace fakes {

inline constexpr platform::FileTime kOld = At(1577934245);  // 2020-01-02 03:04:05 UTC
inline constexpr platform::FileTime kNew = At(1609556645);  // a year later

using Texts = std::vector<std::string>;

// "11 sub/a" for every row.
inline std::vector<std::string> Rows(const compare::ItemList& list) {
    std::vector<std::string> rows;
    for (const compare::CompareItem& item : list)
        rows.push_back(std::to_string(item.Code) + ' ' + FakeFiles::NameOf(item.RelativePath()));
    return rows;
}

// One window and what it stands on. A loop over the yields of a command makes a new one each time.
struct MainWindow {
    // The window is loaded and shown, the folders stand in its boxes. "1" and "2" exist.
    MainWindow() {
        files.AddFolder("1");
        files.AddFolder("2");
        form.Load("");
        host.Show(form.Window);
        form.Combo1.Edit(FakeFiles::Path("1"));
        form.Combo2.Edit(FakeFiles::Path("2"));
    }

    // A file "1/sub/a". By default its time is kOld and its size 1.
    void Put(const std::string& name, platform::FileTime time = kOld, std::int64_t size = 1) {
        files.AddFile(name, {time, size});
    }
    // The same file in both folders.
    void PutBoth(const std::string& name) {
        Put("1/" + name);
        Put("2/" + name);
    }
    void ClickMenu(std::string_view name) const { form.Window.FindMenu(name)->OnClick(); }

    // Calls `act` at the n-th yield from now, counted from 1.
    void AtYield(long long n, const std::function<void()>& act) {
        host.Yields = 0;
        host.OnYield = [n, act](long long yield) {
            if (yield == n) act();
        };
    }

    // The texts of the messages shown since the last call.
    Texts TakeMessages() {
        Texts texts;
        for (const platform::Message& message : std::exchange(dialogs.Messages, {}))
            texts.push_back(message.Text);
        return texts;
    }

    // What can be seen of the window: of every control whether it is shown, its text and colours;
    // all messages, opened folders, started programs, the history.
    Texts Everything() const {
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

    FakeFiles files;
    MemoryRegistry registry;
    platform::headless::Host host;
    platform::headless::Dialogs dialogs;
    platform::headless::Shell shell;
    app::FormMain form{{host, files, registry, dialogs, shell}};
};

class MainWindowTest : public testing::Test, protected MainWindow {};

}  // namespace fakes
