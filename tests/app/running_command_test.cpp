// While a long command runs, only its Stop button, hovering and closing act. Each test tries its
// luck at every yield of the command in turn.
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace app {
namespace {

using fakes::FakeFiles;
using fakes::kNew;
using fakes::kOld;
using fakes::MainWindow;
using fakes::Texts;

struct Command {
    const char* Name;
    std::function<void(MainWindow&)> Prepare;
    std::function<void(MainWindow&)> Run;
};

void Fill(MainWindow& window) {
    for (const char* name : {"1/n1", "1/n2", "2/m1", "2/m2"}) window.Put(name);
    window.PutBoth("same");
    window.Put("1/c", kNew);
    window.Put("2/c", kOld);
}

void Compare(MainWindow& window) {
    window.form.Command3.Click();
}

const Command kCommands[] = {
    {"compare", [](MainWindow&) {}, Compare},
    {"compare again", Compare, Compare},
    {"compare and sync", [](MainWindow& window) { window.form.CheckSync.Click(); }, Compare},
    {"double sync", Compare, [](MainWindow& window) { window.form.Command4.Click(); }},
    {"double sync, panel open",
     [](MainWindow& window) {
         Compare(window);
         window.form.sMAC[0].Click();
         window.form.Option3.Click();
     },
     [](MainWindow& window) { window.form.Command4.Click(); }},
    {"left sync", Compare, [](MainWindow& window) { window.form.Command5.Click(); }},
    {"right sync", Compare, [](MainWindow& window) { window.form.Command6.Click(); }},
};

// Runs every command once for each of its yields; `act` gets the window at that yield, `check`
// when the command has ended, with the window of an undisturbed run.
void AtEveryYield(const std::function<void(MainWindow&)>& act,
                  const std::function<void(MainWindow&, const MainWindow&)>& check) {
    for (const Command& command : kCommands) {
        MainWindow undisturbed;
        Fill(undisturbed);
        command.Prepare(undisturbed);
        undisturbed.host.Yields = 0;
        command.Run(undisturbed);
        ASSERT_GT(undisturbed.host.Yields, 0);
        for (long long n = 1; n <= undisturbed.host.Yields; ++n) {
            SCOPED_TRACE(std::string(command.Name) + ", yield " + std::to_string(n));
            MainWindow window;
            Fill(window);
            command.Prepare(window);
            window.AtYield(n, [&] { act(window); });
            command.Run(window);
            window.host.OnYield = nullptr;
            check(window, undisturbed);
            if (testing::Test::HasFailure()) return;
        }
    }
}

bool IsStop(const app::FormMain& form, const platform::Control* control) {
    return control == &form.Command3 || control == &form.Command8 || control == &form.Command9 ||
           control == &form.Command10;
}

// A box's tick and an option's dot are no commands.
bool IsChoice(const platform::Control* control) {
    return control->Kind() == platform::ControlKind::CheckBox ||
           control->Kind() == platform::ControlKind::OptionButton;
}

TEST(RunningCommand, ClicksOnEverythingElseAreDropped) {
    AtEveryYield(
        [](MainWindow& window) {
            window.dialogs.FolderAnswers = {"/picked", "/picked"};
            for (platform::Control* control : window.form.Window.Controls)
                if (!IsStop(window.form, control) && !IsChoice(control)) control->Click();
            window.host.OnModal = [](platform::Form& form) { ADD_FAILURE() << form.Name; };
        },
        [](const MainWindow& window, const MainWindow& undisturbed) {
            EXPECT_EQ(window.Everything(), undisturbed.Everything());
            EXPECT_EQ(window.files.Copies, undisturbed.files.Copies);
        });
}

TEST(RunningCommand, MenusKeysAndScrollingAreDropped) {
    AtEveryYield(
        [](MainWindow& window) {
            window.dialogs.FolderAnswers = {"/picked", "/picked"};
            for (const platform::MenuItem& menu : window.form.Window.Menu)
                for (const platform::MenuItem& item : menu.Items)
                    if (item.OnClick && item.Name != "mnuExit") item.OnClick();
            window.form.VScroll1.Scroll(1);
            window.form.Window.OnScrollKey(platform::ScrollKey::End);
            window.form.Window.OnWheel(1);
        },
        [](const MainWindow& window, const MainWindow& undisturbed) {
            EXPECT_EQ(window.Everything(), undisturbed.Everything());
            EXPECT_EQ(window.files.Copies, undisturbed.files.Copies);
        });
}

// Else the two boxes would show folders of two different pairs.
TEST(RunningCommand, PickingAPairIsDroppedWhole) {
    MainWindow window;
    Fill(window);
    window.form.Combo1.AddEntry("/other 1");
    window.form.Combo2.AddEntry("/other 2");
    window.AtYield(50, [&] { window.form.Combo1.Pick(0); });
    Compare(window);
    EXPECT_EQ(window.form.Combo1.Text(), FakeFiles::Path("1"));
    EXPECT_EQ(window.form.Combo2.Text(), FakeFiles::Path("2"));
}

TEST(RunningCommand, AnExportIsOne) {
    const fakes::TempFolder folder;
    MainWindow window;
    for (int i = 0; i < 1500; ++i) window.Put("1/n" + std::to_string(i));
    Compare(window);
    window.dialogs.FileNameAnswers = {folder.Path("report.txt")};
    window.AtYield(1, [&] {
        for (platform::Control* control : {&window.form.Command3, &window.form.Command4})
            control->Click();
        window.form.LabelAllFile.Click();
        EXPECT_EQ(window.form.CurrentViewCode(), "NewChg");
        EXPECT_FALSE(window.form.Window.OnCloseRequest());
    });
    window.ClickMenu("mnuExportNew");
    EXPECT_TRUE(folder.Exists("report.txt"));
    EXPECT_TRUE(window.host.ShownForms.empty());
    EXPECT_EQ(window.form.Table.NewCount(), 1500);
}

// The rows being shown are those of before; the scroll bar jumps back to them.
TEST(RunningCommand, TheScrollBarStaysWhereThePageIs) {
    MainWindow window;
    for (int i = 0; i < 60; ++i) window.Put("1/n" + std::to_string(i));
    Compare(window);
    window.form.VScroll1.Scroll(7);
    window.host.OnYield = [&](long long) {
        if (window.form.CurrentViewCode() != "NewChg") return;
        window.form.VScroll1.Scroll(20);
        window.form.Window.OnScrollKey(platform::ScrollKey::End);
        window.form.Window.OnWheel(3);
        EXPECT_EQ(window.form.VScroll1.Value(), 7);
        EXPECT_EQ(window.form.sTYPE[0].Caption(), "8.");
    };
    window.form.Command4.Click();
}

TEST(RunningCommand, HoveringGoesOn) {
    MainWindow window;
    Fill(window);
    Compare(window);
    bool hovered = false;
    window.AtYield(3, [&] {
        window.form.sFile1[2].PointerMove({});
        hovered = window.form.sFile1[2].BackColor() == 0xFFFF80;
    });
    window.form.Command4.Click();
    EXPECT_TRUE(hovered);
}

TEST(RunningCommand, ClosingStopsItThenCloses) {
    long long yieldsAtClosing = 0;
    std::size_t messages = 0;
    std::size_t copies = 0;
    AtEveryYield(
        [&](MainWindow& window) {
            messages = window.dialogs.Messages.size();
            copies = window.files.Copies.size();
            EXPECT_FALSE(window.form.Window.OnCloseRequest());
            EXPECT_TRUE(window.host.IsShown(window.form.Window));
            yieldsAtClosing = window.host.Yields;
        },
        [&](const MainWindow& window, const MainWindow&) {
            EXPECT_TRUE(window.host.ShownForms.empty());
            EXPECT_EQ(window.dialogs.Messages.size(), messages);
            EXPECT_LE(window.files.Copies.size() - copies, 1u);
            // What is left of counting one folder, one entry of each walk, one copy.
            EXPECT_LE(window.host.Yields - yieldsAtClosing, 130);
        });
}

TEST(RunningCommand, ExitInTheMenuIsClosingToo) {
    AtEveryYield(
        [](MainWindow& window) {
            window.ClickMenu("mnuExit");
            EXPECT_TRUE(window.host.IsShown(window.form.Window));
        },
        [](const MainWindow& window, const MainWindow&) {
            EXPECT_TRUE(window.host.ShownForms.empty());
        });
}

TEST(RunningCommand, AfterwardsEverythingActsAgain) {
    MainWindow window;
    Fill(window);
    Compare(window);
    window.form.Command4.Click();
    window.dialogs.FolderAnswers = {"/picked"};
    window.form.CommandBrowse1.Click();
    EXPECT_EQ(window.form.Combo1.Text(), std::string("/picked") + platform::Separator);
    window.form.LabelChgFile.Click();
    EXPECT_EQ(window.form.CurrentViewCode(), "Chg");
}

}  // namespace
}  // namespace app
