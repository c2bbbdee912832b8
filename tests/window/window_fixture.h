// What the tests of the real window share: two folders, an empty history. A test that
// fails leaves a picture of the screen, failed-NAME.bmp.
#pragma once

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "fakes/temp_folder.h"
#include "platform/file_time.h"
#include "window/dialog_driver.h"
#include "window/window_driver.h"

namespace window {

inline const platform::FileTime kOlder = fakes::Time("2020-01-02 03:04:05 UTC");
inline const platform::FileTime kNewer = fakes::Time("2021-02-03 04:05:06 UTC");

// The backs of rows of the grid.
inline constexpr COLORREF kPlain = 0xFFFFC0, kHovered = 0xFFFF80, kSelected = 0x008000;

// The folders "1" and "2" in a folder of the test.
class WindowTest : public testing::Test {
  protected:
    void SetUp() override;

    void Put(std::string_view name, std::string_view content,
             platform::FileTime time = kOlder) const {
        Files.WriteFile(name, content, time);
    }
    // The screen's setting for programs that start from now on; 0 for its own.
    static void SetScreenScale(DWORD dpi);

    // "new1.txt", "sub/new2.txt" in 1, "only2.txt" in 2, "chg-right.txt" newer in 1, "chg-left.txt"
    // newer in 2, and "same.txt".
    void PutSmallPair() const;

    // Holds a file so that nobody else can open it.
    platform::win32::Handle Locked(std::string_view name) const;

    std::string Folder1() const { return Files.Path("1"); }
    std::string Folder2() const { return Files.Path("2"); }
    // The two as a command line.
    std::string Pair() const { return Folder1() + " , " + Folder2(); }

    fakes::TempFolder Files;
};

// The history of folder pairs; an empty value where there is none.
std::string HistoryValue(int slot);
void SetHistoryValue(int slot, const std::string& value);

}  // namespace window
