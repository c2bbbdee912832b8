// What `compare` and `sync` print, and what `sync` does to the files on disk.
#include "cli/cli_fixture.h"

namespace cli {
namespace {

using Compare = CliTest;
using Sync = CliTest;

TEST_F(Compare, ViewsChooseTheRowsAndQuietLeavesTheSummary) {
    MakeRows();
    const std::string created = "Copy -->      left.txt\n<-- Copy      sub/right.txt\n",
                      changed = "<-- Replace   changed.txt\n",
                      captions =
                          "New Files ( 2 )\nModified Files ( 1 )\n"
                          "New and Modified Files ( 3 )\nSame Files ( 1 )\n";
    Expect("compare one two", 1, created + changed, captions);
    Expect("--view chg compare --format text one --view=new two", 1, created, captions);
    Expect("compare one two --view chg", 1, changed, captions);
    Expect("compare --view same one two", 1, "---/---/---   same.jpg\n", captions);
    Expect("compare --quiet --format=tsv one two", 1, "", captions);
    Expect("compare -q --format=json --exclude jpg one two", 1,
           R"({"summary": {"new": 2, "modified": 1, "same": 0, "stopped": false}})"
           "\n",
           "");
    EXPECT_EQ(Cli("compare --only=jpg one two").Status, 0);
}

// Letters of two to four bytes, what the formats escape, what steers a terminal, what is no UTF-8.
TEST_F(Compare, NamesAreWrittenAsTheFormatAndATerminalNeedIt) {
    const std::string
        letters = "~\xc2\xa0\xe0\xa0\x80\xe2\x80\xaf\xed\x9f\xbf\xf0\x90\x80\x80\xf4\x8f\xbf\xbf",
        steering =
            "\x1b\x7f\xc2\x80\xc2\x9f\xd8\x9c\xe2\x80\x8e\xe2\x80\x8f"
            "\xe2\x80\xa8\xe2\x80\xae\xe2\x81\xa6\xe2\x81\xa9",
        broken = "\xff\xc1\xbf\xe0\x9f\xbf\xed\xb3\xbf\xf0\x8f\xbf\xbf\xf4\x90\x80\x80\xe2\x82",
        shown = R"(\x1b\x7f\xc2\x80\xc2\x9f\xd8\x9c\xe2\x80\x8e\xe2\x80\x8f)"
                R"(\xe2\x80\xa8\xe2\x80\xae\xe2\x81\xa6\xe2\x81\xa9)"
                R"(\xff\xc1\xbf\xe0\x9f\xbf\xed\xb3\xbf\xf0\x8f\xbf\xbf\xf4\x90\x80\x80\xe2\x82)";
    const struct {
        const char* Format;
        std::set<int> OnTerminal;
        std::string Name;
    } cases[] = {
        {"text", {0, 2}, "\n\t\r\\\"" + steering + broken + "\n"},
        {"text", {1}, R"(\x0a\x09\x0d\")" + shown + "\r\n"},
        {"tsv", {}, R"(\n\t\r\\")" + steering + broken + "\t"},
        {"tsv", {1}, R"(\n\t\r\\")" + shown + "\t"},
        {"json",
         {1},
         R"(\n\t\r\\\"\u001b\u007f\u0080\u009f\u061c\u200e\u200f\u2028\u202e\u2066\u2069)"
         R"(\udcff\udcc1\udcbf\udce0\udc9f\udcbf\udced\udcb3\udcbf\udcf0\udc8f\udcbf\udcbf)"
         R"(\udcf4\udc90\udc80\udc80\udce2\udc82")"},
    };
    MakeFolder("2 ");  // a blank that belongs to the name
    File("one/" + letters + "\n\t\r\\\"" + steering + broken, "");
    for (const auto& [format, onTerminal, name] : cases) {
        const Ended run = RunCli({{"compare", "one", "2 ", "--format", format}, onTerminal});
        EXPECT_NE((run.Output + run.Terminal).find(letters + name), std::string::npos) << format;
    }
}

TEST_F(Sync, WorksOnTheRowsOfModeViewAndDirection) {
    const std::string left = "--> OK -->    left.txt\n", right = "<-- OK <--    sub/right.txt\n";
    const std::pair<std::string, std::string> cases[] = {
        {"--mode double --view newchg", left + right + "<-- OK <--    changed.txt\n"},
        {"--mode=left", left},
        {"--mode=right -q --format=json",
         R"({"summary": {"mode": "Right_to_Left", "total": 2, "failed": 0, "stopped": false, )"
         R"("message": "Synchronization completed.      \r\n\r\nSucceed:   2  Files."}})"
         "\n"},
        {"--view same --direction same.jpg=left", "<-- OK <--    same.jpg\n"},
        {"--dry-run --mode=right --direction=changed.txt=none", "<-- Copy      sub/right.txt\n"},
        {"--direction changed.txt=right --direction=sub/right.txt=none",
         left + "--> OK -->    changed.txt\n"},
    };
    for (const auto& [options, output] : cases) {
        MakeRows();
        const Ended run = Cli("sync one two " + options);
        EXPECT_EQ(run.Output, output) << options;
        EXPECT_EQ(run.Status, 0) << options;
    }
    EXPECT_EQ(Content("two/left.txt") + Content("two/changed.txt"), "11");
    EXPECT_EQ(Files("one").size(), 3u) << "sub/right.txt was not to be copied";
    Expect("sync one two --view=same", 0, "", "No new / modified file need to be synchronized.\n");
}

TEST_F(Sync, RowsHoldBothSidesAsTheyAreAndAfterwardsAsTheyBecame) {
    File("one/sub/a=b", "1", kNoon + kHour);
    File("two/sub/a=b", "22");
    const std::string one = One() + "/sub/a=b", two = Two() + "/sub/a=b";
    EXPECT_EQ(Lines(Cli("compare --format=json one two").Output).at(0),
              R"({"code": 21, "direction": "Replace -->", "path1": ")" + one +
                  R"(", "date1": "2024/03/10 13:00:00", "size1": "1", "path2": ")" + two +
                  R"(", "date2": "2024/03/10 12:00:00", "size2": "2"})");
    EXPECT_EQ(Cli("sync --format=tsv --direction sub/a=b=left one two").Output,
              "code\tdirection\tpath1\tdate1\tsize1\tpath2\tdate2\tsize2\n22\t<-- OK <--\t" + one +
                  "\t2024/03/10 12:00:00\t2\t" + two + "\t2024/03/10 12:00:00\t2\n");
}

}  // namespace
}  // namespace cli
