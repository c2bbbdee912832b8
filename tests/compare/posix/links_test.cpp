// Trees that only a real file system can hold: links, folders that may not be read.
#include <algorithm>
#include <string>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "fakes/main_window.h"
#include "fakes/posix/ordinary_user.h"

namespace compare {
namespace {

using fakes::Texts;

class RealTreesTest : public fakes::MainWindowTest {
  protected:
    RealTreesTest() {
        for (const char* name : {"1", "2"}) folder.MakeFolder(name);
        onDisk.Combo1.Edit(folder.Path("1"));
        onDisk.Combo2.Edit(folder.Path("2"));
    }
    void PutFile(const char* name) const { folder.WriteFile(name, "x", fakes::kOld); }
    // The rows, sorted: their order is the file system's chance.
    Texts Compared() {
        onDisk.Command3.Click();
        ItemList all = onDisk.Table.NewChgList;
        all.insert(all.end(), onDisk.Table.SameList.begin(), onDisk.Table.SameList.end());
        Texts rows = fakes::Rows(all);
        std::sort(rows.begin(), rows.end());
        return rows;
    }

    fakes::TempFolder folder;
    app::FormMain onDisk{{host, platform::SystemFiles(), registry, dialogs, shell}};
};

TEST_F(RealTreesTest, ALinkIsWhatItLeadsToAndNoneBackUpIsEntered) {
    for (const char* name : {"far/f", "far/g", "2/to file", "2/to folder/f", "2/against file",
                             "1/against link", "1/s/f", "1/t/g"})
        PutFile(name);
    const std::pair<const char*, const char*> links[] = {
        {"1/to file", "../far/f"},      {"1/to folder", "../far"},
        {"1/broken", "nowhere"},        {"1/broken both", "nowhere"},
        {"2/broken both", "nowhere"},   {"1/against file", "nowhere"},
        {"2/against link", "nowhere"},  {"1/itself", "itself"},
        {"1/s/parent", ".."},           {"1/s/self", "."},
        {"1/s/by the root", "../../1"}, {"1/s/to t", "../t"},
        {"1/t/to s", "../s"},
    };
    for (const auto& [name, target] : links)
        ASSERT_EQ(::symlink(target, folder.Path(name).c_str()), 0);
    EXPECT_EQ(Compared(),
              (Texts{"0 to file", "0 to folder/f", "11 against link", "11 broken", "11 broken both",
                     "11 itself", "11 s/f", "11 s/to t/g", "11 t/g", "11 t/to s/f",
                     "11 to folder/g", "12 against file", "12 broken both", "22 against file"}));
}

// What may be entered is looked into by the names of the other side.
TEST_F(RealTreesTest, AFolderThatMayNotBeRead) {
    for (const char* name : {"1/s/a", "2/s/a", "1/s/t/b", "2/s/t/b", "1/s/only", "2/z"})
        PutFile(name);
    ASSERT_EQ(::chmod(folder.Path().c_str(), 0755), 0);
    const Texts asIfMissing{"11 s/a", "11 s/only", "11 s/t/b", "12 z"};
    const std::pair<::mode_t, Texts> cases[] = {
        {0000, asIfMissing},
        {0111, {"0 s/a", "0 s/t/b", "11 s/only", "12 z"}},  // entered, not listed
        {0444, asIfMissing},                                // listed, not entered
    };
    for (const auto& [mode, rows] : cases) {
        SCOPED_TRACE(mode);
        ASSERT_EQ(::chmod(folder.Path("2/s").c_str(), mode), 0);
        EXPECT_TRUE(fakes::HoldsForOrdinaryUser([&, &rows = rows] {
            EXPECT_EQ(Compared(), rows);
            EXPECT_EQ(onDisk.Comparison().Troubles().UnreadableCount, 1);
        }));
    }
    ASSERT_EQ(::chmod(folder.Path("2/s").c_str(), 0755), 0);
}

}  // namespace
}  // namespace compare
