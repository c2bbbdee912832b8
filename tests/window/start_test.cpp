// Starting and ending, the keyboard, the menus, and what is wrong in the folder boxes.
#include <array>

#include "window/window_fixture.h"

namespace window {

namespace {

class StartTest : public WindowTest {
  protected:
    static void TabTo(const Program& varnel, const std::vector<const char*>& names) {
        for (const char* name : names) {
            PressKey(VK_TAB);
            varnel.WaitForFocus(name);
        }
    }
};

TEST_F(StartTest, TakesThePairOfTheCommandLine) {
    const std::array<const char*, 3> cases[] = {
        {"\"C:\\with blanks\",  \"D:\\too\"", "C:\\with blanks", "D:\\too"},
        {"\"C:\\as one , D:\\argument\"", "C:\\as one", "D:\\argument"},
    };
    for (const auto& [commandLine, folder1, folder2] : cases) {
        const Program varnel(commandLine);
        EXPECT_EQ(TextOf(varnel.Look("Combo1").Window), folder1);
        EXPECT_EQ(TextOf(varnel.Look("Combo2").Window), folder2);
        EXPECT_EQ(varnel.Close(), 0u);
    }
}

TEST_F(StartTest, TheKeyboardReachesEverythingAndStaysWhereItWas) {
    PutSmallPair();
    const Program varnel(Pair());
    varnel.WaitForFocus("Combo1");
    TabTo(varnel,
          {"CommandBrowse1", "Combo2", "CommandBrowse2", "Command3", "CheckSync", "CheckShowPath1",
           "CheckShowPath2", "Command4", "Command5", "Command6", "TextFileName", "Combo1"});
    PressKey(VK_RETURN);  // compares; the box rests meanwhile
    varnel.WaitForText("LabelShow", "New and Modified Files:  5");
    varnel.WaitForFocus("Combo1");
    TabTo(varnel, {"CommandBrowse1", "Combo2", "CommandBrowse2", "Command3", "CheckSync"});
    PressKey(VK_SPACE);
    varnel.WaitForValue("CheckSync", 1);
    TabTo(varnel, {"CheckShowPath1", "CheckShowPath2", "Command4", "Command5", "Command6"});
    PressKey(VK_TAB, VK_SHIFT);
    varnel.WaitForFocus("Command5");
    PressKey(VK_SPACE);  // synchronises; the button is hidden meanwhile
    Answer(varnel);
    varnel.WaitForFocus("Command5");
}

TEST_F(StartTest, MenusOpenByTheKeyboard) {
    const Program varnel;
    ::PostMessageW(varnel.Window(), WM_SYSCHAR, 'h', 1 << 29);  // Alt+H
    PressKey('H');
    const std::string help = Answer(varnel);
    EXPECT_TRUE(help.starts_with("information Help Document: How to compare")) << help;
    varnel.WaitForQuiet();
    PressKey(VK_F10);
    PressKey('F');
    PressKey('X');
    EXPECT_EQ(varnel.WaitForEnd(), 0u);
}

TEST_F(StartTest, FoldersThatDoNotExistAreAnsweredByAMessage) {
    PutSmallPair();
    const std::array<std::string, 3> cases[] = {
        {"Q:\\", Folder1(), "1"},
        {Folder1(), Files.Path("2/only2.txt"), "2"},
        {Folder1(), "..\\varnel-no-such-folder\\.", "2"},
        {"\\\\varnel-no-such-server\\share", Folder1(), "1"},
        {Folder1() + "\\*.*", Folder1(), "1"},
        {Folder1(), "C:\\a|b<>?\"", "2"},
        {std::string(2000, 'x'), Folder1(), "1"},
        {"C:" + std::string(1000, '\\') + "z", Folder1(), "1"},
    };
    const Program varnel;
    for (const auto& [folder1, folder2, missing] : cases) {
        varnel.Fill("Combo1", folder1);
        varnel.Fill("Combo2", folder2);
        varnel.Click("Command3");
        EXPECT_EQ(Answer(varnel), "critical Varnel: Folder " + missing + " did not exist!    ");
    }
    varnel.Fill("Combo1", "  " + Folder1() + " ");  // blanks around a path do not matter
    varnel.Fill("Combo2", Folder2() + "\\");
    varnel.Compare();
    EXPECT_EQ(varnel.Text("LabelShow"), "New and Modified Files:  5");
}

}  // namespace

}  // namespace window
