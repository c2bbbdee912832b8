// What the tests of the real window share: two folders, an empty history.
#pragma once

#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include "fakes/temp_folder.h"
#include "window/window_driver.h"

namespace window {

inline constexpr char kHistory[] = "SOFTWARE\\SystemInfoFolderCS1993";

// The backs of rows of the grid.
inline constexpr COLORREF kHovered = 0xFFFF80, kSelected = 0x008000;

// The folders "1" and "2" in a folder of the test.
class WindowTest : public testing::Test {
  protected:
    void SetUp() override {
        if (!std::getenv("VARNEL_WINE_SESSION"))
            GTEST_SKIP()
                << "moves the pointer and clears the history: only in a session of its own";
        ::RegDeleteTreeA(HKEY_LOCAL_MACHINE, kHistory);
        Files.MakeFolder("1");
        Files.MakeFolder("2");
    }

    // "new1.txt", "sub/new2.txt" in 1, "only2.txt" in 2, "chg-right.txt" newer in 1, "chg-left.txt"
    // newer in 2, and "same.txt".
    void PutSmallPair() const {
        for (const char* name : {"1/new1.txt", "1/sub/new2.txt", "2/only2.txt", "2/chg-right.txt",
                                 "1/chg-left.txt", "1/same.txt", "2/same.txt"})
            Files.WriteFile(name, "as it was", fakes::At(1577934245));
        for (const char* name : {"1/chg-right.txt", "2/chg-left.txt"})
            Files.WriteFile(name, "newer");
    }

    // The two folders as a command line.
    std::string Pair() const { return Files.Path("1") + " , " + Files.Path("2"); }

    fakes::TempFolder Files;
};

}  // namespace window
