// The history. What holds for slots and pairs of any content is required by its fuzz target.
#include "app/profiles.h"

#include <string>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace app {
namespace {

using fakes::Texts;

std::string SlotKey(std::size_t slot) {
    return "SOFTWARE\\SystemInfoFolderCS1993\\P" + std::to_string(slot);
}

class ProfilesTest : public fakes::MainWindowTest {
  protected:
    // The slots from 0 on, and the boxes that show them.
    void Load(const Texts& values) {
        for (std::size_t i = 0; i < values.size(); ++i) registry.Values[SlotKey(i)] = values[i];
        profiles.LoadProfiles();
    }
    // What a compare does with its pair.
    void Remember(const std::string& folder1, const std::string& folder2,
                  const std::string& extensions, const std::string& flag) {
        profiles.AddPairToHistory(folder1, folder2);
        profiles.SaveProfile(folder1, folder2, extensions, flag);
    }
    std::string Value(std::size_t slot) { return registry.ReadDefault(SlotKey(slot)); }
    // What a pick brings: folders, filter.
    std::string Picked(int index) {
        form.Combo1.Pick(index);
        return form.Combo1.Text() + '|' + form.Combo2.Text() + '|' + form.Filter.FilterExtensions +
               '|' + FilterFlagText(form.Filter.FilterOnlyMode);
    }

    Profiles& profiles = form.History();
};

TEST_F(ProfilesTest, PairsAreShownUpToTheFirstEmptySlotAndPickedWithTheirFilters) {
    profiles.PickFirstProfile();
    EXPECT_EQ(form.Combo1.ListIndex(), -1) << "there is none";
    Load({"  /a==========/b==========/txt", "/c==========/d==========/txt/doc==========-1  ",
          "/e==========/f==========/jpg========== 12x",
          "/c==========/d==========/bmp==========true", "no separator", "  ", "/g==========/h"});
    EXPECT_EQ(form.Combo1.Entries(), (Texts{"/a", "/c", "/e", "/c", "no separator"}));
    EXPECT_EQ(form.Combo2.Entries(), (Texts{"/b", "/d", "/f", "/d", ""}));
    EXPECT_EQ(Picked(3), "/c|/d|/bmp|0") << "a pair that stands there twice";
    EXPECT_EQ(Picked(1), "/c|/d|/txt/doc|-1");
    EXPECT_EQ(Picked(2), "/e|/f|/jpg|-1") << "any number but 0";
    profiles.PickFirstProfile();
    EXPECT_EQ(form.Combo2.Text() + form.Filter.FilterExtensions, "/b");
    EXPECT_EQ(form.LabelFileFilter.Caption(), "Sync all type of file.");
}

TEST_F(ProfilesTest, APairIsRememberedOnceInSlotAndBox) {
    profiles.SaveProfile("/a", "/backup", "/txt", "-1");
    profiles.AddPairToHistory("/a", "/backup");
    EXPECT_EQ(Picked(0), "/a|/backup|/txt|-1");
    profiles.AddPairToHistory("/a", "/d==");
    EXPECT_EQ(Value(1), "/a==========/d==") << "without a filter";
    Remember("/a", "/backup", "/jpg/bmp", "0");
    Remember("/a", "/d==", "", "0");
    profiles.LoadProfiles();
    EXPECT_EQ(form.Combo1.Entries(), Texts(2, "/a"));
    EXPECT_EQ(Picked(0), "/a|/backup|/jpg/bmp|0");
    EXPECT_EQ(Picked(1), "/a|/d==||0") << "a name that ends in what separates";
    form.Combo1.AddEntry("/job");
    form.Combo2.AddEntry("/backup");
    Remember("/new", "/pair", "/txt", "-1");
    EXPECT_EQ(profiles.List().size(), 3u) << "entries without a slot leave no gap";
    EXPECT_EQ(Picked(3), "/new|/pair|/txt|-1");
    EXPECT_EQ(Picked(2), "/job|/backup||0") << "one without a slot has no filter";

    profiles.SaveProfile("/a", "/back", "", "0");
    EXPECT_EQ(Value(0), "/a==========/back====================0")
        << "a Folder 2 that goes on counts as the pair";
    const auto before = registry.Values;
    for (const auto& [folder1, folder2] : {std::pair{"", "/b"}, {"/a", ""}, {"/a", "=b"}})
        Remember(folder1, folder2, "/txt", "-1");
    EXPECT_EQ(registry.Values, before) << "what a slot could not tell";
    EXPECT_EQ(form.Combo1.Entries().size(), 4u);
}

TEST_F(ProfilesTest, AHundredPairsAreShownAndClearedAfterAQuestionTheOthersKept) {
    Load(Texts(102, "/a==========/b==========/txt==========-1"));
    EXPECT_EQ(form.Combo1.Entries().size(), 100u);
    Remember("/new", "/pair", "", "0");
    EXPECT_EQ(form.Combo1.Entries().back() + form.Combo2.Entries().back(), "/new/pair");
    auto kept = registry.Values;
    dialogs.YesNoAnswer = false;
    EXPECT_FALSE(profiles.ClearProfiles());
    EXPECT_EQ(registry.Values, kept);
    EXPECT_EQ(form.Combo1.Entries().size(), 101u);
    dialogs.YesNoAnswer = true;
    EXPECT_TRUE(profiles.ClearProfiles());
    EXPECT_EQ(TakeMessages(), Texts(2, "This operation will delete all prifiles, Continue?"));
    EXPECT_TRUE(form.Combo1.Entries().empty() && form.Combo2.Entries().empty());
    for (std::size_t slot = 0; slot < 100; ++slot) kept.erase(SlotKey(slot));
    EXPECT_EQ(registry.Values, kept);
    EXPECT_EQ(Value(102), "/new==========/pair====================0");
}

}  // namespace
}  // namespace app
