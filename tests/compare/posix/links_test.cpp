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
    void PutFiles(const Texts& names) {
        for (const std::string& name : names) folder.WriteFile(name, "x", fakes::kOld);
        onDisk.Combo1.Edit(folder.Path("1"));
        onDisk.Combo2.Edit(folder.Path("2"));
    }
    // The rows, sorted: their order is the file system's chance.
    Texts Compared() {
        onDisk.Command3.Click();
        Texts rows = fakes::Rows(onDisk.Table.NewChgList);
        for (const std::string& row : fakes::Rows(onDisk.Table.SameList)) rows.push_back(row);
        std::sort(rows.begin(), rows.end());
        return rows;
    }

    fakes::TempFolder folder;
    app::FormMain onDisk{{host, platform::SystemFiles(), registry, dialogs, shell}};
};

TEST_F(RealTreesTest, ALinkIsWhatItLeadsToAndNoneBackUpIsEntered) {
    PutFiles(
        {"far/f", "2/file", "2/folder/f", "2/link or file", "1/file or link", "1/s/f", "1/t/g"});
    const std::pair<const char*, const char*> links[] = {
        {"1/file", "../far/f"},        {"1/folder", "../far"},
        {"1/broken", "nowhere"},       {"1/broken both", "nowhere"},
        {"2/broken both", "nowhere"},  {"1/link or file", "nowhere"},
        {"2/file or link", "nowhere"}, {"1/s/up", ".."},
        {"1/s/root", "../../1"},       {"1/s/to t", "../t"},
        {"1/t/to s", "../s"},          {"1/itself", "itself"},
    };
    for (const auto& [name, target] : links)
        ASSERT_EQ(::symlink(target, folder.Path(name).c_str()), 0);
    EXPECT_EQ(Compared(),
              (Texts{"0 file", "0 folder/f", "11 broken", "11 broken both", "11 file or link",
                     "11 itself", "11 s/f", "11 s/to t/g", "11 t/g", "11 t/to s/f",
                     "12 broken both", "12 link or file", "22 link or file"}));
}

// What may be entered is looked into by the names of the other side.
TEST_F(RealTreesTest, AFolderThatMayNotBeRead) {
    PutFiles({"1/s/a", "2/s/a", "1/s/t/b", "2/s/t/b", "1/s/only", "2/z"});
    ASSERT_EQ(::chmod(folder.Path().c_str(), 0755), 0);
    const Texts asIfMissing{"11 s/a", "11 s/only", "11 s/t/b", "12 z"};
    const std::pair<::mode_t, Texts> cases[] = {
        {0000, asIfMissing},
        {0111, {"0 s/a", "0 s/t/b", "11 s/only", "12 z"}},  // entered, not listed
        {0444, asIfMissing},                                // listed, not entered
    };
    for (const auto& [mode, rows] : cases) {
        ASSERT_EQ(::chmod(folder.Path("2/s").c_str(), mode), 0);
        EXPECT_TRUE(fakes::HoldsForOrdinaryUser([&, &rows = rows] {
            EXPECT_EQ(Compared(), rows);
            EXPECT_EQ(onDisk.Comparison().Troubles().UnreadableCount, 1);
        })) << mode;
    }
}

}  // namespace
}  // namespace compare
