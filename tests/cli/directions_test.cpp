// `sync` with directions given row by row, and `sync --dry-run`.
#include "cli/cli_fixture.h"

namespace cli {
namespace {

class Directions : public CliTest {};

TEST_F(Directions, DirectionsAreGivenBeforeTheSync) {
    MakeFiveRows();
    File("one/a=b", "left", kNoon + kHour);
    File("two/a=b", "right");
    const Ended run =
        OnPair({"sync", "--direction", "changed.txt=right", "--direction=turn.txt=none",
                "--direction", "a=b=left", "--direction=sub/right.txt=none"});
    EXPECT_EQ(SortedLines(run.Output),
              (Texts{"--> OK -->    changed.txt", "--> OK -->    left.txt", "<-- OK <--    a=b"}));
    EXPECT_EQ(run.Status, 0);
    EXPECT_EQ(Content("two/changed.txt"), "old") << "the older file won, as told";
    EXPECT_EQ(Content("two/turn.txt"), "turned old");
    EXPECT_EQ(Content("one/a=b"), "right");
    EXPECT_FALSE(Exists("one/sub"));
}

TEST_F(Directions, SameRowsAreSynchronisedWhereADirectionIsGiven) {
    MakeOneOfEach();
    const Ended run = OnPair({"sync", "--view=same", "--direction=same.txt=left"});
    EXPECT_EQ(run.Output, "<-- OK <--    same.txt\n");
    EXPECT_EQ(Lines(run.Error),
              (Texts{"Synchronization  'Same Files'  completed.", "", "Succeed:   1  Files."}));
    EXPECT_EQ(Content("one/same.txt"), "SAME?");
    EXPECT_EQ(Content("one/changed.txt"), "old");
}

TEST_F(Directions, ADirectionForNoRowOfTheViewCopiesAndRemembersNothing) {
    MakeOneOfEach();
    const Texts before = State("");
    const Texts wrong[] = {
        {"--direction=missing.txt=right"},
        {"--direction=same.txt=right"},                               // a row of another view
        {"--direction=left.txt=none", "--direction=right.txt=left"},  // the second one is wrong
        {"--view=chg", "--direction=left.txt=right"},
        {"--direction=left.txt=left"},  // what the panel does not offer
        {"--dry-run", "--direction=missing.txt=right"},
    };
    for (const Texts& options : wrong) {
        Texts arguments = {"sync"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const Ended run = OnPair(arguments);
        EXPECT_EQ(run.Status, 2) << options.back();
        EXPECT_EQ(run.Output, "") << options.back();
        EXPECT_EQ(Lines(run.Error).size(), 1u) << run.Error;
        EXPECT_EQ(State(""), before) << options.back();
    }
}

TEST_F(Directions, DryRunPrintsWhatTheModeWouldActOnAndChangesNothing) {
    MakeFiveRows();
    const Texts before = State("one");
    const Texts beforeTwo = State("two");
    const struct {
        Texts Options;
        std::string Output;
    } cases[] = {
        {{"--view=new"}, "Copy -->      left.txt\n<-- Copy      sub/right.txt\n"},
        {{"--mode=left", "--view=newchg"}, "Copy -->      left.txt\nReplace -->   turn.txt\n"},
        {{"--mode=right"}, "<-- Copy      sub/right.txt\n<-- Replace   changed.txt\n"},
        {{"--mode=right", "--direction=changed.txt=none"}, "<-- Copy      sub/right.txt\n"},
        {{"--view=same"}, ""},
    };
    for (const auto& test : cases) {
        Texts arguments = {"sync", "--dry-run"};
        arguments.insert(arguments.end(), test.Options.begin(), test.Options.end());
        const Ended run = OnPair(arguments);
        EXPECT_EQ(run.Output, test.Output) << test.Options[0];
        EXPECT_EQ(run.Status, 0) << test.Options[0];
    }
    const Texts lines = Lines(OnPair({"sync", "--dry-run", "--format=json"}).Output);
    ASSERT_EQ(lines.size(), 5u);
    EXPECT_EQ(lines[4],
              "{\"summary\": {\"mode\": \"All\", \"total\": 4, \"failed\": 0, \"stopped\": false, "
              "\"message\": \"\"}}");
    EXPECT_EQ(State("one"), before);
    EXPECT_EQ(State("two"), beforeTwo);
}

}  // namespace
}  // namespace cli
