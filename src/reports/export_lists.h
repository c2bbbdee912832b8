// Writes the lists of a comparison to plain text files, and opens text files in the editor.
//
// A report has CR LF line ends and the paths byte for byte as the rows hold them. Whatever goes
// wrong while it is written is not said: the message "File Saved" is missing, and so is the file.
#pragma once

#include <string>

#include "compare/compare_table.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/forms.h"
#include "platform/shell.h"

namespace reports {

enum class ReportKind { New, Modified, NewAndModified, Same };

// What to do with a file that exists.
enum class Overwrite { Ask, Yes, No };

enum class ExportResult { Written, NothingToExport, NotOverwritten, Failed };

class ExportLists {
  public:
    struct Parts {
        const compare::CompareTable& Table;
        platform::FileSystem& Files;
        platform::FormHost& Host;
        platform::Dialogs& Dialogs;
        platform::Shell& Shell;
        std::string ApplicationTitle;
    };

    explicit ExportLists(Parts parts);

    // The menu commands: each asks for a file name and writes its report.
    void mnuExportNew() { AskAndExport(ReportKind::New); }
    void mnuExportModify() { AskAndExport(ReportKind::Modified); }
    void mnuExportNewModify() { AskAndExport(ReportKind::NewAndModified); }
    void mnuExportSame() { AskAndExport(ReportKind::Same); }

    // Asks for a text file and opens it in Notepad.
    void mnuOpen();

    // The same as a menu command, with a file name given. Messages are shown as there, the
    // question whether to overwrite only with Overwrite::Ask.
    ExportResult Export(ReportKind kind, const std::string& fileName, Overwrite overwrite);

    // The chosen path without the blanks around it; empty when the user cancels.
    std::string AskExportFileName();
    std::string AskTextFileName();

    // The report's kind while the save dialog is up, "New " for example: its proposed name begins
    // with it.
    std::string ExportKind;

  private:
    void AskAndExport(ReportKind kind);
    bool SayIfNothingToExport(ReportKind kind);
    ExportResult Save(ReportKind kind, const std::string& fileName, Overwrite overwrite);
    bool MayOverwrite(Overwrite overwrite);
    bool Write(ReportKind kind, const std::string& fileName);

    Parts parts_;
};

}  // namespace reports
