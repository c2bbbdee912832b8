// Loops and depth end, and cost calls in proportion to their size: calls are counted, not seconds.
#include <filesystem>
#include <functional>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "reliability/pair_test.h"

namespace reliability {
namespace {

namespace fs = std::filesystem;

class Depth : public PairTest {
  protected:
    long CallsOf(const cli::Launch& launch, int status) {
        const TracedEnd run =
            Traced(launch, [](const Moment&, const TracedMemory&) { return Fate::Go(); });
        EXPECT_EQ(run.Status, status) << run.Error;
        return run.Calls;
    }

    // Two pairs, the second one twice the size of the first: what is done to them takes about twice
    // the calls. `make` makes the tree of Folder 1.
    void ExpectLinear(int size, int status,
                      const std::function<void(const std::string&, int)>& make) {
        long syncs[2];
        long comparisons[2];
        for (const int twice : {0, 1}) {
            const std::string pair = "pair" + std::to_string(twice);
            MakeFolder(pair + "/1");
            MakeFolder(pair + "/2");
            make(pair + "/1", size << twice);
            const std::string one = Path(pair + "/1");
            const std::string two = Path(pair + "/2");
            syncs[twice] = CallsOf(Command({"sync", "-q", one, two}), status);
            comparisons[twice] = CallsOf(Command({"compare", "-q", one, two}), status);
        }
        EXPECT_LT(syncs[1], syncs[0] * 22 / 10 + 100) << syncs[0] << " for half of it";
        EXPECT_LT(comparisons[1], comparisons[0] * 22 / 10 + 100)
            << comparisons[0] << " for half of it";
    }
};

TEST_F(Depth, AThousandLevelsWithAFileInEach) {
    ExpectLinear(500, 0, [this](const std::string& root, int levels) {
        std::string path = root;
        for (int level = 0; level < levels; ++level) {
            path += "/d";
            File(path + "/f", "");
        }
    });
}

TEST_F(Depth, APathOfAHundredThousandBytes) {
    ExpectLinear(200, 0, [this](const std::string& root, int levels) {
        std::string path = root;
        for (int level = 0; level < levels; ++level) path += '/' + std::string(250, 'x');
        File(path + "/f", "at the end");
    });
}

TEST_F(Depth, ALinkToItsParentOnEveryLevel) {
    ExpectLinear(100, 0, [this](const std::string& root, int levels) {
        std::string path = Path(root);
        for (int level = 0; level < levels; ++level) {
            path += "/d";
            fs::create_directory(path);
            fs::create_directory_symlink("..", path + "/up");
            fs::create_directory_symlink(".", path + "/here");
        }
    });
}

TEST_F(Depth, ManyPairsOfFoldersThatLinkToEachOther) {
    ExpectLinear(100, 0, [this](const std::string& root, int pairs) {
        for (int i = 0; i < pairs; ++i) {
            const std::string at = root + '/' + std::to_string(i);
            File(at + "/a/f", "");
            File(at + "/b/g", "");
            fs::create_directory_symlink("../b", Path(at + "/a/to b"));
            fs::create_directory_symlink("../a", Path(at + "/b/to a"));
        }
    });
}

}  // namespace
}  // namespace reliability
