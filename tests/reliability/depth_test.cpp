// Loops and depth end, and cost calls in proportion to their size: calls are counted, not seconds.
#include <filesystem>

#include "reliability/pair_test.h"

namespace reliability {
namespace {

namespace fs = std::filesystem;

class Depth : public PairTest {
  protected:
    // Two trees, the second one twice the size of the first: what is done to them takes about twice
    // the calls. `make` makes the tree of Folder 1.
    void ExpectLinear(int size, const std::function<void(std::string, int)>& make) const {
        make("half/1", size);
        make("whole/1", 2 * size);
        for (const char* command : {"sync", "compare"}) {
            const auto calls = [&](const std::string& tree) {
                MakeFolder(tree + "/2");
                const cli::Launch launch =
                    Command({command, "-q", Path(tree + "/1"), Path(tree + "/2")});
                const TracedEnd run = RunTraced(launch, Path(""), [](Moment&) {});
                EXPECT_EQ(run.Status, 0) << run.Error;
                return run.Calls;
            };
            const long half = calls("half");
            EXPECT_LT(calls("whole"), half * 22 / 10 + 100) << command << ", half takes " << half;
        }
    }
};

TEST_F(Depth, AThousandLevelsWithAFileInEach) {
    ExpectLinear(500, [this](std::string path, int levels) {
        for (; levels > 0; --levels) File((path += "/d") + "/f", "");
    });
}

TEST_F(Depth, APathOfAHundredThousandBytes) {
    ExpectLinear(200, [this](std::string path, int levels) {
        for (; levels > 0; --levels) path += '/' + std::string(250, 'x');
        File(path + "/f", "at the end");
    });
}

TEST_F(Depth, LinksToParentsAndToEachOtherOnEveryLevel) {
    ExpectLinear(50, [this](std::string path, int levels) {
        for (; levels > 0; --levels) {
            path += "/d";
            File(path + "/a/f", "");
            File(path + "/b/g", "");
            const auto link = [&](const char* to, const char* name) {
                fs::create_symlink(to, Path(path + name));
            };
            link("..", "/up");
            link(".", "/here");
            link("../b", "/a/to b");
            link("../a", "/b/to a");
        }
    });
}

}  // namespace
}  // namespace reliability
