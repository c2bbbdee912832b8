// What `sync` does to the files on disk and what it says about it.
#include "cli/cli_fixture.h"

namespace cli {
namespace {

const std::string kUntouched = "1- -2 12 12 12 ";

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

std::string Completed(const std::string& what, int succeeded) {
    return "Synchronization" + what + " completed.\n\nSucceed:   " + std::to_string(succeeded) +
           "  Files.\n";
}

std::string Json(const std::string& mode, int total, const std::string& message) {
    return R"({"summary": {"mode": ")" + mode + R"(", "total": )" + std::to_string(total) +
           R"(, "failed": 0, "stopped": false, "message": ")" + message + "\"}}\n";
}

TEST_F(Sync, WorksOnTheRowsOfModeViewAndDirection) {
    const std::string left = "--> OK -->    left.txt\n", right = "<-- OK <--    sub/right.txt\n",
                      changed = "<-- OK <--    changed.txt\n",
                      turn = "--> OK -->    sub/turn.txt\n";
    const std::string all = "11 22 22 11 12 ",
                      allDone = Completed("  'New and Modified Files' ", 4),
                      twoDone = "Synchronization completed.      \\r\\n\\r\\nSucceed:   2  Files.";
    const struct {
        std::string Options, Sides, Output, Error;
    } cases[] = {
        {"", all, left + right + changed + turn, allDone},
        {"--mode double --view newchg -q", all, "", allDone},
        {"--mode left", "11 -2 12 11 12 ", left + turn, Completed("", 2)},
        {"--mode=right", "1- 22 22 12 12 ", right + changed, Completed("", 2)},
        {"--view new", "11 22 12 12 12 ", left + right, Completed("  'New Files' ", 2)},
        {"--view chg", "1- -2 22 11 12 ", changed + turn, Completed("  'Modified Files' ", 2)},
        {"--view same", kUntouched, "", "No new / modified file need to be synchronized.\n"},
        {"--view same --direction same.txt=left", "1- -2 12 12 22 ", "<-- OK <--    same.txt\n",
         Completed("  'Same Files' ", 1)},
        {"--direction changed.txt=right --direction=sub/turn.txt=none "
         "--direction sub/right.txt=none",
         "11 -2 11 12 12 ", left + "--> OK -->    changed.txt\n",
         Completed("  'New and Modified Files' ", 2)},
        {"--only=nosuch", kUntouched, "", ""},
        {"--dry-run --view=new", kUntouched,
         "Copy -->      left.txt\n<-- Copy      sub/right.txt\n", ""},
        {"--dry-run --mode=right --direction=changed.txt=none", kUntouched,
         "<-- Copy      sub/right.txt\n", ""},
        {"-q --format=json", all,
         Json("All", 4,
              "Synchronization  'New and Modified Files'  completed.      "
              "\\r\\n\\r\\nSucceed:   4  Files."),
         ""},
        {"-q --format=json --mode=left", "11 -2 12 11 12 ", Json("Left_to_Right", 2, twoDone), ""},
        {"-q --format=json --mode=right", "1- 22 22 12 12 ", Json("Right_to_Left", 2, twoDone), ""},
        {"-q --format=json --dry-run", kUntouched, Json("All", 4, ""), ""},
    };
    for (const auto& [options, sides, output, error] : cases) {
        MakeRows();
        Expect("sync one two " + options, 0, output, error);
        EXPECT_EQ(Sides(), sides) << options;
    }
}

TEST_F(Sync, ADirectionThatCannotBeGivenCopiesAndRemembersNothing) {
    MakeRows();
    for (const char* options : {
             "--direction=missing.txt=right",
             "--direction=same.txt=right",  // a row of another view
             "--direction=left.txt=none --direction=right.txt=left",
             "--direction=left.txt=left",  // what the panel does not offer
             "--dry-run --direction=missing.txt=right",
         }) {
        ExpectRefusal("sync one two " + std::string(options), 2);
        EXPECT_EQ(Sides(), kUntouched) << options;
        EXPECT_FALSE(Exists("config")) << options;
    }
}

TEST_F(Sync, RowsHoldBothSidesAsTheyAreAfterwards) {
    File("two/sub/a=b", "22");
    EXPECT_EQ(Lines(Cli("sync --format=tsv --direction sub/a=b=left one two").Output).at(1),
              "12\t<-- OK <--\t" + One() + "/sub/a=b\t2024/03/10 12:00:00\t2\t" + Two() +
                  "/sub/a=b\t2024/03/10 12:00:00\t2");
}

TEST_F(Sync, FailedRowsAreMarkedCountedAndGiveStatusOne) {
    File("one/blocked", "1");
    File("one/sub/a good one", "1");
    MakeFolder("two/blocked");  // no file can stand where a folder is
    Expect("sync one two", 1, "--> Fail -->  blocked\n--> OK -->    sub/a good one\n",
           Completed("  'New and Modified Files' ", 1) + "Fail:   1  Files.\n");
    const Texts lines = Lines(Cli("sync --format=json one two").Output);
    EXPECT_TRUE(lines.at(0).starts_with(R"({"code": 31, "direction": "--> Fail -->", )"));
    EXPECT_NE(lines.at(1).find(R"("total": 1, "failed": 1, "stopped": false)"), std::string::npos);
}

}  // namespace
}  // namespace cli
