// While a long command runs, only its Stop button, hovering and closing act. Each test tries its
// luck at every yield of the command in turn.
#include <algorithm>
#include <functional>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace app {
namespace {

using fakes::Texts;

// Files of all kinds in the two folders, and a second pair in the boxes' lists.
struct FilledWindow : fakes::MainWindow {
    FilledWindow() {
        for (const char* name : {"1/n1", "1/s/n2", "2/m1", "2/s/m2"}) Put(name);
        for (const char* name : {"same", "c"}) PutBoth(name);
        Put("1/c", fakes::kNew);
        form.Combo1.AddEntry("/other 1");
        form.Combo2.AddEntry("/other 2");
    }

    // Clicks one control after the other; calls `act` at the n-th yield of the last.
    void Run(const Texts& clicks, long long n, const std::function<void()>& act) {
        for (const std::string& name : clicks) {
            if (&name == &clicks.back()) AtYield(n, act);
            form.Window.Find(name)->Click();
        }
        host.OnYield = nullptr;
    }
};

// Comparing again, comparing and synchronising, synchronising while the direction panel is open.
const Texts kCommands[] = {
    {"Command3", "Command3"},
    {"CheckSync", "Command3"},
    {"Command3", "sMAC(0)", "Option3", "Command4"},
};

// Runs a command once for each of its yields; `act` gets the window at that yield, `check` when
// the command has ended, with the window of an undisturbed run.
void AtEveryYield(const Texts& clicks, const std::function<void(FilledWindow&)>& act,
                  const std::function<void(FilledWindow&, const FilledWindow&)>& check) {
    FilledWindow undisturbed;
    undisturbed.Run(clicks, 0, nullptr);
    ASSERT_GT(undisturbed.host.Yields, 0);
    for (long long n = 1; n <= undisturbed.host.Yields; ++n) {
        SCOPED_TRACE(testing::PrintToString(clicks) + ", yield " + std::to_string(n));
        FilledWindow window;
        window.Run(clicks, n, [&] { act(window); });
        check(window, undisturbed);
        if (testing::Test::HasFailure()) return;
    }
}

// The tick of the next comparison's sync and an option's dot are no commands.
const std::set<std::string> kNoCommands{"Command3",  "Command8", "Command9", "Command10",
                                        "CheckSync", "Option1",  "Option2",  "Option3"};

void TryEveryCommand(FilledWindow& window) {
    FormMain& form = window.form;
    window.dialogs.FolderAnswers = {"/picked", "/picked"};
    window.host.OnModal = [](platform::Form& dialog) { ADD_FAILURE() << dialog.Name; };
    for (platform::Control* control : form.Window.Controls)
        if (!kNoCommands.contains(control->Name())) control->Click();
    for (const platform::MenuItem& menu : form.Window.Menu)
        for (const platform::MenuItem& item : menu.Items)
            if (item.OnClick && item.Name != "mnuExit") item.OnClick();
    form.Combo1.Pick(0);
    form.VScroll1.Scroll(20);
    form.Window.OnScrollKey(platform::ScrollKey::End);
    form.Window.OnWheel(3);
}

TEST(RunningCommand, EverythingElseIsDropped) {
    for (const Texts& clicks : kCommands)
        AtEveryYield(clicks, TryEveryCommand,
                     [](FilledWindow& window, const FilledWindow& undisturbed) {
                         EXPECT_EQ(window.Everything(), undisturbed.Everything());
                         EXPECT_EQ(window.files.Copies, undisturbed.files.Copies);
                     });
}

std::set<std::string> Found(const FilledWindow& window) {
    const compare::CompareTable& table = window.form.Table;
    std::set<std::string> found;
    for (const compare::ItemList* list : {&table.NewList, &table.ChgList, &table.SameList})
        for (const std::string& row : fakes::Rows(*list)) found.insert(row);
    return found;
}

TEST(RunningCommand, AStoppedComparisonKeepsWhatItFoundAndTheNextOneFindsAll) {
    std::size_t before = 0;
    const auto stop = [&](FilledWindow& window) {
        before = Found(window).size();
        if (window.form.Command3.Caption() != "Stop") return;
        window.form.Command3.Click();
        window.form.Command3.Click();  // does not start another
    };
    const auto check = [&](FilledWindow& window, const FilledWindow& undisturbed) {
        const compare::CompareTable& table = window.form.Table;
        const std::set<std::string> found = Found(window), all = Found(undisturbed);
        EXPECT_TRUE(std::includes(all.begin(), all.end(), found.begin(), found.end()));
        const std::size_t most = table.StopRequested ? before + 2 : all.size();
        EXPECT_LE(found.size(), most) << "one entry of each walk";
        EXPECT_EQ(table.NewChgCount(), table.NewCount() + table.ChgCount());
        EXPECT_EQ(window.form.LabelNewFile.Caption(),
                  "New Files ( " + std::to_string(table.NewCount()) + " ) ");
        EXPECT_EQ(window.form.CurrentViewCode(), table.NewChgCount() > 0 ? "NewChg" : "Same");
        window.form.Command3.Click();
        EXPECT_EQ(window.Everything(), undisturbed.Everything());
    };
    AtEveryYield({"Command3"}, stop, check);
}

TEST(RunningCommand, ClosingOrExitStopsItThenCloses) {
    long long yields = 0;
    std::size_t copies = 0;
    const auto check = [&](const FilledWindow& window, const FilledWindow&) {
        EXPECT_TRUE(window.host.ShownForms.empty());
        EXPECT_LE(window.files.Copies.size() - copies, 1u);
        // What is left of counting one folder, one entry of each walk, one copy.
        EXPECT_LE(window.host.Yields - yields, 130);
    };
    for (const bool byExit : {true, false}) {
        const auto close = [&](FilledWindow& window) {
            copies = window.files.Copies.size();
            if (byExit)
                window.ClickMenu("mnuExit");
            else
                EXPECT_FALSE(window.form.Window.OnCloseRequest());
            EXPECT_TRUE(window.host.IsShown(window.form.Window));
            yields = window.host.Yields;
        };
        for (const Texts& clicks : kCommands) AtEveryYield(clicks, close, check);
    }
}

// The rows being shown are those of before; the scroll bar jumps back to them.
TEST(RunningCommand, AnExportIsOneAndHoveringGoesOn) {
    const fakes::TempFolder folder;
    FilledWindow window;
    FormMain& form = window.form;
    for (int i = 0; i < 1500; ++i) window.Put("1/more" + std::to_string(i));
    form.Command3.Click();
    form.VScroll1.Scroll(7);
    window.dialogs.FileNameAnswers = {folder.Path("report.txt")};
    window.AtYield(1, [&] {
        TryEveryCommand(window);
        EXPECT_EQ(form.VScroll1.Value(), 7);
        EXPECT_EQ(form.sTYPE[0].Caption(), "8.");
        form.sFile1[2].PointerMove({});
        EXPECT_EQ(form.sFile1[2].BackColor(), grid::kHoverBack);
        EXPECT_FALSE(form.Window.OnCloseRequest());
    });
    window.ClickMenu("mnuExportNew");
    EXPECT_EQ(window.TakeMessages(), Texts()) << "nobody is there to read that it is saved";
    EXPECT_EQ(folder.Names(), Texts{"report.txt"});
    EXPECT_TRUE(window.host.ShownForms.empty());
    EXPECT_TRUE(window.files.Copies.empty());
}

}  // namespace
}  // namespace app
