// What every test of the program starts from: a temporary folder with the two folders to compare,
// "one" and "two". The test and the program work in it, so paths are relative to it, and it is
// their home: the history is kept in its ".config".
#pragma once

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <map>
#include <string>

#include <gtest/gtest.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include "fakes/temp_folder.h"

namespace cli {

namespace fs = std::filesystem;

constexpr std::int64_t kNoon = 1710072000;  // 2024-03-10 12:00:00 UTC
constexpr std::int64_t kHour = 3600;

struct Ended {
    int Status = 0;  // the exit status; below 0 the signal that ended it
    std::string Output, Error;

    bool operator==(const Ended&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const Ended& run) {
        return out << "status " << run.Status << "\n" << run.Output << "\n" << run.Error;
    }
};

class CliTest : public testing::Test, protected fakes::TempFolder {
  protected:
    CliTest() {
        fs::current_path(Path());
        ::unsetenv("XDG_CONFIG_HOME");
        ::setenv("HOME", Path().c_str(), 1);
        ::setenv("TZ", "UTC0", 1);
        const std::string programs = fs::path(VARNEL_CLI).parent_path();
        ::setenv("PATH", (programs + ":/usr/sbin:/usr/bin:/sbin:/bin").c_str(), 1);
        const bool isRoot = ::geteuid() == 0;
        ::setenv("unprivileged", isRoot ? "setpriv --inh-caps=-all --bounding-set=-all" : "", 1);
        MakeFolder("one");
        MakeFolder("two");
    }
    ~CliTest() override { fs::current_path("/"); }  // out of the folder that goes

    // As the program shows them.
    std::string One() const { return Path("one"); }
    std::string Two() const { return Path("two"); }

    // Missing folders above it are made. The time counts in seconds from 1970, UTC.
    void File(const std::string& path, const std::string& content,
              std::int64_t time = kNoon) const {
        WriteFile(path, content, fakes::At(time));
    }

    // "(none)" when there is no file; a pipe would be waited for.
    std::string Content(const std::string& path) const {
        return fs::is_regular_file(fs::status(path)) ? Read(path).value() : "(none)";
    }

    // The contents of all files below a folder, by their paths in it.
    std::map<std::string, std::string> Files(const std::string& folder) const {
        std::map<std::string, std::string> files;
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder))
            if (entry.is_regular_file())
                files[entry.path().lexically_relative(folder)] = Content(entry.path());
        return files;
    }

    // Two new folders with a row of each kind: left.txt in Folder 1 only, sub/a=b in Folder 2 only,
    // changed.txt newer in Folder 2, and same.jpg. Files hold "1" in Folder 1, "22" in Folder 2.
    void MakeRows() const {
        fs::remove_all("one");
        fs::remove_all("two");
        File("one/left.txt", "1");
        File("two/sub/a=b", "22");
        File("one/changed.txt", "1");
        File("two/changed.txt", "22", kNoon + kHour);
        File("one/same.jpg", "1");
        File("two/same.jpg", "22");
    }

    // Runs a command of the shell, which finds varnel-cli; its input is empty. $unprivileged before
    // a command takes root's rights from it. What runs long is ended, so a hang is a failed test.
    // `trace`, if any, may trace the process; it waits for its end and returns its status.
    static Ended Shell(const std::string& command, const std::function<int(int)>& trace = {}) {
        static const fakes::TempFolder said;
        static int runs = 0;  // may be inside each other
        const std::string name = std::to_string(++runs), out = name + ".out", error = name + ".err";
        const std::string script =
            "exec </dev/null >" + said.Path(out) + " 2>" + said.Path(error) + '\n' + command;
        const pid_t process = ::fork();
        if (process == 0) {
            if (trace) ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
            ::alarm(100);  // seconds, far above any run
            ::execl("/bin/sh", "sh", "-c", script.c_str(), nullptr);
            ::_exit(126);
        }
        int status = -1;
        if (trace)
            status = trace(process);
        else
            ::waitpid(process, &status, 0);
        return {WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status),
                said.Read(out).value(), said.Read(error).value()};
    }

    // Runs the program.
    static Ended Cli(const std::string& arguments) { return Shell("exec varnel-cli " + arguments); }

    // Runs a command on a terminal, where this is typed; Output is what it shows.
    static Ended OnTerminal(const std::string& command, const std::string& typed = "") {
        return Shell("exec script -qec \"" + command + "\" /dev/null <<.\n" + typed + ".\n");
    }

    // The text kept in a slot of the history store, "(none)" where there is none.
    std::string Slot(int slot) const { return Content(SlotFile(slot)); }
    void SetSlot(int slot, const std::string& value) const { File(SlotFile(slot), value); }
    static std::string SlotFile(int slot) {
        return ".config/varnel/SOFTWARE/SystemInfoFolderCS1993/P" + std::to_string(slot) +
               "/default";
    }
};

}  // namespace cli
