// The main job on real folders.
#include <string>

#include <gtest/gtest.h>

#include "app/form_main.h"
#include "fakes/items.h"
#include "fakes/memory_registry.h"
#include "fakes/temp_folder.h"
#include "platform/headless/headless_host.h"

namespace syncing {
namespace {

TEST(RealFolders, ADoubleSyncMakesTwoTreesTheSame) {
    const platform::FileTime old = fakes::Time("2020-01-02 03:04:05.1234567 UTC");
    const platform::FileTime recent = fakes::Time("2021-01-02 03:04:05.7654321 UTC");
    const std::string large(3'000'000, 'x');
    fakes::TempFolder folder;
    // A folder with the whole path of its own root below it.
    std::string deep = "1/again" + folder.Path("1") + "/f";
    for (char& c : deep)
        if (c == '\\' || c == ':') c = c == ':' ? '_' : '/';
    folder.WriteFile(deep, "deep", old);
    folder.WriteFile("1/s/t/new1", large, old);
    folder.WriteFile("2/new2 \xC3\xA4", "", recent);
    folder.WriteFile("1/c1", "recent", recent);
    folder.WriteFile("2/c1", "old and longer", old);
    folder.WriteFile("1/c2", "old", old);
    folder.WriteFile("2/c2", "recent", recent);
    folder.WriteFile("1/same", "1", old);
    folder.WriteFile("2/same", "not copied", old);
    folder.MakeFolder("1/empty");

    fakes::MemoryRegistry registry;
    platform::headless::Host host;
    platform::headless::Dialogs dialogs;
    platform::headless::Shell shell;
    app::FormMain form({host, platform::SystemFiles(), registry, dialogs, shell});
    form.Load(folder.Path("1") + " , " + folder.Path("2"));
    form.Command3.Click();
    EXPECT_EQ(form.Table.NewChgCount(), 5);
    form.Command4.Click();
    ASSERT_EQ(dialogs.Messages.size(), 1u);
    EXPECT_EQ(dialogs.Messages[0].Text,
              "Synchronization  'New and Modified Files'  completed.      \r\n\r\n"
              "Succeed:   5  Files.");
    EXPECT_EQ(folder.Read("2" + deep.substr(1)), "deep");
    EXPECT_EQ(folder.Read("2/s/t/new1"), large);
    EXPECT_EQ(folder.Read("1/new2 \xC3\xA4"), "");
    EXPECT_EQ(folder.Read("2/c1"), "recent");
    EXPECT_EQ(folder.Read("1/c2"), "recent");
    EXPECT_EQ(folder.Read("2/same"), "not copied");
    EXPECT_FALSE(folder.Exists("2/empty"));

    form.Command3.Click();
    EXPECT_EQ(form.Table.NewChgCount(), 0);
    EXPECT_EQ(form.Table.SameCount(), 6);
    EXPECT_EQ(folder.Names("1").size(), folder.Names("2").size() + 1);  // "empty" alone
}

}  // namespace
}  // namespace syncing
