// What `compare` prints: rows in three formats, views, the summary and the exit status.
#include <sstream>

#include "cli/cli_fixture.h"

namespace cli {
namespace {

using Compare = CliTest;

TEST_F(Compare, ViewsChooseTheRowsAndQuietLeavesTheSummary) {
    MakeRows();
    const std::string created = "Copy -->      left.txt\n<-- Copy      sub/right.txt\n",
                      changed = "<-- Replace   changed.txt\n",
                      captions =
                          "New Files ( 2 )\nModified Files ( 1 )\n"
                          "New and Modified Files ( 3 )\nSame Files ( 1 )\n";
    Expect("compare one two", 1, created + changed, captions);
    Expect("compare --format text one --view=new two", 1, created, captions);
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
    const std::string letters =
        "sub/ ~\xc2\xa0\xe0\xa0\x80\xe2\x80\xaf\xed\x9f\xbf\xf0\x90\x80\x80\xf4\x8f\xbf\xbf";
    const std::string steering =
        "\x1b\x7f\xc2\x80\xc2\x9f\xd8\x9c\xe2\x80\x8e\xe2\x80\x8f"
        "\xe2\x80\xa8\xe2\x80\xae\xe2\x81\xa6\xe2\x81\xa9";
    const std::string broken =
        "\xff\xc1\xbf\xe0\x9f\xbf\xed\xb3\xbf\xf0\x8f\xbf\xbf\xf4\x90\x80\x80\xe2\x82";
    const auto escaped = [](const char* start, const std::string& bytes) {
        std::ostringstream text;
        for (const unsigned char byte : bytes) text << start << std::hex << int(byte);
        return text.str();
    };
    const std::string rest = steering + broken, shown = escaped("\\x", rest);
    const struct {
        const char* Format;
        Sink Output;
        std::string Name;
    } cases[] = {
        {"text", Sink::File, "\n\t\r\\\"" + rest + "\n"},
        {"text", Sink::Terminal, "\\x0a\\x09\\x0d\\\"" + shown + "\r\n"},
        {"tsv", Sink::File, "\\n\\t\\r\\\\\"" + rest + "\t"},
        {"tsv", Sink::Terminal, "\\n\\t\\r\\\\\"" + shown + "\t"},
        {"json", Sink::File,
         "\\n\\t\\r\\\\\\\"\\u001b\\u007f\\u0080\\u009f"
         "\\u061c\\u200e\\u200f\\u2028\\u202e\\u2066\\u2069" +
             escaped("\\udc", broken) + '"'},
    };
    MakeFolder("2 ");  // a blank that belongs to the name
    File("one/" + letters + "\n\t\r\\\"" + rest, "");
    for (const auto& [format, output, name] : cases) {
        Launch launch = Command({"compare", "one", "2 ", "--format", format});
        launch.Output = output;
        const Ended run = Cli(launch);
        EXPECT_NE((run.Output + run.Terminal).find(letters + name), std::string::npos) << format;
    }
}

}  // namespace
}  // namespace cli
