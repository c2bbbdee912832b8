// While a long command runs, only its Stop button, hovering and closing act. Each test tries its
// luck at every yield of the command in turn.
#include <algorithm>
#include <functional>
#include <set>
#include <span>
#include <string>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace app {
namespace {

using fakes::MainWindow;
using fakes::Texts;

struct Command {
    const char* Name;
    std::function<void(MainWindow&)> Prepare;
    std::function<void(MainWindow&)> Run;
};

void Fill(MainWindow& window) {
    for (const char* name : {"1/n1", "1/s/n2", "2/m1", "2/s/m2"}) window.Put(name);
    for (const char* name : {"same", "c"}) window.PutBoth(name);
    window.Put("1/c", fakes::kNew);
    window.form.Combo1.AddEntry("/other 1");
    window.form.Combo2.AddEntry("/other 2");
}

void Compare(MainWindow& window) {
    window.form.Command3.Click();
}
void CompareAndOpenPanel(MainWindow& window) {
    Compare(window);
    window.form.sMAC[0].Click();
    window.form.Option3.Click();
}

const Command kCommands[] = {
    {"compare", [](MainWindow&) {}, Compare},
    {"compare again", Compare, Compare},
    {"refused compare", [](MainWindow& window) { window.form.Combo2.Edit("none"); }, Compare},
    {"compare and sync", [](MainWindow& window) { window.form.CheckSync.Click(); }, Compare},
    {"double sync", CompareAndOpenPanel, [](MainWindow& window) { window.form.Command4.Click(); }},
    {"left sync", Compare, [](MainWindow& window) { window.form.Command5.Click(); }},
    {"right sync", Compare, [](MainWindow& window) { window.form.Command6.Click(); }},
};

// Runs the commands once for each of their yields; `act` gets the window at that yield, `check`
// when the command has ended, with the window of an undisturbed run.
void AtEveryYield(std::span<const Command> commands, const std::function<void(MainWindow&)>& act,
                  const std::function<void(MainWindow&, const MainWindow&)>& check) {
    for (const Command& command : commands) {
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

// The tick of the next comparison's sync and an option's dot are no commands.
const std::set<std::string> kNoCommands{"Command3",  "Command8", "Command9", "Command10",
                                        "CheckSync", "Option1",  "Option2",  "Option3"};

TEST(RunningCommand, EverythingElseIsDropped) {
    AtEveryYield(
        kCommands,
        [](MainWindow& window) {
            window.dialogs.FolderAnswers = {"/picked", "/picked"};
            window.host.OnModal = [](platform::Form& form) { ADD_FAILURE() << form.Name; };
            for (platform::Control* control : window.form.Window.Controls)
                if (!kNoCommands.contains(control->Name())) control->Click();
            for (const platform::MenuItem& menu : window.form.Window.Menu)
                for (const platform::MenuItem& item : menu.Items)
                    if (item.OnClick && item.Name != "mnuExit") item.OnClick();
            window.form.Combo1.Pick(0);
        },
        [](const MainWindow& window, const MainWindow& undisturbed) {
            EXPECT_EQ(window.Everything(), undisturbed.Everything());
            EXPECT_EQ(window.files.Copies, undisturbed.files.Copies);
        });
}

Texts Found(const MainWindow& window) {
    const compare::CompareTable& table = window.form.Table;
    Texts found;
    for (const compare::ItemList* list : {&table.NewList, &table.ChgList, &table.SameList})
        for (const std::string& row : fakes::Rows(*list)) found.push_back(row);
    std::sort(found.begin(), found.end());
    return found;
}

TEST(RunningCommand, AStoppedComparisonKeepsWhatItFoundAndTheNextOneFindsAll) {
    long long yields = 0;
    std::size_t before = 0;
    AtEveryYield(
        std::span(kCommands).first(1),
        [&](MainWindow& window) {
            yields = window.host.Yields;
            before = Found(window).size();
            if (window.form.Command3.Caption() != "Stop") return;
            window.form.Command3.Click();
            EXPECT_EQ(window.form.Command3.Caption(), "Compare");
            window.form.Command3.Click();  // does not start another
        },
        [&](MainWindow& window, const MainWindow& undisturbed) {
            FormMain& form = window.form;
            const Texts found = Found(window), all = Found(undisturbed);
            EXPECT_TRUE(std::includes(all.begin(), all.end(), found.begin(), found.end()));
            if (form.Table.StopRequested) {
                EXPECT_LE(found.size() - before, 2u) << "one entry of each walk";
                EXPECT_LE(window.host.Yields - yields, 120) << "the rest of counting one folder";
            }
            EXPECT_EQ(form.Table.NewChgCount(), form.Table.NewCount() + form.Table.ChgCount());
            EXPECT_EQ(form.LabelNewFile.Caption(),
                      "New Files ( " + std::to_string(form.Table.NewCount()) + " ) ");
            EXPECT_EQ(form.CurrentViewCode(), form.Table.NewChgCount() > 0 ? "NewChg" : "Same");
            EXPECT_TRUE(form.LabelAllFile.Visible() && !form.lblComparing.Visible());
            EXPECT_EQ(form.Command3.Caption(), "Compare");
            form.Command3.Click();
            EXPECT_EQ(window.Everything(), undisturbed.Everything());
        });
}

TEST(RunningCommand, ClosingOrExitStopsItThenCloses) {
    const std::function<void(MainWindow&)> ways[] = {
        [](MainWindow& window) { EXPECT_FALSE(window.form.Window.OnCloseRequest()); },
        [](MainWindow& window) { window.ClickMenu("mnuExit"); }};
    for (const auto& close : ways) {
        long long yields = 0;
        std::size_t messages = 0, copies = 0;
        AtEveryYield(
            kCommands,
            [&](MainWindow& window) {
                messages = window.dialogs.Messages.size();
                copies = window.files.Copies.size();
                close(window);
                EXPECT_TRUE(window.host.IsShown(window.form.Window));
                yields = window.host.Yields;
            },
            [&](const MainWindow& window, const MainWindow&) {
                EXPECT_TRUE(window.host.ShownForms.empty());
                EXPECT_EQ(window.dialogs.Messages.size(), messages);
                EXPECT_LE(window.files.Copies.size() - copies, 1u);
                // What is left of counting one folder, one entry of each walk, one copy.
                EXPECT_LE(window.host.Yields - yields, 130);
            });
    }
}

// The rows being shown are those of before; the scroll bar jumps back to them.
TEST(RunningCommand, AnExportIsOneAndHoveringGoesOn) {
    const fakes::TempFolder folder;
    MainWindow window;
    FormMain& form = window.form;
    for (int i = 0; i < 1500; ++i) window.Put("1/n" + std::to_string(i));
    Compare(window);
    form.VScroll1.Scroll(7);
    window.dialogs.FileNameAnswers = {folder.Path("report.txt")};
    window.AtYield(1, [&] {
        Compare(window);
        form.Command4.Click();
        form.VScroll1.Scroll(20);
        form.Window.OnScrollKey(platform::ScrollKey::End);
        form.Window.OnWheel(3);
        EXPECT_EQ(form.VScroll1.Value(), 7);
        EXPECT_EQ(form.sTYPE[0].Caption(), "8.");
        form.sFile1[2].PointerMove({});
        EXPECT_EQ(form.sFile1[2].BackColor(), 0xFFFF80u);
        EXPECT_FALSE(form.Window.OnCloseRequest());
    });
    window.ClickMenu("mnuExportNew");
    EXPECT_EQ(window.TakeMessages(), Texts()) << "nobody is there to read that it is saved";
    EXPECT_TRUE(folder.Exists("report.txt"));
    EXPECT_TRUE(window.host.ShownForms.empty());
    EXPECT_EQ(form.Table.NewCount(), 1500);
    EXPECT_TRUE(window.files.Copies.empty());
}

}  // namespace
}  // namespace app
