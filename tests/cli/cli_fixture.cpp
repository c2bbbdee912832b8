#include "cli/cli_fixture.h"

#include <cstdlib>
#include <filesystem>

#include <unistd.h>

namespace cli {

namespace fs = std::filesystem;

CliTest::CliTest() {
    fs::current_path(Path());
    ::unsetenv("XDG_CONFIG_HOME");
    ::setenv("HOME", Path().c_str(), 1);
    ::setenv("TZ", "UTC0", 1);
    MakeFolder("one");
    MakeFolder("two");
}

void CliTest::File(const std::string& path, const std::string& content, std::int64_t time) const {
    WriteFile(path, content, {time + platform::kUnixOrigin, 0});
}

std::string CliTest::Content(const std::string& path) const {
    std::error_code none;  // a pipe would be waited for
    return fs::is_regular_file(path, none) ? Read(path).value() : "(none)";
}

std::map<std::string, std::string> CliTest::Files(const std::string& folder) const {
    std::map<std::string, std::string> files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file())
            files[entry.path().lexically_relative(folder)] = Content(entry.path());
    return files;
}

void CliTest::MakeRows() const {
    fs::remove_all("one");
    fs::remove_all("two");
    File("one/left.txt", "1");
    File("two/sub/right.txt", "22");
    File("one/changed.txt", "1");
    File("two/changed.txt", "22", kNoon + kHour);
    File("one/same.jpg", "1");
    File("two/same.jpg", "22");
}

void CliTest::Expect(const std::string& arguments, int status, const std::string& output,
                     const std::string& error) {
    const Ended run = Cli(arguments);
    EXPECT_EQ(run.Status, status) << arguments;
    EXPECT_EQ(run.Output, output) << arguments;
    EXPECT_EQ(run.Error, error) << arguments;
}

void CliTest::BecomeNobody() {
    constexpr uid_t kNobody = 65534;
    const std::string give = "chown -R " + std::to_string(kNobody) + " .";
    if (::geteuid() == 0 &&
        (std::system(give.c_str()) != 0 || ::setgid(kNobody) != 0 || ::setuid(kNobody) != 0))
        ::_exit(126);
}

std::string CliTest::SlotFile(int slot) {
    return ".config/varnel/SOFTWARE/SystemInfoFolderCS1993/P" + std::to_string(slot) + "/default";
}

}  // namespace cli
