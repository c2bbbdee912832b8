#include <stdexcept>

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/forms.h"
#include "platform/win32/control_windows.h"
#include "platform/win32/host.h"

TEST(HostTest, AFormAddsUpPartsOfANotchAndOutlivesFailuresAndOtherMonitors) {
    platform::Form form{"HostTestForm"};
    platform::Button button{"button"};
    form.Bounds = {600, 600, 9000, 7500};
    form.Add(button, "Button", {150, 600, 1500, 375});
    platform::win32::Host host;
    host.Show(form);
    const HWND window = host.DialogOwner();
    const HWND native = ::GetDlgItem(window, platform::win32::ControlWindows::kFirstId);

    int rows = 0;
    form.OnWheel = [&](int turned) { rows += turned; };
    for (int part = 0; part < 4; ++part)  // of a notch
        ::SendMessageW(native, WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA / 4), 0);
    EXPECT_EQ(rows, -3);

    button.OnClick = [] { throw std::out_of_range("row"); };
    ::SendMessageW(native, BM_CLICK, 0, 0);
    EXPECT_TRUE(::IsWindowVisible(window));

    RECT area, suggested{100, 100, 1300, 1100};
    ::SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(192, 192),
                   reinterpret_cast<LPARAM>(&suggested));
    ::GetWindowRect(window, &area);
    EXPECT_TRUE(::EqualRect(&area, &suggested));
    ::GetWindowRect(native, &area);
    EXPECT_EQ(area.right - area.left, 200);
    host.Unload(form);
}
