// While a long command runs, only its Stop button, hovering and closing act. Each test tries its
// luck at every yield of the command in turn.
#include <algorithm>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace app {
namespace {

using fakes::kNew;
using fakes::MainWindow;
using fakes::Rows;
using fakes::Texts;

struct Command {
    const char* Name;
    std::function<void(MainWindow&)> Prepare;
    std::function<void(MainWindow&)> Run;
};

void Fill(MainWindow& window) {
    for (const char* name : {"1/n1", "1/s/n2", "2/m1", "2/s/m2"}) window.Put(name);
    for (const char* name : {"same", "c"}) window.PutBoth(name);
    window.Put("1/c", kNew);
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
bool IsCommand(const FormMain& form, const platform::Control* control) {
    const platform::Control* const stops[] = {&form.Command3, &form.Command8, &form.Command9,
                                              &form.Command10};
    return std::find(std::begin(stops), std::end(stops), control) == std::end(stops) &&
           control != &form.CheckSync && control->Kind() != platform::ControlKind::OptionButton;
}

TEST(RunningCommand, EverythingElseIsDropped) {
    AtEveryYield(
        kCommands,
        [](MainWindow& window) {
            window.dialogs.FolderAnswers = {"/picked", "/picked"};
            window.host.OnModal = [](platform::Form& form) { ADD_FAILURE() << form.Name; };
            for (platform::Control* control : window.form.Window.Controls)
                if (IsCommand(window.form, control)) control->Click();
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

bool IsPrefix(const Texts& part, const Texts& whole) {
    return part.size() <= whole.size() && std::equal(part.begin(), part.end(), whole.begin());
}

// The New rows that one of the walks found.
Texts NewOf(const MainWindow& window, const char* code) {
    Texts rows = Rows(window.form.Table.NewList);
    std::erase_if(rows, [code](const std::string& row) { return !row.starts_with(code); });
    return rows;
}

int RowsFound(const MainWindow& window) {
    const compare::CompareTable& table = window.form.Table;
    return table.NewCount() + table.ChgCount() + table.SameCount();
}

TEST(RunningCommand, AStoppedComparisonKeepsWhatItFoundAndTheNextOneFindsAll) {
    long long yields = 0;
    int rows = 0;
    AtEveryYield(
        std::span(kCommands).first(1),
        [&](MainWindow& window) {
            yields = window.host.Yields;
            rows = RowsFound(window);
            if (window.form.Command3.Caption() != "Stop") return;
            window.form.Command3.Click();
            EXPECT_EQ(window.form.Command3.Caption(), "Compare");
            window.form.Command3.Click();  // does not start another
        },
        [&](MainWindow& window, const MainWindow& undisturbed) {
            FormMain& form = window.form;
            const compare::CompareTable& all = undisturbed.form.Table;
            EXPECT_TRUE(IsPrefix(Rows(form.Table.ChgList), Rows(all.ChgList)));
            EXPECT_TRUE(IsPrefix(Rows(form.Table.SameList), Rows(all.SameList)));
            EXPECT_TRUE(IsPrefix(NewOf(window, "11 "), NewOf(undisturbed, "11 ")));
            EXPECT_TRUE(IsPrefix(NewOf(window, "12 "), NewOf(undisturbed, "12 ")));
            if (form.Table.StopRequested) {
                EXPECT_LE(RowsFound(window) - rows, 2) << "one entry of each walk";
                EXPECT_LE(window.host.Yields - yields, 120) << "the rest of counting one folder";
            }
            EXPECT_EQ(form.Table.NewChgCount(), form.Table.NewCount() + form.Table.ChgCount());
            EXPECT_EQ(form.LabelNewFile.Caption(),
                      "New Files ( " + std::to_string(form.Table.NewCount()) + " ) ");
            EXPECT_EQ(form.CurrentViewCode(), form.Table.NewChgCount() > 0 ? "NewChg" : "Same");
            EXPECT_FALSE(form.lblComparing.Visible());
            EXPECT_TRUE(form.LabelAllFile.Visible());
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
        std::size_t messages = 0;
        std::size_t copies = 0;
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
    EXPECT_EQ(window.TakeMessages(), Texts()) << "nobody is there to read that it is saved";
    EXPECT_TRUE(folder.Exists("report.txt"));
    EXPECT_TRUE(window.host.ShownForms.empty());
    EXPECT_EQ(window.form.Table.NewCount(), 1500);
}

// The rows being shown are those of before; the scroll bar jumps back to them.
TEST(RunningCommand, TheScrollBarStaysWhereThePageIsAndHoveringGoesOn) {
    MainWindow window;
    for (int i = 0; i < 60; ++i) window.Put("1/n" + std::to_string(i));
    Compare(window);
    window.form.VScroll1.Scroll(7);
    window.AtYield(3, [&] {
        window.form.VScroll1.Scroll(20);
        window.form.Window.OnScrollKey(platform::ScrollKey::End);
        window.form.Window.OnWheel(3);
        EXPECT_EQ(window.form.VScroll1.Value(), 7);
        EXPECT_EQ(window.form.sTYPE[0].Caption(), "8.");
        window.form.sFile1[2].PointerMove({});
        EXPECT_EQ(window.form.sFile1[2].BackColor(), 0xFFFF80u);
    });
    window.form.Command4.Click();
}

}  // namespace
}  // namespace app
