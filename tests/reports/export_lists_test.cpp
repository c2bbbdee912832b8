#include "reports/export_lists.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/fake_files.h"
#include "fakes/items.h"
#include "fakes/temp_folder.h"
#include "platform/headless/headless_host.h"

namespace reports {
namespace {

using compare::CompareItem;

const compare::FolderPair kRoot{nullptr, "/one/", "/two/"};

constexpr std::int64_t kMissing = platform::FileStatus::kNoSize;

CompareItem Row(const char* name, std::int64_t bytes1 = 0, std::int64_t bytes2 = 0) {
    CompareItem item = fakes::Item(kRoot, name, 0);
    item.Bytes1 = bytes1;
    item.Bytes2 = bytes2;
    return item;
}

// Lines as the reports end them; a section is a head, paths, a count.
std::string Text(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\r\n";
    return text;
}

std::string Section(const std::string& head, const std::vector<std::string>& paths,
                    const std::string& count) {
    return Text({head + " :  ", " "}) + Text(paths) + Text({" ", "     " + count + ".", " "});
}

const std::string kRule = Text({std::string(148, '='), " "});
const std::string kNewReport =
    Section("New files in folder 1", {"/one/a", "/one/caf\xe9\n"}, "2 new files in folder 1") +
    kRule + Section("New files in folder 2", {"/two/b"}, "1 new files in folder 2");
const std::string kModifiedReport =
    Section("Modified files in folder 1", {"/one/c"}, "1 modified files in folder 1") + kRule +
    Section("Modified files in folder 2", {"/two/c"}, "1 modified files in folder 2");
const std::string kSameReport =
    Section("Same files in folder 1 / folder 2", {"/one/s", "/one/t"}, "2 same files");

class ExportListsTest : public testing::Test {
  protected:
    ExportListsTest() {
        table.NewList = {Row("a", 0, kMissing), Row("b", kMissing), Row("caf\xe9\n", 0, kMissing)};
        table.ChgList = {Row("c", 1, 2)};
        table.SameList = {Row("s", 1, 1), Row("t", 0, 0)};
    }
    // Answers the save dialog with a file of the folder.
    void Choose(const std::string& name) { dialogs.FileNameAnswers.push_back(folder.Path(name)); }
    // Clicks the command for the same files, and answers with a name.
    void ExportSame(const std::string& name) {
        Choose(name);
        lists.mnuExportSame();
    }
    ExportResult Export(const std::string& name, Overwrite overwrite) {
        return lists.Export(ReportKind::Same, folder.Path(name), overwrite);
    }

    fakes::TempFolder folder;
    compare::CompareTable table;
    platform::headless::Host host;
    platform::headless::Dialogs dialogs;
    platform::headless::Shell shell;
    ExportLists lists{{table, platform::SystemFiles(), host, dialogs, shell, "Varnel"}};
};

struct Command {
    void (ExportLists::*Run)();
    ReportKind Kind;
    const char* Name;  // in the proposed file name and in the last message
};

const Command kCommands[] = {
    {&ExportLists::mnuExportNew, ReportKind::New, "New"},
    {&ExportLists::mnuExportModify, ReportKind::Modified, "Modified"},
    {&ExportLists::mnuExportNewModify, ReportKind::NewAndModified, "New and Modified"},
    {&ExportLists::mnuExportSame, ReportKind::Same, "Same"},
};

TEST_F(ExportListsTest, EachCommandWritesItsReportAndSaysWhere) {
    const std::string reports[] = {kNewReport, kModifiedReport,
                                   kNewReport + Text({" "}) + kRule + kModifiedReport, kSameReport};
    for (std::size_t i = 0; i < 4; ++i) {
        const std::string name = kCommands[i].Name;
        Choose(name);
        (lists.*kCommands[i].Run)();
        EXPECT_EQ(folder.Read(name), reports[i]) << name;
        EXPECT_EQ(dialogs.Requests.back().ProposedName, name + " Files");
        EXPECT_EQ(dialogs.Messages.back().Text,
                  name + " files name has export to file: " + folder.Path(name));
        EXPECT_EQ(dialogs.Messages.back().Title, "File Saved");
    }
}

TEST_F(ExportListsTest, SectionsWithoutFilesCountNone) {
    table.NewList = {Row("b", kMissing)};
    table.ChgList.clear();
    EXPECT_EQ(lists.Export(ReportKind::NewAndModified, folder.Path("r"), Overwrite::No),
              ExportResult::Written);
    EXPECT_EQ(
        folder.Read("r"),
        Section("New files in folder 1", {}, "0 new files in folder 1") + kRule +
            Section("New files in folder 2", {"/two/b"}, "1 new files in folder 2") + Text({" "}) +
            kRule + Section("Modified files in folder 1", {}, "0 modified files in folder 1") +
            kRule + Section("Modified files in folder 2", {}, "0 modified files in folder 2"));
}

TEST_F(ExportListsTest, WithNothingToExportNoDialogOpens) {
    table.Clear(nullptr);
    for (const Command& command : kCommands) {
        (lists.*command.Run)();
        EXPECT_EQ(lists.Export(command.Kind, folder.Path("r"), Overwrite::Yes),
                  ExportResult::NothingToExport);
    }
    EXPECT_TRUE(dialogs.Requests.empty());
    EXPECT_EQ(dialogs.Messages.size(), 8u);
    for (const platform::Message& message : dialogs.Messages)
        EXPECT_EQ(message.Text, "No data to be export.     ");
    EXPECT_TRUE(folder.Names().empty());
}

TEST_F(ExportListsTest, AsksForATextFileName) {
    lists.mnuExportNew();
    ASSERT_EQ(dialogs.Requests.size(), 1u);
    const platform::FileNameRequest& request = dialogs.Requests[0];
    EXPECT_EQ(request.Title, "Export file name to a text file");
    EXPECT_EQ(request.DefaultExtension, "txt");
    EXPECT_EQ(request.Filters.at(0).Pattern, "*.txt");
    dialogs.FileNameAnswers.push_back("   ");
    lists.mnuExportNew();
    EXPECT_TRUE(dialogs.Messages.empty());
    dialogs.FileNameAnswers.push_back("  " + folder.Path("r") + "  ");
    lists.mnuExportNew();
    EXPECT_EQ(folder.Read("r"), kNewReport);
}

TEST_F(ExportListsTest, AnExistingFileIsReplacedOnlyAfterYes) {
    const std::pair<std::string, bool> cases[] = {
        {std::string(4096, '.'), false}, {"old", true}, {"", false}, {"", true}};
    for (const auto& [old, readOnly] : cases) {
        folder.WriteFile("r", old);
        folder.SetReadOnly("r", readOnly);
        dialogs.YesNoAnswer = false;
        dialogs.Messages.clear();
        EXPECT_EQ(Export("r", Overwrite::No), ExportResult::NotOverwritten);
        EXPECT_TRUE(dialogs.Messages.empty());
        ExportSame("r");
        EXPECT_EQ(folder.Read("r"), old);
        ASSERT_EQ(dialogs.Messages.size(), 1u);
        EXPECT_EQ(dialogs.Messages[0].Text, "The same filename exist, overwrite it?");

        dialogs.YesNoAnswer = true;
        ExportSame("r");
        EXPECT_EQ(folder.Read("r"), kSameReport);
        folder.SetReadOnly("r", false);
        folder.Remove("r");
    }
    folder.WriteFile("r", "old");
    EXPECT_EQ(Export("r", Overwrite::Yes), ExportResult::Written);
    EXPECT_EQ(folder.Read("r"), kSameReport);
}

TEST_F(ExportListsTest, AFileThatCannotBeWrittenEndsInSilence) {
    folder.WriteFile("folder/kept", "kept");
    for (const std::string name : {"folder", "no/such/folder"}) {
        EXPECT_EQ(Export(name, Overwrite::Yes), ExportResult::Failed);
        ExportSame(name);
    }
    EXPECT_TRUE(dialogs.Messages.empty());
    EXPECT_EQ(folder.Read("folder/kept"), "kept");
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"folder"});
}

// Takes every name for one that is still free.
class NothingThere : public fakes::FakeFiles {
  public:
    std::vector<std::string> Removed;
    platform::Outcome RemoveFile(const std::string& path) override {
        Removed.push_back(path);
        return {};
    }
};

TEST_F(ExportListsTest, HalfAReportIsRemovedWhenItWasNotThereBefore) {
    const std::string kFull = "/dev/full";  // every write fails for want of space
    if (!platform::SystemFiles().Look(kFull).Exists()) GTEST_SKIP() << "no such device here";
    NothingThere files;
    ExportLists onFreeName({table, files, host, dialogs, shell, "Varnel"});
    for (const std::size_t rows : {100'000u, 1u}) {  // one fits the buffer: only closing fails
        table.SameList.assign(rows, Row("s"));
        EXPECT_EQ(lists.Export(ReportKind::Same, kFull, Overwrite::Yes), ExportResult::Failed);
        EXPECT_TRUE(platform::SystemFiles().Look(kFull).Exists());
        EXPECT_EQ(onFreeName.Export(ReportKind::Same, kFull, Overwrite::No), ExportResult::Failed);
    }
    EXPECT_EQ(files.Removed, std::vector<std::string>(2, kFull));
    EXPECT_TRUE(dialogs.Messages.empty());
}

TEST_F(ExportListsTest, YieldsEveryThousandLines) {
    table.SameList.assign(9995, Row("s"));  // and five lines around them
    Export("r", Overwrite::No);
    EXPECT_EQ(host.Yields, 10);
    EXPECT_EQ(folder.Read("r")->size(), 9995u * 8 + kSameReport.size() - 2 * 8 + 3);
}

TEST_F(ExportListsTest, OpenStartsTheEditorWithTheChosenFile) {
    lists.mnuOpen();
    EXPECT_TRUE(shell.StartedPrograms.empty());
    dialogs.FileNameAnswers.push_back(" C:\\My Reports\\New Files.txt ");
    lists.mnuOpen();
    EXPECT_EQ(shell.StartedPrograms,
              std::vector<std::string>{"notepad.exe C:\\My Reports\\New Files.txt"});
    EXPECT_EQ(dialogs.Requests.back().Title, "Select a text file");
    EXPECT_EQ(dialogs.Requests.back().Filters.at(1).Pattern, "*.*");
}

}  // namespace
}  // namespace reports
