// Trees in which a path is not what it seems: something else where files should come, links and
// second names, roots inside each other, hostile names, loops and depth; a history that is full and
// out of reach.
#include <filesystem>
#include <fstream>

#include "reliability/pair_test.h"

namespace reliability {
namespace {

namespace fs = std::filesystem;
using Contents = std::map<std::string, std::string>;

using OddPlaces = cli::CliTest;

// A link to a folder is that folder: a row below it names what is reached through it.
TEST_F(OddPlaces, AFileComesIntoItsOwnPlaceAloneAndWhatElseIsInItsWayStays) {
    const std::pair<std::string, std::string> links[] = {
        {"file", "link"}, {"folder", "link to folder"}, {"none", "link to none"}, {"", "way"}};
    for (const auto& [to, name] : links) fs::create_symlink("../outside/" + to, "two/" + name);
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
    for (const auto& [to, name] : links) EXPECT_TRUE(fs::is_symlink("two/" + name)) << name;
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

// Each sync has a finite list: it was made before the first copy.
TEST_F(OddPlaces, RootsInEachOtherOrTheSameEndAndNoFileIsCopiedOntoItself) {
    fs::create_symlink("one", "link");
    for (const std::string roots :
         {"one one/in", "one/in one", "one link", "two/../one one/.", "one two"}) {
        const std::size_t growth = roots.find("/in") == roots.npos ? 0 : 3;
        SCOPED_TRACE(roots);
        fs::remove_all("one");
        for (const std::string name : {"a", "in/b", "in/sub/c"})
            File("one/" + name, name.substr(name.size() - 1));
        fs::remove("two/a");
        fs::create_hard_link("one/a", "two/a");
        for (std::size_t round = 0, files = 3; round < 3; ++round) {
            EXPECT_EQ(Cli("sync " + roots).Status, 0);
            Cli("sync --view=same --direction a=right " + roots);  // turned by hand
            const Contents now = Files("one");
            EXPECT_LE(now.size(), 3 + growth * files) << round;
            files = now.size();
            for (const auto& [name, content] : now)
                EXPECT_EQ(content, name.substr(name.size() - 1)) << name;
        }
        EXPECT_TRUE(growth != 0 || fs::equivalent("one/a", "two/a"));
    }
}

// The pair that is compared meets what cannot be read on its way to a free slot.
TEST_F(OddPlaces, AThousandPairsStayInTheHistoryThoughOneCannotBeRead) {
    const auto pair = [](int slot) {
        return "/a" + std::to_string(slot) + "==========/b====================0";
    };
    for (int slot = 0; slot < 1000; ++slot) SetSlot(slot, pair(slot));
    const fs::path file = SlotFile(1);
    for (const fs::path& locked : {file, file.parent_path(), fs::path(".config")}) {
        for (const int mode : {0, 0555, 0777}) {
            fs::permissions(locked, fs::perms(mode));
            EXPECT_EQ(Cli("compare one two", {.First = BecomeNobody}).Status, 0) << locked;
        }
        for (int slot = 0; slot < 1000; ++slot) EXPECT_EQ(Slot(slot), pair(slot)) << locked;
    }
    fs::remove(file);
    MakeFolder(file.string());
    EXPECT_EQ(Cli("compare one two").Status, 0) << "a folder in a file's place";
    for (int slot = 2; slot < 1000; ++slot) EXPECT_EQ(Slot(slot), pair(slot));
}

// Calls are counted, not seconds.
class Depth : public PairTest {
  protected:
    // Two trees, one of twice the other's size: their sync takes about twice the calls.
    void ExpectLinear(int size, const std::function<void(std::string, int)>& make) const {
        const auto calls = [&](const std::string& tree, int levels) {
            make(tree, levels);
            MakeFolder(tree + "copy");
            long count = 0;
            const auto counting = [&](Moment&) { return ++count; };
            EXPECT_EQ(RunTraced("sync -q " + tree + ' ' + tree + "copy", counting).Status, 0);
            return count;
        };
        EXPECT_LT(calls("whole", 2 * size), calls("half", size) * 22 / 10 + 100);
    }
};

TEST_F(Depth, AThousandLevelsAndAPathOfAHundredThousandBytes) {
    ExpectLinear(500, [this](std::string path, int levels) {
        for (; levels > 0; --levels) path += '/' + std::string(100, 'x');
        File(path + "/f", "at the end");
    });
}

TEST_F(Depth, LinksToParentsAndToEachOtherOnEveryLevel) {
    const std::pair<const char*, const char*> links[] = {
        {"..", "/up"}, {".", "/here"}, {"../b", "/a/to b"}, {"../a", "/b/to a"}};
    ExpectLinear(50, [&](std::string path, int levels) {
        for (; levels > 0; --levels) {
            path += "/d";
            for (const char* name : {"/a/f", "/b/g"}) File(path + name, "");
            for (const auto& [to, name] : links) std::filesystem::create_symlink(to, path + name);
        }
    });
}

}  // namespace
}  // namespace reliability
