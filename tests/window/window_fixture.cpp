#include "window/window_fixture.h"

#include <cstdlib>

namespace window {

namespace {

std::string SlotKey(int slot) {
    return std::string(kHistoryKey) + "\\P" + std::to_string(slot);
}

}  // namespace

void WindowTest::SetUp() {
    if (!std::getenv("VARNEL_WINE_SESSION"))
        GTEST_SKIP() << "moves the pointer and clears the history: only in a session of its own";
    const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
    Program::PictureOfFailure = "failed-" + std::string(test.name()) + ".bmp";
    ClearHistory();
    Files.MakeFolder("1");
    Files.MakeFolder("2");
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

std::string HistoryValue(int slot) {
    DWORD size = 0;
    if (::RegGetValueA(HKEY_LOCAL_MACHINE, SlotKey(slot).c_str(), nullptr, RRF_RT_REG_SZ, nullptr,
                       nullptr, &size) != ERROR_SUCCESS)
        return {};
    std::string value(size, '\0');
    ::RegGetValueA(HKEY_LOCAL_MACHINE, SlotKey(slot).c_str(), nullptr, RRF_RT_REG_SZ, nullptr,
                   value.data(), &size);
    return value.substr(0, value.find('\0'));
}

void SetHistoryValue(int slot, const std::string& value) {
    ASSERT_EQ(::RegSetKeyValueA(HKEY_LOCAL_MACHINE, SlotKey(slot).c_str(), nullptr, REG_SZ,
                                value.c_str(), static_cast<DWORD>(value.size() + 1)),
              ERROR_SUCCESS);
}

void ClearHistory() {
    ::RegDeleteTreeA(HKEY_LOCAL_MACHINE, kHistoryKey);
}

}  // namespace window
