// Names are bytes: how each format writes them, and that they come back as they were.
#include "cli/cli_fixture.h"

namespace cli {
namespace {

struct OddName {
    std::string Name, Tsv, Json, Terminal;
};

const std::vector<OddName> kOddNames = {
    {"line\nfeed", "line\\nfeed", "line\\nfeed", "line\\x0afeed"},
    {"tab\tand return\r", "tab\\tand return\\r", "tab\\tand return\\r", "tab\\x09and return\\x0d"},
    {"back\\slash", "back\\\\slash", "back\\\\slash", "back\\slash"},
    {"quote\"s '", "quote\"s '", "quote\\\"s '", "quote\"s '"},
    {"\x1b[31m \x01\x7f", "\x1b[31m \x01\x7f", "\\u001b[31m \\u0001\\u007f",
     "\\x1b[31m \\x01\\x7f"},
    {"c1 \xc2\x9b", "c1 \xc2\x9b", "c1 \\u009b", "c1 \\xc2\\x9b"},
    {"turned \xe2\x80\xae", "turned \xe2\x80\xae", "turned \\u202e", "turned \\xe2\\x80\\xae"},
    {"bytes \xff\xe9", "bytes \xff\xe9", "bytes \\udcff\\udce9", "bytes \\xff\\xe9"},
    {"cut \xe2\x82", "cut \xe2\x82", "cut \\udce2\\udc82", "cut \\xe2\\x82"},
    {"half \xed\xb3\xbf", "half \xed\xb3\xbf", "half \\udced\\udcb3\\udcbf",
     "half \\xed\\xb3\\xbf"},
    {"\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80", "\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80",
     "\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80", "\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80"},
    {" blanks ", " blanks ", " blanks ", " blanks "},
    {"--dash=", "--dash=", "--dash=", "--dash="},
};

class Names : public CliTest {
  protected:
    // One run for each name, the file and both folders bearing it.
    Ended OnName(const std::string& name, Texts arguments, bool terminal = false) const {
        arguments.insert(arguments.end(), {"--", "1" + name, "2" + name});
        Launch launch = Command(arguments);
        if (terminal) launch.Output = Sink::Terminal;
        return Cli(launch);
    }
};

TEST_F(Names, AreWrittenAsTheFormatAndATerminalNeedIt) {
    for (const auto& [name, tsv, json, terminal] : kOddNames) {
        File("1" + name + "/" + name, "");
        MakeFolder("2" + name);
        EXPECT_EQ(OnName(name, {"compare"}).Output, "Copy -->      " + name + "\n");
        EXPECT_EQ(Lines(OnName(name, {"compare", "--format=tsv"}).Output).at(1),
                  "11\tCopy -->\t" + Path("1") + tsv + "/" + tsv + "\t2024/03/10 12:00:00\t0\t" +
                      Path("2") + tsv + "/" + tsv + "\t00:00:00\t");
        EXPECT_EQ(Lines(OnName(name, {"compare", "--format=json"}).Output).at(0),
                  R"({"code": 11, "direction": "Copy -->", "path1": ")" + Path("1") + json + "/" +
                      json + R"(", "date1": "2024/03/10 12:00:00", "size1": "0", "path2": ")" +
                      Path("2") + json + "/" + json + R"(", "date2": "00:00:00", "size2": ""})");
        EXPECT_EQ(OnName(name, {"compare"}, true).Terminal, "Copy -->      " + terminal + "\r\n");
        EXPECT_EQ(OnName(name, {"compare", "--format=tsv"}, true)
                      .Terminal.find_first_of("\x1b\x01\x7f\xff"),
                  std::string::npos);
    }
}

TEST_F(Names, AreTakenByDirectionAndCopied) {
    for (const OddName& odd : kOddNames) {
        File("1" + odd.Name + "/" + odd.Name, "content");
        MakeFolder("2" + odd.Name);
        EXPECT_EQ(OnName(odd.Name, {"sync", "--direction", odd.Name + "=none"}).Output, "");
        EXPECT_EQ(OnName(odd.Name, {"sync"}).Output, "--> OK -->    " + odd.Name + "\n");
        EXPECT_EQ(Content("2" + odd.Name + "/" + odd.Name), "content");
    }
}

}  // namespace
}  // namespace cli
