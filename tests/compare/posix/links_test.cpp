// Links, which only a real file system can hold.
#include <algorithm>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace compare {
namespace {

using LinksTest = fakes::MainWindowTest;

TEST_F(LinksTest, ALinkIsWhatItLeadsToAndNoneBackUpIsEntered) {
    const fakes::TempFolder folder;
    for (const char* name : {"far/f", "2/file", "2/folder/f", "2/link or file", "1/s/f", "1/t/g"})
        folder.WriteFile(name, "x", fakes::kOld);
    const std::pair<const char*, const char*> links[] = {
        {"1/file", "../far/f"},
        {"1/folder", "../far"},
        {"1/broken", "nowhere"},
        {"1/broken both", "nowhere"},
        {"2/broken both", "nowhere"},
        {"1/link or file", "nowhere"},
        {"1/s/up", ".."},
        {"1/s/root", "../../1"},
        {"1/s/to t", "../t"},
        {"1/t/to s", "../s"},
    };
    for (const auto& [name, target] : links)
        std::filesystem::create_symlink(target, folder.Path(name));
    app::FormMain onDisk{{host, platform::SystemFiles(), registry, dialogs, shell}};
    onDisk.Combo1.Edit(folder.Path("1"));
    onDisk.Combo2.Edit(folder.Path("2"));
    onDisk.Command3.Click();
    fakes::Texts rows = fakes::Rows(onDisk.Table.NewChgList);
    for (const std::string& row : fakes::Rows(onDisk.Table.SameList)) rows.push_back(row);
    std::sort(rows.begin(), rows.end());  // their order is the file system's chance
    EXPECT_EQ(rows, (fakes::Texts{"0 file", "0 folder/f", "11 broken", "11 broken both", "11 s/f",
                                  "11 s/to t/g", "11 t/g", "11 t/to s/f", "12 broken both",
                                  "12 link or file", "22 link or file"}));
}

}  // namespace
}  // namespace compare
