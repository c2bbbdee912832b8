#include "app/profiles.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace app {
namespace {

using fakes::Texts;

// A slot's value from "folder 1|folder 2|extensions|flag".
std::string Slot(const std::string& texts) {
    std::string value;
    for (const char c : texts) value += c == '|' ? "==========" : std::string(1, c);
    return value;
}

std::string SlotKey(int slot) {
    return "SOFTWARE\\SystemInfoFolderCS1993\\P" + std::to_string(slot);
}

class ProfilesTest : public fakes::MainWindowTest {
  protected:
    // The slots from 0 on, and the boxes that show them.
    void Load(const Texts& values) {
        registry.Values.clear();
        for (std::size_t i = 0; i < values.size(); ++i) {
            registry.CreateKey(SlotKey(static_cast<int>(i)));
            registry.WriteDefault(SlotKey(static_cast<int>(i)), Slot(values[i]));
        }
        profiles.LoadProfiles();
    }
    void LoadPairs(int count) {
        Texts values;
        for (int i = 0; i < count; ++i)
            values.push_back("a" + std::to_string(i) + "|b" + std::to_string(i));
        Load(values);
    }
    // What a compare does with its pair.
    void Remember(const std::string& folder1, const std::string& folder2,
                  const std::string& extensions = "/txt", const std::string& flag = "-1") {
        profiles.AddPairToHistory(folder1, folder2);
        profiles.SaveProfile(folder1, folder2, extensions, flag);
    }
    std::string Value(int slot) const {
        const auto found = registry.Values.find(SlotKey(slot));
        return found == registry.Values.end() ? "no key" : found->second;
    }
    // What a pick brings: folders, filter.
    std::string Picked(int index) {
        form.Combo1.Pick(index);
        return form.Combo1.Text() + '|' + form.Combo2.Text() + '|' + form.Filter.FilterExtensions +
               '|' + FilterFlagText(form.Filter.FilterOnlyMode);
    }

    Profiles& profiles = form.History();
};

TEST_F(ProfilesTest, LoadingShowsThePairsUpToTheFirstEmptySlot) {
    const struct {
        Texts Values, Folders1, Folders2;
    } cases[] = {
        {{"/a|/b", "/a|/b||0", "/a|/b|/txt|-1"}, {"/a", "/a", "/a"}, {"/b", "/b", "/b"}},
        {{"  /a|/b  ", "  ", "/c|/d"}, {"/a"}, {"/b"}},
        {{"no separator", "/c|/d"}, {"no separator", "/c"}, {"", "/d"}},
        {{"/a=|/b==||0"}, {"/a="}, {"/b=="}},
        {{}, {}, {}},
    };
    for (const auto& c : cases) {
        Load(c.Values);
        EXPECT_EQ(form.Combo1.Entries(), c.Folders1);
        EXPECT_EQ(form.Combo2.Entries(), c.Folders2);
        EXPECT_EQ(form.Combo1.ListIndex(), -1);
    }
}

TEST_F(ProfilesTest, PickingRestoresThePairAndItsFilter) {
    Load({});
    profiles.PickFirstProfile();
    EXPECT_EQ(form.Combo1.Text(), "") << "there is none";
    Load({"/a|/b|/txt", "/c|/d|/txt/doc|-1", "/e|/f|/jpg|0", "/c|/d|/bmp|0"});
    EXPECT_EQ(Picked(3), "/c|/d|/bmp|0") << "a pair that stands there twice";
    EXPECT_EQ(Picked(1), "/c|/d|/txt/doc|-1");
    EXPECT_EQ(Picked(2), "/e|/f|/jpg|0");
    profiles.PickFirstProfile();
    EXPECT_EQ(form.Combo2.Text() + form.Filter.FilterExtensions, "/b");
    EXPECT_EQ(form.LabelFileFilter.Caption(), "Sync all type of file.");
}

TEST_F(ProfilesTest, APairIsRememberedOnceInSlotAndBox) {
    profiles.SaveProfile("/a", "/backup", "/txt", "-1");
    profiles.AddPairToHistory("/a", "/backup");
    EXPECT_EQ(Picked(0), "/a|/backup|/txt|-1");
    profiles.AddPairToHistory("/a", "/d");
    EXPECT_EQ(Value(1), Slot("/a|/d")) << "without a filter";
    Remember("/a", "/backup", "/jpg/bmp", "0");
    EXPECT_EQ(form.Combo1.Entries(), (Texts{"/a", "/a"}));
    EXPECT_EQ(form.Combo2.Entries(), (Texts{"/backup", "/d"}));
    EXPECT_EQ(Picked(0), "/a|/backup|/jpg/bmp|0");
    profiles.SaveProfile("/a", "/back", "", "0");
    EXPECT_EQ(Value(0), Slot("/a|/back||0")) << "a Folder 2 that goes on counts as the pair";
    EXPECT_EQ(Value(2), "no key");
}

TEST_F(ProfilesTest, FoldersOfManyFormsComeBackAndOthersAreRefused) {
    for (const std::string folder : {"/a==", "/\xff \n\t"}) {
        Load({});
        Remember(folder, folder + "2=", "", "0");
        Remember(folder, folder + "3=");
        const std::vector<StoredProfile> list = profiles.List();
        ASSERT_EQ(list.size(), 2u) << folder;
        EXPECT_EQ(list[1].Folder1, folder);
        EXPECT_EQ(list[0].Folder2 + list[0].FilterExtensions, folder + "2=");
        EXPECT_EQ(list[1].Folder2 + list[1].FilterExtensions, folder + "3=/txt");
        EXPECT_EQ(list[1].FilterOnlyMode, -1);
    }
    Load({});
    const std::pair<std::string, std::string> refused[] = {
        {"", "/b"}, {"/a", ""}, {Slot("/a|x"), "/b"}, {"/a", Slot("/b|")}, {"/a", "=b"}};
    for (const auto& [folder1, folder2] : refused) Remember(folder1, folder2);
    EXPECT_TRUE(registry.Values.empty());
    EXPECT_TRUE(form.Combo1.Entries().empty());
}

TEST_F(ProfilesTest, AHundredPairsAreShownAndTheOthersKept) {
    LoadPairs(102);
    EXPECT_EQ(form.Combo1.Entries().size(), 100u);
    EXPECT_EQ(form.Combo2.Entries().back(), "b99");
    Remember("/new", "/pair");
    EXPECT_EQ(form.Combo1.Entries().back(), "/new");
    for (const int slot : {100, 101})
        EXPECT_EQ(profiles.List().at(slot).Folder2, "b" + std::to_string(slot));
    EXPECT_EQ(Value(102), Slot("/new|/pair|/txt|-1"));
}

TEST_F(ProfilesTest, EntriesWithoutASlotLeaveNoGapAndHaveNoFilter) {
    Load({"/a|/b"});
    form.Combo1.AddEntry("/job");
    form.Combo2.AddEntry("/backup");
    Remember("/new", "/pair");
    EXPECT_EQ(profiles.List().size(), 2u);
    EXPECT_EQ(registry.Values.size(), 4u);  // SOFTWARE, the parent key and two slots
    EXPECT_EQ(Picked(1), "/job|/backup||0");
    EXPECT_EQ(Picked(2), "/new|/pair|/txt|-1");
}

TEST_F(ProfilesTest, ClearingAsksFirstAndKeepsSlotsFromAHundredOn) {
    LoadPairs(102);
    const auto before = registry.Values;
    dialogs.YesNoAnswer = false;
    EXPECT_FALSE(profiles.ClearProfiles());
    EXPECT_EQ(form.Combo1.Entries().size(), 100u);
    EXPECT_EQ(registry.Values, before);

    dialogs.YesNoAnswer = true;
    EXPECT_TRUE(profiles.ClearProfiles());
    EXPECT_EQ(dialogs.Messages.back().Text, "This operation will delete all prifiles, Continue?");
    EXPECT_TRUE(form.Combo1.Entries().empty() && form.Combo2.Entries().empty());
    EXPECT_EQ(Value(99), "no key");
    EXPECT_EQ(Value(101), Slot("a101|b101"));

    Load({"/a|/b|/txt|-1"});
    profiles.ClearProfiles();
    EXPECT_EQ(registry.Values.size(), 1u) << "SOFTWARE alone";
    profiles.AddPairToHistory("/a", "/b");
    EXPECT_EQ(Picked(0), "/a|/b|/txt|-1") << "the filters stay in memory";
}

TEST(FilterFlagOf, IsTheNumberAtTheStart) {
    const std::pair<const char*, int> cases[] = {{" -1x", -1}, {"12 34", 12},    {"", 0},
                                                 {"true", 0},  {"32767", 32767}, {"32768", 0}};
    for (const auto& [text, flag] : cases) EXPECT_EQ(FilterFlagOf(text), flag) << text;
}

}  // namespace
}  // namespace app
