#include "reports/export_lists.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "app/form_main.h"
#include "fakes/fake_files.h"
#include "fakes/items.h"
#include "fakes/memory_registry.h"
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

// A section is a head, paths, a count.
std::string Section(const std::string& head, const std::vector<std::string>& paths,
                    const std::string& count) {
    std::string text = head + " :  \r\n \r\n";
    for (const std::string& path : paths) text += path + "\r\n";
    return text + " \r\n     " + count + ".\r\n \r\n";
}

const std::string kRule = std::string(148, '=') + "\r\n \r\n";

std::string NewReport(const std::vector<std::string>& paths1,
                      const std::vector<std::string>& paths2) {
    return Section("New files in folder 1", paths1,
                   std::to_string(paths1.size()) + " new files in folder 1") +
           kRule +
           Section("New files in folder 2", paths2,
                   std::to_string(paths2.size()) + " new files in folder 2");
}

const std::string kNewReport = NewReport({"/one/a", "/one/caf\xe9\n"}, {"/two/b"});
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
    void Click(const char* menu) const { form.Window.FindMenu(menu)->OnClick(); }

    fakes::TempFolder folder;
    fakes::MemoryRegistry registry;
    platform::headless::Host host;
    platform::headless::Dialogs dialogs;
    platform::headless::Shell shell;
    app::FormMain form{{host, platform::SystemFiles(), registry, dialogs, shell}};
    ExportLists& lists = form.Exports();
    compare::CompareTable& table = form.Table;
};

TEST_F(ExportListsTest, EachCommandWritesItsReportAndSaysWhere) {
    const struct {
        const char* Menu;
        std::string Name;  // in the proposed file name and in the last message
        std::string Report;
    } cases[] = {
        {"mnuExportNew", "New", kNewReport},
        {"mnuExportModify", "Modified", kModifiedReport},
        {"mnuExportNewModify", "New and Modified", kNewReport + " \r\n" + kRule + kModifiedReport},
        {"mnuExportSame", "Same", kSameReport},
    };
    for (const auto& c : cases) {
        dialogs.FileNameAnswers = {"  " + folder.Path(c.Name) + " "};
        Click(c.Menu);
        EXPECT_EQ(folder.Read(c.Name), c.Report) << c.Name;
        EXPECT_EQ(dialogs.Requests.back().ProposedName, c.Name + " Files");
        EXPECT_EQ(dialogs.Requests.back().DefaultExtension, "txt");
        EXPECT_EQ(dialogs.Messages.back().Text,
                  c.Name + " files name has export to file: " + folder.Path(c.Name));
        EXPECT_EQ(dialogs.Messages.back().Title, "File Saved");
    }
    table.NewList.clear();
    EXPECT_EQ(lists.Export(ReportKind::NewAndModified, folder.Path("r"), Overwrite::No),
              ExportResult::Written);
    EXPECT_EQ(folder.Read("r"), NewReport({}, {}) + " \r\n" + kRule + kModifiedReport);

    table.Clear(nullptr);
    for (const auto& c : cases) {
        dialogs.Requests.clear();
        Click(c.Menu);
        EXPECT_TRUE(dialogs.Requests.empty());
        EXPECT_EQ(dialogs.Messages.back().Text, "No data to be export.     ") << c.Name;
    }
}

TEST_F(ExportListsTest, AnExistingFileIsReplacedOnlyAfterYes) {
    const std::pair<std::string, bool> cases[] = {
        {std::string(4096, '.'), false}, {"old", true}, {"", false}, {"", true}};
    for (const auto& [old, readOnly] : cases) {
        folder.WriteFile("r", old);
        folder.SetReadOnly("r", readOnly);
        for (const bool answer : {false, true}) {
            dialogs.YesNoAnswer = answer;
            dialogs.Messages.clear();
            dialogs.FileNameAnswers = {folder.Path("r")};
            Click("mnuExportSame");
            EXPECT_EQ(dialogs.Messages.at(0).Text, "The same filename exist, overwrite it?");
            EXPECT_EQ(dialogs.Messages.size(), answer ? 2u : 1u);
            EXPECT_EQ(folder.Read("r"), answer ? kSameReport : old);
        }
        folder.SetReadOnly("r", false);
        folder.Remove("r");
    }
    for (const char* cancelled : {"", "   "}) {
        dialogs.FileNameAnswers = {cancelled};
        Click("mnuExportSame");
    }
    EXPECT_EQ(folder.Names(), std::vector<std::string>());
}

// A device where every write fails for want of space; the report must not remove it.
class FullDevice : public fakes::FakeFiles {
  public:
    static constexpr const char* kPath = "/dev/full";

    bool IsThere = true;
    std::vector<std::string> Removed;

    platform::FileStatus Look(const std::string&) override {
        return IsThere ? platform::FileStatus{{1, 0}, 0} : platform::FileStatus();
    }
    platform::Outcome RemoveFile(const std::string& path) override {
        Removed.push_back(path);
        return {};
    }
};

TEST_F(ExportListsTest, HalfAReportIsRemovedWhenItWasNotThereBefore) {
    if (!platform::SystemFiles().Look(FullDevice::kPath).Exists())
        GTEST_SKIP() << "no such device here";
    FullDevice files;
    ExportLists onDevice({table, files, host, dialogs, shell, "Varnel"});
    for (const std::size_t rows : {100'000u, 1u}) {  // one fits the buffer: only closing fails
        table.SameList.assign(rows, Row("s"));
        for (const bool isThere : {true, false}) {
            files.IsThere = isThere;
            files.Removed.clear();
            EXPECT_EQ(onDevice.Export(ReportKind::Same, FullDevice::kPath, Overwrite::Yes),
                      ExportResult::Failed);
            EXPECT_EQ(files.Removed.size(), isThere ? 0u : 1u);
        }
    }
    EXPECT_TRUE(dialogs.Messages.empty());
}

TEST_F(ExportListsTest, OpenStartsTheEditorWithTheChosenFile) {
    Click("mnuOpen");
    EXPECT_TRUE(shell.StartedPrograms.empty());
    dialogs.FileNameAnswers.push_back(" C:\\My Reports\\New Files.txt ");
    Click("mnuOpen");
    EXPECT_EQ(shell.StartedPrograms,
              std::vector<std::string>{"notepad.exe C:\\My Reports\\New Files.txt"});
    EXPECT_EQ(dialogs.Requests.back().Title, "Select a text file");
    EXPECT_EQ(dialogs.Requests.back().Filters.at(1).Pattern, "*.*");
}

}  // namespace
}  // namespace reports
