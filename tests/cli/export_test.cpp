// `export`: which list each kind writes, and when a file is written or left alone.
#include "cli/cli_fixture.h"

namespace cli {
namespace {

using Export = CliTest;

TEST_F(Export, EachKindListsItsRows) {
    MakeRows();
    const std::pair<std::string, std::string> cases[] = {{"new", "left"},
                                                         {"modified", "changed"},
                                                         {"new-modified", "left changed"},
                                                         {"same", "same"}};
    for (const auto& [kind, names] : cases) {
        EXPECT_EQ(Cli("export --force " + kind + " one two report").Status, 0);
        for (const std::string name : {"left", "changed", "same"})
            EXPECT_EQ(Content("report").find(One() + "/" + name) != std::string::npos,
                      names.find(name) != std::string::npos)
                << kind << " lists " << name;
    }
}

TEST_F(Export, OverwritesByForceOrAfterYesOnATerminalOnly) {
    MakeRows();
    MakeFolder("folder");
    File("old", std::string(4096, 'o'));
    const auto before = Files("");
    Expect("export new one two old --no-history", 1, "",
           "varnel-cli: 'old' exists; --force overwrites it\n");
    ExpectRefusal("export new one two folder --no-history --force", 2);
    ExpectRefusal("export new one two old --no-history --force --only=nosuch", 1);
    for (const auto& [typed, status] : {std::pair{"n\n", 1}, {"\x04", 1}, {"y\n", 0}}) {
        EXPECT_EQ(Files(""), before);
        const Ended run = CliOnTerminal("export new one two old --no-history", typed);
        EXPECT_NE(run.Terminal.find("The same filename exist, overwrite it?"), std::string::npos);
        EXPECT_EQ(run.Status, status) << typed;
    }
    EXPECT_EQ(Content("old").find("oooo"), std::string::npos);
}

}  // namespace
}  // namespace cli
