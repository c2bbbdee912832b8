// What `compare` prints: rows in three formats, views, the summary and the exit status.
#include "cli/cli_fixture.h"

namespace cli {
namespace {

class Compare : public CliTest {};

TEST_F(Compare, ViewsChooseTheRowsAndQuietLeavesTheSummary) {
    MakeRows();
    const std::string rows =
        "Copy -->      left.txt\n"
        "<-- Copy      sub/right.txt\n"
        "<-- Replace   changed.txt\n"
        "Replace -->   sub/turn.txt\n";
    const struct {
        std::string Options, Rows;
    } cases[] = {
        {"", rows},
        {"--format text --view newchg", rows},
        {"--view new", "Copy -->      left.txt\n<-- Copy      sub/right.txt\n"},
        {"--view=chg", "<-- Replace   changed.txt\nReplace -->   sub/turn.txt\n"},
        {"--view same", "---/---/---   same.txt\n"},
        {"--quiet", ""},
        {"-q --format=tsv", ""},
    };
    for (const auto& [options, expected] : cases) {
        const Ended run = Cli("compare one two " + options);
        EXPECT_EQ(run.Output, expected) << options;
        EXPECT_EQ(run.Error,
                  "New Files ( 2 )\nModified Files ( 2 )\n"
                  "New and Modified Files ( 4 )\nSame Files ( 1 )\n")
            << options;
        EXPECT_EQ(run.Status, 1) << options;
    }
}

TEST_F(Compare, TsvHoldsEveryTextOfTheRow) {
    MakeRows();
    EXPECT_EQ(Cli("compare --format=tsv one two").Output,
              "code\tdirection\tpath1\tdate1\tsize1\tpath2\tdate2\tsize2\n"
              "11\tCopy -->\t" +
                  One() + "/left.txt\t2024/03/10 12:00:00\t1\t" + Two() +
                  "/left.txt\t00:00:00\t\n"
                  "12\t<-- Copy\t" +
                  One() + "/sub/right.txt\t1899/12/30 00:00:00\t\t" + Two() +
                  "/sub/right.txt\t2024/03/10 12:00:00\t2\n"
                  "22\t<-- Replace\t" +
                  One() + "/changed.txt\t2024/03/10 12:00:00\t1\t" + Two() +
                  "/changed.txt\t2024/03/10 13:00:00\t2\n"
                  "21\tReplace -->\t" +
                  One() + "/sub/turn.txt\t2024/03/10 13:00:00\t1\t" + Two() +
                  "/sub/turn.txt\t2024/03/10 12:00:00\t2\n");
}

TEST_F(Compare, JsonIsOneObjectALineAndTheSummaryLast) {
    MakeRows();
    const std::string summary =
        R"({"summary": {"new": 2, "modified": 2, "same": 1, "stopped": false}})";
    const Ended run = Cli("compare --format json --view same one two");
    EXPECT_EQ(run.Output,
              R"({"code": 0, "direction": "---/---/---", "path1": ")" + One() +
                  R"(/same.txt", "date1": "2024/03/10 12:00:00", "size1": "1", "path2": ")" +
                  Two() + R"(/same.txt", "date2": "2024/03/10 12:00:00", "size2": "2"})" + "\n" +
                  summary + "\n");
    EXPECT_EQ(run.Error, "");
    EXPECT_EQ(run.Status, 1);
    EXPECT_EQ(Cli("compare -q --format=json one two").Output, summary + "\n");
}

TEST_F(Compare, NothingToSynchroniseIsStatusZero) {
    for (const std::string side : {"one", "two"}) {
        File(side + "/sub/a", "another size in " + side);
        MakeFolder(side + "/only in " + side);
    }
    EXPECT_EQ(Cli("compare one two").Status, 0);
    const Ended run = Cli("compare --view=same one two");
    EXPECT_EQ(run.Output, "---/---/---   sub/a\n");
    EXPECT_EQ(run.Status, 0);
}

}  // namespace
}  // namespace cli
