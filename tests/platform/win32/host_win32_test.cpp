#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/forms.h"
#include "platform/win32/control_windows.h"
#include "platform/win32/host.h"

namespace {

constexpr unsigned long long kLimit = 10000;  // ms

// A shown form with one control of each kind that a test needs.
class HostTest : public ::testing::Test {
  protected:
    HostTest() {
        form_.Bounds = {600, 600, 9000, 7500};
        form_.Add(label_, "Label", {150, 150, 1500, 240});
        form_.Add(over_, "Over", {900, 150, 1500, 240});
        form_.Add(button_, "Button", {150, 600, 1500, 375});
        form_.Add(text_, "Text", {150, 1200, 3000, 345});
        form_.Add(combo_, "Combo", {150, 1800, 3000, 345});
        form_.Menu = {{"mnuMarker",
                       "Marker",
                       [this] {
                           if (marker_) marker_();
                       },
                       {}}};
        over_.BringToFront();
    }

    ~HostTest() override { host_.Unload(form_); }

    void Show() {
        host_.Show(form_);
        window_ = host_.DialogOwner();
        Settle();
    }

    // Everything that waits is handed out and painted.
    void Settle() {
        bool reached = false;
        marker_ = [&] { reached = true; };
        ::PostMessageW(window_, WM_COMMAND, platform::win32::MenuBar::kFirstCommand, 0);
        EXPECT_TRUE(HandOutUntil([&] { return reached; }));
        host_.BringUpToDate();
        ::UpdateWindow(window_);
    }

    bool HandOutUntil(const std::function<bool()>& reached) {
        const unsigned long long start = ::GetTickCount64();
        while (!reached() && ::GetTickCount64() - start < kLimit) host_.DoEvents();
        return reached();
    }

    HWND Child(const platform::Control& control) const {
        for (std::size_t i = 0; i < form_.Controls.size(); ++i)
            if (form_.Controls[i] == &control)
                return ::GetDlgItem(
                    window_, platform::win32::ControlWindows::kFirstId + static_cast<int>(i));
        return nullptr;
    }

    // Pixels at any scale of the test machine.
    LPARAM At(int x, int y) const {
        const auto dpi = static_cast<int>(::GetDpiForWindow(window_));
        return MAKELPARAM(::MulDiv(x, dpi, 1440), ::MulDiv(y, dpi, 1440));
    }

    void Press(int x, int y) { ::SendMessageW(window_, WM_LBUTTONDOWN, MK_LBUTTON, At(x, y)); }
    void Release(int x, int y) { ::SendMessageW(window_, WM_LBUTTONUP, 0, At(x, y)); }

    platform::win32::Host host_;
    std::function<void()> marker_;
    platform::Form form_{"HostTestForm"};
    platform::Label label_{"label"}, over_{"over"};
    platform::Button button_{"button"};
    platform::TextBox text_;
    platform::ComboBox combo_;
    HWND window_ = nullptr;
};

TEST_F(HostTest, TypingReachesTheControlAndIsNotWrittenBack) {
    text_.OnKeyPress = [](char32_t key) { return key != U'x'; };
    Show();
    const HWND edit = Child(text_);
    for (const char key : std::string("axb"))
        ::SendMessageW(edit, WM_CHAR, static_cast<WPARAM>(key), 0);
    EXPECT_EQ(text_.Text(), "ab");
    ::SendMessageW(edit, EM_SETSEL, 1, 1);
    ::SendMessageW(edit, WM_CHAR, L'\u00e9', 0);
    Settle();
    EXPECT_EQ(text_.Text(), "aéb");
    EXPECT_EQ(::SendMessageW(edit, EM_GETSEL, 0, 0), MAKELONG(2, 2));
}

TEST_F(HostTest, APickMayRewriteTheList) {
    for (const char* entry : {"one", "two", "three"}) combo_.AddEntry(entry);
    std::string picked;
    combo_.OnClick = [&] {
        picked = combo_.Text();
        combo_.ClearEntries();
        combo_.AddEntry("new");
        combo_.SetText("after");
    };
    Show();
    const HWND box = Child(combo_);
    ::SendMessageW(box, CB_SETCURSEL, 1, 0);
    const auto report = [&](WORD code) {
        ::SendMessageW(window_, WM_COMMAND, MAKEWPARAM(::GetDlgCtrlID(box), code),
                       reinterpret_cast<LPARAM>(box));
    };
    report(CBN_SELENDOK);
    report(CBN_SELCHANGE);
    Settle();
    EXPECT_EQ(picked, "two");
    EXPECT_EQ(::SendMessageW(box, CB_GETCOUNT, 0, 0), 1);
    wchar_t shown[10];
    ::GetWindowTextW(box, shown, 10);
    EXPECT_EQ(std::wstring(shown), L"after");
}

TEST_F(HostTest, OnlyAChangedLabelIsPaintedAgain) {
    Show();
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
}

TEST_F(HostTest, ThePointerFindsTheTopmostLabelThatCanBeReached) {
    std::string events;
    for (platform::Label* label : {&label_, &over_}) {
        label->OnMouseDown = [&, label] { events += label->Name() + " down "; };
        label->OnMouseUp = [&, label] { events += label->Name() + " up "; };
        label->OnClick = [&, label] { events += label->Name() + " click "; };
    }
    Show();
    Press(1200, 240);
    Release(1200, 240);
    over_.SetEnabled(false);
    Press(1200, 240);
    Release(4500, 240);  // elsewhere
    EXPECT_EQ(events, "Over down Over up Over click Label down Label up ");
}

TEST_F(HostTest, AWheelNotchIsThreeRowsAndPartsAddUp) {
    int rows = 0;
    form_.OnWheel = [&](int turned) { rows += turned; };
    Show();
    const auto turn = [&](int delta) {
        ::SendMessageW(Child(button_), WM_MOUSEWHEEL, MAKEWPARAM(0, delta), 0);
    };
    turn(-WHEEL_DELTA);
    EXPECT_EQ(rows, 3);
    for (int i = 0; i < 4; ++i) turn(WHEEL_DELTA / 4);
    EXPECT_EQ(rows, 0);
}

TEST_F(HostTest, ADialogUnloadedByItsOwnButtonReturns) {
    Show();
    auto dialog = std::make_unique<platform::Form>("HostTestDialog");
    auto close = std::make_unique<platform::Button>("close");
    dialog->Bounds = {900, 900, 3000, 2000};
    dialog->Add(*close, "Close", {150, 150, 1500, 375});
    bool ownerEnabled = true;
    close->OnClick = [&] {
        ownerEnabled = ::IsWindowEnabled(window_);
        host_.Unload(*dialog);
    };
    dialog->OnActivate = [&] {
        const HWND window = ::FindWindowW(L"HostTestDialog", nullptr);
        ::PostMessageW(::GetDlgItem(window, platform::win32::ControlWindows::kFirstId), BM_CLICK, 0,
                       0);
    };
    host_.ShowModal(*dialog);
    close.reset();
    dialog.reset();
    EXPECT_FALSE(ownerEnabled);
    EXPECT_TRUE(::IsWindowEnabled(window_));
    EXPECT_EQ(::FindWindowW(L"HostTestDialog", nullptr), nullptr);
}

TEST_F(HostTest, AnExceptionEndsTheEventAndNothingElse) {
    button_.OnClick = [] { throw std::out_of_range("row"); };
    Show();
    ::SendMessageW(Child(button_), BM_CLICK, 0, 0);
    Settle();
    EXPECT_TRUE(::IsWindowVisible(window_));
}

TEST_F(HostTest, UnloadingWithinAnOwnYieldIsSafe) {
    button_.OnClick = [&] {
        ::PostMessageW(window_, WM_CLOSE, 0, 0);
        HandOutUntil([&] { return !::IsWindowVisible(window_); });
    };
    Show();
    ::PostMessageW(Child(button_), BM_CLICK, 0, 0);
    EXPECT_TRUE(HandOutUntil([&] { return !::IsWindow(window_); }));
}

TEST_F(HostTest, AMonitorOfAnotherScaleLaysOutAnew) {
    Show();
    RECT suggested{100, 100, 1300, 1100};
    ::SendMessageW(window_, WM_DPICHANGED, MAKEWPARAM(192, 192),
                   reinterpret_cast<LPARAM>(&suggested));
    RECT area;
    ::GetWindowRect(window_, &area);
    EXPECT_TRUE(::EqualRect(&area, &suggested));
    ::GetWindowRect(Child(button_), &area);
    ::MapWindowPoints(HWND_DESKTOP, window_, reinterpret_cast<POINT*>(&area), 2);
    const RECT doubled{20, 80, 220, 130};
    EXPECT_TRUE(::EqualRect(&area, &doubled)) << area.left << " " << area.top;
    EXPECT_EQ(form_.Bounds.Left, 750);
    EXPECT_EQ(form_.Bounds.Width, 9000);
}

}  // namespace
