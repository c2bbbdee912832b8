#include "app/cli.h"

#include <string_view>
#include <unordered_map>

#include "app/cli_options.h"
#include "app/cli_rows.h"
#include "app/cli_session.h"
#include "platform/console.h"

namespace app {

namespace {

constexpr int kDone = 0;
constexpr int kDifferent = 1;
constexpr int kWrong = 2;
constexpr int kStopped = 130;

using platform::Stream;

std::string_view BoolText(bool value) {
    return value ? "true" : "false";
}

// The label that shows a view.
platform::Label& LabelOf(FormMain& form, std::string_view viewCode) {
    if (viewCode == "New") return form.LabelNewFile;
    if (viewCode == "Chg") return form.LabelChgFile;
    if (viewCode == "NewChg") return form.LabelNewChgFile;
    return form.LabelAllFile;
}

// One run of a command that compares two folders first.
class Run {
  public:
    explicit Run(const CliOptions& options) : options_(options), session_(options.NoHistory) {}

    int Compare() {
        if (!CompareFolders()) return kWrong;
        PrintRows(ShownRows());
        PrintCompareSummary();
        if (!output_.Flush()) return OutputFailed();
        if (session_.Stopped()) return kStopped;
        return Table().NewChgCount() > 0 ? kDifferent : kDone;
    }

    int Sync() {
        if (!CompareFolders()) return kWrong;
        if (!ApplyDirections()) return kWrong;
        session_.RememberPair();
        if (session_.Stopped()) return PrintStoppedBeforeSync();
        if (options_.DryRun) return DryRun();
        const std::size_t before = session_.Messages().size();
        session_.Run(SyncButton());
        const auto& messages = session_.Messages();
        const std::string message = messages.size() > before ? messages.back().Text : "";
        const compare::ItemList& handled = Table().SyncAllList;
        PrintRows(Form().CurrentViewCode() == "SyncAll" ? handled : compare::ItemList());
        PrintSyncSummary(compare::CompareTable::Count(handled), message);
        if (!output_.Flush()) return OutputFailed();
        if (session_.Stopped()) return kStopped;
        return Table().FailList.empty() ? kDone : kDifferent;
    }

    int Export() {
        if (!CompareFolders()) return kWrong;
        if (session_.Stopped()) return kStopped;
        const auto overwrite = options_.Force                        ? reports::Overwrite::Yes
                               : platform::IsTerminal(Stream::Input) ? reports::Overwrite::Ask
                                                                     : reports::Overwrite::No;
        using Result = reports::ExportResult;
        switch (Form().Exports().Export(KindOfReport(), platform::MakeAbsolute(options_.File),
                                        overwrite)) {
            case Result::Written:
                return kDone;
            case Result::NothingToExport:
                return kDifferent;
            case Result::NotOverwritten:
                if (overwrite == reports::Overwrite::No)
                    session_.Complain("'" + options_.File + "' exists; --force overwrites it");
                return kDifferent;
            case Result::Failed:
                break;
        }
        session_.Complain("cannot write '" + options_.File + "'");
        return kWrong;
    }

  private:
    FormMain& Form() { return session_.Form(); }
    compare::CompareTable& Table() { return session_.Form().Table; }

    // False when the filter or a folder is refused; the window's message has been shown then.
    bool CompareFolders() {
        if (!session_.SetFilter(options_)) return false;
        Form().Combo1.SetText(FolderText(options_.Folder1));
        Form().Combo2.SetText(FolderText(options_.Folder2));
        session_.Run(Form().Command3);
        if (!session_.Messages().empty()) return false;
        session_.ReportTroubles();
        LabelOf(Form(), options_.ViewCode).Click();
        if (options_.Command != CliCommand::Sync) session_.RememberPair();
        return true;
    }

    // The window trims the blanks around a text, but they may belong to the folder's name.
    static std::string FolderText(const std::string& folder) {
        std::string path = platform::MakeAbsolute(folder);
        if (!path.empty() && path.back() == ' ') path += platform::Separator;
        return path;
    }

    const compare::ItemList& ShownRows() { return *Form().CurrentList(); }

    void PrintRows(const compare::ItemList& rows) {
        if (options_.Quiet) return;
        RowPrinter printer(output_, options_.Format, platform::IsTerminal(Stream::Output));
        printer.PrintHeader();
        for (const compare::CompareItem& item : rows)
            printer.Print(item, grid::DirectionText(Form().CurrentViewCode(), item.Code));
    }

    void PrintCompareSummary() {
        compare::CompareTable& table = Table();
        if (options_.Format == RowFormat::Json) {
            std::string& text = output_.Pending();
            text += "{\"summary\": {\"new\": " + std::to_string(table.NewCount());
            text += ", \"modified\": " + std::to_string(table.ChgCount());
            text += ", \"same\": " + std::to_string(table.SameCount());
            text += ", \"stopped\": ";
            text += BoolText(session_.Stopped());
            text += "}}\n";
            return;
        }
        output_.Flush();
        for (const platform::Label* label : {&Form().LabelNewFile, &Form().LabelChgFile,
                                             &Form().LabelNewChgFile, &Form().LabelAllFile})
            session_.Say(label->Caption());
    }

    void PrintSyncSummary(std::int32_t total, const std::string& message) {
        if (options_.Format != RowFormat::Json) {
            output_.Flush();
            if (!message.empty()) session_.Say(message);
            return;
        }
        std::string& text = output_.Pending();
        text += "{\"summary\": {\"mode\": \"";
        text += ModeText();
        text += "\", \"total\": " + std::to_string(total);
        text += ", \"failed\": " + std::to_string(Table().FailList.size());
        text += ", \"stopped\": ";
        text += BoolText(session_.Stopped());
        text += ", \"message\": ";
        AppendJsonText(message, text);
        text += "}}\n";
    }

    std::string_view ModeText() const {
        switch (options_.Mode) {
            case compare::SyncMode::Left:
                return "Left_to_Right";
            case compare::SyncMode::Right:
                return "Right_to_Left";
            case compare::SyncMode::Double:
                break;
        }
        return "All";
    }

    platform::Button& SyncButton() {
        switch (options_.Mode) {
            case compare::SyncMode::Left:
                return Form().Command5;
            case compare::SyncMode::Right:
                return Form().Command6;
            case compare::SyncMode::Double:
                break;
        }
        return Form().Command4;
    }

    int PrintStoppedBeforeSync() {
        PrintSyncSummary(0, "");
        return output_.Flush() ? kStopped : OutputFailed();
    }

    int DryRun() {
        const auto category = *syncing::CategoryOfView(Form().CurrentViewCode());
        compare::ItemList rows;
        for (const compare::CompareItem& item : ShownRows())
            if (syncing::ActsOn(options_.Mode, category, item.Code)) rows.push_back(item);
        PrintRows(rows);
        if (options_.Format == RowFormat::Json)
            PrintSyncSummary(compare::CompareTable::Count(rows), "");
        return output_.Flush() ? kDone : OutputFailed();
    }

    // Turns rows round in the direction panel. All must be rows of the view, or none is turned.
    bool ApplyDirections() {
        if (options_.Directions.empty()) return true;
        std::unordered_map<std::string, std::int32_t> rowOf;
        for (std::int32_t i = 0; const compare::CompareItem& item : ShownRows())
            rowOf.emplace(item.RelativePath(), i++);
        for (const auto& [path, direction] : options_.Directions) {
            const auto found = rowOf.find(path);
            if (found == rowOf.end()) {
                session_.Complain("no row '" + path + "' in this view");
                return false;
            }
            if (!ApplyDirection(found->second, direction)) {
                session_.Complain("row '" + path + "' cannot take this direction");
                return false;
            }
        }
        return true;
    }

    bool ApplyDirection(std::int32_t row, RowDirection direction) {
        FormMain& form = Form();
        form.ScrollToRow(row);
        form.sMAC[static_cast<std::size_t>(row - form.FirstRow())].Click();
        platform::OptionButton& option = direction == RowDirection::Right  ? form.Option1
                                         : direction == RowDirection::Left ? form.Option2
                                                                           : form.Option3;
        if (!form.Picture3.Visible() || !option.Enabled()) return false;
        option.Click();
        form.Command2.Click();
        return true;
    }

    reports::ReportKind KindOfReport() const {
        using reports::ReportKind;
        if (options_.ExportKind == "new") return ReportKind::New;
        if (options_.ExportKind == "modified") return ReportKind::Modified;
        if (options_.ExportKind == "new-modified") return ReportKind::NewAndModified;
        return ReportKind::Same;
    }

    int OutputFailed() {
        session_.Complain("cannot write to standard output");
        return kWrong;
    }

    const CliOptions& options_;
    CliSession session_;
    CliOutput output_;
};

int ListHistory() {
    CliSession session(true);
    CliOutput output;
    for (const StoredProfile& profile : session.Form().History().List()) {
        std::string& text = output.Pending();
        text += std::to_string(profile.Slot);
        for (const std::string& field :
             {profile.Folder1, profile.Folder2, profile.FilterExtensions}) {
            text += '\t';
            AppendTsvField(field, text);
        }
        text += '\t' + std::to_string(profile.FilterOnlyMode) + '\n';
    }
    if (output.Flush()) return kDone;
    session.Complain("cannot write to standard output");
    return kWrong;
}

int ClearHistory(bool yes) {
    CliSession session(false);
    if (!yes && !platform::IsTerminal(Stream::Input)) {
        session.Complain("'history clear' needs --yes here");
        return kDifferent;
    }
    session.AnswerYes(yes);
    const bool cleared = session.Form().History().ClearProfiles();
    session.WriteHistory();
    return cleared ? kDone : kDifferent;
}

int PrintPlain(const std::string& text) {
    return platform::WriteAll(Stream::Output, text) ? kDone : kWrong;
}

}  // namespace

int RunCli(const std::vector<std::string>& arguments) {
    CliOptions options;
    if (const std::string error = ParseCliOptions(arguments, options); !error.empty()) {
        WriteError("varnel-cli: " + error);
        return kWrong;
    }
    switch (options.Command) {
        case CliCommand::Help:
            return PrintPlain(CliUsage(options.HelpTopic));
        case CliCommand::Version:
            return PrintPlain("varnel-cli " + std::string(kVersion) + "\n");
        case CliCommand::HistoryList:
            return ListHistory();
        case CliCommand::HistoryClear:
            return ClearHistory(options.Yes);
        case CliCommand::Compare:
            return Run(options).Compare();
        case CliCommand::Sync:
            return Run(options).Sync();
        case CliCommand::Export:
            break;
    }
    return Run(options).Export();
}

}  // namespace app
