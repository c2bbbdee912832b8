#include "app/profiles.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/memory_registry.h"
#include "platform/headless/headless_host.h"

namespace app {
namespace {

using Entries = std::vector<std::string>;

// A slot's value from "folder 1|folder 2|extensions|flag".
std::string Slot(const std::string& texts) {
    std::string value;
    for (const char c : texts) value += c == '|' ? "==========" : std::string(1, c);
    return value;
}

std::string SlotKey(int slot) {
    return "SOFTWARE\\SystemInfoFolderCS1993\\P" + std::to_string(slot);
}

std::string NumberedPair(int slot) {
    return Slot("a" + std::to_string(slot) + "|b" + std::to_string(slot));
}

class ProfilesTest : public testing::Test {
  protected:
    // The slots from 0 on, and the boxes that show them.
    void Load(const Entries& values) {
        registry.Values.clear();
        for (std::size_t i = 0; i < values.size(); ++i) {
            registry.CreateKey(SlotKey(static_cast<int>(i)));
            registry.WriteDefault(SlotKey(static_cast<int>(i)), values[i]);
        }
        profiles.LoadProfiles();
    }
    void LoadPairs(int count) {
        Entries values;
        for (int slot = 0; slot < count; ++slot) values.push_back(NumberedPair(slot));
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
        combo1.Pick(index);
        profiles.PickProfile();
        return combo1.Text() + '|' + combo2.Text() + '|' + filter.FilterExtensions + '|' +
               FilterFlagText(filter.FilterOnlyMode);
    }

    fakes::MemoryRegistry registry;
    platform::ComboBox combo1;
    platform::ComboBox combo2;
    platform::headless::Dialogs dialogs;
    platform::headless::Host host;
    rules::FileFilter filter;
    int described = 0;
    Profiles profiles{
        {registry, combo1, combo2, dialogs, host, filter, [this] { ++described; }, "Varnel"}};
};

TEST_F(ProfilesTest, LoadingShowsThePairsUpToTheFirstEmptySlot) {
    const struct {
        Entries Values, Folders1, Folders2;
    } cases[] = {
        {{}, {}, {}},
        {{"/a|/b", "/a|/b||0", "/a|/b|/txt|-1"}, {"/a", "/a", "/a"}, {"/b", "/b", "/b"}},
        {{"/a|/b", "", "/c|/d"}, {"/a"}, {"/b"}},
        {{"  /a|/b  ", "  ", "/c|/d"}, {"/a"}, {"/b"}},
        {{"no separator", "/c|/d"}, {"no separator", "/c"}, {"", "/d"}},
        {{"/a=|/b==||0"}, {"/a="}, {"/b=="}},
    };
    for (const auto& c : cases) {
        Entries values;
        for (const std::string& value : c.Values) values.push_back(Slot(value));
        Load(values);
        EXPECT_EQ(combo1.Entries(), c.Folders1);
        EXPECT_EQ(combo2.Entries(), c.Folders2);
        EXPECT_EQ(combo1.ListIndex(), -1);
    }
}

TEST_F(ProfilesTest, PickingRestoresThePairAndItsFilter) {
    Load({});
    profiles.PickFirstProfile();
    EXPECT_EQ(combo1.ListIndex(), -1);
    EXPECT_EQ(described, 0);
    Load({Slot("/a|/b"), Slot("/c|/d|/txt/doc|-1"), Slot("/e|/f|/jpg|0")});
    EXPECT_EQ(Picked(1), "/c|/d|/txt/doc|-1");
    EXPECT_EQ(Picked(2), "/e|/f|/jpg|0");
    profiles.PickFirstProfile();
    EXPECT_EQ(combo2.Text(), "/b");
    EXPECT_EQ(filter.FilterExtensions, "");
    EXPECT_EQ(described, 3);

    filter = {"/txt", true};
    for (int i = 3; i <= 1000; ++i) {
        combo1.AddEntry("job");
        combo2.AddEntry("backup");
    }
    EXPECT_EQ(Picked(1000), "job|backup||0") << "beyond the slots";
}

TEST_F(ProfilesTest, APairIsRememberedShortAndByTheNextCompareInFull) {
    profiles.AddPairToHistory("/a", "/b");
    profiles.AddPairToHistory("/c", "/d");
    EXPECT_EQ(Value(0), Slot("/a|/b"));
    EXPECT_EQ(Value(1), Slot("/c|/d"));
    Remember("/a", "/b", "/txt", "-1");
    Remember("/a", "/b", "/jpg/bmp", "0");
    EXPECT_EQ(combo1.Entries(), (Entries{"/a", "/c"}));
    EXPECT_EQ(combo2.Entries(), (Entries{"/b", "/d"}));
    EXPECT_EQ(Value(0), Slot("/a|/b|/jpg/bmp|0"));
    EXPECT_EQ(Value(2), "no key");
    EXPECT_EQ(Picked(0), "/a|/b|/jpg/bmp|0");
}

TEST_F(ProfilesTest, FoldersOfManyFormsComeBack) {
    for (const std::string folder : {"/a", "/a=", "/a==", "/\xff \n\t"}) {
        Load({});
        Remember(folder, folder + "2=", "", "0");
        Remember(folder, folder + "3=", "/txt", "-1");
        const std::vector<StoredProfile> list = profiles.List();
        ASSERT_EQ(list.size(), 2u) << folder;
        for (const StoredProfile& profile : list) EXPECT_EQ(profile.Folder1, folder);
        EXPECT_EQ(list[0].Folder2 + list[0].FilterExtensions, folder + "2=");
        EXPECT_EQ(list[1].Folder2 + list[1].FilterExtensions, folder + "3=/txt");
        EXPECT_EQ(list[1].FilterOnlyMode, -1);
    }
}

TEST_F(ProfilesTest, APairThatNoSlotCanHoldIsNotRemembered) {
    const std::pair<std::string, std::string> pairs[] = {
        {"", "/b"}, {"/a", ""}, {Slot("/a|x"), "/b"}, {"/a", Slot("/b|")}, {"/a", "=b"}};
    for (const auto& [folder1, folder2] : pairs) Remember(folder1, folder2);
    EXPECT_TRUE(registry.Values.empty());
    EXPECT_TRUE(combo1.Entries().empty());
}

TEST_F(ProfilesTest, ASlotWhoseFolder2GoesOnCountsAsThePair) {
    Load({Slot("/a|/backup")});
    profiles.SaveProfile("/a", "/back", "", "0");
    EXPECT_EQ(Value(0), Slot("/a|/back||0"));
    EXPECT_EQ(Value(1), "no key");
}

TEST_F(ProfilesTest, AHundredPairsAreShownAndTheOthersKept) {
    LoadPairs(102);
    EXPECT_EQ(combo1.Entries().size(), 100u);
    EXPECT_EQ(combo2.Entries().back(), "b99");
    Remember("/new", "/pair");
    EXPECT_EQ(combo1.Entries().back(), "/new");
    const std::vector<StoredProfile> list = profiles.List();
    ASSERT_EQ(list.size(), 103u);
    EXPECT_EQ(list[101].Slot, 101);
    EXPECT_EQ(list[101].Folder2, "b101");
    for (const int slot : {100, 101}) EXPECT_EQ(Value(slot), NumberedPair(slot));
    EXPECT_EQ(Value(102), Slot("/new|/pair|/txt|-1"));
}

TEST_F(ProfilesTest, EntriesWithoutASlotLeaveNoGap) {
    Load({Slot("/a|/b")});
    for (int i = 0; i < 3; ++i) {
        combo1.AddEntry("/job" + std::to_string(i));
        combo2.AddEntry("/backup");
    }
    Remember("/new", "/pair");
    EXPECT_EQ(profiles.List().size(), 2u);
    EXPECT_EQ(registry.Values.size(), 4u);  // SOFTWARE, the parent key and two slots
}

TEST_F(ProfilesTest, APairBeyondTheLastSlotEndsQuietly) {
    LoadPairs(1000);
    for (int i = 0; i < 2; ++i) profiles.SaveProfile("/new", "/pair", "/txt", "-1");
    EXPECT_EQ(Value(1000), Slot("/new|/pair|/txt|-1"));
    EXPECT_EQ(profiles.List().size(), 1000u);
}

TEST_F(ProfilesTest, ClearingAsksFirstAndKeepsSlotsFromAHundredOn) {
    LoadPairs(102);
    const auto before = registry.Values;
    dialogs.YesNoAnswer = false;
    EXPECT_FALSE(profiles.ClearProfiles());
    EXPECT_EQ(combo1.Entries().size(), 100u);
    EXPECT_EQ(registry.Values, before);

    dialogs.YesNoAnswer = true;
    EXPECT_TRUE(profiles.ClearProfiles());
    EXPECT_TRUE(combo1.Entries().empty() && combo2.Entries().empty());
    EXPECT_TRUE(profiles.List().empty());
    EXPECT_EQ(Value(99), "no key");
    EXPECT_EQ(Value(101), NumberedPair(101));
    EXPECT_EQ(dialogs.Messages.back().Text, "This operation will delete all prifiles, Continue?");
}

TEST_F(ProfilesTest, ClearingKeepsTheFiltersInMemory) {
    Load({Slot("/a|/b|/txt|-1")});
    profiles.ClearProfiles();
    EXPECT_EQ(registry.Values.size(), 1u) << "SOFTWARE alone";
    profiles.AddPairToHistory("/c", "/d");
    EXPECT_EQ(Picked(0), "/c|/d|/txt|-1");
}

TEST_F(ProfilesTest, AfterAFailedCallThePairIsRememberedTheNextTime) {
    for (int call = 1; call <= 7; ++call) {
        Load({});
        registry.FailCall = call;
        Remember("/new", "/pair");
        registry.FailCall = 0;
        Remember("/new", "/pair");
        EXPECT_EQ(Value(0), Slot("/new|/pair|/txt|-1")) << call;
        EXPECT_EQ(profiles.List().size(), 1u) << call;
    }
    EXPECT_TRUE(dialogs.Messages.empty()) << "a loss is silent";
}

TEST(FilterFlagOf, IsTheNumberAtTheStart) {
    const std::pair<const char*, int> cases[] = {
        {"-1", -1},       {"0", 0},     {" -1 ", -1},  {"-1x", -1},
        {"12 34", 12},    {"", 0},      {"true", 0},   {" ", 0},
        {"32767", 32767}, {"32768", 0}, {"-32769", 0}, {"99999999999999999999", 0},
    };
    for (const auto& [text, flag] : cases) EXPECT_EQ(FilterFlagOf(text), flag) << text;
}

}  // namespace
}  // namespace app
