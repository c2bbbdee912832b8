// Loops and depth end, and cost calls in proportion to their size: calls are counted, not seconds.
#include <filesystem>

#include "reliability/pair_test.h"

namespace reliability {
namespace {

class Depth : public PairTest {
  protected:
    // Two trees, the second one twice the size of the first: what is done to them takes about twice
    // the calls. `make` makes the tree of Folder 1.
    void ExpectLinear(int size, const std::function<void(std::string, int)>& make) const {
        make("half/1", size);
        make("whole/1", 2 * size);
        for (const std::string command : {"sync", "compare"}) {
            std::map<std::string, long> calls;
            for (const std::string tree : {"half", "whole"}) {
                MakeFolder(tree + "/2");
                const cli::Launch launch =
                    Command({command, "-q", Path(tree + "/1"), Path(tree + "/2")});
                const cli::Ended run = RunTraced(launch, [&](Moment&) { return ++calls[tree]; });
                EXPECT_EQ(run.Status, 0) << run.Error;
            }
            EXPECT_LT(calls["whole"], calls["half"] * 22 / 10 + 100) << command;
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
    const std::pair<const char*, const char*> links[] = {
        {"..", "/up"}, {".", "/here"}, {"../b", "/a/to b"}, {"../a", "/b/to a"}};
    ExpectLinear(50, [&](std::string path, int levels) {
        for (; levels > 0; --levels) {
            path += "/d";
            File(path + "/a/f", "");
            File(path + "/b/g", "");
            for (const auto& [to, name] : links)
                std::filesystem::create_symlink(to, Path(path + name));
        }
    });
}

}  // namespace
}  // namespace reliability
