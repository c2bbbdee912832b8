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
        for (const std::string& line : Lines(Content(report)))
            if (line.starts_with(root))
                listed += line.substr(root.size(), line.find('\r') - root.size()) + " ";
        return listed;
    }
};

TEST_F(Export, EachKindListsItsRows) {
    for (const std::string kind : {"new", "modified", "new-modified", "same"}) {
        const Ended run = Cli("export " + kind + " one two " + kind);
        EXPECT_EQ(run.Status, 0) << kind;
        EXPECT_EQ(run.Output, "") << kind;
        EXPECT_EQ(Lines(run.Error).size(), 1u) << run.Error;
    }
    const std::string modified =
        "one/changed.txt one/sub/turn.txt two/changed.txt two/sub/turn.txt ";
    EXPECT_EQ(Listed("new"), "one/left.txt two/sub/right.txt ");
    EXPECT_EQ(Listed("modified"), modified);
    EXPECT_EQ(Listed("new-modified"), Listed("new") + modified);
    EXPECT_EQ(Listed("same"), "one/same.txt ");
}

TEST_F(Export, OverwritesByForceOrAfterYesOnATerminalOnly) {
    MakeFolder("folder");
    File("old", std::string(4096, 'o'));
    const auto before = Files("");
    ExpectRefusal("export new one two old --no-history", 1);
    ExpectRefusal("export new one two folder --no-history --force", 2);
    ExpectRefusal("export new one two no/such/folder --no-history", 2);
    Expect("export new one two old --no-history --force --only=nosuch", 1, "",
           "No data to be export.\n");
    for (const auto& [typed, status] : {std::pair{"n\n", 1}, {"\n", 1}, {"\x04", 1}, {"y\n", 0}}) {
        EXPECT_EQ(Files(""), before);
        const Ended run = CliOnTerminal("export new one two old --no-history", typed);
        EXPECT_NE(run.Terminal.find("The same filename exist, overwrite it?"), std::string::npos)
            << run.Terminal;
        EXPECT_EQ(run.Status, status) << typed;
    }
    EXPECT_EQ(Listed("old"), "one/left.txt two/sub/right.txt ");
    EXPECT_EQ(Content("old").find("oooo"), std::string::npos);
}

}  // namespace
}  // namespace cli
