#include "reports/export_lists.h"

#include <string>
#include <tuple>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace reports {
namespace {

using fakes::FakeFiles;
using fakes::kNew;
using fakes::kOld;
using fakes::Texts;

const std::string kRule = std::string(148, '=') + "\r\n \r\n";

// The part of a report about one file.
std::string Section(const std::string& title, const std::string& file, const std::string& counted) {
    return title + " :  \r\n \r\n" + FakeFiles::Path(file) + "\r\n \r\n     1 " + counted +
           ".\r\n \r\n";
}

// In the window's own files, those in memory, no report exists.
class ExportListsTest : public fakes::MainWindowTest {
  protected:
    ExportListsTest() {
        for (const char* name : {"1/caf\xe9\n", "2/b", "1/c"}) Put(name);
        Put("2/c", kNew);
        PutBoth("s");
        form.Command3.Click();
    }

    fakes::TempFolder folder;
    const std::string newReport =
        Section("New files in folder 1", "1/caf\xe9\n", "new files in folder 1") + kRule +
        Section("New files in folder 2", "2/b", "new files in folder 2");
    const std::string modifiedReport =
        Section("Modified files in folder 1", "1/c", "modified files in folder 1") + kRule +
        Section("Modified files in folder 2", "2/c", "modified files in folder 2");
    const std::string sameReport =
        Section("Same files in folder 1 / folder 2", "1/s", "same files");
};

TEST_F(ExportListsTest, EachCommandWritesItsReportAndSaysWhere) {
    const std::tuple<const char*, std::string, std::string> cases[] = {
        {"mnuExportNew", "New", newReport},
        {"mnuExportModify", "Modified", modifiedReport},
        {"mnuExportNewModify", "New and Modified", newReport + " \r\n" + kRule + modifiedReport},
        {"mnuExportSame", "Same", sameReport},
    };
    for (const auto& [menu, kind, report] : cases) {
        dialogs.FileNameAnswers = {"  " + folder.Path(kind) + " "};
        ClickMenu(menu);
        EXPECT_EQ(folder.Read(kind), report);
        EXPECT_EQ(dialogs.Requests.back().ProposedName, kind + " Files");
        EXPECT_EQ(TakeMessages(),
                  Texts{kind + " files name has export to file: " + folder.Path(kind)});
    }
    form.Table.NewList.clear();
    ClickMenu("mnuExportNewModify");
    EXPECT_EQ(TakeMessages(), Texts()) << "modified ones are enough";
    form.Table.Clear(nullptr);
    for (const auto& c : cases) ClickMenu(std::get<0>(c));
    EXPECT_EQ(TakeMessages(), Texts(4, "No data to be export.     "));
    EXPECT_EQ(dialogs.Requests.size(), 5u) << "nobody was asked for a name";
}

TEST_F(ExportListsTest, AnExistingFileIsReplacedOnlyAfterYes) {
    ExportLists lists({form.Table, platform::SystemFiles(), host, dialogs, shell, "Varnel"});
    for (const std::string old : {"old", ""}) {
        folder.WriteFile("r", old);
        folder.SetReadOnly("r");
        EXPECT_EQ(lists.Export(ReportKind::Same, folder.Path("r"), Overwrite::No),
                  ExportResult::NotOverwritten);
        for (const bool answer : {false, true}) {
            dialogs.YesNoAnswer = answer;
            dialogs.FileNameAnswers = {folder.Path("r")};
            lists.mnuExportSame();
            EXPECT_EQ(TakeMessages().at(0), "The same filename exist, overwrite it?");
            EXPECT_EQ(folder.Read("r"), answer ? sameReport : old);
        }
        platform::SystemFiles().RemoveFile(folder.Path("r"));
    }
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
    ClickMenu("mnuOpen");  // cancelled
    dialogs.FileNameAnswers = {" C:\\My Reports\\New Files.txt "};
    ClickMenu("mnuOpen");
    EXPECT_EQ(shell.StartedPrograms, Texts{"notepad.exe C:\\My Reports\\New Files.txt"});
}

}  // namespace
}  // namespace reports
