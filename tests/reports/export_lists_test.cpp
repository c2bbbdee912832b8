#include "reports/export_lists.h"

#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/temp_folder.h"
#include "platform/headless/headless_host.h"

namespace reports {
namespace {

using compare::CompareItem;

const compare::FolderPair kRoot{nullptr, "/one/", "/two/"};

CompareItem Row(const char* name, std::int64_t bytes1, std::int64_t bytes2) {
    CompareItem item;
    item.Folder = &kRoot;
    item.Name = name;
    item.NameLength = static_cast<std::uint16_t>(std::strlen(name));
    item.Bytes1 = bytes1;
    item.Bytes2 = bytes2;
    return item;
}

CompareItem Only1(const char* name) {
    return Row(name, 0, platform::FileStatus::kNoSize);
}

CompareItem Only2(const char* name) {
    return Row(name, platform::FileStatus::kNoSize, 0);
}

// Lines as the reports end them.
std::string Text(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\r\n";
    return text;
}

const std::string kRule = Text({std::string(148, '='), " "});

const std::string kNewReport =
    Text({"New files in folder 1 :  ", " ", "/one/a", "/one/caf\xe9\n", " ",
          "     2 new files in folder 1.", " "}) +
    kRule +
    Text({"New files in folder 2 :  ", " ", "/two/b", " ", "     1 new files in folder 2.", " "});

const std::string kModifiedReport = Text({"Modified files in folder 1 :  ", " ", "/one/c", " ",
                                          "     1 modified files in folder 1.", " "}) +
                                    kRule +
                                    Text({"Modified files in folder 2 :  ", " ", "/two/c", " ",
                                          "     1 modified files in folder 2.", " "});

const std::string kEmptyModifiedReport =
    Text({"Modified files in folder 1 :  ", " ", " ", "     0 modified files in folder 1.", " "}) +
    kRule +
    Text({"Modified files in folder 2 :  ", " ", " ", "     0 modified files in folder 2.", " "});

const std::string kSameReport = Text({"Same files in folder 1 / folder 2 :  ", " ", "/one/s",
                                      "/one/t", " ", "     2 same files.", " "});

class ExportListsTest : public testing::Test {
  protected:
    ExportListsTest() {
        table.NewList = {Only1("a"), Only2("b"), Only1("caf\xe9\n")};
        table.ChgList = {Row("c", 1, 2)};
        table.SameList = {Row("s", 1, 1), Row("t", 0, 0)};
    }
    // Answers the save dialog with a file of the folder.
    void Choose(const std::string& name) { dialogs.FileNameAnswers.push_back(folder.Path(name)); }
    std::string LastMessage() const {
        return dialogs.Messages.empty() ? "none" : dialogs.Messages.back().Text;
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
        EXPECT_EQ(LastMessage(), name + " files name has export to file: " + folder.Path(name));
        EXPECT_EQ(dialogs.Messages.back().Title, "File Saved");
        EXPECT_EQ(dialogs.Messages.back().Icon, platform::MessageIcon::Information);
    }
}

TEST_F(ExportListsTest, SectionsWithoutFilesCountNone) {
    table.NewList = {Only2("b")};
    table.ChgList.clear();
    EXPECT_EQ(lists.Export(ReportKind::NewAndModified, folder.Path("r"), Overwrite::No),
              ExportResult::Written);
    EXPECT_EQ(folder.Read("r"),
              Text({"New files in folder 1 :  ", " ", " ", "     0 new files in folder 1.", " "}) +
                  kRule +
                  Text({"New files in folder 2 :  ", " ", "/two/b", " ",
                        "     1 new files in folder 2.", " ", " "}) +
                  kRule + kEmptyModifiedReport);
}

TEST_F(ExportListsTest, WithNothingToExportNoDialogOpens) {
    table.ChgList.clear();
    table.SameList.clear();
    lists.mnuExportModify();
    lists.mnuExportSame();
    table.NewList.clear();
    lists.mnuExportNew();
    lists.mnuExportNewModify();
    EXPECT_TRUE(dialogs.Requests.empty());
    ASSERT_EQ(dialogs.Messages.size(), 4u);
    for (const platform::Message& message : dialogs.Messages) {
        EXPECT_EQ(message.Text, "No data to be export.     ");
        EXPECT_EQ(message.Icon, platform::MessageIcon::Information);
        EXPECT_EQ(message.Title, "Varnel");
    }
    for (const Command& command : kCommands)
        EXPECT_EQ(lists.Export(command.Kind, folder.Path("r"), Overwrite::Yes),
                  ExportResult::NothingToExport);
    EXPECT_TRUE(folder.Names().empty());
}

TEST_F(ExportListsTest, AsksForATextFileName) {
    lists.mnuExportNew();
    ASSERT_EQ(dialogs.Requests.size(), 1u);
    const platform::FileNameRequest& request = dialogs.Requests[0];
    EXPECT_EQ(request.Title, "Export file name to a text file");
    EXPECT_EQ(request.DefaultExtension, "txt");
    ASSERT_EQ(request.Filters.size(), 1u);
    EXPECT_EQ(request.Filters[0].Label, "Text Files (*.txt)");
    EXPECT_EQ(request.Filters[0].Pattern, "*.txt");
    dialogs.FileNameAnswers.push_back("   ");
    lists.mnuExportNew();
    EXPECT_TRUE(dialogs.Messages.empty());
    dialogs.FileNameAnswers.push_back("  " + folder.Path("r") + "  ");
    lists.mnuExportNew();
    EXPECT_EQ(folder.Read("r"), kNewReport);
}

TEST_F(ExportListsTest, AnExistingFileIsReplacedOnlyAfterYes) {
    struct Case {
        const char* Old;
        bool ReadOnly;
    };
    for (const Case& c :
         {Case{"an old report that is longer than the new one would ever be", false},
          Case{"old", true}, Case{"", false}, Case{"", true}}) {
        folder.WriteFile("r", c.Old);
        folder.SetReadOnly("r", c.ReadOnly);
        dialogs.YesNoAnswer = false;
        dialogs.Messages.clear();
        Choose("r");
        lists.mnuExportSame();
        EXPECT_EQ(folder.Read("r"), c.Old);
        ASSERT_EQ(dialogs.Messages.size(), 1u);
        EXPECT_EQ(dialogs.Messages[0].Text, "The same filename exist, overwrite it?");
        EXPECT_EQ(dialogs.Messages[0].Title, "Information");
        EXPECT_EQ(dialogs.Messages[0].Icon, platform::MessageIcon::Exclamation);

        dialogs.YesNoAnswer = true;
        Choose("r");
        lists.mnuExportSame();
        EXPECT_EQ(folder.Read("r"), kSameReport);
        folder.SetReadOnly("r", false);
        folder.Remove("r");
    }
}

TEST_F(ExportListsTest, AnAnswerGivenBeforehandIsNotAskedFor) {
    folder.WriteFile("r", "old");
    EXPECT_EQ(lists.Export(ReportKind::Same, folder.Path("r"), Overwrite::No),
              ExportResult::NotOverwritten);
    EXPECT_EQ(folder.Read("r"), "old");
    EXPECT_TRUE(dialogs.Messages.empty());
    EXPECT_EQ(lists.Export(ReportKind::Same, folder.Path("r"), Overwrite::Yes),
              ExportResult::Written);
    EXPECT_EQ(folder.Read("r"), kSameReport);
    EXPECT_EQ(dialogs.Messages.size(), 1u);
}

TEST_F(ExportListsTest, AFileThatCannotBeWrittenEndsInSilence) {
    folder.MakeFolder("folder");
    folder.WriteFile("folder/kept", "kept");
    for (const std::string name : {"folder", "no/such/folder"}) {
        EXPECT_EQ(lists.Export(ReportKind::Same, folder.Path(name), Overwrite::Yes),
                  ExportResult::Failed);
        Choose(name);
        lists.mnuExportSame();
    }
    EXPECT_TRUE(dialogs.Messages.empty());
    EXPECT_EQ(folder.Read("folder/kept"), "kept");
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"folder"});
}

// A file on which every write fails for want of space.
const std::string kFull = "/dev/full";

bool HasFullDevice() {
    return platform::SystemFiles().Look(kFull).Exists();
}

TEST_F(ExportListsTest, ALossOnTheWayIsAFailure) {
    if (!HasFullDevice()) GTEST_SKIP() << "no such device here";
    table.SameList.assign(100000, Row("s", 1, 1));
    EXPECT_EQ(lists.Export(ReportKind::Same, kFull, Overwrite::Yes), ExportResult::Failed);
    table.SameList.resize(1);  // fits the buffer: only closing fails
    EXPECT_EQ(lists.Export(ReportKind::Same, kFull, Overwrite::Yes), ExportResult::Failed);
    EXPECT_TRUE(dialogs.Messages.empty());
    EXPECT_TRUE(platform::SystemFiles().Look(kFull).Exists());
}

// Takes the device for a name that is still free.
class NothingThere : public platform::FileSystem {
  public:
    std::vector<std::string> Removed;

    platform::FileStatus Look(const std::string&) override { return {}; }
    platform::Outcome RemoveFile(const std::string& path) override {
        Removed.push_back(path);
        return {};
    }
    std::unique_ptr<platform::Folder> OpenFolder(const std::string&, platform::Outcome&) override {
        return nullptr;
    }
    bool FolderExists(const std::string&) override { return false; }
    platform::Outcome CreateFolder(const std::string&) override { return {}; }
    platform::Outcome CopyOver(const std::string&, const std::string&,
                               const std::function<void()>&) override {
        return {};
    }
    void RemoveLeftover(const std::string&) override {}
};

TEST_F(ExportListsTest, HalfAReportIsRemoved) {
    if (!HasFullDevice()) GTEST_SKIP() << "no such device here";
    NothingThere files;
    ExportLists onFullDisk({table, files, host, dialogs, shell, "Varnel"});
    EXPECT_EQ(onFullDisk.Export(ReportKind::Same, kFull, Overwrite::No), ExportResult::Failed);
    EXPECT_EQ(files.Removed, std::vector<std::string>{kFull});
    EXPECT_TRUE(dialogs.Messages.empty());
}

TEST_F(ExportListsTest, YieldsEveryThousandLines) {
    table.SameList.assign(9995, Row("s", 1, 1));  // and five lines around them
    lists.Export(ReportKind::Same, folder.Path("r"), Overwrite::No);
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
    const platform::FileNameRequest& request = dialogs.Requests.back();
    EXPECT_EQ(request.Title, "Select a text file");
    ASSERT_EQ(request.Filters.size(), 2u);
    EXPECT_EQ(request.Filters[1].Label, "All Files (*.*)");
    EXPECT_EQ(request.Filters[1].Pattern, "*.*");
}

}  // namespace
}  // namespace reports
