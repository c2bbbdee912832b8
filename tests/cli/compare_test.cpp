// What `compare` prints: rows in three formats, views, the summary and the exit status.
#include "cli/cli_fixture.h"

namespace cli {
namespace {

using Compare = CliTest;

TEST_F(Compare, ViewsChooseTheRowsAndQuietLeavesTheSummary) {
    MakeRows();
    const std::string created = "Copy -->      left.txt\n<-- Copy      sub/right.txt\n",
                      changed = "<-- Replace   changed.txt\nReplace -->   sub/turn.txt\n",
                      captions =
                          "New Files ( 2 )\nModified Files ( 2 )\n"
                          "New and Modified Files ( 4 )\nSame Files ( 1 )\n";
    Expect("compare one two", 1, created + changed, captions);
    Expect("compare --format text --view newchg one two", 1, created + changed, captions);
    Expect("compare one --view=new two", 1, created, captions);
    Expect("compare one two --view chg", 1, changed, captions);
    Expect("compare --view same one two", 1, "---/---/---   same.txt\n", captions);
    Expect("compare --quiet one two", 1, "", captions);
    Expect("compare -q --format=tsv one two", 1, "", captions);
    Expect("compare -q --format=json one two", 1,
           R"({"summary": {"new": 2, "modified": 2, "same": 1, "stopped": false}})"
           "\n",
           "");
}

TEST_F(Compare, NothingToSynchroniseIsStatusZero) {
    for (const std::string side : {"one", "two"}) {
        File(side + "/sub/a", "another size in " + side);
        MakeFolder(side + "/only in " + side);
    }
    Expect("compare --view=same one two", 0, "---/---/---   sub/a\n",
           "New Files ( 0 )\nModified Files ( 0 )\n"
           "New and Modified Files ( 0 )\nSame Files ( 1 )\n");
}

// The file and both folders bear the name.
TEST_F(Compare, NamesAreWrittenAsTheFormatAndATerminalNeedItAndCopiedAsTheyAre) {
    const std::string letters = "--view=\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80 'x' ";
    const std::string steering = "\x1b[31m \x01\x7f \xc2\x9b \xe2\x80\xae";
    const std::string broken = "\xff\xe9 \xe2\x82 \xed\xb3\xbf \xc0\xaf";
    const struct {
        std::string Name, Tsv, Json, Terminal;
    } cases[] = {
        {letters, letters, letters, letters},
        {"a\nb\tc\rd\\e\"f", "a\\nb\\tc\\rd\\\\e\"f", "a\\nb\\tc\\rd\\\\e\\\"f",
         "a\\x0ab\\x09c\\x0dd\\e\"f"},
        {steering, steering, "\\u001b[31m \\u0001\\u007f \\u009b \\u202e",
         "\\x1b[31m \\x01\\x7f \\xc2\\x9b \\xe2\\x80\\xae"},
        {broken, broken, "\\udcff\\udce9 \\udce2\\udc82 \\udced\\udcb3\\udcbf \\udcc0\\udcaf",
         "\\xff\\xe9 \\xe2\\x82 \\xed\\xb3\\xbf \\xc0\\xaf"},
    };
    for (const auto& [name, tsv, json, terminal] : cases) {
        File("1" + name + "/" + name, "7 bytes");
        MakeFolder("2" + name);
        const auto run = [&](Texts arguments, Sink sink = Sink::File) {
            arguments.insert(arguments.end(), {"--", "1" + name, "2" + name});
            Launch launch = Command(arguments);
            launch.Output = sink;
            const Ended ended = Cli(launch);
            return ended.Output + ended.Terminal;
        };
        EXPECT_EQ(run({"compare"}), "Copy -->      " + name + "\n");
        EXPECT_EQ(run({"compare"}, Sink::Terminal), "Copy -->      " + terminal + "\r\n");
        EXPECT_EQ(run({"compare", "--format", "tsv"}),
                  "code\tdirection\tpath1\tdate1\tsize1\tpath2\tdate2\tsize2\n11\tCopy -->\t" +
                      Path("1") + tsv + "/" + tsv + "\t2024/03/10 12:00:00\t7\t" + Path("2") + tsv +
                      "/" + tsv + "\t00:00:00\t\n");
        EXPECT_EQ(
            run({"compare", "--format=tsv"}, Sink::Terminal).find_first_of("\x1b\x01\x7f\xff"),
            std::string::npos);
        EXPECT_EQ(Lines(run({"compare", "--format=json"})).at(0),
                  R"({"code": 11, "direction": "Copy -->", "path1": ")" + Path("1") + json + "/" +
                      json + R"(", "date1": "2024/03/10 12:00:00", "size1": "7", "path2": ")" +
                      Path("2") + json + "/" + json + R"(", "date2": "00:00:00", "size2": ""})");
        EXPECT_EQ(run({"sync", "--direction", name + "=none"}), "");
        EXPECT_EQ(run({"sync"}), "--> OK -->    " + name + "\n");
        EXPECT_EQ(Content("2" + name + "/" + name), "7 bytes");
    }
}

}  // namespace
}  // namespace cli
