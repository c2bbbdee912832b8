#include "app/profiles.h"

#include <string>

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

std::string SlotKey(std::size_t slot) {
    return "SOFTWARE\\SystemInfoFolderCS1993\\P" + std::to_string(slot);
}

class ProfilesTest : public fakes::MainWindowTest {
  protected:
    // The slots from 0 on, and the boxes that show them.
    void Load(const Texts& values) {
        registry.Values.clear();
        for (std::size_t i = 0; i < values.size(); ++i)
            registry.Values[SlotKey(i)] = Slot(values[i]);
        profiles.LoadProfiles();
    }
    // What a compare does with its pair.
    void Remember(const std::string& folder1, const std::string& folder2,
                  const std::string& extensions = "/txt", const std::string& flag = "-1") {
        profiles.AddPairToHistory(folder1, folder2);
        profiles.SaveProfile(folder1, folder2, extensions, flag);
    }
    // What the boxes list.
    Texts Pairs() const {
        Texts pairs;
        for (std::size_t i = 0; i < form.Combo1.Entries().size(); ++i)
            pairs.push_back(form.Combo1.Entries()[i] + '|' + form.Combo2.Entries().at(i));
        return pairs;
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

TEST_F(ProfilesTest, LoadingShowsThePairsUpToTheFirstEmptySlot) {
    Load({"/a|/b", "/a|/b||0", "/a|/b|/txt|-1"});
    EXPECT_EQ(Pairs(), Texts(3, "/a|/b"));
    Load({"  /a|/b  ", "no separator", "/c|/d", "  ", "/e|/f"});
    EXPECT_EQ(Pairs(), (Texts{"/a|/b", "no separator|", "/c|/d"}));
}

TEST_F(ProfilesTest, PickingRestoresThePairAndItsFilter) {
    profiles.PickFirstProfile();
    EXPECT_EQ(form.Combo1.ListIndex(), -1) << "there is none";
    Load({"/a|/b|/txt", "/c|/d|/txt/doc|-1", "/e|/f|/jpg| 12x", "/c|/d|/bmp|true"});
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
    profiles.AddPairToHistory("/a", "/d");
    EXPECT_EQ(Value(1), Slot("/a|/d")) << "without a filter";
    Remember("/a", "/backup", "/jpg/bmp", "0");
    EXPECT_EQ(Pairs(), (Texts{"/a|/backup", "/a|/d"}));
    EXPECT_EQ(Picked(0), "/a|/backup|/jpg/bmp|0");
    profiles.SaveProfile("/a", "/back", "", "0");
    EXPECT_EQ(Value(0), Slot("/a|/back||0")) << "a Folder 2 that goes on counts as the pair";
    EXPECT_EQ(Value(2), "");
}

TEST_F(ProfilesTest, FoldersOfManyFormsComeBackAndOthersAreRefused) {
    for (const std::string folder : {"/a==", "/\xff \n\t"}) {
        Load({});
        Remember(folder, folder + "2=", "", "0");
        Remember(folder, folder + "3=");
        profiles.LoadProfiles();
        EXPECT_EQ(Picked(0), folder + '|' + folder + "2=||0");
        EXPECT_EQ(Picked(1), folder + '|' + folder + "3=|/txt|-1");
    }
    Load({});
    const std::pair<std::string, std::string> refused[] = {
        {"", "/b"}, {"/a", ""}, {Slot("/a|x"), "/b"}, {"/a", Slot("/b|")}, {"/a", "=b"}};
    for (const auto& [folder1, folder2] : refused) Remember(folder1, folder2);
    EXPECT_TRUE(registry.Values.empty());
    EXPECT_EQ(Pairs(), Texts());
}

TEST_F(ProfilesTest, EntriesWithoutASlotLeaveNoGapAndHaveNoFilter) {
    Load({"/a|/b"});
    form.Combo1.AddEntry("/job");
    form.Combo2.AddEntry("/backup");
    Remember("/new", "/pair");
    EXPECT_EQ(profiles.List().size(), 2u);
    EXPECT_EQ(Picked(1), "/job|/backup||0");
    EXPECT_EQ(Picked(2), "/new|/pair|/txt|-1");
}

TEST_F(ProfilesTest, AHundredPairsAreShownAndClearedAfterAQuestionTheOthersKept) {
    Texts pairs;
    for (int i = 0; i < 102; ++i) pairs.push_back("a" + std::to_string(i) + "|b|/txt|-1");
    Load(pairs);
    EXPECT_EQ(Pairs().size(), 100u);
    Remember("/new", "/pair", "", "0");
    EXPECT_EQ(Pairs().back(), "/new|/pair");
    const auto before = registry.Values;
    dialogs.YesNoAnswer = false;
    EXPECT_FALSE(profiles.ClearProfiles());
    EXPECT_EQ(Pairs().size(), 101u);
    EXPECT_EQ(registry.Values, before);
    dialogs.YesNoAnswer = true;
    EXPECT_TRUE(profiles.ClearProfiles());
    EXPECT_EQ(TakeMessages(), Texts(2, "This operation will delete all prifiles, Continue?"));
    EXPECT_TRUE(form.Combo1.Entries().empty() && form.Combo2.Entries().empty());
    EXPECT_EQ(Value(99), "");
    EXPECT_EQ(Value(100), Slot(pairs[100]));
    EXPECT_EQ(Value(101), Slot(pairs[101]));
    EXPECT_EQ(Value(102), Slot("/new|/pair||0"));

    Load({"/a|/b|/txt|-1"});
    registry.CreateKey(SlotKey(0));
    profiles.ClearProfiles();
    EXPECT_EQ(registry.Values.size(), 1u) << "SOFTWARE alone";
    form.Combo1.AddEntry("/c");
    form.Combo2.AddEntry("/d");
    EXPECT_EQ(Picked(0), "/c|/d|/txt|-1") << "the filters stay in memory";
}

}  // namespace
}  // namespace app
