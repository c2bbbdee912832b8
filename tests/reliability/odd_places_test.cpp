// Trees in which a path is not what it seems: something else where files should come, links and
// second names, roots inside each other, hostile names, loops and depth; a history that is full and
// out of reach.
#include <fstream>

#include "reliability/pair_test.h"

namespace reliability {
namespace {

namespace fs = cli::fs;

using OddPlaces = cli::CliTest;

TEST_F(OddPlaces, ALinkIsWhatItLeadsToAndNoneBackUpIsEntered) {
    for (const char* name :
         {"far/f", "two/file", "two/folder/f", "two/link or file", "one/s/f", "one/t/g"})
        File(name, "");
    const std::pair<const char*, const char*> links[] = {
        {"one/file", "../far/f"},    {"one/folder", "../far"},        {"one/broken", "nowhere"},
        {"two/broken", "nowhere"},   {"one/link or file", "nowhere"}, {"one/s/up", ".."},
        {"one/s/root", "../../one"}, {"one/s/to t", "../t"},          {"one/t/to s", "../s"},
    };
    for (const auto& [name, to] : links) fs::create_symlink(to, name);
    for (const std::string view : {"newchg", "same"}) Cli("compare one two >>rows --view " + view);
    EXPECT_EQ(Shell("LC_ALL=C sort rows").Output,
              "---/---/---   file\n---/---/---   folder/f\n"
              "<-- Copy      broken\n<-- Copy      link or file\n<-- Replace   link or file\n"
              "Copy -->      broken\nCopy -->      s/f\nCopy -->      s/to t/g\n"
              "Copy -->      t/g\nCopy -->      t/to s/f\n");
}

// A link to a folder is that folder: a row below it names what is reached through it.
TEST_F(OddPlaces, AFileComesIntoItsOwnPlaceAloneAndWhatElseIsInItsWayStays) {
    const std::pair<std::string, std::string> links[] = {
        {"link", "file"}, {"link to folder", "folder"}, {"link to none", "none"}, {"way", ""}};
    for (const auto& [name, to] : links) fs::create_symlink("../outside/" + to, "two/" + name);
    for (const std::string name :
         {"folder", "link", "link to folder", "link to none", "way/both", "way/new"})
        File("one/" + name, "new", kNoon + kHour);
    for (const char* name :
         {"two/folder/inside", "outside/both", "outside/file", "outside/folder/inside"})
        File(name, "old");
    fs::create_hard_link("outside/both", "other name of both");
    std::ifstream held("outside/both");
    auto expected = Files(".");
    expected["outside/both"] = expected["outside/new"] = "new";
    const cli::Ended run = Cli("sync one two --mode=left --no-history");
    EXPECT_EQ(run.Status, 1);
    EXPECT_TRUE(run.Error.ends_with("Succeed:   2  Files.\nFail:   4  Files.\n")) << run.Error;
    EXPECT_EQ(Files("."), expected);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(held), {}), "old");
}

TEST_F(OddPlaces, HostileNamesReachNothingOutside) {
    for (const std::string name :
         {"..\\..\\outside", "C:\\outside", "...", "$(touch outside)", "~", "-rf",
          "..\xc0\xaf..\xc0\xaf", ".varnel~", "\x1b]0;t\x07\r\nall is well\xe2\x80\xae"}) {
        File("one/" + name, "1");
        File("two/" + name + "+/" + name, "2");
    }
    EXPECT_EQ(Cli("sync one two").Status, 0);
    EXPECT_EQ(Files("one"), Files("two"));
    EXPECT_EQ(Files(".").size(), 2 * 18u + 1) << "and the history";
}

// Each sync has a finite list: it was made before the first copy. A file's content is the last
// letter of its name.
TEST_F(OddPlaces, RootsInEachOtherOrTheSameEndAndNoFileIsCopiedOntoItself) {
    fs::create_symlink("one", "link");
    for (const std::string roots :
         {"one one/in", "one/in one", "one link", "two/../one one/.", "one two"}) {
        SCOPED_TRACE(roots);
        const bool grows = roots.find("/in") != roots.npos;
        fs::remove_all("one");
        for (const std::string name : {"a", "in/b", "in/sub/c"}) File("one/" + name, {name.back()});
        fs::remove("two/a");
        fs::create_hard_link("one/a", "two/a");
        for (int round = 0; round < 2; ++round) {
            EXPECT_EQ(Cli("sync " + roots).Status, 0);
            Cli("sync --view=same --direction a=right " + roots);  // turned by hand
        }
        const auto files = Files("one");
        EXPECT_LE(files.size(), grows ? 3u + 3 * (3 + 3 * 3) : 3u);
        for (const auto& [name, content] : files) EXPECT_EQ(content, name.substr(name.size() - 1));
        EXPECT_TRUE(grows || fs::equivalent("one/a", "two/a"));
    }
}

// The pair that is compared meets what cannot be read on its way to a free slot.
TEST_F(OddPlaces, AThousandPairsStayInTheHistoryThoughOneCannotBeRead) {
    for (int slot = 0; slot < 1000; ++slot)
        SetSlot(slot, "/a" + std::to_string(slot) + "==========/b====================0");
    auto pairs = Files(".config");
    const fs::path file = SlotFile(1);
    for (const fs::path& locked : {file, file.parent_path(), fs::path(".config")}) {
        for (const int mode : {0, 0555, 0777}) {
            fs::permissions(locked, fs::perms(mode));
            EXPECT_EQ(Shell("exec $unprivileged varnel-cli compare one two").Status, 0) << locked;
        }
        EXPECT_TRUE(std::ranges::includes(Files(".config"), pairs)) << locked;
    }
    fs::remove(file);
    MakeFolder(file.string());
    EXPECT_EQ(Cli("compare one two").Status, 0) << "a folder in a file's place";
    pairs.erase(file.lexically_relative(".config"));
    EXPECT_TRUE(std::ranges::includes(Files(".config"), pairs));
}

// A sync of a tree of twice the size takes about twice the calls: calls are counted, not seconds.
// A path of a hundred bytes a level; on every tenth level a folder with links, in another branch.
using Depth = PairTest;

TEST_F(Depth, AThousandLevelsAndLinksToParentsAndToEachOtherTakeLinearTime) {
    const std::pair<const char*, const char*> links[] = {
        {"..", "/up"}, {".", "/here"}, {"../b", "/a/to b"}, {"../a", "/b/to a"}};
    const auto calls = [&](const std::string& tree, int levels) {
        std::string deep = tree, linked = tree;
        for (int level = 1; level <= levels; ++level) {
            deep += '/' + std::string(100, 'x');
            if (level % 10 != 0) continue;
            linked += "/d";
            for (const char* name : {"/a/f", "/b/g"}) File(linked + name, "");
            for (const auto& [to, name] : links) fs::create_symlink(to, linked + name);
        }
        File(deep + "/f", "at the end");
        MakeFolder(tree + "copy");
        long count = 0;
        const auto counting = [&](const Moment&) { return ++count; };
        EXPECT_EQ(RunTraced("sync -q " + tree + ' ' + tree + "copy", counting).Status, 0);
        return count;
    };
    EXPECT_LT(calls("whole", 1000), calls("half", 500) * 22 / 10 + 100);
}

}  // namespace
}  // namespace reliability
