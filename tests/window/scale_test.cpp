// The window at 100 and 150 %: its size, its colours, and that no text is cut off.
#include "platform/win32/fonts.h"
#include "platform/win32/text_conversion.h"
#include "window/window_fixture.h"

namespace window {
namespace {

class ScaleTest : public WindowTest, public testing::WithParamInterface<DWORD> {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        if (IsSkipped()) return;
        const DWORD dpi = GetParam();
        ::RegSetKeyValueA(HKEY_CURRENT_USER, kDesktop, kDpi, REG_DWORD, &dpi, sizeof dpi);
        PutSmallPair();
    }
    void TearDown() override { ::RegDeleteKeyValueA(HKEY_CURRENT_USER, kDesktop, kDpi); }

    double Pixels(int twips) const { return twips * GetParam() / 1440.0; }

    // `around` is what the control needs beside its text.
    void ExpectRoomFor(const std::string& text, const RECT& area, double around,
                       bool bold = false) const {
        EXPECT_LE(WidthOf(text, bold) + around, area.right - area.left) << text;
    }
    // On a ground of its own a label needs half a digit on each side.
    void ExpectRoomFor(const std::string& text, const Seen& label) const {
        const bool ownGround = label.Back != ::GetSysColor(COLOR_BTNFACE);
        ExpectRoomFor(text, label.Area, ownGround ? WidthOf("0", label.Bold) : 0, label.Bold);
    }

  private:
    int WidthOf(const std::string& text, bool bold) const {
        const std::wstring wide = platform::win32::Wide(text);
        const HDC canvas = ::CreateCompatibleDC(nullptr);
        ::SelectObject(canvas, fonts_.Get(bold));
        SIZE size{};
        ::GetTextExtentPoint32W(canvas, wide.c_str(), static_cast<int>(wide.size()), &size);
        ::DeleteDC(canvas);
        return size.cx;
    }
    static constexpr char kDesktop[] = "Control Panel\\Desktop", kDpi[] = "LogPixels";
    platform::win32::Fonts fonts_{static_cast<int>(GetParam())};
};

INSTANTIATE_TEST_SUITE_P(, ScaleTest, testing::Values(96, 144));

TEST_P(ScaleTest, TheWindowHasItsSizeAndRowsFillTheirPixels) {
    const Program varnel(Pair());
    const RECT window = AreaOf(varnel.Window()), box = varnel.Look("Combo1").Area;
    EXPECT_NEAR(window.right - window.left, Pixels(15360), 1);
    EXPECT_NEAR(window.bottom - window.top, Pixels(10000), 1);
    EXPECT_NEAR(window.top, (::GetSystemMetrics(SM_CYSCREEN) - Pixels(10000)) / 2.4, 1);
    EXPECT_NEAR(box.bottom - box.top, Pixels(345), 1.5);
    varnel.Compare();
    varnel.Click("sFile1(1)");
    varnel.Point("sMD2(3)");
    varnel.WaitFor("TextFileName", &Seen::Text, Files.Path("1/chg-left.txt"));
    const RECT cell = varnel.Look("sFile1(1)").Area, pointed = varnel.Look("sTYPE(3)").Area;
    WaitForColor({pointed.left, pointed.top}, kHovered);
    for (LONG x = cell.left; x < cell.right; ++x) {
        EXPECT_EQ(ColorAt({x, cell.top}), kSelected) << x;
        EXPECT_EQ(ColorAt({x, cell.bottom - 1}), kSelected) << x;
        EXPECT_NE(ColorAt({x, cell.top - 1}), kSelected) << x;
        EXPECT_NE(ColorAt({x, cell.bottom}), kSelected) << x;
    }
    varnel.Point("Picture1");
    WaitForColor({pointed.left, pointed.top}, kPlain);
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
    };
    for (const auto& [name, text] : longest) ExpectRoomFor(text, varnel.Look(name));
    for (const char* name : {"LabelFolder1", "ColumnTitlesMAC", "Label16", "Label18"})
        ExpectRoomFor(varnel.Text(name), varnel.Look(name));
    ExpectRoomFor("Replace File 1 with File 2 <--", varnel.Look("Option2").Area, Pixels(270));

    varnel.Click("LabelFileFilter");
    const Form filter(WaitForWindow(varnel.Id(), "FormFilter", ""));
    for (const char* name : {"Label1", "Label2", "Label3", "Label4", "Label5"})
        ExpectRoomFor(filter.Text(name), filter.Look(name));
    for (const HWND parent : {varnel.Window(), varnel.Look("Picture3").Window, filter.Window()})
        for (HWND next = nullptr; (next = ::FindWindowExA(parent, next, "Button", nullptr));) {
            const LONG kind = ::GetWindowLongW(next, GWL_STYLE) & BS_TYPEMASK;
            ExpectRoomFor(TextOf(next), AreaOf(next), Pixels(kind > BS_DEFPUSHBUTTON ? 270 : 150));
        }
    RECT room;
    ::GetClientRect(filter.Window(), &room);
    ::MapWindowPoints(filter.Window(), HWND_DESKTOP, reinterpret_cast<POINT*>(&room), 2);
    const RECT corner = filter.Look("Command3").Area;
    EXPECT_LE(corner.right, room.right);
    EXPECT_LE(corner.bottom, room.bottom);
}

}  // namespace
}  // namespace window
