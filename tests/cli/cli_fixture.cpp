#include "cli/cli_fixture.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <sys/stat.h>

namespace cli {

namespace fs = std::filesystem;

namespace {

std::string ReadWhole(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string TimeText(const struct stat& status) {
    char text[40];
    std::snprintf(text, sizeof text, "%lld.%09ld", static_cast<long long>(status.st_mtim.tv_sec),
                  status.st_mtim.tv_nsec);
    return text;
}

}  // namespace

CliTest::CliTest() {
    MakeFolder("one");
    MakeFolder("two");
}

std::string CliTest::Path(const std::string& relative) const {
    return temp_.Path(relative);
}

void CliTest::MakeFolder(const std::string& relative) const {
    temp_.MakeFolder(relative);
}

void CliTest::File(const std::string& relative, const std::string& content, std::int64_t time,
                   std::int32_t nanoseconds) const {
    temp_.WriteFile(relative, content, {time + platform::kUnixOrigin, nanoseconds});
}

void CliTest::SetFileTime(const std::string& relative, std::int64_t time,
                          std::int32_t nanoseconds) const {
    temp_.SetTime(relative, {time + platform::kUnixOrigin, nanoseconds});
}

std::string CliTest::Content(const std::string& relative) const {
    return temp_.Read(relative).value_or("(none)");
}

bool CliTest::Exists(const std::string& relative) const {
    return temp_.Exists(relative);
}

std::string CliTest::TimeOf(const std::string& relative) const {
    struct stat status;
    return ::lstat(Path(relative).c_str(), &status) == 0 ? TimeText(status) : "(none)";
}

Texts CliTest::State(const std::string& relative) const {
    Texts state;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(Path(relative))) {
        struct stat status;
        if (::lstat(entry.path().c_str(), &status) != 0) continue;
        std::string line =
            entry.path().string() + " " + std::to_string(status.st_mode) + " " + TimeText(status);
        if (S_ISREG(status.st_mode)) line += " " + ReadWhole(entry.path());
        state.push_back(line);
    }
    std::sort(state.begin(), state.end());
    return state;
}

std::map<std::string, std::string> CliTest::Files(const std::string& relative) const {
    std::map<std::string, std::string> files;
    const std::string root = Path(relative);
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root)) {
        if (!entry.is_regular_file()) continue;
        files[entry.path().string().substr(root.size() + 1)] = ReadWhole(entry.path());
    }
    return files;
}

void CliTest::MakeOneOfEach() const {
    File("one/left.txt", "left text");
    File("two/sub/right.txt", "right text", kNoon + 34 * 60 + 56);
    File("one/changed.txt", "old");
    File("two/changed.txt", "newer", kNoon + kHour);
    File("one/same.txt", "same");
    File("two/same.txt", "SAME?");
}

void CliTest::MakeFiveRows() const {
    MakeOneOfEach();
    File("one/turn.txt", "turned new", kNoon + kHour);
    File("two/turn.txt", "turned old");
}

Launch CliTest::Command(const Texts& arguments) const {
    Launch launch;
    launch.Arguments = arguments;
    launch.Environment = {"XDG_CONFIG_HOME=" + Path("config"), "HOME=" + Path("home"), "TZ=UTC0",
                          "TERM=xterm"};
    launch.WorkFolder = Path("");
    return launch;
}

Ended CliTest::Cli(const Texts& arguments) const {
    const Ended run = RunToEnd(Command(arguments));
    EXPECT_FALSE(run.TimedOut);
    EXPECT_EQ(run.Signal, 0) << run.Error;
    return run;
}

Ended CliTest::OnPair(Texts arguments) const {
    arguments.push_back(One());
    arguments.push_back(Two());
    return Cli(arguments);
}

std::string CliTest::Slot(int slot) const {
    const fs::path path = Store() + "/P" + std::to_string(slot) + "/default";
    return fs::is_regular_file(path) ? ReadWhole(path) : "(none)";
}

void CliTest::SetSlot(int slot, const std::string& value) const {
    const fs::path folder = Store() + "/P" + std::to_string(slot);
    fs::create_directories(folder);
    std::ofstream(folder / "default", std::ios::binary) << value;
}

void CliTest::OpenToAll() const {
    fs::permissions(Path(""), fs::perms(0777));
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(Path(""))) {
        if (entry.is_directory()) fs::permissions(entry.path(), fs::perms(0777));
    }
}

}  // namespace cli
