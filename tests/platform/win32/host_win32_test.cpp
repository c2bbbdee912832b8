#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/forms.h"
#include "platform/win32/control_inspection.h"
#include "platform/win32/control_windows.h"
#include "platform/win32/host.h"

namespace {

using platform::Place;
using platform::PointerPosition;

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
        form_.Add(bar_, "Bar", {6000, 150, 255, 3000});
        form_.Add(picture_, "Picture", {150, 2400, 3000, 1500});
        form_.Add(cell_, "Cell", {150, 150, 1500, 240}, &picture_);
        form_.Menu = {{"mnuMarker",
                       "Marker",
                       [this] {
                           if (marker_) marker_();
                       },
                       {}}};
        over_.BringToFront();
        cell_.SetBackColor(0x0000FF00);
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
    platform::Label label_{"label"}, over_{"over"}, cell_{"cell"};
    platform::Button button_{"button"};
    platform::TextBox text_;
    platform::ComboBox combo_;
    platform::ScrollBar bar_;
    platform::Picture picture_;
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
    EXPECT_EQ(text_.Text(),
              "a\xC3\xA9"
              "b");
    EXPECT_EQ(::SendMessageW(edit, EM_GETSEL, 0, 0), MAKELONG(2, 2));
}

TEST_F(HostTest, AProgramsTextIsShown) {
    text_.SetText("before");
    Show();
    text_.SetText("\xE6\x97\xA5");
    Settle();
    wchar_t shown[10];
    ::GetWindowTextW(Child(text_), shown, 10);
    EXPECT_EQ(std::wstring(shown), L"\u65e5");
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
    const LPARAM corner = At(150, 150);
    const LPARAM opposite = At(1650, 390);
    EXPECT_EQ(update.left, LOWORD(corner));
    EXPECT_EQ(update.top, HIWORD(corner));
    EXPECT_EQ(update.right, LOWORD(opposite));
    EXPECT_EQ(update.bottom, HIWORD(opposite));
}

TEST_F(HostTest, ALabelsGroundIsPainted) {
    Show();
    const HDC screen = ::GetDC(nullptr);
    const HDC canvas = ::CreateCompatibleDC(screen);
    const HBITMAP bitmap = ::CreateCompatibleBitmap(screen, 400, 200);
    const HGDIOBJ before = ::SelectObject(canvas, bitmap);
    ::SendMessageW(Child(picture_), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(canvas), PRF_CLIENT);
    const LPARAM inside = At(1620, 165);
    const LPARAM outside = At(1680, 165);
    EXPECT_EQ(::GetPixel(canvas, LOWORD(inside), HIWORD(inside)), RGB(0, 255, 0));
    EXPECT_EQ(::GetPixel(canvas, LOWORD(outside), HIWORD(outside)), ::GetSysColor(COLOR_3DFACE));
    ::SelectObject(canvas, before);
    ::DeleteObject(bitmap);
    ::DeleteDC(canvas);
    ::ReleaseDC(nullptr, screen);
}

TEST_F(HostTest, ThePointerFindsTheTopmostLabelThatCanBeReached) {
    std::vector<std::string> events;
    const auto record = [&](platform::Label& label) {
        label.OnMouseDown = [&] { events.push_back(label.Name() + " down"); };
        label.OnMouseUp = [&] { events.push_back(label.Name() + " up"); };
        label.OnClick = [&] { events.push_back(label.Name() + " click"); };
    };
    record(label_);
    record(over_);
    Show();
    Press(1200, 240);
    Release(1200, 240);
    EXPECT_EQ(events, (std::vector<std::string>{"Over down", "Over up", "Over click"}));
    events.clear();
    over_.SetEnabled(false);
    Press(1200, 240);
    Release(4500, 240);
    EXPECT_EQ(events, (std::vector<std::string>{"Label down", "Label up"})) << "let go elsewhere";
}

TEST_F(HostTest, PointerPositionsAreTwipsOfTheControlUnderIt) {
    PointerPosition onCell;
    PointerPosition onForm;
    cell_.OnPointerMove = [&](PointerPosition position) { onCell = position; };
    form_.OnPointerMove = [&](PointerPosition position) { onForm = position; };
    Show();
    ::SendMessageW(Child(picture_), WM_MOUSEMOVE, 0, At(450, 300));
    EXPECT_EQ(onCell.X, 300);
    EXPECT_EQ(onCell.Y, 150);
    ::SendMessageW(window_, WM_MOUSEMOVE, 0, At(4500, 3000));
    EXPECT_EQ(onForm.X, 4500);
    EXPECT_EQ(onForm.Y, 3000);
}

TEST_F(HostTest, ScrollBarStepsStayWithinTheRange) {
    bar_.SetMaximum(30);
    bar_.SetValue(10);
    bar_.SetLargeChange(25);
    Show();
    std::vector<int> values;
    bar_.OnChange = [&] { values.push_back(bar_.Value()); };
    for (const int code : {SB_LINEDOWN, SB_LINEUP, SB_PAGEDOWN, SB_PAGEDOWN, SB_TOP, SB_ENDSCROLL})
        ::SendMessageW(window_, WM_VSCROLL, static_cast<WPARAM>(code),
                       reinterpret_cast<LPARAM>(Child(bar_)));
    EXPECT_EQ(values, (std::vector<int>{11, 10, 30, 0})) << "nothing where nothing moves";
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    ::GetScrollInfo(Child(bar_), SB_CTL, &info);
    EXPECT_EQ(info.nPos, 0);
    EXPECT_EQ(info.nMax, 54);
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
    for (int round = 0; round < 3; ++round) {
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
            ::PostMessageW(::GetDlgItem(window, platform::win32::ControlWindows::kFirstId),
                           BM_CLICK, 0, 0);
        };
        host_.ShowModal(*dialog);
        close.reset();
        dialog.reset();
        EXPECT_FALSE(ownerEnabled);
        EXPECT_TRUE(::IsWindowEnabled(window_));
        EXPECT_EQ(::FindWindowW(L"HostTestDialog", nullptr), nullptr);
    }
}

TEST_F(HostTest, CloseIsTheFormsToDecide) {
    bool agree = false;
    form_.OnCloseRequest = [&] { return agree; };
    Show();
    ::PostMessageW(window_, WM_CLOSE, 0, 0);
    Settle();
    EXPECT_TRUE(::IsWindowVisible(window_));
    agree = true;
    ::PostMessageW(window_, WM_CLOSE, 0, 0);
    EXPECT_TRUE(HandOutUntil([&] { return !::IsWindow(window_); }));
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

TEST_F(HostTest, KeysGoToTheControlsThatAreMeant) {
    std::vector<std::string> events;
    form_.DefaultButton = &button_;
    button_.OnClick = [&] { events.push_back("default"); };
    form_.OnScrollKey = [&](platform::ScrollKey key) {
        events.push_back("scroll " + std::to_string(static_cast<int>(key)));
    };
    Show();
    const auto press = [&](HWND window, WPARAM key) {
        ::SetFocus(window);
        ::PostMessageW(window, WM_KEYDOWN, key, 0);
        Settle();
    };
    press(Child(text_), VK_DOWN);  // the field's own key
    press(Child(text_), VK_RETURN);
    press(window_, VK_NEXT);
    press(Child(button_), VK_END);
    EXPECT_EQ(events, (std::vector<std::string>{"default", "scroll 3", "scroll 5"}));
    press(Child(button_), VK_TAB);
    EXPECT_EQ(::GetFocus(), Child(text_));
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

TEST_F(HostTest, AnotherProgramCanReadAWindowlessLabel) {
    Show();
    label_.SetForeColor(0x000000FF);
    static std::string answer;
    answer.clear();
    const HWND asker =
        ::CreateWindowW(L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    ::SetWindowLongPtrW(asker, GWLP_WNDPROC,
                        reinterpret_cast<LONG_PTR>(static_cast<WNDPROC>(
                            [](HWND window, UINT id, WPARAM word, LPARAM number) -> LRESULT {
                                if (id != WM_COPYDATA)
                                    return ::DefWindowProcW(window, id, word, number);
                                const auto& data = *reinterpret_cast<const COPYDATASTRUCT*>(number);
                                answer.assign(static_cast<const char*>(data.lpData), data.cbData);
                                return TRUE;
                            })));
    const auto ask = [&](std::string name) {
        answer.clear();
        COPYDATASTRUCT request{platform::win32::kInspectControl, static_cast<DWORD>(name.size()),
                               name.data()};
        return ::SendMessageW(window_, WM_COPYDATA, reinterpret_cast<WPARAM>(asker),
                              reinterpret_cast<LPARAM>(&request));
    };
    EXPECT_TRUE(ask("Label"));
    EXPECT_EQ(answer.find("kind=Label\nvisible=1\nenabled=1\nback="), 0u) << answer;
    EXPECT_NE(answer.find("fore=0000FF\n"), std::string::npos) << answer;
    EXPECT_EQ(answer.substr(answer.find("text=")), "text=label");
    EXPECT_TRUE(ask("mnuMarker"));
    EXPECT_EQ(answer, "kind=Menu\nvalue=100\ntext=Marker");
    EXPECT_FALSE(ask("Nobody"));
    ::DestroyWindow(asker);
}

}  // namespace
