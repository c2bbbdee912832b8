// What `compare` prints: rows in three formats, views, the summary and the exit status.
#include <unistd.h>

#include "cli/cli_fixture.h"
#include "cli/json_row.h"

namespace cli {
namespace {

class CompareOutput : public CliTest {};

const Texts kSummaryOfEach = {"New Files ( 2 )", "Modified Files ( 1 )",
                              "New and Modified Files ( 3 )", "Same Files ( 1 )"};

TEST_F(CompareOutput, TextPadsTheDirectionToThirteen) {
    MakeOneOfEach();
    const Ended run = OnPair({"compare"});
    EXPECT_EQ(run.Output,
              "Copy -->      left.txt\n"
              "<-- Copy      sub/right.txt\n"
              "<-- Replace   changed.txt\n");
    EXPECT_EQ(Lines(run.Error), kSummaryOfEach);
    EXPECT_EQ(run.Status, 1);
    EXPECT_EQ(OnPair({"compare", "--format", "text"}).Output, run.Output);
}

TEST_F(CompareOutput, TsvHoldsEveryTextOfTheRow) {
    MakeOneOfEach();
    const Ended run = OnPair({"compare", "--format=tsv"});
    EXPECT_EQ(run.Output,
              "code\tdirection\tpath1\tdate1\tsize1\tpath2\tdate2\tsize2\n"
              "11\tCopy -->\t" +
                  One() + "/left.txt\t2024/03/10 12:00:00\t9\t" + Two() +
                  "/left.txt\t00:00:00\t\n"
                  "12\t<-- Copy\t" +
                  One() + "/sub/right.txt\t1899/12/30 00:00:00\t\t" + Two() +
                  "/sub/right.txt\t2024/03/10 12:34:56\t10\n"
                  "22\t<-- Replace\t" +
                  One() + "/changed.txt\t2024/03/10 12:00:00\t3\t" + Two() +
                  "/changed.txt\t2024/03/10 13:00:00\t5\n");
    EXPECT_EQ(Lines(run.Error), kSummaryOfEach);
    EXPECT_EQ(run.Status, 1);
}

TEST_F(CompareOutput, JsonIsOneObjectALineAndTheSummaryLast) {
    MakeOneOfEach();
    const Ended run = OnPair({"compare", "--format=json"});
    const Texts lines = Lines(run.Output);
    ASSERT_EQ(lines.size(), 4u);
    const std::map<std::string, std::string> expected = {
        {"code", "12"},
        {"direction", "<-- Copy"},
        {"path1", One() + "/sub/right.txt"},
        {"date1", "1899/12/30 00:00:00"},
        {"size1", ""},
        {"path2", Two() + "/sub/right.txt"},
        {"date2", "2024/03/10 12:34:56"},
        {"size2", "10"},
    };
    EXPECT_EQ(ReadJsonObject(lines[1]), expected);
    EXPECT_NE(lines[1].find("\"code\": 12,"), std::string::npos) << "code is a number";
    EXPECT_EQ(ReadJsonObject(lines[0])["date2"], "00:00:00");
    EXPECT_EQ(ReadJsonObject(lines[2])["direction"], "<-- Replace");
    EXPECT_EQ(lines[3], R"({"summary": {"new": 2, "modified": 1, "same": 1, "stopped": false}})");
    EXPECT_EQ(run.Error, "");
    EXPECT_EQ(run.Status, 1);
}

TEST_F(CompareOutput, ViewsChooseTheRowsButNotTheStatus) {
    MakeOneOfEach();
    File("one/newer.txt", "newer", kNoon + kHour);
    File("two/newer.txt", "old", kNoon);
    const struct {
        std::string View;
        Texts Rows;
    } cases[] = {
        {"new", {"<-- Copy      sub/right.txt", "Copy -->      left.txt"}},
        {"chg", {"<-- Replace   changed.txt", "Replace -->   newer.txt"}},
        {"newchg",
         {"<-- Copy      sub/right.txt", "<-- Replace   changed.txt", "Copy -->      left.txt",
          "Replace -->   newer.txt"}},
        {"same", {"---/---/---   same.txt"}},
    };
    for (const auto& test : cases) {
        const Ended run = OnPair({"compare", "--view", test.View});
        EXPECT_EQ(SortedLines(run.Output), test.Rows) << test.View;
        EXPECT_EQ(run.Status, 1) << test.View;
    }
}

TEST_F(CompareOutput, EqualTreesGiveStatusZero) {
    for (const std::string side : {"one", "two"}) {
        File(side + "/a", side);
        File(side + "/.hidden/b", "size does not count" + side);
        MakeFolder(side + "/only in " + side);
    }
    const Ended run = OnPair({"compare"});
    EXPECT_EQ(run.Output, "");
    EXPECT_EQ(Lines(run.Error), (Texts{"New Files ( 0 )", "Modified Files ( 0 )",
                                       "New and Modified Files ( 0 )", "Same Files ( 2 )"}));
    EXPECT_EQ(run.Status, 0);
    EXPECT_EQ(SortedLines(OnPair({"compare", "--view=same"}).Output),
              (Texts{"---/---/---   .hidden/b", "---/---/---   a"}));
}

TEST_F(CompareOutput, NewRowsOfFolderOneComeFirstThenThoseOfFolderTwoThenTheModified) {
    for (const std::string name : {"a", "b", "c"}) {
        File("one/" + name + "1", "");
        File("two/" + name + "2", "");
        File("one/" + name + "3", "", kNoon);
        File("two/" + name + "3", "", kNoon + kHour);
    }
    std::string directions;
    for (const std::string& line : Lines(OnPair({"compare"}).Output)) directions += line.back();
    EXPECT_EQ(directions, "111222333");
}

TEST_F(CompareOutput, QuietLeavesTheSummaryOnly) {
    MakeOneOfEach();
    for (const std::string option : {"--quiet", "-q"}) {
        for (const std::string format : {"text", "tsv"}) {
            const Ended run = OnPair({"compare", option, "--format", format});
            EXPECT_EQ(run.Output, "") << format;
            EXPECT_EQ(Lines(run.Error), kSummaryOfEach) << format;
            EXPECT_EQ(run.Status, 1);
        }
        const Ended run = OnPair({"compare", option, "--format", "json"});
        EXPECT_EQ(
            run.Output,
            "{\"summary\": {\"new\": 2, \"modified\": 1, \"same\": 1, \"stopped\": false}}\n");
        EXPECT_EQ(run.Error, "");
    }
}

TEST_F(CompareOutput, DatesAreLocalTime) {
    const struct {
        std::string Zone;
        std::int64_t Time;
        std::string Text;
    } cases[] = {
        {"UTC0", kNoon, "2024/03/10 12:00:00"},
        {"IST-5:30", kNoon, "2024/03/10 17:30:00"},
        {"EST5", kNoon, "2024/03/10 07:00:00"},
        {"CET-1CEST,M3.5.0,M10.5.0/3", 1711846799, "2024/03/31 01:59:59"},  // the last second of
        {"CET-1CEST,M3.5.0,M10.5.0/3", 1711846800, "2024/03/31 03:00:00"},  // winter time
        {"CET-1CEST,M3.5.0,M10.5.0/3", 1729990800, "2024/10/27 02:00:00"},
        {"UTC0", -1, "1969/12/31 23:59:59"},
        {"UTC0", 0, "1970/01/01 00:00:00"},
        {"UTC0", 951782400, "2000/02/29 00:00:00"},
        {"UTC0", 4107542400, "2100/03/01 00:00:00"},
    };
    File("one/a", "");
    for (const auto& test : cases) {
        SetFileTime("one/a", test.Time);
        Launch launch = Command({"compare", "--format=json", One(), Two()});
        for (std::string& variable : launch.Environment) {
            if (variable.compare(0, 3, "TZ=") == 0) variable = "TZ=" + test.Zone;
        }
        const Texts lines = Lines(RunToEnd(launch).Output);
        ASSERT_EQ(lines.size(), 2u);
        EXPECT_EQ(ReadJsonObject(lines[0])["date1"], test.Text) << test.Zone;
    }
}

TEST_F(CompareOutput, TimesAreComparedExactlyAndShownToTheSecond) {
    File("one/a", "", kNoon, 500000001);
    File("two/a", "", kNoon, 500000000);
    EXPECT_EQ(OnPair({"compare"}).Output, "<-- Replace   a\n");
    SetFileTime("two/a", kNoon - 1, 999999999);
    EXPECT_EQ(OnPair({"compare"}).Output, "Replace -->   a\n");
    SetFileTime("two/a", kNoon, 500000001);
    EXPECT_EQ(OnPair({"compare"}).Output, "");
}

TEST_F(CompareOutput, SizesBeyondFourGigabytesAreWritten) {
    File("one/big", "");
    ASSERT_EQ(::truncate(Path("one/big").c_str(), 5'000'000'000), 0);
    const Texts lines = Lines(OnPair({"compare", "--format=json"}).Output);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(ReadJsonObject(lines[0])["size1"], "5000000000");
}

}  // namespace
}  // namespace cli
