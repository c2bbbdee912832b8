// What `sync` does to the files on disk and what it says about it.
#include <algorithm>
#include <filesystem>

#include <sys/stat.h>

#include "cli/cli_fixture.h"
#include "cli/json_row.h"

namespace cli {
namespace {

class Sync : public CliTest {};

const std::map<std::string, std::string> kOneBefore = {{"left.txt", "left text"},
                                                       {"changed.txt", "old"},
                                                       {"same.txt", "same"},
                                                       {"turn.txt", "turned new"}};
const std::map<std::string, std::string> kTwoBefore = {{"sub/right.txt", "right text"},
                                                       {"changed.txt", "newer"},
                                                       {"same.txt", "SAME?"},
                                                       {"turn.txt", "turned old"}};

std::map<std::string, std::string> With(std::map<std::string, std::string> files,
                                        const std::map<std::string, std::string>& changed) {
    for (const auto& [name, content] : changed) files[name] = content;
    return files;
}

TEST_F(Sync, ModesActOnTheirOwnRows) {
    const std::map<std::string, std::string> toOne = {{"sub/right.txt", "right text"},
                                                      {"changed.txt", "newer"}};
    const std::map<std::string, std::string> toTwo = {{"left.txt", "left text"},
                                                      {"turn.txt", "turned new"}};
    const Texts toOneRows = {"<-- OK <--    changed.txt", "<-- OK <--    sub/right.txt"};
    const Texts toTwoRows = {"--> OK -->    left.txt", "--> OK -->    turn.txt"};
    Texts allRows = toTwoRows;
    allRows.insert(allRows.end(), toOneRows.begin(), toOneRows.end());
    std::sort(allRows.begin(), allRows.end());

    const struct {
        Texts Options;
        std::map<std::string, std::string> One, Two;
        Texts Rows;
        Texts Message;
    } cases[] = {
        {{},
         With(kOneBefore, toOne),
         With(kTwoBefore, toTwo),
         allRows,
         {"Synchronization  'New and Modified Files'  completed.", "", "Succeed:   4  Files."}},
        {{"--mode", "double"},
         With(kOneBefore, toOne),
         With(kTwoBefore, toTwo),
         allRows,
         {"Synchronization  'New and Modified Files'  completed.", "", "Succeed:   4  Files."}},
        {{"--mode", "left"},
         kOneBefore,
         With(kTwoBefore, toTwo),
         toTwoRows,
         {"Synchronization completed.", "", "Succeed:   2  Files."}},
        {{"--mode", "right"},
         With(kOneBefore, toOne),
         kTwoBefore,
         toOneRows,
         {"Synchronization completed.", "", "Succeed:   2  Files."}},
    };
    for (const auto& test : cases) {
        std::filesystem::remove_all(One());
        std::filesystem::remove_all(Two());
        MakeFiveRows();
        Texts arguments = {"sync"};
        arguments.insert(arguments.end(), test.Options.begin(), test.Options.end());
        const Ended run = OnPair(arguments);
        const std::string mode = test.Options.empty() ? "default" : test.Options.back();
        EXPECT_EQ(SortedLines(run.Output), test.Rows) << mode;
        EXPECT_EQ(Lines(run.Error), test.Message) << mode;
        EXPECT_EQ(run.Status, 0) << mode;
        EXPECT_EQ(Files("one"), test.One) << mode;
        EXPECT_EQ(Files("two"), test.Two) << mode;
    }
}

TEST_F(Sync, CopiesKeepTimeToTheNanosecondAndRights) {
    File("one/new", "n", kNoon, 123456789);
    File("one/replaced", "newer", kNoon, 987654321);
    File("two/replaced", "old", kNoon - kHour);
    ASSERT_EQ(::chmod(Path("one/new").c_str(), 0751), 0);
    ASSERT_EQ(::chmod(Path("one/replaced").c_str(), 0640), 0);
    ASSERT_EQ(OnPair({"sync"}).Status, 0);
    for (const std::string name : {"/new", "/replaced"}) {
        EXPECT_EQ(TimeOf("two" + name), TimeOf("one" + name));
        EXPECT_EQ(std::filesystem::status(Two() + name).permissions(),
                  std::filesystem::status(One() + name).permissions());
    }
    EXPECT_EQ(OnPair({"compare"}).Status, 0) << "nothing is left to do";
}

TEST_F(Sync, ViewsAreWorkedOnAlone) {
    const struct {
        std::string View;
        std::map<std::string, std::string> One, Two;
        Texts Message;
    } cases[] = {
        {"new",
         With(kOneBefore, {{"sub/right.txt", "right text"}}),
         With(kTwoBefore, {{"left.txt", "left text"}}),
         {"Synchronization  'New Files'  completed.", "", "Succeed:   2  Files."}},
        {"chg",
         With(kOneBefore, {{"changed.txt", "newer"}}),
         With(kTwoBefore, {{"turn.txt", "turned new"}}),
         {"Synchronization  'Modified Files'  completed.", "", "Succeed:   2  Files."}},
        {"same", kOneBefore, kTwoBefore, {"No new / modified file need to be synchronized."}},
    };
    for (const auto& test : cases) {
        std::filesystem::remove_all(One());
        std::filesystem::remove_all(Two());
        MakeFiveRows();
        const Ended run = OnPair({"sync", "--view", test.View});
        EXPECT_EQ(Lines(run.Error), test.Message) << test.View;
        EXPECT_EQ(run.Status, 0) << test.View;
        EXPECT_EQ(Files("one"), test.One) << test.View;
        EXPECT_EQ(Files("two"), test.Two) << test.View;
    }
}

TEST_F(Sync, NothingToDoIsSaidInTheWordsOfModeAndView) {
    File("two/only", "");
    const struct {
        Texts Options;
        Texts Message;
    } cases[] = {
        {{"--mode=left", "--view=new"}, {"No new file in folder 1 need to be synchronized."}},
        {{"--mode=left"}, {"No new / modified file in folder 1 need to be synchronized."}},
        {{"--view=chg"}, {}},  // a view without rows ends silently
    };
    for (const auto& test : cases) {
        Texts arguments = {"sync"};
        arguments.insert(arguments.end(), test.Options.begin(), test.Options.end());
        const Ended run = OnPair(arguments);
        EXPECT_EQ(run.Output, "") << test.Options[0];
        EXPECT_EQ(Lines(run.Error), test.Message) << test.Options[0];
        EXPECT_EQ(run.Status, 0) << test.Options[0];
    }
    const std::string words = "No new / modified file in folder 1 need to be synchronized.    ";
    EXPECT_EQ(OnPair({"sync", "--mode=left", "--format=json"}).Output,
              "{\"summary\": {\"mode\": \"Left_to_Right\", \"total\": 0, \"failed\": 0, "
              "\"stopped\": false, \"message\": \"" +
                  words + "\"}}\n");
}

TEST_F(Sync, JsonRowsHoldBothSidesAsTheyAreAfterwards) {
    MakeOneOfEach();
    const Ended run = OnPair({"sync", "--format", "json"});
    const Texts lines = Lines(run.Output);
    ASSERT_EQ(lines.size(), 4u);
    const std::map<std::string, std::string> expected = {
        {"code", "12"},
        {"direction", "<-- OK <--"},
        {"path1", One() + "/sub/right.txt"},
        {"date1", "2024/03/10 12:34:56"},
        {"size1", "10"},
        {"path2", Two() + "/sub/right.txt"},
        {"date2", "2024/03/10 12:34:56"},
        {"size2", "10"},
    };
    EXPECT_EQ(ReadJsonObject(lines[1]), expected);
    EXPECT_EQ(lines[3],
              "{\"summary\": {\"mode\": \"All\", \"total\": 3, \"failed\": 0, \"stopped\": false, "
              "\"message\": \"Synchronization  'New and Modified Files'  completed.      "
              "\\r\\n\\r\\nSucceed:   3  Files.\"}}");
    EXPECT_EQ(run.Error, "");
    EXPECT_EQ(run.Status, 0);
}

TEST_F(Sync, TsvRowsAndQuiet) {
    File("one/a", "a");
    const Ended run = OnPair({"sync", "--format=tsv"});
    EXPECT_EQ(run.Output,
              "code\tdirection\tpath1\tdate1\tsize1\tpath2\tdate2\tsize2\n"
              "11\t--> OK -->\t" +
                  One() + "/a\t2024/03/10 12:00:00\t1\t" + Two() + "/a\t2024/03/10 12:00:00\t1\n");
    File("one/b", "b");
    const Ended quiet = OnPair({"sync", "-q"});
    EXPECT_EQ(quiet.Output, "");
    EXPECT_EQ(Lines(quiet.Error), (Texts{"Synchronization  'New and Modified Files'  completed.",
                                         "", "Succeed:   1  Files."}));
    EXPECT_EQ(Content("two/b"), "b");
}

TEST_F(Sync, FailedRowsAreMarkedCountedAndGiveStatusOne) {
    File("one/good", "good");
    File("one/blocked", "file");
    MakeFolder("two/blocked");  // no file can stand where a folder is
    File("two/from two", "x");
    MakeFolder("one/from two");
    const Ended run = OnPair({"sync"});
    EXPECT_EQ(SortedLines(run.Output),
              (Texts{"--> Fail -->  blocked", "--> OK -->    good", "<-- Fail <--  from two"}));
    EXPECT_EQ(Lines(run.Error), (Texts{"Synchronization  'New and Modified Files'  completed.", "",
                                       "Succeed:   1  Files.", "Fail:   2  Files."}));
    EXPECT_EQ(run.Status, 1);
    EXPECT_EQ(Files("two"),
              (std::map<std::string, std::string>{{"good", "good"}, {"from two", "x"}}));

    const Texts lines = Lines(OnPair({"sync", "--mode=right", "--format=json"}).Output);
    ASSERT_EQ(lines.size(), 2u);
    std::map<std::string, std::string> row = ReadJsonObject(lines[0]);
    EXPECT_EQ(row["code"], "32");
    EXPECT_EQ(row["size1"], "");
    EXPECT_EQ(row["date1"], "1899/12/30 00:00:00");
    EXPECT_NE(lines[1].find("\"mode\": \"Right_to_Left\", \"total\": 1, \"failed\": 1, "),
              std::string::npos)
        << lines[1];
}

TEST_F(Sync, ASecondSyncHasNothingToDo) {
    MakeFiveRows();
    ASSERT_EQ(OnPair({"sync"}).Status, 0);
    const Texts before = State("one");
    const Ended again = OnPair({"sync"});
    EXPECT_EQ(again.Output, "");
    EXPECT_EQ(again.Status, 0);
    EXPECT_EQ(State("one"), before);
}

}  // namespace
}  // namespace cli
