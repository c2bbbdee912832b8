// What `sync` does to the files on disk and what it says about it.
#include "cli/cli_fixture.h"

namespace cli {
namespace {

class Sync : public CliTest {
  protected:
    // Which side's content left, right, changed, turn and same have in Folder 1 and in Folder 2.
    std::string Sides() const {
        std::string sides;
        for (const std::string name :
             {"left.txt", "sub/right.txt", "changed.txt", "sub/turn.txt", "same.txt"}) {
            for (const std::string folder : {"one/", "two/"})
                sides += Exists(folder + name) ? Content(folder + name)[0] : '-';
            sides += ' ';
        }
        return sides;
    }
};

const std::string kUntouched = "1- -2 12 12 12 ";

std::string Completed(const std::string& what, int succeeded) {
    return "Synchronization" + what + " completed.\n\nSucceed:   " + std::to_string(succeeded) +
           "  Files.\n";
}

TEST_F(Sync, WorksOnTheRowsOfModeViewAndDirection) {
    const std::string left = "--> OK -->    left.txt\n", right = "<-- OK <--    sub/right.txt\n",
                      changed = "<-- OK <--    changed.txt\n",
                      turn = "--> OK -->    sub/turn.txt\n";
    const std::string all = Completed("  'New and Modified Files' ", 4);
    const std::string nothing = "No new / modified file need to be synchronized.\n";
    const struct {
        std::string Options, Sides, Rows, Message;
    } cases[] = {
        {"", "11 22 22 11 12 ", left + right + changed + turn, all},
        {"--mode double --view newchg", "11 22 22 11 12 ", left + right + changed + turn, all},
        {"--mode left", "11 -2 12 11 12 ", left + turn, Completed("", 2)},
        {"--mode=right", "1- 22 22 12 12 ", right + changed, Completed("", 2)},
        {"--view new", "11 22 12 12 12 ", left + right, Completed("  'New Files' ", 2)},
        {"--view chg", "1- -2 22 11 12 ", changed + turn, Completed("  'Modified Files' ", 2)},
        {"--view same", kUntouched, "", nothing},
        {"--view same --direction same.txt=left", "1- -2 12 12 22 ", "<-- OK <--    same.txt\n",
         Completed("  'Same Files' ", 1)},
        {"--direction changed.txt=right --direction=sub/turn.txt=none "
         "--direction sub/right.txt=none",
         "11 -2 11 12 12 ", left + "--> OK -->    changed.txt\n",
         Completed("  'New and Modified Files' ", 2)},
        {"--quiet", "11 22 22 11 12 ", "", all},
        {"--only=nosuch", kUntouched, "", ""},
        {"--dry-run --view=new", kUntouched,
         "Copy -->      left.txt\n<-- Copy      sub/right.txt\n", ""},
        {"--dry-run --mode=left", kUntouched,
         "Copy -->      left.txt\nReplace -->   sub/turn.txt\n", ""},
        {"--dry-run --mode=right --direction=changed.txt=none", kUntouched,
         "<-- Copy      sub/right.txt\n", ""},
        {"--dry-run --view=same", kUntouched, "", ""},
    };
    for (const auto& test : cases) {
        MakeRows();
        const Ended run = Cli("sync one two " + test.Options);
        EXPECT_EQ(run.Output, test.Rows) << test.Options;
        EXPECT_EQ(run.Error, test.Message) << test.Options;
        EXPECT_EQ(run.Status, 0) << test.Options;
        EXPECT_EQ(Sides(), test.Sides) << test.Options;
    }
}

TEST_F(Sync, ADirectionThatCannotBeGivenCopiesAndRemembersNothing) {
    MakeRows();
    for (const std::string options : {
             "--direction=missing.txt=right",
             "--direction=same.txt=right",  // a row of another view
             "--direction=left.txt=none --direction=right.txt=left",
             "--view=chg --direction=left.txt=right",
             "--direction=left.txt=left",  // what the panel does not offer
             "--dry-run --direction=missing.txt=right",
         }) {
        const Ended run = Cli("sync one two " + options);
        EXPECT_EQ(run.Status, 2) << options;
        EXPECT_EQ(run.Output, "") << options;
        EXPECT_EQ(Lines(run.Error).size(), 1u) << run.Error;
        EXPECT_EQ(Sides(), kUntouched) << options;
        EXPECT_FALSE(Exists("config")) << options;
    }
}

TEST_F(Sync, TsvRowsHoldBothSidesAsTheyAreAfterwards) {
    File("two/sub/a=b", "22", kNoon);
    EXPECT_EQ(Cli("sync --format=tsv --direction sub/a=b=left one two").Output,
              "code\tdirection\tpath1\tdate1\tsize1\tpath2\tdate2\tsize2\n"
              "12\t<-- OK <--\t" +
                  One() + "/sub/a=b\t2024/03/10 12:00:00\t2\t" + Two() +
                  "/sub/a=b\t2024/03/10 12:00:00\t2\n");
}

TEST_F(Sync, JsonSumsUp) {
    const std::string completed =
        "Synchronization completed.      \\r\\n\\r\\nSucceed:   2  Files.";
    const struct {
        std::string Options, Mode;
        int Total;
        std::string Message;
    } cases[] = {
        {"", "All", 4,
         "Synchronization  'New and Modified Files'  completed.      "
         "\\r\\n\\r\\nSucceed:   4  Files."},
        {"--mode=left", "Left_to_Right", 2, completed},
        {"--mode=right", "Right_to_Left", 2, completed},
        {"--mode=left --only=nosuch", "Left_to_Right", 0, ""},
        {"--mode=left --view=same", "Left_to_Right", 0,
         "No new / modified file in folder 1 need to be synchronized.    "},
        {"--dry-run", "All", 4, ""},
    };
    for (const auto& test : cases) {
        MakeRows();
        const Ended run = Cli("sync one two --quiet --format=json " + test.Options);
        EXPECT_EQ(run.Output, R"({"summary": {"mode": ")" + test.Mode + R"(", "total": )" +
                                  std::to_string(test.Total) +
                                  R"(, "failed": 0, "stopped": false, "message": ")" +
                                  test.Message + "\"}}\n");
        EXPECT_EQ(run.Error, "");
    }
}

TEST_F(Sync, FailedRowsAreMarkedCountedAndGiveStatusOne) {
    File("one/a good one", "1");
    File("one/blocked", "1");
    MakeFolder("two/blocked");  // no file can stand where a folder is
    const Ended run = Cli("sync one two");
    EXPECT_EQ(SortedLines(run.Output),
              (Texts{"--> Fail -->  blocked", "--> OK -->    a good one"}));
    EXPECT_EQ(run.Error, Completed("  'New and Modified Files' ", 1) + "Fail:   1  Files.\n");
    EXPECT_EQ(run.Status, 1);

    const Texts lines = Lines(Cli("sync --format=json one two").Output);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_TRUE(lines[0].starts_with(R"({"code": 31, "direction": "--> Fail -->", )")) << lines[0];
    EXPECT_NE(lines[1].find(R"("total": 1, "failed": 1, "stopped": false)"), std::string::npos)
        << lines[1];
}

}  // namespace
}  // namespace cli
