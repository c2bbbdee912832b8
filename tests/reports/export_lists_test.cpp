#include "reports/export_lists.h"

#include <string>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace reports {
namespace {

using fakes::FakeFiles;
using fakes::Texts;

const std::string kRule = std::string(148, '=') + "\r\n \r\n";

// The part of a report about one file, "1/a".
std::string Section(const std::string& title, const std::string& count, const std::string& file) {
    const std::string in = " files in folder " + file.substr(0, 1);
    return title + in + " :  \r\n \r\n" + FakeFiles::Path(file) + "\r\n \r\n     " + count + in +
           ".\r\n \r\n";
}

using ExportListsTest = fakes::MainWindowTest;

TEST_F(ExportListsTest, EachCommandWritesItsReportSaysWhereAndTheEditorOpensIt) {
    for (const char* name : {"1/caf\xe9\n", "2/b", "1/c"}) Put(name);
    Put("2/c", fakes::kNew);
    PutBoth("s");
    form.Command3.Click();
    const fakes::TempFolder folder;
    const std::pair<const char*, std::string> cases[] = {{"mnuExportNew", "New"},
                                                         {"mnuExportModify", "Modified"},
                                                         {"mnuExportNewModify", "New and Modified"},
                                                         {"mnuExportSame", "Same"}};
    for (const auto& [menu, kind] : cases) {
        dialogs.FileNameAnswers = {"  " + folder.Path(kind) + " "};
        ClickMenu(menu);
        EXPECT_EQ(dialogs.Requests.back().ProposedName, kind + " Files");
        EXPECT_EQ(TakeMessages(),
                  Texts{kind + " files name has export to file: " + folder.Path(kind)});
    }
    EXPECT_EQ(folder.Read("New"),
              Section("New", "1 new", "1/caf\xe9\n") + kRule + Section("New", "1 new", "2/b"));
    EXPECT_EQ(folder.Read("Modified"), Section("Modified", "1 modified", "1/c") + kRule +
                                           Section("Modified", "1 modified", "2/c"));
    EXPECT_EQ(folder.Read("New and Modified"),
              *folder.Read("New") + " \r\n" + kRule + *folder.Read("Modified"));
    EXPECT_EQ(folder.Read("Same"), "Same files in folder 1 / folder 2 :  \r\n \r\n" +
                                       FakeFiles::Path("1/s") +
                                       "\r\n \r\n     1 same files.\r\n \r\n");
    dialogs.FileNameAnswers = {" C:\\My Reports\\New Files.txt "};
    ClickMenu("mnuOpen");
    EXPECT_EQ(shell.StartedPrograms, Texts{"notepad.exe C:\\My Reports\\New Files.txt"});
    form.Table.NewList.clear();  // only the first command needs it
    for (const auto& [menu, kind] : cases) ClickMenu(menu);
    EXPECT_EQ(TakeMessages(), Texts{"No data to be export.     "});
}

}  // namespace
}  // namespace reports
