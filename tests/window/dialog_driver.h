// Reads and answers the dialogs of the system that the program opens.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>

#include <windows.h>

#include "window/window_driver.h"

namespace window {

enum class MessageKind { Critical, Exclamation, Information, Unknown };  // by its icon

struct ShownMessage {
    MessageKind Kind;
    std::string Title;
    std::string Text;
    bool operator==(const ShownMessage&) const = default;
};
std::ostream& operator<<(std::ostream& out, const ShownMessage& message);

// Waits for a message box, presses one of its buttons (IDOK, IDYES, IDNO) with the real pointer
// and returns, once it is gone, what it said.
ShownMessage Answer(const Program& program, int button = IDOK);

bool ShowsMessage(const Program& program);

// The system's dialog for the name of a file to save or to open.
class FileNameDialog {
  public:
    FileNameDialog(const Program& program, std::string_view title)
        : program_(program), window_(program.WaitForWindow("#32770", title)) {}

    std::string ProposedName() const;

    // Enters a name and presses Save or Open, or presses Cancel; returns when the dialog is gone.
    void Choose(std::string_view path) const;
    void Cancel() const;

  private:
    HWND NameField() const;
    void Press(int button) const;

    const Program& program_;
    HWND window_;
};

// The system's dialog for a folder.
class FolderDialog {
  public:
    explicit FolderDialog(const Program& program);

    HWND Window() const { return window_; }
    bool Says(std::string_view prompt) const;

    // Goes down the tree by the names as the dialog shows them, from below the desktop.
    void Select(const Texts& names) const;
    void Press(int button) const;  // IDOK or IDCANCEL

  private:
    const Program& program_;
    HWND window_;
};

}  // namespace window
