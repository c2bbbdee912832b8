// Trees that only a real file system can hold: links, pipes, folders that may not be read.
#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "app/form_main.h"
#include "fakes/items.h"
#include "fakes/memory_registry.h"
#include "fakes/temp_folder.h"
#include "platform/headless/headless_host.h"

namespace compare {
namespace {

using Texts = std::vector<std::string>;

const platform::FileTime kTime = fakes::Time("2020-01-02 03:04:05 UTC");

// Gives up the rights that a test runs with, where it runs with all of them.
class AsNobody {
  public:
    AsNobody() {
        if (::geteuid() == 0) gaveUp_ = ::seteuid(65534) == 0;
    }
    ~AsNobody() {
        if (gaveUp_ && ::seteuid(0) != 0) ADD_FAILURE() << "rights are lost";
    }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;

  private:
    bool gaveUp_ = false;
};

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
    Link("nowhere", "1/only");
    Link("nowhere", "1/both");
    Link("nowhere", "2/both");
    Link("nowhere", "1/against file");
    Put("2/against file");
    Put("1/against link");
    Link("itself", "1/itself");
    Link("nowhere", "2/against link");
    EXPECT_EQ(Compared(), (Texts{"11 against link", "11 both", "11 itself", "11 only",
                                 "12 against file", "12 both", "22 against file"}));
}

TEST_F(RealTreesTest, LinksThatLeadBackUpAreNotEntered) {
    Put("1/s/f");
    Link("..", "1/s/parent");
    Link(".", "1/s/self");
    Link("../../1", "1/s/by the root");
    EXPECT_EQ(Compared(), Texts{"11 s/f"});
}

TEST_F(RealTreesTest, TwoLinksToEachOthersFoldersEndSomewhere) {
    Put("1/a/f");
    Put("1/b/g");
    Link("../b", "1/a/to b");
    Link("../a", "1/b/to a");
    EXPECT_EQ(Compared(), (Texts{"11 a/f", "11 a/to b/g", "11 b/g", "11 b/to a/f"}));
}

TEST_F(RealTreesTest, APipeIsARowThatFails) {
    ASSERT_EQ(::mkfifo(folder.Path("1/pipe").c_str(), 0644), 0);
    Put("1/z");
    EXPECT_EQ(Compared(), (Texts{"11 pipe", "11 z"}));
    form.Command4.Click();
    EXPECT_EQ(fakes::Rows(form.Table.FailList), Texts{"31 pipe"});
    EXPECT_EQ(folder.Names("2"), Texts{"z"});
}

TEST_F(RealTreesTest, AFolderThatMayNotBeRead) {
    struct Case {
        ::mode_t Mode;
        Texts Rows;
    };
    for (const char* name : {"1/s/a", "2/s/a", "1/s/only", "2/z"}) Put(name);
    ASSERT_EQ(::chmod(folder.Path().c_str(), 0755), 0);
    const Case cases[] = {
        {0000, {"11 s/a", "11 s/only", "12 z"}},  // not to be entered: as if the files were missing
        {0111, {"0 s/a", "11 s/only", "12 z"}},   // entered, not listed
        {0444, {"11 s/a", "11 s/only", "12 z"}},  // listed, not entered
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Mode);
        ASSERT_EQ(::chmod(folder.Path("2/s").c_str(), c.Mode), 0);
        const AsNobody reduced;
        EXPECT_EQ(Compared(), c.Rows);
        EXPECT_EQ(form.Comparison().Troubles().UnreadableCount, c.Mode == 0444 ? 0 : 1);
    }
    ASSERT_EQ(::chmod(folder.Path("2/s").c_str(), 0755), 0);
}

}  // namespace
}  // namespace compare
