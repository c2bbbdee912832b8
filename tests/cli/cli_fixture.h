// What every test of the program starts from: a temporary folder with the two folders to compare,
// "one" and "two". The test and the program work in it, so paths are relative to it, and it is
// their home: the history is kept in its ".config".
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include <gtest/gtest.h>

#include "cli/run_cli.h"
#include "fakes/temp_folder.h"

namespace cli {

constexpr std::int64_t kNoon = 1710072000;  // 2024-03-10 12:00:00 UTC
constexpr std::int64_t kHour = 3600;

class CliTest : public testing::Test, protected fakes::TempFolder {
  protected:
    CliTest();

    // As the program shows them.
    std::string One() const { return Path("one"); }
    std::string Two() const { return Path("two"); }

    // Missing folders above it are made. The time counts in seconds from 1970, UTC.
    void File(const std::string& path, const std::string& content, std::int64_t time = kNoon) const;
    std::string Content(const std::string& path) const;  // "(none)" when there is no file

    // The contents of all files below a folder, by their paths in it.
    std::map<std::string, std::string> Files(const std::string& folder) const;

    // Two new folders with a row of each kind: left.txt in Folder 1 only, sub/right.txt in Folder 2
    // only, changed.txt newer in Folder 2, and same.jpg. Files hold "1" in Folder 1, "22" in
    // Folder 2.
    void MakeRows() const;

    // Runs the program; arguments are separated by blanks.
    static Ended Cli(const std::string& arguments, Launch launch = {}) {
        launch.Arguments = Words(arguments);
        return RunCli(launch);
    }

    // Runs the program, which says this.
    static void Expect(const std::string& arguments, int status, const std::string& output,
                       const std::string& error);

    // For Launch::First: gives up root's rights, and the folder to who goes on without them.
    static void BecomeNobody();

    // The text kept in a slot of the history store, "(none)" where there is none.
    std::string Slot(int slot) const { return Content(SlotFile(slot)); }
    void SetSlot(int slot, const std::string& value) const { File(SlotFile(slot), value); }
    static std::string SlotFile(int slot);
};

}  // namespace cli
