#include "window/window_fixture.h"

#include <cstdlib>

#include "platform/registry.h"

namespace window {

namespace {

constexpr const char* kHistoryKey = "SOFTWARE\\SystemInfoFolderCS1993";

std::string SlotKey(int slot) {
    return std::string(kHistoryKey) + "\\P" + std::to_string(slot);
}

}  // namespace

void WindowTest::SetUp() {
    if (!std::getenv("VARNEL_WINE_SESSION"))
        GTEST_SKIP() << "moves the pointer and clears the history: only in a session of its own";
    const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
    Program::PictureOfFailure = "failed-" + std::string(test.name()) + ".bmp";
    ::RegDeleteTreeA(HKEY_LOCAL_MACHINE, kHistoryKey);
    SetScreenScale(0);  // which a test that was killed may have left
    Files.MakeFolder("1");
    Files.MakeFolder("2");
}

void WindowTest::SetScreenScale(DWORD dpi) {
    constexpr const char* kKey = "Control Panel\\Desktop";
    ::RegDeleteKeyValueA(HKEY_CURRENT_USER, kKey, "LogPixels");
    if (dpi != 0)
        ::RegSetKeyValueA(HKEY_CURRENT_USER, kKey, "LogPixels", REG_DWORD, &dpi, sizeof dpi);
}

void WindowTest::PutSmallPair() const {
    Put("1/new1.txt", "new in 1");
    Put("1/sub/new2.txt", "another");
    Put("2/only2.txt", "new in 2");
    Put("1/chg-right.txt", "newer content", kNewer);
    Put("2/chg-right.txt", "old");
    Put("1/chg-left.txt", "old");
    Put("2/chg-left.txt", "newer content", kNewer);
    Put("1/same.txt", "same");
    Put("2/same.txt", "same");
}

platform::win32::Handle WindowTest::Locked(std::string_view name) const {
    platform::win32::Handle file(::CreateFileA(Files.Path(name).c_str(), GENERIC_READ, 0, nullptr,
                                               OPEN_EXISTING, 0, nullptr));
    EXPECT_TRUE(file.IsOpen()) << name;
    return file;
}

std::string HistoryValue(int slot) {
    return platform::OpenSystemRegistry()->ReadDefault(SlotKey(slot));
}

void SetHistoryValue(int slot, const std::string& value) {
    const auto store = platform::OpenSystemRegistry();
    store->CreateKey(SlotKey(slot));
    store->WriteDefault(SlotKey(slot), value);
}

}  // namespace window
