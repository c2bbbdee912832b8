#include "cli/cli_fixture.h"

#include <filesystem>

namespace cli {

namespace fs = std::filesystem;

CliTest::CliTest() {
    MakeFolder("one");
    MakeFolder("two");
}

void CliTest::File(const std::string& relative, const std::string& content,
                   std::int64_t time) const {
    WriteFile(relative, content, {time + platform::kUnixOrigin, 0});
}

std::string CliTest::Content(const std::string& relative) const {
    std::error_code none;  // a pipe would be waited for
    return fs::is_regular_file(Path(relative), none) ? Read(relative).value() : "(none)";
}

std::map<std::string, std::string> CliTest::Files(const std::string& relative) const {
    std::map<std::string, std::string> files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(Path(relative))) {
        const std::string name = entry.path().lexically_relative(Path(relative));
        if (entry.is_regular_file()) files[name] = Content(fs::path(relative) / name);
    }
    return files;
}

void CliTest::MakeRows() const {
    fs::remove_all(One());
    fs::remove_all(Two());
    File("one/left.txt", "1");
    File("two/sub/right.txt", "22");
    File("one/changed.txt", "1");
    File("two/changed.txt", "22", kNoon + kHour);
    File("one/same.jpg", "1");
    File("two/same.jpg", "22");
}

Launch CliTest::Command(const Texts& arguments) const {
    Launch launch;
    launch.Arguments = arguments;
    launch.Environment = {"XDG_CONFIG_HOME=" + Path("config"), "TZ=UTC0"};
    launch.WorkFolder = Path("");
    return launch;
}

Ended CliTest::Cli(const Launch& launch) const {
    const Ended run = Running(launch).Wait();
    EXPECT_EQ(run.Signal, 0) << run.Error;
    return run;
}

Ended CliTest::CliOnTerminal(const std::string& arguments, const std::string& typed) const {
    Launch launch = Command(Words(arguments));
    launch.Input = launch.Output = launch.Error = Sink::Terminal;
    launch.Typed = typed;
    return Cli(launch);
}

void CliTest::Expect(const std::string& arguments, int status, const std::string& output,
                     const std::string& error) const {
    const Ended run = Cli(arguments);
    EXPECT_EQ(run.Status, status) << arguments;
    EXPECT_EQ(run.Output, output) << arguments;
    EXPECT_EQ(run.Error, error) << arguments;
}

void CliTest::ExpectRefusal(const std::string& arguments, int status) const {
    const Ended run = Cli(arguments);
    EXPECT_EQ(run.Status, status) << arguments;
    EXPECT_EQ(run.Output, "") << arguments;
    EXPECT_EQ(Lines(run.Error).size(), 1u) << arguments << run.Error;
}

std::string CliTest::SlotFile(int slot) {
    return "config/varnel/SOFTWARE/SystemInfoFolderCS1993/P" + std::to_string(slot) + "/default";
}

void CliTest::OpenToAll() const {
    fs::permissions(Path(""), fs::perms(0777));
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(Path("")))
        if (entry.is_directory()) fs::permissions(entry.path(), fs::perms(0777));
}

}  // namespace cli
