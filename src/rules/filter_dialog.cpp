#include "rules/filter_dialog.h"

#include <algorithm>
#include <limits>
#include <unordered_set>
#include <utility>

#include "platform/trimmed.h"

namespace rules {

namespace {

// Twips. The frame is what the system adds around the controls.
constexpr int kClientWidth = 7470;
constexpr int kClientHeight = 4035;
constexpr int kFrameWidth = 240;
constexpr int kFrameHeight = 585;
constexpr int kBelowOwnersTop = 1500;

constexpr std::size_t kMostTypedPieces = 10001;

bool IsAsciiLetterOrDigit(char32_t key) {
    return (key >= U'a' && key <= U'z') || (key >= U'A' && key <= U'Z') ||
           (key >= U'0' && key <= U'9');
}

// What the keys for select all, copy, paste, cut and undo send. They are no characters: cutting
// and pasting work, though backspace and whatever else an extension cannot hold do not.
bool IsEditingShortcut(char32_t key) {
    return key == 1 || key == 3 || key == 22 || key == 24 || key == 26;
}

char LowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

void DescribeFileFilter(const FileFilter& filter, platform::Label& label) {
    if (filter.FilterExtensions.empty()) {
        label.SetCaption("Sync all type of file.");
        label.SetToolTip("Sync all type of file.");
        return;
    }
    std::string list;
    for (const char c : filter.FilterExtensions) {
        if (c == '/')
            list += " .";
        else
            list += c;
    }
    if (filter.FilterOnlyMode) {
        label.SetCaption("Only sync files with extensions: " + list);
        label.SetToolTip("Only sync files with extensions: " + list);
    } else {
        label.SetCaption("Sync all files excluding: " + list);
        label.SetToolTip("Copy all files excluding: " + list);
    }
}

FilterDialog::FilterDialog(FileFilter& filter, platform::FormHost& host, platform::Dialogs& dialogs,
                           std::string applicationTitle)
    : filter_(filter),
      host_(host),
      dialogs_(dialogs),
      applicationTitle_(std::move(applicationTitle)) {
    PlaceControls();
    platform::OptionButton::Group({&OptionOnly, &OptionExc});
    FormFilter.Caption = "Edit File filter Rules";
    FormFilter.DefaultButton = &CommandOK;
    FormFilter.CancelButton = &Command3;
    FormFilter.OnActivate = [this] { ShowFilter(); };
    TextAddto.OnKeyPress = [](char32_t key) {
        return IsAsciiLetterOrDigit(key) || key == U',' || IsEditingShortcut(key);
    };
    Command1.OnClick = [this] { AddTyped(); };
    Command2.OnClick = [this] { RemoveSelected(); };
    CommandOK.OnClick = [this] { Accept(); };
    Command3.OnClick = [this] { Close(); };
}

void FilterDialog::PlaceControls() {
    FormFilter.Bounds.Width = kClientWidth + kFrameWidth;
    FormFilter.Bounds.Height = kClientHeight + kFrameHeight;

    FormFilter.Add(OptionOnly, "OptionOnly", {180, 165, 7110, 270});
    FormFilter.Add(OptionExc, "OptionExc", {180, 480, 7110, 270});

    FormFilter.Add(Label2, "Label2", {180, 960, 3000, 240});
    FormFilter.Add(TextAddto, "TextAddto", {180, 1230, 3000, 345});
    FormFilter.Add(Label3, "Label3", {180, 1680, 3000, 240});
    FormFilter.Add(Label4, "Label4", {180, 1920, 3000, 240});
    FormFilter.Add(Label5, "Label5", {180, 2160, 3000, 240});

    FormFilter.Add(Command1, "Command1", {3360, 1230, 1350, 345});
    FormFilter.Add(Label1, "Label1", {4890, 960, 2400, 240});
    FormFilter.Add(List1, "List1", {4890, 1230, 2400, 2100});
    FormFilter.Add(Command2, "Command2", {3360, 1665, 1350, 345});

    FormFilter.Add(CommandOK, "CommandOK", {4470, 3510, 1350, 345});
    FormFilter.Add(Command3, "Command3", {5940, 3510, 1350, 345});
}

void FilterDialog::Edit(const platform::Form& owner) {
    FormFilter.Bounds.Top = owner.Bounds.Top + kBelowOwnersTop;
    FormFilter.Bounds.Left = owner.Bounds.Left + (owner.Bounds.Width - FormFilter.Bounds.Width) / 2;
    List1.ClearEntries();
    TextAddto.SetText("");
    filled_ = false;
    host_.ShowModal(FormFilter);
}

// A window is activated again whenever the user comes back to it; what was changed here meanwhile
// must not be undone by that.
void FilterDialog::ShowFilter() {
    if (filled_) return;
    filled_ = true;
    (filter_.FilterOnlyMode ? OptionOnly : OptionExc).SetValue(true);
    AddEntries(filter_.FilterExtensions, '/', std::numeric_limits<std::size_t>::max());
}

void FilterDialog::AddEntries(std::string_view text, char separator, std::size_t mostPieces) {
    std::unordered_set<std::string> listed(List1.Entries().begin(), List1.Entries().end());
    for (std::size_t pieces = 0; pieces < mostPieces; ++pieces) {
        const std::size_t end = text.find(separator);
        const std::string piece(text.substr(0, end));
        if (!piece.empty() && listed.insert(piece).second) List1.AddEntry(piece);
        if (end == std::string_view::npos) return;
        text.remove_prefix(end + 1);
    }
}

void FilterDialog::AddTyped() {
    std::string typed(platform::Trimmed(TextAddto.Text()));
    std::transform(typed.begin(), typed.end(), typed.begin(), LowerAscii);
    AddEntries(typed, ',', kMostTypedPieces);
}

void FilterDialog::RemoveSelected() {
    const int index = List1.ListIndex();
    if (index < 0) return;
    List1.RemoveEntry(index);
    List1.Select(std::max(index - 1, 0));
}

void FilterDialog::Accept() {
    if (OptionOnly.Value() && List1.Entries().empty()) {
        dialogs_.ShowMessage({"Please input the file extensions.   ",
                              platform::MessageIcon::Exclamation, platform::MessageButtons::Ok,
                              applicationTitle_});
        return;
    }
    filter_.FilterOnlyMode = OptionOnly.Value();
    filter_.FilterExtensions.clear();
    for (const std::string& entry : List1.Entries()) filter_.FilterExtensions += '/' + entry;
    Close();
}

}  // namespace rules
