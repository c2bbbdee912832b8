// While a long command runs, only its Stop button, hovering and closing act. Each test tries its
// luck at every yield in turn.
#include <algorithm>
#include <functional>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace app {
namespace {

using fakes::Texts;

// A window on files of all kinds, in which one control after the other has been clicked while it
// was there; `act` came at the n-th yield.
struct FilledWindow : fakes::MainWindow {
    FilledWindow(const Texts& clicks, long long n, const std::function<void(FilledWindow&)>& act) {
        for (const char* name : {"1/n1", "1/s/n2", "2/m1", "2/s/m2", "2/c"}) Put(name);
        Put("1/c", fakes::kNew);
        PutBoth("same");
        AtYield(n, [&] { act(*this); });
        for (const std::string& name : clicks)
            if (host.IsShown(form.Window)) form.Window.Find(name)->Click();
        host.OnYield = nullptr;
    }
};

// Comparing twice, comparing and synchronising, synchronising while the direction panel is open.
const Texts kRuns[] = {
    {"Command3", "Command3"},
    {"CheckSync", "Command3"},
    {"Command3", "sMAC(0)", "Option3", "Command4"},
};

// Does the clicks once for each of their yields; `act` gets the window at that yield, `check` at
// the end, with the window of an undisturbed run.
void AtEveryYield(const Texts& clicks, const std::function<void(FilledWindow&)>& act,
                  const std::function<void(FilledWindow&, const FilledWindow&)>& check) {
    const FilledWindow undisturbed(clicks, 0, {});
    ASSERT_GT(undisturbed.host.Yields, 0);
    for (long long n = 1; n <= undisturbed.host.Yields; ++n) {
        SCOPED_TRACE(testing::PrintToString(clicks) + ", yield " + std::to_string(n));
        FilledWindow window(clicks, n, act);
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
    form.Combo1.Edit("/typed");
    form.VScroll1.Scroll(20);
    form.Window.OnScrollKey(platform::ScrollKey::End);
    form.Window.OnWheel(3);
}

TEST(RunningCommand, EverythingElseIsDropped) {
    const auto check = [](FilledWindow& window, const FilledWindow& undisturbed) {
        EXPECT_EQ(window.Everything(), undisturbed.Everything());
        EXPECT_EQ(window.files.Copies, undisturbed.files.Copies);
    };
    for (const Texts& clicks : kRuns) AtEveryYield(clicks, TryEveryCommand, check);
}

TEST(RunningCommand, AStoppedComparisonKeepsWhatItFoundAndTheNextOneFindsAll) {
    std::size_t most = 0;
    const auto found = [](const FilledWindow& window) {
        const compare::CompareTable& table = window.form.Table;
        std::set<std::string> rows;
        for (const auto* list : {&table.NewList, &table.ChgList, &table.SameList})
            for (const std::string& row : fakes::Rows(*list)) rows.insert(row);
        return rows;
    };
    const auto stop = [&](FilledWindow& window) {
        // One entry of each walk comes after a stop.
        most = window.form.Command3.Caption() == "Stop" ? found(window).size() + 2 : 6;
        window.form.Command3.Click();
        window.form.Command3.Click();  // does not start another
    };
    const auto check = [&](FilledWindow& window, const FilledWindow& undisturbed) {
        const compare::CompareTable& table = window.form.Table;
        const std::set<std::string> some = found(window), all = found(undisturbed);
        EXPECT_TRUE(std::includes(all.begin(), all.end(), some.begin(), some.end()));
        EXPECT_LE(some.size(), most);
        EXPECT_EQ(table.NewChgCount(), table.NewCount() + table.ChgCount());
        EXPECT_EQ(window.form.LabelNewFile.Caption(),
                  "New Files ( " + std::to_string(table.NewCount()) + " ) ");
        EXPECT_EQ(window.form.CurrentViewCode(), table.NewChgCount() > 0 ? "NewChg" : "Same");
        window.form.Command3.Click();
        EXPECT_EQ(window.Everything(), undisturbed.Everything());
    };
    AtEveryYield({"Command3"}, stop, check);
}

TEST(RunningCommand, ClosingStopsItThenCloses) {
    long long yields = 0;
    std::size_t copies = 0;
    const auto close = [&](FilledWindow& window) {
        copies = window.files.Copies.size();
        yields = window.host.Yields;
        EXPECT_FALSE(window.form.Window.OnCloseRequest());
        EXPECT_TRUE(window.host.IsShown(window.form.Window));
    };
    const auto check = [&](FilledWindow& window, const FilledWindow&) {
        EXPECT_TRUE(window.host.ShownForms.empty());
        EXPECT_EQ(window.TakeMessages(), Texts()) << "nobody is there to read them";
        EXPECT_LE(window.files.Copies.size() - copies, 1u);
        // What is left of counting one folder, one entry of each walk, one copy.
        EXPECT_LE(window.host.Yields - yields, 130);
    };
    for (const Texts& clicks : kRuns) AtEveryYield(clicks, close, check);
}

// The rows being shown are those of before; the scroll bar jumps back to them.
TEST(RunningCommand, AnExportIsOneAndHoveringGoesOn) {
    const fakes::TempFolder folder;
    FilledWindow window({"Command3"}, 0, {});
    FormMain& form = window.form;
    form.Table.NewList.assign(1500, compare::CompareItem(form.Table.NewList[0]));
    form.LabelNewFile.Click();
    form.VScroll1.Scroll(7);
    window.dialogs.FileNameAnswers = {folder.Path("report.txt")};
    window.AtYield(1, [&] {
        TryEveryCommand(window);
        form.sFile1[2].PointerMove({});
        window.host.Show(form.FilterDialog.FormFilter);  // goes along
        window.ClickMenu("mnuExit");
    });
    window.ClickMenu("mnuExportNew");
    EXPECT_EQ(form.VScroll1.Value(), 7);
    EXPECT_EQ(form.sTYPE[0].Caption(), "8.");
    EXPECT_EQ(form.sFile1[2].BackColor(), grid::kHoverBack);
    EXPECT_TRUE(window.host.ShownForms.empty());
}

}  // namespace
}  // namespace app
