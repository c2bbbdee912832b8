#include "app/form_main.h"

#include <utility>

#include "app/companion_jobs.h"
#include "app/layout.h"
#include "platform/paths.h"
#include "platform/trimmed.h"

namespace app {

namespace {

const std::string kTitle(kApplicationTitle);

// A shortcut puts a path with blanks between quotes; no path holds one.
std::string Unquoted(std::string_view part) {
    std::string text(platform::Trimmed(part));
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"')
        text = text.substr(1, text.size() - 2);
    return text;
}

compare::CountLabels CountLabelsOf(FormMain& form) {
    return {form.LabelNewFile, form.LabelChgFile, form.LabelNewChgFile, form.LabelAllFile,
            form.lblComparing};
}

syncing::TallyLabels TallyLabelsOf(FormMain& form) {
    return {form.LabelNewFile, form.LabelChgFile, form.LabelNewChgFile, form.LabelAllFile};
}

}  // namespace

FormMain::FormMain(const Environment& environment)
    : FilterDialog(Filter, environment.Host, environment.Dialogs, kTitle),
      environment_(environment),
      dialogs_(environment.Dialogs, closing_),
      page_(*this, *this),
      views_(Table, page_, *this, *this),
      categories_(*this, LabelFileFilter, *this),
      compare_(*this, {Table, Filter, environment.Files, environment.Host, dialogs_, *this,
                       CountLabelsOf(*this), kTitle}),
      sync_(*this, {Table, environment.Files, environment.Host, dialogs_, Filter, *this,
                    lblComparing, TextFileName, LabelTip, TallyLabelsOf(*this), kTitle}),
      direction_(*this, Table, *this),
      exports_({Table, environment.Files, environment.Host, dialogs_, environment.Shell, kTitle}),
      profiles_({environment.Registry, Combo1, Combo2, dialogs_, environment.Host, Filter,
                 [this] { DescribeFileFilter(); }, kTitle}) {
    lblComparing.SetVisible(false);
    TextFileName.SetReadOnly(true);
    Window.Menu = MenuTree();
    PlaceControls(*this, direction_);
    WireCommands();
    WirePointer();
    GuardCommands();
}

void FormMain::Load(const std::string& commandLine) {
    PlaceWindow();
    LabelTip1.SetCaption(
        "How to start ?\r\nClick 'Browse' button to select the folder 1 and folder 2, then click "
        "'Compare' button.");
    for (platform::Button* stop : {&Command8, &Command9, &Command10}) stop->SetTop(7100);
    TextFileName.SetText("");
    StartFrom(commandLine);
    for (const std::string& folder :
         {environment_.Shell.DocumentsFolder(), environment_.Shell.ProgramFolder()})
        ImportCompanionJobs(environment_.Files, folder, Combo1, Combo2);
}

void FormMain::PlaceWindow() {
    platform::Place& bounds = Window.Bounds;
    bounds.Width = 15360;
    bounds.Height = 10000;
    bounds.Top = static_cast<int>((environment_.Host.ScreenHeight() - bounds.Height) / 2.4);
    bounds.Left = (environment_.Host.ScreenWidth() - bounds.Width) / 2;
}

// The lists are loaded in any case: a new pair takes the slot behind them.
void FormMain::StartFrom(const std::string& commandLine) {
    const std::size_t comma = commandLine.find(',');
    const bool twoParts =
        comma != std::string::npos && commandLine.find(',', comma + 1) == std::string::npos;
    const std::string folder1 = twoParts ? Unquoted(commandLine.substr(0, comma)) : "";
    profiles_.LoadProfiles();
    if (folder1.empty()) {
        profiles_.PickFirstProfile();
        return;
    }
    Combo1.SetText(folder1);
    Combo2.SetText(Unquoted(commandLine.substr(comma + 1)));
}

void FormMain::WireCommands() {
    Command3.OnClick = [this] { ClickCompare(); };
    const auto syncs = [this](platform::Button& start, platform::Button& stop,
                              compare::SyncMode mode) {
        start.OnClick = [this, mode] { RunLong([this, mode] { sync_.Sync(mode); }); };
        stop.OnClick = [this] { sync_.RequestStop(); };
    };
    syncs(Command4, Command10, compare::SyncMode::Double);
    syncs(Command5, Command9, compare::SyncMode::Left);
    syncs(Command6, Command8, compare::SyncMode::Right);

    Combo1.OnClick = [this] { profiles_.PickProfile(); };
    LabelFileFilter.OnClick = [this] { EditFileFilter(); };
    CommandBrowse1.OnClick = [this] { Browse(Combo1); };
    CommandBrowse2.OnClick = [this] { Browse(Combo2); };
    CmdOpenFolder1.OnClick = [this] { environment_.Shell.OpenFolder(Combo1.Text()); };
    CmdOpenFolder2.OnClick = [this] { environment_.Shell.OpenFolder(Combo2.Text()); };

    Window.OnActivate = [this] {
        Window.Caption = " " + kTitle + " ,  Version " + std::string(kVersion);
    };
    Window.OnScrollKey = [this](platform::ScrollKey key) {
        if (!running_) page_.ScrollByKey(key);
    };
    Window.OnWheel = [this](int rows) {
        if (!running_) page_.ScrollByRows(rows);
    };
    Window.OnCloseRequest = [this] { return RequestClose(); };
}

void FormMain::WirePointer() {
    const auto opensOnHover = [](platform::Image& image, platform::Button& button,
                                 const platform::ComboBox& combo) {
        button.SetVisible(false);
        image.OnPointerMove = [&button, &combo](platform::PointerPosition) {
            if (platform::Trimmed(combo.Text()).empty()) return;
            button.SetVisible(true);
            button.BringToFront();
        };
    };
    opensOnHover(ImageOpenFolder1, CmdOpenFolder1, Combo1);
    opensOnHover(ImageOpenFolder2, CmdOpenFolder2, Combo2);
    Window.OnPointerMove = [this](platform::PointerPosition) {
        CmdOpenFolder1.SetVisible(false);
        CmdOpenFolder2.SetVisible(false);
    };
    Picture1.OnPointerMove = [this](platform::PointerPosition) {
        page_.ResetRowColors(-1);
        LabelTip.SetCaption("");
    };
    LabelTip1.OnPointerMove = [this](platform::PointerPosition) { LabelTip.SetCaption(""); };
}

// While a long command runs, every other one that arrives through a yield is dropped.
void FormMain::GuardCommands() {
    for (platform::Control* control : Window.Controls)
        if (control != &Command3 && control != &Command8 && control != &Command9 &&
            control != &Command10)
            Guard(control->OnClick);
    VScroll1.OnChange = [this, scroll = VScroll1.OnChange] {
        if (running_)
            page_.ShowScrollPosition();
        else
            scroll();
    };
    GuardMenu(Window.Menu);
}

void FormMain::Guard(std::function<void()>& slot) {
    if (!slot) return;
    slot = [this, command = std::move(slot)] {
        if (!running_) command();
    };
}

void FormMain::GuardMenu(std::vector<platform::MenuItem>& items) {
    for (platform::MenuItem& item : items) {
        if (item.Name != "mnuExit") Guard(item.OnClick);
        GuardMenu(item.Items);
    }
}

void FormMain::RunLong(const std::function<void()>& command) {
    const auto setRunning = [this](bool running) {
        running_ = running;
        for (platform::Control* control : std::initializer_list<platform::Control*>{
                 &Combo1, &Combo2, &CheckShowPath1, &CheckShowPath2})
            control->SetEnabled(!running);
    };
    setRunning(true);
    command();
    setRunning(false);
    if (closing_) Exit();
}

void FormMain::ClickCompare() {
    if (running_) {
        if (Command3.Caption() == "Stop") compare_.Compare();
        return;
    }
    direction_.HideDirectionPanel();
    RunLong([this] { compare_.Compare(); });
}

void FormMain::DoubleSync() {
    if (!closing_) sync_.Sync(compare::SyncMode::Double);
}

// The panel knows its row by its number in the list that was shown.
void FormMain::ShowView(std::string_view viewCode) {
    direction_.HideDirectionPanel();
    views_.ShowView(viewCode);
}

void FormMain::ShowFromStart(std::string_view viewCode) {
    const compare::ItemList* list = views_.ListOf(viewCode);
    page_.SetScrollRange(list ? compare::CompareTable::Count(*list) : 0);
    page_.ResetScroll();
    ShowView(viewCode);
}

void FormMain::RemoveLeftovers() {
    for (const std::string& path : compare_.Troubles().Leftovers)
        environment_.Files.RemoveLeftover(path);
}

void FormMain::RememberPair(const std::string& folder1, const std::string& folder2) {
    profiles_.AddPairToHistory(folder1, folder2);
    profiles_.SaveProfile(folder1, folder2, Filter.FilterExtensions,
                          FilterFlagText(Filter.FilterOnlyMode));
}

void FormMain::DescribeFileFilter() {
    rules::DescribeFileFilter(Filter, LabelFileFilter);
}

void FormMain::SelectRow(int row) {
    page_.ResetRowColors(row);
    page_.ToggleRowSelection(row);
}

platform::Label& FormMain::DirectionCell(int row) {
    return sMAC[static_cast<std::size_t>(row)];
}

void FormMain::EditFileFilter() {
    FilterDialog.Edit(Window);
    DescribeFileFilter();
    profiles_.SaveProfile(std::string(platform::Trimmed(Combo1.Text())),
                          std::string(platform::Trimmed(Combo2.Text())), Filter.FilterExtensions,
                          FilterFlagText(Filter.FilterOnlyMode));
}

// Both pickers ask for Folder 1; the wording is kept.
void FormMain::Browse(platform::ComboBox& combo) {
    formSelFolder_.Bounds = {Window.Bounds.Left + 1000, Window.Bounds.Top + 600, 0, 0};
    environment_.Host.Show(formSelFolder_);
    const auto picked = dialogs_.PickFolder("Please select Folder 1:", formSelFolder_);
    environment_.Host.Unload(formSelFolder_);
    if (picked && !picked->empty()) combo.SetText(platform::WithSeparator(*picked));
}

void FormMain::ShowHelp() {
    constexpr const char* kParagraphs[] = {
        "Step 1.   Click the button 'Browse...' to select two folders.               ",
        "Step 2.   Click the button 'Compare', the files compare information will display in the "
        "grid.      ",
        "Step 3.   If you want to manually specify which files need to update, click the columu "
        "'Sync Direction', and change the sync direction.    ",
        "Step 4.   Click the button 'Synchronize' to sync the files.",
        "Notice:   If the grid only display the 'new' or 'Modified' files, then only new or "
        "modified files will be synchronized.     ",
        "This software can be copied to a USB disk and run on it, no need to install.",
    };
    std::string text = "How to compare and sync folder ? ";
    for (const char* paragraph : kParagraphs) {
        text += "\r\n\r\n   \r\n";
        text += paragraph;
    }
    text += "\r\n   ";
    dialogs_.ShowMessage(
        {text, platform::MessageIcon::Information, platform::MessageButtons::Ok, "Help Document"});
}

void FormMain::ShowAbout() {
    const std::string text = kTitle + " ,  Version " + std::string(kVersion) +
                             "\r\n\r\nCompares two folders and synchronises them.";
    dialogs_.ShowMessage({text, platform::MessageIcon::Information, platform::MessageButtons::Ok,
                          "About " + kTitle});
}

// Closing during a long command is Stop; the window goes once the command has unwound.
bool FormMain::RequestClose() {
    environment_.Host.Unload(formSelFolder_);
    environment_.Host.Unload(FilterDialog.FormFilter);
    if (!running_) return true;
    closing_ = true;
    Table.StopRequested = true;
    return false;
}

void FormMain::Exit() {
    if (RequestClose()) environment_.Host.Unload(Window);
}

}  // namespace app
