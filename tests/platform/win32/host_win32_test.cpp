#include <functional>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/forms.h"
#include "platform/win32/control_windows.h"
#include "platform/win32/host.h"
#include "platform/win32/scale.h"

namespace {

// A shown form with two labels in one place and a button.
class HostTest : public ::testing::Test {
  protected:
    HostTest() {
        form_.Bounds = {600, 600, 9000, 7500};
        form_.Add(label_, "Label", {150, 150, 1500, 240});
        form_.Add(over_, "Over", label_.Place());
        form_.Add(button_, "Button", {150, 600, 1500, 375});
        over_.BringToFront();
        host_.Show(form_);
        window_ = host_.DialogOwner();
        native_ = ::GetDlgItem(window_, platform::win32::ControlWindows::kFirstId + 2);
        area_ = platform::win32::Scale(static_cast<int>(::GetDpiForWindow(window_)))
                    .Pixels(label_.Place());
    }
    ~HostTest() override { host_.Unload(form_); }

    // What waits to be painted.
    RECT Waiting() {
        RECT area{};
        host_.BringUpToDate();
        ::GetUpdateRect(window_, &area, FALSE);
        ::ValidateRect(window_, nullptr);
        return area;
    }
    void ClickUpTo(LONG x) {
        ::SendMessageW(window_, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(area_.left, area_.top));
        ::SendMessageW(window_, WM_LBUTTONUP, 0, MAKELPARAM(x, area_.top));
    }

    platform::win32::Host host_;
    platform::Form form_{"HostTestForm"};
    platform::Label label_{"label"}, over_{"over"};
    platform::Button button_{"button"};
    HWND window_ = nullptr, native_ = nullptr;
    RECT area_{};  // of both labels
};

TEST_F(HostTest, OnlyAChangedLabelIsPaintedAgain) {
    Waiting();
    label_.SetCaption("other");
    label_.SetCaption("label");
    RECT waiting = Waiting();
    EXPECT_TRUE(::IsRectEmpty(&waiting)) << "it looks as before";
    const std::function<void()> changes[] = {[this] { label_.SetCaption("other"); },
                                             [this] { label_.SetVisible(false); },
                                             [this] { label_.SetVisible(true); }};
    for (const auto& change : changes) {
        change();
        waiting = Waiting();
        EXPECT_TRUE(::EqualRect(&waiting, &area_)) << waiting.left << ' ' << waiting.right;
    }
}

TEST_F(HostTest, AClickIsThatOfTheTopmostLabelThatCanBeReached) {
    std::string clicked;
    for (platform::Label* label : {&label_, &over_})
        label->OnClick = [&, label] { clicked += label->Name(); };
    ClickUpTo(area_.left);
    over_.SetEnabled(false);
    ClickUpTo(area_.left);
    ClickUpTo(area_.right);  // released elsewhere
    EXPECT_EQ(clicked, "OverLabel");
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
    RECT suggested{100, 100, 1300, 1100}, area;
    ::SendMessageW(window_, WM_DPICHANGED, MAKEWPARAM(192, 192),
                   reinterpret_cast<LPARAM>(&suggested));
    ::GetWindowRect(window_, &area);
    EXPECT_TRUE(::EqualRect(&area, &suggested));
    ::GetWindowRect(native_, &area);
    EXPECT_EQ(area.right - area.left, 200);
    EXPECT_EQ(form_.Bounds.Left, 750);
}

}  // namespace
