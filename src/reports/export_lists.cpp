#include "reports/export_lists.h"

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string_view>
#include <utility>

#include "platform/trimmed.h"

namespace reports {

namespace {

using compare::CompareItem;
using compare::CompareTable;
using compare::ItemList;

constexpr std::string_view kBlankLine = " ";
constexpr std::size_t kRuleLength = 148;
constexpr int kLinesBetweenYields = 1000;
constexpr std::size_t kBufferSize = 64 * 1024;

struct KindTexts {
    std::string_view ExportKind;
    std::string_view Saved;
};

const KindTexts& TextsOf(ReportKind kind) {
    static constexpr KindTexts kTexts[] = {
        {"New ", "New files name has export to file: "},
        {"Modified ", "Modified files name has export to file: "},
        {"New and Modified ", "New and Modified files name has export to file: "},
        {"Same ", "Same files name has export to file: "},
    };
    return kTexts[static_cast<std::size_t>(kind)];
}

// One heading with the paths below it.
struct Section {
    std::string_view Heading;
    std::string_view CountText;
    ItemList CompareTable::*List;
    void (CompareItem::*AppendPath)(std::string& text) const;
    bool (CompareItem::*Lists)() const;  // null: every item
};

constexpr Section kNew1{"New files in folder 1 :  ", " new files in folder 1.",
                        &CompareTable::NewList, &CompareItem::AppendPath1, &CompareItem::HasSize1};
constexpr Section kNew2{"New files in folder 2 :  ", " new files in folder 2.",
                        &CompareTable::NewList, &CompareItem::AppendPath2, &CompareItem::HasSize2};
constexpr Section kModified1{"Modified files in folder 1 :  ", " modified files in folder 1.",
                             &CompareTable::ChgList, &CompareItem::AppendPath1, nullptr};
constexpr Section kModified2{"Modified files in folder 2 :  ", " modified files in folder 2.",
                             &CompareTable::ChgList, &CompareItem::AppendPath2, nullptr};
constexpr Section kSame{"Same files in folder 1 / folder 2 :  ", " same files.",
                        &CompareTable::SameList, &CompareItem::AppendPath1, nullptr};

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

File OpenForAppending(const std::string& fileName) {
    return File(std::fopen(fileName.c_str(), "ab"));
}

// Writes lines, and remembers whether each of them got through.
class ReportFile {
  public:
    ReportFile(File file, platform::FormHost& host) : file_(std::move(file)), host_(host) {
        std::setvbuf(file_.get(), nullptr, _IOFBF, kBufferSize);
    }

    void Line(std::string_view text) {
        line_ = text;
        FinishLine();
    }

    void PutSection(const CompareTable& table, const Section& section) {
        Line(section.Heading);
        Line(kBlankLine);
        std::int32_t count = 0;
        for (const CompareItem& item : table.*section.List) {
            if (section.Lists && !(item.*section.Lists)()) continue;
            line_.clear();
            (item.*section.AppendPath)(line_);
            FinishLine();
            ++count;
        }
        Line(kBlankLine);
        Line("     " + std::to_string(count) + std::string(section.CountText));
        Line(kBlankLine);
    }

    void PutRule() {
        Line(std::string(kRuleLength, '='));
        Line(kBlankLine);
    }

    // False when anything was lost on the way to the system.
    bool Close() { return std::fclose(file_.release()) == 0 && written_; }

  private:
    void FinishLine() {
        line_ += "\r\n";
        written_ =
            written_ && std::fwrite(line_.data(), 1, line_.size(), file_.get()) == line_.size();
        if (++lines_ % kLinesBetweenYields == 0) host_.DoEvents();
    }

    File file_;
    platform::FormHost& host_;
    std::string line_;
    std::int64_t lines_ = 0;
    bool written_ = true;
};

void PutTwoSections(ReportFile& report, const CompareTable& table, const Section& first,
                    const Section& second) {
    report.PutSection(table, first);
    report.PutRule();
    report.PutSection(table, second);
}

void PutReport(ReportFile& report, const CompareTable& table, ReportKind kind) {
    switch (kind) {
        case ReportKind::New:
            return PutTwoSections(report, table, kNew1, kNew2);
        case ReportKind::Modified:
            return PutTwoSections(report, table, kModified1, kModified2);
        case ReportKind::NewAndModified:
            PutTwoSections(report, table, kNew1, kNew2);
            report.Line(kBlankLine);
            report.PutRule();
            return PutTwoSections(report, table, kModified1, kModified2);
        case ReportKind::Same:
            return report.PutSection(table, kSame);
    }
}

std::int32_t CountOf(const CompareTable& table, ReportKind kind) {
    switch (kind) {
        case ReportKind::New:
            return table.NewCount();
        case ReportKind::Modified:
            return table.ChgCount();
        case ReportKind::NewAndModified:
            return table.NewCount() + table.ChgCount();
        case ReportKind::Same:
            break;
    }
    return table.SameCount();
}

}  // namespace

ExportLists::ExportLists(Parts parts) : parts_(std::move(parts)) {}

void ExportLists::AskAndExport(ReportKind kind) {
    if (SayIfNothingToExport(kind)) return;
    ExportKind = TextsOf(kind).ExportKind;
    const std::string fileName = AskExportFileName();
    if (!fileName.empty()) Save(kind, fileName, Overwrite::Ask);
}

ExportResult ExportLists::Export(ReportKind kind, const std::string& fileName,
                                 Overwrite overwrite) {
    if (SayIfNothingToExport(kind)) return ExportResult::NothingToExport;
    return Save(kind, fileName, overwrite);
}

bool ExportLists::SayIfNothingToExport(ReportKind kind) {
    if (CountOf(parts_.Table, kind) != 0) return false;
    parts_.Dialogs.ShowMessage({"No data to be export.     ", platform::MessageIcon::Information,
                                platform::MessageButtons::Ok, parts_.ApplicationTitle});
    return true;
}

bool ExportLists::MayOverwrite(Overwrite overwrite) {
    if (overwrite != Overwrite::Ask) return overwrite == Overwrite::Yes;
    return parts_.Dialogs.ShowMessage({"The same filename exist, overwrite it?",
                                       platform::MessageIcon::Exclamation,
                                       platform::MessageButtons::YesNo, "Information"});
}

ExportResult ExportLists::Save(ReportKind kind, const std::string& fileName, Overwrite overwrite) {
    if (parts_.Files.Look(fileName).Exists() && !MayOverwrite(overwrite))
        return ExportResult::NotOverwritten;
    if (!Write(kind, fileName)) return ExportResult::Failed;
    parts_.Dialogs.ShowMessage({std::string(TextsOf(kind).Saved) + fileName,
                                platform::MessageIcon::Information, platform::MessageButtons::Ok,
                                "File Saved"});
    return ExportResult::Written;
}

bool ExportLists::Write(ReportKind kind, const std::string& fileName) {
    // What is empty is written into as it is: there is nothing to delete in it, and it may be a
    // device, which must stay.
    const platform::FileStatus status = parts_.Files.Look(fileName);
    File file = status.Size == 0 ? OpenForAppending(fileName) : nullptr;
    const bool isNew = !file;
    if (isNew) {
        if (status.Exists() && !parts_.Files.RemoveFile(fileName).Ok()) return false;
        file = OpenForAppending(fileName);
        if (!file) return false;
    }
    ReportFile report(std::move(file), parts_.Host);
    PutReport(report, parts_.Table, kind);
    if (report.Close()) return true;
    // Half a report must not pass for a whole one.
    if (isNew) parts_.Files.RemoveFile(fileName);
    return false;
}

std::string ExportLists::AskExportFileName() {
    return std::string(
        platform::Trimmed(parts_.Dialogs.AskSaveName({"Export file name to a text file",
                                                      {{"Text Files (*.txt)", "*.txt"}},
                                                      ExportKind + "Files",
                                                      "txt"})));
}

std::string ExportLists::AskTextFileName() {
    return std::string(platform::Trimmed(
        parts_.Dialogs.AskOpenName({"Select a text file",
                                    {{"Text Files (*.txt)", "*.txt"}, {"All Files (*.*)", "*.*"}},
                                    {},
                                    {}})));
}

void ExportLists::mnuOpen() {
    const std::string fileName = AskTextFileName();
    if (!fileName.empty()) parts_.Shell.StartProgram("notepad.exe " + fileName);
}

}  // namespace reports
