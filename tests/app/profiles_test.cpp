#include "app/profiles.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/memory_registry.h"
#include "platform/headless/headless_host.h"

namespace app {
namespace {

using Entries = std::vector<std::string>;

const std::string kKey = "SOFTWARE\\SystemInfoFolderCS1993";
const std::string kSeparator = "==========";

std::string SlotKey(int slot) {
    return kKey + "\\P" + std::to_string(slot);
}

class ProfilesTest : public testing::Test {
  protected:
    void Store(int slot, const std::string& value) {
        registry.CreateKey(SlotKey(slot));
        registry.WriteDefault(SlotKey(slot), value);
    }
    // Fills slots 0 to count - 1 with the pairs "a<slot>", "b<slot>".
    void StorePairs(int count) {
        for (int slot = 0; slot < count; ++slot)
            Store(slot, "a" + std::to_string(slot) + kSeparator + "b" + std::to_string(slot));
    }
    // What a compare does with its pair.
    void Remember(const std::string& folder1, const std::string& folder2,
                  const std::string& extensions = "", const std::string& flag = "0") {
        profiles.AddPairToHistory(folder1, folder2);
        profiles.SaveProfile(folder1, folder2, extensions, flag);
    }
    std::string Value(int slot) const {
        const auto found = registry.Values.find(SlotKey(slot));
        return found == registry.Values.end() ? "no key" : found->second;
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
    struct Case {
        Entries Values;
        Entries Folders1;
        Entries Folders2;
    };
    const std::string s = kSeparator;
    const Case cases[] = {
        {{}, {}, {}},
        {{"/a" + s + "/b"}, {"/a"}, {"/b"}},
        {{"/a" + s + "/b" + s + s + "0"}, {"/a"}, {"/b"}},
        {{"/a" + s + "/b" + s + "/txt" + s + "-1"}, {"/a"}, {"/b"}},
        {{"/a" + s + "/b", "", "/c" + s + "/d"}, {"/a"}, {"/b"}},
        {{"/a" + s + "/b", "  ", "/c" + s + "/d"}, {"/a"}, {"/b"}},
        {{"  /a" + s + "/b  "}, {"/a"}, {"/b"}},
        {{"no separator", "/c" + s + "/d"}, {"no separator", "/c"}, {"", "/d"}},
        {{"/a=" + s + "/b==" + s + s + "0"}, {"/a="}, {"/b=="}},
    };
    for (const Case& c : cases) {
        registry.Values.clear();
        for (std::size_t slot = 0; slot < c.Values.size(); ++slot)
            Store(static_cast<int>(slot), c.Values[slot]);
        profiles.LoadProfiles();
        EXPECT_EQ(combo1.Entries(), c.Folders1);
        EXPECT_EQ(combo2.Entries(), c.Folders2);
        EXPECT_EQ(combo1.ListIndex(), -1);
    }
}

TEST_F(ProfilesTest, LoadingStopsAtAHundredWhileTheListGoesOn) {
    StorePairs(103);
    profiles.LoadProfiles();
    EXPECT_EQ(combo1.Entries().size(), 100u);
    EXPECT_EQ(combo2.Entries().back(), "b99");
    const std::vector<StoredProfile> list = profiles.List();
    ASSERT_EQ(list.size(), 103u);
    EXPECT_EQ(list[102].Slot, 102);
    EXPECT_EQ(list[102].Folder1, "a102");
    EXPECT_EQ(list[102].Folder2, "b102");
}

TEST_F(ProfilesTest, PickingRestoresThePairAndItsFilter) {
    Store(0, "/a" + kSeparator + "/b");
    Store(1, "/c" + kSeparator + "/d" + kSeparator + "/txt/doc" + kSeparator + "-1");
    Store(2, "/e" + kSeparator + "/f" + kSeparator + "/jpg" + kSeparator + "0");
    profiles.LoadProfiles();
    struct Case {
        int Index;
        const char* Folder2;
        const char* Extensions;
        bool OnlyMode;
    };
    for (const Case& c : {Case{1, "/d", "/txt/doc", true}, Case{2, "/f", "/jpg", false},
                          Case{0, "/b", "", false}}) {
        combo1.Pick(c.Index);
        profiles.PickProfile();
        EXPECT_EQ(combo2.Text(), c.Folder2);
        EXPECT_EQ(filter.FilterExtensions, c.Extensions);
        EXPECT_EQ(filter.FilterOnlyMode, c.OnlyMode);
    }
    EXPECT_EQ(described, 3);
}

TEST_F(ProfilesTest, TheFirstPairIsPickedAtTheStart) {
    profiles.LoadProfiles();
    profiles.PickFirstProfile();
    EXPECT_EQ(combo1.ListIndex(), -1);
    EXPECT_EQ(described, 0);

    Store(0, "/a" + kSeparator + "/b" + kSeparator + "/txt" + kSeparator + "-1");
    profiles.LoadProfiles();
    profiles.PickFirstProfile();
    EXPECT_EQ(combo1.Text(), "/a");
    EXPECT_EQ(combo2.Text(), "/b");
    EXPECT_EQ(filter.FilterExtensions, "/txt");
    EXPECT_TRUE(filter.FilterOnlyMode);
}

TEST_F(ProfilesTest, AnEntryBeyondTheSlotsClearsTheFilter) {
    for (int i = 0; i <= 1000; ++i) {
        combo1.AddEntry("job");
        combo2.AddEntry("backup");
    }
    filter = {"/txt", true};
    combo1.Pick(1000);
    profiles.PickProfile();
    EXPECT_EQ(combo2.ListIndex(), 1000);
    EXPECT_EQ(filter.FilterExtensions, "");
}

TEST_F(ProfilesTest, ANewPairIsRememberedInShortForm) {
    profiles.AddPairToHistory("/a", "/b");
    profiles.AddPairToHistory("/c", "/d");
    EXPECT_EQ(combo1.Entries(), (Entries{"/a", "/c"}));
    EXPECT_EQ(combo2.Entries(), (Entries{"/b", "/d"}));
    EXPECT_EQ(Value(0), "/a" + kSeparator + "/b");
    EXPECT_EQ(Value(1), "/c" + kSeparator + "/d");
}

TEST_F(ProfilesTest, RememberingAPairAgainRewritesItsSlotInFullForm) {
    Store(0, "/a" + kSeparator + "/b");
    profiles.LoadProfiles();
    Remember("/a", "/b", "/txt", "-1");
    Remember("/a", "/b", "/jpg/bmp", "0");
    EXPECT_EQ(combo1.Entries(), Entries{"/a"});
    EXPECT_EQ(Value(0), "/a" + kSeparator + "/b" + kSeparator + "/jpg/bmp" + kSeparator + "0");
    EXPECT_EQ(Value(1), "no key");
    combo1.Pick(0);
    profiles.PickProfile();
    EXPECT_EQ(filter.FilterExtensions, "/jpg/bmp");
}

TEST_F(ProfilesTest, AFilterOfManyFormsComesBack) {
    for (const std::string folder : {"/a", "/a=", "/a==", "/\xff \n\t"}) {
        registry.Values.clear();
        combo1.ClearEntries();
        combo2.ClearEntries();
        Remember(folder, folder + "2=", "", "0");
        Remember(folder, folder + "3=", "/txt", "-1");
        const std::vector<StoredProfile> list = profiles.List();
        ASSERT_EQ(list.size(), 2u) << folder;
        EXPECT_EQ(list[0].Folder1, folder);
        EXPECT_EQ(list[0].Folder2, folder + "2=");
        EXPECT_EQ(list[0].FilterExtensions, "");
        EXPECT_EQ(list[1].Folder2, folder + "3=");
        EXPECT_EQ(list[1].FilterExtensions, "/txt");
        EXPECT_EQ(list[1].FilterOnlyMode, -1);
    }
}

TEST_F(ProfilesTest, APairThatNoSlotCanHoldIsNotRemembered) {
    const std::string s = kSeparator;
    const Entries folders[] = {
        {"", "/b"}, {"/a", ""}, {"/a" + s + "x", "/b"}, {"/a", "/b" + s}, {"/a", "=b"}};
    for (const Entries& pair : folders) Remember(pair[0], pair[1], "/txt", "-1");
    EXPECT_TRUE(registry.Values.empty());
    EXPECT_TRUE(combo1.Entries().empty());
}

TEST_F(ProfilesTest, ASlotWhoseFolder2GoesOnCountsAsThePair) {
    Store(0, "/a" + kSeparator + "/backup");
    profiles.SaveProfile("/a", "/back", "", "0");
    EXPECT_EQ(Value(0), "/a" + kSeparator + "/back" + kSeparator + kSeparator + "0");
    EXPECT_EQ(Value(1), "no key");
}

TEST_F(ProfilesTest, APairThatIsStoredButNotShownIsNotLost) {
    StorePairs(102);
    profiles.LoadProfiles();
    Remember("/new", "/pair");
    EXPECT_EQ(combo1.Entries().back(), "/new");
    for (const int slot : {100, 101})
        EXPECT_EQ(Value(slot),
                  "a" + std::to_string(slot) + kSeparator + "b" + std::to_string(slot));
    EXPECT_EQ(Value(102), "/new" + kSeparator + "/pair" + kSeparator + kSeparator + "0");
}

TEST_F(ProfilesTest, EntriesWithoutASlotLeaveNoGap) {
    Store(0, "/a" + kSeparator + "/b");
    profiles.LoadProfiles();
    for (int i = 0; i < 3; ++i) {
        combo1.AddEntry("/job" + std::to_string(i));
        combo2.AddEntry("/backup");
    }
    Remember("/new", "/pair");
    EXPECT_EQ(profiles.List().size(), 2u);
    EXPECT_EQ(registry.Values.size(), 4u);  // SOFTWARE, the parent key and two slots
}

TEST_F(ProfilesTest, APairBeyondTheLastSlotEndsQuietly) {
    StorePairs(1000);
    for (int i = 0; i < 2; ++i) profiles.SaveProfile("/new", "/pair", "/txt", "-1");
    EXPECT_EQ(Value(1000), "/new" + kSeparator + "/pair" + kSeparator + "/txt" + kSeparator + "-1");
    EXPECT_EQ(profiles.List().size(), 1000u);
}

TEST_F(ProfilesTest, ClearingAsksFirstAndKeepsSlotsFromAHundredOn) {
    StorePairs(102);
    profiles.LoadProfiles();
    dialogs.YesNoAnswer = false;
    EXPECT_FALSE(profiles.ClearProfiles());
    EXPECT_EQ(combo1.Entries().size(), 100u);
    EXPECT_EQ(registry.Deletions, 0);

    dialogs.YesNoAnswer = true;
    EXPECT_TRUE(profiles.ClearProfiles());
    EXPECT_TRUE(combo1.Entries().empty());
    EXPECT_TRUE(combo2.Entries().empty());
    EXPECT_TRUE(profiles.List().empty());
    EXPECT_EQ(Value(99), "no key");
    EXPECT_EQ(Value(101), "a101" + kSeparator + "b101");
    ASSERT_EQ(dialogs.Messages.size(), 2u);
    EXPECT_EQ(dialogs.Messages[1].Text, "This operation will delete all prifiles, Continue?");
    EXPECT_EQ(dialogs.Messages[1].Icon, platform::MessageIcon::Exclamation);
    EXPECT_EQ(dialogs.Messages[1].Buttons, platform::MessageButtons::YesNo);
}

TEST_F(ProfilesTest, ClearingKeepsTheFiltersInMemory) {
    Store(0, "/a" + kSeparator + "/b" + kSeparator + "/txt" + kSeparator + "-1");
    profiles.LoadProfiles();
    profiles.ClearProfiles();
    EXPECT_EQ(registry.Values.count(kKey), 0u);
    profiles.AddPairToHistory("/c", "/d");
    combo1.Pick(0);
    profiles.PickProfile();
    EXPECT_EQ(filter.FilterExtensions, "/txt");
}

TEST_F(ProfilesTest, WhatTheRegistryRefusesIsLostInSilence) {
    registry.ReadOnly = true;
    Remember("/a", "/b", "/txt", "-1");
    profiles.ClearProfiles();
    EXPECT_EQ(registry.Values.size(), 0u);
    EXPECT_EQ(dialogs.Messages.size(), 1u);
}

TEST_F(ProfilesTest, AfterAFailedCallThePairIsRememberedTheNextTime) {
    const std::string whole =
        "/new" + kSeparator + "/pair" + kSeparator + "/txt" + kSeparator + "-1";
    for (int call = 1; call <= 7; ++call) {
        registry.Values.clear();
        profiles.LoadProfiles();
        registry.FailCall = call;
        Remember("/new", "/pair", "/txt", "-1");
        registry.FailCall = 0;
        Remember("/new", "/pair", "/txt", "-1");
        EXPECT_EQ(Value(0), whole) << call;
        EXPECT_EQ(profiles.List().size(), 1u) << call;
    }
}

TEST(FilterFlagOf, IsTheNumberAtTheStart) {
    struct Case {
        const char* Text;
        std::int16_t Flag;
    };
    const Case cases[] = {{"-1", -1},
                          {"0", 0},
                          {"1", 1},
                          {" -1 ", -1},
                          {"-1x", -1},
                          {"12 34", 12},
                          {"", 0},
                          {" ", 0},
                          {"true", 0},
                          {"32767", 32767},
                          {"32768", 0},
                          {"-32769", 0},
                          {"99999999999999999999", 0}};
    for (const Case& c : cases) EXPECT_EQ(FilterFlagOf(c.Text), c.Flag) << c.Text;
    EXPECT_EQ(FilterFlagText(true), "-1");
    EXPECT_EQ(FilterFlagText(false), "0");
}

}  // namespace
}  // namespace app
