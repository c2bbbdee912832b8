// The history. What holds for slots and pairs of any content is required by its fuzz target.
#include "app/profiles.h"

#include <string>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace app {
namespace {

using fakes::Texts;

class ProfilesTest : public fakes::MainWindowTest {
  protected:
    // The slots from 0 on, and the boxes that show them.
    void Load(const Texts& values) {
        for (int slot = 0; const std::string& value : values)
            profiles.WriteProfileValue(value, slot++);
        profiles.LoadProfiles();
    }
    // What a compare does with its pair.
    void Remember(const std::string& folder1, const std::string& folder2,
                  const std::string& extensions, const std::string& flag) {
        profiles.AddPairToHistory(folder1, folder2);
        profiles.SaveProfile(folder1, folder2, extensions, flag);
    }
    // What a pick brings: folders, filter.
    std::string Picked(int index) {
        form.Combo1.Pick(index);
        return form.Combo1.Text() + '|' + form.Combo2.Text() + '|' + form.Filter.FilterExtensions +
               '|' + FilterFlagText(form.Filter.FilterOnlyMode);
    }

    Profiles& profiles = form.History();
};

TEST_F(ProfilesTest, PairsAreShownUpToTheFirstEmptySlotAndPickedWithTheirFilters) {
    Load({"  /a==========/b==========/txt", "/c==========/d==========/txt/doc==========-1  ",
          "/c==========/d==========/bmp========== 12x", "no separator", "  ", "/g==========/h"});
    EXPECT_EQ(form.Combo1.Entries(), (Texts{"/a", "/c", "/c", "no separator"}));
    EXPECT_EQ(form.Combo2.Entries(), (Texts{"/b", "/d", "/d", ""}));
    EXPECT_EQ(Picked(1), "/c|/d|/txt/doc|-1");
    EXPECT_EQ(Picked(2), "/c|/d|/bmp|-1") << "any number but 0";
    profiles.PickFirstProfile();
    EXPECT_EQ(form.Combo2.Text() + form.LabelFileFilter.Caption(), "/bSync all type of file.");
}

TEST_F(ProfilesTest, APairIsRememberedOnceInSlotAndBox) {
    Remember("/a", "/backup", "/txt", "-1");
    Remember("/a", "/d==", "/bmp", "0");
    Remember("/a", "/backup", "/jpg/bmp", "0");
    EXPECT_EQ(Picked(0), "/a|/backup|/jpg/bmp|0");
    EXPECT_EQ(form.Combo1.Entries(), Texts(2, "/a"));
    profiles.LoadProfiles();
    EXPECT_EQ(Picked(0), "/a|/backup|/jpg/bmp|0");
    EXPECT_EQ(Picked(1), "/a|/d==|/bmp|0") << "a name that ends in what separates";
    form.Combo1.AddEntry("/job");
    form.Combo2.AddEntry("/backup");
    Remember("/new", "/pair", "/txt", "-1");
    EXPECT_EQ(profiles.List().size(), 3u) << "entries without a slot leave no gap";
    EXPECT_EQ(Picked(3), "/new|/pair|/txt|-1");
    EXPECT_EQ(Picked(2), "/job|/backup||0") << "one without a slot has no filter";
    profiles.SaveProfile("/a", "/back", "", "0");  // counts as the pair whose Folder 2 goes on
    EXPECT_EQ(profiles.ReadProfileValue(0), "/a==========/back====================0");
    const auto before = registry.Values;
    for (const auto& [folder1, folder2] : {std::pair{"", "/b"}, {"/a", ""}, {"/a", "=b"}})
        Remember(folder1, folder2, "/txt", "-1");
    EXPECT_EQ(registry.Values, before) << "what a slot could not tell";
    EXPECT_EQ(form.Combo1.Entries().size(), 4u);
}

TEST_F(ProfilesTest, AHundredPairsAreShownAndClearedTheOthersKept) {
    Load(Texts(102, "/a==========/b"));
    EXPECT_EQ(form.Combo1.Entries().size(), 100u);
    Remember("/new", "/pair", "", "0");
    ClickMenu("mnuClearProfile");
    EXPECT_EQ(TakeMessages(), Texts{"This operation will delete all prifiles, Continue?"});
    EXPECT_EQ(form.Combo1.Entries().size() + form.Combo2.Entries().size(), 0u);
    for (int slot = 0; slot < 100; ++slot) EXPECT_EQ(profiles.ReadProfileValue(slot), "");
    EXPECT_EQ(profiles.ReadProfileValue(100), "/a==========/b");
    EXPECT_EQ(profiles.ReadProfileValue(102), "/new==========/pair====================0");
}

}  // namespace
}  // namespace app
