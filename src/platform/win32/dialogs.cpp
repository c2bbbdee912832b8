#include "platform/win32/dialogs.h"

#include <shlobj.h>
#include <windows.h>

#include "platform/win32/scale.h"
#include "platform/win32/text_conversion.h"

namespace platform::win32 {

namespace {

constexpr DWORD kFileNameSize = 32768;  // bytes

UINT IconFlag(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Critical:
            return MB_ICONERROR;
        case MessageIcon::Exclamation:
            return MB_ICONWARNING;
        case MessageIcon::Information:
            return MB_ICONINFORMATION;
    }
    return 0;
}

// Labels and patterns in turn, each ended by a NUL; another NUL ends them all.
std::string FilterText(const FileNameRequest& request) {
    std::string text;
    for (const FileNameRequest::Filter& filter : request.Filters) {
        text.append(filter.Label).push_back('\0');
        text.append(filter.Pattern).push_back('\0');
    }
    return text;
}

std::string AskFileName(HWND owner, const FileNameRequest& request, DWORD flags,
                        BOOL(WINAPI* ask)(LPOPENFILENAMEA)) {
    std::string file = request.ProposedName.substr(0, kFileNameSize - 1);
    file.resize(kFileNameSize);
    const std::string filter = FilterText(request);
    OPENFILENAMEA dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.hInstance = ::GetModuleHandleW(nullptr);
    dialog.lpstrFilter = filter.c_str();
    dialog.lpstrFile = file.data();
    dialog.nMaxFile = kFileNameSize;
    dialog.lpstrTitle = request.Title.c_str();
    dialog.lpstrDefExt =
        request.DefaultExtension.empty() ? nullptr : request.DefaultExtension.c_str();
    dialog.Flags = flags;
    if (!ask(&dialog)) return {};
    return file.substr(0, file.find('\0'));
}

int CALLBACK PlaceFolderDialog(HWND dialog, UINT event, LPARAM, LPARAM corner) {
    if (event != BFFM_INITIALIZED) return 0;
    const POINT& point = *reinterpret_cast<const POINT*>(corner);
    ::SetWindowPos(dialog, nullptr, point.x, point.y, 0, 0,
                   SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    return 0;
}

std::string PathOf(LPITEMIDLIST item) {
    char path[MAX_PATH * 4] = "";
    if (::SHGetPathFromIDListA(item, path)) return path;
    wchar_t wide[MAX_PATH] = L"";  // a path too long in bytes
    return ::SHGetPathFromIDListW(item, wide) ? Narrow(wide) : std::string();
}

}  // namespace

Dialogs::Dialogs(Host& host) : host_(host) {
    ::OleInitialize(nullptr);  // the folder dialog is a COM object within
}

Dialogs::~Dialogs() {
    ::OleUninitialize();
}

bool Dialogs::ShowMessage(const Message& message) {
    const UINT buttons = message.Buttons == MessageButtons::YesNo ? MB_YESNO : MB_OK;
    host_.BringUpToDate();
    const int answer = ::MessageBoxW(host_.DialogOwner(), Wide(message.Text).c_str(),
                                     Wide(message.Title).c_str(), buttons | IconFlag(message.Icon));
    return answer == IDOK || answer == IDYES;
}

// The owner in the system's sense is the active window, for that is the one to be disabled until
// the dialog is done; `owner` says where the dialog opens.
std::optional<std::string> Dialogs::PickFolder(const std::string& prompt, const Form& owner) {
    host_.BringUpToDate();
    const HWND window = host_.DialogOwner();
    const Scale scale(static_cast<int>(window ? ::GetDpiForWindow(window) : ::GetDpiForSystem()));
    const POINT corner{scale.Pixels(owner.Bounds.Left), scale.Pixels(owner.Bounds.Top)};
    char name[MAX_PATH * 4] = "";
    BROWSEINFOA dialog{};
    dialog.hwndOwner = window;
    dialog.pszDisplayName = name;
    dialog.lpszTitle = prompt.c_str();
    dialog.ulFlags = BIF_NEWDIALOGSTYLE | BIF_EDITBOX | BIF_RETURNONLYFSDIRS;
    dialog.lpfn = PlaceFolderDialog;
    dialog.lParam = reinterpret_cast<LPARAM>(&corner);
    const LPITEMIDLIST item = ::SHBrowseForFolderA(&dialog);
    if (!item) return std::nullopt;
    const std::string path = PathOf(item);
    ::CoTaskMemFree(item);
    if (path.empty()) return std::nullopt;
    return path;
}

std::string Dialogs::AskSaveName(const FileNameRequest& request) {
    host_.BringUpToDate();
    return AskFileName(host_.DialogOwner(), request, OFN_NOCHANGEDIR, ::GetSaveFileNameA);
}

std::string Dialogs::AskOpenName(const FileNameRequest& request) {
    host_.BringUpToDate();
    return AskFileName(host_.DialogOwner(), request,
                       OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR,
                       ::GetOpenFileNameA);
}

}  // namespace platform::win32
