// The window at 100, 150 and 200 %: its sizes, its colours, and that no text is cut off.
#include <algorithm>
#include <cmath>
#include <map>

#include "platform/win32/fonts.h"
#include "platform/win32/text_conversion.h"
#include "window/window_fixture.h"

namespace window {

namespace {

constexpr const char* kDesktopKey = "Control Panel\\Desktop";

// The screen's setting for programs that start from now on.
class ScaleTest : public WindowTest, public testing::WithParamInterface<int> {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        if (IsSkipped()) return;
        const DWORD dpi = static_cast<DWORD>(GetParam());
        ASSERT_EQ(::RegSetKeyValueA(HKEY_CURRENT_USER, kDesktopKey, "LogPixels", REG_DWORD, &dpi,
                                    sizeof dpi),
                  ERROR_SUCCESS);
    }
    void TearDown() override { ::RegDeleteKeyValueA(HKEY_CURRENT_USER, kDesktopKey, "LogPixels"); }
    double Pixels(int twips) const { return twips * GetParam() / 1440.0; }

    // How wide a text is in the font of the window.
    int WidthOf(const std::string& text, bool bold) const {
        const HDC canvas = ::CreateCompatibleDC(nullptr);
        const HGDIOBJ before = ::SelectObject(canvas, fonts_.Get(bold));
        const std::wstring wide = platform::win32::Wide(text);
        SIZE size{};
        ::GetTextExtentPoint32W(canvas, wide.c_str(), static_cast<int>(wide.size()), &size);
        ::SelectObject(canvas, before);
        ::DeleteDC(canvas);
        return size.cx;
    }
    // What a control needs around its text: the frame of a button, the mark of a box, and where a
    // label has a ground of its own half a digit on each side.
    int Around(const Seen& seen) const {
        if (seen.Kind == "Button") return static_cast<int>(Pixels(150));
        if (seen.Kind == "CheckBox" || seen.Kind == "OptionButton")
            return static_cast<int>(Pixels(270));
        return seen.Back == ::GetSysColor(COLOR_BTNFACE) ? 0 : WidthOf("0", seen.Bold);
    }
    void ExpectRoomFor(const std::string& text, const std::string& name, const Seen& seen) const {
        EXPECT_LE(WidthOf(text, seen.Bold) + Around(seen), seen.Area.right - seen.Area.left)
            << name << ": " << text;
    }

  private:
    platform::win32::Fonts fonts_{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(, ScaleTest, testing::Values(96, 144, 192), [](const auto& scale) {
    return std::to_string(scale.param * 100 / 96) + "Percent";
});

TEST_P(ScaleTest, EverythingGrowsAlike) {
    PutSmallPair();
    const Program varnel(Pair());
    const RECT window = varnel.Look("FormMain").Area;
    EXPECT_NEAR(window.right - window.left, Pixels(15360), 1);
    EXPECT_NEAR(window.bottom - window.top, Pixels(10000), 1);
    POINT origin{};
    ::ClientToScreen(varnel.Window(), &origin);
    const auto expectPlace = [&](const std::string& name, int left, int top, int width,
                                 int height) {
        const RECT area = varnel.Look(name).Area;
        EXPECT_NEAR(area.left - origin.x, Pixels(left), 1.5) << name;
        EXPECT_NEAR(area.top - origin.y, Pixels(top), 1.5) << name;
        EXPECT_NEAR(area.right - area.left, Pixels(width), 1.5) << name;
        EXPECT_NEAR(area.bottom - area.top, Pixels(height), 1.5) << name;
    };
    const RECT grid = varnel.Look("Picture2").Area, cell = varnel.Look("sFile1(0)").Area;
    const int cellLeft =
        static_cast<int>(std::lround((cell.left - grid.left) * 1440.0 / GetParam()));
    expectPlace("Command3", 900, 480, 1500, 345);
    expectPlace("Combo1", 900, 90, 4800, 345);
    for (const int row : {0, 13, 24})
        expectPlace(Program::Cell("sFile1", row), 120 + cellLeft, 1560 + 260 + row * 240, 2040,
                    225);

    varnel.Compare();
    varnel.Click("sMAC(0)");
    varnel.WaitFor("Picture3", "open", [](const Seen& panel) { return panel.Visible; });
    const RECT panel = varnel.Look("Picture3").Area;
    EXPECT_NEAR(panel.top - origin.y, Pixels(260 + 2040), 1.5);
    EXPECT_LE(panel.bottom - panel.top, Pixels(2100) + 1);
}

TEST_P(ScaleTest, TheRowsFillTheirPixels) {
    PutSmallPair();
    const Program varnel(Pair());
    varnel.Compare();
    varnel.Click("sFile1(1)");
    const RECT selected = varnel.Look("sFile1(1)").Area;
    const ScreenPicture picture = varnel.WaitForPicture([&](const ScreenPicture& seen) {
        return seen.At(selected.left + 1, selected.top + 1) == 0x008000;
    });
    EXPECT_NEAR(selected.bottom - selected.top, Pixels(225), 1.5);
    for (int x = selected.left; x < selected.right; ++x) {
        EXPECT_EQ(picture.At(x, selected.top), 0x008000u) << x;
        EXPECT_EQ(picture.At(x, selected.bottom - 1), 0x008000u) << x;
        EXPECT_NE(picture.At(x, selected.top - 1), 0x008000u) << x;
        EXPECT_NE(picture.At(x, selected.bottom), 0x008000u) << x;
    }
}

TEST_P(ScaleTest, NoTextIsCutOff) {
    PutSmallPair();
    const Program varnel(Pair());
    const std::multimap<std::string, std::string> texts = {
        {"LabelFolder1", "Folder 1:"},
        {"LabelFolder2", "Folder 2:"},
        {"CommandBrowse1", "Browse..."},
        {"CmdOpenFolder1", "Open"},
        {"Command3", "Compare"},
        {"CheckSync", "sync after compare"},
        {"LabelFileFilter", "Only sync files with extensions:  .jpg .bmp .gif .psd .png .doc .txt"},
        {"LabelNewFile", "New Files ( 1234567 ) "},
        {"LabelNewFile", "Sync --> ( 1234567 ) "},
        {"LabelChgFile", "Modified Files ( 1234567 ) "},
        {"LabelChgFile", "( 1234567 ) <-- Sync"},
        {"LabelNewChgFile", "New and Modified Files ( 1234567 ) "},
        {"LabelNewChgFile", "Sync Fail ( 1234567 ) "},
        {"LabelAllFile", "Unchanged Files ( 1234567 )"},
        {"LabelAllFile", "Sync Total ( 1234567 ) "},
        {"lblComparing", "Comparing ..."},
        {"LabelShow", "New and Modified Files:  1234567"},
        {"LabelShow", "Sync from Folder 1 to 2:  1234567"},
        {"CheckShowPath1", "Show Path"},
        {"CheckShowPath2", "Show Path"},
        {"ColumnTitlesMAC", "Sync Direction"},
        {"sTYPE(0)", "999999."},
        {"sSize1(0)", "1234567890"},
        {"sMD1(0)", "2022/08/28 20:48:58"},
        {"sMD2(0)", "2022/08/28 20:48:58"},
        {"sMAC(0)", "---/---/---"},
        {"sMAC(0)", "<-- Replace"},
        {"sMAC(0)", "--> Fail -->"},
        {"Command4", "Double Sync"},
        {"Command5", "Left Sync  -->"},
        {"Command6", "<--  Right Sync"},
        {"Command8", "Stop"},
        {"LabelTip",
         "Single sync   'New and Modified Files'   from folder 1 to folder 2,  the older file will "
         "be replaced with the newer one, the new files will be copied to another folder."},
        {"Label16", "File 1:"},
        {"Label18", "Action:"},
        {"LabelN11", "Newer"},
        {"LabelN12", "2022/08/28 20:48:58"},
        {"LabelN13", "Smaller"},
        {"LabelN14", "123456789012  byte"},
        {"Option1", "Replace File 2 with File 1 -->"},
        {"Option2", "Replace File 1 with File 2 <--"},
        {"Option3", "Do not sync"},
        {"Command2", "OK"},
        {"Command7", "Cancel"},
    };
    for (const auto& [name, text] : texts) ExpectRoomFor(text, name, varnel.Look(name));

    varnel.Click("LabelFileFilter");
    const Form filter = varnel.WaitForForm("FormFilter");
    RECT room;
    ::GetClientRect(filter.Window(), &room);
    ::MapWindowPoints(filter.Window(), HWND_DESKTOP, reinterpret_cast<POINT*>(&room), 2);
    for (const char* name : {"OptionOnly", "OptionExc", "Label1", "Label2", "Label3", "Label4",
                             "Label5", "Command1", "Command2", "CommandOK", "Command3"}) {
        const Seen seen = filter.Look(name);
        ExpectRoomFor(seen.Text, name, seen);
        EXPECT_LE(seen.Area.right, room.right) << name;
        EXPECT_LE(seen.Area.bottom, room.bottom) << name;
    }
}

}  // namespace

}  // namespace window
