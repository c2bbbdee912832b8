// The real main window without a screen, on the folders "1" and "2" of a file system in memory.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "app/form_main.h"
#include "fakes/fake_files.h"
#include "fakes/items.h"
#include "fakes/memory_registry.h"
#include "fakes/temp_folder.h"
#include "platform/headless/headless_host.h"

namespace fakes {

inline constexpr platform::FileTime kOld = At(1577934245);  // 2020-01-02 03:04:05 UTC
inline constexpr platform::FileTime kNew = At(1609556645);  // a year later

using Texts = std::vector<std::string>;

// One window and what it stands on. A loop over the yields of a command makes a new one each time.
struct MainWindow {
    // The window is loaded and shown, the folders stand in its boxes. "1" and "2" exist.
    MainWindow();
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    // A file "1/sub/a". By default its time is kOld and its size 1.
    void Put(std::string_view name, platform::FileTime time = kOld, std::int64_t size = 1) {
        files.AddFile(name, time, size);
    }
    // The same file in both folders.
    void PutBoth(const std::string& name) {
        Put("1/" + name);
        Put("2/" + name);
    }
    void ClickMenu(std::string_view name) const;

    // Calls `act` at the n-th yield from now, counted from 1.
    void AtYield(long long n, std::function<void()> act);

    // The texts of the messages shown since the last call.
    Texts TakeMessages();

    // What can be seen of the window: of every control whether it is shown, its text and colours;
    // all messages, opened folders, started programs, the history.
    Texts Everything() const;

    // What a column of the grid shows, up to its last text.
    static Texts Column(const grid::ResultsGrid::Cells& cells);

    FakeFiles files;
    MemoryRegistry registry;
    platform::headless::Host host;
    platform::headless::Dialogs dialogs;
    platform::headless::Shell shell;
    app::FormMain form{{host, files, registry, dialogs, shell}};

  private:
    std::size_t messagesTaken_ = 0;
};

class MainWindowTest : public testing::Test, protected MainWindow {};

}  // namespace fakes
