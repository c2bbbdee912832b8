// Trees in which a path is not what it seems: something else where files should come, links and
// second names, roots inside each other, hostile names.
#include <algorithm>
#include <filesystem>
#include <fstream>

#include "cli/cli_fixture.h"

namespace reliability {
namespace {

namespace fs = std::filesystem;
using cli::kHour;
using cli::kNoon;
using Contents = std::map<std::string, std::string>;

using OddPlaces = cli::CliTest;

// A link to a folder is that folder: a row below it names what is reached through it.
TEST_F(OddPlaces, AFileComesIntoItsOwnPlaceAloneAndWhatElseIsInItsWayStays) {
    const std::pair<std::string, std::string> links[] = {
        {"file", "link"}, {"folder", "link to folder"}, {"none", "link to none"}, {"", "way"}};
    for (const auto& [to, name] : links)
        fs::create_symlink("../outside/" + to, Path("two/" + name));
    for (const std::string name :
         {"folder", "link", "link to folder", "link to none", "way/both", "way/new"})
        File("one/" + name, "new", kNoon + kHour);
    for (const char* name :
         {"two/folder/inside", "outside/both", "outside/file", "outside/folder/inside"})
        File(name, "old");
    fs::create_hard_link(Path("outside/both"), Path("other name of both"));
    std::ifstream held(Path("outside/both"));
    cli::Texts rows = cli::Lines(Cli("sync one two --mode=left").Output);
    std::sort(rows.begin(), rows.end());
    EXPECT_EQ(rows, (cli::Texts{"--> Fail -->  folder", "--> Fail -->  link",
                                "--> Fail -->  link to folder", "--> Fail -->  link to none",
                                "--> OK -->    way/both", "--> OK -->    way/new"}));
    EXPECT_EQ(
        Files("outside"),
        (Contents{{"both", "new"}, {"file", "old"}, {"folder/inside", "old"}, {"new", "new"}}));
    EXPECT_EQ(Content("two/folder/inside"), "old");
    for (const auto& [to, name] : links) EXPECT_TRUE(fs::is_symlink(Path("two/" + name))) << name;
    EXPECT_EQ(Content("other name of both"), "old");
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(held), {}), "old");
}

TEST_F(OddPlaces, HostileNamesReachNothingOutsideAndMessagesSteerNoTerminal) {
    const std::string steering = "\x1b]0;t\x07\r\nall is well\xe2\x80\xae";
    const cli::Texts names = {"..\\..\\outside",      "C:\\outside", "...",
                              "$(touch outside)",     "~",           "-rf",
                              "..\xc0\xaf..\xc0\xaf", ".varnel~",    steering};
    for (const std::string& name : names) {
        File("one/" + name, "1");
        File("two/" + name + "+/" + name, "2");
    }
    EXPECT_EQ(Cli("sync one two").Status, 0);
    EXPECT_EQ(Files("one"), Files("two"));
    EXPECT_EQ(Files("one").size(), 2 * names.size());
    const fs::directory_iterator around(Path(""));
    EXPECT_EQ(std::distance(begin(around), end(around)), 3) << "one, two and config";

    OpenToAll();
    fs::permissions(Path("two/" + steering + '+'), fs::perms(0));
    cli::Launch launch = Command({"compare", "-q", "one", "two"});
    launch.AsNobody = true;
    EXPECT_NE(Cli(launch).Error.find(steering), std::string::npos) << "a file gets the bytes";
    launch.Error = cli::Sink::Terminal;
    const std::string shown = Cli(launch).Terminal;
    for (const std::string part : {"\x1b", "\x07", "\nall", "\xe2\x80\xae"})
        EXPECT_EQ(shown.find(part), std::string::npos) << shown;
    EXPECT_NE(shown.find("all is well"), std::string::npos) << shown;
}

// Each sync has a finite list: it was made before the first copy.
TEST_F(OddPlaces, RootsInEachOtherOrTheSameEndAndNoFileIsCopiedOntoItself) {
    fs::create_symlink("one", Path("link"));
    for (const std::string roots :
         {"one one/in", "one/in one", "one link", "two/../one one/.", "one two"}) {
        const std::size_t growth = roots.find("/in") == roots.npos ? 0 : 3;
        SCOPED_TRACE(roots);
        fs::remove_all(One());
        for (const std::string name : {"a", "in/b", "in/sub/c"})
            File("one/" + name, name.substr(name.size() - 1));
        fs::remove(Path("two/a"));
        fs::create_hard_link(Path("one/a"), Path("two/a"));
        for (std::size_t round = 0, files = 3; round < 3; ++round) {
            EXPECT_EQ(Cli("sync " + roots).Status, 0);
            Cli("sync --view=same --direction a=right " + roots);  // turned by hand
            const Contents now = Files("one");
            EXPECT_LE(now.size(), 3 + growth * files) << round;
            files = now.size();
            for (const auto& [name, content] : now)
                EXPECT_EQ(content, name.substr(name.size() - 1)) << name;
        }
        EXPECT_TRUE(growth != 0 || fs::equivalent(Path("one/a"), Path("two/a")));
    }
}

}  // namespace
}  // namespace reliability
