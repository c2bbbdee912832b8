// Trees that only a real file system can hold: links, folders that may not be read.
#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "app/form_main.h"
#include "fakes/items.h"
#include "fakes/memory_registry.h"
#include "fakes/posix/ordinary_user.h"
#include "fakes/temp_folder.h"
#include "platform/headless/headless_host.h"

namespace compare {
namespace {

using Texts = std::vector<std::string>;

const platform::FileTime kTime = fakes::Time("2020-01-02 03:04:05 UTC");

class RealTreesTest : public testing::Test {
  protected:
    RealTreesTest() {
        for (const char* name : {"1", "2"}) folder.MakeFolder(name);
        form.Load("");
        form.Combo1.Edit(folder.Path("1"));
        form.Combo2.Edit(folder.Path("2"));
    }
    void Put(const char* name) { folder.WriteFile(name, "x", kTime); }
    void Link(const char* target, const char* name) const {
        ASSERT_EQ(::symlink(target, folder.Path(name).c_str()), 0);
    }
    // All rows of a comparison, sorted within each list by the file system's chance.
    Texts Compared() {
        form.Command3.Click();
        Texts rows;
        for (const ItemList* list :
             {&form.Table.NewList, &form.Table.ChgList, &form.Table.SameList})
            for (const std::string& row : fakes::Rows(*list)) rows.push_back(row);
        std::sort(rows.begin(), rows.end());
        return rows;
    }

    fakes::TempFolder folder;
    fakes::MemoryRegistry registry;
    platform::headless::Host host;
    platform::headless::Dialogs dialogs;
    platform::headless::Shell shell;
    app::FormMain form{{host, platform::SystemFiles(), registry, dialogs, shell}};
};

TEST_F(RealTreesTest, ALinkIsWhatItLeadsTo) {
    for (const char* name : {"far/f", "far/g", "2/to file", "2/to folder/f"}) Put(name);
    Link("../far/f", "1/to file");
    Link("../far", "1/to folder");
    EXPECT_EQ(Compared(), (Texts{"0 to file", "0 to folder/f", "11 to folder/g"}));
    EXPECT_EQ(form.Table.SameList[0].Size1(), "1");
}

TEST_F(RealTreesTest, ABrokenLinkIsAFileThatCannotBeGot) {
    for (const char* name : {"1/only", "1/both", "2/both", "1/against file", "2/against link"})
        Link("nowhere", name);
    for (const char* name : {"2/against file", "1/against link"}) Put(name);
    Link("itself", "1/itself");
    EXPECT_EQ(Compared(), (Texts{"11 against link", "11 both", "11 itself", "11 only",
                                 "12 against file", "12 both", "22 against file"}));
}

TEST_F(RealTreesTest, LinksThatLeadBackUpAreNotEntered) {
    for (const char* name : {"1/s/f", "1/t/g"}) Put(name);
    Link("..", "1/s/parent");
    Link(".", "1/s/self");
    Link("../../1", "1/s/by the root");
    Link("../t", "1/s/to t");
    Link("../s", "1/t/to s");
    EXPECT_EQ(Compared(), (Texts{"11 s/f", "11 s/to t/g", "11 t/g", "11 t/to s/f"}));
}

// What may be entered is looked into by the names of the other side.
TEST_F(RealTreesTest, AFolderThatMayNotBeRead) {
    for (const char* name : {"1/s/a", "2/s/a", "1/s/t/b", "2/s/t/b", "1/s/only", "2/z"}) Put(name);
    ASSERT_EQ(::chmod(folder.Path().c_str(), 0755), 0);
    const Texts asIfMissing{"11 s/a", "11 s/only", "11 s/t/b", "12 z"};
    const struct {
        ::mode_t Mode;
        Texts Rows;
    } cases[] = {
        {0000, asIfMissing},
        {0111, {"0 s/a", "0 s/t/b", "11 s/only", "12 z"}},  // entered, not listed
        {0444, asIfMissing},                                // listed, not entered
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Mode);
        ASSERT_EQ(::chmod(folder.Path("2/s").c_str(), c.Mode), 0);
        EXPECT_TRUE(fakes::HoldsForOrdinaryUser([&] {
            EXPECT_EQ(Compared(), c.Rows);
            EXPECT_EQ(form.Comparison().Troubles().UnreadableCount, 1);
        }));
    }
    ASSERT_EQ(::chmod(folder.Path("2/s").c_str(), 0755), 0);
}

}  // namespace
}  // namespace compare
