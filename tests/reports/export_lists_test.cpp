#include "reports/export_lists.h"

#include <string>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace reports {
namespace {

using fakes::FakeFiles;
using fakes::kNew;
using fakes::kOld;
using fakes::Texts;

const std::string kRule = std::string(148, '=') + "\r\n \r\n";

std::string Section(const std::string& head, const Texts& files, const std::string& counted) {
    std::string text = head + " :  \r\n \r\n";
    for (const std::string& file : files) text += FakeFiles::Path(file) + "\r\n";
    return text + " \r\n     " + std::to_string(files.size()) + counted + ".\r\n \r\n";
}

// In the window's own files, those in memory, no report exists.
class ExportListsTest : public fakes::MainWindowTest {
  protected:
    ExportListsTest() {
        for (const char* name : {"1/a", "2/b", "1/caf\xe9\n", "1/c"}) Put(name);
        Put("2/c", kNew);
        for (const char* name : {"s", "t"}) PutBoth(name);
        form.Command3.Click();
    }

    fakes::TempFolder folder;
    const std::string newReport =
        Section("New files in folder 1", {"1/a", "1/caf\xe9\n"}, " new files in folder 1") + kRule +
        Section("New files in folder 2", {"2/b"}, " new files in folder 2");
    const std::string modifiedReport =
        Section("Modified files in folder 1", {"1/c"}, " modified files in folder 1") + kRule +
        Section("Modified files in folder 2", {"2/c"}, " modified files in folder 2");
    const std::string sameReport =
        Section("Same files in folder 1 / folder 2", {"1/s", "1/t"}, " same files");
};

TEST_F(ExportListsTest, EachCommandWritesItsReportAndSaysWhere) {
    const std::string noNewReport = Section("New files in folder 1", {}, " new files in folder 1") +
                                    kRule +
                                    Section("New files in folder 2", {}, " new files in folder 2");
    const struct {
        const char* Menu;
        std::string Name;  // in the proposed file name and in the last message
        std::string Report;
    } cases[] = {
        {"mnuExportNew", "New", newReport},
        {"mnuExportModify", "Modified", modifiedReport},
        {"mnuExportNewModify", "New and Modified", noNewReport + " \r\n" + kRule + modifiedReport},
        {"mnuExportSame", "Same", sameReport},
    };
    for (const auto& c : cases) {
        dialogs.FileNameAnswers = {"  " + folder.Path(c.Name) + " "};
        ClickMenu(c.Menu);
        EXPECT_EQ(folder.Read(c.Name), c.Report);
        EXPECT_EQ(dialogs.Requests.back().ProposedName, c.Name + " Files");
        EXPECT_EQ(TakeMessages(),
                  Texts{c.Name + " files name has export to file: " + folder.Path(c.Name)});
        form.Table.NewList.clear();
    }
    form.Table.Clear(nullptr);
    for (const auto& c : cases) {
        ClickMenu(c.Menu);
        EXPECT_EQ(TakeMessages(), Texts{"No data to be export.     "});
    }
    EXPECT_EQ(dialogs.Requests.size(), 4u) << "nobody was asked for a name";
}

TEST_F(ExportListsTest, AnExistingFileIsReplacedOnlyAfterYes) {
    ExportLists lists({form.Table, platform::SystemFiles(), host, dialogs, shell, "Varnel"});
    const std::pair<std::string, bool> cases[] = {
        {std::string(4096, '.'), false}, {"old", true}, {"", false}, {"", true}};
    for (const auto& [old, readOnly] : cases) {
        folder.WriteFile("r", old);
        folder.SetReadOnly("r", readOnly);
        EXPECT_EQ(lists.Export(ReportKind::Same, folder.Path("r"), Overwrite::No),
                  ExportResult::NotOverwritten);
        for (const bool answer : {false, true}) {
            dialogs.YesNoAnswer = answer;
            dialogs.FileNameAnswers = {folder.Path("r")};
            lists.mnuExportSame();
            const Texts messages = TakeMessages();
            EXPECT_EQ(messages.at(0), "The same filename exist, overwrite it?");
            EXPECT_EQ(messages.size(), answer ? 2u : 1u);
            EXPECT_EQ(folder.Read("r"), answer ? sameReport : old);
        }
        folder.SetReadOnly("r", false);
        folder.Remove("r");
    }
    dialogs.FileNameAnswers = {"   "};
    lists.mnuExportSame();
    EXPECT_TRUE(folder.Names().empty()) << "cancelled";
}

// On a device where every write fails for want of space. The device itself must stay.
TEST_F(ExportListsTest, HalfAReportIsRemovedWhenItWasNotThereBefore) {
    if (!platform::SystemFiles().Look("/dev/full").Exists()) GTEST_SKIP() << "no such device here";
    host.OnYield = [this](long long) { Put("dev/full", kOld, 0); };
    for (const std::size_t rows : {100'000u, 1u}) {  // one fits the buffer: only closing fails
        form.Table.SameList.assign(rows, form.Table.SameList[0]);
        for (const bool wasThere : {true, false}) {
            files.Remove("dev/full");
            if (wasThere) Put("dev/full", kOld, 0);
            EXPECT_EQ(form.Exports().Export(ReportKind::Same, "/dev/full", Overwrite::Yes),
                      ExportResult::Failed);
            EXPECT_EQ(files.StatusOf("dev/full").Exists(), wasThere);
        }
    }
    EXPECT_EQ(TakeMessages(), Texts());
}

TEST_F(ExportListsTest, OpenStartsTheEditorWithTheChosenFile) {
    ClickMenu("mnuOpen");
    EXPECT_TRUE(shell.StartedPrograms.empty()) << "cancelled";
    dialogs.FileNameAnswers = {" C:\\My Reports\\New Files.txt "};
    ClickMenu("mnuOpen");
    EXPECT_EQ(shell.StartedPrograms, Texts{"notepad.exe C:\\My Reports\\New Files.txt"});
}

}  // namespace
}  // namespace reports
