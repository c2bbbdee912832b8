// Names are bytes: whatever the file system holds goes through comparison, synchronisation and
// every format unharmed, at any depth.
#include <algorithm>

#include "cli/cli_fixture.h"
#include "cli/json_row.h"

namespace cli {
namespace {

class Names : public CliTest {};

const Texts& OddNames() {
    static const Texts kNames = {
        "new\nline",
        "tab\tin the middle",
        "back\\slash",
        "\\n",
        "carriage\r return",
        "\n",
        " ",
        " leading blank",
        "trailing blank ",
        "quote\"s 'n' all",
        "\x01\x1f\x7f control",
        "\x1b[31m red",
        "\xc2\x9b"
        "31m red",
        "\xff\xfe not UTF-8",
        "cut short \xe2\x82",
        "half a pair \xed\xb3\xbf",
        "overlong \xc0\xaf",
        "beyond \xf4\x90\x80\x80",
        "latin1 \xe9",
        "\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80",
        "right \xe2\x80\xae to left",
        "a,b=c;d|e&f",
        "-dash",
        "...",
        "con",
        std::string(255, 'n'),
        std::string(127, '\n') + std::string(128, '\xfe'),
    };
    return kNames;
}

std::string TsvField(const std::string& text) {
    std::string field;
    for (const char character : text) {
        switch (character) {
            case '\t':
                field += "\\t";
                break;
            case '\n':
                field += "\\n";
                break;
            case '\r':
                field += "\\r";
                break;
            case '\\':
                field += "\\\\";
                break;
            default:
                field += character;
        }
    }
    return field;
}

TEST_F(Names, GoThroughComparisonInEveryFormat) {
    Texts text, tsv, paths;
    for (const std::string& name : OddNames()) {
        File("one/" + name, "");
        File("two/sub \n\xff/" + name, "");
        const std::string other = "sub \n\xff/" + name;
        text.push_back("Copy -->      " + name + "\n");
        text.push_back("<-- Copy      " + other + "\n");
        tsv.push_back("11\tCopy -->\t" + TsvField(One() + "/" + name) +
                      "\t2024/03/10 12:00:00\t0\t" + TsvField(Two() + "/" + name) + "\t00:00:00\t");
        tsv.push_back("12\t<-- Copy\t" + TsvField(One() + "/" + other) +
                      "\t1899/12/30 00:00:00\t\t" + TsvField(Two() + "/" + other) +
                      "\t2024/03/10 12:00:00\t0");
        paths.push_back(One() + "/" + name + " | " + Two() + "/" + name);
        paths.push_back(One() + "/" + other + " | " + Two() + "/" + other);
    }
    // Rows of names with line feeds cannot be told apart by lines: each must stand there somewhere,
    // and all together must make up the length.
    const std::string rows = OnPair({"compare"}).Output;
    std::size_t length = 0;
    for (const std::string& row : text) {
        EXPECT_NE(rows.find(row), std::string::npos) << row;
        length += row.size();
    }
    EXPECT_EQ(rows.size(), length);

    Texts tsvRows = Lines(OnPair({"compare", "--format=tsv"}).Output);
    ASSERT_FALSE(tsvRows.empty());
    tsvRows.erase(tsvRows.begin());
    std::sort(tsvRows.begin(), tsvRows.end());
    std::sort(tsv.begin(), tsv.end());
    EXPECT_EQ(tsvRows, tsv);

    Texts jsonRows = Lines(OnPair({"compare", "--format=json"}).Output);
    ASSERT_FALSE(jsonRows.empty());
    jsonRows.pop_back();
    for (std::string& row : jsonRows) {
        auto members = ReadJsonObject(row);
        row = members["path1"] + " | " + members["path2"];
    }
    std::sort(jsonRows.begin(), jsonRows.end());
    std::sort(paths.begin(), paths.end());
    EXPECT_EQ(jsonRows, paths);
}

TEST_F(Names, GoThroughSynchronisation) {
    std::map<std::string, std::string> expected;
    for (const std::string& name : OddNames()) {
        File("one/" + name, "1" + name);
        File("two/deep \xfe/" + name, "2" + name);
        File("one/changed\n/" + name, "newer" + name, kNoon + kHour);
        File("two/changed\n/" + name, "older" + name);
        expected[name] = "1" + name;
        expected["deep \xfe/" + name] = "2" + name;
        expected["changed\n/" + name] = "newer" + name;
    }
    const Ended run = OnPair({"sync", "--format=json"});
    EXPECT_EQ(run.Status, 0) << run.Error;
    EXPECT_EQ(Lines(run.Output).size(), 3 * OddNames().size() + 1);
    EXPECT_EQ(Files("one"), expected);
    EXPECT_EQ(Files("two"), expected);
    EXPECT_EQ(OnPair({"compare"}).Status, 0);
}

TEST_F(Names, AreTakenByDirectionAndExport) {
    Texts arguments = {"sync", "--dry-run"};
    for (const std::string& name : OddNames()) {
        File("one/" + name, "");
        arguments.insert(arguments.end(), {"--direction", name + "=none"});
    }
    const Ended run = OnPair(arguments);
    EXPECT_EQ(run.Output, "");
    EXPECT_EQ(run.Status, 0) << run.Error;

    ASSERT_EQ(Cli({"export", "new", One(), Two(), "report \xff\n"}).Status, 0);
    const std::string report = Content("report \xff\n");
    for (const std::string& name : OddNames()) {
        EXPECT_NE(report.find("\r\n" + One() + "/" + name + "\r\n"), std::string::npos) << name;
    }
}

TEST_F(Names, OfTheFoldersThemselvesMayBeOddToo) {
    for (const std::string& name : OddNames()) {
        if (name.size() == 255) continue;
        const std::string one = "1" + name, two = "2" + name;
        File(one + "/a", "a");
        MakeFolder(two);
        const Ended run = Cli({"sync", "--format=tsv", "--", one, two});
        EXPECT_EQ(Lines(run.Output).back(),
                  "11\t--> OK -->\t" + TsvField(Path(one + "/a")) + "\t2024/03/10 12:00:00\t1\t" +
                      TsvField(Path(two + "/a")) + "\t2024/03/10 12:00:00\t1");
        EXPECT_EQ(Content(two + "/a"), "a");
    }
}

TEST_F(Names, DoNotSteerATerminal) {
    for (const std::string& name : OddNames()) File("one/" + name, "");
    for (const std::string format : {"text", "tsv"}) {
        Launch launch = Command({"compare", "--format", format, One(), Two()});
        launch.Output = Sink::Terminal;
        const std::string shown = RunToEnd(launch).Terminal;
        EXPECT_EQ(Lines(shown).size(), OddNames().size() + (format == "tsv" ? 1 : 0)) << format;
        for (const std::string steering :
             {"\x01", "\x1b", "\x7f", "\r ", "\xc2\x9b", "\xe2\x80\xae"}) {
            EXPECT_EQ(shown.find(steering), std::string::npos) << format << shown;
        }
        EXPECT_NE(shown.find("\xc3\xa9\xe2\x82\xac"), std::string::npos) << "letters stay";
    }
}

TEST_F(Names, PathsMayBeLongerThanTheSystemTakesAtOnce) {
    const struct {
        std::string Name;
        int Levels;
    } cases[] = {
        {"d", 100},                      // many levels
        {std::string(200, 'x'), 25},     // 5,000 bytes
        {std::string(255, '\xfd'), 60},  // 15,000 bytes
    };
    for (const auto& test : cases) {
        std::string path;
        for (int level = 0; level < test.Levels; ++level) path += test.Name + "/";
        path += "file";
        File("one/" + path, "content");
        EXPECT_EQ(OnPair({"compare"}).Output, "Copy -->      " + path + "\n");
        const Texts json = Lines(OnPair({"compare", "--format=json"}).Output);
        ASSERT_GE(json.size(), 2u);
        EXPECT_EQ(ReadJsonObject(json[0])["path2"], Two() + "/" + path);

        const Ended run = OnPair({"sync", "--format=tsv"});
        EXPECT_EQ(run.Status, 0) << run.Error;
        EXPECT_EQ(Lines(run.Output).back(), "11\t--> OK -->\t" + One() + "/" + path +
                                                "\t2024/03/10 12:00:00\t7\t" + Two() + "/" + path +
                                                "\t2024/03/10 12:00:00\t7");
        EXPECT_EQ(Content("two/" + path), "content");
        EXPECT_EQ(OnPair({"compare"}).Status, 0);

        File("two/" + path, "changed", kNoon + kHour);
        EXPECT_EQ(OnPair({"sync"}).Output, "<-- OK <--    " + path + "\n");
        EXPECT_EQ(Content("one/" + path), "changed");
    }
}

}  // namespace
}  // namespace cli
