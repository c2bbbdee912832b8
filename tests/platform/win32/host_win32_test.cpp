#include <stdexcept>
#include <string>

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/forms.h"
#include "platform/win32/control_windows.h"
#include "platform/win32/host.h"

namespace {

// A shown form with two labels, one partly over the other, and a button.
class HostTest : public ::testing::Test {
  protected:
    HostTest() {
        form_.Bounds = {600, 600, 9000, 7500};
        form_.Add(label_, "Label", {150, 150, 1500, 240});
        form_.Add(over_, "Over", {900, 150, 1500, 240});
        form_.Add(button_, "Button", {150, 600, 1500, 375});
        over_.BringToFront();
        host_.Show(form_);
        window_ = host_.DialogOwner();
        native_ = ::GetDlgItem(window_, platform::win32::ControlWindows::kFirstId + 2);
    }
    ~HostTest() override { host_.Unload(form_); }

    // Pixels at any scale of the test machine.
    LPARAM At(int x, int y) const {
        const auto dpi = static_cast<int>(::GetDpiForWindow(window_));
        return MAKELPARAM(::MulDiv(x, dpi, 1440), ::MulDiv(y, dpi, 1440));
    }
    void Press(int x) { ::SendMessageW(window_, WM_LBUTTONDOWN, MK_LBUTTON, At(x, 240)); }
    void Release(int x) { ::SendMessageW(window_, WM_LBUTTONUP, 0, At(x, 240)); }

    platform::win32::Host host_;
    platform::Form form_{"HostTestForm"};
    platform::Label label_{"label"}, over_{"over"};
    platform::Button button_{"button"};
    HWND window_ = nullptr, native_ = nullptr;
};

TEST_F(HostTest, OnlyAChangedLabelIsPaintedAgain) {
    ::ValidateRect(window_, nullptr);
    label_.SetCaption("other");
    label_.SetCaption("label");
    host_.BringUpToDate();
    EXPECT_FALSE(::GetUpdateRect(window_, nullptr, FALSE)) << "it looks as before";
    label_.SetCaption("other");
    host_.BringUpToDate();
    RECT update{};
    EXPECT_TRUE(::GetUpdateRect(window_, &update, FALSE));
    EXPECT_EQ(MAKELPARAM(update.left, update.top), At(150, 150));
    EXPECT_EQ(MAKELPARAM(update.right, update.bottom), At(1650, 390));
    for (const bool visible : {false, true}) {
        ::ValidateRect(window_, nullptr);
        label_.SetVisible(visible);
        host_.BringUpToDate();
        EXPECT_TRUE(::GetUpdateRect(window_, nullptr, FALSE)) << visible;
    }
}

TEST_F(HostTest, ThePointerFindsTheTopmostLabelThatCanBeReached) {
    std::string events;
    for (platform::Label* label : {&label_, &over_}) {
        label->OnMouseDown = [&, label] { events += label->Name() + " down "; };
        label->OnMouseUp = [&, label] { events += label->Name() + " up "; };
        label->OnClick = [&, label] { events += label->Name() + " click "; };
    }
    Press(1200);
    Release(1200);
    over_.SetEnabled(false);
    Press(1200);
    Release(4500);  // elsewhere
    EXPECT_EQ(events, "Over down Over up Over click Label down Label up ");
}

TEST_F(HostTest, PartsOfAWheelNotchAddUp) {
    int rows = 0;
    form_.OnWheel = [&](int turned) { rows += turned; };
    for (int i = 0; i < 4; ++i)
        ::SendMessageW(native_, WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA / 4), 0);
    EXPECT_EQ(rows, -3);
}

TEST_F(HostTest, AnExceptionEndsTheEventAndNothingElse) {
    button_.OnClick = [] { throw std::out_of_range("row"); };
    ::SendMessageW(native_, BM_CLICK, 0, 0);
    EXPECT_TRUE(::IsWindowVisible(window_));
}

TEST_F(HostTest, AMonitorOfAnotherScaleLaysOutAnew) {
    RECT suggested{100, 100, 1300, 1100};
    ::SendMessageW(window_, WM_DPICHANGED, MAKEWPARAM(192, 192),
                   reinterpret_cast<LPARAM>(&suggested));
    RECT area;
    ::GetWindowRect(window_, &area);
    EXPECT_TRUE(::EqualRect(&area, &suggested));
    ::GetWindowRect(native_, &area);
    ::MapWindowPoints(HWND_DESKTOP, window_, reinterpret_cast<POINT*>(&area), 2);
    const RECT doubled{20, 80, 220, 130};
    EXPECT_TRUE(::EqualRect(&area, &doubled)) << area.left << " " << area.top;
    EXPECT_EQ(form_.Bounds.Left, 750);
}

}  // namespace
