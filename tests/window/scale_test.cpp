// The window at 100, 150 and 200 %: its sizes, its colours, and that no text is cut off.
#include "platform/win32/fonts.h"
#include "platform/win32/text_conversion.h"
#include "window/window_fixture.h"

namespace window {

namespace {

class ScaleTest : public WindowTest, public testing::WithParamInterface<int> {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        if (IsSkipped()) return;
        SetScreenScale(static_cast<DWORD>(GetParam()));
        PutSmallPair();
    }
    void TearDown() override { SetScreenScale(0); }

    double Pixels(int twips) const { return twips * GetParam() / 1440.0; }

    // A button needs room for its frame, a box for its mark, and a label with a ground of its own
    // for half a digit on each side.
    void ExpectRoomFor(const std::string& text, const std::string& name, const Seen& seen) const {
        double around = seen.Back == ::GetSysColor(COLOR_BTNFACE) ? 0 : WidthOf("0", seen.Bold);
        if (seen.Kind == "Button") around = Pixels(150);
        if (seen.Kind == "CheckBox" || seen.Kind == "OptionButton") around = Pixels(270);
        EXPECT_LE(WidthOf(text, seen.Bold) + around, seen.Area.right - seen.Area.left)
            << name << ": " << text;
    }

  private:
    int WidthOf(const std::string& text, bool bold) const {
        const std::wstring wide = platform::win32::Wide(text);
        const HDC canvas = ::CreateCompatibleDC(nullptr);
        const HGDIOBJ before = ::SelectObject(canvas, fonts_.Get(bold));
        SIZE size{};
        ::GetTextExtentPoint32W(canvas, wide.c_str(), static_cast<int>(wide.size()), &size);
        ::SelectObject(canvas, before);
        ::DeleteDC(canvas);
        return size.cx;
    }
    platform::win32::Fonts fonts_{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(, ScaleTest, testing::Values(96, 144, 192), [](const auto& scale) {
    return std::to_string(scale.param * 100 / 96) + "Percent";
});

TEST_P(ScaleTest, EverythingStandsWhereItMustAndFillsItsPixels) {
    const Program varnel(Pair());
    const RECT window = AreaOf(varnel.Window());
    EXPECT_NEAR(window.right - window.left, Pixels(15360), 1);
    EXPECT_NEAR(window.bottom - window.top, Pixels(10000), 1);
    EXPECT_NEAR(window.left, (::GetSystemMetrics(SM_CXSCREEN) - Pixels(15360)) / 2, 1);
    EXPECT_NEAR(window.top, (::GetSystemMetrics(SM_CYSCREEN) - Pixels(10000)) / 2.4, 1);
    POINT origin{};
    ::ClientToScreen(varnel.Window(), &origin);
    const RECT last = varnel.Look("sFile1(24)").Area;
    EXPECT_NEAR(last.left - origin.x, Pixels(120 + 825), 1.5);
    EXPECT_NEAR(last.top - origin.y, Pixels(1560 + 260 + 24 * 240), 1.5);
    EXPECT_NEAR(last.right - last.left, Pixels(2040), 1.5);
    const RECT box = varnel.Look("Combo1").Area;
    EXPECT_NEAR(box.bottom - box.top, Pixels(345), 1.5);
    varnel.Compare();
    varnel.Click("sFile1(1)");
    const RECT cell = varnel.Look("sFile1(1)").Area;
    const ScreenPicture picture = varnel.WaitForColor({cell.left, cell.top}, kSelected);
    for (LONG x = cell.left; x < cell.right; ++x) {
        EXPECT_EQ(picture.At(x, cell.top), kSelected) << x;
        EXPECT_EQ(picture.At(x, cell.bottom - 1), kSelected) << x;
        EXPECT_NE(picture.At(x, cell.top - 1), kSelected) << x;
        EXPECT_NE(picture.At(x, cell.bottom), kSelected) << x;
    }
}

TEST_P(ScaleTest, NoTextIsCutOff) {
    const Program varnel(Pair());
    const std::pair<const char*, const char*> longest[] = {
        {"LabelFileFilter", "Only sync files with extensions:  .jpg .bmp .gif .psd .png .doc .txt"},
        {"LabelNewFile", "New Files ( 1234567 ) "},
        {"LabelChgFile", "Modified Files ( 1234567 ) "},
        {"LabelNewChgFile", "New and Modified Files ( 1234567 ) "},
        {"LabelAllFile", "Unchanged Files ( 1234567 )"},
        {"LabelShow", "New and Modified Files:  1234567"},
        {"sTYPE(0)", "999999."},
        {"sSize1(0)", "1234567890"},
        {"sMD2(0)", "2022/08/28 20:48:58"},
        {"sMAC(0)", "--> Fail -->"},
        {"LabelTip",
         "Single sync   'New and Modified Files'   from folder 1 to folder 2,  the older file will "
         "be replaced with the newer one, the new files will be copied to another folder."},
        {"LabelN12", "2022/08/28 20:48:58"},
        {"LabelN14", "123456789012  byte"},
        {"Option2", "Replace File 1 with File 2 <--"},
    };
    for (const auto& [name, text] : longest) ExpectRoomFor(text, name, varnel.Look(name));
    const auto expectRoomForOwnText = [&](const Form& form, const std::vector<const char*>& names) {
        for (const char* name : names) ExpectRoomFor(form.Text(name), name, form.Look(name));
    };
    expectRoomForOwnText(
        varnel, {"LabelFolder1", "CommandBrowse1", "CmdOpenFolder1", "Command3", "CheckSync",
                 "lblComparing", "CheckShowPath1", "ColumnTitlesMAC", "Command4", "Command5",
                 "Command6", "Command8", "Label16", "Label18", "Option3", "Command2", "Command7"});

    varnel.Click("LabelFileFilter");
    const Form filter(WaitForWindow(varnel.Id(), "FormFilter", ""));
    expectRoomForOwnText(filter, {"OptionOnly", "OptionExc", "Label1", "Label2", "Label3", "Label4",
                                  "Label5", "Command1", "Command2", "CommandOK", "Command3"});
    RECT room;
    ::GetClientRect(filter.Window(), &room);
    ::MapWindowPoints(filter.Window(), HWND_DESKTOP, reinterpret_cast<POINT*>(&room), 2);
    const RECT corner = filter.Look("Command3").Area;
    EXPECT_LE(corner.right, room.right);
    EXPECT_LE(corner.bottom, room.bottom);
}

}  // namespace

}  // namespace window
