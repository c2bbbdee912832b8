// What every test of the program starts from: a temporary folder with the two folders to compare,
// "one" and "two", the program's own configuration folder beside them, and a fixed time zone.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "cli/output_text.h"
#include "cli/run_cli.h"
#include "fakes/temp_folder.h"

namespace cli {

constexpr std::int64_t kNoon = 1710072000;  // 2024-03-10 12:00:00 UTC
constexpr std::int64_t kHour = 3600;

class CliTest : public testing::Test {
  protected:
    CliTest();

    // Relative to the temporary folder.
    std::string Path(const std::string& relative) const;
    std::string One() const { return Path("one"); }
    std::string Two() const { return Path("two"); }

    // Missing folders above it are made. The time counts in seconds from 1970, UTC.
    void File(const std::string& relative, const std::string& content, std::int64_t time = kNoon,
              std::int32_t nanoseconds = 0) const;
    void SetFileTime(const std::string& relative, std::int64_t time,
                     std::int32_t nanoseconds = 0) const;
    void MakeFolder(const std::string& relative) const;
    std::string Content(const std::string& relative) const;
    bool Exists(const std::string& relative) const;  // a broken link exists, too

    // Seconds, a point, nine digits.
    std::string TimeOf(const std::string& relative) const;

    // Path, kind, rights, time and content of everything below the folder.
    Texts State(const std::string& relative) const;

    // Paths relative to the folder, sorted, and the contents of its files.
    std::map<std::string, std::string> Files(const std::string& relative) const;

    // A pair with one row of each kind: left.txt is in Folder 1 only, sub/right.txt in Folder 2
    // only, changed.txt newer in Folder 2, and same.txt has equal times.
    void MakeOneOfEach() const;

    // The same with turn.txt, which is newer in Folder 1.
    void MakeFiveRows() const;

    Launch Command(const Texts& arguments) const;

    // Runs the program; with the two folders as last arguments in the second form.
    Ended Cli(const Texts& arguments) const;
    Ended OnPair(Texts arguments) const;

    // The text kept in a slot of the history store, "(none)" where there is none.
    std::string Slot(int slot) const;
    void SetSlot(int slot, const std::string& value) const;
    std::string Store() const { return Path("config/varnel/SOFTWARE/SystemInfoFolderCS1993"); }

    // Opens the temporary folder to every user, so that a run as nobody can work in it.
    void OpenToAll() const;

  private:
    fakes::TempFolder temp_;
};

}  // namespace cli
