// Picking folders with the system's dialog and opening them in the file browser.
#include <algorithm>

#include "window/window_fixture.h"

namespace window {

namespace {

class FoldersTest : public WindowTest {};

// From the desktop down to a folder on C:, as the tree names them.
Texts TreePath(const std::string& path) {
    Texts names = {"My Computer", " (C:)"};
    for (std::size_t start = 3; start < path.size();) {
        const std::size_t end = std::min(path.find('\\', start), path.size());
        names.push_back(path.substr(start, end - start));
        start = end + 1;
    }
    return names;
}

TEST_F(FoldersTest, BrowsingFillsTheBoxes) {
    const Program varnel;
    varnel.Click("CommandBrowse1");
    FolderDialog dialog1(varnel);
    EXPECT_TRUE(dialog1.Says("Please select Folder 1:"));
    EXPECT_FALSE(::IsWindowEnabled(varnel.Window()));
    const RECT main = AreaOf(varnel.Window()), shown = AreaOf(dialog1.Window());
    EXPECT_EQ(shown.left - main.left, ::MulDiv(1000, 1, 15));
    EXPECT_EQ(shown.top - main.top, ::MulDiv(600, 1, 15));
    dialog1.Select(TreePath(Folder1()));
    dialog1.Press(IDOK);
    varnel.WaitForText("Combo1", Folder1() + "\\");
    varnel.WaitForQuiet();

    varnel.RunMenu("mnuFolder2");
    const FolderDialog dialog2(varnel);
    EXPECT_TRUE(dialog2.Says("Please select Folder 1:"));  // the same words for both
    dialog2.Select({"My Computer", " (C:)"});
    dialog2.Press(IDOK);
    varnel.WaitForText("Combo2", "C:\\");
    EXPECT_EQ(TextOf(varnel.Look("Combo2").Window), "C:\\");
}

TEST_F(FoldersTest, CancellingLeavesTheBoxAsItIs) {
    const Program varnel(Pair());
    for (const char* browse : {"CommandBrowse1", "CommandBrowse2"}) {
        varnel.Click(browse);
        const FolderDialog dialog(varnel);
        dialog.Select({"My Computer", " (C:)"});
        dialog.Press(IDCANCEL);
        varnel.WaitForQuiet();
    }
    varnel.Compare();
    EXPECT_EQ(varnel.Text("Combo1"), Folder1());
    EXPECT_EQ(varnel.Text("Combo2"), Folder2());
}

TEST_F(FoldersTest, TheOpenButtonsAppearUnderThePointer) {
    const Program varnel("C:\\a , ");
    varnel.Click("ImageOpenFolder2");  // its box is empty
    varnel.Point("ImageOpenFolder1");
    const auto shown = [](const Seen& button) { return button.Visible; };
    const auto hidden = [](const Seen& button) { return !button.Visible; };
    varnel.WaitFor("CmdOpenFolder1", "shown", shown);
    EXPECT_FALSE(varnel.Shows("CmdOpenFolder2"));
    const RECT window = AreaOf(varnel.Window());
    const RECT row = varnel.Look("Command3").Area;
    MovePointer({window.left + 10, (row.top + row.bottom) / 2});  // the bare window
    varnel.WaitFor("CmdOpenFolder1", "hidden", hidden);
    varnel.Type("Combo2", "C:\\b");
    varnel.WaitForText("Combo2", "C:\\b");
    varnel.Point("ImageOpenFolder2");
    varnel.WaitFor("CmdOpenFolder2", "shown", shown);
}

TEST_F(FoldersTest, OpensAFolderInTheFileBrowser) {
    const Program varnel(Pair());
    const std::vector<HWND> before = TopWindows(0);
    varnel.Point("ImageOpenFolder1");
    varnel.WaitFor("CmdOpenFolder1", "shown", [](const Seen& button) { return button.Visible; });
    varnel.Click("CmdOpenFolder1");
    HWND browser = nullptr;
    WaitUntil("the file browser", [&] {
        for (const HWND window : TopWindows(0)) {
            const bool isNew = std::find(before.begin(), before.end(), window) == before.end();
            const std::string kind = ClassOf(window);
            if (isNew && (kind == "ExplorerWClass" || kind == "CabinetWClass")) browser = window;
        }
        return browser != nullptr;
    });
    WaitUntil("the browser's title",
              [&] { return TextOf(browser) == "1" || TextOf(browser) == Folder1(); });
    ::PostMessageW(browser, WM_CLOSE, 0, 0);
    WaitUntil("the file browser to close", [&] { return !::IsWindow(browser); });
}

TEST_F(FoldersTest, OpeningAMissingFolderSaysNothing) {
    const Program varnel("C:\\no such folder , C:\\b");
    varnel.RunMenu("mnuOpenFolder1");
    varnel.RunMenu("mnuAbout");
    EXPECT_EQ(Answer(varnel).Title, "About Varnel");
}

}  // namespace

}  // namespace window
