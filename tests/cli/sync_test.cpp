// What `sync` does to the files on disk and what it says about it.
#include "cli/cli_fixture.h"

namespace cli {
namespace {

using Sync = CliTest;

std::string Json(const std::string& mode, int total, const std::string& message) {
    return R"({"summary": {"mode": ")" + mode + R"(", "total": )" + std::to_string(total) +
           R"(, "failed": 0, "stopped": false, "message": ")" + message + "\"}}\n";
}

TEST_F(Sync, WorksOnTheRowsOfModeViewAndDirection) {
    const std::string left = "--> OK -->    left.txt\n", right = "<-- OK <--    sub/right.txt\n",
                      changed = "<-- OK <--    changed.txt\n",
                      done = "Synchronization completed.      \\r\\n\\r\\nSucceed:   ";
    const std::pair<std::string, std::string> cases[] = {
        {"", left + right + changed},
        {"--mode double --view newchg -q", ""},
        {"--view new", left + right},
        {"--view chg", changed},
        {"--view same --direction same.jpg=left", "<-- OK <--    same.jpg\n"},
        {"-q --format=json --dry-run", Json("All", 3, "")},
        {"-q --format=json --mode=left", Json("Left_to_Right", 1, done + "1  Files.")},
        {"-q --format=json --mode=right", Json("Right_to_Left", 2, done + "2  Files.")},
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

TEST_F(Sync, ADirectionThatCannotBeGivenOrADryRunChangesNothing) {
    MakeRows();
    const auto before = Files("");
    for (const std::string options : {
             "--direction=missing.txt=right --dry-run",
             "--direction=same.jpg=right",  // a row of another view
             "--direction=left.txt=none --direction=right.txt=left",
             "--direction=left.txt=left",  // what the panel does not offer
         })
        ExpectRefusal("sync one two " + options, 2);
    EXPECT_EQ(Cli("sync --dry-run --no-history one two").Status, 0);
    EXPECT_EQ(Files(""), before);
}

TEST_F(Sync, RowsHoldBothSidesAsTheyAreAndAfterwardsAsTheyBecame) {
    File("one/sub/a=b", "1", kNoon + kHour);
    File("two/sub/a=b", "22");
    const std::string one = One() + "/sub/a=b", two = Two() + "/sub/a=b",
                      header = "code\tdirection\tpath1\tdate1\tsize1\tpath2\tdate2\tsize2\n";
    EXPECT_EQ(Lines(Cli("compare --format=json one two").Output).at(0),
              R"({"code": 21, "direction": "Replace -->", "path1": ")" + one +
                  R"(", "date1": "2024/03/10 13:00:00", "size1": "1", "path2": ")" + two +
                  R"(", "date2": "2024/03/10 12:00:00", "size2": "2"})");
    EXPECT_EQ(Cli("compare --format=tsv one two").Output, header + "21\tReplace -->\t" + one +
                                                              "\t2024/03/10 13:00:00\t1\t" + two +
                                                              "\t2024/03/10 12:00:00\t2\n");
    EXPECT_EQ(Cli("sync --format=tsv --direction sub/a=b=left one two").Output,
              header + "22\t<-- OK <--\t" + one + "\t2024/03/10 12:00:00\t2\t" + two +
                  "\t2024/03/10 12:00:00\t2\n");
}

// The comparison regards case and takes A.TXT, the copy does not and refuses it.
TEST_F(Sync, FailedRowsAreMarkedCountedAndGiveStatusOne) {
    for (const std::string name : {"A.TXT", "sub/a.doc", "sub/sub/a.jpg", "sub/a.txt"})
        File("one/" + name, "");
    Expect("sync --exclude=.txt,,*.jpg one two", 1,
           "--> Fail -->  A.TXT\n--> OK -->    sub/a.doc\n",
           "Synchronization  'New and Modified Files'  completed.\n\n"
           "Succeed:   1  Files.\nFail:   1  Files.\n");
    const std::string failed = Cli("sync --exclude txt,jpg --format=json one two").Output;
    EXPECT_TRUE(failed.starts_with(R"({"code": 31, "direction": "--> Fail -->", )"));
    EXPECT_NE(failed.find(R"("total": 1, "failed": 1, )"), std::string::npos);
}

}  // namespace
}  // namespace cli
