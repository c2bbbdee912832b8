// `export`: which list each kind writes, and when a file is written or left alone.
#include "cli/cli_fixture.h"

namespace cli {
namespace {

class Export : public CliTest {
  protected:
    Export() { MakeRows(); }

    // The report's paths, relative to the temporary folder.
    std::string Listed(const std::string& report) const {
        std::string listed;
        const std::string root = Path("") + "/";
        for (const std::string& line : Lines(Content(report))) {
            if (!line.starts_with(root)) continue;
            listed += line.substr(root.size(), line.find('\r') - root.size()) + " ";
        }
        return listed;
    }
};

TEST_F(Export, EachKindListsItsRows) {
    const std::string created = "one/left.txt two/sub/right.txt ";
    const std::string modified =
        "one/changed.txt one/sub/turn.txt two/changed.txt two/sub/turn.txt ";
    const struct {
        std::string Kind, Listed;
    } cases[] = {
        {"new", created},
        {"modified", modified},
        {"new-modified", created + modified},
        {"same", "one/same.txt "},
    };
    for (const auto& [kind, listed] : cases) {
        const Ended run = Cli("export " + kind + " one two " + kind);
        EXPECT_EQ(run.Status, 0) << kind;
        EXPECT_EQ(run.Output, "") << kind;
        EXPECT_EQ(Lines(run.Error).size(), 1u) << run.Error;
        EXPECT_EQ(Listed(kind), listed) << kind;
    }
}

TEST_F(Export, WhereNothingIsWrittenTheFileStaysAsItIs) {
    File("old", "old");
    MakeFolder("folder");
    const struct {
        std::string Arguments;
        int Status;
    } cases[] = {
        {"new one two old", 1},  // would have to be overwritten
        {"new --only=nosuch --force one two old", 1},
        {"new --only=nosuch one two absent", 1},
        {"new --force one two no/such/folder", 2},
        {"new --force one two folder", 2},
    };
    for (const auto& test : cases) {
        const Ended run = Cli("export " + test.Arguments);
        EXPECT_EQ(run.Status, test.Status) << test.Arguments;
        EXPECT_EQ(Lines(run.Error).size(), 1u) << test.Arguments << run.Error;
        EXPECT_EQ(Content("old"), "old") << test.Arguments;
        EXPECT_FALSE(Exists("absent"));
    }
    EXPECT_EQ(Cli("export same --only=nosuch one two absent").Error, "No data to be export.\n");
}

TEST_F(Export, OverwritesByForceOrAfterYesOnATerminal) {
    Launch asked = Command(Words("export new one two report"));
    asked.Input = asked.Output = asked.Error = Sink::Terminal;
    for (const std::string answer : {"n\n", "\n", "y\n"}) {
        File("report", "old");
        asked.Typed = answer;
        const Ended run = Cli(asked);
        EXPECT_NE(run.Terminal.find("The same filename exist, overwrite it?"), std::string::npos)
            << run.Terminal;
        EXPECT_EQ(run.Status, answer == "y\n" ? 0 : 1) << answer;
        EXPECT_EQ(Content("report") == "old", answer != "y\n") << answer;
    }
    File("report", std::string(4096, 'o'));
    EXPECT_EQ(Cli("export same --force one two report").Status, 0);
    EXPECT_EQ(Listed("report"), "one/same.txt ");
    EXPECT_EQ(Content("report").find("oooo"), std::string::npos);
}

}  // namespace
}  // namespace cli
